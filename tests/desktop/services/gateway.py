#!/usr/bin/python3
"""The hosted speech gateway, as the tests need it: a small HTTP service on 127.0.0.1.

    gateway.py [--token TOKEN] [--text TEXT]

It prints its port and a line end, then serves until it is ended. The base URL is
http://127.0.0.1:PORT.

POST /v1/plus/transcribe, POST /v1/plus/text, GET /v1/plus/allowance
    Answer as the gateway does, for "Bearer TOKEN". A piece of work that has succeeded is never done
    again under the same requestId, each success costs `costUsd` of the allowance, and once that is
    used up there is no more.
POST /control, GET /requests, DELETE /requests
    As scripted.py has it, with these settings more:
      text          what was "said", or written          (--text)
      costUsd       dollars, null for none               0.25
      error         the code of a failure, null for none null
      allowanceUsd  dollars of the period                5
    A request is recorded as {"path", "authorized", "fields", "problem"}; "fields" holds the body's
    but for the audio, whose length stands under "audioBytes".
"""

import argparse
import base64
import binascii
import json

from scripted import Script, ScriptedHandler, run

AUDIO_LIMIT = 26_214_400
FIELDS = {
    "/v1/plus/transcribe": ({"requestId": str, "model": str, "format": str, "seconds": int,
                             "audio": str}, {"language": str}),
    "/v1/plus/text": ({"requestId": str, "model": str, "mode": str, "text": str},
                      {"target": str}),
}
ALLOWANCE_PATH = "/v1/plus/allowance"


class Gateway(Script):
    def __init__(self, text):
        super().__init__(text=text, costUsd=0.25, error=None, allowanceUsd=5)
        self._done = set()
        self._used = 0

    def refusal(self, request_id, settings):
        """Why the work is not done: a status and a document, or None."""
        if settings["error"]:
            status = settings["status"] if settings["status"] >= 300 else 400
            return status, {"error": settings["error"]}
        with self._changed:
            if request_id in self._done:
                return 409, {"error": "already_completed"}
            if self._used + (settings["costUsd"] or 0) > settings["allowanceUsd"]:
                return 402, {"error": "allowance_exhausted"}
        return None

    def complete(self, request_id, settings):
        with self._changed:
            self._done.add(request_id)
            self._used += settings["costUsd"] or 0

    def allowance(self, settings):
        with self._changed:
            total = settings["allowanceUsd"]
            return {"allowance": {"period": "2026-11", "allowanceUsd": total,
                                  "usedUsd": self._used, "reservedUsd": 0,
                                  "remainingUsd": total - self._used}}


def parsed(path, headers, body):
    """The fields of a request; ValueError tells what is wrong with it."""
    if headers.get_all("Content-Type") != ["application/json"]:
        raise ValueError("Content-Type is not application/json")
    document = json.loads(body.decode("utf-8"))
    required, optional = FIELDS[path]
    if not isinstance(document, dict) or set(document) - set(optional) != set(required):
        raise ValueError("the keys")
    for name, value in document.items():
        if type(value) is not {**required, **optional}[name]:
            raise ValueError("the value of " + name)
    if "audio" in document:
        try:
            audio = base64.b64decode(document.pop("audio"), validate=True)
        except binascii.Error as error:
            raise ValueError("audio is not base64") from error
        document["audioBytes"] = len(audio)
    elif document["mode"] not in ("cleanup", "translate", "both"):
        raise ValueError("the mode")
    elif ("target" in document) != (document["mode"] != "cleanup"):
        raise ValueError("the target")
    return document


class Handler(ScriptedHandler):
    token = None  # set before the service starts

    def serve(self, body):
        if self.path not in FIELDS and self.path != ALLOWANCE_PATH \
                or (body is None) != (self.path == ALLOWANCE_PATH):
            self.answer(404, {"error": "no such path"})
            return
        entry = {
            "path": self.path,
            "authorized": self.headers.get_all("Authorization") == ["Bearer " + self.token],
            "fields": {},
            "problem": None,
        }
        try:
            if body is not None:
                entry["fields"] = parsed(self.path, self.headers, body)
        except ValueError as error:
            entry["problem"] = str(error)
        settings = self.script.record(entry)
        if not entry["authorized"]:
            self.answer_as_told(settings, (401, {"error": "unauthorized"}), None)
        elif entry["problem"]:
            self.answer_as_told(settings, (400, {"error": "bad_request"}), None)
        elif body is None:
            self.answer_as_told(settings, None, self.script.allowance(settings))
        elif entry["fields"].get("audioBytes", 0) > AUDIO_LIMIT:
            self.answer_as_told(settings, (413, {"error": "audio_too_large"}), None)
        else:
            self.work(entry["fields"]["requestId"], settings)

    def work(self, request_id, settings):
        refusal = self.script.refusal(request_id, settings)
        if not refusal:
            self.script.complete(request_id, settings)
        document = {"text": settings["text"], "state": "completed"}
        if settings["costUsd"] is not None:
            document["costUsd"] = settings["costUsd"]
        self.answer_as_told(settings, refusal, document)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--token", default="test-token")
    parser.add_argument("--text", default="hello world")
    options = parser.parse_args()
    Handler.token = options.token
    run(Handler, Gateway(options.text))


if __name__ == "__main__":
    main()
