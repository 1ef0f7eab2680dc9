#!/usr/bin/python3
"""A keyring that is locked and asks the user for its password, who never answers."""

import os
import signal
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, library, media, settings, voice  # noqa: E402
from lib.programs import SERVICES  # noqa: E402
from lib.vesko import BINARY, Vesko, forget_key, install_key  # noqa: E402
from lib.waiting import until  # noqa: E402

WELCOME = "Ready to capture. Speech is recognized on this computer, without a key."
WAITS = ("Original saved. Waiting for the key from your password store (keyring), which may be "
         "asking you to unlock it.")
NAME = "org.freedesktop.secrets"
PASSWORD = b"session\n"  # of the session's ring


def restart_keyring(*options):
    os.kill(eyes.owner_pid(NAME), signal.SIGKILL)
    until("the keyring has gone", lambda: not eyes.owner_pid(NAME))
    daemon = subprocess.Popen(
        ["gnome-keyring-daemon", "--foreground", "--components=secrets", *options],
        stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    daemon.stdin.write(PASSWORD)
    daemon.stdin.close()
    until("the ring is there", lambda: "collection/login" in subprocess.run(
        ["dbus-send", "--session", "--print-reply", "--dest=" + NAME, "/org/freedesktop/secrets",
         "org.freedesktop.Secret.Service.ReadAlias", "string:default"],
        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout)


class LockedKeyring(unittest.TestCase):
    def setUp(self):
        settings.remove()
        restart_keyring("--unlock")
        forget_key()
        self.questions = tempfile.NamedTemporaryFile("r")
        self.addCleanup(self.questions.close)
        with open(self.questions.name, "w") as said:
            prompter = subprocess.Popen([os.path.join(SERVICES, "prompter.py")], stdout=said)
        self.addCleanup(prompter.wait)
        self.addCleanup(prompter.kill)
        until("the prompter is there", self.said)

    def said(self):
        with open(self.questions.name) as file:
            return file.read().split()

    def starts_again_soon(self, vesko):
        start = time.monotonic()
        subprocess.run([BINARY], check=True, timeout=20)
        print(f"       the second start took {time.monotonic() - start:.2f} s", flush=True)
        vesko.wait_to_find("push button", "New note")

    def quits_soon(self, vesko):
        start = time.monotonic()
        vesko.quit()
        self.assertEqual(vesko.process.returncode, 0)
        print(f"       the end took {time.monotonic() - start:.2f} s", flush=True)

    def test_without_a_key_the_first_launch_dictates_and_asks_for_no_password(self):
        restart_keyring()
        with Vesko() as vesko:
            vesko.wait_for_text(WELCOME)
            vesko.dictate(lambda: voice.say(voice.BROTHER))
            attempt = vesko.last_recording()["attempts"][-1]
            self.assertEqual((attempt["provider"], attempt["status"]), ("Apple on-device", "ready"))
            self.starts_again_soon(vesko)
            self.quits_soon(vesko)
        self.assertEqual(self.said(), ["ready"])

    def test_with_a_key_the_first_launch_records_on_and_says_what_the_texts_wait_for(self):
        install_key("test-key")
        settings.remove()  # as before the first launch
        restart_keyring()
        with Vesko() as vesko:
            vesko.begin()
            voice.say(voice.BROTHER)
            vesko.end()
            vesko.wait_for_text(WAITS)
            self.assertEqual(self.said(), ["ready", "open"], "the user is asked once")
            vesko.begin()
            voice.say(voice.BROTHER)
            vesko.end()
            until("the second one is kept", lambda: [
                each["status"] for each in library.recordings(vesko.root)] == ["transcribing"] * 2)
            vesko.wait_for("ready")
            vesko.wait_for_text(WAITS)
            self.assertEqual(self.said(), ["ready", "open"], "the user is asked once")
            self.starts_again_soon(vesko)
            self.quits_soon(vesko)
        with Vesko(root=vesko.root) as vesko:
            vesko.wait_for("ready")
            for recording in library.recordings(vesko.root):
                self.assertEqual(recording["status"], "interrupted")
                self.assertGreater(media.decoded_seconds(recording["path"]), 0.5)
            self.quits_soon(vesko)


if __name__ == "__main__":
    cases.main()
