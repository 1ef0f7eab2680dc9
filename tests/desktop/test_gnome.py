#!/usr/bin/python3
"""A dictation in a session of GNOME, which asks at each whether Vesko may press the keys that
paste."""

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, consent  # noqa: E402
from lib.dictation import Dictations  # noqa: E402
from lib.programs import GnomeTextEditor, Mousepad  # noqa: E402


class Gnome(Dictations):
    def into(self, program):
        with program:
            self.begin()
            consent.give(program)
            self.end()
            self.holds(program, "Where this lands is what matters.")

    def test_into_an_editor_of_gtk_3(self):
        self.into(Mousepad())

    def test_into_an_editor_of_gtk_4(self):
        self.into(GnomeTextEditor())


if __name__ == "__main__":
    cases.main()
