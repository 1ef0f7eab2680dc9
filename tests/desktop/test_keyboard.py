#!/usr/bin/python3
"""The windows by keys: everything is reached, nothing is skipped and nobody is trapped, and the
keyboard is where a user expects it."""

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


class Keyboard(unittest.TestCase):
    def start(self, scene="note=1", notes=3, binary=None, **values):
        settings.write(**{"provider": "openrouter", "keySource": "personal",
                          "firstLaunchDone": True, "onboardingCompleted": True, **values})
        root = os.path.join(tempfile.mkdtemp(), "library")
        library.write(root, notes, projects=2)
        self.vesko = Vesko(**({"binary": binary} if binary else {}), root=root,
                           **({"VESKO_DEMO_SCENE": scene} if scene else {}))
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_for("ready")
        until("a window has the keyboard", lambda: eyes.active_pid() == self.vesko.process.pid)
        if scene == "note=1":
            until("the notes are listed", lambda: len(self.notes_listed()) >= min(notes, 10))

    def notes(self):
        return library.read(self.vesko.root)["notes"]

    def selected(self):
        """The selected note, by what the list says of it."""
        return next((number for number, (_, _, states) in enumerate(self.listed())
                     if "selected" in states), None)

    def notes_listed(self):
        """From top to bottom."""
        return [node for _, node, _ in self.listed()]

    def listed(self):
        """Each row's place, itself, and its states; rows that scroll away are gone meanwhile."""
        rows = []
        for node in self.vesko.app.walk():
            try:
                if node.role == ROW and node.name == "Dictation":
                    rows.append((node.bounds[1], node, node.states))
            except eyes.Gone:
                continue
        return sorted(rows, key=lambda row: row[0])

    def comes_to(self, *wanted):
        """The keyboard is in that element."""
        def here():
            focused = self.vesko.focused()
            return focused and (focused.role, focused.name)

        until(f"the keyboard is in {wanted}; it is in {here()}", lambda: here() == wanted)

    def test_the_list_of_notes_is_walked(self):
        self.start(notes=30)
        hands.click(*self.notes_listed()[1].centre)
        for key, place in (("down", 2), ("down", 3), ("up", 2), ("end", 29), ("home", 0),
                           ("page down", 10)):
            hands.tap(key)
            until(f"{key} leads to note {place}; it is {self.selected()}",
                  lambda place=place: self.selected() == place
                  or place == 29 and self.selected() == len(self.notes_listed()) - 1
                  or place == 10 and self.selected() in range(6, 15))
        self.assertTrue(any({"focused", "focusable"} <= node.states
                            for node in self.notes_listed()))

    def test_the_sidebar_is_walked(self):
        self.start()
        self.vesko.tab_to(ROW, "All notes")
        for key, name in (("down", "Project 1"), ("down", "Project 2"), ("down", "Trash"),
                          ("up", "Project 2"), ("end", "Dictionary"), ("down", "Dictionary"),
                          ("home", "All notes"), ("up", "All notes"), ("page down", "Dictionary")):
            hands.tap(key)
            self.comes_to(ROW, name)
        hands.tap("home")
        hands.tap("down")
        hands.tap("f2")
        self.comes_to(TEXT, "Project name")
        hands.tap("escape")
        self.comes_to(ROW, "Project 1")

    def test_a_new_note_is_typed_into(self):
        self.start()
        self.vesko.press(BUTTON, "New note")
        self.types("one two")
        self.vesko.press(ROW, "Settings")
        self.vesko.wait_to_find(CHOICE, "Transcribe with")
        until("the settings are in front", lambda: eyes.title(eyes.active_window())
              == "Vesko Settings")
        hands.tap("left control", "n")
        self.types("three four")
        self.assertEqual(len(self.notes()), 5)

    def types(self, text):
        # That of the note before may have had the keyboard all the time.
        until("the keyboard is in the text of a new note", lambda: (
            (here := self.vesko.focused()) and (here.role, here.name) == (TEXT, "Note text")
            and here.text == ""))
        hands.type_letters(text)
        until("it is saved", lambda: any(note["body"] == text for note in self.notes()))

    def test_after_each_sheet_the_keyboard_is_where_it_was(self):
        self.start()
        for opener, shows in (((BUTTON, "New project"), (TEXT, "Project name")),
                              ((BUTTON, "Retry…"), (BUTTON, "Transcribe"))):
            self.vesko.tab_to(*opener)
            hands.tap("space")
            self.vesko.wait_to_find(*shows)
            hands.tap("escape")
            self.comes_to(*opener)
        for item, shows in (("Export Markdown…", (TEXT, "File")),
                            ("Move to Trash…", (BUTTON, "Move to Trash"))):
            self.vesko.tab_to(BUTTON, "Note actions")
            hands.tap("space")
            self.vesko.press(ITEM, item)
            self.vesko.wait_to_find(*shows)
            hands.tap("escape")
            self.comes_to(BUTTON, "Note actions")

    def test_return_deletes_nothing_for_good(self):
        self.start()
        hands.click(*self.notes_listed()[0].centre)
        until("the first note has the keyboard", lambda: self.selected() == 0
              and "focused" in self.notes_listed()[0].states)
        hands.tap("delete")
        self.vesko.wait_to_find("label", "Move this note to Trash?")
        self.comes_to(BUTTON, "Move to Trash")
        hands.tap("return")
        until("it is in the Trash", lambda: any("deletedAt" in note for note in self.notes()))
        self.vesko.press(ROW, "Trash")
        until("one note is listed", lambda: len(self.notes_listed()) == 1)
        hands.click(*self.notes_listed()[0].centre)
        hands.tap("delete")
        self.vesko.wait_to_find(BUTTON, "Delete permanently")
        self.comes_to(BUTTON, "Cancel")
        hands.tap("return")
        until("the question is gone", lambda: not self.vesko.find(BUTTON, "Delete permanently"))
        self.assertEqual(len(self.notes()), 3)

    def test_the_menu_works_on_the_text_that_the_keyboard_is_in(self):
        self.start()
        self.vesko.press(BUTTON, "New note")
        self.types("words")
        for item in ("Select All", "Cut", "Paste"):
            hands.click(*self.vesko.wait_to_find(None, "Menu").centre)
            hands.click(*self.vesko.wait_to_find(ITEM, item).centre)
            until("the menu is closed", lambda: not self.vesko.find(ITEM, "Quit Vesko"))
            body = self.vesko.wait_to_find(TEXT, "Note text")
            expected = "" if item == "Cut" else "words"
            until(f"the text is {expected!r} after {item}", lambda: body.text == expected)

    def test_the_menus_tell_what_is_off_and_which_keys_do_the_same(self):
        self.start()
        hands.click(*self.vesko.wait_to_find(None, "Menu").centre)
        paste = self.vesko.wait_to_find(ITEM, "Paste")
        self.assertNotIn("focusable", paste.states)
        self.assertEqual(paste.description, "Ctrl+V")
        self.assertIn("focusable", self.vesko.find(ITEM, "Quit Vesko").states)

    def test_the_usual_keys(self):
        self.start()
        hands.click(*self.notes_listed()[1].centre)
        hands.tap("f2")
        self.comes_to(TEXT, "Note title")
        hands.tap("left control", "f")
        self.comes_to(TEXT, "Search notes and transcripts")
        hands.tap("left control", "comma")
        self.vesko.wait_to_find(CHOICE, "Transcribe with")
        until("the settings are in front",
              lambda: eyes.title(eyes.active_window()) == "Vesko Settings")
        hands.tap("left control", "w")
        until("they are closed", lambda: not self.vesko.find(CHOICE, "Transcribe with"))
        hands.tap("left control", "q")
        self.vesko.process.wait(timeout=15)

    def walk(self, *keys):
        """What has the keyboard, one after the other, until it is again where it was first."""
        found, names = [], []
        while True:
            before = self.vesko.focused()
            hands.tap(*keys)
            focused = until(f"{keys} leads on from {before}",
                            lambda before=before: (here := self.vesko.focused()) != before and here)
            if found and focused == found[0]:
                return names
            self.assertNotIn(focused, found, "trapped")
            states = focused.states
            self.assertLessEqual({"showing", "focusable"}, states, focused)
            self.assertTrue(focused.name or focused.is_password and focused.description, focused)
            self.assertLess(len(found), 100)
            found.append(focused)
            names.append((focused.role, focused.name or focused.description))

    def test_tab_reaches_everything_forward_and_back(self):
        service = Account()
        self.addCleanup(service.stop)
        for case, reached in (
                ({"scene": "note=1"},
                 ["All notes", "Project 2", "Dictionary", "Search notes and transcripts",
                  "New note", "Note title", "Note text", "Play or stop original recording",
                  "Retry…", "Original transcript"]),
                ({"scene": "settings", "cleanupEnabled": True},
                 ["Search settings", "Privacy", "Transcribe with", "Save key"]),
                ({"scene": None, "onboardingCompleted": False,
                  "binary": deployed(**service.deployment)}, ["Back", "Continue"])):
            with self.subTest(case=case):
                self.start(**case)
                with self.vesko:
                    if case["scene"] is None:
                        self.vesko.press(BUTTON, "Get started")
                        self.vesko.wait_to_find(BUTTON, "Back")
                    forward = self.walk("tab")
                    back = self.walk("left shift", "tab")
                names = [name for _, name in forward]
                for name in reached:
                    self.assertIn(name, names)
                self.assertEqual(sorted(back), sorted(forward))


if __name__ == "__main__":
    cases.main()
