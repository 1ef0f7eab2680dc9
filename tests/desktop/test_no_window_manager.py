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
from lib.waiting import human_pause, until  # noqa: E402

NO_WINDOW = ("Copied. No active window was known when you started, so Vesko did not paste. Paste it "
             "with Ctrl+V.")


def windows(*wanted):
    found = subprocess.run(["xdotool", "search", "--onlyvisible", *wanted], text=True,
                           stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    return found.stdout.split()


def focused():
    """The window with the input focus, 0 if none has it."""
    found = subprocess.run(["xdotool", "getwindowfocus", "-f"], text=True,
                           stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    return int(found.stdout.strip() or 0)


class NoWindowManager(unittest.TestCase):
    def setUp(self):
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)
        self.vesko = Vesko()
        self.addCleanup(self.vesko.kill)

    def open(self, name):
        """An editor with an empty file of that name, and the editor's window."""
        path = os.path.join(tempfile.mkdtemp(), name)
        with open(path, "w"):
            pass
        editor = subprocess.Popen(["mousepad", "--disable-server", path])
        self.addCleanup(editor.kill)
        return editor, until(f"the window of {name}", lambda: windows("--name", name))[0]

    def lands_in(self, editor, window):
        subprocess.run(["xdotool", "windowfocus", window], check=True)
        field = until("its field has the focus", lambda: (app := eyes.application(editor.pid))
                      and (field := app.find("text")) and "focused" in field.states and field)
        self.vesko.dictate(lambda: voice.say(voice.BROTHER))
        self.vesko.wait_for_text(SENT)
        until("the words are in it", lambda: voice.is_understood(voice.BROTHER, field.text.strip()))

    def test_a_dictation_lands_in_the_window_with_the_focus(self):
        self.lands_in(*self.open("Letter.txt"))

    def window_manager(self):
        manager = subprocess.Popen(["openbox", "--sm-disable"], stderr=subprocess.DEVNULL)
        self.addCleanup(manager.kill)

        def its_window():
            told = subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"],
                                  stdout=subprocess.PIPE, text=True, check=True).stdout.split()[-1]
            # One that crashed has left a number here, too.
            return told.startswith("0x") and subprocess.run(
                ["xprop", "-id", told, "_NET_WM_NAME"], stdout=subprocess.DEVNULL,
                stderr=subprocess.DEVNULL).returncode == 0

        until("it manages the windows", its_window)
        return manager

    def test_the_shortcut_works_after_a_window_manager_has_crashed(self):
        manager = self.window_manager()
        editor, _ = self.open("Letter.txt")
        eyes.raise_window(editor.pid)
        # The window manager gives it to the window, and GTK then to a part of that.
        until("GTK has taken the focus",
              lambda: focused() not in (0, int(eyes.active_window(), 16)))
        manager.kill()
        manager.wait()
        until("no window has the focus", lambda: focused() == 0)
        self.vesko.begin()
        self.vesko.end()
        self.vesko.wait_for("ready")

    def test_what_a_window_manager_left_behind_that_crashed_is_not_believed(self):
        manager = self.window_manager()
        first = self.open("First.txt")
        eyes.raise_window(first[0].pid)
        second = self.open("Second.txt")
        eyes.raise_window(second[0].pid)
        manager.kill()
        manager.wait()
        self.assertEqual(eyes.active_pid(), second[0].pid, "as it was told last")
        self.lands_in(*first)

    def test_without_a_focus_it_is_said_that_no_window_was_known(self):
        subprocess.run(["xdotool", "mousemove", "640", "20"], check=True)
        self.vesko.dictate(lambda: voice.say(voice.BROTHER))
        self.vesko.wait_for_text(NO_WINDOW)


class UnderKWin(unittest.TestCase):
    def setUp(self):
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)
        self.editor = subprocess.Popen(["mousepad", "--disable-server"])
        self.addCleanup(self.editor.kill)
        manager = subprocess.Popen(["kwin_x11"], stderr=subprocess.DEVNULL)
        self.addCleanup(manager.wait)
        self.addCleanup(manager.kill)
        until("the editor is in use", lambda: eyes.active_pid() == self.editor.pid)

    # It hides the tools of a program that is not in use.
    def test_the_control_stays_when_another_program_is_in_use(self):
        with Vesko(arguments=()) as vesko:
            pid = vesko.process.pid
            until("the library is in use", lambda: eyes.active_pid() == pid)
            control = next(window for window in eyes.windows(pid) if window != eyes.active_window())
            eyes.raise_window(self.editor.pid)
            human_pause(0.5)  # it would be hidden by then
            self.assertTrue(eyes.viewable(control))

    # It takes a window that comes without the focus for one that wants it.
    def test_the_control_demands_no_attention(self):
        with Vesko() as vesko:
            control = until("the control is shown", lambda: eyes.windows(vesko.process.pid))[0]
            until("KWin has told its state", lambda: "_NET_WM_STATE_STAYS_ON_TOP"
                  in eyes.window_property(control, "_NET_WM_STATE"))
            human_pause(0.5)  # it would demand it by then
            self.assertNotIn("DEMANDS_ATTENTION",
                             eyes.window_property(control, "_NET_WM_STATE"))


if __name__ == "__main__":
    cases.main()
