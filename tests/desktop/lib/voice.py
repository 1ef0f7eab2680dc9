"""Speaks into the session's microphone."""

import os
import subprocess
import wave

# Both are recognised word by word by the on-device recogniser when spoken by this voice.
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


def say(sentence):
    """Speaks; returns when the last of it has gone into the microphone."""
    subprocess.run(["paplay", "--device=vmic", recording_of(sentence)], check=True)
