"""What a desktop has besides windows: a place for status icons, and the user's wishes for the look
of programs."""

import json
import os
import subprocess

from .waiting import until

FOLDER = os.path.dirname(os.path.abspath(__file__))
STATUS_HOST = os.path.join(FOLDER, "../../linux/desktop/status_host")
PORTAL = os.path.join(FOLDER, "../services/portal.py")


class _Conversation:
    """A program on the session's bus that is told what to do line by line."""

    def __init__(self, *command):
        self._process = subprocess.Popen(["/usr/bin/python3", *command], text=True,
                                         stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self._process.stdout.readline()

    def _say(self, line):
        self._process.stdin.write(line + "\n")
        self._process.stdin.flush()
        return json.loads(self._process.stdout.readline())

    def stop(self):
        self._process.kill()
        self._process.communicate()


class Tray(_Conversation):
    """The place for status icons; there has to be one before a program starts."""

    def __init__(self):
        super().__init__(STATUS_HOST, "host")

    def click(self, item):
        """Clicks an item of the latest icon's menu."""
        until("there is an icon", lambda: self._say("read")["items"])
        self._say("click " + item)


class Portal(_Conversation):
    """The desktop's settings, as programs ask for them."""

    def __init__(self, animations=True):
        super().__init__(PORTAL, "animations" if animations else "stillness")

    def allow_animations(self, allowed):
        """The user changes the setting while programs run."""
        self._say("animations" if allowed else "stillness")
