"""What the services on loopback share: answers that a test can set, and a record of what was asked.

POST /control
    JSON; sets any of the following for the requests to come, besides what the service adds, and
    answers with all of them:
      status     the HTTP status                           200
      raw        the body to send instead of the JSON      null
      headers    an object of headers more                 {}
      delay      seconds to wait before the answer         0
      hold       true: hold answers back until it is false again
      close      true: close the connection without an answer
      next       a list of objects of the keys above, one for each of the next requests
GET /requests
    {"count": N, "requests": [...]}, in the order of arrival.
DELETE /requests
    Forgets them.
"""

import json
import threading
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer


class Script:
    """What the service was told and what it was asked; shared by the threads of all requests."""

    def __init__(self, **answer):
        self._changed = threading.Condition()
        self._requests = []
        self._next = []
        self._answer = {"status": 200, "raw": None, "headers": {}, "delay": 0, "hold": False,
                        "close": False, **answer}

    def control(self, changes):
        if not isinstance(changes, dict):
            raise ValueError("not an object")
        upcoming = changes.pop("next", None)
        for settings in [changes] + (upcoming or []):
            unknown = set(settings) - set(self._answer)
            if unknown:
                raise ValueError("unknown: " + ", ".join(sorted(unknown)))
        with self._changed:
            self._answer.update(changes)
            if upcoming is not None:
                self._next = list(upcoming)
            self._changed.notify_all()
            return dict(self._answer, next=list(self._next))

    def record(self, entry):
        """Keeps the request and gives the answer that was set for it."""
        with self._changed:
            self._requests.append(entry)
            settings = dict(self._answer)
            if self._next:
                settings.update(self._next.pop(0))
        return settings

    def wait_until_released(self, settings):
        with self._changed:
            if settings["delay"]:
                self._changed.wait_for(lambda: False, settings["delay"])
            if settings["hold"]:
                self._changed.wait_for(lambda: not self._answer["hold"])

    def requests(self):
        with self._changed:
            return {"count": len(self._requests), "requests": list(self._requests)}

    def forget(self):
        with self._changed:
            self._requests.clear()


class ScriptedHandler(BaseHTTPRequestHandler):
    """Serves the script's own paths; a service adds `serve` for all others."""

    protocol_version = "HTTP/1.1"
    script = None  # set by `run`

    def serve(self, body):
        """Answers the request; `body` is None for a GET."""
        raise NotImplementedError

    def do_POST(self):
        body = self.rfile.read(int(self.headers.get("Content-Length", "0")))
        if self.path == "/control":
            try:
                self.answer(200, self.script.control(json.loads(body)))
            except ValueError as error:
                self.answer(400, {"error": str(error)})
        else:
            self.serve(body)

    def do_GET(self):
        if self.path == "/requests":
            self.answer(200, self.script.requests())
        else:
            self.serve(None)

    def do_DELETE(self):
        if self.path == "/requests":
            self.script.forget()
            self.answer(200, self.script.requests())
        else:
            self.answer(404, {"error": "no such path"})

    def answer_as_told(self, settings, refusal, document, headers=None):
        """The answer that was set: `refusal` is a status and a document, or None; `document` is
        for a request that is right."""
        self.script.wait_until_released(settings)
        headers = {**settings["headers"], **(headers or {})}
        if settings["close"]:
            self.close_connection = True
        elif refusal:
            self.answer(*refusal)
        elif settings["raw"] is not None:
            self.send(settings["status"], settings["raw"].encode(), headers)
        else:
            self.answer(settings["status"], document, headers)

    def answer(self, status, document, headers=None):
        self.send(status, json.dumps(document).encode(), headers)

    def send(self, status, data, headers=None):
        try:
            self.send_response(status)
            self.send_header("Content-Type", "application/json")
            self.send_header("Content-Length", str(len(data)))
            for name, value in (headers or {}).items():
                self.send_header(name, value)
            self.end_headers()
            self.wfile.write(data)
        except (BrokenPipeError, ConnectionResetError):
            self.close_connection = True  # the client gave up waiting, as clients do

    def log_message(self, *_):
        pass

    def recorded_headers(self, secret):
        return {name: value for name, value in self.headers.items() if name.lower() != secret}


def run(handler, script):
    """Prints the port and a line end, then serves on 127.0.0.1 until it is ended."""
    handler.script = script
    server = ThreadingHTTPServer(("127.0.0.1", 0), handler)
    print(server.server_address[1], flush=True)
    server.serve_forever()
