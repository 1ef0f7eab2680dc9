#!/usr/bin/python3
"""A place at the left edge of the screen that files are dropped on, as a file manager is: prints
"over" while they are above it, and what was dropped as a line of JSON, the name and the content of
each."""

import json
import os
import urllib.parse

import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, Gtk  # noqa: E402


def over(*_):
    print("over", flush=True)


def dropped(widget, context, x, y, data, info, time):
    files = {}
    for address in data.get_uris():
        path = urllib.parse.unquote(urllib.parse.urlparse(address).path)
        with open(path, encoding="utf-8") as file:
            files[os.path.basename(path)] = file.read()
    print(json.dumps(files), flush=True)


window = Gtk.Window(type=Gtk.WindowType.POPUP)
window.set_default_size(70, 200)
window.move(2, 300)
window.drag_dest_set(Gtk.DestDefaults.ALL, [], Gdk.DragAction.COPY)
window.drag_dest_add_uri_targets()
window.connect("drag-motion", over)
window.connect("drag-data-received", dropped)
window.connect("map-event", lambda *_: print("ready", flush=True))
window.show_all()
Gtk.main()
