"""One whole dictation by the shortcut into another program, and what the user reads after it."""

import os
import unittest

from . import clipboard, eyes, gnome, hands, settings
from .programs import Mousepad
from .service import OpenRouter
from .vesko import Vesko, deployed, install_key
from .waiting import human_pause, until

SENT = "Copied. Paste sent to the original field."
MOVED = "Copied. You moved to another field, so Vesko did not paste. Paste it with Ctrl+V."
NO_FIELD = "Copied. No text field was focused when you started. Paste it with Ctrl+V."
NO_WINDOW = ("Copied. No active window was known when you started, so Vesko did not paste. Paste it "
             "with Ctrl+V.")
HIDDEN = "Copied. Vesko does not paste where letters are hidden, as in a password."
NO_ELEMENTS = ("Copied. This program does not show its text fields to Vesko. Paste it with Ctrl+V, "
               "in a terminal with Ctrl+Shift+V, in Emacs with Ctrl+Y.")
NO_PASTE = ("Copied. This field does not accept automatic paste. Paste it with Ctrl+V, in GVim with "
            "Edit > Paste.")
UNSEEN = ("Copied. Vesko could not see which field was in use, so it did not paste. Paste it with "
          "Ctrl+V.")
# Where the windows alone tell who is active, none of them says that none is.
if os.environ["XDG_SESSION_TYPE"] == "wayland":
    NO_WINDOW = UNSEEN
ASKED = ("Copied. The desktop was still asking you whether Vesko may press the keys that paste. Paste "
         "it with Ctrl+V.")
REFUSED = ("Copied. Vesko was not allowed to press the keys that paste. Paste it with Ctrl+V.")
HELD = "Copied. A key was held down, so Vesko did not paste. Paste it with Ctrl+V."
NOT_SEEN = ("Copied. Paste was sent, but the field does not show the text. If it is missing, paste "
            "it with Ctrl+V.")
WORDS = "Where this lands is what matters."


class Dictations(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        hands.load_layouts()
        cls.service = OpenRouter()
        cls.addClassCleanup(cls.service.stop)
        cls.binary = deployed(cls.service.url)
        install_key("test-key", cls.binary)
        # A first run would show a window of its own.
        settings.write(**{**settings.read(), "firstLaunchDone": True, "onboardingCompleted": True})
        cls.start_vesko()

    @classmethod
    def start_vesko(cls):
        cls.vesko = Vesko(cls.binary)
        cls.addClassCleanup(cls.vesko.kill)
        cls.vesko.wait_for("ready")

    def setUp(self):
        clipboard.write("what was copied before")
        self.service.answer(WORDS)

    def begin(self):
        self.vesko.begin()
        human_pause(0.3)  # somebody says something

    def end(self, words=WORDS, message=SENT):
        """Finishes the dictation; expects the clipboard and what the user reads."""
        self.vesko.end()
        self.delivered(words, message)

    def end_and_hold(self):
        """Finishes the dictation, and keeps its answer back until release()."""
        self.service.hold()
        self.vesko.end()
        self.service.wait_for_request()

    def delivered(self, words=WORDS, message=SENT):
        self.vesko.wait_for_text(message)
        self.vesko.wait_for("ready")
        if gnome.here():  # the copied text comes to the shell by another road than the message to us
            until(f"{words!r} is on the clipboard", lambda: clipboard.read() == words)
        self.assertEqual(clipboard.read(), words)

    def released(self, **expected):
        self.service.release()
        self.delivered(**expected)

    def holds(self, program, text):
        """The field of the program comes to hold exactly this."""
        try:
            until("", lambda: program.text == text, deadline=5)
        except AssertionError:
            self.assertEqual(program.text, text)

    def stays(self, read, value):
        """Nothing arrives, not even late: what would be sent stands before the message."""
        human_pause(0.3)
        self.assertEqual(read(), value)


class Cells:
    """What must be right in every program that shows its field: a mixin of Dictations."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.program = cls.make_program()
        cls.addClassCleanup(lambda: cls.program.kill())

    def lands_once(self, dictate):
        """Expects the words once more in the field after dictate()."""
        before = self.program.text.count(WORDS)
        dictate()
        until(f"the words have arrived once more in {self.program.text!r}",
              lambda: self.program.text.count(WORDS) == before + 1, deadline=5)
        self.stays(lambda: self.program.text.count(WORDS), before + 1)

    def dictate(self):
        self.begin()
        self.end()

    def at_once(self):
        """Raises the window and starts at the same time."""
        self.program.raise_window()
        hands.tap_shortcut()
        self.vesko.wait_for("recording")
        human_pause(0.3)
        self.end()

    def move_cursor(self):
        hands.tap("home")

    def test_by_hand_and_at_once(self):
        self.program.return_to()
        self.lands_once(self.dictate)
        self.lands_once(self.dictate)
        with Mousepad():
            self.lands_once(self.at_once)

    def test_focused_before_our_start(self):
        self.program.return_to()
        self.vesko.kill()
        type(self).start_vesko()
        self.lands_once(self.dictate)

    def test_with_the_cursor_moved_inside(self):
        self.program.return_to()
        self.begin()
        self.end_and_hold()
        self.move_cursor()
        self.lands_once(self.released)

    def test_away_and_back(self):
        self.program.return_to()
        self.begin()
        self.end_and_hold()
        with Mousepad():
            human_pause(0.2)
            self.program.raise_window()
            self.lands_once(self.released)

    def test_not_after_another_window_was_raised(self):
        self.program.return_to()
        before = self.program.text
        with Mousepad() as other:
            self.program.raise_window()
            self.begin()
            self.end_and_hold()
            other.raise_window()
            self.released(message=MOVED)
            self.stays(lambda: (self.program.text, other.text), (before, ""))

    def test_not_after_it_was_closed(self):
        self.program.return_to()
        self.begin()
        self.end_and_hold()
        self.program.kill()
        until("its window is gone", lambda: eyes.active_pid() != self.program.pid)
        self.released(message=MOVED)
        type(self).program = self.make_program()
