"""A server of desktop notifications of the test's own."""

import json
import os
import queue
import signal
import subprocess
import threading

from .waiting import until

SERVICE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../services/notifications.py")


class Notifications:
    def __init__(self, *capabilities):
        self._process = subprocess.Popen(
            ["/usr/bin/python3", SERVICE, *capabilities], stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, text=True)
        assert self._process.stdout.readline() == "ready\n"
        self._lines = queue.Queue()
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self._process.stdout:
            self._lines.put(json.loads(line))

    def next(self):
        """The next call that came."""
        return until("a call of the notifications", lambda: self.come())

    def come(self):
        """A call that has come, or None."""
        try:
            return self._lines.get_nowait()
        except queue.Empty:
            return None

    def choose(self, number, action):
        self._process.stdin.write(f"{number} {action}\n")
        self._process.stdin.flush()

    def freeze(self):
        self._process.send_signal(signal.SIGSTOP)

    def kill(self):
        self._process.kill()
        self._process.wait()
        self._process.stdin.close()
        self._process.stdout.close()
