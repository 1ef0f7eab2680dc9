#!/usr/bin/python3
"""A command prints the text of an audio file, with the recogniser of the settings."""

import os
import pty
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, library, settings, voice  # noqa: E402
from lib.service import OpenRouter  # noqa: E402
from lib.vesko import BINARY, Vesko, deployed, install_key  # noqa: E402


class Transcribe(unittest.TestCase):
    def setUp(self):
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)
        self.folder = tempfile.mkdtemp()
        self.root = os.path.join(self.folder, "library")

    def run_command(self, *arguments, binary=BINARY, stderr=subprocess.PIPE):
        """The exit code, what was printed, and the complaint."""
        done = subprocess.run([binary, "--transcribe", *arguments], stdout=subprocess.PIPE,
                              stderr=stderr, text=True, timeout=60,
                              env={**os.environ, "VESKO_DATA_ROOT": self.root})
        return done.returncode, done.stdout, done.stderr

    def converted(self, name, *options):
        path = os.path.join(self.folder, name)
        subprocess.run(["ffmpeg", "-loglevel", "error", "-i", voice.recording_of(voice.COFFEE),
                        *options, path], check=True)
        return path

    def test_files_of_many_kinds_become_text_on_this_computer(self):
        for path in (voice.recording_of(voice.COFFEE), self.converted("a.mp3"),
                     self.converted("a.ogg"), self.converted("a.flac"), self.converted("a.m4a")):
            code, text, complaint = self.run_command(path)
            self.assertEqual((code, complaint), (0, ""), path)
            self.assertTrue(voice.is_understood(voice.COFFEE, text.strip()), (path, text))
        self.assertFalse(os.path.exists(self.root))

    def test_what_is_no_sound_is_refused_in_words(self):
        damaged = self.converted("damaged.mp3")
        with open(damaged, "wb") as file:
            file.write(b"words" * 1000)
        pipe = os.path.join(self.folder, "pipe")
        os.mkfifo(pipe)
        for path, why in ((damaged, "there is no sound in this file that can be read"),
                          (pipe, "this is no file with sound"),
                          (self.folder, "this is no file with sound"),
                          (os.path.join(self.folder, "nowhere"), "there is no such file")):
            self.assertEqual(self.run_command(path), (1, "", f"vesko: {why}\n"))
        self.assertEqual(self.run_command(voice.recording_of(voice.COFFEE), "--language", "xx"),
                         (1, "", "vesko: nothing is installed that recognises this language here\n"))

    def test_a_terminal_shows_how_far_it_is(self):
        ours, theirs = pty.openpty()
        try:
            code, text, _ = self.run_command(voice.recording_of(voice.COFFEE), stderr=theirs)
            self.assertEqual(code, 0)
            self.assertIn(b" %", os.read(ours, 4096))
        finally:
            os.close(ours)
            os.close(theirs)

    def test_the_service_is_asked_if_the_settings_say_so(self):
        with OpenRouter() as service:
            service.answer("what the service heard")
            binary = deployed(service.url)
            install_key("test-key", binary)
            self.assertEqual(self.run_command(voice.recording_of(voice.COFFEE), binary=binary),
                             (0, "what the service heard\n", ""))

    def test_the_engine_of_the_settings_is_asked_and_no_other(self):
        command = '/bin/sh -c "echo what the engine heard" {wav}'
        for engine, expected in (
                ("command", (0, "what the engine heard\n", "")),
                ("whisper.cpp/nowhere",
                 (1, "", "vesko: the speech engine of the settings isn't there\n"))):
            settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True,
                           engine=engine, engineCommand=command)
            self.assertEqual(self.run_command(voice.recording_of(voice.COFFEE)), expected)

    def test_what_is_kept_is_a_note_of_the_library(self):
        code, text, _ = self.run_command(voice.recording_of(voice.COFFEE), "--keep")
        self.assertEqual(code, 0)
        recording = library.recordings(self.root)[0]
        self.assertEqual(recording["note"]["body"], text.rstrip("\n"))
        self.assertEqual(recording["status"], "ready")
        self.assertTrue(os.path.getsize(recording["path"]))

        with Vesko(root=self.root) as vesko:
            vesko.wait_for("ready")
            code, text, complaint = self.run_command(voice.recording_of(voice.COFFEE), "--keep")
            self.assertEqual((code, text), (4, ""))
            self.assertIn("end Vesko first", complaint)
        self.assertEqual(len(library.recordings(self.root)), 1)


if __name__ == "__main__":
    cases.main()
