"""The program under test, driven by keys and read over the accessibility bus like any other."""

import json
import os
import shutil
import subprocess
import tempfile
import time

from . import eyes, gnome, hands, library, sway
from .waiting import until

REPOSITORY = os.path.abspath(os.path.join(os.path.dirname(__file__), "../../.."))
# VESKO_BINARY names an installed one.
BINARY = os.environ.get("VESKO_BINARY", os.path.join(REPOSITORY, "build/release/bin/vesko"))


def deployed(service_url=None, **more):
    """A copy of the program whose deployment values name this speech service, and whatever more."""
    folder = tempfile.mkdtemp(prefix="deployed-")
    binary = os.path.realpath(BINARY)
    beside = os.path.dirname(binary)
    places = (beside, os.path.join(beside, "../../share/vesko"))
    with open(next(info for place in places
                   if os.path.exists(info := os.path.join(place, "Info.json")))) as file:
        values = json.load(file)
    if service_url:
        values["VeskoOpenRouterBaseURL"] = service_url
    values.update(more)
    with open(os.path.join(folder, "Info.json"), "w") as file:
        json.dump(values, file)
    for name in os.listdir(beside):
        if name.startswith("vesko"):
            shutil.copy2(os.path.join(beside, name), folder)
    return os.path.join(folder, "vesko")


def install_key(key, binary=BINARY):
    """What the key installer prints; the settings then choose OpenRouter."""
    return subprocess.run([binary, "--install-openrouter-key"], check=True,
                          stdout=subprocess.PIPE, text=True,
                          env={**os.environ, "OPENROUTER_API_KEY": key}).stdout


def forget_key():
    subprocess.run(["secret-tool", "clear", "service", "app.vesko.openrouter"], check=False)


class Vesko:
    def __init__(self, binary=BINARY, root=None, folder=None, arguments=("--background",),
                 meanwhile=None, **environment):
        """`meanwhile` is done after the start, before the program has to be found."""
        self.root = root or tempfile.mkdtemp(prefix="library-")
        self.log_path = os.path.join(os.environ["SESSION_DIR"], "log",
                                     f"vesko-{time.monotonic_ns()}")
        if sway.here():
            sway.bind("Mod4+Shift+space", f"{binary} --toggle", "--no-warn", "--no-repeat")
        if gnome.here():
            hands.plug_in()
            gnome.bind("<Super><Alt>d", f"{binary} --toggle")
        self.started = time.monotonic()
        with open(self.log_path, "wb") as log:
            self.process = subprocess.Popen([binary, *arguments], cwd=folder, stdout=log,
                                            stderr=log,
                                            env={**os.environ, "VESKO_DATA_ROOT": self.root,
                                                 **environment})
        if meanwhile:
            meanwhile()
        self.app = until("Vesko is accessible", self._application, deadline=30)
        self.panel, self.button = until("Vesko shows its floating button", self._find_panel)

    def _application(self):
        if self.process.poll() is not None:
            raise AssertionError(f"Vesko ended with {self.process.returncode}:\n{self.log()}")
        return eyes.application(self.process.pid)

    def _find_panel(self):
        for window in self.app.children:
            for name in ("Start dictation", "Stop dictation", "Начать диктовку",
                         "Diktat beginnen"):
                button = window.find(role="push button", name=name)
                if button:
                    return window, button
        return None

    def find(self, role, name):
        """The element of one of the program's windows that can be seen; None for any role or
        name."""
        for frame in self.app.children:
            if frame == self.panel:
                continue
            for node in frame.walk():
                try:
                    if (role in (None, node.role) and name in (None, node.name)
                            and "showing" in node.states):
                        return node
                except eyes.Gone:
                    continue
        return None

    def wait_to_find(self, role, name):
        return until(f"a {role} called {name!r}", lambda: self.find(role, name))

    def press(self, role, name):
        """Does what the element does, over the accessibility bus alone."""
        self.wait_to_find(role, name).activate()

    def focused(self):
        """The element that the keyboard is in, or None; what holds that element has it too."""
        found = None
        for frame in self.app.children:
            for node in frame.walk():
                try:
                    if {"focused", "showing"} <= node.states and node.role != "frame":
                        found = node
                except eyes.Gone:
                    continue
        return found

    def tab_to(self, role, name):
        """Goes on with Tab until the keyboard is in that element, which it returns."""
        for _ in range(60):
            here = self.focused()
            if here and (here.role, here.name) == (role, name):
                return here
            hands.tap("tab")
            until(f"Tab leads on from {here}", lambda here=here: self.focused() not in (None, here))
        raise AssertionError(f"Tab never came to {name!r}")

    def tab_around(self, *keys):
        """What has the keyboard, one after the other, until it is again where it was first: role and
        name of each. Nothing holds it, and each can be told of."""
        found, names = [], []
        while True:
            before = self.focused()
            hands.tap(*keys)
            focused = until(f"{keys} leads on from {before}",
                            lambda before=before: (here := self.focused()) != before and here)
            if found and focused == found[0]:
                return names
            states = focused.states
            name = focused.name or focused.is_password and focused.description
            if (focused in found or len(found) > 100 or not name
                    or not {"showing", "focusable", "enabled"} <= states):
                raise AssertionError(f"{keys} led from {before} to {focused}, after {names}")
            found.append(focused)
            names.append((focused.role, name))

    def settings_page(self, name):
        """Goes to that page of the settings window; returns when it is shown."""
        self.press("list item", name)
        self.wait_to_find("form", name)

    def log(self):
        with open(self.log_path, errors="replace") as file:
            return file.read()

    @property
    def phase(self):
        """"ready", "recording", or "busy" while a press would do nothing."""
        if self.button.name == "Stop dictation":
            return "recording"
        # The toolkit tells a disabled button from others by this state alone. What it is doing is
        # the first line of what it says to a screen reader.
        ready = self.button.description.partition("\n")[0] == "Ready"
        return "ready" if ready and "focusable" in self.button.states else "busy"

    def wait_for(self, phase, deadline=20.0):
        until(f"Vesko is {phase}; it shows {self.shown()}", lambda: self.phase == phase, deadline)
        hands.shortcut_was_seen()

    def shown(self):
        """All that a user can read in the floating window, or is told of its button."""
        texts = self.button.description.split("\n")
        for node in self.panel.walk():
            try:
                if "showing" in node.states and node.name:
                    texts.append(node.name)
            except eyes.Gone:
                continue
        return texts

    def wait_for_text(self, text, deadline=20.0):
        try:
            until("", lambda: text in self.shown(), deadline)
        except AssertionError:
            raise AssertionError(f"expected to read {text!r}, but Vesko shows {self.shown()}") \
                from None

    def begin(self):
        """Starts a dictation with the shortcut; returns when it records."""
        self.wait_for("ready")
        hands.tap_shortcut()
        self.wait_for("recording")

    def end(self):
        """Finishes it with the shortcut; returns at once."""
        hands.tap_shortcut()

    def dictate(self, speak):
        """A whole dictation of what speak() says; returns when it has been delivered or failed."""
        self.begin()
        speak()
        self.end()
        until("the recording has ended", lambda: self.phase != "recording")
        self.wait_for("ready")

    def last_recording(self):
        found = library.recordings(self.root)
        return found[-1] if found else None

    def quit(self):
        self.process.terminate()
        try:
            self.process.wait(timeout=15)
        except subprocess.TimeoutExpired:
            self.kill()
            raise AssertionError("Vesko did not end when asked to") from None

    def kill(self):
        self.process.kill()
        self.process.wait()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.kill()
