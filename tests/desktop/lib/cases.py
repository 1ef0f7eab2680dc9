"""Runs a file of desktop tests and says each result in one line."""

import os
import subprocess
import sys
import time
import traceback
import unittest

from . import eyes, hands

FOLDER = os.path.abspath(os.path.join(os.path.dirname(__file__), ".."))
PICTURES = os.path.abspath(os.path.join(FOLDER, "../../build/pictures"))


def add_to_report(passed, failed):
    path = os.environ.get("REPORT")
    if path:
        with open(path, "a") as file:
            file.write(f"{passed} {failed}\n")


def picture(name):
    os.makedirs(PICTURES, exist_ok=True)
    path = os.path.join(PICTURES, name.replace(" ", "-") + ".png")
    eyes.screenshot(path)
    return path


class _Lines(unittest.TestResult):
    began = time.monotonic()

    def startTest(self, test):
        super().startTest(test)
        self.began = time.monotonic()

    def _line(self, mark, test):
        name = test.shortDescription() or test.id().rpartition("test_")[2].replace("_", " ")
        print(f"{mark:6} {name} ({time.monotonic() - self.began:.1f} s)", flush=True)
        return name

    def addSuccess(self, test):
        super().addSuccess(test)
        self._line("ok", test)

    def _bad(self, test, error):
        name = self._line("FAILED", test)
        _, reason, trace = error
        places = [f"{os.path.basename(frame.filename)}:{frame.lineno}"
                  for frame in traceback.extract_tb(trace) if frame.filename.startswith(FOLDER)]
        print(f"       {type(reason).__name__}: {reason}\n       at {', '.join(places)}", flush=True)
        try:
            print(f"       picture: {picture(name)}", flush=True)
        except (OSError, subprocess.SubprocessError) as problem:
            print(f"       no picture: {problem}", flush=True)
        # A key left down by a failed case would spoil every case after it.
        hands.release_all()

    def addFailure(self, test, error):
        super().addFailure(test, error)
        self._bad(test, error)

    def addError(self, test, error):
        super().addError(test, error)
        self._bad(test, error)

    def addSubTest(self, test, subtest, error):
        super().addSubTest(test, subtest, error)
        if error:
            print(f"       {subtest}", flush=True)
            self._bad(test, error)


def main(module="__main__"):
    names = sys.argv[1:]
    suite = unittest.TestSuite(
        test for group in unittest.defaultTestLoader.loadTestsFromModule(sys.modules[module])
        for test in group if not names or any(name in test.id() for name in names))
    result = _Lines()
    suite.run(result)
    bad = len(result.failures) + len(result.errors)
    if result.testsRun == 0 and bad == 0:
        print("no such case")
        bad = 1
    add_to_report(max(result.testsRun - bad, 0), bad)
    sys.exit(bad != 0)
