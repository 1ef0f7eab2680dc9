#!/usr/bin/python3
"""The floating control beside a real editor: whatever the pointer does to it, the editor keeps the
focus, from the first moment to the last, and what is typed lands at its caret."""

import os
import re
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, hands, library, settings, voice  # noqa: E402
from lib.programs import FeatherPad, Mousepad  # noqa: E402
from lib.service import OpenRouter  # noqa: E402
from lib.vesko import Vesko, deployed, install_key  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

BUTTON, ITEM = "push button", "menu item"
QUESTION = "Which language do you speak?"
GERMAN = "Der Zug hatte schon wieder Verspätung, und alle mussten lange warten."
HOLD = 0.6  # seconds that are a hold without doubt


class BesideAnEditor(unittest.TestCase):
    """What is common to the cases; has none itself."""

    @classmethod
    def setUpClass(cls):
        cls.service = OpenRouter()
        cls.addClassCleanup(cls.service.stop)
        cls.binary = deployed(cls.service.url)
        install_key("test-key", cls.binary)

    def start(self, **more):
        """The program and an editor, whose caret is in the middle of a text."""
        settings.write(provider="openrouter", keySource="vesko", firstLaunchDone=True,
                       onboardingCompleted=True, **more)
        self.service.answer("spoken")
        self.vesko = Vesko(self.binary)
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_for("ready")
        self.editor = Mousepad("one two")
        self.addCleanup(self.editor.kill)
        hands.tap("home")
        for _ in "one ":
            hands.tap("right")
        until("the caret is in the middle", lambda: self.editor.field.caret == 4)
        self.window = eyes.windows(self.vesko.process.pid)[0]
        self.focus = eyes.ActiveWindow()
        self.addCleanup(self.focus.stop)

    def writes_on(self):
        """The next letter lands at the caret, and no other window was active meanwhile."""
        text, caret = self.editor.text, self.editor.field.caret
        hands.type_letters("x")
        until(f"the letter is at the caret; the editor held {text!r}",
              lambda: self.editor.text == text[:caret] + "x" + text[caret:]
              and self.editor.field.caret == caret + 1)
        self.assertEqual(eyes.focused(self.editor.app), self.editor.field)
        self.assertEqual(self.focus.changes(), [])

    def words_land(self, words="spoken", before="one "):
        until("the words are at the caret, and it is behind them",
              lambda: self.editor.text == before + words + "two"
              and self.editor.field.caret == len(before + words))

    def click(self, button=1):
        hands.click(*self.vesko.button.centre, button=button)

    def click_on(self, role, name):
        """What the control itself shows."""
        node = until(f"a {role} called {name!r}", lambda: self.vesko.panel.find(role, name))
        until("it can be seen", lambda: "showing" in node.states and node.bounds[3] > 0)
        hands.click(*node.centre)

    def open_menu(self):
        self.click(button=3)
        until("the menu is open", lambda: "Quit Vesko" in self.vesko.shown())

    def nothing_was_recorded(self):
        self.assertEqual(self.vesko.phase, "ready")
        self.assertEqual(library.recordings(self.vesko.root), [])


