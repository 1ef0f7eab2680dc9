#!/usr/bin/python3
"""The budgets of the whole program, measured from outside in a private desktop session:

    tests/desktop/session bench/desktop.py

Prints a line for each, its fields parted by tabs: name, ours, yardstick, ratio, aim, met or over.
Ours and the yardstick take turns.
"""

import os
import statistics
import subprocess
import sys
import threading
import time

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "../tests/desktop"))

from budget import report  # noqa: E402
from lib import clipboard, hands, library, settings, voice  # noqa: E402
from lib.programs import Chromium, Mousepad  # noqa: E402
from lib.service import OpenRouter  # noqa: E402
from lib.vesko import BINARY, Vesko, deployed, install_key  # noqa: E402
from lib.waiting import Late, human_pause, until  # noqa: E402

BARE = os.path.join(HERE, "../build/release/bench/bare_window")
FIELD_CAPTURE = os.path.join(HERE, "../build/release/bench/field_capture")
NOTES = 10_000
ROUNDS = 9
IDLE = 10  # seconds of doing nothing
WORDS = "Where this lands is what matters."
SCRIPT = f"""printf %s '{WORDS}' | xclip -selection clipboard
xdotool key --clearmodifiers ctrl+v"""


def landing(editor, act):
    """Milliseconds from act() to the words in the editor, once more than before."""
    there = editor.text.count(WORDS)
    began = time.monotonic()
    act()
    until("the words stand in the editor", lambda: editor.text.count(WORDS) > there, every=0.0005)
    return (time.monotonic() - began) * 1000


def stop_to_text(script=None, by_command=False):
    """Milliseconds: ours from the shortcut or the command, and those of a shell script that copies
    the words and sends the keys."""
    with OpenRouter() as service:
        service.answer(WORDS)
        binary = deployed(service.url)
        install_key("test-key", binary)
        ours, theirs = [], []
        with Vesko(binary) as vesko, Mousepad() as editor:
            for _ in range(ROUNDS):
                vesko.begin()
                human_pause(hands.APART + 0.2)  # else the keys would wait while it is measured
                ours.append(landing(editor, (lambda: subprocess.run([binary, "--stop"]))
                                    if by_command else vesko.end))
                vesko.wait_for("ready")
                if script is None:
                    continue
                clipboard.write("something else")
                try:
                    theirs.append(landing(editor, lambda: subprocess.run(["sh", "-c", script])))
                except Late:  # now and then its keys overtake its clipboard
                    continue
    return [statistics.median(taken) for taken in (ours, theirs) if taken]


def faster_than_a_script():
    report("stop to text in the editor, vs a script of xclip and xdotool", *stop_to_text(SCRIPT),
           1, "ms")


def put_engine():
    """One of the contract in docs/engines.md that answers at once."""
    path = os.path.join(os.environ["XDG_DATA_HOME"], "vesko/engines/at-once")
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w") as file:
        file.write(f"""#!/usr/bin/python3
import sys
print("vesko-engine 1", "name at-once", "version 1", "licence MIT", "languages en", "ready", sep="\\n", flush=True)
for line in sys.stdin.buffer:
    if line.startswith(b"piece "):
        sys.stdin.buffer.read(int(line.split()[1]))
        print("text {WORDS}", flush=True)
""")
    os.chmod(path, 0o700)


def engine_stop_to_text():
    """Both hear the same: while the service is there, something is said all the time."""
    put_engine()
    with OpenRouter() as service:
        service.answer(WORDS)
        binary = deployed(service.url)
        install_key("test-key", binary)
        common = {"firstLaunchDone": True, "onboardingCompleted": True, "languageAnswered": True}
        taken = {}
        for provider in ("apple", "openrouter"):
            settings.write(provider=provider, engine="engine/at-once", keySource="vesko", **common)
            with Vesko(binary) as vesko, Mousepad() as editor:
                taken[provider] = []
                for round in range(ROUNDS + 1):
                    vesko.begin()
                    human_pause(1.0)
                    took = landing(editor, vesko.end)
                    if round:  # the first one warms up
                        taken[provider].append(took)
                    vesko.wait_for("ready")
    report("stop to text by an engine that answers at once, vs a service that does",
           statistics.median(taken["apple"]), statistics.median(taken["openrouter"]), 1.1, "ms")


