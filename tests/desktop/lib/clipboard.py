"""The clipboard, as any other program sees it."""

import os
import subprocess

from . import gnome
from .waiting import until

if os.environ["XDG_SESSION_TYPE"] == "wayland":
    READ, WRITE = ["wl-paste", "--no-newline", "--type", "text/plain;charset=utf-8"], ["wl-copy"]
else:
    WRITE = ["xclip", "-selection", "clipboard"]
    READ = [*WRITE, "-out", "-target", "UTF8_STRING"]


def read():
    """The clipboard's text, or None without one."""
    if gnome.here():
        return gnome.read_clipboard()
    done = subprocess.run(READ, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=10)
    return done.stdout.decode() if done.returncode == 0 else None


def read_bytes(form):
    """The clipboard's content in that form, or None without one."""
    done = subprocess.run(["xclip", "-selection", "clipboard", "-out", "-target", form],
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=10)
    return done.stdout if done.returncode == 0 else None


def write_bytes(content, form):
    subprocess.run(["xclip", "-selection", "clipboard", "-target", form], input=content, check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    until("the clipboard holds it", lambda: read_bytes(form) == content)


def write(text):
    if gnome.here():  # where a program without the focus copies nothing
        gnome.write_clipboard(text)
    else:
        # The copy that stays behind to serve the text must not hold our own output open.
        subprocess.run(WRITE, input=text.encode(), check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    until("the clipboard holds it", lambda: read() == text)
