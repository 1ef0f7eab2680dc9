#!/usr/bin/python3
"""Accounts in the program as it is shipped: what becomes of a session at a start, who may dictate,
signing in with an email in the settings and out again, and what a second start or a redirect does.
Google's sign-in is tests/linux/account's."""

import json
import os
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, hands, settings  # noqa: E402
from lib.service import Account  # noqa: E402
from lib.vesko import Vesko, deployed, forget_key  # noqa: E402
from lib.waiting import human_pause, until  # noqa: E402

KEYRING = ["service", "app.vesko.openrouter", "account", "vesko-session"]
REDIRECT = "com.googleusercontent.apps.1234-test:/oauth2redirect?state={}&code={}"


def token():
    """What the keyring holds of a session; empty for nothing."""
    return subprocess.run(["secret-tool", "lookup", *KEYRING], stdout=subprocess.PIPE,
                          text=True, check=False).stdout


def put_session(service):
    """Leaves what an earlier run would have left; the token."""
    kept, account = service.session()
    subprocess.run(["secret-tool", "store", "--label=Vesko", *KEYRING], input=kept, text=True,
                   check=True)
    settings.write(firstLaunchDone=True, veskoAccount=json.dumps(account).encode())
    return kept


def stored():
    with open(settings.path(), "rb") as file:
        return file.read()


