#!/usr/bin/python3
"""The first run, driven through the accessibility bus and the keyboard alone."""

import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, hands, settings  # noqa: E402
from lib.service import Account  # noqa: E402
from lib.vesko import Vesko, deployed  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

BUTTON, HEADING = "push button", "heading"


class Onboarding(unittest.TestCase):
    def start(self, steps=3, **more):
        settings.write(provider="apple", firstLaunchDone=True)
        self.vesko = Vesko(**more)
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_to_find("label", f"Step 1 of {steps}")
        until("the window has the keyboard",
              lambda: eyes.active_pid() == self.vesko.process.pid)

    def completed(self):
        return settings.read().get("onboardingCompleted", False)

    def test_to_its_end_by_return_alone(self):
        self.start()
        for step in (2, 3):
            hands.tap("return")
            self.vesko.wait_to_find("label", f"Step {step} of 3")
        self.assertFalse(self.completed())
        hands.tap("return")
        until("it is done", self.completed)
        self.vesko.wait_to_find(BUTTON, "New note")
        until("its window is gone", lambda: not self.vesko.find("label", "Step 3 of 3"))
        self.vesko.quit()
        again = Vesko(root=self.vesko.root)
        self.addCleanup(again.kill)
        again.wait_for("ready")
        human_pause(0.5)
        self.assertIsNone(again.find("label", "Step 1 of 3"))

    def test_to_its_end_by_the_buttons(self):
        service = Account()
        self.addCleanup(service.stop)
        self.start(steps=4, binary=deployed(**service.deployment))
        self.vesko.press(BUTTON, "Get started")
        self.vesko.wait_to_find(HEADING, "How to dictate")
        self.vesko.press(BUTTON, "Back")
        self.vesko.wait_to_find("label", "Step 1 of 4")
        self.vesko.press(BUTTON, "Get started")
        self.vesko.press(BUTTON, "Continue")
        self.vesko.wait_to_find(HEADING, "Allow access")
        self.vesko.press(BUTTON, "Review Microphone")
        self.vesko.wait_to_find("status bar", "Microphone access is ready")
        self.vesko.press(BUTTON, "Continue")
        self.vesko.press(BUTTON, "Not now")
        until("it is done", self.completed)
        self.vesko.wait_to_find(BUTTON, "New note")

    def test_closing_it_shows_it_again_at_the_next_start(self):
        self.start()
        hands.tap("left control", "w")
        until("it is closed", lambda: not self.vesko.find("label", "Step 1 of 3"))
        self.vesko.quit()
        self.assertFalse(self.completed())
        again = Vesko(root=self.vesko.root)
        self.addCleanup(again.kill)
        again.wait_to_find("label", "Step 1 of 3")


if __name__ == "__main__":
    cases.main()
