#!/usr/bin/python3
"""What may stand between a finished text and its field at the moment of the keystroke: a keyboard
that another program holds, modifiers that aren't the user's fingers, fingers on other keys."""

import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, clipboard, hands  # noqa: E402
from lib.programs import FeatherPad, Mousepad  # noqa: E402
from lib.service import OpenRouter  # noqa: E402
from lib.vesko import Vesko, deployed, install_key  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402
from lib.x11 import KeyboardGrab  # noqa: E402

SENT = "Copied. Paste sent to the original field."
GRABBED = ("Copied. Another program was holding the keyboard, so Vesko did not paste. "
           "Paste it with Ctrl+V.")
LATCHED = ("Copied. Shift, Alt or another such key was latched or locked, so Vesko did not paste. "
           "Paste it with Ctrl+V.")
HELD = "Copied. A key was held down, so Vesko did not paste. Paste it with Ctrl+V."
MOVED = "Copied. You moved to another field, so Vesko did not paste. Paste it with Ctrl+V."
WORDS = "Where this lands is what matters."


class Keystroke(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.service = OpenRouter()
        cls.addClassCleanup(cls.service.stop)
        binary = deployed(cls.service.url)
        install_key("test-key", binary)
        cls.vesko = Vesko(binary)
        cls.addClassCleanup(cls.vesko.kill)
        cls.vesko.wait_for("ready")

    def setUp(self):
        clipboard.write("what was copied before")
        self.service.answer(WORDS)
        self.addCleanup(hands.release_all)

    def speak_and_hold(self):
        """A whole dictation, whose text is kept back until the answer is released."""
        self.vesko.begin()
        human_pause(0.3)
        self.service.hold()
        self.vesko.end()
        self.service.wait_for_request()

    def delivered(self, message):
        self.vesko.wait_for_text(message)
        self.vesko.wait_for("ready")
        self.assertEqual(clipboard.read(), WORDS)

    def stays_empty(self, editor):
        human_pause(0.3)
        self.assertEqual(editor.text, "")

    def holds(self, editor, text):
        until(f"the text is in the editor, which holds {editor.text!r}",
              lambda: editor.text == text, deadline=5)

    def test_never_to_a_program_that_holds_the_keyboard(self):
        with Mousepad() as editor:
            self.speak_and_hold()
            with KeyboardGrab() as other:
                self.service.release()
                self.delivered(GRABBED)
                self.assertEqual(other.keys(), [])
            self.stays_empty(editor)

    def test_after_another_program_held_the_keyboard(self):
        with Mousepad() as editor:
            self.speak_and_hold()
            with KeyboardGrab():
                human_pause(0.1)
            self.service.release()
            self.delivered(SENT)
            self.holds(editor, WORDS)

    def test_never_with_a_latched_or_locked_modifier(self):
        for name, modifier in (("shift", hands.SHIFT), ("control", hands.CONTROL),
                               ("alt", hands.ALT), ("super", hands.SUPER),
                               ("AltGr", hands.LEVEL3)):
            for change, part in ((hands.latch, 0), (hands.lock, 1)):
                with self.subTest(f"{name} {change.__name__}"), FeatherPad() as editor:
                    self.speak_and_hold()
                    change(modifier)
                    self.addCleanup(change, 0)
                    self.service.release()
                    self.delivered(LATCHED)
                    self.assertEqual(hands.latched()[part], modifier, "as before")
                    change(0)
                    self.stays_empty(editor)

    def test_caps_lock_and_num_lock_do_not_matter(self):
        hands.lock(2 | 16)
        self.addCleanup(hands.lock, 0)
        with FeatherPad() as editor:
            self.speak_and_hold()
            self.service.release()
            self.delivered(SENT)
            self.holds(editor, WORDS)
        self.assertEqual(hands.latched(), (0, 2 | 16))

    def test_never_while_a_modifier_is_held_and_it_stays_held(self):
        for name in ("left alt", "left control", "left shift", "super"):
            with self.subTest(name), FeatherPad() as editor:
                self.speak_and_hold()
                hands.press(name)
                self.service.release()
                self.delivered(HELD)
                self.assertEqual(hands.held(), {name})
                hands.release(name)
                self.stays_empty(editor)

    def test_a_switch_of_windows_that_ends_as_the_text_comes(self):
        with Mousepad() as other, FeatherPad() as editor:
            editor.raise_window()
            editor.focus("text")
            self.speak_and_hold()
            hands.press("left alt")
            hands.tap("tab")
            self.service.release()
            human_pause(0.2)
            hands.release("left alt")
            self.delivered(MOVED)
            self.stays_empty(editor)
            self.stays_empty(other)


if __name__ == "__main__":
    cases.main()
