#!/usr/bin/python3
"""The whole library goes out into a file and comes in again, by the menu and by a command; so does
the dictionary as a table."""

import json
import os
import signal
import subprocess
import sys
import tempfile
import unittest
import zipfile

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, clipboard, eyes, hands, library, settings  # noqa: E402
from lib.vesko import BINARY, Vesko  # noqa: E402
from lib.waiting import until  # noqa: E402

BUTTON, ITEM, TEXT = "push button", "menu item", "text"
DONE = "Library exported"


def make_library(folder, notes=3):
    """A library of dictated notes, each with the sound of its recording."""
    root = os.path.join(folder, "Vesko")
    library.write(root, notes)
    for recording in library.recordings(root):
        with open(recording["path"], "wb") as file:
            file.write(recording["id"].encode() * 100)
    return root


def answer(vesko, path, agree):
    """Answers the window's question for a path, as somebody does who has it on the clipboard."""
    field = vesko.wait_to_find(TEXT, "File")
    until("the field has the keyboard", lambda: "focused" in field.states
          and eyes.active_pid() == vesko.process.pid)
    clipboard.write(path)
    hands.tap("left control", "a")
    hands.tap("left control", "v")
    until("the path stands there", lambda: field.text == path)
    vesko.press(BUTTON, agree)


def sounds(root):
    """What each recording of the library sounds like."""
    found = {}
    for recording in library.recordings(root):
        with open(recording["path"], "rb") as file:
            found[recording["id"]] = file.read()
    return found


