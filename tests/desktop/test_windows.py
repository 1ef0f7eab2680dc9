#!/usr/bin/python3
"""Where windows are: on the workspace where the user is, and in the place where the user left them;
and that nothing moves for who wants stillness."""

import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, hands, settings  # noqa: E402
from lib.desktop import Portal, Tray  # noqa: E402
from lib.vesko import Vesko  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

BUTTON = "push button"


class Windows(unittest.TestCase):
    def setUp(self):
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)

    def start(self, *arguments, **environment):
        self.vesko = Vesko(arguments=arguments, **environment)
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_for("ready")

    def window(self):
        """The one that was opened last, which has come to the front."""
        until("the window has the keyboard",
              lambda: eyes.active_pid() == self.vesko.process.pid)
        return eyes.active_window()

    def comes_to(self, workspace, title):
        """A window of that title is there, where the user still is."""
        until(f"the window {title!r} is active",
              lambda: (window := eyes.active_window()) and title == eyes.title(window))
        self.assertEqual(eyes.workspace(), workspace)
        self.assertEqual(eyes.window_property(eyes.active_window(), "_NET_WM_DESKTOP"),
                         str(workspace))

    def test_a_window_comes_to_where_the_user_is(self):
        tray = Tray()
        self.addCleanup(tray.stop)
        self.addCleanup(eyes.go_to_workspace, 0)
        self.start()
        self.comes_to(0, "Vesko")
        eyes.go_to_workspace(1)
        tray.click("Open Vesko")
        self.comes_to(1, "Vesko")
        hands.tap("left control", "w")
        until("the window is closed", lambda: not self.vesko.find(BUTTON, "New note"))
        eyes.go_to_workspace(2)
        tray.click("Open Vesko")
        self.comes_to(2, "Vesko")
        eyes.go_to_workspace(3)
        tray.click("Settings…")
        self.comes_to(3, "Vesko Settings")

    def test_windows_come_back_to_their_places(self):
        for scene, frame in (("note=0", (60, 40, 1000, 700)), ("settings", (200, 90, 600, 610)),
                             ("dictionary", (300, 70, 620, 540))):
            self.start("--background", VESKO_DEMO_SCENE=scene)
            self.assertNotEqual(self.place(), frame)
            eyes.place(self.window(), *frame)
            until(f"the window is there; it is at {self.place()}", lambda: self.place() == frame)
            before = eyes.frame_place(self.window())
            self.vesko.quit()
            self.start("--background", VESKO_DEMO_SCENE=scene)
            until(f"{scene} is where it was", lambda: self.place() == frame)
            self.assertEqual(eyes.frame_place(self.window()), before)
            self.vesko.quit()

    def place(self):
        return eyes.frame_place(self.window())

    def moves(self):
        """Whether the control shows anything else within a second, while it listens to silence."""
        x, y = (int(place) for place in self.vesko.button.centre)
        first = eyes.pixels(x - 16, y - 14, 32, 28)
        try:
            until("", lambda: eyes.pixels(x - 16, y - 14, 32, 28) != first, deadline=1)
        except AssertionError:
            return False
        return True

    def test_nothing_moves_for_who_wants_stillness(self):
        portal = Portal(animations=False)
        self.addCleanup(portal.stop)
        self.start("--background")
        hands.point(10, 10)
        self.vesko.begin()
        human_pause(0.5)  # the level of the first tone is gone
        self.assertFalse(self.moves())
        portal.allow_animations(True)
        until("it moves", self.moves)
        portal.allow_animations(False)
        until("it is still", lambda: not self.moves())


if __name__ == "__main__":
    cases.main()
