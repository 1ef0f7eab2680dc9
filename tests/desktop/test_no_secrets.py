#!/usr/bin/python3
"""A desktop without a secret store: the program runs, and no key is written anywhere else."""

import os
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, media, settings, voice  # noqa: E402
from lib.vesko import BINARY, Vesko  # noqa: E402

KEY = "sk-or-a-key-that-must-stand-nowhere"
# A language that no recogniser is installed for, so the first launch leaves OpenRouter chosen.
ITALIAN = "it_IT.UTF-8"
NO_KEYRING = ("No password store (keyring) runs here, so Vesko has no place for keys. Start one, such "
              "as GNOME Keyring, KWallet or KeePassXC, and try again.")


class NoSecrets(unittest.TestCase):
    def setUp(self):
        settings.remove()

    def test_the_key_installer_says_no_and_writes_nothing(self):
        done = subprocess.run([BINARY, "--install-openrouter-key"], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, text=True,
                              env={**os.environ, "OPENROUTER_API_KEY": KEY})
        self.assertEqual(done.returncode, 1)
        self.assertNotIn(KEY, done.stdout + done.stderr)
        self.assertEqual(files_with(KEY), [])

    def test_says_so_when_a_key_is_needed_and_keeps_the_audio(self):
        settings.write(provider="openrouter")
        self.addCleanup(settings.remove)
        with Vesko() as vesko:
            vesko.dictate(lambda: voice.say(voice.BROTHER))
            vesko.wait_for_text("Audio saved. Transcription needs attention.")
            vesko.wait_for_text(NO_KEYRING)
            recording = vesko.last_recording()
            self.assertEqual(recording["status"], "failed")
            self.assertGreater(media.decoded_seconds(recording["path"]), 0.4)

    def test_dictates_on_device(self):
        with Vesko() as vesko:
            vesko.dictate(lambda: voice.say(voice.BROTHER))
            self.assertEqual(vesko.last_recording()["status"], "ready")

    def test_says_that_the_keyring_is_missing_and_keeps_the_audio(self):
        with Vesko(LANG=ITALIAN, OPENROUTER_API_KEY=KEY) as vesko:
            vesko.dictate(lambda: voice.say(voice.BROTHER))
            vesko.wait_for_text(NO_KEYRING)
            vesko.wait_for_text("Audio saved. Transcription needs attention.")
            recording = vesko.last_recording()
            self.assertEqual(recording["status"], "failed")
            self.assertEqual([(attempt["provider"], attempt["status"])
                              for attempt in recording["attempts"]], [("OpenRouter", "failed")])
            self.assertEqual(recording["note"]["body"], "")
            self.assertAlmostEqual(media.decoded_seconds(recording["path"]),
                                   recording["duration"], delta=0.3)
            # It is ready for the next one, and ends as it should.
            vesko.wait_for("ready")
            vesko.quit()
        self.assertNotEqual(files_with("firstLaunchDone"), [], "the search finds what is written")
        self.assertEqual(files_with(KEY), [])


def files_with(text):
    found = subprocess.run(["grep", "-rlF", text, os.environ["SESSION_DIR"]],
                           stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    return found.stdout.split()


if __name__ == "__main__":
    cases.main()
