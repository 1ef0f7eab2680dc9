#!/usr/bin/python3
"""What was copied outlives the program that copied it."""

import ctypes
import os
import signal
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, clipboard, settings  # noqa: E402
from lib.dictation import NO_WINDOW, WORDS, Dictations  # noqa: E402
from lib.programs import Mousepad  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402


def keepers():
    """The processes that serve what a Vesko of this session left behind."""
    found = []
    for process in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open(f"/proc/{process}/cmdline", "rb") as file:
                command = file.read().split(b"\0")
            with open(f"/proc/{process}/environ", "rb") as file:
                here = f"SESSION_DIR={os.environ['SESSION_DIR']}".encode() in file.read()
        except OSError:
            continue
        if here and b"--keep-clipboard" in command:
            found.append(int(process))
    return found


def selection_owner(name):
    """The window that has the selection of that name, or 0."""
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = x11.XGetSelectionOwner.restype = ctypes.c_void_p
    x11.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
    x11.XInternAtom.restype = ctypes.c_ulong
    x11.XGetSelectionOwner.argtypes = [ctypes.c_void_p, ctypes.c_ulong]
    x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
    display = x11.XOpenDisplay(None)
    owner = x11.XGetSelectionOwner(display, x11.XInternAtom(display, name.encode(), 0))
    x11.XCloseDisplay(display)
    return owner or 0


class Clipboard(Dictations):
    def setUp(self):
        super().setUp()
        if self.vesko.process.poll() is not None:
            type(self).start_vesko()

    def dictate_and_quit(self):
        self.begin()
        self.end(message=NO_WINDOW)
        self.vesko.quit()

    def test_the_text_is_still_there_after_quitting(self):
        self.dictate_and_quit()
        until("the text is there", lambda: clipboard.read() == WORDS)
        self.assertEqual(len(keepers()), 1)
        human_pause(0.5)
        self.assertEqual(clipboard.read(), WORDS)
        clipboard.write("something else")
        until("nobody keeps the old text", lambda: not keepers())
        self.assertEqual(clipboard.read(), "something else")

    def test_what_was_copied_meanwhile_stays(self):
        self.begin()
        self.end(message=NO_WINDOW)
        clipboard.write("something else")
        self.vesko.quit()
        self.assertEqual(clipboard.read(), "something else")
        self.assertEqual(keepers(), [])


class Managed(Dictations):
    """A clipboard manager of the desktop, which takes over what programs leave."""

    def setUp(self):
        super().setUp()
        self.manager = subprocess.Popen(["xfce4-clipman"], stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        self.addCleanup(self.manager.wait)
        self.addCleanup(self.manager.kill)
        until("it manages the clipboard", lambda: selection_owner("CLIPBOARD_MANAGER"))

    def test_the_manager_has_the_text_after_quitting(self):
        self.begin()
        self.vesko.end()
        until("the text is copied", lambda: clipboard.read() == WORDS)
        self.vesko.wait_for("ready")
        self.vesko.quit()
        self.assertEqual(clipboard.read(), WORDS)
        self.assertEqual(keepers(), [])


FORMS = (
    ("rich text", "text/html", b"<b>rich</b>"),
    ("a picture", "image/png", b"\x89PNG" + bytes(range(256)) * 8000),  # in several pieces
    ("files", "x-special/gnome-copied-files", b"copy\nfile:///tmp/one\nfile:///tmp/two"),
)
GAVE_BACK = "Pasted into the original field. The clipboard holds what it held before."
OWNER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "services/clipboard_owner.py")


class GivenBack(Dictations):
    """The user wants the clipboard back after a paste."""

    @classmethod
    def start_vesko(cls):
        settings.write(**{**settings.read(), "returnClipboard": True})
        super().start_vesko()

    def dictate_and_get_back(self, form, content):
        self.begin()
        self.vesko.end()
        self.vesko.wait_for_text(GAVE_BACK)
        self.vesko.wait_for("ready")
        self.assertEqual(clipboard.read_bytes(form), content)

    def test_text_and_other_forms(self):
        with Mousepad() as editor:
            self.dictate_and_get_back("UTF8_STRING", b"what was copied before")
            self.holds(editor, WORDS)
            for name, form, content in FORMS:
                with self.subTest(name):
                    clipboard.write_bytes(content, form)
                    self.dictate_and_get_back(form, content)
            self.holds(editor, WORDS * 4)

    def test_a_picture_of_a_gtk_program_and_after_quitting(self):
        owner = subprocess.Popen(["/usr/bin/python3", OWNER])
        self.addCleanup(owner.kill)
        picture = until("it has copied a picture", lambda:
                        (content := clipboard.read_bytes("image/png") or b"").startswith(b"\x89PNG")
                        and content)
        with Mousepad():
            self.dictate_and_get_back("image/png", picture)
        owner.kill()
        owner.wait()
        self.assertEqual(clipboard.read_bytes("image/png"), picture)
        self.vesko.quit()
        self.assertEqual(clipboard.read_bytes("image/png"), picture)
        type(self).start_vesko()

    def test_what_is_too_large_or_not_told_of_is_not_given_back(self):
        with Mousepad() as editor:
            clipboard.write_bytes(bytes(17 << 20), "image/png")
            self.begin()
            self.end()
            self.holds(editor, WORDS)
            before = clipboard.read()
            silent = subprocess.Popen(["xclip", "-quiet", "-selection", "clipboard"],
                                      stdin=subprocess.PIPE, stderr=subprocess.DEVNULL)
            self.addCleanup(silent.kill)
            silent.stdin.write(b"silent")
            silent.stdin.close()
            until("it has the clipboard", lambda: clipboard.read() not in (None, before))
            silent.send_signal(signal.SIGSTOP)
            self.begin()
            self.end()
            self.holds(editor, WORDS * 2)


if __name__ == "__main__":
    cases.main()
