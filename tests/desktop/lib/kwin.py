"""The windows and the keyboard layouts of a KWin session."""

import os
import subprocess
import tempfile

RAISE = """workspace.clientList().forEach(function (client) {
    if (client.pid === %d) workspace.activeClient = client;
});
"""


def here():
    return "KDE_FULL_SESSION" in os.environ


def _ask(service, path, method, *arguments):
    return subprocess.run(
        ["dbus-send", "--session", "--print-reply=literal", "--dest=" + service, path, method,
         *arguments], stdout=subprocess.PIPE, text=True, check=True).stdout.split()


def raise_window(pid):
    with tempfile.NamedTemporaryFile("w", suffix=".js") as file:
        file.write(RAISE % pid)
        file.flush()
        number = _ask("org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting.loadScript",
                      "string:" + file.name)[-1]
        _ask("org.kde.KWin", "/" + number, "org.kde.kwin.Script.run")
        _ask("org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting.unloadScript",
             "string:" + file.name)


def load_layouts(layouts):
    with open(os.path.join(os.environ["XDG_CONFIG_HOME"], "kxkbrc"), "w") as file:
        file.write(f"[Layout]\nUse=true\nLayoutList={layouts}\n")
    subprocess.run(["dbus-send", "--session", "--type=signal", "/Layouts",
                    "org.kde.keyboard.reloadConfig"], check=True)


def use_layout(number):
    _ask("org.kde.keyboard", "/Layouts", "org.kde.KeyboardLayouts.setLayout", f"uint32:{number}")
