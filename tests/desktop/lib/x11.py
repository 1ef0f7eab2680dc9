"""Keyboard and mouse of an X11 session, through XTest.

xdotool is no help for this: it presses modifiers of its own.
"""

import ctypes
import subprocess

from .waiting import until

CORE_KEYBOARD = 0x100
KEY_PRESS = 2
FIRST_BUTTON = 0x100  # in a pointer's mask; the others follow

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
_x11.XQueryPointer.argtypes = [ctypes.c_void_p, ctypes.c_ulong] + [ctypes.c_void_p] * 7
_xtest.XTestFakeKeyEvent.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_int, ctypes.c_ulong]
_xtest.XTestFakeButtonEvent.argtypes = _xtest.XTestFakeKeyEvent.argtypes
_xtest.XTestFakeMotionEvent.argtypes = [
    ctypes.c_void_p, ctypes.c_int, ctypes.c_int, ctypes.c_int, ctypes.c_ulong]


class _XkbState(ctypes.Structure):
    _fields_ = [("group", ctypes.c_ubyte), ("locked_group", ctypes.c_ubyte),
                ("base_group", ctypes.c_ushort), ("latched_group", ctypes.c_ushort),
                ("mods", ctypes.c_ubyte), ("base_mods", ctypes.c_ubyte),
                ("latched_mods", ctypes.c_ubyte), ("locked_mods", ctypes.c_ubyte),
                ("rest", ctypes.c_ubyte * 16)]


class Devices:
    def __init__(self):
        self._display = _x11.XOpenDisplay(None)
        if not self._display:
            raise RuntimeError("no display")

    def _sync(self):
        _x11.XSync(self._display, 0)

    @property
    def down(self):
        """The keys that the X server holds for pressed."""
        pressed = ctypes.create_string_buffer(32)
        _x11.XQueryKeymap(self._display, pressed)
        return {code for code in range(256) if pressed.raw[code // 8] & (1 << code % 8)}

    def key(self, code, pressed):
        _xtest.XTestFakeKeyEvent(self._display, code, pressed, 0)
        self._sync()

    def point(self, x, y):
        _xtest.XTestFakeMotionEvent(self._display, -1, int(x), int(y), 0)
        self._sync()

    def button(self, number, pressed):
        """A window manager looks at a click before its window does, and the server keeps what the
        pointer does in the meantime back, but no key: so this waits until it is let through."""
        _xtest.XTestFakeButtonEvent(self._display, number, pressed, 0)
        self._sync()
        if not pressed:
            until(f"button {number} is up", lambda: not self._buttons & FIRST_BUTTON << number - 1)

    @property
    def _buttons(self):
        root, child = ctypes.c_ulong(), ctypes.c_ulong()
        places = [ctypes.c_int() for _ in range(4)]
        mask = ctypes.c_uint()
        _x11.XQueryPointer(self._display, _x11.XDefaultRootWindow(self._display),
                           *map(ctypes.byref, (root, child, *places, mask)))
        return mask.value

    def load_layouts(self, layouts):
        subprocess.run(["setxkbmap", "-layout", layouts], check=True)

    def use_layout(self, number):
        _x11.XkbLockGroup(self._display, CORE_KEYBOARD, number)
        self._sync()

    def latch(self, modifiers):
        _x11.XkbLatchModifiers(self._display, CORE_KEYBOARD, 0xFF, modifiers)
        self._sync()

    def lock(self, modifiers):
        _x11.XkbLockModifiers(self._display, CORE_KEYBOARD, 0xFF, modifiers)
        self._sync()

    def latched(self):
        state = _XkbState()
        _x11.XkbGetState(self._display, CORE_KEYBOARD, ctypes.byref(state))
        return state.latched_mods, state.locked_mods


class ShortcutGrab:
    """Another program that has a shortcut."""

    def __init__(self, code, modifiers):
        self._grabbed = code, modifiers

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
