#!/usr/bin/python3
"""What a screen reader gets: all that a window shows has its name and its role on the accessibility
bus, in each window, menu, sheet and state of them; and what is secret isn't there at all."""

import os
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, hands, library, settings  # noqa: E402
from lib.service import Account, OpenRouter  # noqa: E402
from lib.vesko import Vesko, deployed, forget_key, install_key  # noqa: E402
from lib.waiting import until  # noqa: E402

BUTTON, ITEM, ROW, TEXT, SWITCH = "push button", "menu item", "list item", "text", "check box"
CONTROLS = {BUTTON, ITEM, ROW, TEXT, SWITCH, "combo box", "link", "button menu"}
# What holds controls or is read.
OTHERS = {"frame", "panel", "list", "form", "popup menu", "dialog", "label", "paragraph", "heading",
          "status bar", "notification", "alert", "separator"}
TERM = {"id": "00000000-0000-4000-8000-000000000001", "original": "one", "replacement": "1",
        "source": "manual", "enabled": True, "createdAt": "2026-01-01T00:00:00Z"}


class Accessibility(unittest.TestCase):
    def start(self, scene=None, binary=None, notes=0, **values):
        settings.write(**{"provider": "apple", "firstLaunchDone": True,
                          "onboardingCompleted": True, **values})
        root = os.path.join(tempfile.mkdtemp(), "library")
        os.makedirs(root)
        if notes:
            library.write(root, notes)
        else:
            library.write_document(root, [], dictionary=[TERM])
        self.vesko = Vesko(**({"binary": binary} if binary else {}), root=root,
                           **({"VESKO_DEMO_SCENE": scene} if scene else {}))
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_for("ready")

    def nodes(self):
        """All of the program's that are there for the user now or by scrolling."""
        for node in self.vesko.app.walk():
            try:
                if node.role != "application" and (
                        "showing" in node.states or min(node.bounds[2:]) > 0):
                    yield node
            except eyes.Gone:
                continue

    def bad(self):
        """What a screen reader could not tell of, in words."""
        found = []
        for node in self.nodes():
            try:
                # A password has no name on the bus; what it is for is its description.
                name = node.name or (node.is_password and node.description)
                if node.role not in CONTROLS | OTHERS or not name and node.role != "separator":
                    found.append(repr(node))
            except eyes.Gone:
                continue
        return found

    def is_selected(self, *names):
        """Of all rows these."""
        def selected():
            return [node.name for node in self.nodes()
                    if node.role == ROW and "selected" in node.states]

        until(f"{names} are selected; {selected()}", lambda: selected() == list(names))

    def is_told(self, *expected):
        """Everything that is shown, among it these (role, name)."""
        for role, name in expected:
            until(f"there is the {role} {name!r}", lambda: any(
                node.role == role and node.name == name for node in self.nodes()))
        until(f"all is told; {self.bad()}", lambda: not self.bad(), deadline=3)

    def test_the_library_window(self):
        self.start("note=0", notes=2)
        self.is_told((TEXT, "Note title"), (TEXT, "Note text"), (ROW, "Dictation"),
                     (BUTTON, "Retry…"), (BUTTON, "Play or stop original recording"),
                     ("combo box", "Project"), (TEXT, "Search notes and transcripts"))
        self.is_selected("All notes", "Dictation")
        for name, shows in (
                ("Menu", (ITEM, "Quit Vesko")), ("Note actions", (ITEM, "Export Markdown…")),
                ("Project", (ROW, "No project")), ("New project", (TEXT, "Project name")),
                ("Retry…", ("label", "Transcribe this original again?"))):
            self.vesko.press(None, name)
            self.is_told(shows)
            hands.tap("escape")
            until("it is closed", lambda shows=shows: not self.vesko.find(*shows))
        self.vesko.press(None, "Note actions")
        self.vesko.wait_to_find(ITEM, "Copy text")
        hands.tap("escape")
        until("the keyboard is back where it was",
              lambda: "focused" in self.vesko.find(None, "Note actions").states)
        for item, shows in (("Export Markdown…", (TEXT, "File")),
                            ("Move to Trash…", (BUTTON, "Move to Trash"))):
            self.vesko.press(None, "Note actions")
            self.vesko.press(ITEM, item)
            self.is_told(shows)
            hands.tap("escape")
            until("it is closed", lambda shows=shows: not self.vesko.find(*shows))
        self.vesko.press(BUTTON, "Original transcript")
        self.is_told()
        self.vesko.press(ROW, "Trash")
        self.is_told(("label", "Trash is empty"))
        self.is_selected("Trash")

    def test_the_dictionary_window(self):
        self.start("dictionary")
        self.is_told((ROW, "one → 1"), (SWITCH, "Use term"), (BUTTON, "Edit one"),
                     (BUTTON, "Remove one"))
        self.vesko.press(BUTTON, "Edit one")
        self.is_told((BUTTON, "Save term"), (BUTTON, "Cancel"))

    def test_the_settings_window(self):
        self.start("settings", provider="openrouter", keySource="personal", cleanupEnabled=True)
        self.vesko.settings_page("Availability and storage")
        self.is_told((SWITCH, "Launch at login"), (BUTTON, "Open data folder"))
        self.vesko.settings_page("Speech recognition")
        self.is_told(("combo box", "Transcribe with"))
        self.vesko.press("combo box", "Spoken language")
        self.is_told((ROW, "German"))

    def test_the_first_run(self):
        service = Account()
        self.addCleanup(service.stop)
        self.start(binary=deployed(**service.deployment), onboardingCompleted=False)
        for step in (BUTTON, "Get started"), (BUTTON, "Continue"), (BUTTON, "Continue"):
            self.is_told(step)
            self.vesko.press(*step)
        self.is_told((TEXT, "Email address"), (BUTTON, "Not now"))

    def test_the_floating_control(self):
        with OpenRouter() as service:
            service.answer("Der Zug hatte schon wieder Verspätung, und alle warteten.")
            binary = deployed(service.url)
            install_key("test-key", binary)
            self.start(binary=binary, provider="openrouter", keySource="vesko")
            self.is_told((BUTTON, "Start dictation"), ("label", "Ready"))
            self.vesko.begin()
            self.is_told((BUTTON, "Stop dictation"), ("label", "Recording"))
            self.vesko.end()
            self.vesko.wait_for_text("Which language do you speak?")
            self.is_told((BUTTON, "German"), ("link", "I switch between languages"))
            hands.click(*self.vesko.button.centre, button=3)
            self.is_told((ITEM, "Start dictation"), (ITEM, "Quit Vesko"))

    def test_a_key_is_told_to_nobody(self):
        forget_key()
        self.start("settings", provider="openrouter", keySource="personal")
        field = until("there is the field for the key", lambda: next(
            (node for node in self.nodes() if node.is_password), None))
        self.assertEqual(field.description, "Your personal API key")
        field.activate()
        until("it has the keyboard", lambda: "focused" in field.states)
        hands.type_letters("secretkey")
        until("as many signs are shown", lambda: len(field.text) == len("secretkey"))
        self.assertEqual(self.telling("secretkey"), [])
        hands.tap("return")
        self.vesko.wait_to_find("status bar", "Key saved in your keyring")
        self.assertEqual(self.telling("secretkey"), [])

    def telling(self, secret):
        """The elements that say it, in whatever they say."""
        found = []
        for node in self.vesko.app.walk():
            try:
                if any(secret in said for said in node.everything()):
                    found.append(node)
            except eyes.Gone:
                continue
        return found


if __name__ == "__main__":
    cases.main()
