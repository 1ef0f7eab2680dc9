"""The programs of others that Vesko dictates into."""

import os
import signal
import subprocess
import tempfile

from . import eyes, gnome, hands, kwin, sway
from .post import PostOffice
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
<div contenteditable aria-label="rich"><p><br></p></div>
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

RICH_CHAT = """<!doctype html><meta charset="utf-8"><title>Chat</title>
<style>body { font: 18px sans-serif } div { border: 1px solid; min-height: 60px }</style>
<div contenteditable aria-label="message"><p><br></p></div><input aria-label="other">
<script>
const message = document.querySelector("div");
message.addEventListener("keydown", event => {
    if (event.key === "Enter") { event.preventDefault(); message.innerHTML = "<p><br></p>"; }
});
</script>
"""


def _family(pid):
    """The process and all that descend from it."""
    found = [pid]
    for process in found:
        try:
            for task in os.listdir(f"/proc/{process}/task"):
                with open(f"/proc/{process}/task/{task}/children") as file:
                    found += [int(child) for child in file.read().split()]
        except OSError:
            continue
    return found


class Program:
    """A running program and the field in it that has the focus."""

    def __init__(self, command, **options):
        hands.plug_in()  # without a keyboard some compositors give no window the focus
        log = open(os.path.join(os.environ["SESSION_DIR"], "log", os.path.basename(command[0])),
                   "ab")
        with log:
            self.process = subprocess.Popen(command, stderr=log, stdout=options.pop("stdout", log),
                                            **options)
        until(f"{command[0]} shows a window of its own", self._shown, deadline=40)
        eyes.wait_for_front(self.pid)
        self.field = None

    def _shown(self):
        """Some are started by a script, and the program is another process below it."""
        if self.process.poll() is not None:
            raise AssertionError(f"it ended with {self.process.returncode}")
        self.pid = eyes.active_pid()
        self.app = self.pid in _family(self.process.pid) and eyes.application(self.pid)
        return self.app

    def focus(self, role, name=None):
        """Clicks into the field as a user does and makes it `field`."""
        field = until(f"a field of role {role} and name {name}",
                      lambda: self.app.find(role, name))
        until("the field has the focus or is laid out",
              lambda: "focused" in field.states or field.bounds[2] > 0)
        if "focused" not in field.states:
            self._take_focus(field)
        until(f"{field} has the focus", lambda: eyes.focused(self.app) == field)
        self.field = field
        return field

    def _take_focus(self, field):
        # A program does not know where on the screen of a compositor its windows are.
        if kwin.here() or gnome.here():
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

    def asks_for_password(self):
        """Its field for one, in a window that has come to the front."""
        return until("it asks for a password",
                     lambda: self.app.find("password text", state="focused"))

    def raise_window(self):
        eyes.raise_window(self.pid)

    def return_to(self):
        """Raises its window and clicks into the field again, if it isn't there."""
        self.raise_window()
        if "focused" not in self.field.states:
            hands.click(*self.field.centre)
        until(f"{self.field} has the focus", lambda: "focused" in self.field.states)

    def kill(self):
        for pid in reversed(_family(self.process.pid)):
            try:
                os.kill(pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
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


class GnomeTextEditor(Program):
    def __init__(self, text=""):
        # It opens again what it had open when it was killed.
        super().__init__(["gnome-text-editor", "--standalone", _file("Letter.txt", text)],
                         env={**os.environ, "XDG_DATA_HOME": tempfile.mkdtemp()})
        self.focus("text box")


class Gtk4Window(Program):
    """A line, an entry whose letters are hidden, a row of libadwaita for a password, an area; Tab
    leads from each to the next."""

    def __init__(self):
        super().__init__(["/usr/bin/python3", os.path.join(SERVICES, "gtk4_window.py")])
        self.focus("text box", "line")

    def tab_to(self, name):
        """Goes on to the next field, which has that name."""
        hands.tap("tab")
        field = self.app.find("text box", name)
        until(f"{field} has the focus", lambda: "focused" in field.states)
        return field


class SwingWindow(Program):
    """Java's: a line, a line whose letters are hidden, an area; Tab leads from each to the next."""

    def __init__(self):
        super().__init__(
            ["java", "-cp", "/usr/share/java/java-atk-wrapper.jar",
             "-Djavax.accessibility.assistive_technologies=org.GNOME.Accessibility.AtkWrapper",
             os.path.join(SERVICES, "SwingWindow.java")])
        self.focus("text", "line")


class Qt5Window(Program):
    """A line, and below it a box that can be written in."""

    def __init__(self):
        super().__init__(["/usr/bin/python3", os.path.join(SERVICES, "qt5_window.py")])
        self.focus("text", "line")


class Kate(Program):
    def __init__(self, text=""):
        super().__init__(["kate", "--startanon", _file("Letter.txt", text)])
        self.focus("text", "Letter.txt")


class Writer(Program):
    """A word processor: each paragraph is an element of its own."""

    def __init__(self):
        super().__init__(
            ["soffice", "--norestore", "--nologo", "--nofirststartwizard", "--writer",
             f"-env:UserInstallation=file://{tempfile.mkdtemp()}"],
            env={**os.environ, "SAL_USE_VCLPLUGIN": "gtk3"})
        self.focus("paragraph")
        self.document = self.app.find("document text")

    @property
    def text(self):
        return "\n".join(paragraph.text for paragraph in self.document.children)

    def return_to(self):
        self.raise_window()
        until("a paragraph has the focus", lambda: eyes.focused(self.app))

    def ask_for_password(self):
        """Opens the dialog that protects the changes; gives its field."""
        menu = self.app.find("menu", "Track Changes")
        menu.find("check menu item", "Protect...").activate()
        return self.asks_for_password()


class SandboxedMousepad(Program):
    """As a sandbox starts it: its processes are numbered apart, and a proxy stands between it and
    the accessibility bus, which knows the proxy's number alone."""

    def __init__(self):
        socket = os.path.join(tempfile.mkdtemp(), "bus")
        self.proxy = subprocess.Popen(["xdg-dbus-proxy", eyes.bus_address(), socket])
        until("the proxy listens", lambda: os.path.exists(socket))
        super().__init__(["unshare", "--pid", "--fork", "--mount-proc", "mousepad",
                          "--disable-server", _file("Sandboxed.txt", "")],
                         env={**os.environ, "AT_SPI_BUS_ADDRESS": "unix:path=" + socket})
        self.focus("text")

    def _shown(self):
        active = eyes.active_window()
        self.pid = active and "Sandboxed" in eyes.title(active) and eyes.active_pid()
        self.app = self.pid and eyes.application(self.proxy.pid)
        return self.app

    def kill(self):
        super().kill()
        self.proxy.kill()
        self.proxy.wait()


class FeatherPad(Program):
    def __init__(self, text=""):
        super().__init__(["featherpad", "--standalone", _file("Letter.txt", text)])
        self.focus("text")


class Chromium(Program):
    def __init__(self, field="area"):
        super().__init__(CHROMIUM + ["--user-data-dir=" + tempfile.mkdtemp(),
                                     "--app=file://" + _file("fields.html", PAGE)])
        self.focus("password text" if field == "secret" else "entry", field)


FIREFOX_SETTINGS = """user_pref("browser.aboutwelcome.enabled", false);
user_pref("browser.shell.checkDefaultBrowser", false);
user_pref("datareporting.policy.dataSubmissionEnabled", false);
user_pref("app.update.auto", false);
user_pref("network.captive-portal-service.enabled", false);
"""


class Firefox(Program):
    def __init__(self, field="area", page=PAGE, role=None):
        profile = tempfile.mkdtemp()
        with open(os.path.join(profile, "user.js"), "w") as file:
            file.write(FIREFOX_SETTINGS)
        super().__init__(["firefox-esr", "--no-remote", "--profile", profile,
                          "file://" + _file("fields.html", page)])
        self.focus(role or ("password text" if field == "secret" else "entry"), field)


class ChatPage(Program):
    """A page with a message in it: Return sends it, which empties the field. One that `alters`
    puts a mark before what is pasted."""

    def __init__(self, before="", alters=False):
        page = CHAT.format(before=before, alters="true" if alters else "false")
        super().__init__(CHROMIUM + ["--user-data-dir=" + tempfile.mkdtemp(),
                                     "--app=file://" + _file("chat.html", page)])
        self.focus("entry", "message")


REFUSING = """<!doctype html><meta charset="utf-8"><title>Refusing</title>
<textarea aria-label="area" onpaste="event.preventDefault()"></textarea>"""


class RefusingPage(Program):
    """A page with a field that takes no paste."""

    def __init__(self):
        super().__init__(CHROMIUM + ["--user-data-dir=" + tempfile.mkdtemp(),
                                     "--app=file://" + _file("refusing.html", REFUSING)])
        self.focus("entry", "area")


class RichChat:
    """What both browsers show of such a page: a message made of paragraphs. Return sends it."""

    @property
    def text(self):
        paragraphs = iter([node.text for node in self.field.children if node.role == "paragraph"])
        return "".join(next(paragraphs, "") if character == "\ufffc" else character
                       for character in self.field.text).strip()


class RichChatPage(RichChat, Program):
    def __init__(self):
        super().__init__(CHROMIUM + ["--user-data-dir=" + tempfile.mkdtemp(),
                                     "--app=file://" + _file("chat.html", RICH_CHAT)])
        self.focus("section", "message")


class RichFirefoxPage(RichChat, Firefox):
    def __init__(self):
        super().__init__(page=RICH_CHAT, role="section", field="message")


SHADOW = """<!doctype html><meta charset="utf-8"><title>Shadow</title><shadow-field></shadow-field>
<script>
customElements.define("shadow-field", class extends HTMLElement {
    connectedCallback() {
        this.attachShadow({ mode: "open" }).innerHTML = '<input aria-label="shadow">';
    }
});
</script>
"""

# The field takes each text out at once, and draws it elsewhere.
DRAWN = """<!doctype html><meta charset="utf-8"><title>Drawn</title>
<textarea aria-label="source" rows="1"></textarea><p></p>
<script>
const source = document.querySelector("textarea"), drawn = document.querySelector("p");
source.addEventListener("input", () => { drawn.textContent += source.value; source.value = ""; });
</script>
"""


class ShadowFirefox(Firefox):
    def __init__(self):
        super().__init__("shadow", page=SHADOW)


class ChromiumPage(Program):
    def __init__(self, page, field):
        super().__init__(CHROMIUM + ["--user-data-dir=" + tempfile.mkdtemp(),
                                     "--app=file://" + _file("page.html", page)])
        self.focus("entry", field)


class ShadowChromium(ChromiumPage):
    def __init__(self):
        super().__init__(SHADOW, "shadow")


class DrawingPage(ChromiumPage):
    def __init__(self):
        super().__init__(DRAWN, "source")

    @property
    def text(self):
        paragraph = self.app.find("paragraph")
        return paragraph.text if paragraph else ""


THUNDERBIRD_SETTINGS = """user_pref("mail.accountmanager.accounts", "account1");
user_pref("mail.accountmanager.defaultaccount", "account1");
user_pref("mail.account.account1.server", "server1");
user_pref("mail.account.account1.identities", "id1");
user_pref("mail.server.server1.type", "none");
user_pref("mail.server.server1.hostname", "Local Folders");
user_pref("mail.server.server1.name", "Local Folders");
user_pref("mail.server.server1.userName", "nobody");
user_pref("mail.identity.id1.fullName", "Somebody");
user_pref("mail.identity.id1.useremail", "somebody@example.org");
user_pref("mail.identity.id1.smtpServer", "smtp1");
user_pref("mail.identity.id1.valid", true);
user_pref("mail.smtpservers", "smtp1");
user_pref("mail.smtpserver.smtp1.hostname", "localhost");
user_pref("mail.provider.enabled", false);
user_pref("mail.spotlight.firstRunDone", true);
user_pref("mail.shell.checkDefaultClient", false);
user_pref("mailnews.start_page.enabled", false);
user_pref("datareporting.policy.dataSubmissionEnabled", false);
user_pref("app.update.auto", false);
user_pref("app.donation.eoy.version.viewed", 999);
"""


class Thunderbird(RichChat, Program):
    """A letter that is being written, which is made of paragraphs."""

    def __init__(self, settings=THUNDERBIRD_SETTINGS):
        profile = tempfile.mkdtemp()
        with open(os.path.join(profile, "user.js"), "w") as file:
            file.write(settings)
        super().__init__(["thunderbird", "--no-remote", "--profile", profile])
        until("its folders are there", lambda: self.app.find("tree item", state="selected"))
        # Once: a letter that is slow to open opens twice for who asks again.
        self.app.find("push button", "New Message").activate()
        until("the letter is open", self._written_to, deadline=30)
        self.focus("document web", "Message body")

    @staticmethod
    def _written_to():
        window = eyes.active_window()
        return window and "Write:" in eyes.title(window)


# Asked for letters with the start.
POST_SETTINGS = """user_pref("mail.accountmanager.accounts", "account1,account2");
user_pref("mail.account.account2.server", "server2");
user_pref("mail.account.account2.identities", "id1");
user_pref("mail.server.server2.type", "pop3");
user_pref("mail.server.server2.hostname", "localhost");
user_pref("mail.server.server2.port", {port});
user_pref("mail.server.server2.name", "Post");
user_pref("mail.server.server2.userName", "somebody");
user_pref("mail.server.server2.authMethod", 3);
user_pref("mail.server.server2.socketType", 0);
user_pref("mail.server.server2.login_at_startup", true);
"""


class ThunderbirdWithPost(Thunderbird):
    """A letter, and a server for which a password is asked once it greets."""

    def __init__(self):
        self.office = PostOffice()
        super().__init__(THUNDERBIRD_SETTINGS + POST_SETTINGS.format(port=self.office.port))

    def ask_for_password(self):
        self.office.greet()
        return self.asks_for_password()

    def kill(self):
        super().kill()
        self.office.close()


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


class Konsole(Program):
    """A command in a terminal of another toolkit."""

    def __init__(self, *command):
        super().__init__(["konsole", "--nofork", "-e", *(command or ["cat"])])
        self.focus("terminal")

    @property
    def text(self):
        return "".join(line.rstrip() for line in self.field.text.splitlines()).strip()


class GVim(Program):
    """An editor that draws its text itself, and whose tool bar says that it has the keyboard."""

    def __init__(self):
        self.file = _file("Letter.txt", "")
        super().__init__(["gvim", "-f", "-u", "NONE", "-c", "set noswapfile",
                          "-c", "autocmd TextChanged,TextChangedI * silent write", self.file])

    @property
    def text(self):
        with open(self.file) as file:
            return file.read().removesuffix("\n")

    def choose(self, *names):
        """A row of its menus, without the keyboard."""
        row = self.app
        for name in names:
            row = until(f"it has {name!r}", lambda row=row, name=name: next(
                (node for node in row.walk()
                 if node.role in ("menu", "menu item") and node.name == name), None))
        row.activate()


class Unseen:
    """A program that tells nothing of itself, be it the number of its process."""

    def __init__(self, *command):
        before = eyes.active_window()
        self.process = subprocess.Popen(command, stderr=subprocess.DEVNULL)
        until(f"{command[0]} is the active window",
              lambda: eyes.active_window() not in (None, before))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()


def chromium_as_shipped():
    return Unseen(*(option for option in CHROMIUM if option != "--force-renderer-accessibility"),
                  "--user-data-dir=" + tempfile.mkdtemp(), "--app=file://" + _file("f.html", PAGE))


def tk_window():
    return Unseen("/usr/bin/python3", os.path.join(SERVICES, "tk_window.py"))


def xterm():
    return Unseen("xterm", "-e", "cat")


class PasswordPrompt(Program):
    def __init__(self):
        super().__init__(["zenity", "--password"], stdout=subprocess.PIPE)
        self.focus("password text")

    def answer(self):
        """What the prompt received, once Return is pressed in it."""
        self.raise_window()
        hands.tap("return")
        return self.process.communicate(timeout=10)[0].decode().rstrip("\n")
