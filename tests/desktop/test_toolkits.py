#!/usr/bin/python3
"""The same few cells in a program of each kind: what docs/targets.md has in its table. Programs of
GTK 3 and Qt 5 are in test_targets.py too.
"""

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, hands  # noqa: E402
from lib.dictation import (HIDDEN, MOVED, NO_ELEMENTS, NO_FIELD, NO_PASTE, WORDS,  # noqa: E402
                           Cells, Dictations)
from lib.programs import (Chromium, Firefox, GnomeTextEditor, Gtk4Window,  # noqa: E402
                          GVim, Kate, Konsole, Qt5Window, SandboxedMousepad,
                          Writer, tk_window, xterm)
from lib.waiting import human_pause, until  # noqa: E402


class GnomeEditor(Cells, Dictations):
    make_program = GnomeTextEditor


class Gtk4(Dictations):
    def moved_to(self, window, tabs):
        """Begins in the line, then goes on with Tab before the text comes."""
        self.begin()
        self.end_and_hold()
        for _ in range(tabs):
            hands.tap("tab")
        until("the line has lost the focus", lambda: "focused" not in window.field.states)

    def test_never_into_hidden_letters(self):
        with Gtk4Window() as window:
            hidden = window.tab_to("hidden")
            hands.type_letters("ab")
            until("the letters are there", lambda: hidden.caret == 2)
            self.begin()
            self.end(message=HIDDEN)
            self.stays(lambda: hidden.caret, 2)

    def test_not_after_moving_into_a_password_row(self):
        with Gtk4Window() as window:
            self.moved_to(window, tabs=2)
            self.released(message=MOVED)
            secret = window.app.find(name="secret row")
            self.stays(lambda: (window.field.text, secret.caret), ("", 0))

    def test_not_after_moving_into_a_password_row_with_the_shortcut_held(self):
        with Gtk4Window() as window:
            self.begin()
            hands.tap("tab")
            hands.tap("tab")
            self.service.hold()
            hands.press_shortcut()
            self.service.wait_for_request()
            self.service.release()
            human_pause(0.3)
            hands.release_shortcut()
            self.delivered(message=MOVED)
            secret = window.app.find(name="secret row")
            self.stays(lambda: (window.field.text, secret.caret), ("", 0))

    def test_what_starts_in_a_password_row_has_no_field(self):
        with Gtk4Window() as window:
            self.begin()
            self.end()
            self.holds(window, WORDS)
            hidden = window.app.find("text box", "hidden")
            hands.tap("tab")
            hands.tap("tab")
            until("neither the line nor the one below it has the focus", lambda: not any(
                "focused" in field.states for field in (window.field, hidden)))
            human_pause(0.3)
            self.begin()
            self.end(message=NO_FIELD)
            self.stays(lambda: window.text, WORDS)


class Qt5(Dictations):
    def test_into_a_box_that_can_be_written_in(self):
        with Qt5Window() as window:
            hands.tap("tab")
            box = until("the box has the keyboard",
                        lambda: (found := eyes.focused(window.app)) != window.field and found)
            self.begin()
            self.end()
            until("the words are there", lambda: box.text == WORDS)
            self.stays(lambda: (window.field.text, box.text), ("", WORDS))


class KateEditor(Cells, Dictations):
    make_program = Kate


class WordProcessor(Cells, Dictations):
    make_program = Writer

    def test_into_another_paragraph_of_the_document(self):
        self.program.return_to()
        self.begin()
        self.end_and_hold()
        hands.tap("return")
        hands.tap("x")
        self.lands_once(self.released)


class FirefoxLine(Cells, Dictations):
    @staticmethod
    def make_program():
        return Firefox("line")

    def test_first_of_all_in_a_browser_that_has_just_begun(self):
        with Firefox("area") as page:
            self.begin()
            self.end()
            self.holds(page, WORDS)

    def test_never_into_a_password_field(self):
        with Firefox("secret") as page:
            self.begin()
            self.end(message=HIDDEN)
            self.stays(lambda: page.text, "")


class ChromiumLine(Cells, Dictations):
    @staticmethod
    def make_program():
        return Chromium("line")


class OtherTerminal(Cells, Dictations):
    make_program = Konsole


class TerminalPrompts(Dictations):
    def test_never_where_a_password_is_asked_for(self):
        with Konsole("bash", "-c", "read -rsp Password: secret; echo; echo \"got ${#secret}\"; cat"
                     ) as terminal:
            until("it asks", lambda: terminal.text == "Password:")
            self.begin()
            self.end(message=HIDDEN)
            hands.tap("return")
            until("it has its answer", lambda: "got 0" in terminal.text)

    def test_not_after_a_password_is_asked_for(self):
        with Konsole("bash", "-c", "read -r line; read -rsp Password: secret; echo; "
                     "echo \"got ${#secret}\"; cat") as terminal:
            self.begin()
            self.end_and_hold()
            hands.tap("return")
            until("it asks", lambda: terminal.text == "Password:")
            self.released(message=HIDDEN)
            hands.tap("return")
            until("it has its answer", lambda: "got 0" in terminal.text)


class Sandbox(Dictations):
    def test_into_a_program_that_nobody_knows_by_its_number(self):
        with SandboxedMousepad() as editor:
            self.begin()
            self.end()
            self.holds(editor, WORDS)

    def test_into_the_active_of_two_that_are_called_alike(self):
        with SandboxedMousepad() as first, SandboxedMousepad() as second:
            self.begin()
            self.end()
            self.holds(second, WORDS)
            self.stays(lambda: first.text, "")


class Untold(Dictations):
    def test_an_editor_with_keys_of_its_own_is_named_the_way_that_pastes_there(self):
        with GVim() as editor:
            hands.type_letters("iab")
            self.holds(editor, "ab")
            self.begin()
            self.end(message=NO_PASTE)
            self.stays(lambda: editor.text, "ab")
            editor.choose("Edit", "Paste")
            hands.type_letters("c")
            self.holds(editor, "ab" + WORDS + "c")

    def test_a_program_that_tells_nothing_of_its_fields(self):
        for program in (tk_window, xterm):
            with self.subTest(program.__name__), program():
                self.begin()
                self.end(message=NO_ELEMENTS)


if __name__ == "__main__":
    cases.main()
