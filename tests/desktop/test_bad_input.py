#!/usr/bin/python3
"""Files that are not what they should be: the program says so, and they stay as they were."""

import fcntl
import json
import os
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, library, settings  # noqa: E402
from lib.vesko import BINARY, Vesko  # noqa: E402

UNREADABLE = ("The library could not be read. Your files were preserved. Open the data folder to "
              "recover its backup.")
NEWER = "This library was made by a newer Vesko. Update the app before opening it."
BUSY = "Vesko is already using this library. Open the running app instead."


class BadInput(unittest.TestCase):
    def setUp(self):
        self.addCleanup(settings.remove)

    def refuses(self, content, message):
        root = tempfile.mkdtemp()
        path = os.path.join(root, "library.json")
        with open(path, "wb") as file:
            file.write(content)
        with Vesko(root=root) as vesko:
            vesko.wait_for_text(message)
            self.assertEqual(vesko.phase, "busy")
        with open(path, "rb") as file:
            self.assertEqual(file.read(), content)
        self.assertEqual(sorted(os.listdir(root)), [".lock", "library.json"])

    def test_a_library_cut_off_in_the_middle(self):
        self.refuses(b'{\n  "notes" : [\n', UNREADABLE)

    def test_the_window_says_so_and_opens_the_folder(self):
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)
        root = tempfile.mkdtemp()
        with open(os.path.join(root, "library.json"), "wb") as file:
            file.write(b"{")
        with Vesko(root=root, arguments=()) as vesko:
            vesko.wait_to_find("label", "The library could not be opened")
            vesko.wait_to_find("label", UNREADABLE)
            vesko.wait_to_find("status bar", "The library could not be opened")
            vesko.wait_to_find("push button", "Open data folder")
            self.assertIsNone(vesko.find("alert", UNREADABLE), "it stands once")

    def test_a_library_that_is_no_text(self):
        self.refuses(b'{"schemaVersion":1,"projects":[],"notes":[],"x":"\xff\xfe"}', UNREADABLE)

    def test_a_library_nested_without_end(self):
        self.refuses(b'{"schemaVersion":1,"projects":[],"notes":' + b"[" * 1_000_000, UNREADABLE)

    def test_a_library_of_a_later_version(self):
        self.refuses(json.dumps({"schemaVersion": 2, "pages": []}).encode(), NEWER)

    def test_a_library_that_another_process_uses(self):
        root = tempfile.mkdtemp()
        with open(os.path.join(root, ".lock"), "w") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            with Vesko(root=root) as vesko:
                vesko.wait_for_text(BUSY)
                self.assertEqual(vesko.phase, "busy")
        self.assertEqual(os.listdir(root), [".lock"])

    def test_settings_of_the_wrong_kind(self):
        settings.write(pasteEnabled="yes", fnEnabled="no", sttModel=True, gestureKey="Hyper")
        with Vesko() as vesko:
            vesko.wait_for("ready")

    def test_settings_that_are_damaged(self):
        settings.write(provider="openrouter")
        with open(settings.path(), "wb") as file:
            file.write(b"\xbf\x61")
        with Vesko() as vesko:
            vesko.wait_for("ready")
            vesko.quit()
        folder = os.path.dirname(settings.path())
        kept = [open(os.path.join(folder, name), "rb").read() for name in os.listdir(folder)]
        self.assertIn(b"\xbf\x61", kept)

    def test_a_data_folder_that_is_no_absolute_path(self):
        with tempfile.TemporaryDirectory() as folder:
            with Vesko(root="relative", folder=folder) as vesko:
                vesko.wait_for("ready")
            self.assertEqual(os.listdir(folder), [])
            self.assertTrue(os.path.exists(
                os.path.join(os.environ["XDG_DATA_HOME"], "Vesko", ".lock")))

    def test_an_unknown_argument(self):
        done = subprocess.run([BINARY, "--no-such-thing"], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, text=True, timeout=20)
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("unknown argument", done.stderr)
        self.assertIsNone(library.read(os.path.join(os.environ["XDG_DATA_HOME"], "Vesko")))


if __name__ == "__main__":
    cases.main()
