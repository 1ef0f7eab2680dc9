#!/usr/bin/python3
"""The budgets of the Wayland sessions, measured from outside:

    tests/desktop/session --desktop sway bench/wayland.py
    tests/desktop/session --desktop kwin bench/wayland.py X11

with the milliseconds from stop to text in a session of X11, which it prints there. Otherwise
prints a line for each, its fields parted by tabs: name, ours, yardstick, ratio, aim, met or over.
"""

import os
import statistics
import subprocess
import sys
import time

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "../tests/desktop"))

from budget import report  # noqa: E402
from commands import REPEATS, States  # noqa: E402
from desktop import WORDS, idle, stop_to_text  # noqa: E402
from lib import hands, kwin, settings, sway  # noqa: E402
from lib.programs import Mousepad  # noqa: E402
from lib.vesko import BINARY, Vesko  # noqa: E402

ROUNDS = 9
# It types the words, too: the Control of wtype's, which isn't a key of its keyboard, is taken by no
# editor there.
SCRIPT = f"""printf %s '{WORDS}' | wl-copy
wtype '{WORDS}'"""


def key_press():
    """From a key of the desktop's to the microphone's being asked for, beside a program that does
    nothing."""
    pipe = os.path.join(os.environ["SESSION_DIR"], "pipe")
    os.mkfifo(pipe)
    sway.bind("Pause", f"{BINARY} --toggle", "--no-warn")
    sway.bind("Scroll_Lock", f"sh -c 'true >{pipe}'", "--no-warn")
    ours, theirs = [], []
    with Vesko() as vesko, Mousepad():
        vesko.wait_for("ready")
        states = States()
        for _ in range(ROUNDS):
            time.sleep(REPEATS + 0.1)
            began = time.monotonic()
            hands.tap("pause")
            ours.append((states.after(began, "preparing") - began) * 1000)
            states.after(began, "recording")
            subprocess.run([BINARY, "--cancel"], check=True)
            states.after(began, "ready")
            began = time.monotonic()
            hands.tap("scroll lock")
            with open(pipe) as told:
                told.read()
            theirs.append((time.monotonic() - began) * 1000)
        states.stop()
    report("a key of sway's to the recorder's call, beyond a program that does nothing, vs 30 ms",
           statistics.median(ours) - statistics.median(theirs), 30, 1, "ms")


def in_sway():
    with Vesko() as vesko:  # says at each start that there is no shortcut, until a command has come
        vesko.wait_for("ready")
        subprocess.run([BINARY, "--toggle"], check=True)
        vesko.wait_for("recording")
        subprocess.run([BINARY, "--cancel"], check=True)
        vesko.wait_for("ready")
        vesko.quit()
    idle(" on sway")
    key_press()
    report("stop to text in the editor on sway, vs a script of wl-copy and wtype",
           *stop_to_text(SCRIPT), 1, "ms")


def main():
    settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)
    hands.plug_in()
    if sway.here():
        in_sway()
    elif kwin.here():
        # Not by the shortcut: after that the fingers get a moment, since nobody tells where they are.
        report("a command to stop to text in the editor on KWin, vs the same on X11",
               *stop_to_text(by_command=True), float(sys.argv[1]), 1.5, "ms")
    else:
        print(*stop_to_text(by_command=True))


if __name__ == "__main__":
    main()
