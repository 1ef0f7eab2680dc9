#!/usr/bin/python3
"""A window of GTK 4 that is destroyed by SIGUSR1, and a program that lives on without it: as a
dialog of the desktop's does."""

import os
import signal

import gi

gi.require_version("Gtk", "4.0")
from gi.repository import GLib, Gtk  # noqa: E402


def show(application):
    window = Gtk.ApplicationWindow(application=application, title="Passing", child=Gtk.Entry())
    GLib.unix_signal_add(GLib.PRIORITY_DEFAULT, signal.SIGUSR1, window.destroy)
    application.hold()
    window.present()


application = Gtk.Application(application_id=f"org.example.Passing{os.getpid()}")
application.connect("activate", show)
application.run()
