#!/usr/bin/python3
"""The settings form, driven through the accessibility bus and the keyboard alone: each setting is
looked up in the settings file."""

import os
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, hands, settings  # noqa: E402
from lib.service import Analytics  # noqa: E402
from lib.vesko import Vesko, deployed, forget_key, install_key  # noqa: E402
from lib.waiting import until  # noqa: E402

BUTTON, TEXT, SWITCH, ROW, CHOICE = ("push button", "text", "check box", "list item", "combo box")
SPEECH, TEXTS, CAPTURE, TERMS, PERMISSIONS, STORAGE, PRIVACY = PAGES = (
    "Speech recognition", "Translation and cleanup", "Capture and insertion",
    "Personal dictionary", "Permissions", "Availability and storage", "Privacy")


class SettingsWindow(unittest.TestCase):
    def setUp(self):
        settings.write(provider="openrouter", keySource="personal", firstLaunchDone=True,
                       onboardingCompleted=True)
        self.vesko = Vesko(VESKO_DEMO_SCENE="settings")
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_to_find(CHOICE, "Transcribe with")
        until("the window has the keyboard",
              lambda: eyes.active_pid() == self.vesko.process.pid)

    def becomes(self, key, value):
        until(f"{key} is {value!r}; the settings are {settings.read()}",
              lambda: settings.read().get(key) == value)

    def choose(self, picker, row):
        self.vesko.tab_to(CHOICE, picker)
        self.vesko.press(CHOICE, picker)
        self.vesko.press(ROW, row)

    def find_anywhere(self, role, name):
        """Also what has to be scrolled to."""
        return until(f"a {role} called {name!r}", lambda: self.vesko.app.find(role, name))

    def test_each_switch(self):
        for page, name, key, before in (
                (TEXTS, "Clean up punctuation and repeated words", "cleanupEnabled", False),
                (CAPTURE, "Also use a single key to start and stop", "fnEnabled", True),
                (CAPTURE, "Show floating capture button", "showFloating", True),
                (CAPTURE, "Play sounds when recording starts and stops", "soundsEnabled", True),
                (CAPTURE, "Paste dictation into the original field", "pasteEnabled", True),
                (TERMS, "Use personal dictionary", "dictionaryEnabled", True),
                (TERMS, "Learn from corrected dictation", "learnCorrections", True)):
            self.vesko.settings_page(page)
            switch = self.find_anywhere(SWITCH, name)
            self.assertEqual("checked" in switch.states, before, name)
            switch.activate()
            self.becomes(key, not before)
            until("it shows", lambda: ("checked" in switch.states) != before)
            switch.activate()
            self.becomes(key, before)

    def test_each_choice(self):
        self.choose("Spoken language", "German")
        self.becomes("language", "de-DE")
        self.choose("Transcribe with", "On-device")
        self.becomes("provider", "apple")
        until("the model is not asked for", lambda: not self.vesko.find(TEXT, "Speech model ID"))
        self.vesko.settings_page(TEXTS)
        self.choose("Translate dictation into", "French")
        self.becomes("translateTo", "fr-FR")
        self.vesko.settings_page(CAPTURE)
        self.choose("Dictation key", "Pause")
        self.becomes("gestureKey", "pause")

    def test_what_this_build_cannot_do_is_not_offered(self):
        self.vesko.wait_to_find("label", "Key status")
        for role, name in (("heading", "Account"), (BUTTON, "Continue with Google"),
                           (CHOICE, "Use"), (ROW, "Account")):
            self.assertIsNone(self.vesko.find(role, name), name)

    def test_vesko_access_is_offered_where_it_was_installed(self):
        self.addCleanup(forget_key)
        self.vesko.kill()
        install_key("sk-of-vesko")
        settings.write(**{**settings.read(), "keySource": "personal"})
        self.vesko = Vesko(VESKO_DEMO_SCENE="settings")
        self.addCleanup(self.vesko.kill)
        self.vesko.wait_to_find(CHOICE, "Use")
        self.choose("Use", "Vesko access")
        self.becomes("keySource", "vesko")
        self.vesko.wait_to_find("label", "Vesko access is ready")

    def test_a_model_is_typed(self):
        field = self.vesko.tab_to(TEXT, "Speech model ID")
        hands.tap("left control", "a")
        hands.type_letters("mine")
        self.becomes("sttModel", "mine")
        self.assertEqual(field.text, "mine")

    def test_a_suggested_model_is_taken(self):
        self.vesko.settings_page(TEXTS)
        self.find_anywhere(SWITCH, "Clean up punctuation and repeated words").activate()
        self.becomes("cleanupEnabled", True)
        menu = until("the menu's button", lambda: self.vesko.app.find(
            "button menu", "Suggested text models") or self.vesko.app.find(
            BUTTON, "Suggested text models"))
        menu.activate()
        self.vesko.press("menu item", "qwen/qwen3.8-flash")
        self.becomes("cleanupModel", "qwen/qwen3.8-flash")

    def test_the_floating_button_goes_and_comes(self):
        self.vesko.settings_page(CAPTURE)
        switch = self.find_anywhere(SWITCH, "Show floating capture button")
        switch.activate()
        until("it is hidden", lambda: "showing" not in self.vesko.button.states)
        switch.activate()
        until("it is shown", lambda: "showing" in self.vesko.button.states)

    def test_a_key_is_saved_and_removed_by_keys_alone(self):
        forget_key()
        # A password has no name over the bus; what it is for is its description.
        field = self.vesko.tab_to(TEXT, "")
        self.assertEqual(field.description, "Your personal API key")
        hands.type_letters("sk1")
        until("three signs are shown", lambda: len(field.text) == 3)
        self.assertNotIn("sk1", field.text)
        hands.tap("return")
        self.vesko.wait_to_find("status bar", "Key saved in your keyring")
        self.vesko.wait_to_find("label", "Saved in your keyring")
        found = subprocess.run(
            ["secret-tool", "lookup", "service", "app.vesko.openrouter", "account", "personal"],
            stdout=subprocess.PIPE, text=True).stdout
        self.assertEqual(found, "sk1")
        self.assertNotIn("sk1", self.vesko.log())
        self.vesko.tab_to(BUTTON, "Remove key")
        hands.tap("space")
        self.vesko.wait_to_find("status bar", "Key removed")
        self.vesko.wait_to_find("label", "No key saved")

    def test_the_consent_to_analytics(self):
        self.vesko.kill()
        with Analytics() as service:
            self.vesko = Vesko(deployed(VeskoAnalyticsBaseURL=service.root,
                                        VeskoAnalyticsAppKey=service.app_key),
                               VESKO_DEMO_SCENE="settings")
            self.addCleanup(self.vesko.kill)
            self.vesko.settings_page(PRIVACY)
            switch = self.find_anywhere(SWITCH, "Share anonymous usage analytics")
            for consent in (True, False):
                switch.activate()
                self.becomes("analyticsConsent", consent)
                until("it shows", lambda: ("checked" in switch.states) == consent)

    def test_it_starts_at_login(self):
        entry = os.path.join(os.environ["XDG_CONFIG_HOME"], "autostart", "vesko.desktop")
        self.vesko.settings_page(STORAGE)
        switch = self.find_anywhere(SWITCH, "Launch at login")
        self.assertNotIn("checked", switch.states)
        switch.activate()
        until("it is registered", lambda: os.path.exists(entry))
        until("it shows", lambda: "checked" in switch.states)
        switch.activate()
        until("it is not", lambda: not os.path.exists(entry))

    def test_the_permissions_are_what_this_session_has(self):
        self.vesko.settings_page(PERMISSIONS)
        for name in ("Microphone", "Speech Recognition", "Accessibility", "Keyboard"):
            row = self.find_anywhere(ROW, name)
            until(f"{name} is allowed; it says {row.description}",
                  lambda row=row: row.description.endswith(" Allowed")
                  and not row.description.endswith("Not Allowed"))
        self.find_anywhere(BUTTON, "Review Microphone").activate()
        self.vesko.wait_to_find("status bar", "Microphone access is ready")

    def test_the_dictionary_is_opened(self):
        self.vesko.settings_page(TERMS)
        self.find_anywhere(BUTTON, "Open Dictionary").activate()
        self.vesko.wait_to_find(TEXT, "Recognized term")

    def walked(self):
        """What Tab comes to, once around."""
        names, focused = [], None
        for _ in range(60):
            hands.tap("tab")
            until("the keyboard has gone on",
                  lambda here=focused: self.vesko.focused() not in (None, here))
            focused = self.vesko.focused()
            said = focused.name or focused.description
            self.assertTrue(said, focused)
            if said in names:
                break
            names.append(said)
            self.assertIn("showing", focused.states, said)
        return names

    def test_every_control_comes_by_tab_and_can_be_seen(self):
        for page, reached in (
                (SPEECH, ["Transcribe with", "Speech model ID", "Save key"]),
                (CAPTURE, ["Show floating capture button", "Preview stop sound"]),
                (STORAGE, ["Launch at login", "Open data folder", "Remove recordings"])):
            self.vesko.settings_page(page)
            names = self.walked()
            for name in (*reached, *PAGES, "Search settings"):
                self.assertIn(name, names)

    def comes_to(self, role, name):
        until(f"the keyboard comes to {name!r}; it is in {self.vesko.focused()}",
              lambda: (here := self.vesko.focused()) and (here.role, here.name) == (role, name))

    def test_the_pages_are_walked_by_arrows_and_each_has_its_heading(self):
        self.vesko.tab_to(ROW, SPEECH)
        for key, page in (("down", TEXTS), ("down", CAPTURE), ("up", TEXTS), ("end", PRIVACY),
                          ("down", PRIVACY), ("home", SPEECH), ("up", SPEECH)):
            hands.tap(key)
            self.comes_to(ROW, page)
            self.vesko.wait_to_find("form", page)
            self.vesko.wait_to_find("heading", "Translation" if page == TEXTS else page)
            self.assertIn("selected", self.vesko.find(ROW, page).states)

    def search(self, text):
        self.vesko.tab_to(TEXT, "Search settings")
        hands.type_letters(text)

    def test_a_search_over_all_pages_leads_to_the_row(self):
        self.search("login")
        found = self.vesko.wait_to_find(ROW, "Launch at login")
        self.assertEqual(found.description, STORAGE)
        self.assertIsNone(self.vesko.find(ROW, SPEECH), "a page stands among what was found")
        hands.tap("return")
        self.vesko.wait_to_find("form", STORAGE)
        self.comes_to(SWITCH, "Launch at login")
        self.vesko.wait_to_find(ROW, SPEECH)  # the search is over

    def test_escape_ends_a_list_of_choices_then_a_search_then_closes_the_window(self):
        self.vesko.tab_to(CHOICE, "Transcribe with")
        hands.tap("space")
        self.vesko.wait_to_find(ROW, "On-device")
        hands.tap("escape")
        until("the list is gone", lambda: not self.vesko.find(ROW, "On-device"))
        self.search("login")
        self.vesko.wait_to_find(ROW, "Launch at login")
        hands.tap("escape")
        self.vesko.wait_to_find(ROW, SPEECH)
        self.escape_closes()

    def test_escape_closes_the_window_from_a_page_too(self):
        self.vesko.tab_to(CHOICE, "Transcribe with")
        self.escape_closes()

    def escape_closes(self):
        hands.tap("escape")
        until("the window is gone", lambda: not self.vesko.find("frame", "Vesko Settings"))

    def test_a_search_finds_by_the_hint_and_by_the_page(self):
        for words, row, control in (
                ("bluetooth clipboard", None, None),
                ("similar word", "Learn from corrected dictation", SWITCH),
                ("storage trash", "Empty Trash", CHOICE)):
            with self.subTest(words):
                self.search(words)
                if not row:
                    self.vesko.wait_to_find("status bar", "No setting has these words")
                    hands.tap("escape")
                    self.vesko.wait_to_find(ROW, SPEECH)
                    continue
                self.vesko.wait_to_find(ROW, row)
                hands.tap("down")
                self.comes_to(ROW, row)
                hands.tap("return")
                self.comes_to(control, row)


if __name__ == "__main__":
    cases.main()
