#!/usr/bin/python3
"""A computer without any microphone."""

import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, hands  # noqa: E402
from lib.vesko import Vesko  # noqa: E402


class NoMicrophone(unittest.TestCase):
    def test_says_that_there_is_none(self):
        with Vesko() as vesko:
            vesko.wait_for("ready")
            hands.tap_shortcut()
            vesko.wait_for_text(
                "The microphone could not start. Check your audio input and try again.")
            vesko.wait_for("ready")


if __name__ == "__main__":
    cases.main()
