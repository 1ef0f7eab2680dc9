#!/usr/bin/python3
"""The budgets of the commands, measured from outside in a private desktop session:

    tests/desktop/session bench/commands.py

Prints a line for each, its fields parted by tabs: name, ours, yardstick, ratio, aim, met or over.
Ours and the yardstick take turns.
"""

import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import threading
import time
import zipfile

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "../tests/desktop"))

from budget import report  # noqa: E402
from lib import library, settings  # noqa: E402
from lib.vesko import BINARY, Vesko  # noqa: E402

NOTES = 10_000
ROUNDS = 21
EXPORTS = 5
# Seconds in which the program takes another toggle for the repeat of a key that is held.
REPEATS = 0.7


def milliseconds(command, **options):
    began = time.monotonic()
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, **options)
    return (time.monotonic() - began) * 1000


def dbus_send(method):
    return ["dbus-send", "--session", "--print-reply", "--dest=app.vesko.Vesko",
            "/app/vesko/Vesko", f"app.vesko.Vesko.{method}"]


def in_turns(ours, theirs, rounds=ROUNDS):
    """The medians of both, without a first round that warms up."""
    pairs = [(ours(), theirs()) for _ in range(rounds + 1)][1:]
    return [statistics.median(taken) for taken in zip(*pairs)]


class States:
    """When the program came to each state, as it tells who follows it."""

    def __init__(self):
        self._process = subprocess.Popen([BINARY, "--follow", "--json"], stdout=subprocess.PIPE,
                                         text=True)
        self._changed = threading.Condition()
        self._came = []
        threading.Thread(target=self._read, daemon=True).start()
        self.after(0, "ready")

    def _read(self):
        for line in self._process.stdout:
            with self._changed:
                self._came.append((line.split('"')[3], time.monotonic()))
                self._changed.notify_all()

    def after(self, moment, state):
        """The first time from that moment on at which it came to this state."""
        def found():
            return next((when for one, when in self._came if one == state and when >= moment), None)
        with self._changed:
            if not self._changed.wait_for(found, timeout=20):
                raise AssertionError(f"it never was {state}")
            return found()

    def stop(self):
        self._process.kill()
        self._process.wait()


def toggle(states, command):
    """Milliseconds from the command to the microphone's being asked for."""
    time.sleep(REPEATS + 0.1)
    began = time.monotonic()
    done = subprocess.Popen(command, stdout=subprocess.DEVNULL)
    took = (states.after(began, "preparing") - began) * 1000
    states.after(began, "recording")
    done.wait()
    subprocess.run([BINARY, "--cancel"], check=True)
    states.after(began, "ready")
    return took


def commands():
    settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)
    with Vesko() as vesko:
        vesko.wait_for("ready")
        states = States()
        report("--toggle to the recorder's start, vs dbus-send",
               *in_turns(lambda: toggle(states, [BINARY, "--toggle"]),
                         lambda: toggle(states, dbus_send("Toggle"))), 1.5, "ms")
        states.stop()
        report("--status, vs dbus-send",
               *in_turns(lambda: milliseconds([BINARY, "--status"]),
                         lambda: milliseconds(dbus_send("Status"))), 1.5, "ms")


def export():
    with tempfile.TemporaryDirectory() as folder:
        root, files, copy = (os.path.join(folder, name) for name in ("library", "files", "copy"))
        library.write(root, NOTES)
        environment = {**os.environ, "VESKO_DATA_ROOT": root}

        def ours():
            return milliseconds([BINARY, "--export", folder], env=environment)

        ours()
        archive = next(name for name in os.listdir(folder) if name.endswith(".zip"))
        with zipfile.ZipFile(os.path.join(folder, archive)) as exported:
            exported.extractall(files)

        def theirs():
            shutil.rmtree(copy, ignore_errors=True)
            target = os.path.join(folder, "yardstick.zip")
            if os.path.exists(target):
                os.remove(target)
            return (milliseconds(["cp", "-r", files, copy])
                    + milliseconds(["zip", "-qr", target, "."], cwd=copy))

        report("export of 10,000 notes, vs cp and zip of the same files",
               *in_turns(ours, theirs, EXPORTS), 1.5, "ms")


if __name__ == "__main__":
    commands()
    export()
