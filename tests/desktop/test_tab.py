#!/usr/bin/python3
"""Each window, and each sheet above it, by Tab: everything is reached, nothing is skipped and nobody
is trapped; from a sheet the keyboard goes back to where it was."""

import os
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, hands, library, settings  # noqa: E402
from lib.service import Account  # noqa: E402
from lib.vesko import Vesko, deployed  # noqa: E402
from lib.waiting import until  # noqa: E402

BUTTON, ITEM, ROW, TEXT, CHOICE = "push button", "menu item", "list item", "text", "combo box"
WHEN = "2026-01-01T08:00:00Z"
TERMS = [{"id": f"00000000-0000-4000-8000-00000000000{number}", "original": original,
          "replacement": original.upper(), "source": "manual", "enabled": True, "createdAt": WHEN}
         for number, original in enumerate(("alpha", "beta"))]


class Tab(unittest.TestCase):
    def start(self, scene="note=1", notes=3, binary=None, terms=(), trashed=False, **values):
        settings.write(**{"provider": "openrouter", "keySource": "personal",
                          "firstLaunchDone": True, "onboardingCompleted": True, **values})
        self.addCleanup(settings.remove)
        root = os.path.join(tempfile.mkdtemp(), "library")
        library.write(root, notes, projects=2)
        if terms or trashed:
            made = library.read(root)
            os.remove(os.path.join(root, "library.json"))
            os.rmdir(os.path.join(root, "recordings"))
            for note in made["notes"] if trashed else ():
                note["deletedAt"] = WHEN
            library.write_document(root, made["notes"], made["projects"], terms)
        self.vesko = Vesko(**({"binary": binary} if binary else {}), root=root,
                           **({"VESKO_DEMO_SCENE": scene} if scene else {}))
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_for("ready")
        until("a window has the keyboard, and knows it", lambda: (
            eyes.active_pid() == self.vesko.process.pid
            and eyes.claiming_to_be_active() == [self.vesko.process.pid]))

    def reaches(self, *expected):
        """All of these, by Tab in either direction, which come by the same."""
        forward = self.vesko.tab_around("tab")
        self.assertEqual(sorted(self.vesko.tab_around("left shift", "tab")), sorted(forward))
        names = [name for _, name in forward]
        for name in expected:
            self.assertIn(name, names)

    def rows(self):
        """The notes that are listed, from top to bottom."""
        found = []
        for node in self.vesko.app.walk():
            try:
                if node.role == ROW and node.name == "Dictation" and "showing" in node.states:
                    found.append((node.bounds[1], node))
            except eyes.Gone:
                continue
        return [node for _, node in sorted(found, key=lambda row: row[0])]

    def select_all(self):
        until("the notes are listed", lambda: len(self.rows()) == 3)
        hands.click(*self.rows()[0].centre)
        hands.tap("left control", "a")
        self.vesko.wait_to_find("status bar", "3 notes selected")

    def show_trash(self):
        self.vesko.press(ROW, "Trash")
        until("the Trash is listed", lambda: len(self.rows()) == 3)
        hands.click(*self.rows()[0].centre)
        self.vesko.wait_to_find("label", "This note is in the Trash")

    def test_the_library_with_a_note(self):
        self.start()
        self.reaches("Menu", "All notes", "New project", "Project 2", "Trash", "Dictionary",
                     "Search notes and transcripts", "New note", "Record note", "Note title",
                     "Project", "Add voice", "Copy note", "Note actions", "Note text",
                     "Play or stop original recording", "Retry…", "Original transcript")

    def test_the_library_with_several_notes(self):
        self.start()
        self.select_all()
        self.reaches("All notes", "Search notes and transcripts", "New note", "Move to project",
                     "Export Markdown…", "Move to Trash…")

    def test_the_library_with_the_trash(self):
        self.start(trashed=True)
        self.show_trash()
        self.reaches("Trash", "Empty Trash…", "Note title", "Note actions", "Note text",
                     "Play or stop original recording")
        self.select_all()
        self.reaches("Empty Trash…", "Restore notes", "Delete permanently…")

    def test_the_dictionary(self):
        self.start("dictionary", terms=TERMS)
        self.reaches("alpha → ALPHA", "Edit alpha", "Remove alpha", "Use term")

    def test_the_settings(self):
        self.start("settings", cleanupEnabled=True)
        for page, reached in (
                ("Speech recognition", ("Search settings", "Privacy", "Transcribe with", "Save key")),
                ("Translation and cleanup", ("Search settings", "Suggested text models")),
                ("Availability and storage", ("Search settings", "Open data folder"))):
            with self.subTest(page):
                self.vesko.settings_page(page)
                self.reaches(*reached)

    def test_each_step_of_the_first_run(self):
        service = Account()
        self.addCleanup(service.stop)
        self.start(None, binary=deployed(**service.deployment), onboardingCompleted=False)
        self.vesko.press(BUTTON, "Get started")  # there is nothing else
        for goes_on, reached in (("Continue", ("Back",)), ("Continue", ("Back",)),
                                 ("Not now", ("Back", "Email address"))):
            self.vesko.wait_to_find(BUTTON, goes_on)
            self.reaches(goes_on, *reached)
            self.vesko.press(BUTTON, goes_on)
        self.vesko.wait_to_find(BUTTON, "New note")

    def opens(self, shown, first, *expected):
        """The sheet shows that, the keyboard is first there, and reaches these and nothing else."""
        self.vesko.wait_to_find(*shown)
        until(f"the keyboard is in {first}; it is in {self.vesko.focused()}",
              lambda: (here := self.vesko.focused()) and (here.role, here.name) == first)
        forward = self.vesko.tab_around("tab")
        self.assertEqual(sorted(self.vesko.tab_around("left shift", "tab")), sorted(forward))
        self.assertEqual(sorted(name for _, name in forward), sorted(expected))
        hands.tap("escape")
        until("the sheet is gone", lambda: not self.vesko.find(*shown))

    def comes_back_to(self, role, name):
        until(f"the keyboard is in {name}; it is in {self.vesko.focused()}",
              lambda: (here := self.vesko.focused()) and (here.role, here.name) == (role, name))

    def test_the_sheets_of_the_library(self):
        self.start()
        for opener, item, shown, first, names in (
                ((BUTTON, "New project"), None, (TEXT, "Project name"), (TEXT, "Project name"),
                 ("Project name", "Cancel", "Save")),
                ((BUTTON, "Retry…"), None, (BUTTON, "Transcribe"), (BUTTON, "Transcribe"),
                 ("Cancel", "Transcribe")),
                ((BUTTON, "Note actions"), "Export Markdown…", (TEXT, "File"), (TEXT, "File"),
                 ("File", "Cancel", "Save")),
                ((BUTTON, "Note actions"), "Move to Trash…", (BUTTON, "Move to Trash"),
                 (BUTTON, "Move to Trash"), ("Cancel", "Move to Trash")),
                ((BUTTON, "Menu"), "Export library…", (TEXT, "File"), (TEXT, "File"),
                 ("File", "Cancel", "Save")),
                ((BUTTON, "Menu"), "Import library…", (TEXT, "File"), (TEXT, "File"),
                 ("File", "Cancel", "Import")),
                ((BUTTON, "Menu"), "About Vesko", (BUTTON, "OK"), (BUTTON, "OK"),
                 ("Copy", "OK"))):
            with self.subTest(opener=opener, item=item):
                self.vesko.tab_to(*opener)
                hands.tap("space")
                if item:
                    self.vesko.press(ITEM, item)
                self.opens(shown, first, *names)
                self.comes_back_to(*opener)

    def test_the_sheets_of_several_notes(self):
        self.start()
        self.select_all()
        for opener, shown, first, names in (
                ("Export Markdown…", (TEXT, "Folder"), (TEXT, "Folder"),
                 ("Folder", "Cancel", "Save")),
                ("Move to Trash…", (BUTTON, "Move to Trash"), (BUTTON, "Move to Trash"),
                 ("Cancel", "Move to Trash"))):
            with self.subTest(opener=opener):
                self.vesko.tab_to(BUTTON, opener)
                hands.tap("space")
                self.opens(shown, first, *names)
                self.comes_back_to(BUTTON, opener)

    def test_what_cannot_be_undone_is_not_confirmed_by_return(self):
        self.start(trashed=True)
        self.show_trash()
        before = library.read(self.vesko.root)
        for several, opener, agrees in ((False, "Empty Trash…", "Empty Trash"),
                                        (True, "Delete permanently…", "Delete permanently")):
            with self.subTest(opener=opener):
                if several:
                    self.select_all()
                self.vesko.tab_to(BUTTON, opener)
                hands.tap("space")
                self.opens((BUTTON, agrees), (BUTTON, "Cancel"), "Cancel", agrees)
                self.comes_back_to(BUTTON, opener)
                hands.tap("space")
                self.vesko.wait_to_find(BUTTON, agrees)
                self.comes_back_to(BUTTON, "Cancel")
                hands.tap("return")
                until("the question is gone", lambda: not self.vesko.find(BUTTON, agrees))
                self.comes_back_to(BUTTON, opener)
        self.assertEqual(library.read(self.vesko.root), before)


if __name__ == "__main__":
    cases.main()