class FloatingControl(BesideAnEditor):
    def setUp(self):
        self.start(languageAnswered=True)

    def test_a_click_dictates_to_the_caret(self):
        self.click()
        self.vesko.wait_for("recording")
        self.writes_on()
        self.click()
        self.words_land(before="one x")
        self.vesko.wait_for("ready")
        self.writes_on()

    def test_it_tells_what_it_is_for_while_the_pointer_rests_on_it(self):
        x, y = self.vesko.button.centre
        hands.point(x - 2, y)
        hands.point(x, y)
        until("it tells how it is used", lambda: any(
            words.startswith("Click once to record.") for words in self.vesko.shown()))
        hands.point(x, y - 300)
        until("it is silent again", lambda: not any(
            words.startswith("Click once") for words in self.vesko.shown()))
        self.nothing_was_recorded()

    def test_a_drag_moves_it_and_starts_nothing(self):
        x, y = self.vesko.button.centre
        hands.drag((x, y), (x - 300, y - 200))
        until("it has moved", lambda: abs(self.vesko.button.centre[0] - (x - 300)) < 3
              and abs(self.vesko.button.centre[1] - (y - 200)) < 3)
        self.writes_on()
        self.nothing_was_recorded()
        self.vesko.quit()
        again = Vesko(self.binary, root=self.vesko.root)
        self.addCleanup(again.kill)
        until("it is where it was", lambda: abs(again.button.centre[0] - (x - 300)) < 3
              and abs(again.button.centre[1] - (y - 200)) < 3)

    def test_in_the_upper_left_corner_all_that_it_shows_is_on_the_screen(self):
        hands.drag(self.vesko.button.centre, (20, 15))
        until("it is in the corner", lambda: self.vesko.button.centre == (28, 28))
        self.open_menu()
        self.is_whole("menu item", "Quit Vesko")
        self.click(button=3)
        until("the menu is closed", lambda: "Quit Vesko" not in self.vesko.shown())
        self.click()
        self.vesko.wait_for("recording")
        self.is_whole("label", "Recording")
        self.click()
        self.vesko.wait_for("ready")
        self.vesko.quit()
        again = Vesko(self.binary, root=self.vesko.root)
        self.addCleanup(again.kill)
        until("it is there again", lambda: again.button.centre == (28, 28))

    def is_whole(self, role, name):
        node = until(f"a {role} called {name!r}", lambda: self.vesko.panel.find(role, name))
        x, y, width, height = node.bounds
        self.assertTrue(x >= 0 and y >= 0 and width > 0 and height > 0, node.bounds)

    def test_the_note_of_a_text_that_could_not_be_pasted_is_opened(self):
        self.click()
        self.vesko.wait_for("recording")
        self.vesko.wait_for_text("Into Mousepad")
        self.editor.kill()
        until("the editor is gone", lambda: eyes.active_pid() != self.editor.process.pid)
        self.click()
        self.vesko.wait_for("ready")
        self.click_on("push button", "Open note")
        self.vesko.wait_to_find("text", "Note text")
        self.assertEqual(self.vesko.find("text", "Note text").text, "spoken")

    def test_a_drag_out_and_back_is_no_click(self):
        place = self.vesko.button.centre
        hands.drag(place, (place[0] - 40, place[1] - 40), place)
        human_pause(0.3)
        self.nothing_was_recorded()
        self.assertEqual(self.vesko.button.centre, place)
        self.writes_on()

    def test_the_menu_opens_and_closes(self):
        self.open_menu()
        self.writes_on()
        self.click(button=3)
        until("the menu is closed", lambda: "Quit Vesko" not in self.vesko.shown())
        self.writes_on()
        self.nothing_was_recorded()
        self.open_menu()
        self.click_on(ITEM, "Start dictation")
        self.vesko.wait_for("recording")
        self.writes_on()
        self.open_menu()
        self.click_on(ITEM, "Stop dictation")
        self.words_land(before="one xxx")

    def test_a_control_click_shows_the_menu_and_starts_nothing(self):
        hands.press("left control")
        self.click()
        hands.release("left control")
        until("the menu is open", lambda: "Quit Vesko" in self.vesko.shown())
        self.writes_on()
        self.nothing_was_recorded()

    def seconds(self):
        """What the control shows of the time, if it does."""
        return [int(text[2:]) for text in self.vesko.shown() if re.fullmatch(r"0:\d\d", text)]

    def test_it_shows_phase_and_time_and_level(self):
        self.assertIn("Ready", self.vesko.shown())
        with self.service.quiet():
            self.click()
            self.vesko.wait_for_text("Recording")
            first = until("the time is shown", self.seconds)[0]
            until("it goes on", lambda: (self.seconds() or [0])[0] >= first + 2)
            quiet = until("there are the dots", self.ink)
            with subprocess.Popen(["paplay", "--device=vmic",
                                   voice.recording_of(voice.COFFEE)]) as speech:
                until(f"the bars rise above {quiet} points of ink", lambda: self.ink() > 2 * quiet)
                speech.terminate()
            until("it is quiet again", lambda: self.ink() < 2 * quiet)
        self.service.hold()
        self.click()
        self.vesko.wait_for_text("Transcribing")
        self.service.release()
        self.words_land()
        self.vesko.wait_for_text("Ready")
        self.writes_on()

    def test_a_transcription_is_cancelled_by_its_button(self):
        self.service.hold()
        self.click()
        self.vesko.wait_for("recording")
        human_pause(0.3)  # somebody says something
        self.click()
        cancel = until("it can be cancelled",
                       lambda: self.vesko.panel.find("push button", "Cancel transcription"))
        cases.picture("transcription that can be cancelled")
        hands.click(*cancel.centre)
        self.vesko.wait_for_text("Transcription cancelled. The recording is saved.")
        self.vesko.wait_for("ready")
        self.service.release()
        recording = self.vesko.last_recording()
        self.assertEqual([each["status"] for each in recording["attempts"]], ["failed"])
        self.writes_on()

    def ink(self):
        """How many points of the control's middle are drawn upon, however faintly."""
        x, y = self.vesko.button.centre
        return sum(red < 230 for red, _, _ in eyes.pixels(int(x) - 16, int(y) - 14, 32, 28))

    def test_it_tells_who_holds_the_key_to_release_it(self):
        hands.press("right control")
        self.vesko.wait_for_text("Release the key to finish recording")
        self.vesko.wait_for("recording")
        human_pause(HOLD)
        hands.release("right control")
        until("the hint is gone",
              lambda: "Release the key to finish recording" not in self.vesko.shown())
        self.words_land()
        self.writes_on()

    def test_it_is_above_whatever_is_raised(self):
        self.assertEqual(eyes.stacking()[-1], self.window)
        with FeatherPad("other") as other:
            for program in (other, self.editor):
                program.raise_window()
                window = eyes.windows(program.process.pid)[-1]
                eyes.place(window, 0, 0, "100%", "100%")
                until("the window is right below the control",
                      lambda window=window: eyes.stacking()[-2:] == [window, self.window])
                self.assertGreater(self.ink(), 0)
        self.click()
        self.vesko.wait_for("recording")

    def test_it_is_on_every_workspace(self):
        self.assertEqual(eyes.window_property(self.window, "_NET_WM_DESKTOP"), "4294967295")
        for state in ("ABOVE", "SKIP_TASKBAR", "SKIP_PAGER"):
            self.assertIn("_NET_WM_STATE_" + state,
                          eyes.window_property(self.window, "_NET_WM_STATE"))
        self.addCleanup(eyes.go_to_workspace, 0)
        eyes.go_to_workspace(1)
        until("the editor was left behind",
              lambda: not eyes.viewable(eyes.windows(self.editor.process.pid)[-1]))
        self.assertTrue(eyes.viewable(self.window))
        self.click()
        self.vesko.wait_for("recording")
        eyes.go_to_workspace(0)
        self.vesko.wait_for("recording")
        self.assertTrue(eyes.viewable(self.window))


class LanguageQuestion(BesideAnEditor):
    def setUp(self):
        self.start()
        self.service.answer(GERMAN)
        self.vesko.dictate(lambda: human_pause(0.3))
        self.words_land(GERMAN)
        self.vesko.wait_for_text(QUESTION)
        self.writes_on()

    def answered(self):
        until("the question is gone", lambda: QUESTION not in self.vesko.shown())
        self.writes_on()
        self.vesko.wait_for("ready")
        until("the answer is kept", lambda: settings.read().get("languageAnswered"))

    def test_the_language_question_is_answered_with_the_mouse(self):
        self.click_on(BUTTON, "German")
        self.answered()
        self.assertEqual(settings.read()["language"], "de-DE")
        self.vesko.wait_for_text("German will be used for dictation")
        self.assertEqual(self.editor.text.count(GERMAN), 1)

    def test_the_language_question_lets_one_switch(self):
        self.click_on("link", "I switch between languages")
        self.answered()
        self.assertEqual(settings.read().get("language", "auto"), "auto")


if __name__ == "__main__":
    cases.main()
