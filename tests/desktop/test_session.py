#!/usr/bin/python3
"""What becomes of a dictation when the session around it is locked, put to sleep or ended, and when
its sound server hangs."""

import json
import os
import signal
import subprocess
import sys
import time
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, clipboard, hands, library, media, settings  # noqa: E402
from lib.programs import SERVICES, Mousepad  # noqa: E402
from lib.service import OpenRouter  # noqa: E402
from lib.vesko import REPOSITORY, Vesko, deployed, install_key  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

HOST = os.path.join(REPOSITORY, "tests/linux/desktop/session_host")
KEY = "right control"
SENT = "Copied. Paste sent to the original field."
LOCKED = "Copied. The session was locked, so Vesko did not paste. Paste it with Ctrl+V."
WORDS = "Said before the screen was locked."


class Told:
    """A program that answers each line with one."""

    def __init__(self, *command):
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        text=True)
        self.first = self.process.stdout.readline().strip()

    def tell(self, command):
        print(command, file=self.process.stdin, flush=True)
        return self.process.stdout.readline().strip()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.communicate()


class Host(Told):
    """The screen saver and the logind of a desktop, of an unlocked session."""

    def __init__(self):
        super().__init__(HOST)
        self.tell("saver off")
        self.tell("hint off")

    def lock(self, vesko, command):
        """Locks or unlocks the session; returns when the program knows."""
        told = vesko.log().count("session_locked=")
        self.tell(command)
        until("Vesko knows", lambda: vesko.log().count("session_locked=") == told + 1)

    def delays(self):
        return json.loads(self.tell("delays"))["delays"]

    def monitors(self):
        return json.loads(self.tell("monitors"))["monitors"]

    def may_end(self):
        return json.loads(self.tell("answered"))["answered"]


