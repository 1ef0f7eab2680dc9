"""The user's keyboard and mouse, the windows and the picture of a GNOME session."""

import json
import os
import subprocess
import time

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

from .waiting import until  # noqa: E402

SHELL = "org.gnome.Shell"
REMOTE = "org.gnome.Mutter.RemoteDesktop"
SESSION = REMOTE + ".Session"
SOURCES = "imports.ui.status.keyboard.getInputSourceManager()"
CLIPBOARD = "imports.gi.St.Clipboard.get_default()"
COPIED = "imports.gi.St.ClipboardType.CLIPBOARD"
KEYS = "org.gnome.settings-daemon.plugins.media-keys"
OWN_KEY = "/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/test/"
POINTER = "global.get_pointer().slice(0, 2)"
WINDOWS = "global.get_window_actors().map(actor => actor.meta_window)"
TIMEOUT = 5000  # milliseconds for one answer
PAUSE = 0.003  # seconds after each key: without any, the shell loses modifiers
_EVDEV = 8  # a key's number in X less its number in the kernel
_BUTTONS = {1: 0x110, 2: 0x112, 3: 0x111}  # as the kernel numbers them
_SHIFT = 50

_bus = None


def here():
    return (os.environ.get("XDG_CURRENT_DESKTOP") == "GNOME"
            and os.environ.get("XDG_SESSION_TYPE") == "wayland")


def _call(name, path, interface, method, arguments=None):
    global _bus
    # The devices are unplugged when their connection ends, so it must not be let go.
    _bus = _bus or Gio.bus_get_sync(Gio.BusType.SESSION)
    return _bus.call_sync(name, path, interface, method, arguments, None, 0, TIMEOUT).unpack()


def evaluate(script):
    """What the shell makes of the script."""
    good, result = _call(SHELL, "/org/gnome/Shell", SHELL, "Eval", GLib.Variant("(s)", (script,)))
    if not good:
        raise RuntimeError(f"the shell says {result}")
    return json.loads(result) if result else None


def raise_window(pid):
    evaluate(f"{WINDOWS}.find(window => window.get_pid() == {pid})"
             ".activate(global.get_current_time())")


def windows():
    """The windows that stand on the screen, each with "pid", "title", "focused" and "rect"."""
    return evaluate(f"{WINDOWS}.map(window => {{ const r = window.get_buffer_rect(); return {{"
                    "pid: window.get_pid(), title: window.get_title(), "
                    "focused: window.has_focus(), rect: [r.x, r.y, r.width, r.height]} })")


def place(pid):
    """x and y of what the process draws for its window, its shadow with it."""
    return next(window["rect"][:2] for window in windows() if window["pid"] == pid)


def set_key(schema, key, value):
    subprocess.run(["gsettings", "set", schema, key, value], check=True)


def key(schema, key):
    return subprocess.run(["gsettings", "get", schema, key], check=True, stdout=subprocess.PIPE,
                          text=True).stdout.strip()


def own_keys():
    """How many keys of others' the shell listens to."""
    return evaluate("Main.shellDBusService._grabbedAccelerators.size")


def bind(keys, command):
    """The user's own shortcut for that command; another command for the one that was bound before."""
    script = os.path.join(os.environ["SESSION_DIR"], "shortcut")
    is_bound = os.path.exists(script)
    with open(script + ".new", "w") as file:
        file.write(f"#!/bin/sh\nexec {command}\n")
    os.chmod(script + ".new", 0o755)
    os.rename(script + ".new", script)
    if is_bound:
        return
    before = own_keys()
    set_key(KEYS, "custom-keybindings", f"['{OWN_KEY}']")
    for key, value in (("name", "Test"), ("command", script), ("binding", keys)):
        set_key(f"{KEYS}.custom-keybinding:{OWN_KEY}", key, value)
    until("the key is bound", lambda: own_keys() > before)


def read_clipboard():
    """The clipboard's text as the shell hands it to a window; None without one."""
    evaluate(f"global.asked = undefined, {CLIPBOARD}.get_text({COPIED}, "
             "(_, text) => { global.asked = [text]; }), null")
    return until("the clipboard has been read", lambda: evaluate("global.asked ?? null"))[0]


def write_clipboard(text):
    evaluate(f"{CLIPBOARD}.set_text({COPIED}, {json.dumps(text)})")


def screenshot(path):
    _call(SHELL + ".Screenshot", "/org/gnome/Shell/Screenshot", SHELL + ".Screenshot", "Screenshot",
          GLib.Variant("(bbs)", (False, False, path)))


class Devices:
    def __init__(self):
        self._path = _call(REMOTE, "/org/gnome/Mutter/RemoteDesktop", REMOTE, "CreateSession")[0]
        self._notify("Start")
        self.down = set()
        # The keyboard is plugged in with its first key.
        self.key(_SHIFT, True)
        self.key(_SHIFT, False)

    def _notify(self, method, signature=None, *values):
        _call(REMOTE, self._path, SESSION, method,
              GLib.Variant(signature, values) if signature else None)

    def key(self, code, pressed):
        """A key by its number in X."""
        (self.down.add if pressed else self.down.discard)(code)
        self._notify("NotifyKeyboardKeycode", "(ub)", code - _EVDEV, pressed)
        time.sleep(PAUSE)

    def point(self, x, y):
        there = [int(x), int(y)]
        here = evaluate(POINTER)
        self._notify("NotifyPointerMotionRelative", "(dd)",
                     *(float(to - at) for to, at in zip(there, here)))
        until("the pointer is there", lambda: evaluate(POINTER) == there)
        # A press before the shell has drawn the pointer there can be lost, for any program.
        evaluate("const stage = global.stage; global.drawn = false; "
                 "const drawing = stage.connect('after-paint', "
                 "() => { stage.disconnect(drawing); global.drawn = true; }); "
                 "stage.queue_redraw(); null")
        until("the shell has drawn it there", lambda: evaluate("global.drawn"))

    def button(self, number, pressed):
        self._notify("NotifyPointerButton", "(ib)", _BUTTONS[number], pressed)
        time.sleep(PAUSE)

    @staticmethod
    def load_layouts(layouts):
        names = layouts.split(",")
        sources = ", ".join(f"('xkb', '{name}')" for name in names)
        set_key("org.gnome.desktop.input-sources", "sources", f"[{sources}]")
        until("the shell has these layouts", lambda: evaluate(
            f"Object.values({SOURCES}.inputSources).map(source => source.id)") == names)
        Devices.use_layout(0)

    @staticmethod
    def use_layout(number):
        evaluate(f"{SOURCES}.inputSources[{number}].activate(false)")
        until("the layout is in use", lambda: evaluate(
            f"{SOURCES}.currentSource.index") == number)
