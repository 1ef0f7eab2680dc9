#!/usr/bin/python3
"""A session with a compositor and without any X11."""

import os
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, clipboard, eyes, sway, voice  # noqa: E402
from lib.programs import Mousepad  # noqa: E402
from lib.vesko import BINARY  # noqa: E402
from lib.waiting import until  # noqa: E402


class Alone(unittest.TestCase):
    def command(self, *arguments):
        done = subprocess.run([BINARY, *arguments], stdout=subprocess.PIPE, text=True, timeout=30)
        self.assertEqual(done.returncode, 0)
        return done.stdout.strip()

    def test_a_dictation_lands_without_the_control(self):
        with Mousepad() as editor, open(os.devnull, "w") as nobody:
            vesko = subprocess.Popen([BINARY, "--background"], stdout=nobody, stderr=nobody, env={
                **os.environ, "VESKO_DATA_ROOT": tempfile.mkdtemp()})
            self.addCleanup(vesko.wait)
            self.addCleanup(vesko.kill)
            until("Vesko is accessible", lambda: eyes.application(vesko.pid))
            until("Vesko is ready", lambda: "Ready" in self.command("--status"))
            # Nothing could keep the control above other windows here.
            self.assertNotIn("Vesko", [view["name"] for view in sway.views()])

            editor.raise_window()
            self.command("--start")
            voice.say(voice.BROTHER)
            self.command("--stop")
            until("the text stands in the editor", lambda: editor.text != "", deadline=30)
            self.assertTrue(voice.is_understood(voice.BROTHER, editor.text), editor.text)
            self.assertEqual(clipboard.read(), editor.text)


if __name__ == "__main__":
    cases.main()
