#!/usr/bin/python3
"""A session of GNOME without any X11, where a program without the focus can copy nothing."""

import os
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, clipboard, eyes, gnome, hands, settings  # noqa: E402
from lib.programs import Mousepad  # noqa: E402
from lib.service import OpenRouter  # noqa: E402
from lib.vesko import deployed, install_key  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

NOT_COPIED = ("The text is saved, but the clipboard could not be updated. Copy it from your note.")


class Alone(unittest.TestCase):
    def command(self, *arguments):
        done = subprocess.run([self.binary, *arguments], stdout=subprocess.PIPE, text=True,
                              timeout=30)
        self.assertEqual(done.returncode, 0)
        return done.stdout.strip()

    def test_what_the_compositor_does_not_take_is_not_said_to_be_copied(self):
        service = OpenRouter()
        self.addCleanup(service.stop)
        self.binary = deployed(service.url)
        install_key("test-key", self.binary)
        settings.write(**{**settings.read(), "firstLaunchDone": True, "onboardingCompleted": True})
        service.answer("Nobody can paste this.")
        hands.plug_in()
        with Mousepad() as editor, open(os.devnull, "w") as nobody:
            vesko = subprocess.Popen(
                [self.binary, "--background"], stdout=nobody, stderr=nobody,
                env={**os.environ, "VESKO_DATA_ROOT": tempfile.mkdtemp()})
            self.addCleanup(vesko.wait)
            self.addCleanup(vesko.kill)
            app = until("Vesko is accessible", lambda: eyes.application(vesko.pid))
            until("Vesko is ready", lambda: "Ready" in self.command("--status"))
            clipboard.write("what was copied before")
            self.command("--start")
            until("Vesko records", lambda: "Recording" in self.command("--status"))
            human_pause(1.5)  # it would be asked by then whether Vesko may press keys
            self.assertEqual([window["pid"] for window in gnome.windows()], [editor.pid])
            self.command("--stop")
            until("Vesko says that nothing was copied", lambda: app.find(name=NOT_COPIED))
            self.assertEqual(editor.text, "")
            self.assertEqual(clipboard.read(), "what was copied before")
            report = subprocess.run([self.binary, "--doctor"], stdout=subprocess.PIPE, text=True,
                                    check=False).stdout
            self.assertIn("Wayland; nothing can be copied or pasted while another", report)


if __name__ == "__main__":
    cases.main()