def files_with(*texts):
    """The files of the session that hold any of these, wherever the program may have written."""
    patterns = [part for text in texts for part in ("-e", text)]
    found = subprocess.run(["grep", "-rlF", *patterns, os.environ["SESSION_DIR"]],
                           stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    return [path for path in found.stdout.split() if not path.endswith(".keyring")]


class Accounts(unittest.TestCase):
    def setUp(self):
        self.service = Account()
        self.addCleanup(self.service.stop)
        self.addCleanup(forget_key)
        self.addCleanup(settings.remove)
        settings.write(firstLaunchDone=True)

    def program(self, **values):
        return deployed(**{**self.service.deployment, **values})

    def test_a_session_is_restored_and_stands_nowhere_but_in_the_keyring(self):
        kept = put_session(self.service)
        with Vesko(self.program(VeskoAccountRequired=True)) as vesko:
            until("the service was asked", lambda: self.service.asked("/v1/account") == [200])
            vesko.begin()  # who is signed in may dictate
            human_pause(0.3)
            vesko.end()
            vesko.wait_for("ready")
            vesko.quit()
        self.assertEqual(token(), kept)
        self.assertIn(b"user@example.com", stored())
        self.assertEqual(files_with(kept), [])

    def test_a_session_that_the_service_has_ended_is_forgotten(self):
        put_session(self.service)
        self.service.control(now=31 * 24 * 3600)
        with Vesko(self.program(VeskoAccountRequired=True)) as vesko:
            until("the session is forgotten", lambda: b"veskoAccount" not in stored())
            self.assertEqual(self.service.asked("/v1/account"), [401])
            self.assertEqual(token(), "")
            self.starts_nothing(vesko)

    def test_a_session_survives_a_service_that_is_away(self):
        kept = put_session(self.service)
        self.service.stop()
        with Vesko(self.program(VeskoAccountRequired=True)) as vesko:
            vesko.begin()
            vesko.quit()
        self.assertEqual(token(), kept)
        self.assertIn(b"veskoAccount", stored())

    def test_without_an_account_that_is_required_nothing_starts(self):
        with Vesko(self.program(VeskoAccountRequired=True)) as vesko:
            vesko.wait_for("ready")
            self.starts_nothing(vesko)
        self.assertEqual(self.service.asked("/v1/account"), [])

    def starts_nothing(self, vesko):
        hands.tap_shortcut()
        human_pause(0.5)
        self.assertEqual(vesko.phase, "ready")
        self.assertIsNone(vesko.last_recording())

    def test_a_user_signs_in_with_an_email_out_again_and_deletes_the_account(self):
        settings.write(firstLaunchDone=True, onboardingCompleted=True)
        with Vesko(self.program(), VESKO_DEMO_SCENE="settings") as vesko:
            vesko.settings_page("Account")
            code = self.ask_for_code(vesko)
            self.type_into(vesko, "Code", "000000" if code != "000000" else "111111")
            vesko.press("push button", "Sign in")
            vesko.wait_to_find("status bar",
                               "That code is not correct. Check the latest email and try again.")
            self.type_into(vesko, "Code", code)
            hands.tap("return")
            vesko.wait_to_find("label", "user@example.com")
            kept = token()
            self.assertEqual(self.service.asked("/v1/auth/email/verify"), [401, 200])
            self.assertGreater(len(kept), 8)
            vesko.press("push button", "Sign out")
            vesko.wait_to_find("status bar", "Signed out. Your notes stay on this computer.")
            self.assertEqual(token(), "")

            code = self.ask_for_code(vesko)
            self.type_into(vesko, "Code", code)
            hands.tap("return")
            vesko.wait_to_find("label", "user@example.com")
            again = token()
            vesko.press("push button", "Delete account…")
            vesko.press("push button", "Delete account")
            vesko.wait_to_find("status bar", "Your Vesko account was deleted. Notes and "
                                             "recordings on this computer were kept.")
            self.assertEqual(token(), "")
            vesko.quit()
        last = [one for one in self.service.requests() if one["path"] == "/v1/account"][-1]
        self.assertEqual((last["method"], last["status"]), ("DELETE", 200))
        self.assertNotIn(b"veskoAccount", stored())
        self.assertEqual(files_with(kept, again), [])

    def test_the_first_run_ends_with_the_sign_in_that_it_requires(self):
        settings.write(firstLaunchDone=True)
        with Vesko(self.program(VeskoAccountRequired=True)) as vesko:
            vesko.press("push button", "Get started")
            vesko.press("push button", "Continue")
            vesko.wait_to_find("heading", "Allow access")
            vesko.press("push button", "Continue")
            vesko.wait_to_find("heading", "Create your Vesko account")
            self.assertIsNone(vesko.find("push button", "Not now"))
            start = vesko.wait_to_find("push button", "Start using Vesko")
            self.assertNotIn("focusable", start.states)
            code = self.ask_for_code(vesko)
            self.type_into(vesko, "Code", code)
            hands.tap("return")
            vesko.wait_to_find("heading", "You are signed in")
            until("it may be ended", lambda: "focusable" in start.states)
            self.assertNotIn("onboardingCompleted", settings.read())
            vesko.press("push button", "Start using Vesko")
            vesko.wait_to_find("push button", "New note")
            self.assertTrue(settings.read()["onboardingCompleted"])

    def ask_for_code(self, vesko):
        """What the email says that the user asked for."""
        self.type_into(vesko, "Email address", "user@example.com")
        vesko.press("push button", "Send code")
        vesko.wait_to_find("text", "Code")
        return self.service.code("user@example.com")

    def type_into(self, vesko, field, text):
        vesko.wait_to_find("text", field).activate()
        until(f"{field} has the keyboard",
              lambda: "focused" in vesko.find("text", field).states)
        hands.tap("left control", "a")
        subprocess.run(["xdotool", "type", text], check=True)
        until("it is typed", lambda: vesko.find("text", field).text == text)

    def test_a_second_start_calls_the_first_and_ends(self):
        program = self.program()
        with Vesko(program) as vesko:
            vesko.wait_for("ready")
            for arguments in ([], ["--background"], [REDIRECT.format("x", "y")]):
                self.assertEqual(subprocess.run([program, *arguments], timeout=20).returncode, 0)
            vesko.wait_for("ready")

    def test_a_redirect_that_nobody_waits_for_is_refused_and_shown_nowhere(self):
        secrets = "state-of-a-stranger", "code-of-a-stranger"
        program = self.program()
        with Vesko(program) as vesko:
            vesko.wait_for("ready")
            done = subprocess.run([program, REDIRECT.format(*secrets)], timeout=20,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
            until("it was refused", lambda: "redirect_refused" in vesko.log())
            for secret in secrets:
                self.assertNotIn(secret, done.stdout + vesko.log())
            vesko.quit()
        self.assertEqual(self.service.asked("/google/token"), [])
        self.assertEqual(files_with(*secrets), [])


if __name__ == "__main__":
    cases.main()
