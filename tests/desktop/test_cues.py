#!/usr/bin/python3
"""The tones at the start and the end of a dictation, as the loudspeaker plays them."""

import os
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, ears, settings, voice  # noqa: E402
from lib.vesko import Vesko  # noqa: E402
from lib.waiting import until  # noqa: E402

START, STOP = 784, 587  # hertz
SECONDS = 0.156  # until the fade has come to silence


def playing():
    return subprocess.run(["pactl", "list", "short", "sink-inputs"], check=True, text=True,
                          stdout=subprocess.PIPE).stdout


class Cues(unittest.TestCase):
    def assert_tone(self, tone, pitch, other):
        self.assertAlmostEqual(tone.seconds, SECONDS, delta=0.01)
        self.assertGreater(tone.strength(pitch), 2 * tone.strength(other))

    def test_a_dictation_begins_and_ends_with_its_tone_and_is_understood(self):
        with Vesko() as vesko, ears.Listener() as listener:
            for count, sentence in ((2, voice.COFFEE), (4, voice.BROTHER)):
                vesko.dictate(lambda: voice.say(sentence))
                text = vesko.last_recording()["attempts"][-1].get("text")
                self.assertTrue(voice.is_understood(sentence, text), text)
                until("both tones are over", lambda: len(listener.tones()) == count
                      and not playing())
                start, stop = listener.tones()[-2:]
                self.assert_tone(start, START, STOP)
                self.assert_tone(stop, STOP, START)

    def test_without_sounds_a_dictation_is_silent(self):
        settings.write(soundsEnabled=False, provider="apple")
        self.addCleanup(settings.remove)
        with Vesko() as vesko, ears.Listener() as listener:
            vesko.dictate(lambda: voice.say(voice.COFFEE))
            self.assertEqual(listener.tones(), [])

    def test_a_waiting_program_holds_nothing_of_them(self):
        with Vesko() as vesko:
            vesko.wait_for("ready")
            with open(f"/proc/{vesko.process.pid}/maps") as file:
                loaded = file.read()
            self.assertIn("libgstreamer", loaded)
            for part in ("SoundTouch", "gstcontroller", "gstaudiofx", "gstwavparse"):
                self.assertNotIn(part, loaded)
            self.assertEqual(playing(), "")


if __name__ == "__main__":
    cases.main()
