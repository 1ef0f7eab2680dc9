#!/usr/bin/python3
"""More rows of the table in docs/targets.md: programs of everyday use, and what pages do with their
fields."""

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, hands  # noqa: E402
from lib.dictation import HIDDEN, MOVED, NO_ELEMENTS, NOT_SEEN, WORDS, Cells, Dictations  # noqa: E402
from lib.programs import (DrawingPage, FeatherPad, GnomeTextEditor, Gtk4Window,  # noqa: E402
                          Mousepad, ShadowChromium, ShadowFirefox, Terminal, Thunderbird,
                          ThunderbirdWithPost, Writer, chromium_as_shipped)
from lib.waiting import human_pause, until  # noqa: E402


class GtkEditor(Cells, Dictations):
    make_program = Mousepad


class QtEditor(Cells, Dictations):
    make_program = FeatherPad


class AdwaitaLine(Cells, Dictations):
    make_program = Gtk4Window


class GtkTerminal(Cells, Dictations):
    make_program = Terminal


class Letter(Cells, Dictations):
    make_program = Thunderbird


class PasswordDialogs(Dictations):
    def never_into(self, program):
        with program:
            secret = program.ask_for_password()
            before = program.text, secret.text
            self.begin()
            self.end(message=HIDDEN)
            self.stays(lambda: (program.text, secret.text), before)

    def not_after_moving_into(self, program):
        with program:
            before = program.text
            self.begin()
            self.end_and_hold()
            secret = program.ask_for_password()
            empty = secret.text
            self.released(message=MOVED)
            self.stays(lambda: (program.text, secret.text), (before, empty))

    def test_never_into_the_one_of_a_mail_program(self):
        self.never_into(ThunderbirdWithPost())

    def test_not_after_moving_into_the_one_of_a_mail_program(self):
        self.not_after_moving_into(ThunderbirdWithPost())

    def test_never_into_the_one_of_a_word_processor(self):
        self.never_into(Writer())

    def test_not_after_moving_into_the_one_of_a_word_processor(self):
        self.not_after_moving_into(Writer())


class SearchBar(Dictations):
    def test_not_into_a_search_bar_that_was_opened_with_the_shortcut_held(self):
        with GnomeTextEditor() as editor:
            self.begin()
            hands.tap("left control", "f")
            until("the text has lost the keyboard", lambda: "focused" not in editor.field.states)
            self.service.hold()
            hands.press_shortcut()
            self.service.wait_for_request()
            self.service.release()
            human_pause(0.3)
            hands.release_shortcut()
            self.delivered(message=MOVED)
            self.stays(lambda: editor.text, "")
            self.assertNotIn(WORDS, [node.text for node in editor.app.walk()
                                     if node.role in ("text box", "entry", "text")])


class ShadowTree(Cells, Dictations):
    make_program = ShadowFirefox


class Pages(Dictations):
    def test_into_a_field_of_a_shadow_tree_of_chromium(self):
        with ShadowChromium() as page:
            self.begin()
            self.end()
            self.holds(page, WORDS)


    def test_a_field_that_is_emptied_at_once_is_not_said_to_show_the_text(self):
        with DrawingPage() as page:
            self.begin()
            self.end(message=NOT_SEEN)
            self.holds(page, WORDS)

    def test_a_browser_as_it_is_shipped_tells_nothing_of_its_fields(self):
        with chromium_as_shipped():
            self.begin()
            self.end(message=NO_ELEMENTS)


if __name__ == "__main__":
    cases.main()