class Session(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.service = OpenRouter()
        cls.addClassCleanup(cls.service.stop)
        cls.binary = deployed(cls.service.url)
        install_key("test-key", cls.binary)

    def setUp(self):
        self.service.answer(WORDS)
        self.addCleanup(hands.release_all)

    def vesko(self, **environment):
        """The system's bus is that of the session, on which the host is."""
        return Vesko(self.binary, **environment,
                     DBUS_SYSTEM_BUS_ADDRESS=os.environ["DBUS_SESSION_BUS_ADDRESS"])

    def tap_key(self):
        hands.press(KEY)
        human_pause(0.05)
        hands.release(KEY)

    def test_nothing_begins_while_the_session_is_locked(self):
        for lock, unlock in (("saver on", "saver off"), ("hint on", "hint off")):
            with self.subTest(lock), Host() as host, self.vesko() as vesko:
                vesko.wait_for("ready")
                until("Vesko knows logind", host.delays)
                host.lock(vesko, lock)
                hands.tap_shortcut()
                self.tap_key()
                human_pause(0.5)
                self.assertEqual(vesko.phase, "ready")
                self.assertEqual(library.recordings(vesko.root), [])
                host.lock(vesko, unlock)
                vesko.begin()

    def test_what_was_begun_before_is_kept_and_not_pasted(self):
        with Host() as host, self.vesko() as vesko, Mousepad() as editor:
            until("Vesko knows logind", host.delays)
            vesko.begin()
            human_pause(0.5)
            self.service.hold()
            vesko.end()
            self.service.wait_for_request()
            host.lock(vesko, "saver on")
            self.service.release()
            vesko.wait_for_text(LOCKED)
            self.assertEqual(editor.text, "")
            self.assertEqual(clipboard.read(), WORDS)

    def test_a_recording_goes_on_in_a_locked_session(self):
        with Host() as host, self.vesko() as vesko:
            until("Vesko knows logind", host.delays)
            vesko.begin()
            host.lock(vesko, "saver on")
            hands.tap_shortcut()
            self.tap_key()
            human_pause(0.5)
            self.assertEqual(vesko.phase, "recording")
            host.lock(vesko, "saver off")
            vesko.end()
            vesko.wait_for("ready")
            self.assertEqual(vesko.last_recording()["attempts"][-1].get("text"), WORDS)

    def test_before_sleep_a_recording_is_kept_and_afterwards_all_works(self):
        with Host() as host, self.vesko() as vesko, Mousepad() as editor:
            until("Vesko delays the sleep", host.delays)
            vesko.begin()
            human_pause(1.0)
            host.tell("sleep on")
            until("the machine may sleep", lambda: not host.delays(), deadline=5)
            recording = vesko.last_recording()
            self.assertEqual(recording["status"], "recorded")
            self.assertAlmostEqual(media.decoded_seconds(recording["path"]),
                                   recording["duration"], delta=0.3)
            host.tell("sleep off")
            until("the next sleep is delayed too", host.delays)
            for start in (hands.tap_shortcut, self.tap_key):
                vesko.wait_for("ready")
                start()
                vesko.wait_for("recording")
                human_pause(0.5)
                start()
                vesko.wait_for_text(SENT)
            vesko.wait_for("ready")
            until("both are in the editor", lambda: editor.text == WORDS + WORDS, deadline=5)

    def test_a_log_out_waits_until_the_recording_is_kept(self):
        with Told(os.path.join(SERVICES, "session_manager.py")) as manager, \
                self.vesko(SESSION_MANAGER=manager.first) as vesko:
            vesko.begin()
            human_pause(1.0)
            start = time.monotonic()
            self.assertEqual(manager.tell("save"), "saved")
            self.assertLess(time.monotonic() - start, 5)
            recording = vesko.last_recording()
            self.assertEqual(recording["status"], "recorded")
            self.assertAlmostEqual(media.decoded_seconds(recording["path"]),
                                   recording["duration"], delta=0.3)
            manager.tell("die")
            self.assertEqual(vesko.process.wait(timeout=5), 0)

    def test_the_portal_waits_until_the_recording_and_what_was_typed_are_kept(self):
        settings.write(**{**settings.read(), "firstLaunchDone": True, "onboardingCompleted": True})
        with Host() as host, self.vesko(arguments=()) as vesko:
            until("the portal tells Vesko of the session", host.monitors)
            vesko.press("push button", "New note")
            text = vesko.wait_to_find("text", "Note text")
            hands.click(*text.centre)
            until("the text has the keyboard", lambda: "focused" in text.states)
            vesko.begin()
            human_pause(1.0)
            hands.type_letters("typed")
            until("it is typed", lambda: text.text == "typed")
            host.tell("end ask")
            until("the session may end", host.may_end, deadline=5)
            recording = vesko.last_recording()
            self.assertEqual(recording["status"], "recorded")
            self.assertAlmostEqual(media.decoded_seconds(recording["path"]),
                                   recording["duration"], delta=0.3)
            self.assertIn("typed", [note["body"] for note in library.read(vesko.root)["notes"]])
            host.tell("end stay")
            vesko.begin()


class SoundServerThatHangs(unittest.TestCase):
    def quits_soon(self, vesko):
        start = time.monotonic()
        vesko.quit()  # which doesn't wait as long as the sound server lets others wait
        self.assertEqual(vesko.process.returncode, 0)
        print(f"       the end took {time.monotonic() - start:.2f} s", flush=True)

    def server(self):
        found = subprocess.run(["pgrep", "-f", os.environ["SESSION_DIR"] + "/sound.pa"], check=True,
                               stdout=subprocess.PIPE, text=True)
        return int(found.stdout.split()[0])

    def hang(self):
        server = self.server()
        os.kill(server, signal.SIGSTOP)
        self.addCleanup(os.kill, server, signal.SIGCONT)

    def test_after_a_dictation(self):
        with Vesko() as vesko:
            vesko.begin()
            human_pause(0.5)
            vesko.end()
            until("the recording has ended", lambda: vesko.phase != "recording")
            self.hang()
            vesko.wait_for("ready")
            self.quits_soon(vesko)

    def test_while_it_records(self):
        with Vesko() as vesko:
            vesko.begin()
            human_pause(1.0)
            self.hang()
            human_pause(0.5)
            self.quits_soon(vesko)
        recording = library.recordings(vesko.root)[-1]
        self.assertEqual(recording["status"], "recorded")
        self.assertGreater(media.decoded_seconds(recording["path"]), 0.7)

    def test_while_the_microphone_starts(self):
        with Vesko() as vesko:
            vesko.wait_for("ready")
            self.hang()
            hands.tap_shortcut()
            until("the microphone is being started",
                  lambda: "Starting microphone" in vesko.button.description)
            self.quits_soon(vesko)
        for recording in library.recordings(vesko.root):
            self.assertEqual(recording["status"], "failed")

    def test_while_a_tone_is_to_be_heard(self):
        with Vesko() as vesko:
            vesko.begin()
            human_pause(1.0)
            self.hang()
            vesko.end()
            until("the recording has ended", lambda: vesko.phase != "recording")
            vesko.wait_for("ready")
            self.quits_soon(vesko)

    def test_after_a_recording_that_could_not_begin(self):
        with Vesko() as vesko:
            vesko.wait_for("ready")
            self.hang()
            hands.tap_shortcut()
            vesko.wait_for_text(
                "The microphone could not start. Check your audio input and try again.")
            vesko.wait_for("ready")
            self.quits_soon(vesko)

    def test_one_that_is_not_there_is_told_and_found_when_it_comes(self):
        server = self.server()
        with open(f"/proc/{server}/cmdline") as file:
            command = file.read().rstrip("\0").split("\0")
        os.kill(server, signal.SIGKILL)
        until("the server has gone", lambda: not answers())
        with Vesko() as vesko:
            vesko.wait_for("ready")
            hands.tap_shortcut()
            vesko.wait_for_text(
                "The microphone could not start. Check your audio input and try again.")
            vesko.wait_for("ready")
            subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            until("the server is there", answers)
            vesko.begin()
            human_pause(1.0)
            vesko.end()
            until("the recording has ended", lambda: vesko.phase != "recording")
            vesko.wait_for("ready")
            self.assertGreater(media.decoded_seconds(vesko.last_recording()["path"]), 0.5)


def answers():
    info = subprocess.run(["pactl", "info"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    return b"Default Source: mic" in info.stdout


if __name__ == "__main__":
    cases.main()
