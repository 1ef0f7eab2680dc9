#!/usr/bin/python3
"""What is different where a compositor keeps keys and windows to itself: how a dictation is
started, what the user is told, and what becomes of the program when the compositor goes."""

import os
import signal
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, clipboard, hands, sway  # noqa: E402
from lib.dictation import SENT, UNSEEN  # noqa: E402
from lib.programs import FeatherPad, Mousepad  # noqa: E402
from lib.service import OpenRouter  # noqa: E402
from lib.vesko import Vesko, deployed, install_key  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

NO_SHORTCUT = ("sway gives programs no shortcuts of their own. In its configuration, let keys of "
               "your choice run “vesko --toggle”.")
WORDS = "What the keys begin, the keys end."


class Sway(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.service = OpenRouter()
        cls.addClassCleanup(cls.service.stop)
        cls.binary = deployed(cls.service.url)
        install_key("test-key", cls.binary)
        hands.plug_in()

    def setUp(self):
        clipboard.write("what was copied before")
        self.service.answer(WORDS)
        self.vesko = Vesko(self.binary)
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_for("ready")

    @staticmethod
    def tap(key):
        """As long as a finger does: each movement of the key starts a program."""
        hands.press(key)
        human_pause(0.1)
        hands.release(key)

    def test_the_control_takes_neither_a_place_nor_the_focus(self):
        with Mousepad() as editor:
            self.assertNotIn("Vesko", [view["name"] for view in sway.views()])
            self.vesko.begin()
            self.assertEqual(sway.active_pid(), editor.process.pid)
            self.vesko.end()
            self.vesko.wait_for_text(SENT)
            self.assertNotIn("Vesko", [view["name"] for view in sway.views()])

    def test_the_control_can_be_clicked_and_leaves_the_focus(self):
        with Mousepad() as editor:
            hands.click(*self.vesko.button.centre)
            self.vesko.wait_for("recording")
            self.assertEqual(sway.active_pid(), editor.process.pid)
            hands.click(*self.vesko.button.centre)
            self.vesko.wait_for_text(SENT)
            until("the words have arrived", lambda: editor.text == WORDS)

    def test_a_held_shortcut_is_one_press(self):
        with Mousepad():
            self.vesko.wait_for("ready")
            hands.press_shortcut()
            try:
                self.vesko.wait_for("recording")
                human_pause(1.5)  # by then the compositor has repeated it many times
                self.assertEqual(self.vesko.phase, "recording")
            finally:
                hands.release_shortcut()
            self.vesko.end()
            self.vesko.wait_for_text(SENT)

    def test_the_user_is_told_how_to_get_a_shortcut_until_there_is_one(self):
        self.vesko.quit()
        told = {"XDG_CONFIG_HOME": tempfile.mkdtemp()}
        with Vesko(**told) as new:
            new.wait_for("ready")
            new.wait_for_text(NO_SHORTCUT)
            new.begin()
            self.assertNotIn(NO_SHORTCUT, new.shown())
            new.quit()
        with Vesko(**told) as known:
            known.wait_for("ready")
            self.assertNotIn(NO_SHORTCUT, known.shown())

    def test_a_key_of_the_desktops_talks_while_it_is_held(self):
        sway.bind("Pause", f"{self.binary} --press", "--no-warn", "--no-repeat")
        sway.bind("Pause", f"{self.binary} --release", "--no-warn", "--release")
        with Mousepad() as editor:
            hands.press("pause")
            self.vesko.wait_for("recording")
            human_pause(1.5)
            self.assertEqual(self.vesko.phase, "recording")
            hands.release("pause")
            self.vesko.wait_for_text(SENT)
            until("the words have arrived", lambda: editor.text == WORDS)
            self.vesko.wait_for("ready")

            human_pause(0.3)  # no finger is back sooner
            self.tap("pause")
            self.vesko.wait_for("recording")
            human_pause(0.5)
            self.assertEqual(self.vesko.phase, "recording")
            self.tap("pause")
            until("the recording has ended", lambda: self.vesko.phase != "recording")

    def test_nothing_is_pasted_while_a_window_that_hangs_may_be_in_front(self):
        with Mousepad() as editor, FeatherPad() as other:
            editor.raise_window()
            editor.process.send_signal(signal.SIGSTOP)
            self.addCleanup(editor.process.send_signal, signal.SIGCONT)
            sway.raise_window(other.process.pid)
            until("the other window is active", lambda: "active" in other.app.children[0].states)
            human_pause(0.3)
            self.vesko.begin()
            self.vesko.end()
            self.vesko.wait_for_text(UNSEEN)
            self.vesko.wait_for("ready")
            self.assertEqual(clipboard.read(), WORDS)
            self.assertEqual(other.text, "")
            editor.process.send_signal(signal.SIGCONT)


if __name__ == "__main__":
    cases.main()
