"""The windows, the keyboard layouts and the picture of a KWin session."""

import os
import subprocess
import tempfile

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

RAISE = """workspace.clientList().forEach(function (client) {
    if (client.pid === %d) workspace.activeClient = client;
});
"""


def here():
    return "KDE_FULL_SESSION" in os.environ


def _ask(service, path, method, *arguments):
    return subprocess.run(
        ["dbus-send", "--session", "--print-reply=literal", "--dest=" + service, path, method,
         *arguments], stdout=subprocess.PIPE, text=True, check=True).stdout.split()


def raise_window(pid):
    with tempfile.NamedTemporaryFile("w", suffix=".js") as file:
        file.write(RAISE % pid)
        file.flush()
        number = _ask("org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting.loadScript",
                      "string:" + file.name)[-1]
        _ask("org.kde.KWin", "/" + number, "org.kde.kwin.Script.run")
        _ask("org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting.unloadScript",
             "string:" + file.name)


def load_layouts(layouts):
    with open(os.path.join(os.environ["XDG_CONFIG_HOME"], "kxkbrc"), "w") as file:
        file.write(f"[Layout]\nUse=true\nLayoutList={layouts}\n")
    subprocess.run(["dbus-send", "--session", "--type=signal", "/Layouts",
                    "org.kde.keyboard.reloadConfig"], check=True)


def use_layout(number):
    _ask("org.kde.keyboard", "/Layouts", "org.kde.KeyboardLayouts.setLayout", f"uint32:{number}")


def screenshot(path):
    reader, writer = os.pipe()
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    told = bus.call_with_unix_fd_list_sync(
        "org.kde.KWin", "/org/kde/KWin/ScreenShot2", "org.kde.KWin.ScreenShot2",
        "CaptureActiveScreen", GLib.Variant("(a{sv}h)", ({}, 0)), None, 0, 5000,
        Gio.UnixFDList.new_from_array([writer]), None)[0].unpack()[0]
    with open(reader, "rb") as pixels:
        subprocess.run(["convert", "-size", f"{told['stride'] // 4}x{told['height']}", "-depth",
                        "8", "bgra:-", "-alpha", "off", path],
                       input=pixels.read(told["stride"] * told["height"]), check=True)
