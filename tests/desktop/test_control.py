#!/usr/bin/python3
"""Vesko is steered by commands, as a script or a shortcut of the desktop gives them."""

import json
import os
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, settings, voice  # noqa: E402
from lib.programs import Mousepad  # noqa: E402
from lib.vesko import BINARY, Vesko  # noqa: E402
from lib.waiting import until  # noqa: E402


def command(*arguments, **environment):
    """The exit code and what the command printed."""
    done = subprocess.run([BINARY, *arguments], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, timeout=40, env={**os.environ, **environment})
    return done.returncode, done.stdout


class Control(unittest.TestCase):
    def setUp(self):
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)

    def test_a_dictation_goes_into_the_field_that_has_the_focus(self):
        with Mousepad() as editor, Vesko() as vesko:
            vesko.wait_for("ready")
            editor.raise_window()
            self.assertEqual(command("--toggle"), (0, ""))
            self.assertEqual(vesko.phase, "recording")
            voice.say(voice.COFFEE)
            self.assertEqual(command("--toggle"), (0, ""))
            until("the text stands in the editor", lambda: editor.text)
            vesko.wait_for("ready")
            heard = vesko.last_recording()["attempts"][-1]["text"]
            self.assertEqual(editor.text, heard)
            self.assertEqual(command("--stop"), (4, "vesko: nothing is being recorded\n"))

    def test_a_cancelled_dictation_is_kept_and_goes_nowhere(self):
        with Mousepad() as editor, Vesko() as vesko:
            vesko.wait_for("ready")
            editor.raise_window()
            self.assertEqual(command("--start"), (0, ""))
            voice.say(voice.COFFEE)
            self.assertEqual(command("--cancel"), (0, ""))
            vesko.wait_for("ready")
            recording = vesko.last_recording()
            self.assertEqual((recording["status"], recording["attempts"]), ("recorded", []))
            self.assertTrue(os.path.getsize(recording["path"]))
            self.assertEqual(editor.text, "")

    def test_who_follows_reads_each_state(self):
        with Vesko() as vesko:
            vesko.wait_for("ready")
            reader = subprocess.Popen([BINARY, "--follow", "--json"], stdout=subprocess.PIPE,
                                      text=True)
            self.addCleanup(reader.stdout.close)
            self.addCleanup(reader.kill)

            def state():
                return json.loads(reader.stdout.readline())["state"]

            self.assertEqual(state(), "ready")
            command("--start")
            self.assertEqual([state(), state()], ["preparing", "recording"])
            self.assertEqual(command("--quit"), (0, ""))
            until("it has ended", lambda: vesko.process.poll() == 0)
            states = [state()]
            while states[-1] != "stopped":
                states.append(state())

    def test_it_is_started_by_a_word_and_ended_by_one(self):
        root = os.path.join(os.environ["SESSION_DIR"], "by-a-word")
        self.addCleanup(command, "--quit")
        self.assertEqual(command("--status"), (3, "Vesko is not running\n"))
        self.assertEqual(command("--start", VESKO_DATA_ROOT=root), (0, ""))
        code, line = command("--status")
        self.assertEqual((code, line.split()[0]), (0, "Recording"))
        self.assertEqual(command("--cancel"), (0, ""))
        self.assertEqual(command("--quit"), (0, ""))
        self.assertEqual(command("--status"), (3, "Vesko is not running\n"))


if __name__ == "__main__":
    cases.main()
