#!/usr/bin/python3
"""A desktop without a window manager: the input focus alone tells where the user is."""

import os
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, settings, voice  # noqa: E402
from lib.dictation import SENT  # noqa: E402
from lib.vesko import Vesko  # noqa: E402
from lib.waiting import until  # noqa: E402

NO_WINDOW = ("Copied. No active window was known when you started, so Vesko did not paste. Paste it "
             "with Ctrl+V.")


def windows(*wanted):
    found = subprocess.run(["xdotool", "search", "--onlyvisible", *wanted], text=True,
                           stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    return found.stdout.split()


class NoWindowManager(unittest.TestCase):
    def setUp(self):
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)
        self.vesko = Vesko()
        self.addCleanup(self.vesko.kill)

    def test_a_dictation_lands_in_the_window_with_the_focus(self):
        letter = os.path.join(tempfile.mkdtemp(), "Letter.txt")
        with open(letter, "w"):
            pass
        editor = subprocess.Popen(["mousepad", "--disable-server", letter])
        self.addCleanup(editor.kill)
        window = until("the editor's window", lambda: windows("--name", "Letter.txt"))[0]
        subprocess.run(["xdotool", "windowfocus", window], check=True)
        field = until("its field has the focus", lambda: (app := eyes.application(editor.pid))
                      and (field := app.find("text")) and "focused" in field.states and field)
        self.vesko.dictate(lambda: voice.say(voice.BROTHER))
        self.vesko.wait_for_text(SENT)
        until("the words are in it", lambda: voice.is_understood(voice.BROTHER, field.text.strip()))

    def test_without_a_focus_it_is_said_that_no_window_was_known(self):
        subprocess.run(["xdotool", "mousemove", "640", "20"], check=True)
        self.vesko.dictate(lambda: voice.say(voice.BROTHER))
        self.vesko.wait_for_text(NO_WINDOW)


if __name__ == "__main__":
    cases.main()
