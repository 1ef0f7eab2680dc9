"""The programs of others that Vesko dictates into."""

import os
import subprocess
import tempfile

from . import eyes, hands, kwin, sway
from .waiting import until

SERVICES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../services")
CHROMIUM = ["chromium", "--force-renderer-accessibility", "--no-sandbox", "--disable-gpu",
            "--disable-quic", "--no-first-run", "--disable-background-networking",
            "--disable-component-update", "--disable-sync", "--disable-dev-shm-usage",
            "--password-store=basic", "--noerrdialogs", "--ozone-platform-hint=auto"]
PAGE = """<!doctype html><meta charset="utf-8"><title>Fields</title>
<style>body { font: 18px sans-serif } textarea, input { display: block; width: 90%; margin: 12px }
textarea { height: 160px }</style>
<textarea aria-label="area"></textarea>
<input aria-label="line"><input aria-label="other line">
<input type="password" aria-label="secret">
"""

CHAT = """<!doctype html><meta charset="utf-8"><title>Chat</title>
<style>body {{ font: 18px sans-serif }} textarea, input {{ display: block; width: 90%;
margin: 12px }}</style>
<textarea aria-label="message" rows="4">{before}</textarea><input aria-label="other">
<script>
const message = document.querySelector("textarea");
message.addEventListener("keydown", event => {{
    if (event.key === "Enter") {{ event.preventDefault(); message.value = ""; }}
}});
message.addEventListener("paste", () => {{
    if ({alters}) setTimeout(() => {{ message.value = "» " + message.value; }});
}});
</script>
"""


class Program:
    """A running program and the field in it that has the focus."""

    def __init__(self, command, **options):
        hands.plug_in()  # without a keyboard some compositors give no window the focus
        log = open(os.path.join(os.environ["SESSION_DIR"], "log", os.path.basename(command[0])),
                   "ab")
        with log:
            self.process = subprocess.Popen(command, stderr=log, stdout=options.pop("stdout", log),
                                            **options)
        self.app = until(f"{command[0]} is accessible",
                         lambda: eyes.application(self.process.pid))
        eyes.wait_for_front(self.process.pid)
        self.field = None

    def focus(self, role, name=None):
        """Clicks into the field as a user does and makes it `field`."""
        field = until(f"a field of role {role} and name {name}",
                      lambda: self.app.find(role, name))
        until("the field is laid out", lambda: field.bounds[2] > 0)
        if "focused" not in field.states:
            self._take_focus(field)
        until(f"{field} has the focus", lambda: eyes.focused(self.app) == field)
        self.field = field
        return field

    def _take_focus(self, field):
        # A program does not know where on the screen of a compositor its windows are.
        if kwin.here():
            field.grab_focus()
        else:
            hands.click(*(self._place_of(field) if sway.here() else field.centre))

    def _place_of(self, field):
        left, top = sway.place(self.process.pid)
        x, y, _, height = field.bounds_in_window
        # Near its beginning: windows of Vesko's stand in the middle of the screen.
        return left + x + 8, top + y + height / 2

    @property
    def text(self):
        return self.field.text

    def raise_window(self):
        eyes.raise_window(self.process.pid)

    def kill(self):
        self.process.kill()
        self.process.wait()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.kill()


def _file(name, text):
    path = os.path.join(tempfile.mkdtemp(), name)
    with open(path, "w") as file:
        file.write(text)
    return path


class Mousepad(Program):
    def __init__(self, text=""):
        super().__init__(["mousepad", "--disable-server", _file("Letter.txt", text)])
        self.focus("text")


class FeatherPad(Program):
    def __init__(self, text=""):
        super().__init__(["featherpad", "--standalone", _file("Letter.txt", text)])
        self.focus("text")


class Chromium(Program):
    def __init__(self, field="area"):
        super().__init__(CHROMIUM + ["--user-data-dir=" + tempfile.mkdtemp(),
                                     "--app=file://" + _file("fields.html", PAGE)])
        self.focus("password text" if field == "secret" else "entry", field)


class ChatPage(Program):
    """A page with a message in it: Return sends it, which empties the field. One that `alters`
    puts a mark before what is pasted."""

    def __init__(self, before="", alters=False):
        page = CHAT.format(before=before, alters="true" if alters else "false")
        super().__init__(CHROMIUM + ["--user-data-dir=" + tempfile.mkdtemp(),
                                     "--app=file://" + _file("chat.html", page)])
        self.focus("entry", "message")


class ChatWindow(Program):
    def __init__(self):
        super().__init__(["/usr/bin/python3", os.path.join(SERVICES, "chat.py")])
        self.focus("text", "message")


class Terminal(Program):
    """`cat` in a terminal: what arrives is echoed, and nothing runs it."""

    def __init__(self):
        super().__init__(["xfce4-terminal", "--disable-server", "--execute", "cat"])
        self.focus("terminal")

    @property
    def text(self):
        # What stands in one line for the user may be broken into lines of the terminal's width.
        return "".join(line.rstrip("\n") for line in self.field.text.splitlines()).strip()


class PasswordPrompt(Program):
    def __init__(self):
        super().__init__(["zenity", "--password"], stdout=subprocess.PIPE)
        self.focus("password text")

    def answer(self):
        """What the prompt received, once Return is pressed in it."""
        self.raise_window()
        hands.tap("return")
        return self.process.communicate(timeout=10)[0].decode().rstrip("\n")
