#!/usr/bin/python3
"""The user chooses the shortcut by pressing it, and is told when another program has it."""

import os
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, hands, settings  # noqa: E402
from lib.vesko import BINARY, Vesko  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402
from lib.x11 import ShortcutGrab  # noqa: E402

BUTTON = "push button"
FIELD = "Global shortcut: "
TAKEN = ("Super+Shift+Space is unavailable: another program has it. Use the floating button, or "
         "choose another shortcut in the settings.")


def diagnosed():
    """What the doctor says of the shortcut."""
    report = subprocess.run([BINARY, "--doctor"], stdout=subprocess.PIPE, text=True,
                            check=False).stdout
    return next(line for line in report.splitlines() if "Shortcut" in line)


class Shortcut(unittest.TestCase):
    def setUp(self):
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)
        self.addCleanup(settings.remove)

    def start(self, scene="settings"):
        self.vesko = Vesko(VESKO_DEMO_SCENE=scene)
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_for("ready")
        until("the window has the keyboard",
              lambda: eyes.active_pid() == self.vesko.process.pid)
        if scene == "settings":
            self.vesko.settings_page("Capture and insertion")

    def field(self, text):
        return until(f"the field shows {text!r}",
                     lambda: self.vesko.app.find(BUTTON, FIELD + text))

    def says(self, text):
        until(f"the window says {text!r}", lambda: self.vesko.find(None, text))

    def listen(self, shown):
        self.field(shown).activate()
        self.field("Press the new shortcut…")

    def records_with(self, *keys):
        hands.tap(*keys)
        self.vesko.wait_for("recording")
        human_pause(hands.APART)
        hands.tap(*keys)
        until("the recording has ended", lambda: self.vesko.phase != "recording")
        self.vesko.wait_for("ready")

    def test_what_is_pressed_is_the_shortcut_from_then_on(self):
        self.start()
        self.listen("Super+Shift+Space")
        hands.press("left control")
        self.field("Ctrl+")
        hands.press("left alt")
        self.field("Ctrl+Alt+")
        hands.tap("d")
        hands.release("left alt")
        hands.release("left control")
        self.field("Ctrl+Alt+D")
        until("it is stored", lambda: settings.read().get("shortcut") == "control+alt+AC03")
        self.records_with("left control", "left alt", "d")
        human_pause(hands.APART)
        hands.tap(*hands.SHORTCUT)
        human_pause(0.5)
        self.assertEqual(self.vesko.phase, "ready")
        self.vesko.quit()

        self.start()  # again
        self.records_with("left control", "left alt", "d")
        self.vesko.app.find(BUTTON, "Use Super+Shift+Space").activate()
        self.field("Super+Shift+Space")
        human_pause(hands.APART)
        self.records_with(*hands.SHORTCUT)

    def test_the_doctor_tells_whose_it_is(self):
        self.assertIn("nobody has it; Vesko takes it when it starts", diagnosed())
        with ShortcutGrab(hands.KEYS["space"], hands.SUPER | hands.SHIFT):
            self.assertIn("another program has it", diagnosed())
            self.start()
            self.vesko.wait_for_text(TAKEN)
            self.assertIn("another program has it", diagnosed())
        self.vesko.quit()
        self.start()
        self.assertEqual(diagnosed(), "ok  Shortcut        Vesko has it")

    def test_what_can_be_none_is_refused_in_words(self):
        self.start()
        self.listen("Super+Shift+Space")
        hands.tap("d")
        self.says("D is typed with. A shortcut needs Ctrl, Alt or Super.")
        hands.tap("left control", "v")
        self.says("Ctrl+V is what text is pasted with, by Vesko too. Choose another shortcut.")
        with ShortcutGrab(hands.KEYS["d"], hands.CONTROL | hands.ALT):
            hands.tap("left control", "left alt", "d")
            self.field("Press the new shortcut…")  # the other one got it
        hands.tap("escape")
        self.field("Super+Shift+Space")
        self.records_with(*hands.SHORTCUT)

    def test_one_that_is_taken_is_told_and_another_can_be_chosen(self):
        with ShortcutGrab(hands.KEYS["space"], hands.SUPER | hands.SHIFT):
            self.start()
            self.vesko.wait_for_text(TAKEN)
            self.says(TAKEN)
            self.listen("Super+Shift+Space")
            hands.tap("left control", "left alt", "d")
            self.field("Ctrl+Alt+D")
            until("nothing is wrong", lambda: TAKEN not in self.vesko.shown())
            self.records_with("left control", "left alt", "d")

    def test_the_first_run_tells_it_and_lets_choose(self):
        with ShortcutGrab(hands.KEYS["space"], hands.SUPER | hands.SHIFT):
            settings.write(provider="apple", firstLaunchDone=True)
            self.start(scene="")
            self.vesko.press(BUTTON, "Get started")
            while not self.vesko.find("label", TAKEN):
                before = self.vesko.find("label", None)
                self.vesko.press(BUTTON, "Continue")
                until("the step changes", lambda before=before:
                      self.vesko.find("label", None) != before or self.vesko.find("label", TAKEN))
            self.listen("Super+Shift+Space")
            hands.tap("left control", "left alt", "d")
            self.vesko.wait_to_find(None, "Or press Ctrl+Alt+D")
            cases.picture("first run with another shortcut")
            self.records_with("left control", "left alt", "d")


if __name__ == "__main__":
    cases.main()
