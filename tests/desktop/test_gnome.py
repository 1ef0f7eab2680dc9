#!/usr/bin/python3
"""A dictation in a session of GNOME, which asks at each whether Vesko may press the keys that
paste."""

import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, consent, gnome, hands, settings  # noqa: E402
from lib.dictation import (ASKED, HIDDEN, MOVED, REFUSED, UNSEEN, WORDS,  # noqa: E402
                           Dictations)
from lib.programs import GnomeTextEditor, Gtk4Window, Mousepad, PasswordPrompt  # noqa: E402
from lib.vesko import Vesko  # noqa: E402
from lib.waiting import until  # noqa: E402

ADVICE = ("GNOME gives programs no shortcuts of their own, but Vesko can add one to its settings: "
          "see “Capture and insertion” in the settings of Vesko.")
NO_KEYS = "GNOME shows no program the keys that are pressed in another one."


class Gnome(Dictations):
    def into(self, program):
        with program:
            self.begin()
            consent.give(program)
            self.end()
            self.holds(program, WORDS)

    def test_into_an_editor_of_gtk_3(self):
        self.into(Mousepad())

    def test_into_an_editor_of_gtk_4(self):
        self.into(GnomeTextEditor())

    def test_not_after_the_user_said_no(self):
        with Mousepad() as editor:
            self.begin()
            consent.refuse(editor)
            self.end(message=REFUSED)
            self.stays(lambda: editor.text, "")

    def test_not_while_the_user_is_still_asked_and_the_question_goes(self):
        with Mousepad() as editor:
            self.begin()
            consent.wait_until_asked()
            self.end(message=ASKED)
            consent.wait_until_gone(editor)
            self.stays(lambda: editor.text, "")

    def test_never_into_a_password_field(self):
        with PasswordPrompt() as prompt:
            self.begin()
            self.end(message=HIDDEN)
            self.stays(lambda: len(prompt.text), 0)
            self.assertFalse(consent.is_asked())

    def test_not_after_the_focus_moved_to_another_field(self):
        with Gtk4Window() as window:
            self.begin()
            consent.give(window)
            self.end_and_hold()
            first, second = window.field, window.tab_to("hidden")
            self.released(message=MOVED)
            self.stays(lambda: (first.text, len(second.text)), ("", 0))

    def test_not_after_another_window_was_raised(self):
        with Mousepad() as editor, GnomeTextEditor() as other:
            editor.raise_window()
            self.begin()
            consent.give(editor)
            self.end_and_hold()
            other.raise_window()
            self.released(message=MOVED)
            self.stays(lambda: (editor.text, other.text), ("", ""))

    def test_not_after_the_target_was_closed(self):
        with Mousepad() as editor:
            self.begin()
            consent.give(editor)
            self.end_and_hold()
            editor.kill()
            self.released(message=MOVED)

    def test_without_any_window(self):
        self.begin()
        self.end(message=UNSEEN)

    def test_the_control_can_be_clicked_and_leaves_the_focus(self):
        with Mousepad() as editor:
            hands.click(*self.vesko.button.centre)
            self.vesko.wait_for("recording")
            consent.give(editor)
            hands.click(*self.vesko.button.centre)
            self.delivered()
            self.holds(editor, WORDS)

    def test_with_a_russian_layout(self):
        with Mousepad() as editor:
            hands.use_layout("ru")
            self.addCleanup(hands.use_layout, "us")
            self.begin()
            consent.give(editor)
            self.end()
            self.holds(editor, WORDS)


class Shortcut(unittest.TestCase):
    """The one that Vesko adds to the desktop's settings."""

    def start(self, *arguments, done, **environment):
        settings.write(firstLaunchDone=done, onboardingCompleted=done, provider="apple")
        self.vesko = Vesko(arguments=arguments, **environment)
        self.addCleanup(self.vesko.kill)

    def test_the_first_run_adds_it_and_offers_no_key_that_could_not_be_seen(self):
        before = gnome.own_keys()
        self.addCleanup(gnome.set_key, gnome.KEYS, "custom-keybindings",
                        gnome.key(gnome.KEYS, "custom-keybindings"))
        self.start(done=False)
        self.vesko.press("push button", "Get started")
        self.vesko.wait_to_find("push button", "Add Super+Alt+Space")
        self.assertIsNone(self.vesko.find(None, "Hold the key and speak"))
        self.vesko.press("push button", "Add Super+Alt+Space")
        until("the shell listens to it", lambda: gnome.own_keys() == before + 1)
        self.vesko.wait_to_find(None, "Press Super+Alt+Space and speak")

    def test_vesko_adds_one_that_works_and_takes_it_away_again(self):
        self.start(done=True, VESKO_DEMO_SCENE="settings")
        self.vesko.settings_page("Capture and insertion")
        self.vesko.wait_to_find(None, NO_KEYS)
        self.assertIsNone(self.vesko.find(None, "Also use a single key to start and stop"))
        before = gnome.own_keys()
        self.vesko.wait_to_find("paragraph", ADVICE)
        self.vesko.press("push button", "Add Super+Alt+Space")
        until("the shell listens to it", lambda: gnome.own_keys() == before + 1)
        self.vesko.wait_to_find("push button", "Remove Super+Alt+Space")
        self.assertIsNone(self.vesko.find("paragraph", ADVICE))
        hands.tap("super", "left alt", "space")
        self.vesko.wait_for("recording")
        self.vesko.press("push button", "Remove Super+Alt+Space")
        until("the shell listens to it no longer", lambda: gnome.own_keys() == before)
        self.vesko.wait_to_find("push button", "Add Super+Alt+Space")
        self.vesko.wait_to_find("paragraph", ADVICE)


if __name__ == "__main__":
    cases.main()
