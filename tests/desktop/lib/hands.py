"""Keyboard and mouse of the test session, through XTest.

Keys are named by their place on the keyboard, not by what the layout makes of them, so they work
under any layout. xdotool is no help for this: it presses modifiers of its own.
"""

import ctypes
import subprocess
import time

from .waiting import human_pause

KEYS = {
    "escape": 9, "backspace": 22, "tab": 23, "return": 36, "space": 65,
    "left control": 37, "right control": 105, "left shift": 50, "right shift": 62,
    "left alt": 64, "right alt": 108, "super": 133, "menu": 135, "pause": 127, "scroll lock": 78,
    "home": 110, "end": 115, "left": 113, "right": 114, "delete": 119, "up": 111, "down": 116,
    "page up": 112, "page down": 117, "f2": 68, "comma": 59,
}
for row, first in (("qwertyuiop", 24), ("asdfghjkl", 38), ("zxcvbnm", 52), ("1234567890", 10)):
    KEYS.update({letter: first + place for place, letter in enumerate(row)})

# Vesko's shortcut. Presses of it closer together than a quarter of a second count as one, so each
# is kept apart from the one before, as a hand does.
SHORTCUT = ("super", "left shift", "space")
APART = 0.3  # seconds

CORE_KEYBOARD = 0x100
KEY_PRESS = 2

_x11 = ctypes.CDLL("libX11.so.6")
_xtest = ctypes.CDLL("libXtst.so.6")
_x11.XOpenDisplay.restype = ctypes.c_void_p
_x11.XSync.argtypes = [ctypes.c_void_p, ctypes.c_int]
_x11.XQueryKeymap.argtypes = [ctypes.c_void_p, ctypes.c_char_p]
_x11.XkbLockGroup.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_uint]
_x11.XkbGetState.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_void_p]
for _change in (_x11.XkbLatchModifiers, _x11.XkbLockModifiers):
    _change.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_uint, ctypes.c_uint]
_x11.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
_x11.XDefaultRootWindow.restype = ctypes.c_ulong
_x11.XGrabKeyboard.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int,
                               ctypes.c_int, ctypes.c_ulong]
_x11.XGrabKey.argtypes = [ctypes.c_void_p, ctypes.c_int, ctypes.c_uint, ctypes.c_ulong,
                          ctypes.c_int, ctypes.c_int, ctypes.c_int]
_x11.XPending.argtypes = _x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
_x11.XNextEvent.argtypes = [ctypes.c_void_p, ctypes.c_void_p]
_xtest.XTestFakeKeyEvent.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_int, ctypes.c_ulong]
_xtest.XTestFakeButtonEvent.argtypes = _xtest.XTestFakeKeyEvent.argtypes
_xtest.XTestFakeMotionEvent.argtypes = [
    ctypes.c_void_p, ctypes.c_int, ctypes.c_int, ctypes.c_int, ctypes.c_ulong]
_display = None
_shortcut_pressed = 0.0


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


def press_shortcut():
    """Presses the keys of the shortcut and leaves them down."""
    global _shortcut_pressed
    human_pause(max(0.0, _shortcut_pressed + APART - time.monotonic()))
    for name in SHORTCUT:
        press(name)
    _shortcut_pressed = time.monotonic()


def release_shortcut():
    for name in reversed(SHORTCUT):
        release(name)


def tap_shortcut():
    press_shortcut()
    release_shortcut()


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


def point(x, y):
    """Puts the pointer there."""
    _xtest.XTestFakeMotionEvent(_connection(), -1, int(x), int(y), 0)
    _x11.XSync(_connection(), 0)


def press_button(number=1):
    _xtest.XTestFakeButtonEvent(_connection(), number, 1, 0)
    _x11.XSync(_connection(), 0)


def release_button(number=1):
    _xtest.XTestFakeButtonEvent(_connection(), number, 0, 0)
    _x11.XSync(_connection(), 0)


def click(x, y, button=1):
    point(x, y)
    press_button(button)
    release_button(button)


