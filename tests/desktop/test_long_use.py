#!/usr/bin/python3
"""The program after it was used for long: with few and many records every window opens, and nothing
that is clicked on comes to harm, while the collector of QML's objects takes at each chance whatever
has no owner and a screen reader looks at all of it.

    LONG_USE=600 tests/desktop/session /usr/bin/python3 tests/desktop/test_long_use.py

goes on clicking for so many seconds.
"""

import os
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, hands, library, settings  # noqa: E402
from lib.vesko import Vesko  # noqa: E402
from lib.waiting import until  # noqa: E402

SECONDS = float(os.environ.get("LONG_USE", "25"))
READER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "services/reader.py")
BUTTON, ITEM, ROW, TEXT, CHOICE = "push button", "menu item", "list item", "text", "combo box"
MENU = ["Open Vesko", "New note", "Dictionary…", "Export library…", "Import library…", "Undo",
        "Redo", "Cut", "Copy", "Paste", "Select All", "Welcome Tour…", "Settings…", "Diagnose…",
        "About Vesko", "Quit Vesko"]
# Each window: the item of the menu that opens it, and what is in no other.
WINDOWS = (("Dictionary…", TEXT, "Recognized term"), ("Settings…", CHOICE, "Transcribe with"),
           ("Welcome Tour…", BUTTON, "Get started"))


class LongUse(unittest.TestCase):
    def start(self, projects, notes, **environment):
        settings.write(provider="openrouter", keySource="personal", cleanupEnabled=True,
                       firstLaunchDone=True, onboardingCompleted=True)
        root = os.path.join(tempfile.mkdtemp(), "library")
        library.write(root, notes, projects)
        self.vesko = Vesko(root=root, arguments=(), **environment)
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_for("ready", deadline=60)

    def open_menu(self):
        self.vesko.press(None, "Menu")
        until(f"the menu has all its rows; {self.rows()}", lambda: self.rows() == MENU)

    def rows(self):
        found = []
        for node in self.vesko.app.walk():
            try:
                if node.role == ITEM and "showing" in node.states:
                    found.append(node.name)
            except eyes.Gone:
                continue
        return found

    def close(self, role, name):
        hands.tap("escape")
        until(f"{name!r} is gone", lambda: not self.vesko.find(role, name))

    def still_runs(self):
        self.assertIsNone(self.vesko.process.poll(), self.vesko.log())

    def test_each_window_opens_with_few_and_many_records(self):
        for projects, notes in ((0, 0), (12, 12), (200, 10_000)):
            with self.subTest(projects=projects, notes=notes):
                self.start(projects, notes)
                self.vesko.wait_to_find(ROW, "All notes")
                for item, role, name in WINDOWS:
                    self.open_menu()
                    self.vesko.press(ITEM, item)
                    self.vesko.wait_to_find(role, name)
                self.still_runs()
                self.vesko.quit()
                self.assertEqual(self.vesko.process.returncode, 0)

    def test_nothing_is_lost_or_read_after_its_end_while_everything_is_clicked_on(self):
        self.addCleanup(setattr, eyes, "TIMEOUT", eyes.TIMEOUT)
        eyes.TIMEOUT = 60_000  # a window is made in seconds while the collector runs all the time
        self.start(projects=3, notes=4, QV4_MM_AGGRESSIVE_GC="1")
        reader = subprocess.Popen(["/usr/bin/python3", READER, str(self.vesko.process.pid)])
        self.addCleanup(reader.wait)
        self.addCleanup(reader.kill)
        end = time.monotonic() + SECONDS
        self.look_at_notes()
        self.open_windows()
        while True:
            self.look_at_popups()
            self.look_at_models()
            self.still_runs()
            if time.monotonic() > end:
                break
            self.look_at_notes()
        self.assertIsNone(reader.poll())
        self.vesko.quit()
        self.assertEqual(self.vesko.process.returncode, 0)

    def open_windows(self):
        for item, role, name in WINDOWS:
            self.open_menu()
            self.vesko.press(ITEM, item)
            self.vesko.wait_to_find(role, name)
        self.open_menu()
        self.vesko.press(ITEM, "Open Vesko")

    def look_at_notes(self):
        for place in ("All notes", "Project 1", "Trash", "All notes"):
            self.vesko.press(ROW, place)
        rows = until("the notes are listed", lambda: [
            node for node in self.vesko.app.walk() if node.role == ROW and node.name == "Dictation"])
        for row in rows:
            row.activate()

    def look_at_popups(self):
        self.open_menu()
        self.close(ITEM, "Quit Vesko")
        for name, shows in (("Note actions", (ITEM, "Copy text")), ("Project", (ROW, "No project")),
                            ("New project", (TEXT, "Project name")),
                            ("Retry…", (BUTTON, "Transcribe"))):
            self.vesko.press(None, name)
            self.vesko.wait_to_find(*shows)
            self.close(*shows)

    def look_at_models(self):
        self.vesko.settings_page("Speech recognition")
        self.vesko.settings_page("Translation and cleanup")
        button = until("the button of the models", lambda: self.vesko.app.find(
            None, "Suggested text models"))
        button.activate()
        until(f"the models are all there; {self.rows()}", lambda: len(self.rows()) == 5)
        self.vesko.press(ITEM, "qwen/qwen3.8-flash")
        until("they are gone", lambda: not self.rows())


if __name__ == "__main__":
    cases.main()
