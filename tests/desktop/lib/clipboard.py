"""The clipboard, as any other program sees it."""

import subprocess


def read():
    """The clipboard's text, or None without one."""
    done = subprocess.run(["xclip", "-selection", "clipboard", "-out", "-target", "UTF8_STRING"],
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=10)
    return done.stdout.decode() if done.returncode == 0 else None


def write(text):
    # The copy that stays behind to serve the text must not hold our own output open.
    subprocess.run(["xclip", "-selection", "clipboard"], input=text.encode(), check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
