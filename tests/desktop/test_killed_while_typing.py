#!/usr/bin/python3
"""Kills the program at random moments while somebody types into a note, and looks at what the disk
holds: an undamaged library that lacks no more than what was typed in the last 0.35 s and during one
save.

    ROUNDS=300 tests/desktop/session /usr/bin/python3 tests/desktop/test_killed_while_typing.py

SEED=N in the environment repeats the rounds of a run, which prints its own.
"""

import os
import random
import statistics
import sys
import tempfile
import threading
import time
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, hands, library, settings  # noqa: E402
from lib.vesko import Vesko  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

BUTTON, TEXT = "push button", "text"
ROUNDS = int(os.environ.get("ROUNDS", "9"))
SEED = int(os.environ.get("SEED", "0")) or random.randrange(1, 1_000_000)
DELAY = 0.35  # seconds that a letter may wait until its save begins
LONGEST = 3.0  # seconds of typing
# How long a key takes from the keyboard to the note, and a kill to the program, on a machine that
# has no time for either; what was really lost is printed.
ON_THE_WAY = 1.0  # seconds


def steady(_chance):
    """Ten letters a second and no pause."""
    while True:
        yield 0.1


def hasty(_chance):
    """Keys one after the other as fast as the best of typists."""
    while True:
        yield 0.04


def human(chance):
    """Words, with pauses in which a save comes to its end."""
    while True:
        for _ in range(chance.randrange(2, 9)):
            yield chance.uniform(0.05, 0.2)
        yield chance.uniform(0.2, 0.7)


def words():
    """Words that tell their place, letter by letter."""
    number = 0
    while True:
        number += 1
        yield from f"w{number} "


class KilledWhileTyping(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)

    def start(self, root):
        self.vesko = Vesko(root=root, arguments=())
        self.addCleanup(self.vesko.kill)
        until("the window has the keyboard",
              lambda: eyes.active_pid() == self.vesko.process.pid)
        self.vesko.press(BUTTON, "New note")
        body = self.vesko.wait_to_find(TEXT, "Note text")
        hands.click(*body.centre)
        until("the text has the keyboard", lambda: "focused" in body.states)

    def bodies(self, root):
        """Those of all notes, by their identity. A damaged document can't be read."""
        return {note["id"]: note["body"] for note in library.read(root)["notes"]}

    def save_takes(self, root, note):
        """Seconds from a letter to its place on the disk, beyond the delay."""
        began = time.monotonic()
        hands.type_letters("x")
        until("the letter is saved", lambda: self.bodies(root)[note] == "x", every=0.005)
        return max(0.0, time.monotonic() - began - DELAY)

    def type_until_killed(self, rhythm, after):
        """What was typed, as (letter, time) rows, and when the program was killed."""
        killed = []

        def kill():
            killed.append(time.monotonic())
            self.vesko.process.kill()

        typed = []
        axe = threading.Timer(after, kill)
        axe.start()
        for letter, pause in zip(words(), rhythm):
            if killed:
                break
            hands.type_letters(letter)
            typed.append((letter, time.monotonic()))
            human_pause(pause)
        axe.join()
        self.vesko.process.wait()
        return [row for row in typed if row[1] < killed[0]], killed[0]

    def test_no_more_is_lost_than_the_last_moment(self):
        chance = random.Random(SEED)
        root = os.path.join(tempfile.mkdtemp(), "library")
        known, losses, saves = {}, [], []
        for number in range(ROUNDS):
            rhythm = (steady, hasty, human)[number % 3]
            after = chance.uniform(0.05, LONGEST)
            where = f"round {number} of seed {SEED}: {rhythm.__name__}, killed after {after:.3f} s"
            self.start(root)
            note = until("there is the note", lambda: self.bodies(root).keys() - known).pop()
            saves.append(self.save_takes(root, note))
            typed, killed = self.type_until_killed(rhythm(chance), after)
            found = self.bodies(root)
            body = found.pop(note)
            self.assertEqual(found, known, where)
            text = "x" + "".join(letter for letter, _ in typed)
            self.assertTrue(text.startswith(body), f"{where}: {body!r} of {text!r}")
            lost = typed[len(body) - 1:]
            losses.append(killed - lost[0][1] if lost else 0.0)
            self.assertLess(losses[-1], DELAY + max(saves) + ON_THE_WAY,
                            f"{where}: lost {lost}, a save takes {saves[-1]:.3f} s")
            known = {**found, note: body}
        print(f"       {len(losses)} rounds of seed {SEED}: lost at most the last "
              f"{max(losses):.3f} s, in the median {statistics.median(losses):.3f} s; a save took "
              f"at most {max(saves):.3f} s, in the median {statistics.median(saves):.3f} s",
              flush=True)


if __name__ == "__main__":
    cases.main()
