#!/usr/bin/python3
"""Speech by an engine that the user has: a stand-in that takes and gives what whisper.cpp's program
does, found by itself, chosen in the settings, and in the records; and what becomes of an engine that
fails, or that nobody wants any more."""

import os
import struct
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, hands, settings, voice  # noqa: E402
from lib.programs import Mousepad  # noqa: E402
from lib.vesko import BINARY, Vesko  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

BUTTON, ROW = "push button", "list item"
SAID = "Проверка связи."
WHISPER = "whisper.cpp, base"
SILENCE = "No speech was heard. The recording is saved."
FAILED = "On-device transcription failed. Your audio is saved. Retry or choose OpenRouter."


def home(*parts):
    return os.path.join(os.environ["HOME"], *parts)


def put_program(path, script):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path + ".new", "w", encoding="utf-8") as file:
        file.write("#!/bin/sh\n" + script)
    os.chmod(path + ".new", 0o700)
    os.rename(path + ".new", path)


def put_whisper(script=f"echo ' {SAID}'"):
    """In place of whisper.cpp's program; what it is asked stands in a file."""
    put_program(home(".local/bin/whisper-cli"),
                f"printf '%s ' \"$@\" >> {home('asked')}\necho >> {home('asked')}\n{script}\n")


def put_model(vocabulary=51865):
    folder = os.path.join(os.environ["XDG_DATA_HOME"], "vesko/models")
    os.makedirs(folder, exist_ok=True)
    with open(os.path.join(folder, "ggml-base.bin"), "wb") as file:
        file.write(struct.pack("<II", 0x67676d6c, vocabulary) + bytes(64))


def asked():
    """The arguments of each start of the stand-in."""
    try:
        with open(home("asked"), encoding="utf-8") as file:
            return file.read().splitlines()
    except FileNotFoundError:
        return []


def processes_of(path):
    """Those that run this script, wherever they were started from."""
    found = []
    for pid in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open(f"/proc/{pid}/cmdline", "rb") as file:
                if path.encode() in file.read().split(b"\0"):
                    found.append(int(pid))
        except OSError:
            continue
    return found


