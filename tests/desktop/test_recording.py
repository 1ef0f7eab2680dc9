#!/usr/bin/python3
"""What becomes of the audio when something goes wrong while it is being recorded."""

import os
import signal
import stat
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, library, media, voice  # noqa: E402
from lib.vesko import Vesko  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

NO_SOUND = ("No sound comes from the microphone. What was said before is kept; the recording goes on "
            "when sound comes again.")
SECONDS = 3.0  # of speech before something goes wrong


class Recording(unittest.TestCase):
    def test_killed_while_recording_leaves_audio_that_plays_and_says_interrupted(self):
        with Vesko() as vesko:
            vesko.begin()
            human_pause(SECONDS)
            recording = vesko.last_recording()
            self.assertEqual(recording["status"], "recording")
            self.assertEqual(stat.S_IMODE(os.stat(recording["path"]).st_mode), 0o600)
            vesko.process.send_signal(signal.SIGKILL)
            vesko.process.wait()
        played = media.decoded_seconds(recording["path"])
        self.assertGreater(played, SECONDS - 1)
        self.assertEqual(media.probe(recording["path"])["codec_name"], "aac")

        with Vesko(root=vesko.root) as again:
            again.wait_for("ready")
            found = again.last_recording()
            self.assertEqual((found["id"], found["status"]), (recording["id"], "interrupted"))
            self.assertEqual(found["errorMessage"], "Capture was interrupted. The original file "
                             "may be recovered or retried.")

    def test_ended_while_recording_keeps_an_ordinary_file(self):
        with Vesko() as vesko:
            vesko.begin()
            human_pause(1.0)
            vesko.quit()
        recording = library.recordings(vesko.root)[-1]
        self.assertEqual(recording["status"], "recorded")
        self.assertAlmostEqual(media.decoded_seconds(recording["path"]), recording["duration"],
                               delta=0.3)

    def test_a_microphone_that_vanishes_ends_the_capture_and_keeps_what_was_said(self):
        with Vesko() as vesko:
            vesko.begin()
            human_pause(SECONDS)
            loaded = subprocess.run(["pactl", "list", "short", "modules"], check=True, text=True,
                                    stdout=subprocess.PIPE).stdout.splitlines()
            microphone = [line.split()[0] for line in loaded
                          if "module-remap-source" in line or "sink_name=vmic" in line]
            self.addCleanup(restore_microphone)
            for module in reversed(microphone):
                subprocess.run(["pactl", "unload-module", module], check=True)
            vesko.wait_for_text("Recording stopped unexpectedly. Your original file was kept.")
            vesko.wait_for("ready")
            recording = vesko.last_recording()
            self.assertEqual(recording["status"], "failed")
            self.assertGreater(media.decoded_seconds(recording["path"]), SECONDS - 1)

    def test_a_source_that_sleeps_is_told_and_what_was_said_is_kept(self):
        with Vesko() as vesko:
            vesko.begin()
            voice.say(voice.BROTHER)
            suspend(True)
            self.addCleanup(suspend, False)
            vesko.wait_for_text(NO_SOUND)
            self.assertEqual(vesko.phase, "recording")
            vesko.end()
            until("the recording has ended", lambda: vesko.phase != "recording")
            vesko.wait_for("ready")
            self.assertNotIn(NO_SOUND, vesko.shown())
            text = vesko.last_recording()["attempts"][-1].get("text")
            self.assertTrue(voice.is_understood(voice.BROTHER, text), text)

    def test_a_source_that_wakes_goes_on(self):
        with Vesko() as vesko:
            vesko.begin()
            suspend(True)
            self.addCleanup(suspend, False)
            vesko.wait_for_text(NO_SOUND)
            suspend(False)
            until("sound comes again", lambda: NO_SOUND not in vesko.shown())
            voice.say(voice.BROTHER)
            vesko.end()
            until("the recording has ended", lambda: vesko.phase != "recording")
            vesko.wait_for("ready")
            text = vesko.last_recording()["attempts"][-1].get("text")
            self.assertTrue(voice.is_understood(voice.BROTHER, text), text)

    def test_what_is_said_from_the_first_moment_is_in_the_file(self):
        with Vesko() as vesko:
            vesko.dictate(lambda: voice.say(voice.COFFEE))
            recording = vesko.last_recording()
            text = recording["attempts"][-1].get("text")
            self.assertTrue(voice.is_understood(voice.COFFEE, text), text)
            self.assertEqual(text.split()[:3], voice.COFFEE.split()[:3])


def suspend(asleep):
    subprocess.run(["pactl", "suspend-source", "mic", "1" if asleep else "0"], check=True)


def restore_microphone():
    for module in ("module-null-sink sink_name=vmic rate=48000 channels=1",
                   "module-remap-source source_name=mic master=vmic.monitor"):
        subprocess.run(["pactl", "load-module", *module.split()], check=True,
                       stdout=subprocess.DEVNULL)
    subprocess.run(["pactl", "set-default-source", "mic"], check=True)


if __name__ == "__main__":
    cases.main()
