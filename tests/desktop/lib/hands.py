"""Keyboard and mouse of the test session, through XTest.

Keys are named by their place on the keyboard, not by what the layout makes of them, so they work
under any layout. xdotool is no help for this: it presses modifiers of its own.
"""

import ctypes
import subprocess

KEYS = {
    "escape": 9, "backspace": 22, "tab": 23, "return": 36, "space": 65,
    "left control": 37, "right control": 105, "left shift": 50, "right shift": 62,
    "left alt": 64, "right alt": 108, "super": 133, "menu": 135, "pause": 127, "scroll lock": 78,
    "home": 110, "end": 115, "left": 113, "right": 114, "delete": 119,
}
for row, first in (("qwertyuiop", 24), ("asdfghjkl", 38), ("zxcvbnm", 52), ("1234567890", 10)):
    KEYS.update({letter: first + place for place, letter in enumerate(row)})

SHORTCUT = ("super", "left shift", "space")
MODIFIERS = ("left control", "right control", "left shift", "right shift", "left alt", "right alt",
             "super")

_x11 = ctypes.CDLL("libX11.so.6")
_xtest = ctypes.CDLL("libXtst.so.6")
_x11.XOpenDisplay.restype = ctypes.c_void_p
_x11.XSync.argtypes = [ctypes.c_void_p, ctypes.c_int]
_x11.XQueryKeymap.argtypes = [ctypes.c_void_p, ctypes.c_char_p]
_xtest.XTestFakeKeyEvent.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_int, ctypes.c_ulong]
_xtest.XTestFakeButtonEvent.argtypes = _xtest.XTestFakeKeyEvent.argtypes
_xtest.XTestFakeMotionEvent.argtypes = [
    ctypes.c_void_p, ctypes.c_int, ctypes.c_int, ctypes.c_int, ctypes.c_ulong]
_display = None


def _connection():
    global _display
    if _display is None:
        _display = _x11.XOpenDisplay(None)
        if not _display:
            raise RuntimeError("no display")
    return _display


def press(name):
    _xtest.XTestFakeKeyEvent(_connection(), KEYS[name], 1, 0)
    _x11.XSync(_connection(), 0)


def release(name):
    _xtest.XTestFakeKeyEvent(_connection(), KEYS[name], 0, 0)
    _x11.XSync(_connection(), 0)


def tap(*names):
    """Presses the keys in this order and releases them in the opposite one."""
    for name in names:
        press(name)
    for name in reversed(names):
        release(name)


def type_letters(text):
    """Lower-case letters, digits and blanks only."""
    for letter in text:
        tap("space" if letter == " " else letter)


def held():
    """The names of the keys that the X server holds for pressed."""
    pressed = ctypes.create_string_buffer(32)
    _x11.XQueryKeymap(_connection(), pressed)
    return {name for name, code in KEYS.items() if pressed.raw[code // 8] & (1 << code % 8)}


def release_all():
    for name in held():
        release(name)


def click(x, y):
    _xtest.XTestFakeMotionEvent(_connection(), -1, int(x), int(y), 0)
    for down in (1, 0):
        _xtest.XTestFakeButtonEvent(_connection(), 1, down, 0)
    _x11.XSync(_connection(), 0)


def set_layouts(*layouts):
    """The first one is active."""
    subprocess.run(["setxkbmap", "-layout", ",".join(layouts)], check=True)
