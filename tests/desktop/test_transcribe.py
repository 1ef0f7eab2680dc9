#!/usr/bin/python3
"""A command prints the text of an audio file, with the recogniser of the settings."""

import os
import pty
import signal
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, library, settings, voice  # noqa: E402
from lib.service import OpenRouter  # noqa: E402
from lib.vesko import BINARY, Vesko, deployed, install_key  # noqa: E402
from lib.waiting import until  # noqa: E402

# Where a disk can be mounted that nobody else sees.
APART = ("unshare", "--user", "--map-root-user", "--mount")


def running(name):
    """The commands of the processes that were started with this name."""
    found = []
    for process in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open(f"/proc/{process}/cmdline", "rb") as file:
                command = file.read().split(b"\0")
        except OSError:
            continue  # it has just ended
        if name.encode() in command:
            found.append(command)
    return found


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

    def test_what_is_interrupted_leaves_nothing(self):
        engine = os.path.join(self.folder, "engine")
        heard = os.path.join(self.folder, "heard")
        with open(engine, "w", encoding="utf-8") as file:
            file.write(f"#!/bin/sh\necho >{heard}; sleep 120; true\n")
        os.chmod(engine, 0o700)
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True,
                       engine="command", engineCommand=engine + " {wav}")
        temporary = os.path.join(self.folder, "temporary")
        os.mkdir(temporary)
        process = subprocess.Popen(
            [BINARY, "--transcribe", voice.recording_of(voice.COFFEE), "--keep"],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
            env={**os.environ, "VESKO_DATA_ROOT": self.root, "TMPDIR": temporary})
        until("the engine hears it", lambda: os.path.exists(heard))
        # A shell that has just forked is two of its name.
        until("one engine runs", lambda: len(running(engine)) == 1)
        process.send_signal(signal.SIGINT)
        said, complaint = process.communicate(timeout=30)
        self.assertEqual((process.returncode, said, complaint), (130, "", "vesko: interrupted\n"))
        self.assertEqual(running(engine), [])
        self.assertEqual(os.listdir(temporary), [])
        self.assertEqual(library.recordings(self.root), [])

    @unittest.skipIf(subprocess.run([*APART, "true"], check=False).returncode,
                     "no small disk can be made here")
    def test_what_there_is_no_room_for_leaves_no_note(self):
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True,
                       engine="command",
                       engineCommand='/bin/sh -c "echo what the engine heard" {wav}')

        def on_a_disk_of(size):
            os.makedirs(self.root, exist_ok=True)
            done = subprocess.run(
                [*APART, "sh", "-c",
                 f'mount -t tmpfs -o size={size} none "$VESKO_DATA_ROOT" || exit 99; "$@"; '
                 'echo $?; cat "$VESKO_DATA_ROOT"/library.json 2>/dev/null; ls "$VESKO_DATA_ROOT/recordings"',
                 "sh", BINARY, "--transcribe", voice.recording_of(voice.COFFEE), "--keep"],
                stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, timeout=60,
                env={**os.environ, "VESKO_DATA_ROOT": self.root})
            text, code, document = done.stdout.split("\n", 2)
            return text, code, document.count('"createdAt"'), document.count(".m4a"), done.stderr

        text, code, records, _, complaint = on_a_disk_of("1m")
        self.assertEqual((text, code, records, complaint), ("what the engine heard", "0", 2, ""))
        text, code, records, files, complaint = on_a_disk_of("40k")
        self.assertEqual((text, code, records, files), ("what the engine heard", "1", 0, 0))
        self.assertEqual(complaint, "vesko: No space left on device; nothing was kept\n")


if __name__ == "__main__":
    cases.main()
