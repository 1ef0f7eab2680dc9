"""The question of a GNOME desktop whether a program may control the keyboard."""

from . import eyes
from .waiting import until

ASKING = "org.freedesktop.impl.portal.desktop.gnome"


def _dialog():
    pid = eyes.owner_pid(ASKING)
    return pid and eyes.application(pid)


def is_asked():
    asking = _dialog()
    return bool(asking and asking.find("push button", "_Share Share"))


def wait_until_asked():
    pid = until("the desktop asks", is_asked) and eyes.owner_pid(ASKING)
    eyes.wait_for_front(pid)


def _press(role, name):
    until(f"the desktop asks, with a {role} {name}",
          lambda: (asking := _dialog()) and asking.find(role, name)).activate()


def give(program):
    """Says yes, and returns when the program is in front again."""
    _press("switch", "Allow remote interaction")
    _press("push button", "_Share Share")
    wait_until_gone(program)


def refuse(program):
    _press("push button", "_Cancel Cancel")
    wait_until_gone(program)


def wait_until_gone(program):
    """Returns when the program is in front again."""
    until("the question is gone", lambda: not is_asked())
    eyes.wait_for_front(program.pid)
