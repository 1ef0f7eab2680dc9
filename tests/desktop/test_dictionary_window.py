#!/usr/bin/python3
"""The dictionary window, driven through the accessibility bus and the keyboard alone."""

import os
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, hands, library, settings  # noqa: E402
from lib.vesko import Vesko  # noqa: E402
from lib.waiting import until  # noqa: E402

BUTTON, TEXT, SWITCH, ROW = "push button", "text", "check box", "list item"


def term(number, original, replacement, source="manual", enabled=True):
    return {"id": f"00000000-0000-4000-8000-{number:012}", "original": original,
            "replacement": replacement, "source": source, "enabled": enabled,
            "createdAt": "2026-01-01T00:00:00Z"}


class DictionaryWindow(unittest.TestCase):
    def open(self, *terms):
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)
        root = os.path.join(tempfile.mkdtemp(), "library")
        os.makedirs(root)
        library.write_document(root, [], dictionary=terms)
        self.vesko = Vesko(root=root, VESKO_DEMO_SCENE="dictionary")
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_to_find(TEXT, "Recognized term")
        until("the window has the keyboard",
              lambda: eyes.active_pid() == self.vesko.process.pid)

    def terms(self):
        return library.read(self.vesko.root)["dictionary"]

    def test_a_term_is_added_by_keys_alone(self):
        self.open()
        self.vesko.wait_to_find("label", "Your personal dictionary")
        self.vesko.tab_to(TEXT, "Recognized term")
        hands.type_letters("tallki")
        self.assertNotIn("focusable", self.vesko.find(BUTTON, "Add term").states)
        hands.tap("tab")
        hands.type_letters("talky")
        hands.tap("return")
        until("it is saved", lambda: [(one["original"], one["replacement"], one["source"])
                                      for one in self.terms()] == [("tallki", "talky", "manual")])
        self.vesko.wait_to_find(ROW, "tallki → talky")
        self.vesko.wait_to_find("label", "1 term")
        self.vesko.wait_to_find("status bar", "Dictionary saved")

    def test_a_learned_term_is_edited_and_becomes_the_users_own(self):
        self.open(term(1, "wurld", "world", "learned"))
        row = self.vesko.wait_to_find(ROW, "wurld → world")
        self.assertEqual(row.description, "Learned spelling")
        self.vesko.press(BUTTON, "Edit wurld")
        self.vesko.wait_to_find(BUTTON, "Save term")
        until("the form has the keyboard",
              lambda: "focused" in self.vesko.find(TEXT, "Recognized term").states)
        hands.type_letters("whirld")
        hands.tap("return")
        until("it is saved", lambda: self.terms()[0]["original"] == "whirld")
        self.assertEqual(self.terms()[0]["source"], "manual")
        self.assertEqual(self.vesko.wait_to_find(ROW, "whirld → world").description,
                         "Added by you")
        self.vesko.press(BUTTON, "Edit whirld")
        self.vesko.press(BUTTON, "Cancel")
        self.vesko.wait_to_find(BUTTON, "Add term")

    def test_a_term_is_switched_off_and_on(self):
        self.open(term(1, "cube control", "kubectl", "suggestion", False))
        switch = self.vesko.wait_to_find(SWITCH, "Use term")
        self.assertEqual(switch.description, "Use cube control")
        self.assertNotIn("checked", switch.states)
        switch.activate()
        until("it is on", lambda: self.terms()[0]["enabled"])
        until("it shows", lambda: "checked" in switch.states)
        self.assertEqual(self.terms()[0]["source"], "suggestion")
        switch.activate()
        until("it is off", lambda: not self.terms()[0]["enabled"])

    def test_a_term_is_removed(self):
        self.open(term(1, "one", "1"), term(2, "two", "2"))
        self.vesko.press(BUTTON, "Remove one")
        until("it is gone", lambda: [one["original"] for one in self.terms()] == ["two"])
        until("its row is gone", lambda: not self.vesko.find(ROW, "one → 1"))
        self.vesko.wait_to_find("status bar", "Removed “one”")
        self.vesko.press(BUTTON, "Undo")
        self.vesko.wait_to_find(ROW, "one → 1")
        self.assertEqual(len(self.terms()), 2)

    def test_the_rows_by_keys_alone(self):
        self.open(term(1, "one", "1"), term(2, "two", "2"))
        self.vesko.tab_to(TEXT, "Search dictionary")
        hands.tap("tab")
        until("the first row has the keyboard",
              lambda: "focused" in self.vesko.find(ROW, "one → 1").states)
        hands.tap("space")
        until("it is off", lambda: not self.terms()[0]["enabled"])
        hands.tap("delete")
        until("it is gone", lambda: [one["original"] for one in self.terms()] == ["two"])
        until("the next row has the keyboard",
              lambda: (row := self.vesko.find(ROW, "two → 2")) and "focused" in row.states)
        hands.tap("return")
        self.vesko.wait_to_find(BUTTON, "Save term")
        hands.tap("escape")
        self.vesko.wait_to_find(BUTTON, "Add term")

    def test_a_search_finds_by_the_replacement(self):
        self.open(term(1, "one", "uno"), term(2, "two", "due"))
        hands.tap("left control", "f")
        until("the search has the keyboard",
              lambda: "focused" in self.vesko.find(TEXT, "Search dictionary").states)
        hands.type_letters("uno")
        until("one is left", lambda: not self.vesko.find(ROW, "two → due"))
        hands.type_letters("x")
        self.vesko.wait_to_find("label", "No matching terms")
        hands.tap("escape")
        self.vesko.wait_to_find(ROW, "two → due")

    def test_what_the_dictionary_refuses_stays(self):
        self.open(term(1, "one", "uno"))
        self.vesko.tab_to(TEXT, "Recognized term")
        hands.type_letters("one")
        hands.tap("tab")
        hands.type_letters("eins")
        hands.tap("return")
        until("the reason is told", lambda: (line := self.vesko.find("status bar", None))
              and line.name != "Dictionary saved")
        self.assertEqual(self.vesko.find(TEXT, "Recognized term").text, "one")
        self.assertEqual(self.vesko.find(TEXT, "Use instead").text, "eins")
        self.assertEqual(len(self.terms()), 1)


if __name__ == "__main__":
    cases.main()
