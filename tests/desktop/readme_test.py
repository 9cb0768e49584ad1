"""The host that the README shows: a newcomer starts it in an empty folder."""

import os
import tempfile
import unittest

from host_test_case import ADD_SESSION, FORMAT_EDITOR, SESSION, HostTestCase
from store import Store, formats_of

README_HOST = os.environ["README_HOST"]


class Readme(HostTestCase):
    """A person in front of the ten lines."""

    def start_host(self):
        """Starts it where nothing is yet."""
        folder = tempfile.mkdtemp(dir=self.desktop.folder)
        self.store = Store(os.path.join(folder, "parts"))
        self.start("env", "--chdir", folder, README_HOST)

    def add_session(self):
        """Goes to the session dialog of a new session."""
        self.enter(ADD_SESSION, "Add a new session named", "first")
        self.person.press("Return")
        self.wait_for_focus(SESSION, "Display Name")

    def test_makes_a_session_in_an_empty_store(self):
        self.add_session()
        self.tab_to(SESSION, "Program Path")
        self.enter(SESSION, "Program Path", README_HOST)
        self.person.press("ctrl+Tab")
        self.wait_for_focus(SESSION, "New")
        self.person.press("space")
        self.enter(FORMAT_EDITOR, "Part Format Name", "plain")
        self.tab_to(FORMAT_EDITOR, "Maximum Records")
        self.enter(FORMAT_EDITOR, "Maximum Records", "10")
        self.person.press("Return")
        self.click_row(SESSION, "Available Part Formats", "PLAIN")
        self.click(SESSION, "Available Part Formats → Selected Part Formats")
        self.list(SESSION, "Selected Part Formats", lambda node: node.rows() == ["PLAIN"])
        self.click(SESSION, "OK")

        self.wait_for_end(0)
        rows = self.store.session("FIRST")
        self.assertEqual(rows["ProgramPath"], README_HOST)
        self.assertEqual(formats_of(rows), ["PLAIN"])
        self.assertEqual(self.store.part_format("PLAIN")["MaxRecords"], "10")

    def test_takes_a_session_back_that_is_cancelled(self):
        self.add_session()
        self.person.press("Escape")
        self.wait_for_end(1)
        self.assertEqual(self.store.sessions(), {})


if __name__ == "__main__":
    unittest.main(verbosity=2)
