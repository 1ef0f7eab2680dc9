"""Hears what the session's loudspeaker plays."""

import array
import math
import os
import subprocess
import tempfile

from .waiting import until

RATE = 44100
AUDIBLE = 32  # of 32768
GAP = 0.1  # seconds of silence between two tones


class Tone:
    def __init__(self, samples):
        self.samples = samples
        self.seconds = len(samples) / RATE

    def strength(self, frequency):
        """How much of the tone's first moment is of this frequency, in hertz."""
        begin = self.samples[:int(0.07 * RATE)]
        turn = 2 * math.pi * frequency / RATE
        return math.hypot(sum(s * math.cos(turn * i) for i, s in enumerate(begin)),
                          sum(s * math.sin(turn * i) for i, s in enumerate(begin)))


class Listener:
    """Listens from now on, until the end of the `with` block."""

    def __init__(self):
        descriptor, self.path = tempfile.mkstemp()
        os.close(descriptor)
        self.recorder = subprocess.Popen(
            ["parec", "--device=vout.monitor", "--latency-msec=10", "--raw", "--format=s16le",
             f"--rate={RATE}", "--channels=1", self.path])
        until("the loudspeaker can be heard", lambda: os.path.getsize(self.path))

    def tones(self):
        """What has been heard so far, cut where it is silent."""
        with open(self.path, "rb") as file:
            heard = file.read()
        samples = array.array("h", heard[:len(heard) // 2 * 2])
        audible = [i for i, sample in enumerate(samples) if abs(sample) > AUDIBLE]
        found = []
        for i in audible:
            if found and i - found[-1][1] < GAP * RATE:
                found[-1][1] = i
            else:
                found.append([i, i])
        return [Tone(samples[first:last + 1]) for first, last in found]

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.recorder.kill()
        self.recorder.wait()
