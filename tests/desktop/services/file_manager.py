#!/usr/bin/python3
"""A file manager: shows nothing, but prints the addresses that it is to show, a line for each
call."""

import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

NAME = "org.freedesktop.FileManager1"


class Manager(dbus.service.Object):
    @dbus.service.method(NAME, "ass", "")
    def ShowItems(self, addresses, startup):
        print(*addresses, flush=True)


def main():
    DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()
    manager = Manager(bus, "/org/freedesktop/FileManager1")
    name = dbus.service.BusName(NAME, bus)
    print("ready", flush=True)
    GLib.MainLoop().run()
    del manager, name


if __name__ == "__main__":
    main()
