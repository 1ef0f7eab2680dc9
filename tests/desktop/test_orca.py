#!/usr/bin/python3
"""What Orca says while the program is used by its keyboard alone."""

import os
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, hands, library, settings  # noqa: E402
from lib.orca import Orca  # noqa: E402
from lib.service import OpenRouter  # noqa: E402
from lib.vesko import Vesko, deployed, forget_key, install_key  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

ROW, TEXT, SWITCH = "list item", "text", "check box"
FIND, COMMA, UNDO = (("left control", key) for key in ("f", "comma", "z"))
LIST = ("All notes.", "List with 3 items.")
KEPT = "notification Original saved. Transcribing…"
COPIED = ("notification Copied. You started in Vesko itself, not in another program. Paste it with "
          "Ctrl+V.")
FAILED = ("notification The provider could not complete this request. Your audio is saved. Try again "
          "later.")
ATTENTION = "notification Audio saved. Transcription needs attention."
QUESTION = "notification Which language do you speak?"
MOVE = "Move this note to Trash? dialog You can restore the note and its recordings from Trash."


def note(number, title, body, project=None):
    when = f"2025-03-0{number}T12:00:00Z"
    made = {"id": f"6C1F1A52-3C0B-4C55-9B7E-0B8E3C7D9A1{number}", "kind": "text", "title": title,
            "body": body, "createdAt": when, "updatedAt": when, "recordings": []}
    return {**made, "projectID": project} if project else made


GERMAN = "Der Zug hatte schon wieder Verspätung, und alle mussten lange warten."
HOME = "6C1F1A52-3C0B-4C55-9B7E-0B8E3C7D9A20"
NOTES = [note(1, "Balcony", "tomatoes and a small table", HOME), note(2, "Letter", "to my brother"),
         note(3, "Shopping", "bread, tomatoes, coffee")]


class Read(unittest.TestCase):
    """What is common to the cases; has none itself."""

    @classmethod
    def setUpClass(cls):
        hands.plug_in()
        cls.orca = Orca()
        cls.addClassCleanup(cls.orca.kill)

    def start(self, binary=None, **values):
        """The program with its library open; returns what Orca says of it."""
        settings.write(**{"provider": "openrouter", "keySource": "personal", "language": "en-US",
                          "languageAnswered": True, "firstLaunchDone": True,
                          "onboardingCompleted": True, **values})
        root = os.path.join(tempfile.mkdtemp(), "library")
        library.write_document(root, NOTES, [
            {"id": HOME, "name": "House", "createdAt": "2025-01-01T08:00:00Z"}])
        self.orca.forget()
        self.vesko = Vesko(**({"binary": binary} if binary else {}), root=root, arguments=())
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_for("ready")
        return self.orca.says(*LIST, after="the start")

    def hears(self, *arguments):
        return self.orca.hears(*arguments)

    def says_only(self, keys, *wanted):
        """These and nothing else, each once, up to the last."""
        self.assertEqual(self.hears(keys, *wanted), list(wanted))

    def open_settings(self, page=None):
        self.hears(COMMA, "Vesko Settings frame.")
        if page:
            self.vesko.settings_page(page)


