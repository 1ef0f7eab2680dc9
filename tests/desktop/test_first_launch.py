#!/usr/bin/python3
"""Who recognises speech on a computer that Vesko is new to, and that it stays the user's choice."""

import fcntl
import os
import signal
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, library, settings, voice  # noqa: E402
from lib.service import OpenRouter  # noqa: E402
from lib.vesko import BINARY, Vesko, deployed, forget_key, install_key  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

WELCOME = "Ready to capture. Speech is recognized on this computer, without a key."
READY = "Ready to capture"
WAITING = ("Ready to capture. Speech is recognized on this computer until your password store "
           "(keyring) says whether it holds a key.")
OPENING = "Opening library…"
# What can only be said of a library that is open.
ALREADY = (("label", "A place for your next thought"), ("label", "Your thoughts, ready to use"),
           ("label", "0"))
NO_KEY = "Add your OpenRouter key in Settings. Your audio stays saved."
HEARD = "Heard by the service."


class FirstLaunch(unittest.TestCase):
    def setUp(self):
        settings.remove()
        self.addCleanup(forget_key)

    def shows_no_welcome(self, vesko):
        vesko.wait_for("ready")
        human_pause(1.0)  # it would come once the keyring has been asked
        self.assertIn(READY, vesko.shown())
        self.assertNotIn(WELCOME, vesko.shown())

    def provider_of_a_dictation(self, vesko):
        vesko.dictate(lambda: voice.say(voice.BROTHER))
        attempt = vesko.last_recording()["attempts"][-1]
        return attempt["provider"], attempt.get("text")

    def assert_on_device(self, vesko):
        provider, text = self.provider_of_a_dictation(vesko)
        self.assertEqual(provider, "Apple on-device")
        self.assertTrue(voice.is_understood(voice.BROTHER, text), text)

    def test_on_device_speech_is_chosen_and_said_once(self):
        with Vesko() as vesko:
            vesko.wait_for_text(WELCOME)
            self.assert_on_device(vesko)
            vesko.quit()
        with Vesko() as vesko:
            self.shows_no_welcome(vesko)
            self.assert_on_device(vesko)

    def test_a_library_that_is_long_in_opening_is_not_shown_as_empty(self):
        # Whoever opens a file waits while another has a lease on it.
        root = tempfile.mkdtemp(prefix="library-")
        lock = os.open(os.path.join(root, ".lock"), os.O_RDWR | os.O_CREAT, 0o600)
        self.addCleanup(os.close, lock)
        signal.signal(signal.SIGIO, signal.SIG_IGN)  # which asks for it back
        fcntl.fcntl(lock, fcntl.F_SETLEASE, fcntl.F_WRLCK)
        with Vesko(root=root) as vesko:
            vesko.wait_for_text(OPENING)
            self.assertEqual(vesko.phase, "busy")
            subprocess.run([BINARY], check=True, timeout=20)  # shows the library
            vesko.wait_to_find("label", OPENING)
            for role, name in ALREADY:
                self.assertIsNone(vesko.find(role, name), name)
            self.assertNotIn("focusable", vesko.find("push button", "New note").states)
            cases.picture("library long in opening")
            fcntl.fcntl(lock, fcntl.F_SETLEASE, fcntl.F_UNLCK)
            for role, name in ALREADY:
                vesko.wait_to_find(role, name)
            self.assertIsNone(vesko.find("label", OPENING))
            vesko.wait_for("ready")

    def hang_the_keyring(self):
        pid = eyes.owner_pid("org.freedesktop.secrets")
        os.kill(pid, signal.SIGSTOP)
        self.addCleanup(os.kill, pid, signal.SIGCONT)

    def quits_soon(self, vesko):
        start = time.monotonic()
        vesko.quit()
        self.assertEqual(vesko.process.returncode, 0)
        print(f"       the end took {time.monotonic() - start:.2f} s", flush=True)

    def test_a_keyring_that_hangs_holds_nothing_up(self):
        self.hang_the_keyring()
        with Vesko() as vesko:
            vesko.wait_for_text(WAITING)
            self.assert_on_device(vesko)
            start = time.monotonic()
            subprocess.run([BINARY], check=True, timeout=20)
            print(f"       the second start took {time.monotonic() - start:.2f} s", flush=True)
            vesko.wait_to_find("push button", "New note")
            self.quits_soon(vesko)
        self.assertNotIn("provider", settings.read(), "the keyring has not answered")

    def test_a_key_that_is_waited_for_does_not_hold_up_the_end(self):
        settings.write(firstLaunchDone=True, provider="openrouter", onboardingCompleted=True)
        self.hang_the_keyring()
        # Silence is told before a key is waited for, and "Transcribing" passes by unseen.
        self.addCleanup(voice.Murmur().stop)
        with Vesko() as vesko:
            vesko.begin()
            human_pause(0.5)
            vesko.end()
            until("the recording is being transcribed",
                  lambda: "Transcribing" in vesko.button.description)
            self.quits_soon(vesko)
        self.assertIn(library.recordings(vesko.root)[-1]["status"], ("recorded", "transcribing"))

    def test_what_the_user_chooses_later_stays(self):
        with Vesko() as vesko:
            vesko.wait_for_text(WELCOME)
            vesko.quit()
        settings.write(firstLaunchDone=True, provider="openrouter")
        for _ in range(2):
            with Vesko() as vesko:
                self.shows_no_welcome(vesko)
                self.assertEqual(self.provider_of_a_dictation(vesko), ("OpenRouter", None))
                vesko.wait_for_text(NO_KEY)
                vesko.quit()

    def test_a_language_that_nothing_is_installed_for_leaves_openrouter(self):
        with Vesko(LANG="it_IT.UTF-8") as vesko:
            self.shows_no_welcome(vesko)
            self.assertEqual(self.provider_of_a_dictation(vesko), ("OpenRouter", None))
            vesko.wait_for_text(NO_KEY)
            vesko.quit()
        # The chance is gone with the first launch, whatever becomes of the language.
        with Vesko() as vesko:
            self.shows_no_welcome(vesko)
            self.assertEqual(self.provider_of_a_dictation(vesko), ("OpenRouter", None))

    def test_a_key_that_is_there_first_leaves_openrouter(self):
        with OpenRouter() as service:
            service.answer(HEARD)
            binary = deployed(service.url)
            install_key("test-key", binary)
            for _ in range(2):  # the second time without the installer's settings
                with Vesko(binary) as vesko:
                    self.shows_no_welcome(vesko)
                    self.assertEqual(self.provider_of_a_dictation(vesko), ("OpenRouter", HEARD))
                    vesko.quit()
                settings.remove()


if __name__ == "__main__":
    cases.main()
