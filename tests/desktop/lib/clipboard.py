"""The clipboard, as any other program sees it."""

import subprocess


def read():
    """The clipboard's text, or None without one."""
    content = read_bytes("UTF8_STRING")
    return None if content is None else content.decode()


def read_bytes(form):
    """The clipboard's content in that form, or None without one."""
    done = subprocess.run(["xclip", "-selection", "clipboard", "-out", "-target", form],
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=10)
    return done.stdout if done.returncode == 0 else None


def write_bytes(content, form):
    subprocess.run(["xclip", "-selection", "clipboard", "-target", form], input=content, check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def write(text):
    # The copy that stays behind to serve the text must not hold our own output open.
    subprocess.run(["xclip", "-selection", "clipboard"], input=text.encode(), check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