def drag(*places, steps=10):
    """Moves the pointer from the first of the places to the last with its button down, as slowly as
    a hand."""
    point(*places[0])
    press_button()
    for begin, end in zip(places, places[1:]):
        for step in range(1, steps + 1):
            point(*(a + (b - a) * step / steps for a, b in zip(begin, end)))
            human_pause(0.02)
    release_button()


LAYOUTS = ("us", "ru", "gr")


def load_layouts(*names):
    """Gives the keyboard these layouts, by default all of LAYOUTS; the first is in use."""
    subprocess.run(["setxkbmap", "-layout", ",".join(names or LAYOUTS)], check=True)
    # The first key of a keyboard makes the server forget which layout was in use.
    tap("left shift")


def use_layout(name):
    _x11.XkbLockGroup(_connection(), CORE_KEYBOARD, LAYOUTS.index(name))
    _x11.XSync(_connection(), 0)


SHIFT, CONTROL, ALT, SUPER, LEVEL3 = 1, 4, 8, 64, 128  # the server's bits of the modifiers


def latch(modifiers):
    """As sticky keys do after a tap: these, and no others, hold for the next key."""
    _x11.XkbLatchModifiers(_connection(), CORE_KEYBOARD, 0xFF, modifiers)
    _x11.XSync(_connection(), 0)


def lock(modifiers):
    """As sticky keys do after two taps: these, and no others, hold until they are unlocked."""
    _x11.XkbLockModifiers(_connection(), CORE_KEYBOARD, 0xFF, modifiers)
    _x11.XSync(_connection(), 0)


class _XkbState(ctypes.Structure):
    _fields_ = [("group", ctypes.c_ubyte), ("locked_group", ctypes.c_ubyte),
                ("base_group", ctypes.c_ushort), ("latched_group", ctypes.c_ushort),
                ("mods", ctypes.c_ubyte), ("base_mods", ctypes.c_ubyte),
                ("latched_mods", ctypes.c_ubyte), ("locked_mods", ctypes.c_ubyte),
                ("rest", ctypes.c_ubyte * 16)]


def latched():
    """The modifiers that are latched, and those that are locked."""
    state = _XkbState()
    _x11.XkbGetState(_connection(), CORE_KEYBOARD, ctypes.byref(state))
    return state.latched_mods, state.locked_mods


class ShortcutGrab:
    """Another program that has a shortcut, by default Vesko's."""

    def __init__(self, key="space", modifiers=SUPER | SHIFT):
        self._grabbed = KEYS[key], modifiers

    def __enter__(self):
        self._display = _x11.XOpenDisplay(None)
        root = _x11.XDefaultRootWindow(self._display)
        _x11.XGrabKey(self._display, *self._grabbed, root, 0, 1, 1)
        _x11.XSync(self._display, 0)
        return self

    def __exit__(self, *_):
        _x11.XCloseDisplay(self._display)


class KeyboardGrab:
    """Another program that holds the keyboard, as a screen locker, a run dialog or an open menu
    does; the active window stays what it was."""

    def __enter__(self):
        self._display = _x11.XOpenDisplay(None)
        root = _x11.XDefaultRootWindow(self._display)
        status = _x11.XGrabKeyboard(self._display, root, 0, 1, 1, 0)
        _x11.XSync(self._display, 0)
        if status:
            raise RuntimeError(f"the keyboard can't be grabbed: {status}")
        return self

    def keys(self):
        """The keys that it received, by their codes, since that was asked last."""
        found = []
        while _x11.XPending(self._display):
            event = (ctypes.c_long * 24)()
            _x11.XNextEvent(self._display, event)
            if ctypes.cast(event, ctypes.POINTER(ctypes.c_int))[0] == KEY_PRESS:
                found.append(ctypes.cast(event, ctypes.POINTER(ctypes.c_uint))[21])
        return found

    def __exit__(self, *_):
        _x11.XCloseDisplay(self._display)
