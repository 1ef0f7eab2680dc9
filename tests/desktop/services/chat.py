#!/usr/bin/python3
"""A window with a field to write a message in: Return sends it, which empties the field."""

import gi

gi.require_version("Gtk", "3.0")
from gi.repository import Gtk  # noqa: E402

window = Gtk.Window(title="Chat", default_width=500)
field = Gtk.Entry()
field.get_accessible().set_name("message")
field.connect("activate", lambda entry: entry.set_text(""))
window.add(field)
window.show_all()
Gtk.main()
