# SPDX-License-Identifier: MIT
"""Waiting for events of other processes: looked for again and again, up to a deadline."""

import time

PAUSE = 0.01  # seconds between two looks


class Late(AssertionError):
    """An awaited event did not come in time."""


def wait_until(look, what, seconds=10.0, interval=PAUSE):
    """Returns the first true value of look(); raises Late when none comes in time."""
    deadline = time.monotonic() + seconds
    while True:
        value = look()
        if value:
            return value
        if time.monotonic() > deadline:
            raise Late(f"not within {seconds} s: {what() if callable(what) else what}")
        time.sleep(interval)
