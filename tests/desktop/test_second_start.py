#!/usr/bin/python3
"""Vesko is started while it runs: by the user, by the desktop at login, and where the two can't
find each other."""

import os
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, library, settings  # noqa: E402
from lib.vesko import BINARY, Vesko  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

NEW_NOTE = ("push button", "New note")


class SecondStart(unittest.TestCase):
    def setUp(self):
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)
        self.vesko = Vesko()
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_for("ready")

    def start(self, *arguments):
        """Starts it again, to its end."""
        done = subprocess.run([BINARY, *arguments], stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, timeout=20,
                              env={**os.environ, "VESKO_DATA_ROOT": self.vesko.root})
        self.assertEqual((done.returncode, done.stdout), (0, ""))

    def test_the_users_shows_the_library(self):
        self.assertIsNone(self.vesko.find(*NEW_NOTE))
        self.start()
        self.vesko.wait_to_find(*NEW_NOTE)
        until("it is in front", lambda: eyes.active_pid() == self.vesko.process.pid)

    def test_one_on_another_display_says_where_the_first_is(self):
        reader, writer = os.pipe()
        other = subprocess.Popen(["Xvfb", "-displayfd", str(writer), "-nolisten", "tcp"],
                                 pass_fds=[writer], stderr=subprocess.DEVNULL)
        self.addCleanup(other.wait)
        self.addCleanup(other.kill)
        os.close(writer)
        with os.fdopen(reader) as told:
            display = ":" + told.readline().strip()
        done = subprocess.run([BINARY], stderr=subprocess.PIPE, text=True, timeout=20,
                              env={**os.environ, "DISPLAY": display})
        self.assertEqual((done.returncode, done.stderr),
                         (0, "vesko: Vesko is running already, on the display "
                          f"{os.environ['DISPLAY']}, and shows its window there.\n"))
        self.vesko.wait_to_find(*NEW_NOTE)

    def test_the_one_at_login_shows_nothing(self):
        self.start("--background")
        human_pause(0.5)
        self.assertIsNone(self.vesko.find(*NEW_NOTE))
        self.assertEqual(self.vesko.phase, "ready")

    def test_one_that_cannot_find_the_other_touches_nothing(self):
        # What it says then is seen in test_bad_input.py: without the bus of the session nobody can
        # read a window of Qt's.
        self.start()  # its library window makes the note
        self.vesko.press(*NEW_NOTE)
        until("a note is saved", lambda: library.read(self.vesko.root))
        before = self.files()
        second = subprocess.Popen(
            [BINARY], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            env={**os.environ, "VESKO_DATA_ROOT": self.vesko.root,
                 "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent"})
        self.addCleanup(second.kill)
        until("it shows the library window beside the floating one",
              lambda: len(eyes.windows(second.pid)) == 2)
        human_pause(0.5)
        second.terminate()
        self.assertEqual(second.wait(timeout=20), 0)
        self.assertEqual(self.files(), before)
        self.vesko.press(*NEW_NOTE)
        until("the first one goes on", lambda: len(library.read(self.vesko.root)["notes"]) == 2)

    def files(self):
        """Each file of the library, its content and when it was written."""
        found = {}
        for folder, _, names in os.walk(self.vesko.root):
            for name in names:
                path = os.path.join(folder, name)
                with open(path, "rb") as file:
                    found[path] = file.read(), os.stat(path).st_mtime_ns
        return found


if __name__ == "__main__":
    cases.main()
