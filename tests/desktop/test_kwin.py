#!/usr/bin/python3
"""A dictation in a session of KWin: its own shortcut, its portal's keystroke."""

import os
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, clipboard, hands, voice  # noqa: E402
from lib.dictation import HIDDEN, MOVED, SENT  # noqa: E402
from lib.programs import FeatherPad, Mousepad, PasswordPrompt  # noqa: E402
from lib.vesko import BINARY, Vesko  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402


class KWin(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        hands.plug_in()
        cls.vesko = Vesko()
        cls.addClassCleanup(cls.vesko.kill)
        cls.vesko.wait_for("ready")

    def say(self, message):
        self.vesko.begin()
        voice.say(voice.BROTHER)
        self.vesko.end()
        self.vesko.wait_for_text(message)
        self.vesko.wait_for("ready")

    def test_into_an_editor(self):
        with Mousepad() as editor:
            self.say(SENT)
            until("the text stands in the editor", lambda: editor.text == clipboard.read())
            self.assertTrue(voice.is_understood(voice.BROTHER, editor.text))

    def test_the_control_can_be_clicked_and_leaves_the_focus(self):
        with Mousepad() as editor:
            hands.click(*self.vesko.button.centre)
            self.vesko.wait_for("recording")
            voice.say(voice.BROTHER)
            hands.click(*self.vesko.button.centre)
            self.vesko.wait_for_text(SENT)
            until("the text stands in the editor", lambda: editor.text == clipboard.read())

    def test_the_doctor_tells_whose_the_shortcut_is_and_who_types(self):
        report = subprocess.run([BINARY, "--doctor"], stdout=subprocess.PIPE, text=True,
                                check=False).stdout
        self.assertIn("the desktop's settings give Vesko Meta+Shift+Space", report)
        self.assertIn("Wayland; pastes by the desktop's portal", report)

    def test_never_into_a_password_field(self):
        with PasswordPrompt() as prompt:
            self.say(HIDDEN)
            human_pause(0.3)
            self.assertEqual(prompt.text, "")

    def test_not_after_another_window_was_raised(self):
        with Mousepad() as editor, FeatherPad() as other:
            editor.raise_window()
            self.vesko.begin()
            voice.say(voice.BROTHER)
            other.raise_window()
            self.vesko.end()
            self.vesko.wait_for_text(MOVED)
            human_pause(0.3)
            self.assertEqual((editor.text, other.text), ("", ""))


if __name__ == "__main__":
    cases.main()
