#!/usr/bin/python3
"""What takes room and is old goes, if the user has said so; the Trash is emptied by hand."""

import json
import os
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, library, settings  # noqa: E402
from lib.vesko import Vesko  # noqa: E402
from lib.waiting import until  # noqa: E402

BUTTON, ROW, CHOICE, LABEL = "push button", "list item", "combo box", "label"


class Storage(unittest.TestCase):
    def setUp(self):
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)
        self.root = os.path.join(tempfile.mkdtemp(), "Vesko")

    def start(self, **environment):
        vesko = Vesko(root=self.root, arguments=(), **environment)
        self.addCleanup(vesko.kill)
        vesko.wait_for("ready")
        return vesko

    def audio(self):
        return sorted(os.listdir(os.path.join(self.root, "recordings")))

    def make(self):
        library.write(self.root, 2)  # of a year ago
        for recording in library.recordings(self.root):
            with open(recording["path"], "wb") as file:
                file.write(b"sound")

    def choose(self, vesko, picker, row):
        until("the choice", lambda: vesko.app.find(CHOICE, picker)).activate()
        vesko.press(ROW, row)

    def test_old_audio_goes_only_if_wanted_and_the_note_says_so(self):
        self.make()
        vesko = self.start(VESKO_DEMO_SCENE="settings")
        vesko.settings_page("Availability and storage")
        self.choose(vesko, "Remove recordings", "After 90 days")
        vesko.wait_to_find(LABEL, "Remove the audio of old recordings?")
        vesko.press(BUTTON, "Cancel")
        until("the question is gone",
              lambda: not vesko.find(LABEL, "Remove the audio of old recordings?"))
        self.assertEqual(len(self.audio()), 2)
        self.assertNotIn("removeRecordingsAfter", settings.read())

        self.choose(vesko, "Remove recordings", "After 90 days")
        vesko.press(BUTTON, "Remove")
        until("the audio is gone", lambda: not self.audio())
        self.assertEqual(settings.read()["removeRecordingsAfter"], "90")
        for recording in library.recordings(self.root):
            self.assertTrue(recording["audioRemovedAt"])
            self.assertTrue(recording["attempts"][0]["text"])
        vesko.quit()

        vesko = self.start()
        vesko.press(ROW, "Dictation")
        until("it says that the audio was removed", lambda: any(
            node.name.startswith("Audio removed to save room: ") for node in vesko.app.walk()))
        self.assertIsNone(vesko.find(BUTTON, "Play or stop original recording"))

    def test_the_trash_is_emptied_of_what_is_old_only_if_wanted(self):
        self.make()
        document = library.read(self.root)
        document["notes"][0]["deletedAt"] = document["notes"][0]["updatedAt"]
        with open(os.path.join(self.root, "library.json"), "w", encoding="utf-8") as file:
            json.dump(document, file)
        kept = document["notes"][1]["id"]
        vesko = self.start(VESKO_DEMO_SCENE="settings")
        self.assertEqual(len(library.read(self.root)["notes"]), 2)
        vesko.settings_page("Availability and storage")
        self.choose(vesko, "Empty Trash", "After 30 days")
        vesko.wait_to_find(LABEL, "Delete old notes in the Trash?")
        self.assertEqual(len(library.read(self.root)["notes"]), 2)
        vesko.press(BUTTON, "Delete permanently")
        until("the old one is gone", lambda: [note["id"] for note in library.read(self.root)["notes"]]
              == [kept])
        until("and its recording", lambda: len(self.audio()) == 1)

    def test_the_trash_is_emptied_by_hand_once_the_user_agrees(self):
        note = {"id": "6C1F1A52-3C0B-4C55-9B7E-0B8E3C7D9A10", "kind": "text", "title": "Balcony",
                "body": "tomatoes", "createdAt": "2026-01-02T03:04:05Z",
                "updatedAt": "2026-01-02T03:04:05Z", "recordings": []}
        gone = {**note, "id": "6C1F1A52-3C0B-4C55-9B7E-0B8E3C7D9A11", "title": "Cellar",
                "deletedAt": "2026-01-03T03:04:05Z"}
        library.write_document(self.root, notes=[note, gone])
        vesko = self.start()
        vesko.press(ROW, "Trash")
        vesko.wait_to_find(ROW, "Cellar")
        question = "Delete all notes in the Trash permanently?"
        vesko.press(BUTTON, "Empty Trash…")
        vesko.wait_to_find(LABEL, question)
        vesko.press(BUTTON, "Cancel")
        until("the question is gone", lambda: not vesko.find(LABEL, question))
        self.assertEqual(len(library.read(self.root)["notes"]), 2)

        vesko.press(BUTTON, "Empty Trash…")
        vesko.press(BUTTON, "Empty Trash")
        vesko.wait_to_find(LABEL, "Trash is empty")
        until("it is saved", lambda: [one["title"] for one in library.read(self.root)["notes"]]
              == ["Balcony"])


if __name__ == "__main__":
    cases.main()
