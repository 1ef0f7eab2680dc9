"""The question of a GNOME desktop whether a program may control the keyboard."""

from . import eyes
from .waiting import until

ASKING = "org.freedesktop.impl.portal.desktop.gnome"


def _dialog():
    pid = eyes.owner_pid(ASKING)
    return pid and eyes.application(pid)


def is_asked():
    asking = _dialog()
    return bool(asking and asking.find("button", "_Share Share"))


def _press(role, name):
    until(f"the desktop asks, with a {role} {name}",
          lambda: (asking := _dialog()) and asking.find(role, name)).activate()


def give(program):
    """Says yes, and returns when the program is in front again."""
    _press("switch", "Allow remote interaction")
    _press("button", "_Share Share")
    _answered(program)


def refuse(program):
    _press("button", "_Cancel Cancel")
    _answered(program)


def _answered(program):
    until("the question is gone", lambda: not is_asked())
    eyes.wait_for_front(program.pid)
