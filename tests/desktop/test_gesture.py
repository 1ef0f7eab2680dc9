#!/usr/bin/python3
"""What the fingers do on the gesture key, and what comes of it. Right Control is the key: the
keyboard of the session reports no Fn key."""

import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, hands, library  # noqa: E402
from lib.programs import Mousepad  # noqa: E402
from lib.service import OpenRouter  # noqa: E402
from lib.vesko import Vesko, deployed, install_key  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402
from lib.x11 import KeyboardGrab  # noqa: E402

KEY = "right control"
TAP = 0.05  # seconds that a tap takes
HOLD = 0.6  # seconds that are a hold without doubt
WORDS = "Spoken by gesture."
SENT = "Copied. Paste sent to the original field."


class Gesture(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.service = OpenRouter()
        cls.addClassCleanup(cls.service.stop)
        binary = deployed(cls.service.url)
        install_key("test-key", binary)
        cls.vesko = Vesko(binary)
        cls.addClassCleanup(cls.vesko.kill)
        cls.editor = Mousepad()
        cls.addClassCleanup(cls.editor.kill)

    def setUp(self):
        self.vesko.wait_for("ready")
        self.service.answer(WORDS)
        self.editor.raise_window()
        hands.tap("left control", "a")
        hands.tap("delete")
        until("the editor is empty", lambda: self.editor.text == "")
        self.recordings = len(self.all())

    def all(self):
        return library.recordings(self.vesko.root)

    def tap(self):
        hands.press(KEY)
        human_pause(TAP)
        hands.release(KEY)

    def lands(self):
        self.vesko.wait_for_text(SENT)
        self.vesko.wait_for("ready")
        until("the words are in the editor", lambda: self.editor.text == WORDS, deadline=5)

    def kept_untranscribed(self):
        """One recording more, its audio kept, not sent to anybody."""
        self.vesko.wait_for("ready")
        found = self.all()
        self.assertEqual(len(found), self.recordings + 1)
        self.assertEqual((found[-1]["status"], found[-1]["attempts"]), ("recorded", []))
        self.assertTrue(os.path.getsize(found[-1]["path"]) > 0)

    def test_a_tap_begins_and_a_second_tap_ends(self):
        self.tap()
        self.vesko.wait_for("recording")
        human_pause(0.4)
        self.assertEqual(self.vesko.phase, "recording")
        self.tap()
        self.lands()

    def test_a_hold_records_until_the_release(self):
        hands.press(KEY)
        self.vesko.wait_for("recording")
        human_pause(HOLD)
        self.assertEqual(self.vesko.phase, "recording")
        hands.release(KEY)
        self.lands()

    def test_a_release_during_the_start_ends_as_soon_as_it_stands(self):
        hands.press(KEY)
        human_pause(0.4)
        hands.release(KEY)
        self.lands()

    def test_a_key_that_joins_in_takes_the_start_back(self):
        hands.press(KEY)
        self.vesko.wait_for("recording")
        hands.tap("left")
        hands.release(KEY)
        self.kept_untranscribed()
        self.assertEqual(self.editor.text, "")

    def test_a_modifier_that_joins_in_takes_the_start_back(self):
        hands.press(KEY)
        self.vesko.wait_for("recording")
        hands.tap("left shift")
        hands.release(KEY)
        self.kept_untranscribed()

    def test_a_button_or_the_wheel_that_joins_in_takes_the_start_back(self):
        x, y = self.editor.field.centre
        for button, name in ((1, "click"), (5, "wheel"), (8, "side button")):
            with self.subTest(name):
                self.recordings = len(self.all())
                hands.press(KEY)
                self.vesko.wait_for("recording")
                hands.click(x, y, button)
                hands.release(KEY)
                self.kept_untranscribed()

    def test_a_short_press_with_a_click_leaves_no_trace(self):
        hands.press(KEY)
        hands.click(*self.editor.field.centre)
        hands.release(KEY)
        self.vesko.wait_for("ready")
        human_pause(0.3)
        self.assertEqual(self.vesko.phase, "ready")
        self.assertEqual(len(self.all()), self.recordings)

    def test_during_a_drag_it_means_nothing(self):
        hands.point(*self.editor.field.centre)
        hands.press_button()
        try:
            self.tap()
        finally:
            hands.release_button()
        human_pause(0.3)
        self.assertEqual(self.vesko.phase, "ready")
        self.assertEqual(len(self.all()), self.recordings)

    def test_while_another_program_holds_the_keyboard_it_means_nothing(self):
        with KeyboardGrab():
            hands.press(KEY)
            human_pause(HOLD)
            hands.release(KEY)
        human_pause(0.3)
        self.assertEqual(self.vesko.phase, "ready")
        self.assertEqual(len(self.all()), self.recordings)

    def test_ordinary_combinations_leave_no_trace(self):
        played = len(self.vesko.log().split("capture_started"))
        for _ in range(10):
            hands.tap(KEY, "left")
            human_pause(0.05)
        self.vesko.wait_for("ready")
        human_pause(0.5)
        self.assertEqual(self.vesko.phase, "ready")
        self.assertEqual(len(self.all()), self.recordings)
        self.assertEqual(len(self.vesko.log().split("capture_started")), played)

    def test_with_a_modifier_already_down_it_means_nothing(self):
        hands.press("left shift")
        self.tap()
        hands.release("left shift")
        human_pause(0.3)
        self.assertEqual(self.vesko.phase, "ready")
        self.assertEqual(len(self.all()), self.recordings)

    def test_a_combination_while_recording_leaves_the_recording_alone(self):
        self.tap()
        self.vesko.wait_for("recording")
        human_pause(0.2)  # no finger presses a key again within a few milliseconds
        hands.tap(KEY, "left")
        human_pause(0.3)
        self.assertEqual(self.vesko.phase, "recording")
        self.tap()
        self.lands()

    def test_a_tap_while_busy_means_nothing(self):
        self.service.hold()
        self.tap()
        self.vesko.wait_for("recording")
        human_pause(0.3)
        self.tap()
        self.service.wait_for_request()
        self.tap()
        self.service.release()
        self.lands()
        human_pause(0.3)
        self.assertEqual(self.vesko.phase, "ready")
        self.assertEqual(len(self.all()), self.recordings + 1)

    def test_a_tap_ends_what_the_shortcut_began(self):
        self.vesko.begin()
        human_pause(0.3)
        self.tap()
        self.lands()

    def test_the_shortcut_ends_what_a_tap_began(self):
        self.tap()
        self.vesko.wait_for("recording")
        human_pause(0.3)
        self.vesko.end()
        self.lands()

    def test_the_shortcut_held_down_is_one_press(self):
        hands.press_shortcut()
        self.vesko.wait_for("recording")
        human_pause(0.9)  # the keyboard repeats a key after 0.66 s
        hands.release_shortcut()
        human_pause(0.3)
        self.assertEqual(self.vesko.phase, "recording")
        self.vesko.end()
        self.lands()

    def test_what_the_user_types_still_arrives(self):
        hands.type_letters("abc")
        until("the letters have arrived", lambda: self.editor.text == "abc", deadline=5)
        hands.press(KEY)
        hands.tap("a")
        hands.release(KEY)
        self.vesko.wait_for("ready")
        # Ctrl+A reached the editor: what is typed now replaces all.
        hands.type_letters("d")
        until("the letter replaced all", lambda: self.editor.text == "d", deadline=5)


if __name__ == "__main__":
    cases.main()
