#!/usr/bin/python3
"""The usage analytics service, as the desktop tests need it: a small HTTP service on 127.0.0.1.

    analytics.py [--app-key KEY]

It prints its port and a line end, then serves until it is ended. The base URL for Vesko is
http://127.0.0.1:PORT.

POST /api/v0/events
    Answers as the service does: a request without "App-Key: KEY" gets a 401, one that holds
    anything but events, or more than it may, a 400 with the reason; both are recorded as well.
POST /control, GET /requests, DELETE /requests
    As scripted.py has it. A request is recorded as {"headers", "authorized", "body", "events",
    "problem"}: the names of the headers but for the key, the body's text, the names of the events,
    and what was found that may not be there.
"""

import argparse
import json
import re

from scripted import Script, ScriptedHandler, run

EVENTS_PATH = "/api/v0/events"
HEADERS = {"Host", "Accept", "Content-Type", "App-Key", "Content-Length"}
EVENTS = {
    "app_started", "recording_started", "recording_saved", "transcription_succeeded",
    "transcription_failed", "note_created", "note_exported", "text_copied", "onboarding_started",
    "onboarding_completed", "sign_in_started", "sign_in_succeeded", "sign_in_failed",
    "sign_in_cancelled", "signed_out", "account_deleted",
}
UUID = re.compile("[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}")


def matches(form):
    return lambda value: isinstance(value, str) and re.fullmatch(form, value) is not None


ENVELOPE = {
    "eventName": lambda value: isinstance(value, str) and value in EVENTS,
    "sessionId": matches(UUID),
    "timestamp": matches(r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ"),
    "systemProps": {
        "isDebug": lambda value: isinstance(value, bool),
        "sdkVersion": matches("vesko-aptabase@1"),
        "osName": matches("Linux"),
        "appVersion": matches(r"\d+(\.\d+){1,3}"),
        "appBuildNumber": matches(r"\d{1,9}"),
    },
    "props": {
        "iid": matches(UUID),
        "environment": matches("sandbox|production"),
    },
}


def single(pairs):
    """An object whose keys stand in it once each."""
    if len({key for key, _ in pairs}) != len(pairs):
        raise ValueError("a key stands there twice")
    return dict(pairs)


def check(value, form, place):
    """Raises ValueError unless the value is of the form, with all its keys and no others."""
    if callable(form):
        if not form(value):
            raise ValueError("the value of " + place)
        return
    if not isinstance(value, dict):
        raise ValueError(place + " is no object")
    if set(value) != set(form):
        raise ValueError("the keys of " + place)
    for key, inner in form.items():
        check(value[key], inner, key)


def events_of(headers, body):
    """The names of the events; ValueError tells what is there that may not be."""
    unknown = set(headers) - HEADERS
    if unknown:
        raise ValueError("headers: " + ", ".join(sorted(unknown)))
    if headers.get_all("Content-Type") != ["application/json"]:
        raise ValueError("Content-Type is not application/json")
    batch = json.loads(body.decode("utf-8"), object_pairs_hook=single)
    if not isinstance(batch, list) or not 1 <= len(batch) <= 25:
        raise ValueError("no batch of 1 to 25 events")
    for envelope in batch:
        check(envelope, ENVELOPE, "envelope")
    return [envelope["eventName"] for envelope in batch]


class Handler(ScriptedHandler):
    app_key = None  # set before the service starts

    def serve(self, body):
        if body is None or self.path != EVENTS_PATH:
            self.answer(404, {"error": "no such path"})
            return
        entry = {
            "headers": self.recorded_headers("app-key"),
            "authorized": self.headers.get_all("App-Key") == [self.app_key],
            "body": body.decode("utf-8", "replace"),
            "events": [],
            "problem": None,
        }
        try:
            entry["events"] = events_of(self.headers, body)
        except ValueError as error:
            entry["problem"] = str(error)
        refusal = None
        if not entry["authorized"]:
            refusal = 401, {"error": "this key is unknown"}
        elif entry["problem"]:
            refusal = 400, {"error": entry["problem"]}
        self.answer_as_told(self.script.record(entry), refusal, {})


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--app-key", default="test-app-key")
    Handler.app_key = parser.parse_args().app_key
    run(Handler, Script())


if __name__ == "__main__":
    main()
