#!/usr/bin/python3
"""The speech provider, as the desktop tests need it: a small HTTP service on 127.0.0.1.

    openrouter.py [--text TEXT] [--key KEY] [--audio FOLDER]

It prints its port and a line end, then serves until it is ended. The base URL for Vesko is
http://127.0.0.1:PORT/api/v1/.

POST /api/v1/audio/transcriptions
    Answers as the provider does. A request without "Bearer KEY" gets a 401, one that is not of
    the provider's form a 400 with the reason; both are recorded as well.
POST /control
    JSON; sets any of the following for the requests to come, and answers with all of them:
      text       what was "said"                           (--text)
      status     the HTTP status                           200
      cost       dollars under usage.cost, null for none   null
      requestID  X-Generation-Id, null for none            null
      raw        the body to send instead of the JSON      null
      delay      seconds to wait before the answer         0
      hold       true: hold answers back until it is false again
      close      true: close the connection without an answer
      next       a list of objects of the keys above, one for each of the next requests
GET /requests
    {"count": N, "requests": [{"path", "headers", "authorized", "model", "format", "language",
    "audio", "bytes", "problem"}, ...]}, in the order of arrival. "audio" is the file, if a folder
    was given, that holds the decoded audio. The key is never recorded or printed.
DELETE /requests
    Forgets them.
"""

import argparse
import base64
import binascii
import json
import os
import threading
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer

SPEECH_PATH = "/api/v1/audio/transcriptions"


class Provider:
    """What the service was told and what it was asked; shared by the threads of all requests."""

    def __init__(self, text, key, audio_folder):
        self._key = key
        self._audio_folder = audio_folder
        self._changed = threading.Condition()
        self._requests = []
        self._next = []
        self._answer = {
            "text": text,
            "status": 200,
            "cost": None,
            "requestID": None,
            "raw": None,
            "delay": 0,
            "hold": False,
            "close": False,
        }

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

    def authorized(self, headers):
        return headers.get_all("Authorization") == ["Bearer " + self._key]

    def record(self, path, headers, body):
        """Keeps the request and gives the answer that was set for it."""
        entry = {
            "path": path,
            "headers": {k: v for k, v in headers.items() if k.lower() != "authorization"},
            "authorized": self.authorized(headers),
            "problem": None,
        }
        audio = None
        try:
            entry.update(parsed_speech_request(headers, body))
            audio = entry.pop("audio bytes")
            entry["bytes"] = len(audio)
        except ValueError as error:
            entry["problem"] = str(error)
        with self._changed:
            number = len(self._requests) + 1
            if audio is not None and self._audio_folder:
                entry["audio"] = os.path.join(
                    self._audio_folder, f"request-{number}.{entry['format']}")
                with open(entry["audio"], "wb") as file:
                    file.write(audio)
            self._requests.append(entry)
            settings = dict(self._answer)
            if self._next:
                settings.update(self._next.pop(0))
        return entry, settings

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


def parsed_speech_request(headers, body):
    """The parts of a speech request; ValueError tells what is wrong with it."""
    if headers.get("Content-Type") != "application/json":
        raise ValueError("Content-Type is not application/json")
    document = json.loads(body.decode("utf-8"))
    if not isinstance(document, dict) or not isinstance(document.get("input_audio"), dict):
        raise ValueError("no input_audio")
    audio = document["input_audio"]
    fields = {
        "model": document.get("model"),
        "format": audio.get("format"),
        "data": audio.get("data"),
        "response_format": document.get("response_format"),
        "language": document.get("language", ""),
    }
    for name, value in fields.items():
        if not isinstance(value, str):
            raise ValueError(name + " is not a text")
    if not fields["format"].isalnum():
        raise ValueError("format is not a plain word")
    if fields["response_format"] != "json":
        raise ValueError("response_format is not json")
    unknown = set(document) - {"model", "input_audio", "response_format", "language"}
    if unknown or set(audio) - {"data", "format"}:
        raise ValueError("unknown keys")
    try:
        decoded = base64.b64decode(fields["data"], validate=True)
    except binascii.Error as error:
        raise ValueError("data is not base64") from error
    return {
        "model": fields["model"],
        "format": fields["format"],
        "language": document.get("language"),
        "audio bytes": decoded,
    }


class Handler(BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    provider = None  # set before the service starts

    def do_POST(self):
        body = self.rfile.read(int(self.headers.get("Content-Length", "0")))
        if self.path == "/control":
            self.control(body)
        elif self.path == SPEECH_PATH:
            self.transcribe(body)
        else:
            self.answer(404, {"error": "no such path"})

    def do_GET(self):
        if self.path == "/requests":
            self.answer(200, self.provider.requests())
        else:
            self.answer(404, {"error": "no such path"})

    def do_DELETE(self):
        if self.path == "/requests":
            self.provider.forget()
            self.answer(200, self.provider.requests())
        else:
            self.answer(404, {"error": "no such path"})

    def control(self, body):
        try:
            self.answer(200, self.provider.control(json.loads(body)))
        except ValueError as error:
            self.answer(400, {"error": str(error)})

    def transcribe(self, body):
        entry, settings = self.provider.record(self.path, self.headers, body)
        self.provider.wait_until_released(settings)
        if settings["close"]:
            self.close_connection = True
        elif not entry["authorized"]:
            self.answer(401, {"error": "this key is unknown"})
        elif entry["problem"]:
            self.answer(400, {"error": entry["problem"]})
        elif settings["raw"] is not None:
            self.send(settings["status"], settings["raw"].encode(), settings["requestID"])
        else:
            document = {"text": settings["text"]}
            if settings["cost"] is not None:
                document["usage"] = {"cost": settings["cost"]}
            self.answer(settings["status"], document, settings["requestID"])

    def answer(self, status, document, request_id=None):
        self.send(status, json.dumps(document).encode(), request_id)

    def send(self, status, data, request_id):
        try:
            self.send_response(status)
            self.send_header("Content-Type", "application/json")
            self.send_header("Content-Length", str(len(data)))
            if request_id is not None:
                self.send_header("X-Generation-Id", request_id)
            self.end_headers()
            self.wfile.write(data)
        except (BrokenPipeError, ConnectionResetError):
            self.close_connection = True  # the client gave up waiting, as clients do

    def log_message(self, *_):
        pass


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--text", default="hello world")
    parser.add_argument("--key", default="test-key")
    parser.add_argument("--audio", help="folder for the decoded audio of each request")
    options = parser.parse_args()
    if options.audio:
        os.makedirs(options.audio, exist_ok=True)
    Handler.provider = Provider(options.text, options.key, options.audio)
    server = ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    print(server.server_address[1], flush=True)
    server.serve_forever()


if __name__ == "__main__":
    main()
