#!/usr/bin/python3
"""A stored recording: heard from any place, and found on the disk."""

import os
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, hands, library, settings  # noqa: E402
from lib.vesko import Vesko  # noqa: E402
from lib.waiting import until  # noqa: E402

BUTTON = "push button"
SECONDS = 300  # of the recording: no test comes to its end
SERVICES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "services")


class Playback(unittest.TestCase):
    def setUp(self):
        settings.write(firstLaunchDone=True, onboardingCompleted=True)
        root = os.path.join(tempfile.mkdtemp(), "library")
        library.write(root, 1)
        self.path = library.recordings(root)[0]["path"]
        # A loud second and a quiet one by turns.
        subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-f", "lavfi", "-i",
                        f"aevalsrc=sin(880*t)*(0.05+0.7*lt(mod(t\\,40)\\,20)):d={SECONDS}:s=44100",
                        "-c:a", "aac", self.path], check=True)
        self.vesko = Vesko(root=root, VESKO_DEMO_SCENE="note=0")
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_for("ready")

    def value(self):
        return self.slider._property("Value", "CurrentValue")

    def play(self):
        self.vesko.press(BUTTON, "Play or stop original recording")
        self.slider = self.vesko.wait_to_find("slider", "Position in the recording")
        until("it goes on", lambda: self.value() > 0.3)

    def test_a_recording_is_heard_from_any_place(self):
        self.play()
        self.slider.grab_focus()
        until("the position has the keyboard", lambda: "focused" in self.slider.states)
        for _ in range(30):
            hands.tap("right")
        until(f"it plays from there, not from {self.value()}", lambda: 25 < self.value() < 200)
        x, y, width, height = self.slider.bounds
        hands.drag((x + width * 0.2, y + height / 2), (x + width * 0.5, y + height / 2),
                   (x + width * 0.8, y + height / 2))
        until("it plays from where it was dragged to",
              lambda: SECONDS * 0.75 < self.value() < SECONDS)
        hands.tap("home")
        until("it plays from the beginning", lambda: self.value() < SECONDS * 0.2)
        until("it goes on", lambda: self.value() > 1)

    def test_a_recording_is_heard_faster(self):
        self.play()
        for before, after in (("1×", "1.5×"), ("1.5×", "2×"), ("2×", "1×")):
            self.vesko.press(BUTTON, before)
            self.vesko.wait_to_find(BUTTON, after)
        self.vesko.press(BUTTON, "Play or stop original recording")
        until("it is stopped", lambda: not self.vesko.find("slider", "Position in the recording"))

    def test_a_recording_is_shown_in_its_folder(self):
        manager = subprocess.Popen(["/usr/bin/python3", os.path.join(SERVICES, "file_manager.py")],
                                   stdout=subprocess.PIPE, text=True)
        self.addCleanup(manager.wait)
        self.addCleanup(manager.kill)
        self.addCleanup(manager.stdout.close)
        self.assertEqual(manager.stdout.readline(), "ready\n")
        self.vesko.press(BUTTON, "Show in folder")
        self.assertEqual(manager.stdout.readline(), f"file://{self.path}\n")


if __name__ == "__main__":
    cases.main()