class Library(Read):
    def test_where_one_is_when_the_library_opens(self):
        self.assertEqual(self.start(), ["Vesko frame.", *LIST])

    def moment(self, number):
        return next(row.description for row in self.vesko.app.walk()
                    if row.role == ROW and row.name == NOTES[number - 1]["title"])

    def test_each_note_is_said_once_with_what_tells_it_apart(self):
        self.start()
        letter, balcony = self.moment(2), self.moment(1)
        self.assertIn("House", balcony)
        self.assertIn("tomatoes and a small table", balcony)
        self.assertIn("2025", letter)
        self.says_only(("down",), "Shopping.", "1 of 3.", self.moment(3) + ".")
        self.says_only(("down",), "Letter.", "2 of 3.", letter + ".")
        self.says_only(("down",), "Balcony.", "3 of 3.", balcony + ".")

    def test_a_new_note_is_written(self):
        self.start()
        self.says_only(("left control", "n"), "Note text text.")
        hands.type_letters("milk")
        until("it is saved", lambda: any(
            saved["body"] == "milk" for saved in library.read(self.vesko.root)["notes"]))
        self.hears(FIND, "Search notes and transcripts text.")
        self.assertEqual(self.hears(("down",), "milk.")[:2], ["All notes.", "List with 4 items."])

    def test_the_search_says_how_many_it_found(self):
        self.start()
        self.hears(FIND, "Search notes and transcripts text.")
        hands.type_letters("tomatoes")
        self.orca.says("notification Notes found: 2.")
        self.hears(("down",), "Shopping.", "1 of 2.")

    def test_a_note_is_renamed(self):
        self.start()
        self.hears(("down",), "Shopping.")
        self.hears(("down",), "Letter.")
        self.hears(("f2",), "Note title text.")
        hands.tap("left control", "a")
        hands.type_letters("post")
        until("it is saved", lambda: any(
            saved["title"] == "post" for saved in library.read(self.vesko.root)["notes"]))
        self.hears(FIND, "Search notes and transcripts text.")
        self.hears(("down",), "post.")

    def test_a_note_goes_to_the_trash_and_comes_back(self):
        self.start()
        self.hears(("down",), "Shopping.")
        self.hears(("down",), "Letter.")
        self.orca.says(self.moment(2) + ".")
        self.says_only(("delete",), MOVE, "Move to Trash push button.")
        said = self.hears(("return",), "notification Moved to Trash.")
        self.assertEqual(said.count("notification Moved to Trash."), 1)
        self.hears(UNDO, "Letter.")

    def test_the_pages_of_the_settings_and_a_switch(self):
        self.start()
        self.open_settings()
        self.hears(("tab",), "Search settings text.")
        self.hears(("tab",), "Settings.", "List with 7 items.", "Speech recognition.", "1 of 7.")
        self.hears(("down",), "Translation and cleanup.", "2 of 7.")
        self.hears(("end",), "Privacy.", "7 of 7.")
        self.vesko.settings_page("Personal dictionary")
        self.vesko.tab_to(SWITCH, "Use personal dictionary")
        said = self.orca.says("Use personal dictionary check box checked.")
        self.assertFalse([words for words in said if "Learning watches" in words], said)
        self.says_only(("space",), "not checked")
        self.says_only(("space",), "checked")
        self.hears(("tab",), "Learn from corrected dictation check box checked.")

    def test_the_letters_of_a_key_are_not_said(self):
        forget_key()
        self.addCleanup(forget_key)
        self.start()
        self.open_settings("Speech recognition")
        self.vesko.tab_to(TEXT, "")
        hands.type_letters("qxz")
        field = self.vesko.focused()
        until("three signs are shown", lambda: len(field.text) == 3)
        said = self.hears(("return",), "notification Key saved in your keyring.")
        self.assertTrue([words for words in said if "password" in words.lower()], said)
        for letters in ("q", "x", "z", "qxz"):
            self.assertNotIn(letters, said)
        self.assertEqual(said.count("notification Key saved in your keyring."), 1)

    def test_a_term_is_added(self):
        self.start()
        self.vesko.press(ROW, "Dictionary")
        self.orca.says("Vesko Dictionary frame.")
        self.hears(("tab",), "Recognized term text.")
        hands.type_letters("tallki")
        self.hears(("tab",), "Use instead text.")
        hands.type_letters("talky")
        self.hears(("return",), "Recognized term text.")
        self.vesko.tab_to(ROW, "tallki → talky")
        self.orca.says("Dictionary.", "List with 1 item.", "tallki → talky.", "1 of 1.",
                       "Added by you.")
        self.hears(("tab",), "Edit tallki push button.")
        self.hears(("tab",), "Remove tallki push button.")
        self.hears(("tab",), "Use term check box checked.")


class FirstRun(Read):
    def test_each_step_is_read(self):
        settings.write(provider="apple", firstLaunchDone=True)
        self.orca.forget()
        self.vesko = Vesko()
        self.addCleanup(self.vesko.kill)
        for step, (button, words) in enumerate((
                ("Get started push button.", "Speak once. Keep the thought. Use the words."),
                (None, "How to dictate"), (None, "Allow access")), start=1):
            def read():
                return [said for said in self.orca.since()
                        if said.startswith(f"notification Step {step} of 3")]

            until(f"step {step} is read; Orca said {self.orca.since()}", read)
            self.assertEqual(len(read()), 1)
            self.assertIn(words, read()[0])
            if button:
                self.orca.says(button)
            self.orca.forget()
            if step < 3:
                hands.tap("return")


class Dictation(Read):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.service = OpenRouter()
        cls.addClassCleanup(cls.service.stop)
        cls.binary = deployed(cls.service.url)
        install_key("test-key", cls.binary)

    def dictate(self, *wanted):
        """Each of these is said once: what the next key leads to is said after all of them."""
        self.vesko.begin()
        human_pause(0.3)  # somebody says something
        self.vesko.end()
        for words in wanted:
            try:
                until("", lambda words=words: words in self.orca.since())
            except AssertionError:
                self.fail(f"{words!r} was not said, but {self.orca.since()}; Vesko shows "
                          f"{self.vesko.shown()}")
        self.vesko.wait_for("ready")
        said = self.hears(FIND, "Search notes and transcripts text.")
        for words in wanted:
            self.assertEqual(said.count(words), 1, said)
        return said

    def test_what_becomes_of_a_dictation_is_said_once(self):
        self.start(binary=self.binary, keySource="vesko")
        self.service.answer("spoken")
        said = self.dictate(KEPT, COPIED)
        self.assertFalse([words for words in said if "Recording" in words], said)

    def test_an_error_is_said_once(self):
        self.start(binary=self.binary, keySource="vesko")
        self.service.control(status=500)
        self.addCleanup(self.service.control, status=200)
        self.dictate(KEPT, FAILED, ATTENTION)

    def test_the_question_for_the_language_is_said_once(self):
        self.start(binary=self.binary, keySource="vesko", language="auto", languageAnswered=False)
        self.service.answer(GERMAN)
        self.dictate(QUESTION)


if __name__ == "__main__":
    cases.main()
