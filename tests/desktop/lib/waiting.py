"""Waiting for something to become true, never for time to pass."""

import time


class Late(AssertionError):
    """What was waited for did not come."""


def until(what, holds, deadline=15.0, every=0.02):
    """The first true value of holds(). Fails in words once the deadline (seconds) has passed."""
    end = time.monotonic() + deadline
    while True:
        result = holds()
        if result:
            return result
        if time.monotonic() > end:
            raise Late(f"waited {deadline:g} s in vain: {what}")
        time.sleep(every)


def human_pause(seconds):
    """A pause of the fingers that is itself part of what is tested."""
    time.sleep(seconds)
