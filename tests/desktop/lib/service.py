"""The speech service on loopback, started and told what to answer."""

import json
import os
import subprocess
import urllib.request

from .waiting import until

PROGRAM = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../services/openrouter.py")


class OpenRouter:
    def __init__(self, key="test-key"):
        self._process = subprocess.Popen(["/usr/bin/python3", PROGRAM, "--key", key],
                                         stdout=subprocess.PIPE, text=True)
        self._root = f"http://127.0.0.1:{self._process.stdout.readline().strip()}"
        self.url = self._root + "/api/v1/"

    def _call(self, method, path, body=None):
        request = urllib.request.Request(
            self._root + path, method=method,
            data=None if body is None else json.dumps(body).encode())
        with urllib.request.urlopen(request, timeout=10) as answer:
            return json.load(answer)

    def answer(self, text):
        """From now on this is what was said."""
        self._call("POST", "/control", {"text": text, "hold": False})

    def hold(self):
        """Keeps answers back until release()."""
        self._call("DELETE", "/requests")
        self._call("POST", "/control", {"hold": True})

    def wait_for_request(self):
        until("the recording has reached the service", self.requests)

    def release(self):
        self._call("POST", "/control", {"hold": False})

    def requests(self):
        """What was asked since the start or the last hold(), as the service tells it."""
        return self._call("GET", "/requests")["requests"]

    def stop(self):
        self._process.terminate()
        self._process.wait()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.stop()
