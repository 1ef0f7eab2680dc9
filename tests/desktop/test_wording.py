#!/usr/bin/python3
"""What a user reads, in the language of the desktop: all of it, wherever it stands."""

import json
import os
import re
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from lib import cases, eyes, settings  # noqa: E402
from lib.vesko import REPOSITORY, Vesko  # noqa: E402
from lib.waiting import until  # noqa: E402

STATUS_HOST = os.path.join(REPOSITORY, "tests/linux/desktop/status_host")
# Names, which are the same in every language, and what has no words.
NAMES = re.compile(r"Vesko|OpenRouter|PocketSphinx|Apple|Google|Markdown|Super\+Shift\+|"
                   r"[a-z.\d-]+, [\d.,]+ [MG]iB|(Ctrl|F\d+)\+?\S*|[\W\d]*")


class Wording(unittest.TestCase):
    def start(self, **environment):
        vesko = Vesko(**environment)
        self.addCleanup(vesko.kill)
        return vesko

    def settle(self, **more):
        settings.write(provider="apple", firstLaunchDone=True, onboardingCompleted=True, **more)

    def reads_russian(self, vesko):
        """Every text of every window that can be seen."""
        texts = []
        for node in (node for window in vesko.app.children for node in window.walk()):
            try:
                texts += [node.name, node.description] if "showing" in node.states else []
            except eyes.Gone:
                continue
        self.assertGreater(len(texts), 10)
        for text in texts:
            if not NAMES.fullmatch(text):
                self.assertRegex(text, "[А-Яа-яЁё]")
        return texts

    def test_the_windows_speak_russian(self):
        self.settle()
        vesko = self.start(arguments=(), LANG="ru_RU.UTF-8")
        self.assertEqual(vesko.button.name, "Начать диктовку")
        self.assertEqual(vesko.button.description.partition("\n")[0], "Готово")
        vesko.wait_to_find("push button", "Новая заметка")
        self.reads_russian(vesko)
        vesko.press("list item", "Словарь")
        vesko.wait_to_find("push button", "Добавить термин")
        self.reads_russian(vesko)
        vesko.press("list item", "Настройки")
        vesko.wait_to_find(None, "Распознавание речи")
        self.reads_russian(vesko)

    def test_the_first_run_speaks_russian(self):
        settings.write(provider="apple", firstLaunchDone=True)
        vesko = self.start(LANG="ru_RU.UTF-8")
        for button in ("Начать", "Продолжить"):
            vesko.wait_to_find("push button", button)
            self.reads_russian(vesko)
            vesko.press("push button", button)
        vesko.wait_to_find("push button", "Начать работу с Vesko")
        self.reads_russian(vesko)

    def test_the_status_icon_speaks_russian(self):
        host = subprocess.Popen([STATUS_HOST, "host"], stdin=subprocess.PIPE,
                                stdout=subprocess.PIPE, text=True)
        self.addCleanup(host.communicate)
        self.assertEqual(host.stdout.readline(), "ready\n")

        def shown():
            host.stdin.write("read\n")
            host.stdin.flush()
            return json.loads(host.stdout.readline())

        self.settle()
        self.start(LANG="ru_RU.UTF-8")
        until("there is an icon", lambda: shown()["items"] == 1)
        until("it is ready", lambda: shown()["toolTip"] == "Vesko: Готово")
        self.assertEqual([line for line in shown()["menu"] if line != "-"],
                         ["Начать диктовку", "Открыть Vesko", "Настройки…", "Выйти из Vesko"])

    def test_the_language_is_the_first_of_the_users_that_there_is(self):
        self.settle()
        russian, english = "Начать диктовку", "Start dictation"
        for environment, expected in (
                ({"LANG": "ru_UA.UTF-8"}, russian),
                ({"LANG": "en_US.UTF-8", "LC_MESSAGES": "ru_RU.UTF-8"}, russian),
                ({"LANG": "it_IT.UTF-8", "LANGUAGE": "it:ru:en"}, russian),
                ({"LANG": "ru_RU.UTF-8", "LANGUAGE": "en:ru"}, english),
                ({"LANG": "ru_RU.UTF-8", "LC_ALL": "C.UTF-8"}, english),
                ({"LANG": "de_DE.UTF-8"}, "Diktat beginnen"),
                ({"LANG": "it_IT.UTF-8"}, english)):
            with self.subTest(**environment), Vesko(**environment) as vesko:
                self.assertEqual(vesko.button.name, expected)


if __name__ == "__main__":
    cases.main()
