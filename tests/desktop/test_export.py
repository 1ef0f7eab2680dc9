#!/usr/bin/python3
"""A note is exported through the desktop's own save dialog, and without one all the same."""

import os
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, hands, library, settings  # noqa: E402
from lib.portal import Portal  # noqa: E402
from lib.vesko import Vesko  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

BUTTON, ITEM, ROW, TEXT = "push button", "menu item", "list item", "text"
NOTE = {"id": "6C1F1A52-3C0B-4C55-9B7E-0B8E3C7D9A10", "kind": "text", "title": "Balcony",
        "body": "tomatoes", "createdAt": "2026-01-02T03:04:05Z",
        "updatedAt": "2026-01-02T03:04:05Z", "recordings": []}
EXPORTED = "# Balcony\n\ntomatoes\n"
TITLE = "Export Markdown…"
DONE = "Markdown exported"


class Export(unittest.TestCase):
    def setUp(self):
        self.portal = Portal()
        self.addCleanup(self.portal.kill)
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)
        self.offered = os.path.join(os.environ["HOME"], "Balcony.md")
        if os.path.exists(self.offered):
            os.remove(self.offered)
        self.folder = tempfile.mkdtemp()
        root = os.path.join(self.folder, "Vesko")
        library.write_document(root, notes=[NOTE])
        self.vesko = Vesko(root=root, arguments=())
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_for("ready")
        self.vesko.press(ROW, "Balcony")

    def ask(self):
        self.vesko.press(BUTTON, "Note actions")
        self.vesko.press(ITEM, TITLE)

    def dialog(self):
        self.ask()
        return self.portal.dialog()

    def written(self, path):
        until(f"{path} is written", lambda: os.path.exists(path))
        with open(path, encoding="utf-8") as file:
            self.assertEqual(file.read(), EXPORTED)
        self.vesko.wait_to_find(None, DONE)

    def nothing_happened(self):
        until("the dialog is gone", lambda: not self.portal.has_dialog())
        human_pause(0.5)
        self.assertIsNone(self.vesko.find("label", TITLE))
        self.assertIsNone(self.vesko.find(None, DONE))
        self.assertEqual(self.vesko.button.description.split("\n"), ["Ready", "Ready to capture"])

    def test_the_dialog_offers_a_name_and_the_note_is_saved_there(self):
        dialog = self.dialog()
        self.assertEqual(dialog.name, TITLE)
        self.assertTrue(self.portal.dialog_is_above(self.vesko.process.pid))
        name = dialog.find(TEXT)
        until("the name is offered", lambda: name.text == "Balcony.md")
        dialog.find(BUTTON, "Save").activate()
        self.written(self.offered)

    def test_the_user_writes_another_place_and_name(self):
        dialog = self.dialog()
        path = os.path.join(self.folder, "Öl & 100% #1?.md")
        dialog.find(TEXT).write(path)
        dialog.find(BUTTON, "Save").activate()
        self.written(path)

    def test_who_cancels_hears_nothing_of_it(self):
        self.dialog().find(BUTTON, "Cancel").activate()
        self.nothing_happened()

    def test_who_leaves_the_dialog_by_a_key_hears_nothing_of_it(self):
        self.dialog()
        until("the dialog has the keyboard", lambda: eyes.active_pid() not in
              (0, self.vesko.process.pid))
        hands.tap("escape")
        self.nothing_happened()

    def test_a_portal_that_ends_takes_its_dialog_along(self):
        self.dialog()
        self.portal.kill()
        human_pause(0.5)
        self.assertIsNone(self.vesko.find("label", TITLE))
        # Without it the path is asked for in the window.
        self.ask()
        self.vesko.wait_to_find("label", TITLE)
        self.vesko.press(BUTTON, "Save")
        self.written(self.offered)

    def test_a_portal_that_hangs_holds_nothing_up(self):
        self.portal.freeze()
        self.ask()
        self.vesko.press(BUTTON, "New note")
        until("the new note is shown", lambda: self.vesko.wait_to_find(TEXT, "Note text").text == "")
        self.vesko.press(ROW, "Balcony")
        self.vesko.wait_to_find("label", TITLE)
        self.portal.thaw()
        human_pause(2.0)  # its dialog comes, too late, and is closed
        until("no dialog is left", lambda: not self.portal.has_dialog())
        self.vesko.press(BUTTON, "Cancel")

    def test_a_folder_that_nobody_may_write_to_is_told(self):
        dialog = self.dialog()
        dialog.find(TEXT).write("/proc/Balcony.md")
        dialog.find(BUTTON, "Save").activate()
        self.vesko.wait_to_find("label", "Vesko could not complete this operation. Your saved files "
                                         "were preserved. Check the data folder and try again.")


if __name__ == "__main__":
    cases.main()
