#!/usr/bin/python3
"""What became of a text that was not pasted is told by the desktop's notifications, where there is
no status icon; a server that is not there, hangs or dies costs nothing."""

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, clipboard, dictation  # noqa: E402
from lib.dictation import WORDS  # noqa: E402
from lib.notifications import Notifications  # noqa: E402
from lib.waiting import until  # noqa: E402

TEXT = "text"


class ToldByTheDesktop(dictation.Dictations):
    def serve(self, *capabilities):
        server = Notifications(*capabilities)
        self.addCleanup(server.kill)
        return server

    def dictate_nowhere(self):
        """Nothing that takes text has the focus. The message says when it is over."""
        self.begin()
        self.vesko.end()
        until("it is told", lambda: any(
            text.startswith("Copied. ") for text in self.vesko.shown()))
        self.vesko.wait_for("ready")
        self.assertEqual(clipboard.read(), WORDS)

    def test_its_actions_copy_again_and_open_the_note(self):
        server = self.serve("actions", "body", "body-markup")
        self.dictate_nowhere()
        told = server.next()
        self.assertEqual(told["title"], "Not pasted")
        self.assertTrue(told["text"].startswith("Copied. "))
        self.assertNotIn(WORDS, told["text"])
        self.assertEqual(told["actions"], {"copy": "Copy again", "open": "Open note"})
        self.assertEqual(told["entry"], "app.vesko.Vesko")

        clipboard.write("something else")
        server.choose(told["number"], "copy")
        until("it is copied again", lambda: clipboard.read() == WORDS)
        server.choose(told["number"], "open")
        note = self.vesko.wait_to_find(TEXT, "Note text")
        self.assertEqual(note.text, WORDS)

    def test_the_next_dictation_takes_it_away(self):
        server = self.serve("actions", "body")
        self.dictate_nowhere()
        first = server.next()
        self.vesko.begin()
        self.assertEqual(server.next(), {"closed": first["number"]})
        self.vesko.end()
        self.vesko.wait_for("ready")

    def test_a_failure_can_be_retried(self):
        server = self.serve("actions", "body")
        self.service.control(status=500)
        self.begin()
        self.vesko.end()
        told = server.next()
        self.assertEqual(told["title"], "Not transcribed")
        self.assertEqual(told["actions"], {"retry": "Retry", "open": "Open note"})
        self.vesko.wait_for("ready")
        self.service.control(status=200)
        server.choose(told["number"], "retry")
        until("it is copied", lambda: clipboard.read() == WORDS)
        self.vesko.wait_for("ready")

    def test_a_server_without_actions_is_given_none(self):
        server = self.serve("body")
        self.dictate_nowhere()
        self.assertEqual(server.next()["actions"], {})

    def test_nobody_there_costs_nothing(self):
        self.dictate_nowhere()

    def test_a_server_that_hangs_or_dies_costs_nothing(self):
        server = self.serve("actions")
        server.freeze()
        self.dictate_nowhere()
        self.dictate_nowhere()
        server.kill()
        self.dictate_nowhere()
        another = self.serve("body")
        self.dictate_nowhere()
        self.assertEqual(another.next()["title"], "Not pasted")

    def test_quiet_where_the_text_was_pasted(self):
        server = self.serve("body")
        with dictation.Mousepad() as editor:
            editor.return_to()
            self.begin()
            self.end()
            self.holds(editor, WORDS)
        self.assertIsNone(server.come())


if __name__ == "__main__":
    cases.main()
