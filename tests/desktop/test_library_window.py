#!/usr/bin/python3
"""The library window, driven through the accessibility bus and the keyboard alone."""

import json
import os
import signal
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, clipboard, eyes, hands, library, settings  # noqa: E402
from lib.service import OpenRouter  # noqa: E402
from lib.vesko import Vesko, deployed, install_key  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

SERVICES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "services")
BUTTON, ITEM, ROW, TEXT = "push button", "menu item", "list item", "text"


class LibraryWindow(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.service = OpenRouter()
        cls.addClassCleanup(cls.service.stop)
        cls.binary = deployed(cls.service.url)
        install_key("test-key", cls.binary)
        settings.write(provider="openrouter", keySource="vesko", firstLaunchDone=True,
                       onboardingCompleted=True)

    def setUp(self):
        self.vesko = Vesko(self.binary, arguments=())
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_for("ready")
        until("the window has the keyboard",
              lambda: eyes.active_pid() == self.vesko.process.pid)

    def notes(self):
        return (library.read(self.vesko.root) or {"notes": []})["notes"]

    def only_note(self):
        self.assertEqual(len(self.notes()), 1)
        return self.notes()[0]

    def saved(self, body, deadline=5):
        until(f"{body!r} is saved; the library holds {self.notes()}",
              lambda: any(note["body"] == body for note in self.notes()), deadline)

    def new_note(self, letters=""):
        before = len(self.notes())
        self.vesko.press(BUTTON, "New note")
        until("a note is made", lambda: len(self.notes()) > before)
        body = self.vesko.wait_to_find(TEXT, "Note text")
        if letters:
            hands.click(*body.centre)
            until("the text has the keyboard", lambda: "focused" in body.states)
            hands.type_letters(letters)
            until("the letters are shown", lambda: body.text == letters)
        return body

    def choose(self, item):
        """An item of the note's menu."""
        self.vesko.press("button menu" if self.vesko.find("button menu", "Note actions") else
                         BUTTON, "Note actions")
        self.vesko.press(ITEM, item)

    def test_a_note_is_typed_and_saved_without_a_word(self):
        body = self.new_note("buy bread")
        self.saved("buy bread")
        self.vesko.wait_to_find("label", "Saved on this computer")
        title = self.vesko.wait_to_find(TEXT, "Note title")
        hands.click(*title.centre)
        until("the title has the keyboard", lambda: "focused" in title.states)
        hands.type_letters("errands")
        until("the title is saved", lambda: self.only_note()["title"] == "errands")
        self.vesko.wait_to_find(ROW, "errands")
        hands.click(*body.centre)
        until("the text has the keyboard", lambda: "focused" in body.states)
        hands.tap("left control", "z")
        self.saved("")
        hands.tap("left control", "left shift", "z")
        self.saved("buy bread")

    def test_everything_by_keys_alone(self):
        hands.tap("left control", "n")
        until("a note is made", lambda: self.notes())
        hands.tap("left control", "f")
        until("the search has the keyboard", lambda: (
            found := self.vesko.find(TEXT, "Search notes and transcripts")) and
            "focused" in found.states)
        hands.type_letters("zebra")
        self.vesko.wait_to_find("label", "No matching notes")
        hands.tap("escape")
        self.vesko.wait_to_find(ROW, "Untitled note")
        hands.tap("left control", "w")
        until("the window is closed", lambda: not self.vesko.find(BUTTON, "New note"))
        self.assertIsNone(self.vesko.process.poll())

    def test_what_was_typed_a_moment_ago_survives_each_way_to_quit(self):
        for quit in (self.vesko_is_told, self.terminal_closes, self.user_quits):
            self.new_note("almost lost")
            quit()
            self.vesko.process.wait(timeout=15)
            self.assertEqual(self.vesko.process.returncode, 0)
            self.assertEqual([note["body"] for note in self.notes()], ["almost lost"])
            self.setUp()

    def vesko_is_told(self):
        self.vesko.process.send_signal(signal.SIGTERM)

    def terminal_closes(self):
        self.vesko.process.send_signal(signal.SIGHUP)

    def user_quits(self):
        hands.tap("left control", "q")

    def test_going_to_another_note_loses_nothing(self):
        self.new_note("other")
        self.saved("other")
        self.new_note("almost lost")
        self.vesko.press(ROW, "other")
        self.saved("almost lost")
        self.saved("other")
        self.vesko.press(ROW, "almost lost")
        self.vesko.press(BUTTON, "Copy note")
        self.vesko.wait_to_find(BUTTON, "Note copied")
        self.assertEqual(clipboard.read(), "almost lost")

    def test_closing_the_window_loses_nothing(self):
        self.new_note("almost lost")
        hands.tap("left control", "w")
        self.saved("almost lost")

    def test_a_transcript_lands_while_nothing_is_typed(self):
        body = self.new_note("begun")
        self.saved("begun")
        self.service.answer("and heard")
        self.vesko.press(BUTTON, "Add voice")
        self.vesko.wait_for("recording")
        self.vesko.press(BUTTON, "Finish recording")
        until("the words are shown", lambda: body.text == "begun\n\nand heard")
        self.saved("begun\n\nand heard")
        self.assertEqual(len(self.only_note()["recordings"]), 1)

    def test_a_transcript_lands_while_something_is_typed(self):
        body = self.new_note("begun")
        self.saved("begun")
        self.service.answer("and heard")
        self.service.hold()
        self.vesko.press(BUTTON, "Add voice")
        self.vesko.wait_for("recording")
        self.vesko.press(BUTTON, "Finish recording")
        self.service.wait_for_request()
        hands.type_letters("t")
        until("something is typed", lambda: body.text == "begunt")
        self.service.release()
        for letter in "yped on and on":
            hands.type_letters(letter)
            human_pause(0.05)
        until("both are shown",
              lambda: "begun" in body.text and "typed on and on" in body.text
              and body.text.endswith("and heard"))
        self.saved(body.text)
        self.vesko.wait_for("ready")

    def test_a_search_finds_and_is_cleared(self):
        self.new_note("bread")
        self.saved("bread")
        self.new_note("milk")
        self.saved("milk")
        search = self.vesko.wait_to_find(TEXT, "Search notes and transcripts")
        hands.click(*search.centre)
        until("the search has the keyboard", lambda: "focused" in search.states)
        hands.type_letters("brea")
        until("one is left", lambda: not self.vesko.find(ROW, "milk")
              and self.vesko.find(ROW, "bread"))
        hands.type_letters("x")
        until("it is typed", lambda: search.text == "breax")
        self.vesko.press(BUTTON, "Clear search")
        self.vesko.wait_to_find(ROW, "milk")
        self.assertEqual(search.text, "")

    def test_what_is_found_in_a_text_is_gone_through(self):
        self.new_note("a fern and a fern and moss")
        self.saved("a fern and a fern and moss")
        self.new_note("moss")
        self.saved("moss")
        search = self.vesko.wait_to_find(TEXT, "Search notes and transcripts")
        hands.click(*search.centre)
        until("the search has the keyboard", lambda: "focused" in search.states)
        hands.type_letters("fern")
        until("it is searched for", lambda: search.text == "fern"
              and not self.vesko.find(ROW, "moss"))
        self.vesko.press(ROW, "a fern and a fern and moss")
        self.vesko.wait_to_find("status bar", "Matches in this text: 2")
        hands.tap("f3")
        self.vesko.wait_to_find("status bar", "Match 1 of 2")
        self.vesko.press(BUTTON, "Next match")
        self.vesko.wait_to_find("status bar", "Match 2 of 2")
        hands.tap("f3")
        self.vesko.wait_to_find("status bar", "Match 1 of 2")
        hands.tap("left shift", "f3")
        self.vesko.wait_to_find("status bar", "Match 2 of 2")

    def test_a_note_is_taken_back_from_the_trash(self):
        self.new_note("waste")
        self.saved("waste")
        self.choose("Move to Trash…")
        self.vesko.press(BUTTON, "Move to Trash")
        self.vesko.wait_to_find("status bar", "Moved to Trash")
        self.vesko.press(BUTTON, "Undo")
        until("it is back", lambda: "deletedAt" not in self.only_note())
        self.vesko.wait_to_find(ROW, "waste")
        until("nothing is offered any more", lambda: not self.vesko.find(
            "status bar", "Moved to Trash"))

    def chosen(self, *names):
        until(f"just {names} are selected", lambda: all(
            ("selected" in self.vesko.wait_to_find(ROW, name).states) == (name in names)
            for name in ("one", "two", "three")))

    def three_notes_and_a_garden(self):
        for letters in ("one", "two", "three"):
            self.new_note(letters)
            self.saved(letters)
        self.vesko.press(BUTTON, "New project")
        self.vesko.wait_to_find(TEXT, "Project name")
        hands.type_letters("garden")
        hands.tap("return")

    def test_several_notes_are_selected_and_moved_and_taken_back(self):
        self.three_notes_and_a_garden()
        self.vesko.wait_to_find(ROW, "garden")

        hands.click(*self.vesko.wait_to_find(ROW, "three").centre)
        self.chosen("three")
        hands.press("left control")
        hands.click(*self.vesko.wait_to_find(ROW, "one").centre)
        self.chosen("three", "one")
        hands.release("left control")
        self.vesko.wait_to_find("status bar", "2 notes selected")
        hands.press("left shift")
        hands.click(*self.vesko.wait_to_find(ROW, "two").centre)
        self.chosen("two", "one")
        hands.release("left shift")
        hands.tap("escape")
        self.chosen("two")
        hands.tap("left shift", "down")
        self.chosen("two", "one")
        hands.tap("left control", "a")
        self.chosen("one", "two", "three")
        self.vesko.wait_to_find("status bar", "3 notes selected")

        hands.tap("delete")
        self.vesko.wait_to_find("label", "Move 3 notes to Trash?")
        hands.tap("return")
        self.vesko.wait_to_find("status bar", "3 notes moved to Trash")
        self.assertTrue(all("deletedAt" in note for note in self.notes()))
        self.vesko.press(BUTTON, "Undo")
        until("all are back", lambda: not any("deletedAt" in note for note in self.notes()))
        self.chosen("one", "two", "three")

        self.vesko.press("combo box", "Move to project")
        until("the projects are shown", lambda: len([
            node for frame in self.vesko.app.children for node in frame.walk()
            if (node.role, node.name) == (ROW, "garden")]) > 1)
        hands.tap("down")
        hands.tap("down")
        hands.tap("return")
        until("all are in the project", lambda: all(note.get("projectID") for note in self.notes()))
        self.vesko.wait_to_find("status bar", "3 notes moved to another project")

    def test_several_notes_are_exported_to_a_folder(self):
        for letters in ("alpha", "beta"):
            self.new_note(letters)
            self.saved(letters)
        hands.click(*self.vesko.wait_to_find(ROW, "alpha").centre)
        hands.tap("left control", "a")
        self.vesko.wait_to_find("status bar", "2 notes selected")
        self.vesko.press(BUTTON, "Export Markdown…")
        self.vesko.wait_to_find(TEXT, "Folder")
        self.vesko.press(BUTTON, "Save")
        for name in ("alpha", "beta"):
            path = os.path.join(os.environ["HOME"], name + ".md")
            until("it is written", lambda path=path: os.path.exists(path))
            with open(path, encoding="utf-8") as file:
                self.assertIn(name, file.read())

    def test_notes_are_dragged_to_a_project_and_to_the_trash(self):
        self.three_notes_and_a_garden()
        hands.click(*self.vesko.wait_to_find(ROW, "three").centre)
        self.chosen("three")
        for place, dragged in (("garden", ("two",)), ("Trash", ("one", "three"))):
            if len(dragged) > 1:
                hands.click(*self.vesko.wait_to_find(ROW, "one").centre)
                self.chosen("one")
                hands.press("left control")
                hands.click(*self.vesko.wait_to_find(ROW, "three").centre)
                self.chosen("one", "three")
                hands.release("left control")
            left, top, width, height = self.vesko.wait_to_find(ROW, place).bounds
            edge = (left + width // 2, top, 1, 2)
            before = eyes.pixels(*edge)
            hands.carry(self.vesko.wait_to_find(ROW, dragged[0]).centre,
                        (left + width // 2, top + height // 2))
            until(f"{place} shows that it takes it", lambda: eyes.pixels(*edge) != before)
            hands.release_button()
            key = "projectID" if place == "garden" else "deletedAt"
            until(f"{dragged} are there", lambda: sorted(
                note["body"] for note in self.notes() if note.get(key)) == sorted(dragged))
        self.vesko.wait_to_find("status bar", "2 notes moved to Trash")
        self.vesko.press(BUTTON, "Undo")
        until("they are back", lambda: not any("deletedAt" in note for note in self.notes()))

    def test_notes_are_dragged_to_a_file_manager(self):
        for letters in ("alpha", "beta", "gamma"):
            self.new_note(letters)
            self.saved(letters)
        target = subprocess.Popen(
            ["/usr/bin/python3", os.path.join(SERVICES, "drop_target.py")],
            stdout=subprocess.PIPE, text=True)
        self.addCleanup(target.wait)
        self.addCleanup(target.kill)
        self.addCleanup(target.stdout.close)
        self.assertEqual(target.stdout.readline(), "ready\n")
        hands.click(*self.vesko.wait_to_find(ROW, "beta").centre)
        until("beta is selected", lambda: "selected" in self.vesko.wait_to_find(
            ROW, "beta").states and "selected" not in self.vesko.wait_to_find(ROW, "gamma").states)
        hands.press("left control")
        hands.click(*self.vesko.wait_to_find(ROW, "alpha").centre)
        self.vesko.wait_to_find("status bar", "2 notes selected")
        hands.release("left control")
        hands.carry(self.vesko.wait_to_find(ROW, "alpha").centre, (30, 380))
        self.assertEqual(target.stdout.readline(), "over\n")
        # It has answered once the next movement comes too.
        hands.point(32, 384)
        self.assertEqual(target.stdout.readline(), "over\n")
        hands.release_button()
        line = "over"
        while line == "over":
            line = target.stdout.readline().strip()
        files = json.loads(line)
        self.assertEqual(sorted(files), ["alpha.md", "beta.md"])
        for name in ("alpha", "beta"):
            self.assertIn(name, files[name + ".md"])

    def test_the_program_tells_what_it_is(self):
        self.vesko.press("button menu" if self.vesko.find("button menu", "Menu") else BUTTON,
                         "Menu")
        self.vesko.press(ITEM, "About Vesko")
        self.vesko.wait_to_find(None, "Version 0.1.0, build 1\nMIT License\n"
                                      "© 2026 The Vesko developers")
        self.vesko.press(BUTTON, "Copy")
        until("it is on the clipboard", lambda: clipboard.read().startswith("Version 0.1.0"))
        window = eyes.active_window()
        self.assertEqual(eyes.window_property(window, "WM_CLASS"), '"vesko", "vesko"')
        until("the window has its icon", lambda: "Icon (" in eyes.window_property(
            window, "_NET_WM_ICON"))

    def test_the_program_tells_what_works_here(self):
        def report():
            return next((node.name for node in self.vesko.app.walk()
                         if node.name.lstrip().startswith("Versions")), None)

        for _ in range(2):
            self.vesko.press("button menu" if self.vesko.find("button menu", "Menu") else BUTTON,
                             "Menu")
            self.vesko.press(ITEM, "Diagnose…")
            shown = until("it has looked", report)
            for subject in ("Session", "Shortcut", "Microphone", "Recogniser", "Data folder"):
                self.assertIn(subject, shown)
            self.assertIn("Vesko runs: ready", shown)
            self.assertNotIn(self.vesko.root, shown)
            self.vesko.press(BUTTON, "Copy")
            until("it is on the clipboard", lambda: clipboard.read().strip() == shown.strip())
            self.vesko.press(BUTTON, "OK")
            until("it is gone", lambda: not report())

    def test_a_note_is_copied(self):
        self.new_note("copied at once")
        self.vesko.press(BUTTON, "Copy note")
        self.vesko.wait_to_find(BUTTON, "Note copied")
        self.assertEqual(clipboard.read(), "copied at once")
        self.vesko.wait_to_find(BUTTON, "Copy note")

    def test_a_note_is_exported(self):
        self.new_note("to a file")
        self.saved("to a file")
        self.choose("Export Markdown…")
        self.vesko.press(BUTTON, "Save")
        path = os.path.join(os.environ["HOME"], "to a file.md")
        until("the file is written", lambda: os.path.exists(path))
        with open(path, encoding="utf-8") as file:
            self.assertIn("to a file", file.read())

    def test_a_note_goes_to_the_trash_and_comes_back_and_goes_for_good(self):
        self.new_note("waste")
        self.saved("waste")
        self.choose("Move to Trash…")
        self.vesko.wait_to_find("label", "Move this note to Trash?")
        hands.tap("escape")
        until("the question is gone", lambda: not self.vesko.find(BUTTON, "Move to Trash"))
        self.choose("Move to Trash…")
        self.vesko.wait_to_find(BUTTON, "Move to Trash")
        hands.tap("return")
        until("it is in the Trash", lambda: "deletedAt" in self.only_note())
        self.vesko.press(ROW, "Trash")
        self.vesko.press(ROW, "waste")
        self.choose("Restore note")
        until("it is back", lambda: "deletedAt" not in self.only_note())
        self.vesko.wait_to_find("label", "Trash is empty")
        self.vesko.press(ROW, "All notes")
        self.choose("Move to Trash…")
        self.vesko.press(BUTTON, "Move to Trash")
        until("it is in the Trash", lambda: "deletedAt" in self.only_note())
        self.vesko.press(ROW, "Trash")
        self.vesko.press(ROW, "waste")
        self.choose("Delete permanently…")
        self.vesko.press(BUTTON, "Cancel")
        human_pause(0.3)
        self.assertEqual(len(self.notes()), 1)
        self.choose("Delete permanently…")
        self.vesko.press(BUTTON, "Delete permanently")
        until("it is gone", lambda: not self.notes())

    def name_the_project(self, name):
        field = self.vesko.wait_to_find(TEXT, "Project name")
        until("it has the keyboard", lambda: "focused" in field.states)
        hands.type_letters(name)
        until("it is typed", lambda: field.text == name)

    def test_a_project_is_made_renamed_and_given_to_a_note(self):
        self.new_note("bread")
        self.saved("bread")
        self.vesko.press(BUTTON, "New project")
        self.name_the_project("garden")
        self.vesko.press(BUTTON, "Save")
        self.vesko.press(ROW, "garden")
        self.vesko.press(BUTTON, "Rename project")
        self.name_the_project("balcony")
        hands.tap("return")
        self.vesko.wait_to_find(ROW, "balcony")
        self.vesko.press(ROW, "All notes")
        self.vesko.press("combo box", "Project")
        until("the list is open", lambda: [node for node in self.all_of(ROW, "balcony")][1:])
        self.all_of(ROW, "balcony")[-1].activate()
        project = library.read(self.vesko.root)["projects"][0]["id"]
        until("the note is in the project", lambda: self.only_note().get("projectID") == project)
        self.vesko.press(ROW, "Trash")  # and so away with the note's picker, whose list was open
        self.vesko.wait_to_find("label", "Trash is empty")

    def all_of(self, role, name):
        found = []
        for node in self.vesko.app.walk():
            try:
                if node.role == role and node.name == name and "showing" in node.states:
                    found.append(node)
            except eyes.Gone:
                continue
        return found

    def test_a_recording_is_transcribed_again(self):
        self.service.answer("heard badly")
        self.vesko.press(BUTTON, "Record note")
        self.vesko.wait_for("recording")
        self.vesko.press(BUTTON, "Finish recording")
        self.saved("heard badly")
        self.vesko.wait_for("ready")
        self.service.answer("heard well")
        self.vesko.press(BUTTON, "Retry…")
        self.vesko.wait_to_find("label", "Transcribe this original again?")
        self.vesko.press(BUTTON, "Transcribe")
        until("there is a second attempt", lambda: len(
            self.only_note()["recordings"][0]["attempts"]) == 2)
        self.vesko.wait_for("ready")
        self.assertEqual(self.only_note()["recordings"][0]["attempts"][1]["text"], "heard well")

    def test_a_disk_that_fails_is_told_and_nothing_typed_is_lost(self):
        body = self.new_note("kept")
        self.saved("kept")
        document = os.path.join(self.vesko.root, "library.json")
        os.rename(document, document + ".aside")
        os.mkdir(document)
        hands.type_letters(" on")
        self.vesko.wait_to_find(
            "label", "Vesko could not save this change. Check free disk space and access to the "
            "data folder.")
        self.assertEqual(body.text, "kept on")
        # Nor does it quit and leave it behind.
        self.vesko.press(BUTTON, "Dismiss message")
        self.vesko.process.terminate()
        self.vesko.wait_to_find(BUTTON, "Dismiss message")
        self.assertIsNone(self.vesko.process.poll())
        self.assertEqual(body.text, "kept on")
        os.rmdir(document)
        os.rename(document + ".aside", document)
        hands.type_letters(" and on")
        self.saved("kept on and on")
        self.vesko.quit()


if __name__ == "__main__":
    cases.main()
