"""The services on loopback, started and told what to answer."""

import contextlib
import json
import os
import subprocess
import urllib.request

from . import voice
from .waiting import until

SERVICES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../services")


class Service:
    """One of the programs in `services`; `root` is its address, without a slash at the end."""

    def __init__(self, program, *arguments):
        self._process = subprocess.Popen(
            ["/usr/bin/python3", os.path.join(SERVICES, program), *arguments],
            stdout=subprocess.PIPE, text=True)
        self.root = f"http://127.0.0.1:{self._process.stdout.readline().strip()}"

    def _call(self, method, path, body=None):
        request = urllib.request.Request(
            self.root + path, method=method, headers={"Content-Type": "application/json"},
            data=None if body is None else json.dumps(body).encode())
        with urllib.request.urlopen(request, timeout=10) as answer:
            return json.load(answer)

    def control(self, **settings):
        """What holds for the requests to come, in the names of the service."""
        self._call("POST", "/control", settings)

    def hold(self):
        """Keeps answers back until release()."""
        self._call("DELETE", "/requests")
        self.control(hold=True)

    def wait_for_request(self):
        until("a request has reached the service", self.requests)

    def release(self):
        self.control(hold=False)

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


class OpenRouter(Service):
    """While it is there, something is said into the microphone all the time."""

    def __init__(self, key="test-key"):
        super().__init__("openrouter.py", "--key", key)
        self.url = self.root + "/api/v1/"
        self._murmur = voice.Murmur()

    def answer(self, text):
        """From now on this is what was said."""
        self.control(text=text, hold=False)

    @contextlib.contextmanager
    def quiet(self):
        """Nobody says anything meanwhile."""
        self._murmur.stop()
        try:
            yield
        finally:
            self._murmur = voice.Murmur()

    def stop(self):
        self._murmur.stop()
        super().stop()


class Analytics(Service):
    def __init__(self, app_key="test-app-key"):
        super().__init__("analytics.py", "--app-key", app_key)
        self.app_key = app_key

    def events(self):
        """The names of all events that were taken or refused, in their order."""
        return [name for request in self.requests() for name in request["events"]]


class Account(Service):
    CLIENT = "1234-test.apps.googleusercontent.com"

    def __init__(self):
        super().__init__("account.py", "--client", self.CLIENT)
        self.deployment = {"VeskoAuthBaseURL": self.root + "/",
                           "VeskoGoogleClientID": self.CLIENT,
                           "VeskoGoogleAuthURL": self.root + "/google/auth",
                           "VeskoGoogleTokenURL": self.root + "/google/token"}

    def session(self, address="user@example.com"):
        """Signs in as another computer would; the token and the account."""
        self._call("POST", "/v1/auth/email/start", {"email": address})
        reply = self._call("POST", "/v1/auth/email/verify",
                           {"email": address, "code": self.code(address)})
        return reply["session"]["token"], reply["account"]

    def code(self, address):
        """The one in the latest email to it."""
        return self._call("GET", "/codes")[address]

    def asked(self, path):
        """How the service answered those who asked for this."""
        return [request["status"] for request in self.requests() if request["path"] == path]
