#!/usr/bin/python3
"""The speech provider, as the desktop tests need it: a small HTTP service on 127.0.0.1.

    openrouter.py [--text TEXT] [--key KEY] [--audio FOLDER]

It prints its port and a line end, then serves until it is ended. The base URL for Vesko is
http://127.0.0.1:PORT/api/v1/.

POST /api/v1/audio/transcriptions
    Answers as the provider does. A request without "Bearer KEY" gets a 401, one that is not of
    the provider's form a 400 with the reason; both are recorded as well.
POST /control, GET /requests, DELETE /requests
    As scripted.py has it, with these settings more:
      text       what was "said"                           (--text)
      cost       dollars under usage.cost, null for none   null
      requestID  X-Generation-Id, null for none            null
    A request is recorded as {"path", "headers", "authorized", "model", "format", "language",
    "audio", "bytes", "problem"}. "audio" is the file, if a folder was given, that holds the decoded
    audio. The key is never recorded or printed.
"""

import argparse
import base64
import binascii
import json
import os
import time

from scripted import Script, ScriptedHandler, run

SPEECH_PATH = "/api/v1/audio/transcriptions"


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


class Handler(ScriptedHandler):
    key = None  # these two are set before the service starts
    audio_folder = None

    def serve(self, body):
        if body is None or self.path != SPEECH_PATH:
            self.answer(404, {"error": "no such path"})
            return
        entry = {
            "path": self.path,
            "headers": self.recorded_headers("authorization"),
            "authorized": self.headers.get_all("Authorization") == ["Bearer " + self.key],
            "problem": None,
        }
        try:
            entry.update(parsed_speech_request(self.headers, body))
            self.keep_audio(entry)
        except ValueError as error:
            entry["problem"] = str(error)
        settings = self.script.record(entry)
        refusal = None
        if not entry["authorized"]:
            refusal = 401, {"error": "this key is unknown"}
        elif entry["problem"]:
            refusal = 400, {"error": entry["problem"]}
        document = {"text": settings["text"]}
        if settings["cost"] is not None:
            document["usage"] = {"cost": settings["cost"]}
        identity = settings["requestID"]
        self.answer_as_told(settings, refusal, document,
                            {} if identity is None else {"X-Generation-Id": identity})

    def keep_audio(self, entry):
        audio = entry.pop("audio bytes")
        entry["bytes"] = len(audio)
        if self.audio_folder:
            entry["audio"] = os.path.join(
                self.audio_folder, f"request-{time.monotonic_ns()}.{entry['format']}")
            with open(entry["audio"], "wb") as file:
                file.write(audio)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--text", default="hello world")
    parser.add_argument("--key", default="test-key")
    parser.add_argument("--audio", help="folder for the decoded audio of each request")
    options = parser.parse_args()
    if options.audio:
        os.makedirs(options.audio, exist_ok=True)
    Handler.key = options.key
    Handler.audio_folder = options.audio
    run(Handler, Script(text=options.text, cost=None, requestID=None))


if __name__ == "__main__":
    main()