class Engines(unittest.TestCase):
    def setUp(self):
        put_whisper()
        put_model()
        self.addCleanup(subprocess.run, ["rm", "-rf", home(".local/bin"), home("asked"),
                                         os.path.join(os.environ["XDG_DATA_HOME"], "vesko")])
        settings.write(provider="apple", engine="whisper.cpp/base", language="ru-RU",
                       languageAnswered=True, firstLaunchDone=True, onboardingCompleted=True)

    def start(self, **environment):
        vesko = Vesko(**environment)
        self.addCleanup(vesko.kill)
        return vesko

    @staticmethod
    def find(vesko, role, name):
        """Also what has to be scrolled to."""
        return until(f"a {role} called {name!r}", lambda: vesko.app.find(role, name))

    def attempt_of(self, vesko):
        return vesko.last_recording()["attempts"][-1]

    def test_chosen_in_the_settings_and_pasted_with_its_name_in_the_records(self):
        settings.write(provider="apple", language="ru-RU", languageAnswered=True,
                       firstLaunchDone=True, onboardingCompleted=True)
        vesko = self.start(VESKO_DEMO_SCENE="settings")
        self.find(vesko, ROW, "PocketSphinx")
        self.assertEqual(asked(), [])
        self.find(vesko, BUTTON, "Use, " + WHISPER).activate()
        until("it is the choice", lambda: settings.read().get("engine") == "whisper.cpp/base")
        self.find(vesko, BUTTON, "In use, " + WHISPER)
        cases.picture("settings engines")
        with Mousepad() as editor:
            vesko.dictate(lambda: voice.say(voice.BROTHER))
            until("the words stand in the editor", lambda: editor.text == SAID)
        attempt = self.attempt_of(vesko)
        self.assertEqual((attempt["model"], attempt["text"]), ("whisper.cpp/base", SAID))
        self.assertIn("--language ru ", asked()[-1])
        self.assertIn("--no-timestamps", asked()[-1])

    def test_the_best_one_is_chosen_on_a_computer_that_vesko_is_new_to(self):
        settings.remove()
        vesko = self.start()
        until("it is chosen", lambda: settings.read().get("engine") == "whisper.cpp/base")
        vesko.dictate(lambda: voice.say(voice.BROTHER))
        self.assertEqual(self.attempt_of(vesko)["text"], SAID)
        self.assertIn("--language auto ", asked()[-1])

    def test_an_engine_that_is_gone_is_replaced_by_no_other(self):
        os.remove(home(".local/bin/whisper-cli"))
        vesko = self.start()
        vesko.dictate(lambda: voice.say(voice.BROTHER))
        vesko.wait_for_text("The speech engine that you chose isn't there. Choose one in Settings. "
                            "Your audio is saved.")
        self.assertTrue(os.path.getsize(vesko.last_recording()["path"]))
        self.assertNotIn("text", self.attempt_of(vesko))

    def test_whatever_an_engine_does_costs_one_attempt(self):
        vesko = self.start()
        program = home(".local/bin/whisper-cli")
        for what, script, message in (
                ("dies", "echo half; exit 9", FAILED),
                ("prints what is no text", "printf '\\377\\376'", FAILED),
                ("prints a gigabyte", "exec head -c 1000000000 /dev/zero", FAILED),
                ("prints nothing", "exit 0", SILENCE)):
            with self.subTest(what):
                put_whisper(script)
                vesko.dictate(lambda: voice.say("yes"))
                vesko.wait_for_text(message)
                self.assertEqual(vesko.last_recording()["status"], "failed")
                self.assertTrue(os.path.getsize(vesko.last_recording()["path"]))
                self.assertEqual(processes_of(program), [])
        with self.subTest("may have been changed by others"):
            put_whisper()
            os.chmod(program, 0o707)
            vesko.dictate(lambda: voice.say("yes"))
            vesko.wait_for_text(FAILED)
        with self.subTest("works again"):
            os.chmod(program, 0o700)
            vesko.dictate(lambda: voice.say("yes"))
            self.assertEqual(self.attempt_of(vesko)["text"], SAID)

    def test_silence_is_given_to_no_engine(self):
        vesko = self.start()
        vesko.dictate(lambda: human_pause(0.5))
        vesko.wait_for_text(SILENCE)
        self.assertEqual(asked(), [])
        self.assertEqual(vesko.last_recording()["status"], "failed")

    def test_a_cancel_ends_the_engine(self):
        engine = os.path.join(os.environ["XDG_DATA_HOME"], "vesko/engines/slow")
        put_program(engine, "echo vesko-engine 1\necho name slow\necho version 1\necho licence MIT\n"
                            "echo languages en auto\necho ready\nwhile read line; do sleep 1000; done\n")
        settings.write(provider="apple", engine="engine/slow", languageAnswered=True,
                       firstLaunchDone=True, onboardingCompleted=True)
        vesko = self.start()
        vesko.begin()
        until("the engine runs while one speaks", lambda: processes_of(engine))
        subprocess.run([BINARY, "--cancel"], check=True, timeout=20)
        until("the engine has ended", lambda: not processes_of(engine))
        vesko.wait_for_text("Recording cancelled. The audio is saved.")
        self.assertEqual(vesko.last_recording()["status"], "recorded")

    def test_an_ordinary_combination_starts_no_engine(self):
        vesko = self.start()
        vesko.wait_for("ready")
        with Mousepad("one") as editor:
            hands.tap("right control", "a")
            hands.type_letters("x")
            until("the combination did its work", lambda: editor.text == "x")
        self.assertEqual(vesko.phase, "ready")
        self.assertIsNone(vesko.last_recording())
        self.assertEqual(asked(), [])

    def test_one_is_tried_on_a_sentence(self):
        vesko = self.start(VESKO_DEMO_SCENE="settings")
        self.find(vesko, BUTTON, "Try, " + WHISPER).activate()
        done = self.find(vesko, BUTTON, "Done speaking, " + WHISPER)
        voice.say(voice.BROTHER)
        done.activate()
        shown = until("what it heard", lambda: next(
            (node for node in vesko.app.walk() if node.role == "status bar"
             and node.name.startswith(f"“{SAID}”")), None))
        self.assertRegex(shown.name, r"”, \d+\.\d seconds after the end$")
        self.assertIsNone(vesko.last_recording())
        self.assertEqual(os.listdir(os.path.join(vesko.root, "recordings")), [])

    def test_a_command_of_ones_own(self):
        put_program(home(".local/bin/listener"), "test -s \"$2\" && echo \"$1 said: $3\"\n")
        settings.write(provider="apple", engine="command", languageAnswered=True,
                       engineCommand=home(".local/bin/listener") + " {language} {wav} \"a word\"",
                       language="de-DE", firstLaunchDone=True, onboardingCompleted=True)
        vesko = self.start()
        vesko.dictate(lambda: voice.say(voice.BROTHER))
        attempt = self.attempt_of(vesko)
        self.assertEqual((attempt["model"], attempt["text"]),
                         ("command/listener", "de said: a word"))


if __name__ == "__main__":
    cases.main()
