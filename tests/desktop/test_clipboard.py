#!/usr/bin/python3
"""What was copied outlives the program that copied it."""

import os
import sys
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, clipboard  # noqa: E402
from lib.dictation import NO_WINDOW, WORDS, Dictations  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402


def keepers():
    """The processes that serve what a Vesko of this session left behind."""
    found = []
    for process in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open(f"/proc/{process}/cmdline", "rb") as file:
                command = file.read().split(b"\0")
            with open(f"/proc/{process}/environ", "rb") as file:
                here = f"SESSION_DIR={os.environ['SESSION_DIR']}".encode() in file.read()
        except OSError:
            continue
        if here and b"--keep-clipboard" in command:
            found.append(int(process))
    return found


class Clipboard(Dictations):
    def setUp(self):
        super().setUp()
        if self.vesko.process.poll() is not None:
            type(self).start_vesko()

    def dictate_and_quit(self):
        self.begin()
        self.end(message=NO_WINDOW)
        began = time.monotonic()
        self.vesko.quit()
        self.assertLess(time.monotonic() - began, 1)

    def test_the_text_is_still_there_after_quitting(self):
        self.dictate_and_quit()
        self.assertEqual(clipboard.read(), WORDS)
        self.assertEqual(len(keepers()), 1)
        human_pause(0.5)
        self.assertEqual(clipboard.read(), WORDS)
        clipboard.write("something else")
        until("nobody keeps the old text", lambda: not keepers())
        self.assertEqual(clipboard.read(), "something else")

    def test_what_was_copied_meanwhile_stays(self):
        self.begin()
        self.end(message=NO_WINDOW)
        clipboard.write("something else")
        self.vesko.quit()
        self.assertEqual(clipboard.read(), "something else")
        self.assertEqual(keepers(), [])


if __name__ == "__main__":
    cases.main()
