#!/usr/bin/python3
"""A desktop's notifications: shows none, but prints each call as a line of JSON.

    notifications.py [CAPABILITY...]

A line "NUMBER ACTION" on standard input chooses that action of a notification.
"""

import json
import sys

import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

NAME = "org.freedesktop.Notifications"


class Server(dbus.service.Object):
    def __init__(self, bus, capabilities):
        super().__init__(bus, "/org/freedesktop/Notifications")
        self.name = dbus.service.BusName(NAME, bus)
        self.capabilities = capabilities
        self.last = 0

    @dbus.service.method(NAME, "", "as")
    def GetCapabilities(self):
        return dbus.Array(self.capabilities, signature="s")

    @dbus.service.method(NAME, "susssasa{sv}i", "u")
    def Notify(self, name, replaces, icon, title, text, actions, hints, timeout):
        if not replaces:
            self.last += 1
        number = int(replaces) or self.last
        print(json.dumps({"number": number, "replaces": int(replaces), "title": title,
                          "text": text, "actions": dict(zip(actions[::2], actions[1::2])),
                          "entry": hints.get("desktop-entry")}), flush=True)
        return dbus.UInt32(number)

    @dbus.service.method(NAME, "u", "")
    def CloseNotification(self, number):
        print(json.dumps({"closed": int(number)}), flush=True)
        self.NotificationClosed(number, 3)

    @dbus.service.signal(NAME, "uu")
    def NotificationClosed(self, number, reason):
        pass

    @dbus.service.signal(NAME, "us")
    def ActionInvoked(self, number, action):
        pass


def main():
    DBusGMainLoop(set_as_default=True)
    loop = GLib.MainLoop()
    server = Server(dbus.SessionBus(), sys.argv[1:])

    def line_comes(*_):
        line = sys.stdin.readline()
        if not line:
            loop.quit()
            return False
        number, action = line.split()
        server.ActionInvoked(dbus.UInt32(int(number)), action)
        return True

    GLib.io_add_watch(sys.stdin.fileno(), GLib.IO_IN | GLib.IO_HUP, line_comes)
    print("ready", flush=True)
    loop.run()


if __name__ == "__main__":
    main()