class Exchange(unittest.TestCase):
    def setUp(self):
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)
        self.folder = tempfile.mkdtemp()
        self.archive = os.path.join(self.folder, "all.zip")

    def start(self, root):
        vesko = Vesko(root=root, arguments=())
        self.addCleanup(vesko.kill)
        vesko.wait_for("ready")
        return vesko

    def ask(self, vesko, what, path):
        """Chooses it in the menu, and answers the question for a path."""
        vesko.press(None, "Menu")
        vesko.press(ITEM, what)
        answer(vesko, path, "Save" if what.startswith("Export") else "Import")

    def test_a_library_moves_to_an_empty_one_and_is_not_doubled(self):
        source = make_library(self.folder)
        vesko = self.start(source)
        self.ask(vesko, "Export library…", self.archive)
        vesko.wait_to_find(None, DONE)
        vesko.quit()

        root = os.path.join(self.folder, "other")
        vesko = self.start(root)
        self.ask(vesko, "Import library…", self.archive)
        vesko.wait_to_find(None, "Notes imported: 3")
        self.ask(vesko, "Import library…", self.archive)
        vesko.wait_to_find(None, "All notes of this archive are here already.")
        self.assertEqual(library.read(root)["notes"], library.read(source)["notes"])
        self.assertEqual(sounds(root), sounds(source))
        self.assertEqual(sorted(os.listdir(os.path.join(root, "recordings"))),
                         sorted(os.listdir(os.path.join(source, "recordings"))))

    def test_a_library_joins_a_filled_one(self):
        source = make_library(os.path.join(self.folder, "first"), notes=2)
        code = subprocess.run([BINARY, "--export", self.folder], stdout=subprocess.PIPE, text=True,
                              env={**os.environ, "VESKO_DATA_ROOT": source}, check=True)
        archive = code.stdout.rstrip("\n")
        self.assertEqual(os.path.dirname(archive), self.folder)
        root = make_library(os.path.join(self.folder, "second"), notes=4)
        before = library.read(root)["notes"]
        vesko = self.start(root)
        self.ask(vesko, "Import library…", archive)
        vesko.wait_to_find(None, "Notes imported: 2")
        self.assertEqual(library.read(root)["notes"], before + library.read(source)["notes"])

    def test_who_cancels_finds_nothing(self):
        root = make_library(self.folder)
        # Long enough to be cancelled, and no room on the disk until then.
        os.truncate(library.recordings(root)[0]["path"], 8 << 30)
        vesko = self.start(root)
        target = os.path.join(self.folder, "target")
        os.mkdir(target)
        self.ask(vesko, "Export library…", os.path.join(target, "all.zip"))
        vesko.press(BUTTON, "Cancel")
        vesko.wait_to_find(None, "Cancelled. Nothing was changed.")
        self.assertEqual(os.listdir(target), [])

    def test_a_strange_file_is_refused_in_words(self):
        root = make_library(self.folder)
        before = library.read(root)
        vesko = self.start(root)
        with zipfile.ZipFile(self.archive, "w") as file:
            file.writestr("../../escaped", "bad")
            file.writestr("library.json", json.dumps({"schemaVersion": 1}))
        self.ask(vesko, "Import library…", self.archive)
        vesko.wait_to_find(None, "This file is no library that Vesko has exported, or it is "
                                 "damaged. Nothing was changed.")
        self.assertEqual(library.read(root), before)

    def test_a_dictation_goes_on_beside_an_export(self):
        vesko = self.start(make_library(self.folder))
        vesko.begin()
        self.ask(vesko, "Export library…", self.archive)
        until("it is exported", lambda: os.path.exists(self.archive))
        self.assertEqual(vesko.phase, "recording")
        vesko.end()
        vesko.wait_for("ready")
        self.assertEqual(len(library.read(vesko.root)["notes"]), 4)

    def test_a_command_exports_beside_the_program_that_runs(self):
        vesko = self.start(make_library(self.folder))
        command = [BINARY, "--export", self.folder]
        path = subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True,
                              env={**os.environ, "VESKO_DATA_ROOT": vesko.root}).stdout[:-1]
        with zipfile.ZipFile(path) as archive:
            names = archive.namelist()
            self.assertEqual(json.loads(archive.read("library.json")), library.read(vesko.root))
        self.assertEqual(sum(name.endswith(".m4a") for name in names), 3)
        self.assertEqual(sum(name.endswith(".md") for name in names), 3)

    def test_a_command_that_can_export_nothing_says_why(self):
        def run(folder, root):
            done = subprocess.run([BINARY, "--export", folder], stdout=subprocess.PIPE,
                                  stderr=subprocess.STDOUT, text=True, timeout=30,
                                  env={**os.environ, "VESKO_DATA_ROOT": root})
            return done.returncode, done.stdout

        root = make_library(self.folder)
        nowhere = os.path.join(self.folder, "nowhere")
        self.assertEqual(run(nowhere, root), (1, "vesko: there is no such folder\n"))
        self.assertEqual(run(self.folder, nowhere), (1, "vesko: there is no library yet\n"))
        os.remove(os.path.join(root, "library.json"))
        os.mkfifo(os.path.join(root, "library.json"))
        self.assertEqual(run(self.folder, root)[0], 1)

    def test_a_command_that_is_interrupted_leaves_nothing(self):
        root = make_library(self.folder)
        os.truncate(library.recordings(root)[0]["path"], 8 << 30)
        target = os.path.join(self.folder, "target")
        os.mkdir(target)
        process = subprocess.Popen([BINARY, "--export", target], stderr=subprocess.DEVNULL,
                                   env={**os.environ, "VESKO_DATA_ROOT": root})
        until("it writes", lambda: any(os.path.getsize(os.path.join(target, name)) > 1 << 20
                                       for name in os.listdir(target)))
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(timeout=30), 130)
        self.assertEqual(os.listdir(target), [])


class Dictionary(unittest.TestCase):
    def test_terms_come_in_from_a_table_and_go_out(self):
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)
        folder = tempfile.mkdtemp()
        path = os.path.join(folder, "terms.csv")
        with open(path, "w", encoding="utf-8") as file:
            file.write("original;replacement\nseeder;cedar\ntallki;Talky\n")
        vesko = Vesko(root=os.path.join(folder, "library"), VESKO_DEMO_SCENE="dictionary")
        self.addCleanup(vesko.kill)
        for button, agree, told in (("Import…", "Import", "Terms imported: 2"),
                                    ("Export…", "Save", "Dictionary exported")):
            vesko.press(BUTTON, button)
            answer(vesko, path, agree)
            vesko.wait_to_find("status bar", told)
        with open(path, encoding="utf-8", newline="") as file:
            self.assertEqual(file.read(), "original,replacement,enabled\r\n"
                                          "seeder,cedar,true\r\ntallki,Talky,true\r\n")


if __name__ == "__main__":
    cases.main()
