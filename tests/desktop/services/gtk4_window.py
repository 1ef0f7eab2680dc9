#!/usr/bin/python3
"""A window of GTK 4 and libadwaita with a field of each kind, one below the other."""

import os

import gi

gi.require_version("Adw", "1")
gi.require_version("Gtk", "4.0")
from gi.repository import Adw, Gtk  # noqa: E402


def show(application):
    fields = Gtk.Box(orientation=Gtk.Orientation.VERTICAL, spacing=12)
    line = Gtk.Entry()
    line.update_property([Gtk.AccessibleProperty.LABEL], ["line"])
    hidden = Gtk.Entry(visibility=False)
    hidden.update_property([Gtk.AccessibleProperty.LABEL], ["hidden"])
    rows = Gtk.ListBox()
    rows.append(Adw.PasswordEntryRow(title="secret row"))
    area = Gtk.TextView(vexpand=True)
    for widget in (line, hidden, rows, area):
        fields.append(widget)
    window = Adw.ApplicationWindow(application=application, title="Fields", default_width=500,
                                   default_height=400, content=fields)
    window.present()
    line.grab_focus()


application = Adw.Application(application_id=f"org.example.Fields{os.getpid()}")
application.connect("activate", show)
application.run()
