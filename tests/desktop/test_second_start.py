#!/usr/bin/python3
"""Vesko is started while it runs: by the user, by the desktop at login, and where the two can't
find each other."""

import os
import signal
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, hands, settings  # noqa: E402
from lib.vesko import BINARY, Vesko  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

NEW_NOTE = ("push button", "New note")
NO_BUS = "unix:path=/nonexistent"
SHOWN = "and shows its window there."
NOT_SHOWN = "and can't be told to show its window there."


def visible_windows(display):
    return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "."], text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          env={**os.environ, "DISPLAY": display}).stdout.split()


def click_close(display):
    """Presses the button at the lower right of the only window there."""
    told = subprocess.run(
        ["xdotool", "getwindowgeometry", "--shell", *visible_windows(display)], check=True,
        text=True, stdout=subprocess.PIPE, env={**os.environ, "DISPLAY": display}).stdout
    place = dict(line.split("=") for line in told.split())
    x, y = (int(place[start]) + int(place[size]) - 40
            for start, size in (("X", "WIDTH"), ("Y", "HEIGHT")))
    subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", "1"], check=True,
                   env={**os.environ, "DISPLAY": display})


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

    def elsewhere(self, *before, **environment):
        """A start outside of the session, which shows a window until that is closed."""
        process = subprocess.Popen(
            [*before, BINARY], stderr=subprocess.PIPE, text=True,
            env={**os.environ, "VESKO_DATA_ROOT": self.vesko.root, **environment})
        self.addCleanup(process.stderr.close)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    def ends(self, process, code, said):
        self.assertEqual(process.wait(timeout=20), code)
        self.assertEqual(process.stderr.read().splitlines()[-1:], said)

    def run_without_a_bus(self, log, **environment):
        with open(log, "w") as said:
            process = subprocess.Popen([BINARY], stdout=said, stderr=said, env={
                **os.environ, "VESKO_DATA_ROOT": self.vesko.root,
                "DBUS_SESSION_BUS_ADDRESS": NO_BUS, **environment})
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    def other_display(self):
        reader, writer = os.pipe()
        # A server that begins anew after its last client is deaf meanwhile.
        other = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-nolisten", "tcp", "-noreset"],
            pass_fds=[writer], stderr=subprocess.DEVNULL)
        self.addCleanup(other.wait)
        self.addCleanup(other.kill)
        os.close(writer)
        with os.fdopen(reader) as told:
            return ":" + told.readline().strip()

    @staticmethod
    def told(what):
        return f"vesko: Vesko is running already, on the display {os.environ['DISPLAY']}, {what}"

    def test_the_users_shows_the_library(self):
        self.assertIsNone(self.vesko.find(*NEW_NOTE))
        self.start()
        self.vesko.wait_to_find(*NEW_NOTE)
        until("it is in front", lambda: eyes.active_pid() == self.vesko.process.pid)

    def test_one_on_another_display_says_where_the_first_is(self):
        second = self.elsewhere(DISPLAY=self.other_display())
        app = until("it shows a window", lambda: eyes.application(second.pid))
        until("that says where the first is",
              lambda: app.find("label", self.told(SHOWN).removeprefix("vesko: ")))
        self.vesko.wait_to_find(*NEW_NOTE)
        app.find("push button", "Close").activate()
        self.ends(second, 0, [self.told(SHOWN)])

    def test_one_from_a_terminal_says_so_there(self):
        reader, writer = os.openpty()
        with os.fdopen(reader) as said:
            done = subprocess.run([BINARY], stderr=writer, timeout=20, env={
                **os.environ, "VESKO_DATA_ROOT": self.vesko.root, "DISPLAY": self.other_display()})
            os.close(writer)
            self.assertEqual((done.returncode, said.readline()), (0, self.told(SHOWN) + "\n"))

    def test_the_one_at_login_shows_nothing(self):
        self.start("--background")
        human_pause(0.5)
        self.assertIsNone(self.vesko.find(*NEW_NOTE))
        self.assertEqual(self.vesko.phase, "ready")

    def test_one_on_another_bus_shows_the_first(self):
        display = self.other_display()
        second = self.elsewhere("dbus-run-session", "--", DISPLAY=display)
        until("it shows a window", lambda: visible_windows(display))
        self.vesko.wait_to_find(*NEW_NOTE)
        click_close(display)
        self.ends(second, 0, [self.told(SHOWN)])

    def test_one_without_a_bus_shows_the_first(self):
        self.ends(self.elsewhere(DBUS_SESSION_BUS_ADDRESS=NO_BUS), 0, [])
        self.vesko.wait_to_find(*NEW_NOTE)

    def test_one_that_hangs_on_another_bus_is_named(self):
        os.kill(self.vesko.process.pid, signal.SIGSTOP)
        second = self.elsewhere(DBUS_SESSION_BUS_ADDRESS=NO_BUS)
        until("its window is in front", lambda: eyes.active_pid() == second.pid)
        hands.tap("escape")
        self.ends(second, 1, [
            "vesko: Vesko is running already, in another session, but does not answer"])
        # Only now: it will show the window that it was asked for, and take the keyboard.
        os.kill(self.vesko.process.pid, signal.SIGCONT)
        self.vesko.wait_to_find(*NEW_NOTE)

    def test_one_with_another_library_is_on_its_own(self):
        second = self.run_without_a_bus(os.devnull, VESKO_DATA_ROOT=tempfile.mkdtemp())
        until("it shows its library", lambda: len(eyes.windows(second.pid)) == 2)
        self.assertIsNone(self.vesko.find(*NEW_NOTE))

    def test_one_that_cannot_reach_the_other_says_where_it_is_and_touches_nothing(self):
        # What it shows then is seen in test_bad_input.py: without the bus of the session nobody can
        # read a window of Qt's.
        self.vesko.root = tempfile.mkdtemp()
        self.run_without_a_bus(os.devnull)
        until("the first has opened the library",
              lambda: os.path.isdir(os.path.join(self.vesko.root, "recordings")))
        before = self.files()
        display = self.other_display()
        with tempfile.NamedTemporaryFile("r") as said:
            second = self.run_without_a_bus(said.name, DISPLAY=display)
            until("it says where the first is", lambda: os.stat(said.name).st_size)
            self.assertEqual(said.read().splitlines()[0], self.told(NOT_SHOWN))
        until("it shows the library window beside the floating one",
              lambda: len(visible_windows(display)) == 2)
        second.terminate()
        self.assertEqual(second.wait(timeout=20), 0)
        self.assertEqual(self.files(), before)

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
