"""Waiting for a condition instead of for a time."""

import time

from gi.repository import GLib

SECONDS = 30
PAUSE = 0.05


def holds(condition):
    """What a condition gives, or None: a window can go away while it is being read."""
    try:
        return condition()
    except GLib.Error:
        return None


def wait_for(what, condition, otherwise=None):
    """Asks until the condition gives something true, and gives that back.

    what: the condition in words, for the failure
    otherwise: gives a text that says how things are instead, for the failure
    Raises AssertionError when the deadline passes.
    """
    deadline = time.monotonic() + SECONDS
    while True:
        found = holds(condition)
        if found:
            return found
        if time.monotonic() > deadline:
            instead = holds(otherwise) if otherwise else None
            raise AssertionError(f"waited in vain for {what}\n{instead or ''}")
        time.sleep(PAUSE)
