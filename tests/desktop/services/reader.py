#!/usr/bin/python3
"""A screen reader that never rests: it listens to all that a program says on the accessibility bus,
and asks everything of each of its elements, over and over.

    tests/desktop/services/reader.py PID
"""

import os
import sys
import threading

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))

from lib import eyes  # noqa: E402

EVENTS = ("object", "focus", "window")


def read(pid):
    while True:
        app = eyes.application(pid)
        for node in app.walk() if app else ():
            try:
                node.everything()
                node.states  # pylint: disable=pointless-statement
                node.bounds  # pylint: disable=pointless-statement
            except eyes.Gone:
                continue


def hear(event):
    try:
        event.source.get_role_name()
    except (AttributeError, GLib.Error):
        pass  # it is gone, or has no time


def main(pid):
    listener = Atspi.EventListener.new(hear)
    for event in EVENTS:
        listener.register(event)
    threading.Thread(target=read, args=(pid,), daemon=True).start()
    Atspi.event_main()


if __name__ == "__main__":
    main(int(sys.argv[1]))
