"""Speaks into the session's microphone."""

import array
import difflib
import math
import os
import signal
import subprocess
import wave

BROTHER = "my brother lives in a small house near the river"
COFFEE = "i would like to order a large coffee and a small sandwich"
MARGIN = 0.3  # seconds of silence at either end


def recording_of(sentence):
    """The path of a WAV file with the sentence spoken."""
    path = os.path.join(os.environ["SESSION_DIR"], f"{abs(hash(sentence))}.wav")
    if not os.path.exists(path):
        subprocess.run(["espeak-ng", "-v", "en-us+f2", "-s", "140", "-w", path, sentence],
                       check=True)
        with wave.open(path) as spoken:
            form, sound = spoken.getparams(), spoken.readframes(spoken.getnframes())
        silence = bytes(int(form.framerate * MARGIN) * form.sampwidth * form.nchannels)
        with wave.open(path, "wb") as padded:
            padded.setparams(form)
            padded.writeframes(silence + sound + silence)
    return path


def is_understood(sentence, text):
    """Whether the text is the sentence but for a word or two. From a file with every sample of the
    sentence in it, the on-device recogniser makes another word of one in about ten dictations, as
    the voice happens to fall into the frames that it looks at."""
    words = difflib.SequenceMatcher(None, sentence.split(), (text or "").split())
    return words.ratio() > 0.8


def say(sentence):
    """Speaks; returns when the last of it has gone into the microphone."""
    subprocess.run(["paplay", "--device=vmic", recording_of(sentence)], check=True)


class Murmur:
    """Somebody who goes on saying syllables into the microphone, for who only wants something said:
    a recording of silence is sent to nobody."""

    RATE = 16000
    SYLLABLE, PAUSE = 0.08, 0.16  # seconds

    def __init__(self):
        path = os.path.join(os.environ["SESSION_DIR"], "murmur.raw")
        said = [int(6000 * math.sin(2 * math.pi * 300 * i / self.RATE))
                for i in range(int(self.SYLLABLE * self.RATE))]
        with open(path, "wb") as file:
            file.write(array.array("h", said + [0] * int(self.PAUSE * self.RATE)).tobytes() * 20)
        self.process = subprocess.Popen(
            ["sh", "-c", f"while cat {path}; do :; done | pacat --playback --device=vmic --raw"
             f" --format=s16le --rate={self.RATE} --channels=1 --latency-msec=100"],
            start_new_session=True, stderr=subprocess.DEVNULL)

    def stop(self):
        os.killpg(self.process.pid, signal.SIGKILL)
        self.process.wait()
