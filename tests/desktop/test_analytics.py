#!/usr/bin/python3
"""What usage analytics tells a service that reads along: with the user's consent a fixed list of
words and numbers, and without it nothing.
"""

import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, clipboard, settings, voice  # noqa: E402
from lib.programs import Mousepad  # noqa: E402
from lib.service import Analytics  # noqa: E402
from lib.vesko import Vesko, deployed  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

ON_DEVICE = {"provider": "apple", "firstLaunchDone": True, "onboardingCompleted": True}
DICTATION = ["app_started", "note_created", "recording_started", "recording_saved", "text_copied",
             "transcription_succeeded"]
LEFT_BEHIND = "6f9619ff-8b86-d011-b42d-00c04fc964ff"


class UsageAnalytics(unittest.TestCase):
    def setUp(self):
        self.service = Analytics()
        self.addCleanup(self.service.stop)
        self.addCleanup(settings.remove)
        self.binary = self.deployment(self.service.root)

    def deployment(self, address):
        return deployed(VeskoAnalyticsBaseURL=address, VeskoAnalyticsAppKey=self.service.app_key,
                        VeskoAnalyticsEnvironment="sandbox")

    def dictate(self, vesko, editor):
        vesko.wait_for("ready")
        editor.raise_window()
        vesko.dictate(lambda: voice.say(voice.BROTHER))
        heard = vesko.last_recording()["attempts"][-1].get("text")
        self.assertTrue(voice.is_understood(voice.BROTHER, heard), heard)
        until("the text stands in the editor", lambda: heard in editor.text)
        return heard

    def wait_for(self, events):
        """Until the service has heard of all of them, in whatever batches."""
        until(f"the service has heard {events}, not {self.service.events()}",
              lambda: self.service.events() == events)

    def files_with(self, *texts):
        """The files of the program, and its log, that hold any of the texts."""
        found = []
        for folder in (os.environ["XDG_CONFIG_HOME"], os.environ["XDG_DATA_HOME"],
                       os.path.join(os.environ["SESSION_DIR"], "log"), self.root):
            for place, _, names in os.walk(folder):
                for name in names:
                    with open(os.path.join(place, name), "rb") as file:
                        content = file.read()
                    if any(text.encode() in content for text in texts):
                        found.append(os.path.join(place, name))
        return found

    def run_with(self, **chosen):
        settings.write(**ON_DEVICE, **chosen)
        vesko = Vesko(self.binary)
        self.root = vesko.root
        self.addCleanup(vesko.kill)
        return vesko

    def test_with_consent_a_dictation_is_told_and_nothing_that_was_said(self):
        with Mousepad() as editor:
            vesko = self.run_with(analyticsConsent=True)
            text = self.dictate(vesko, editor)
            self.wait_for(DICTATION)
            heard = set(text.split()) | {editor.app.name, "Letter.txt", vesko.root,
                                                  os.environ["HOME"]}
            vesko.quit()
        for request in self.service.requests():
            self.assertIsNone(request["problem"], request["body"])
            self.assertTrue(request["authorized"])
            for word in heard:
                self.assertNotIn(f'"{word}"', request["body"])
                self.assertTrue(len(word) < 4 or word not in request["body"], word)
        self.assertNotIn(text, vesko.log())
        # The identifier stands in the settings alone, the key of the service in no file.
        identifier = self.service.requests()[0]["body"].partition('"iid" : "')[2][:36]
        self.assertEqual(self.files_with(identifier), [settings.path()])
        self.assertEqual(self.files_with(self.service.app_key), [])

    def test_without_consent_nothing_arrives_and_nothing_stands_on_disk(self):
        for chosen in ({}, {"analyticsConsent": False}, {"analyticsIID": LEFT_BEHIND}):
            with self.subTest(chosen), Mousepad() as editor:
                vesko = self.run_with(**chosen)
                self.dictate(vesko, editor)
                human_pause(1.5)  # longer than two batches are apart
                vesko.quit()
                self.assertEqual(self.service.requests(), [])
                self.assertEqual(self.files_with("analyticsIID", LEFT_BEHIND, "app_started",
                                                 "text_copied", "iid"), [])
                self.assertEqual(self.files_with("firstLaunchDone"), [settings.path()])

    def test_without_an_app_key_nothing_arrives(self):
        self.binary = deployed(VeskoAnalyticsBaseURL=self.service.root)
        with Mousepad() as editor:
            vesko = self.run_with(analyticsConsent=True)
            self.dictate(vesko, editor)
            human_pause(1.5)
            vesko.quit()
        self.assertEqual(self.service.requests(), [])
        # Who consented once and gets a build with a key later is the same one then.
        self.assertEqual(self.files_with("analyticsIID"), [settings.path()])

    def test_a_redirect_is_not_followed(self):
        with Analytics() as elsewhere:
            self.service.control(status=307, headers={"Location": elsewhere.root + "/api/v0/events"})
            vesko = self.run_with(analyticsConsent=True)
            self.wait_for(["app_started"])
            vesko.wait_for("ready")
            human_pause(1.0)
            vesko.quit()
            self.assertEqual(elsewhere.requests(), [])

    def test_a_service_that_fails_costs_no_word_and_leaves_nothing(self):
        self.service.control(status=503)
        with Mousepad() as editor:
            vesko = self.run_with(analyticsConsent=True)
            heard = self.dictate(vesko, editor)
            vesko.wait_for_text("Copied. Paste sent to the original field.")
            self.assertEqual(clipboard.read(), heard)
            until("it is tried again", lambda: len(self.service.requests()) > 1)
            vesko.quit()
        self.assertEqual(self.files_with("app_started", "text_copied"), [])

    def test_a_service_that_never_answers_holds_nobody_up(self):
        self.service.hold()
        with Mousepad() as editor:
            vesko = self.run_with(analyticsConsent=True)
            self.service.wait_for_request()
            self.dictate(vesko, editor)
            vesko.quit()
        self.assertEqual(self.service.events(), ["app_started"])

    def test_a_service_that_is_not_there_holds_nobody_up(self):
        self.service.stop()
        with Mousepad() as editor:
            vesko = self.run_with(analyticsConsent=True)
            self.dictate(vesko, editor)
            vesko.quit()


if __name__ == "__main__":
    cases.main()
