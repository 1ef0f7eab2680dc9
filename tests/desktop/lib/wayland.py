"""A keyboard and a mouse of the user's in a session of wlroots or KWin.

Speaks the protocols itself: the tools that could type for us plug in a keyboard of their own for
each word, and with no keyboard left wlroots takes the focus from every window.
"""

import array
import ctypes
import ctypes.util
import os
import socket
import struct
import time

from . import kwin

_xkb = ctypes.CDLL("libxkbcommon.so.0")
_xkb.xkb_context_new.restype = ctypes.c_void_p
_xkb.xkb_keymap_new_from_names.restype = ctypes.c_void_p
_xkb.xkb_keymap_new_from_names.argtypes = [ctypes.c_void_p, ctypes.c_void_p, ctypes.c_int]
_xkb.xkb_keymap_get_as_string.restype = ctypes.c_void_p
_xkb.xkb_keymap_get_as_string.argtypes = [ctypes.c_void_p, ctypes.c_int]
_TEXT_V1 = 1
_EVDEV = 8  # a key's number in X less its number in the kernel
_MODIFIERS = {37: 4, 105: 4, 50: 1, 62: 1, 64: 8, 108: 8, 133: 64}  # key of X: its real modifier
_BUTTONS = {1: 0x110, 2: 0x112, 3: 0x111}  # as the kernel numbers them


class _Names(ctypes.Structure):
    _fields_ = [(name, ctypes.c_char_p)
                for name in ("rules", "model", "layout", "variant", "options")]


def keymap(layouts):
    """The text of the keyboard map with these layouts, separated by commas."""
    context = _xkb.xkb_context_new(0)
    names = _Names(b"evdev", b"pc105", layouts.encode(), None, None)
    made = _xkb.xkb_keymap_new_from_names(context, ctypes.byref(names), 0)
    return ctypes.string_at(_xkb.xkb_keymap_get_as_string(made, _TEXT_V1)) + b"\0"


class _Connection:
    """As much of a Wayland client as the virtual devices need."""

    def __init__(self):
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.connect(os.path.join(os.environ["XDG_RUNTIME_DIR"],
                                          os.environ["WAYLAND_DISPLAY"]))
        self._last = 1
        self._received = b""
        self._globals = {}
        self._registry = self.new()
        self.send(1, 1, struct.pack("I", self._registry))
        self.sync()

    def new(self):
        self._last += 1
        return self._last

    def send(self, target, opcode, body=b"", fd=None):
        message = struct.pack("II", target, (8 + len(body)) << 16 | opcode) + body
        rights = [] if fd is None else [
            (socket.SOL_SOCKET, socket.SCM_RIGHTS, array.array("i", [fd]))]
        self._socket.sendmsg([message], rights)

    def sync(self):
        """Returns when the compositor has done all that it was asked."""
        done = self.new()
        self.send(1, 0, struct.pack("I", done))
        while done is not None:
            while len(self._received) >= 8:
                target, word = struct.unpack_from("II", self._received)
                if len(self._received) < word >> 16:
                    break
                body, self._received = (self._received[8:word >> 16],
                                        self._received[word >> 16:])
                if target == done:
                    done = None
                elif target == 1 and word & 0xFFFF == 0:
                    raise RuntimeError(f"the compositor says {body!r}")
                elif target == self._registry and word & 0xFFFF == 0:
                    number, length = struct.unpack_from("II", body)
                    self._globals[body[8:8 + length - 1].decode()] = number
            if done is not None:
                more = self._socket.recv(65536)
                if not more:
                    raise RuntimeError("the compositor has gone")
                self._received += more

    def offers(self, interface):
        return interface in self._globals

    def bind(self, interface, version=1):
        made = self.new()
        name = interface.encode() + b"\0"
        self.send(self._registry, 0, struct.pack("II", self._globals[interface], len(name))
                  + name.ljust(-len(name) % 4 + len(name), b"\0")
                  + struct.pack("II", version, made))
        return made


class _Wlroots:
    def __init__(self, wayland):
        self._wayland = wayland
        seat = self._wayland.bind("wl_seat")
        manager = self._wayland.bind("zwp_virtual_keyboard_manager_v1")
        self._keyboard = self._wayland.new()
        self._wayland.send(manager, 0, struct.pack("II", seat, self._keyboard))
        pointers = self._wayland.bind("zwlr_virtual_pointer_manager_v1")
        self._pointer = self._wayland.new()
        self._wayland.send(pointers, 0, struct.pack("II", seat, self._pointer))
        self.down = set()
        self._layout = 0
        self.load_layouts("us")

    def load_layouts(self, layouts):
        text = keymap(layouts)
        fd = os.memfd_create("keymap")
        os.write(fd, text)
        self._wayland.send(self._keyboard, 0, struct.pack("II", _TEXT_V1, len(text)), fd)
        os.close(fd)
        self.use_layout(0)

    def use_layout(self, number):
        self._layout = number
        self._tell_modifiers()
        self._wayland.sync()

    def _tell_modifiers(self):
        held = 0
        for code in self.down:
            held |= _MODIFIERS.get(code, 0)
        self._wayland.send(self._keyboard, 2, struct.pack("IIII", held, 0, 0, self._layout))

    def key(self, code, pressed):
        """A key by its number in X."""
        (self.down.add if pressed else self.down.discard)(code)
        self._wayland.send(self._keyboard, 1,
                           struct.pack("III", self._now(), code - _EVDEV, pressed))
        if code in _MODIFIERS:
            self._tell_modifiers()
        self._wayland.sync()

    def point(self, x, y, width=1280, height=800):
        self._wayland.send(self._pointer, 1,
                           struct.pack("IIIII", self._now(), int(x), int(y), width, height))
        self._wayland.send(self._pointer, 4)
        self._wayland.sync()

    def button(self, number, pressed):
        self._wayland.send(self._pointer, 2,
                           struct.pack("III", self._now(), _BUTTONS[number], pressed))
        self._wayland.send(self._pointer, 4)
        self._wayland.sync()

    @staticmethod
    def _now():
        return int(time.monotonic() * 1000) & 0xFFFFFFFF


class _KWin:
    """KWin lets whoever may press the keys of its own keyboard."""

    def __init__(self, wayland):
        self._wayland = wayland
        self._input = wayland.bind("org_kde_kwin_fake_input", 4)
        text = struct.pack("I", 5) + b"test\0\0\0\0"
        wayland.send(self._input, 0, text + text)
        wayland.sync()
        self.down = set()

    def key(self, code, pressed):
        (self.down.add if pressed else self.down.discard)(code)
        self._wayland.send(self._input, 10, struct.pack("II", code - _EVDEV, pressed))
        self._wayland.sync()

    @staticmethod
    def load_layouts(layouts):
        kwin.load_layouts(layouts)

    @staticmethod
    def use_layout(number):
        kwin.use_layout(number)

    def point(self, x, y):
        self._wayland.send(self._input, 9, struct.pack("ii", int(x) << 8, int(y) << 8))
        self._wayland.sync()

    def button(self, number, pressed):
        self._wayland.send(self._input, 2, struct.pack("II", _BUTTONS[number], pressed))
        self._wayland.sync()


def Devices():
    wayland = _Connection()
    return (_KWin if wayland.offers("org_kde_kwin_fake_input") else _Wlroots)(wayland)