def memory_while_recognising():
    settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True,
                   languageAnswered=True)
    with Vesko() as vesko:
        vesko.dictate(lambda: voice.say(voice.BROTHER))  # what a first dictation loads stays
        human_pause(1.0)
        idle = memory(vesko.process.pid)
        vesko.begin()
        for _ in range(5):
            voice.say(voice.COFFEE)
        vesko.end()
        most = 0
        while vesko.phase != "ready":
            most = max(most, memory(vesko.process.pid))
    report("memory while an engine recognises, vs when idle after a dictation", most, idle, 1.1,
           "MB")


def field_capture():
    for editor in (Mousepad, Chromium):
        with editor():
            subprocess.run([FIELD_CAPTURE, editor.__name__], check=True)


class Started:
    """A program and when it said that it is ready."""

    def __init__(self, command, word, **environment):
        self.began = time.monotonic()
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                        text=True, env={**os.environ, **environment})
        for line in self.process.stdout:
            if word in line:
                break
        self.took = (time.monotonic() - self.began) * 1000
        # What it says later is read, so that it never waits for a reader.
        threading.Thread(target=self.process.stdout.read, daemon=True).start()

    def end(self):
        self.process.terminate()
        self.process.wait()


def vesko(root):
    return Started([BINARY, "--background"], "library_ready", VESKO_DATA_ROOT=root,
                   QT_FORCE_STDERR_LOGGING="1")


def start_to_ready():
    root = os.path.join(os.environ["SESSION_DIR"], "large library")
    library.write(root, NOTES)
    ours, bare = [], []
    for round in range(ROUNDS + 1):
        for make, kept in ((lambda: vesko(root), ours), (lambda: Started([BARE], "ready"), bare)):
            program = make()
            if round:  # the first one warms up
                kept.append(program.took)
            program.end()
    report("start to ready with 10,000 notes, vs a bare Qt Quick program",
           statistics.median(ours), statistics.median(bare), 1.5, "ms")


def memory(pid):
    """Megabytes that the process keeps in memory, shared libraries included."""
    with open(f"/proc/{pid}/smaps_rollup") as file:
        return next(int(line.split()[1]) for line in file if line.startswith("Rss:")) / 1024


def wakeups(pid):
    """How often its threads have been put on a processor."""
    total = 0
    for thread in os.listdir(f"/proc/{pid}/task"):
        with open(f"/proc/{pid}/task/{thread}/status") as file:
            total += sum(int(line.split()[1]) for line in file if "ctxt_switches" in line)
    return total


def idle(where=""):
    root = os.path.join(os.environ["SESSION_DIR"], "small library")
    vesko(root).end()  # only the very first start makes a library
    programs = [vesko(root), Started([BARE], "ready")]
    time.sleep(3)  # whatever follows a start is over
    before = [wakeups(program.process.pid) for program in programs]
    time.sleep(IDLE)
    ours, bare = (wakeups(program.process.pid) - count
                  for program, count in zip(programs, before))
    resident = [memory(program.process.pid) for program in programs]
    for program in programs:
        program.end()
    report(f"memory when idle{where}, vs a bare Qt Quick window", *resident, 1.3, "MB")
    report(f"wake-ups in {IDLE} s of doing nothing{where}, vs a bare Qt Quick window", ours, bare, 1, "")


if __name__ == "__main__":
    # Only the very first start asks for keys, and shows who it is.
    settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True)
    for measure in (idle, start_to_ready, field_capture, faster_than_a_script,
                    engine_stop_to_text, memory_while_recognising):
        measure()
