"""Reading other programs over the accessibility bus, and the windows of the X server.

Every question goes straight to the program that is asked; nothing is cached.
"""

import os
import subprocess
import tempfile

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

from . import gnome, kwin, sway  # noqa: E402
from .waiting import until  # noqa: E402

STATES = {"active": 1, "checked": 4, "editable": 7, "enabled": 8, "focusable": 11, "focused": 12,
          "selected": 23, "showing": 25, "visible": 30}
PASSWORD = 40  # the role
TIMEOUT = 3000  # milliseconds for one answer

_bus = None


def bus_address():
    return Gio.bus_get_sync(Gio.BusType.SESSION).call_sync(
        "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None, 0,
        TIMEOUT).unpack()[0]


def _connection():
    global _bus
    if _bus is None:
        _bus = Gio.DBusConnection.new_for_address_sync(
            bus_address(), Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
    return _bus


def forget_bus():
    """The next question goes to the bus that is there then."""
    global _bus
    _bus = None


class Gone(Exception):
    """The program or the element is no longer there."""


class Node:
    def __init__(self, owner, path):
        self.owner, self.path = owner, path

    def __eq__(self, other):
        return isinstance(other, Node) and (self.owner, self.path) == (other.owner, other.path)

    def __hash__(self):
        return hash((self.owner, self.path))

    def __repr__(self):
        try:
            return f"<{self.role} {self.name!r} {sorted(self.states)}>"
        except Gone:
            return "<gone>"

    def _ask(self, interface, method, signature=None, *arguments):
        try:
            return _connection().call_sync(
                self.owner, self.path, interface, method,
                GLib.Variant(signature, arguments) if signature else None, None, 0,
                TIMEOUT).unpack()
        except GLib.Error as error:
            raise Gone(error.message) from None

    def _property(self, interface, name):
        return self._ask("org.freedesktop.DBus.Properties", "Get", "(ss)",
                         "org.a11y.atspi." + interface, name)[0]

    @property
    def name(self):
        return self._property("Accessible", "Name")

    @property
    def description(self):
        return self._property("Accessible", "Description")

    @property
    def role(self):
        name = self._ask("org.a11y.atspi.Accessible", "GetRoleName")[0]
        return "push button" if name == "button" else name  # as AT-SPI 2.54 has it

    @property
    def is_password(self):
        return self._ask("org.a11y.atspi.Accessible", "GetRole")[0] == PASSWORD

    @property
    def states(self):
        low, high = self._ask("org.a11y.atspi.Accessible", "GetState")[0]
        bits = low | high << 32
        return {name for name, bit in STATES.items() if bits & 1 << bit}

    @property
    def children(self):
        return [Node(owner, path)
                for owner, path in self._ask("org.a11y.atspi.Accessible", "GetChildren")[0]]

    @property
    def pid(self):
        return _connection().call_sync(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
            "GetConnectionUnixProcessID", GLib.Variant("(s)", (self.owner,)), None, 0,
            TIMEOUT).unpack()[0]

    @property
    def text(self):
        # GTK 4 knows no -1 for the end. Qt Quick tells the ends of its paragraphs by a character of
        # their own.
        return self._ask("org.a11y.atspi.Text", "GetText", "(ii)", 0,
                         self._property("Text", "CharacterCount"))[0].replace("\u2029", "\n")

    def write(self, text):
        """Puts this in the place of the field's text."""
        self._ask("org.a11y.atspi.EditableText", "SetTextContents", "(s)", text)

    @property
    def caret(self):
        return self._property("Text", "CaretOffset")

    def everything(self):
        """Each text that it tells, by whatever way."""
        told = [self.name, self.description,
                self._ask("org.a11y.atspi.Accessible", "GetAttributes")]
        interfaces = self._ask("org.a11y.atspi.Accessible", "GetInterfaces")[0]
        if "org.a11y.atspi.Value" in interfaces:
            told.append(self._property("Value", "CurrentValue"))
        if "org.a11y.atspi.Text" in interfaces:
            told += [self.text] + [
                self._ask("org.a11y.atspi.Text", "GetTextAtOffset", "(iu)", offset, boundary)
                for boundary in range(5) for offset in (0, len(self.text))]
        return [str(text) for text in told]

    @property
    def bounds(self):
        """x, y, width and height on the screen."""
        return self._ask("org.a11y.atspi.Component", "GetExtents", "(u)", 0)[0]

    @property
    def centre(self):
        x, y, width, height = self.bounds
        return x + width / 2, y + height / 2

    @property
    def bounds_in_window(self):
        return self._ask("org.a11y.atspi.Component", "GetExtents", "(u)", 1)[0]

    def grab_focus(self):
        self._ask("org.a11y.atspi.Component", "GrabFocus")

    def activate(self):
        """Presses it, or does the first action of what can't be pressed."""
        actions = [row[0] for row in self._ask("org.a11y.atspi.Action", "GetActions")[0]]
        index = actions.index("Press") if "Press" in actions else 0
        return self._ask("org.a11y.atspi.Action", "DoAction", "(i)", index)[0]

    def walk(self):
        yield self
        try:
            children = self.children
        except Gone:
            return
        for child in children:
            yield from child.walk()

    def find(self, role=None, name=None, state=None):
        """The first element at or below this one that is of the role, has the name and is so."""
        for node in self.walk():
            try:
                if ((role is None or node.role == role) and (name is None or node.name == name)
                        and (state is None or state in node.states)):
                    return node
            except Gone:
                continue
        return None


def applications():
    root = Node("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
    try:
        return root.children
    except Gone:
        return []


def application(pid):
    """The accessible application of that process, or None."""
    for node in applications():
        try:
            if node.pid == pid:
                return node
        except GLib.Error:
            continue
    return None


def listeners():
    """The processes that have asked to be told of events."""
    registry = Node("org.a11y.atspi.Registry", "/org/a11y/atspi/registry")
    try:
        told = registry._ask("org.a11y.atspi.Registry", "GetRegisteredEvents")[0]
        return {Node(owner, registry.path).pid for owner, *_ in told}
    except (Gone, GLib.Error):
        return set()


def claiming_to_be_active():
    """The processes that say of a window of theirs that it is the active one."""
    found = []
    for app in applications():
        try:
            if any("active" in window.states for window in app.children):
                found.append(app.pid)
        except (Gone, GLib.Error):
            continue
    return found


def focused(app):
    """The element of the application that would get what is typed, or None."""
    for node in app.walk():
        try:
            states = node.states
            if {"focused", "focusable"} <= states and (
                    "editable" in states or node.role in ("terminal", "password text")):
                return node
        except Gone:
            continue
    return None


def owner_pid(name):
    """The process that has the name on the session bus, or 0."""
    try:
        return Gio.bus_get_sync(Gio.BusType.SESSION).call_sync(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
            "GetConnectionUnixProcessID", GLib.Variant("(s)", (name,)), None, 0,
            TIMEOUT).unpack()[0]
    except GLib.Error:
        return 0


def active_window():
    """The id of the active window, or None."""
    window = subprocess.run(["xprop", "-root", "_NET_ACTIVE_WINDOW"], stdout=subprocess.PIPE,
                            text=True, check=True).stdout.split()[-1]
    return window if window.startswith("0x") and int(window, 16) != 0 else None


def active_pid():
    """The process of the active window, or 0."""
    if sway.here():
        return sway.active_pid()
    if "WAYLAND_DISPLAY" in os.environ:
        return (claiming_to_be_active() or [0])[0]
    window = active_window()
    if not window:
        return 0
    answer = subprocess.run(["xprop", "-id", window, "_NET_WM_PID"], stdout=subprocess.PIPE,
                            stderr=subprocess.DEVNULL, text=True).stdout.split()
    return int(answer[-1]) if answer and answer[-1].isdigit() else 0


def wait_for_front(pid):
    until(f"process {pid} has the active window", lambda: active_pid() == pid)
    if "WAYLAND_DISPLAY" in os.environ:
        # What draws through X11 hears a tenth of a second later that it is no longer in front.
        until("no other window takes itself for active", lambda: claiming_to_be_active() == [pid])


def windows(pid):
    """The X window ids of the process, oldest first."""
    listed = subprocess.run(["xprop", "-root", "_NET_CLIENT_LIST"], stdout=subprocess.PIPE,
                            text=True, check=True).stdout
    found = []
    for window in listed.partition("#")[2].replace(",", " ").split():
        answer = subprocess.run(["xprop", "-id", window, "_NET_WM_PID"], stdout=subprocess.PIPE,
                                stderr=subprocess.DEVNULL, text=True).stdout.split()
        if answer and answer[-1] == str(pid):
            found.append(window)
    return found


def title(window):
    """What stands in the window's frame; nothing if the window is gone meanwhile."""
    told = subprocess.run(["xprop", "-id", window, "_NET_WM_NAME"], stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, text=True).stdout
    return told.partition('"')[2].strip('"\n')


def stacking():
    """The ids of all windows, the lowest first."""
    listed = subprocess.run(["xprop", "-root", "_NET_CLIENT_LIST_STACKING"],
                            stdout=subprocess.PIPE, text=True, check=True).stdout
    return listed.partition("#")[2].replace(",", " ").split()


def viewable(window):
    """Whether it is on the screen, be it below others."""
    return "IsViewable" in subprocess.run(["xwininfo", "-id", window], stdout=subprocess.PIPE,
                                          text=True, check=True).stdout


def workspace():
    """The number of the workspace that is shown."""
    return int(window_property("-root", "_NET_CURRENT_DESKTOP"))


def go_to_workspace(number):
    subprocess.run(["xdotool", "set_desktop", str(number)], check=True)
    until(f"workspace {number} is shown", lambda: workspace() == number)


def _number(told, label):
    return int(told.partition(label + ":")[2].split()[0])


def inner_place(window):
    """x, y, width and height of the window without its frame."""
    told = subprocess.run(["xwininfo", "-id", window], stdout=subprocess.PIPE, text=True,
                          check=True).stdout
    return tuple(_number(told, label) for label in ("Absolute upper-left X",
                                                    "Absolute upper-left Y", "Width", "Height"))


def frame_place(window):
    """x and y of the window with its frame, width and height of what is inside."""
    told = subprocess.run(["xwininfo", "-id", window, "-frame"], stdout=subprocess.PIPE, text=True,
                          check=True).stdout
    return (_number(told, "Absolute upper-left X"), _number(told, "Absolute upper-left Y"),
            *inner_place(window)[2:])


def place(window, x, y, width, height):
    """Asks for that place and size, in points or in parts of the screen ("100%")."""
    subprocess.run(["xdotool", "windowsize", window, str(width), str(height),
                    "windowmove", window, str(x), str(y)], check=True)


class ActiveWindow:
    """Sees every change of the active window from now on, however short."""

    def __init__(self):
        self._file = tempfile.TemporaryFile("w+")
        self._process = subprocess.Popen(["xprop", "-root", "-spy", "_NET_ACTIVE_WINDOW"],
                                         stdout=self._file)
        until("the active window is watched", self._lines)

    def _lines(self):
        size = os.fstat(self._file.fileno()).st_size
        return os.pread(self._file.fileno(), size, 0).decode().splitlines()

    def changes(self):
        """What became the active window instead of the first one."""
        first, *others = self._lines()
        return [line for line in others if line != first]

    def stop(self):
        self._process.kill()
        self._process.wait()
        self._file.close()


def window_property(window, name):
    """What xprop says of a window's property."""
    which = [window] if window == "-root" else ["-id", window]
    return subprocess.run(["xprop", *which, name], stdout=subprocess.PIPE, text=True,
                          check=True).stdout.partition("=")[2].strip()


def raise_window(pid):
    if sway.here():
        sway.raise_window(pid)
    elif kwin.here():
        kwin.raise_window(pid)
    elif gnome.here():
        gnome.raise_window(pid)
    else:
        window = until(f"process {pid} shows a window", lambda: windows(pid))[-1]
        subprocess.run(["xdotool", "windowactivate", window], check=True,
                       stderr=subprocess.DEVNULL)
    wait_for_front(pid)


def pixels(x, y, width, height):
    """The colours of a part of the screen, row by row, as (red, green, blue)."""
    raw = subprocess.run(["import", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}",
                          "-depth", "8", "rgb:-"], stdout=subprocess.PIPE, check=True).stdout
    return list(zip(raw[::3], raw[1::3], raw[2::3]))


def screenshot(path):
    if sway.here():
        sway.screenshot(path)
    elif kwin.here():
        kwin.screenshot(path)
    elif gnome.here():
        gnome.screenshot(path)
    else:
        subprocess.run(["import", "-window", "root", path], check=True)
