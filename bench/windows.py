#!/usr/bin/python3
"""The budgets of the windows, measured from outside in a private desktop session:

    tests/desktop/session bench/windows.py

Prints a line for each, its fields parted by tabs: name, ours, yardstick, ratio, aim, met or over.
"""

import os
import statistics
import sys
import time

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "../tests/desktop"))

from budget import report  # noqa: E402
from desktop import BARE, NOTES, Started, memory  # noqa: E402
from lib import eyes, hands, library, settings  # noqa: E402
from lib.vesko import BINARY, Vesko  # noqa: E402
from lib.waiting import until  # noqa: E402

ROUNDS = 20  # of some half a second; single ones differ by a half
TICK = os.sysconf("SC_CLK_TCK")
WATCHED = 6  # seconds of processor time


def opening(root):
    """From "Open Vesko" to the first frame, as the program itself tells in its log."""
    ours, bare = [], []
    for round in range(ROUNDS + 1):
        with Vesko(root=root, QT_LOGGING_RULES="app.vesko.windows.debug=true",
                   QT_FORCE_STDERR_LOGGING="1") as vesko:
            until("the control is drawn", lambda: "CapturePanel" in vesko.log(), deadline=30)
            hands.click(*vesko.button.centre, button=3)
            row = until("the menu is open", lambda: (
                found := vesko.panel.find("menu item", "Open Vesko"))
                and "showing" in found.states and found)
            row.activate()
            line = until("the first frame is shown", lambda: next(
                (line for line in vesko.log().splitlines()
                 if "first_frame_ms=" in line and "LibraryWindow" in line), None))
            if round:
                ours.append(float(line.rpartition("=")[2].split()[0]))
        program = Started([BARE], "ready")
        if round:
            bare.append(program.took)
        program.end()
    report("library window to its first frame with 10,000 notes, vs a bare Qt Quick program",
           statistics.median(ours), statistics.median(bare), 1.4, "ms")
    report("the same, vs 250 ms", statistics.median(ours), 250, 1, "ms")


def searching(root):
    """From a key in the search field to the list it makes. What the bus takes is counted in."""
    with Vesko(root=root, arguments=()) as vesko:
        search = vesko.wait_to_find("text", "Search notes and transcripts")
        count = until("all notes are listed", lambda: vesko.find("label", "10,000")
                      or vesko.find("label", "10000"))
        hands.click(*search.centre)
        until("the search has the keyboard", lambda: "focused" in search.states)
        taken = []
        shown = count.name
        for letter in "brother":
            began = time.monotonic()
            hands.type_letters(letter)
            until("the list has changed", lambda: search.text.endswith(letter), every=0.0005)
            before, shown = shown, count.name
            while time.monotonic() - began < 0.2 and shown == before:
                shown = count.name
            if shown != before:
                taken.append((time.monotonic() - began) * 1000)
        for window in ("Settings", "Dictionary"):
            vesko.press("list item", window)
            until(f"{window} is open", lambda window=window: vesko.find("frame", f"Vesko {window}"))
        time.sleep(1)  # until all is painted
        resident = memory(vesko.process.pid)
    if taken:
        report("a key in the search field to the new list, vs 50 ms",
               statistics.median(taken), 50, 1, "ms")
    report("memory with all windows opened once, vs 150 MB", resident, 150, 1, "MB")


def processor_time(pid):
    """Seconds that the process has been on a processor."""
    with open(f"/proc/{pid}/stat") as file:
        fields = file.read().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / TICK


def share(pid):
    """Per cent of a core."""
    before = processor_time(pid)
    time.sleep(WATCHED)
    return (processor_time(pid) - before) / WATCHED * 100


def recording(root, shown):
    settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True,
                   showFloating=shown)
    program = Started([BINARY, "--background"], "library_ready", VESKO_DATA_ROOT=root,
                      QT_FORCE_STDERR_LOGGING="1")
    time.sleep(3)  # whatever follows a start is over
    rest = share(program.process.pid)
    hands.tap_shortcut()
    time.sleep(1)
    busy = share(program.process.pid)
    program.end()
    return rest, busy


def moving():
    root = os.path.join(os.environ["SESSION_DIR"], "small library")
    rest, busy = recording(root, True)
    _, recorder = recording(root, False)
    report("processor time at rest, vs 0.2 % of a core", rest, 0.2, 1, "%")
    report("processor time of the floating control while recording, vs 5 % of a core",
           busy - recorder, 5, 1, "%")


def main():
    settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)
    root = os.path.join(os.environ["SESSION_DIR"], "large library")
    library.write(root, NOTES)
    opening(root)
    searching(root)
    moving()


if __name__ == "__main__":
    main()
