#!/usr/bin/python3
"""The prompter that a GNOME keyring asks for the user's password, and a user who never answers. Says
a line of each question, once it is open."""

import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

PROMPTER = "org.gnome.keyring.internal.Prompter"


class Prompter(dbus.service.Object):
    def __init__(self, bus):
        super().__init__(bus, "/org/gnome/keyring/Prompter")
        self.name = dbus.service.BusName("org.gnome.keyring.SystemPrompter", bus)

    @dbus.service.method(PROMPTER, "o", "")
    def BeginPrompting(self, _callback):
        print("open", flush=True)

    @dbus.service.method(PROMPTER, "o", "")
    def StopPrompting(self, _callback):
        print("closed", flush=True)


DBusGMainLoop(set_as_default=True)
prompter = Prompter(dbus.SessionBus())
print("ready", flush=True)
GLib.MainLoop().run()
