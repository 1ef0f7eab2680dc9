"""Measures from outside how long a program's main thread leaves others waiting.

Its window is asked for its name over the accessibility bus every 10 ms; the toolkit answers on the
main thread. The registry of the bus is asked in the same rhythm: what it takes, this machine takes.
"""

import json
import os
import subprocess
import sys
import time

RHYTHM = 0.01  # seconds


class Watchdog:
    def __init__(self, window):
        self._process = subprocess.Popen(
            ["/usr/bin/python3", "-m", "lib.watchdog", window.owner, window.path],
            cwd=os.path.dirname(os.path.dirname(os.path.abspath(__file__))),
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self._process.stdout.readline()

    def finish(self):
        """Milliseconds: the longest and the 99th percentile, of the program and of the yardstick;
        and when after the start (seconds) the longest was."""
        output, _ = self._process.communicate()
        return json.loads(output)


def main(owner, path):
    import select

    from .eyes import Node

    window = Node(owner, path)
    registry = Node("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
    window.name, registry.name
    print("watching", flush=True)
    start = time.monotonic()
    waits, yardstick = [], []
    while not select.select([sys.stdin], [], [], RHYTHM)[0]:
        for node, kept in ((registry, yardstick), (window, waits)):
            asked = time.monotonic()
            node.name
            kept.append(((time.monotonic() - asked) * 1000, asked - start))
    result = {"pings": len(waits)}
    for name, kept in (("program", waits), ("yardstick", yardstick)):
        kept.sort()
        result[name] = {"longest": kept[-1][0], "at": kept[-1][1],
                        "p99": kept[int(len(kept) * 0.99)][0]}
    print(json.dumps(result))


if __name__ == "__main__":
    main(*sys.argv[1:])
