#!/usr/bin/python3
"""The settings portal of a desktop that knows one setting: whether the user wants animations.

    portal.py animations|stillness

The same words on standard input change it; every answer is one line of JSON.
"""

import sys

import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

SETTINGS = "org.freedesktop.portal.Settings"
GROUP, KEY = "org.gnome.desktop.interface", "enable-animations"


class Portal(dbus.service.Object):
    def __init__(self, bus, animations):
        super().__init__(bus, "/org/freedesktop/portal/desktop")
        self.name = dbus.service.BusName("org.freedesktop.portal.Desktop", bus)
        self.animations = animations

    @dbus.service.method(SETTINGS, "ss", "v")
    def Read(self, group, key):
        if (group, key) != (GROUP, KEY):
            raise dbus.DBusException("no such setting",
                                     name="org.freedesktop.portal.Error.NotFound")
        return dbus.Boolean(self.animations, variant_level=1)

    @dbus.service.signal(SETTINGS, "ssv")
    def SettingChanged(self, group, key, value):
        pass

    def obey(self, word):
        self.animations = word == "animations"
        self.SettingChanged(GROUP, KEY, dbus.Boolean(self.animations, variant_level=1))
        print("{}", flush=True)


def main():
    DBusGMainLoop(set_as_default=True)
    loop = GLib.MainLoop()
    portal = Portal(dbus.SessionBus(), sys.argv[1] == "animations")

    def line_comes(*_):
        line = sys.stdin.readline()
        if not line:
            loop.quit()
            return False
        portal.obey(line.strip())
        return True

    GLib.io_add_watch(sys.stdin.fileno(), GLib.IO_IN | GLib.IO_HUP, line_comes)
    print("ready", flush=True)
    loop.run()


if __name__ == "__main__":
    main()
