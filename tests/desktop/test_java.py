#!/usr/bin/python3
"""Dictation into a window of Java's Swing, which speaks to the accessibility bus by a bridge."""

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, hands  # noqa: E402
from lib.dictation import HIDDEN, MOVED, Cells, Dictations  # noqa: E402
from lib.programs import SwingWindow  # noqa: E402
from lib.waiting import until  # noqa: E402


class Swing(Cells, Dictations):
    make_program = SwingWindow

    def to_password(self):
        secret = self.program.app.find("password text")
        hands.tap("tab")
        until("the password has the focus", lambda: "focused" in secret.states)
        return secret

    def test_never_into_a_password_field(self):
        self.program.return_to()
        secret = self.to_password()
        self.begin()
        self.end(message=HIDDEN)
        self.stays(lambda: secret.text, "")

    def test_not_after_moving_into_a_password_field(self):
        self.program.return_to()
        self.begin()
        self.end_and_hold()
        secret = self.to_password()
        self.released(message=MOVED)
        self.stays(lambda: secret.text, "")


if __name__ == "__main__":
    cases.main()
