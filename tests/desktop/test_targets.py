#!/usr/bin/python3
"""Where a dictation lands, or why it doesn't: one case for each kind of field and each thing that
may happen to it while the speech is being transcribed.

The answer of the service is held back where something must happen first, so no case depends on
how fast anything is.
"""

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, hands, kwin  # noqa: E402
from lib.dictation import (HELD, HIDDEN, MOVED, NO_WINDOW, NOT_SEEN,  # noqa: E402
                           SENT, WORDS, Dictations)
from lib.programs import (Chromium, FeatherPad, Mousepad, PasswordPrompt,  # noqa: E402
                          RefusingPage, Terminal)
from lib.waiting import human_pause, until  # noqa: E402


def long_text():
    """8,000 characters as people see them: emoji of several code points, marks above letters,
    writing from right to left, several scripts and both kinds of line end."""
    piece = ("Plain words, then 👩‍👩‍👧 and 🇬🇷 and 👍🏽; e\u0301 and o\u0302\u0323; שלום עולם and "
             "مرحبا بالعالم; Ελληνικά, русский, 日本語; a \"quote\", a \\ and a tab\there.\n"
             "Another line\r\nand the next. ")
    text = piece * 60
    return text[:8000].rstrip()


def plain_ends(text):
    return text.replace("\r\n", "\n")


class Targets(Dictations):
    def into(self, program, before="", after=WORDS):
        with program:
            self.begin()
            self.end()
            self.holds(program, before + after)

    def test_into_a_gtk_editor(self):
        self.into(Mousepad())

    def test_it_is_told_where_the_words_will_go(self):
        with Mousepad():
            self.begin()
            self.vesko.wait_for_text("Into Mousepad")
            self.end()

    def test_into_a_qt_editor(self):
        self.into(FeatherPad())

    def test_into_a_chromium_textarea(self):
        self.into(Chromium("area"))

    def test_into_a_chromium_input(self):
        self.into(Chromium("line"))

    def test_into_a_terminal(self):
        self.into(Terminal())

    def test_at_the_cursor_inside_text(self):
        with Mousepad("one two") as editor:
            hands.tap("home")
            until("the cursor stands at the front", lambda: editor.field.caret == 0)
            self.begin()
            self.end()
            self.holds(editor, WORDS + "one two")

    def test_never_into_a_gtk_password_field(self):
        with PasswordPrompt() as prompt:
            self.begin()
            self.end(message=HIDDEN)
            self.stays(lambda: len(prompt.text), 0)
            self.assertEqual(prompt.answer(), "")

    def test_never_into_a_chromium_password_field(self):
        with Chromium("secret") as page:
            self.begin()
            self.end(message=HIDDEN)
            self.stays(lambda: page.text, "")

    def test_what_a_field_refuses_is_not_said_to_be_sent(self):
        with RefusingPage() as page:
            self.begin()
            self.end(message=NOT_SEEN)
            self.stays(lambda: page.text, "")

    def test_never_into_another_program_that_alt_and_tab_lead_to(self):
        with Mousepad() as editor, PasswordPrompt() as prompt:
            editor.raise_window()
            editor.focus("text")
            self.begin()
            self.end_and_hold()
            hands.press("left alt")
            hands.tap("tab")
            if kwin.here():  # which tells no program that Alt is held meanwhile
                hands.release("left alt")
                eyes.wait_for_front(prompt.pid)
            self.service.release()
            human_pause(0.2)
            hands.release_all()
            self.delivered(message=MOVED)
            self.stays(lambda: (editor.text, len(prompt.text)), ("", 0))

    def test_not_after_the_focus_moved_to_another_field(self):
        with Chromium("line") as page:
            self.begin()
            self.end_and_hold()
            first, second = page.field, page.focus("entry", "other line")
            self.released(message=MOVED)
            self.stays(lambda: (first.text, second.text), ("", ""))

    def test_not_after_the_focus_moved_to_a_password_field(self):
        with Chromium("line") as page:
            self.begin()
            self.end_and_hold()
            first, second = page.field, page.focus("password text", "secret")
            self.released(message=MOVED)
            self.stays(lambda: (first.text, second.text), ("", ""))

    def test_not_after_another_window_was_raised(self):
        with Mousepad() as editor, FeatherPad() as other:
            editor.raise_window()
            editor.focus("text")
            self.begin()
            self.end_and_hold()
            other.raise_window()
            self.released(message=MOVED)
            self.stays(lambda: (editor.text, other.text), ("", ""))

    def test_not_after_the_target_was_closed(self):
        with Mousepad() as editor:
            self.begin()
            self.end_and_hold()
            editor.kill()
            self.released(message=MOVED)

    def test_still_after_the_user_typed_on(self):
        with Mousepad("first ") as editor:
            hands.tap("end")
            self.begin()
            self.end_and_hold()
            hands.type_letters("and more ")
            until("the letters have arrived", lambda: editor.text == "first and more ")
            self.released()
            self.holds(editor, "first and more " + WORDS)

    def test_still_after_the_cursor_moved(self):
        with FeatherPad("one two") as editor:
            hands.tap("end")
            until("the cursor stands at the end", lambda: editor.field.caret == 7)
            self.begin()
            self.end_and_hold()
            hands.tap("home")
            until("the cursor stands at the front", lambda: editor.field.caret == 0)
            self.released()
            self.holds(editor, WORDS + "one two")

    def test_with_the_shortcut_still_held_down(self):
        with Mousepad() as editor:
            self.begin()
            hands.press_shortcut()
            try:
                # KWin would mix what is held with what is sent, and lets nobody release it.
                self.delivered(message=HELD if kwin.here() else SENT)
                self.holds(editor, "" if kwin.here() else WORDS)
            finally:
                hands.release_shortcut()
            # Nobody presses again what the user held: no modifier stays down.
            self.assertEqual(hands.held(), set())

    def test_with_its_modifiers_held_a_moment_too_long(self):
        with FeatherPad() as editor:
            self.begin()
            hands.press_shortcut()
            hands.release("space")
            human_pause(0.25)
            hands.release("left shift")
            hands.release("super")
            self.delivered()
            self.holds(editor, WORDS)

    def test_with_a_russian_layout(self):
        self.with_layout("ru", Mousepad())

    def test_with_a_greek_layout(self):
        self.with_layout("gr", FeatherPad())

    def test_with_a_greek_layout_and_no_other(self):
        hands.load_layouts("gr")
        self.addCleanup(hands.load_layouts)
        self.into(FeatherPad())
        self.into(Mousepad())

    def with_layout(self, layout, editor):
        with editor:
            hands.use_layout(layout)
            self.addCleanup(hands.use_layout, "us")
            hands.tap("v")
            until("the layout is in use", lambda: editor.text in ("м", "ω"))
            hands.tap("backspace")
            until("the editor is empty again", lambda: editor.text == "")
            self.begin()
            self.end()
            self.holds(editor, WORDS)

    def test_8000_characters_of_every_kind_into_a_gtk_editor(self):
        self.long_into(Mousepad())

    def test_8000_characters_of_every_kind_into_a_qt_editor(self):
        self.long_into(FeatherPad())

    def test_8000_characters_of_every_kind_into_chromium(self):
        self.long_into(Chromium("area"))

    def long_into(self, program):
        text = long_text()
        self.service.answer(text)
        with program:
            self.begin()
            self.end(words=text)
            until("all of it has arrived",
                  lambda: plain_ends(program.text) == plain_ends(text), deadline=5)

    def test_without_any_window(self):
        self.begin()
        self.end(message=NO_WINDOW)


if __name__ == "__main__":
    cases.main()
