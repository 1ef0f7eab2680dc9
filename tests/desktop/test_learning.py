#!/usr/bin/python3
"""What Vesko learns when the user corrects a pasted text and sends it, and when it learns nothing.

The service says the same misspelt word each time.
"""

import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, hands, library  # noqa: E402
from lib.programs import (ChatPage, ChatWindow, FeatherPad, GnomeTextEditor,  # noqa: E402
                          Gtk4Window, Kate, Mousepad, Qt5Window, RichChatPage, RichFirefoxPage,
                          SwingWindow, Thunderbird, Writer)
from lib.service import OpenRouter  # noqa: E402
from lib.vesko import Vesko, deployed, install_key  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

SAID = "Please recieve the parcel"
MEANT = "Please receive the parcel"
LOOK = 0.25  # seconds between two looks at the field


class Learning(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.service = OpenRouter()
        cls.addClassCleanup(cls.service.stop)
        cls.service.answer(SAID)
        cls.binary = deployed(cls.service.url)
        install_key("test-key", cls.binary)
        os.environ["QT_LOGGING_RULES"] = "app.vesko.insertion.review.debug=true"

    def setUp(self):
        self.vesko = Vesko(self.binary)
        self.addCleanup(self.vesko.kill)

    def dictate(self, program, expected=SAID):
        """Returns when what was pasted is being watched: an editor on a busy machine may let Vesko
        wait for an answer longer than its user takes to correct a word."""
        earlier = self.seen("paste_watched")
        self.paste(program, expected)
        until("what was pasted is watched", lambda: self.seen("paste_watched") > earlier)

    def paste(self, program, expected):
        self.vesko.dictate(lambda: human_pause(0.3))
        until(f"the field holds {expected!r}, not {program.text!r}",
              lambda: program.text == expected)

    def correct(self, program, watched=True):
        """Puts the letters of the misspelt word right, slowly enough that each of these edits is
        seen where they are watched."""
        hands.tap("home")
        for _ in range(SAID.index("ie")):
            hands.tap("right")
        for edit in (*[lambda: hands.tap("delete")] * 2, *[lambda letter=letter:
                     hands.type_letters(letter) for letter in "ei"]):
            earlier = self.seen("edit_seen")
            edit()
            if watched:
                until("the edit is seen", lambda: self.seen("edit_seen") > earlier)
        until("the word is right", lambda: program.text.endswith(MEANT))
        if not watched:
            human_pause(2 * LOOK)  # it would be seen by now

    def seen(self, event):
        return self.vesko.log().count(event)

    def send(self, program):
        hands.tap("return")
        until("the message has been sent", lambda: program.text == "")

    def dictionary(self):
        return library.read(self.vesko.root)["dictionary"]

    def learns(self, program):
        with program:
            self.dictate(program)
            self.correct(program)
            self.send(program)
            entry = until("the correction stands in the dictionary", self.dictionary)[0]
            self.assertEqual((entry["original"], entry["replacement"]), ("recieve", "receive"))
            self.assertTrue(entry["enabled"])
            self.assertEqual(entry["source"], "learned")
            self.dictate(program, expected=MEANT)

    def learns_nothing(self):
        human_pause(1)  # what would be learned is, within a look or two
        self.assertEqual(self.dictionary(), [])

    def test_a_correction_sent_in_a_gtk_window_acts_in_the_next_dictation(self):
        self.learns(ChatWindow())

    def test_a_correction_sent_in_a_chromium_page_acts_in_the_next_dictation(self):
        self.learns(ChatPage())

    def test_a_correction_sent_in_a_rich_editor_of_chromium(self):
        self.learns(RichChatPage())

    def test_a_correction_sent_in_a_rich_editor_of_firefox(self):
        self.learns(RichFirefoxPage())

    def test_what_was_corrected_and_not_sent_is_offered_in_the_dictionary(self):
        self.offers(ChatPage, lambda page: page.focus("entry", "other"))

    def test_what_was_corrected_in_a_letter_is_offered_in_the_dictionary(self):
        self.offers(Thunderbird, lambda letter: letter.focus("entry", "Subject"))

    def test_what_was_corrected_in_a_field_of_any_toolkit_is_offered_in_the_dictionary(self):
        for make_program in (Gtk4Window, Qt5Window, SwingWindow):
            with self.subTest(make_program.__name__):
                self.offers(make_program, lambda _: hands.tap("tab"))

    def test_what_was_corrected_in_an_editor_that_is_left_is_offered_in_the_dictionary(self):
        for make_program in (Mousepad, FeatherPad, GnomeTextEditor, Kate, Writer):
            with self.subTest(make_program.__name__), Mousepad() as other:
                self.offers(make_program, lambda _, other=other: other.raise_window())

    def offers(self, make_program, leave):
        self.vesko.kill()
        self.vesko = Vesko(self.binary, VESKO_DEMO_SCENE="dictionary")
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_to_find("list", "Dictionary")
        with make_program() as program:
            self.dictate(program)
            self.correct(program)
            leave(program)
            self.vesko.wait_to_find("push button", "Save last corrections")
            self.assertEqual(self.dictionary(), [])
            self.vesko.press("push button", "Save last corrections")
            entry = until("the correction stands in the dictionary", self.dictionary)[0]
            self.assertEqual((entry["original"], entry["replacement"]), ("recieve", "receive"))
            self.vesko.wait_to_find("list item", "recieve → receive")
            until("nothing more is offered",
                  lambda: not self.vesko.find("push button", "Save last corrections"))

    def test_what_is_sent_as_it_was_pasted_teaches_nothing(self):
        with ChatPage() as page:
            self.dictate(page)
            self.send(page)
            self.learns_nothing()

    def test_an_edit_outside_the_fragment_ends_the_review(self):
        with ChatPage("before ") as page:
            hands.tap("end")
            self.dictate(page, expected="before " + SAID)
            hands.tap("home")
            hands.type_letters("x")
            until("the edit is there", lambda: page.text == "xbefore " + SAID)
            human_pause(2 * LOOK)
            hands.tap("home")
            for _ in range(len("xbefore ")):
                hands.tap("delete")
            self.correct(page, watched=False)
            self.send(page)
            self.learns_nothing()

    def test_a_lost_focus_ends_the_review(self):
        with ChatPage() as page:
            self.dictate(page)
            message = page.field
            page.focus("entry", "other")
            human_pause(2 * LOOK)
            page.focus("entry", "message")
            self.assertEqual(page.field, message)
            self.correct(page, watched=False)
            self.send(page)
            self.learns_nothing()

    def test_a_new_recording_ends_the_review(self):
        with ChatPage() as page:
            self.dictate(page)
            self.correct(page)
            self.vesko.begin()
            self.send(page)
            self.vesko.end()
            self.vesko.wait_for("ready")
            self.learns_nothing()

    def test_a_field_that_alters_what_is_pasted_is_never_learned_from(self):
        with ChatPage(alters=True) as page:
            self.paste(page, expected="» " + SAID)
            human_pause(2 * LOOK)
            hands.tap("home")
            hands.tap("delete")
            hands.tap("delete")
            self.correct(page, watched=False)
            self.send(page)
            self.learns_nothing()


if __name__ == "__main__":
    cases.main()
