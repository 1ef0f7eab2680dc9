"""The library's folder, read and made without the program's help."""

import json
import os
import random
import uuid

WORDS = ("the river and a small house near it where my brother lives with two dogs one old boat "
         "some bread a large coffee and every morning another story about the weather").split()


def read(root):
    """The document, or None before the first saved change."""
    try:
        with open(os.path.join(root, "library.json"), encoding="utf-8") as file:
            return json.load(file)
    except FileNotFoundError:
        return None


def recordings(root):
    """All recordings in the order of their notes, each with its `note` and the `path` of its
    audio."""
    found = []
    for note in (read(root) or {"notes": []})["notes"]:
        for recording in note["recordings"]:
            path = os.path.join(root, "recordings", recording["fileName"])
            found.append({**recording, "note": note, "path": path})
    return found


def _identity(chance):
    return str(uuid.UUID(int=chance.getrandbits(128), version=4)).upper()


def _written(value, depth=0):
    """The file's own form: two blanks a level, " : " after a key, an empty array over three lines,
    sorted keys, a slash behind a backslash."""
    inner, outer = "  " * (depth + 1), "  " * depth
    if isinstance(value, dict):
        rows = [f"{inner}{json.dumps(key)} : {_written(value[key], depth + 1)}"
                for key in sorted(value)]
        return "{\n" + ",\n".join(rows) + f"\n{outer}}}"
    if isinstance(value, list):
        rows = [inner + _written(element, depth + 1) for element in value]
        return "[\n" + ",\n".join(rows) + f"\n{outer}]"
    return json.dumps(value, ensure_ascii=False).replace("/", "\\/")


def write(root, notes, projects=0):
    """Makes a library of so many dictated notes, about 5 KB each, and so many empty projects; the
    same one every time."""
    chance = random.Random(notes)
    made = []
    for number in range(notes):
        when = f"2025-{number // 28 % 12 + 1:02}-{number % 28 + 1:02}T08:{number % 60:02}:00Z"
        text = " ".join(chance.choices(WORDS, k=246))
        note, recording, attempt = (_identity(chance) for _ in range(3))
        made.append({
            "id": note, "kind": "dictation", "title": "", "body": text, "createdAt": when,
            "updatedAt": when, "recordings": [{
                "id": recording, "noteID": note, "fileName": recording + ".m4a",
                "createdAt": when, "duration": 61.5, "status": "ready", "appendedToNote": True,
                "appliedBodyRevision": when, "attempts": [{
                    "id": attempt, "provider": "OpenRouter",
                    "model": "openai/whisper-large-v3-turbo", "startedAt": when,
                    "completedAt": when, "status": "ready", "rawText": text, "text": text,
                    "cost": 0.0004, "requestID": "gen-" + attempt}]}]})
    write_document(root, notes=made, projects=[
        {"id": _identity(chance), "name": f"Project {number + 1}",
         "createdAt": "2025-01-01T08:00:00Z"} for number in range(projects)])


def write_document(root, notes, projects=(), dictionary=()):
    """Makes a library of these records."""
    os.makedirs(os.path.join(root, "recordings"), mode=0o700)
    path = os.path.join(root, "library.json")
    with open(path, "x", encoding="utf-8") as file:
        os.chmod(path, 0o600)
        file.write(_written({"schemaVersion": 1, "projects": list(projects), "notes": list(notes),
                             "dictionary": list(dictionary)}))
