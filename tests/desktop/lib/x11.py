"""Keyboard and mouse of an X11 session, through XTest.

xdotool is no help for this: it presses modifiers of its own.
"""

import ctypes
import subprocess

CORE_KEYBOARD = 0x100

_x11 = ctypes.CDLL("libX11.so.6")
_xtest = ctypes.CDLL("libXtst.so.6")
_x11.XOpenDisplay.restype = ctypes.c_void_p
_x11.XSync.argtypes = [ctypes.c_void_p, ctypes.c_int]
_x11.XQueryKeymap.argtypes = [ctypes.c_void_p, ctypes.c_char_p]
_x11.XkbLockGroup.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_uint]
_xtest.XTestFakeKeyEvent.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_int, ctypes.c_ulong]
_xtest.XTestFakeButtonEvent.argtypes = _xtest.XTestFakeKeyEvent.argtypes
_xtest.XTestFakeMotionEvent.argtypes = [
    ctypes.c_void_p, ctypes.c_int, ctypes.c_int, ctypes.c_int, ctypes.c_ulong]


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
        _xtest.XTestFakeButtonEvent(self._display, number, pressed, 0)
        self._sync()

    def load_layouts(self, layouts):
        subprocess.run(["setxkbmap", "-layout", layouts], check=True)

    def use_layout(self, number):
        _x11.XkbLockGroup(self._display, CORE_KEYBOARD, number)
        self._sync()
