"""Keyboard and mouse of the test session.

Keys are named by their place on the keyboard, not by what the layout makes of them, so they work
under any layout.
"""

import os
import time

from . import gnome, sway
from .waiting import human_pause

KEYS = {
    "escape": 9, "backspace": 22, "tab": 23, "return": 36, "space": 65,
    "left control": 37, "right control": 105, "left shift": 50, "right shift": 62,
    "left alt": 64, "right alt": 108, "super": 133, "menu": 135, "pause": 127, "scroll lock": 78,
    "home": 110, "end": 115, "left": 113, "right": 114, "delete": 119, "up": 111, "down": 116,
    "page up": 112, "page down": 117, "f2": 68, "f3": 69, "f10": 76, "comma": 59,
}
for row, first in (("qwertyuiop", 24), ("asdfghjkl", 38), ("zxcvbnm", 52), ("1234567890", 10)):
    KEYS.update({letter: first + place for place, letter in enumerate(row)})

# Vesko's shortcut. Presses of it closer together than a quarter of a second count as one, and as
# commands of the desktop's closer than what a held key takes to repeat; so each is kept apart from
# the one before, as a hand does.
SHORTCUT = ("super", "left alt", "d") if gnome.here() else ("super", "left shift", "space")
APART = 0.8 if sway.here() or gnome.here() else 0.3  # seconds

LAYOUTS = ("us", "ru", "gr")

_devices = None
_shortcut_pressed = 0.0
_shortcut_unseen = False


def _hardware():
    global _devices
    if _devices is None:
        if gnome.here():
            from .gnome import Devices
        elif os.environ["XDG_SESSION_TYPE"] == "wayland":
            from .wayland import Devices
        else:
            from .x11 import Devices
        _devices = Devices()
    return _devices


def plug_in():
    """The keyboard is there from now on, if it was not before."""
    _hardware()


def press(name):
    _hardware().key(KEYS[name], True)


def release(name):
    _hardware().key(KEYS[name], False)


def tap(*names):
    """Presses the keys in this order and releases them in the opposite one."""
    for name in names:
        press(name)
    for name in reversed(names):
        release(name)


def press_shortcut():
    """Presses the keys of the shortcut and leaves them down."""
    global _shortcut_pressed, _shortcut_unseen
    human_pause(max(0.0, _shortcut_pressed + APART - time.monotonic()))
    for name in SHORTCUT:
        press(name)
    _shortcut_pressed = time.monotonic()
    _shortcut_unseen = True


def shortcut_was_seen():
    """What the last press did is there to be seen: only now did it certainly arrive. A command of the
    desktop's takes as long to come as the machine is busy."""
    global _shortcut_pressed, _shortcut_unseen
    if _shortcut_unseen:
        _shortcut_pressed = time.monotonic()
        _shortcut_unseen = False


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
    """The names of the keys that are down."""
    down = _hardware().down
    return {name for name, code in KEYS.items() if code in down}


def release_all():
    for name in held():
        release(name)


def point(x, y):
    """Puts the pointer there."""
    _hardware().point(x, y)


def press_button(number=1):
    _hardware().button(number, True)


def release_button(number=1):
    _hardware().button(number, False)


def click(x, y, button=1):
    point(x, y)
    press_button(button)
    release_button(button)


def carry(*places, steps=10):
    """Moves the pointer from the first of the places to the last with its button down, as slowly as
    a hand, and doesn't let go."""
    point(*places[0])
    press_button()
    for begin, end in zip(places, places[1:]):
        for step in range(1, steps + 1):
            point(*(a + (b - a) * step / steps for a, b in zip(begin, end)))
            human_pause(0.02)


def drag(*places, steps=10):
    """Carries from the first of the places to the last."""
    carry(*places, steps=steps)
    release_button()


def load_layouts(*names):
    """Gives the keyboard these layouts, by default all of LAYOUTS; the first is in use."""
    _hardware().load_layouts(",".join(names or LAYOUTS))
    # The first key of a keyboard makes the server forget which layout was in use.
    tap("left shift")


def use_layout(name):
    _hardware().use_layout(LAYOUTS.index(name))


SHIFT, CONTROL, ALT, SUPER, LEVEL3 = 1, 4, 8, 64, 128  # an X server's bits of the modifiers


def latch(modifiers):
    """As sticky keys do after a tap: these, and no others, hold for the next key. X11 only."""
    _hardware().latch(modifiers)


def lock(modifiers):
    """As sticky keys do after two taps: these, and no others, hold until they are unlocked. X11
    only."""
    _hardware().lock(modifiers)


def latched():
    """The modifiers that are latched, and those that are locked. X11 only."""
    return _hardware().latched()
