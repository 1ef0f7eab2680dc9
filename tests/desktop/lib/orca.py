"""Orca, the screen reader, and what it says: written down in the place of being spoken."""

import json
import os
import subprocess
import tempfile

from . import hands
from .waiting import Late, until

# What Orca runs as its user's own. It needs no voice, says what the keys do and not which they are,
# and leaves the Orcas of other sessions alone.
CUSTOMISED = """
import json, logging, sys
from orca import settings

settings.speechServerFactory = None
settings.enableKeyEcho = False
settings.enablePositionSpeaking = True
sys.modules["__main__"].otherOrcas = lambda: []

class Spoken(logging.Handler):
    def emit(self, record):
        with open({path!r}, "a") as file:
            file.write(json.dumps(record.getMessage()) + "\\n")

logging.getLogger("speech").addHandler(Spoken())
"""


class Orca:
    def __init__(self):
        folder = tempfile.mkdtemp(prefix="orca-")
        self._path = os.path.join(folder, "spoken")
        self._heard = 0
        with open(os.path.join(folder, "orca-customizations.py"), "w") as file:
            file.write(CUSTOMISED.format(path=self._path))
        log = os.path.join(os.environ["SESSION_DIR"], "log", "orca")
        with open(log, "wb") as output:
            self._process = subprocess.Popen(["orca", "-u", folder, "--disable", "braille"],
                                             stdout=output, stderr=output)
        try:
            until("Orca speaks", lambda: "Screen reader on." in self._said(), deadline=40)
        except Late:
            with open(log) as output:
                raise AssertionError("Orca did not start: " + output.read()[-2000:]) from None

    def _said(self):
        try:
            with open(self._path) as file:
                lines = file.read().split("\n")[:-1]
        except FileNotFoundError:
            return []
        # "SPEECH OUTPUT: 'words' voice=name"
        return [json.loads(line).partition("'")[2].rpartition("'")[0].strip() for line in lines]

    def since(self):
        """What it has said that was not listened to yet."""
        return self._said()[self._heard:]

    def forget(self):
        """What it has said until now is no longer asked for."""
        self._heard = len(self._said())

    def says(self, *wanted, after=None):
        """Waits until it has said these, in this order, whatever it said between them; returns all
        that it said up to the last of them, and listens to what follows."""
        said = []

        def heard():
            said[:] = self.since()
            place = 0
            for one in wanted:
                if one not in said[place:]:
                    return 0
                place = said.index(one, place) + 1
            return place

        try:
            count = until("", heard)
        except Late:
            raise AssertionError(f"Orca was to say {wanted} after {after}, but said {said}") \
                from None
        self._heard += count
        return said[:count]

    def hears(self, keys, *wanted):
        """Taps the keys; what it says then."""
        hands.tap(*keys)
        return self.says(*wanted, after=keys)

    def kill(self):
        self._process.kill()
        self._process.wait()
