#!/usr/bin/python3
"""Windows on a screen of 800 by 600: each opens with all of its frame on it, also when it is drawn
larger, and when it was left on a screen that is gone."""

import os
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, hands, settings  # noqa: E402
from lib.vesko import Vesko  # noqa: E402
from lib.waiting import until  # noqa: E402

SCREEN = (800, 600)
PANEL = 60  # at the top


def overlap(one, other):
    """Whether two places, each as x, y, width and height, have a point in common."""
    return all(one[i] < other[i] + other[i + 2] and other[i] < one[i] + one[i + 2] for i in (0, 1))


class SmallScreen(unittest.TestCase):
    def start(self, scene, scale="1", **stored):
        settings.write(provider="apple", firstLaunchDone=True,
                       onboardingCompleted=scene is not None, **stored)
        environment = {"VESKO_DEMO_SCENE": scene} if scene else {}
        vesko = Vesko(QT_SCALE_FACTOR=scale, **environment)
        self.addCleanup(vesko.kill)
        until("the window has the keyboard", lambda: eyes.active_pid() == vesko.process.pid)
        self.addCleanup(settings.remove)
        return vesko

    def is_whole(self, what):
        x, y, width, height = self.frame()
        self.assertGreaterEqual(x, 0, what)
        self.assertGreaterEqual(y, 0, what)
        self.assertLessEqual(x + width, SCREEN[0], what)
        self.assertLessEqual(y + height, SCREEN[1], what)

    def frame(self):
        """The active window with what its manager put around it, once that is there."""
        def framed():
            window = eyes.active_window()
            told = window and eyes.window_property(window, "_NET_FRAME_EXTENTS")
            around = [int(number) for number in told.split(",")] if told else [0]
            return (window, *around) if any(around) else None

        window, left, right, top, bottom = until("the active window has its frame", framed)
        x, y, width, height = eyes.inner_place(window)
        return x - left, y - top, width + left + right, height + top + bottom

    def test_each_window_opens_whole(self):
        for scene in (None, "note=0", "settings", "dictionary"):
            for scale in ("1", "1.5"):
                vesko = self.start(scene, scale)
                self.is_whole(f"{scene} at {scale}")
                vesko.kill()

    def test_a_window_that_was_left_elsewhere_comes_onto_the_screen(self):
        vesko = self.start("dictionary", frameVeskoDictionary=[2100.0, 500.0, 620.0, 540.0])
        self.is_whole("dictionary")
        x, _, width, _ = self.frame()
        self.assertGreater(x + width, SCREEN[0] - 40)  # as near as can be
        vesko.kill()

    def test_the_first_run_scrolls_to_what_has_the_keyboard(self):
        vesko = self.start(None, "1.5")
        vesko.press("push button", "Get started")
        vesko.press("push button", "Continue")
        go_on = vesko.wait_to_find("push button", "Start using Vesko")
        rows = [node for frame in vesko.app.children for node in frame.walk()
                if node.role == "push button" and node.name.startswith("Review ")]
        self.assertGreater(len(rows), 2)
        for _ in range(10):
            if "focused" in rows[-1].states:
                break
            before = vesko.focused()
            hands.tap("tab")
            until("Tab leads on", lambda before=before: vesko.focused() not in (None, before))
        until("the last row stands above the buttons",
              lambda: rows[-1].centre[1] < go_on.centre[1] - 50)

    def test_the_control_lies_on_nothing_that_can_be_pressed(self):
        # At 1.5 the first run takes the whole screen, and its buttons stand where the control is.
        vesko = self.start(None, "1.5")
        home = (453, 320, 56, 56)  # 24 points from the corner of 533 by 400

        def apart(name):
            button = vesko.find("push button", name)
            return button and not overlap(vesko.button.bounds, button.bounds)

        for name in ("Get started", "Continue", "Start using Vesko"):
            until(f"the control has left \"{name}\"", lambda name=name: apart(name))
            vesko.press("push button", name)
        until("it is back where it was", lambda: vesko.button.bounds == home)

    def test_a_window_keeps_off_the_panel(self):
        panel = subprocess.Popen(["xterm", "-geometry", "80x2+0+0"], stderr=subprocess.DEVNULL)
        self.addCleanup(panel.wait)
        self.addCleanup(panel.kill)
        window = until("there is a panel", lambda: eyes.windows(panel.pid))[0]
        subprocess.run(["xprop", "-id", window, "-f", "_NET_WM_STRUT", "32c", "-set",
                        "_NET_WM_STRUT", f"0,0,{PANEL},0"], check=True)
        until("it has its place", lambda: f" {PANEL}, 800, " in subprocess.run(
            ["xprop", "-root", "_NET_WORKAREA"], stdout=subprocess.PIPE, text=True,
            check=True).stdout)
        for scene in ("note=0", "settings"):
            vesko = self.start(scene, frameVesko=[0.0, 0.0, 800.0, 600.0],
                               frameVeskoSettings=[20.0, 0.0, 720.0, 600.0])
            self.is_whole(scene)
            self.assertGreaterEqual(self.frame()[1], PANEL, scene)
            vesko.kill()


if __name__ == "__main__":
    cases.main()
