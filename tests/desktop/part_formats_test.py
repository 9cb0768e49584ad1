"""Part formats renamed and deleted, and how the sessions on disk follow."""

import unittest

from host_test_case import QUESTION, RENAME, SESSION, HostTestCase
from store import formats_of

AVAILABLE = "Available Part Formats"


def with_formats(rows, formats):
    """The rows of a session with these part formats instead of its own."""
    others = {key: data for key, data in rows.items()
              if not key.startswith("FORMAT") and key != "FormatCount"}
    named = {f"FORMAT{number}": name for number, name in enumerate(formats, start=1)}
    return others | named | {"FormatCount": str(len(formats))}


class PartFormats(HostTestCase):
    """A person on the part format tab of a session."""

    def setUp(self):
        super().setUp()
        self.click_session("LABEL PRINTING")
        self.person.press("ctrl+Return")
        self.click(SESSION, "Part Number Format")
        self.sessions = self.store.sessions()
        self.files = self.store.files()

    def select(self, name):
        """Selects a part format among those available."""
        self.click_row(SESSION, AVAILABLE, name)

    def expect(self, condition):
        """Waits until this holds of the list of those available."""
        self.list(SESSION, AVAILABLE, condition)

    def leave(self):
        """Closes the session without confirming it, and the host."""
        self.click(SESSION, "Cancel")
        self.quit_host()

    def expect_sessions(self, change):
        """Expects of each session on disk what a change of its part formats makes of it."""
        expected = {name: with_formats(rows, change(formats_of(rows)))
                    for name, rows in self.sessions.items()}
        self.assertNotEqual(expected, self.sessions)
        self.assertEqual(self.store.sessions(), expected)

    def test_renames_a_part_format_in_all_sessions(self):
        formats = self.store.formats()
        rows = self.store.part_format("FIXED WIDTH")
        self.select("FIXED WIDTH")
        self.click(SESSION, "Rename")
        self.enter(RENAME, "New Name", "wide columns")
        self.person.press("Return")
        self.expect(lambda node: node.selected() == ["WIDE COLUMNS"])
        self.wait_for_focus(SESSION, AVAILABLE)
        self.leave()

        formats[formats.index("FIXED WIDTH")] = "WIDE COLUMNS"
        self.assertEqual(self.store.formats(), sorted(formats))
        self.assertEqual(self.store.part_format("WIDE COLUMNS"), rows)
        self.expect_sessions(lambda names: [
            "WIDE COLUMNS" if name == "FIXED WIDTH" else name for name in names])

    def test_leaves_all_as_it_is_when_the_prompt_is_left_by_escape(self):
        self.select("FIXED WIDTH")
        self.click(SESSION, "Rename")
        self.enter(RENAME, "New Name", "WIDE COLUMNS")
        self.person.press("Escape")
        self.expect(lambda node: node.selected() == ["FIXED WIDTH"])
        self.leave()
        self.assertEqual(self.store.files(), self.files)

    def test_deletes_a_part_format_only_after_a_yes(self):
        formats = self.store.formats()
        rows = self.store.part_format("QUANTITY FIRST")
        self.select("QUANTITY FIRST")
        self.click(SESSION, "Delete")
        self.click(QUESTION, "No")
        self.window(SESSION)
        self.assertEqual(self.store.files(), self.files)

        self.click(SESSION, "Delete")
        self.click(QUESTION, "Yes")
        self.expect(lambda node: "QUANTITY FIRST" not in node.rows())
        self.leave()

        formats.remove("QUANTITY FIRST")
        self.assertEqual(self.store.formats(), formats)
        self.assertEqual(self.store.deleted_format("QUANTITY FIRST"), rows)
        self.expect_sessions(lambda names: [name for name in names if name != "QUANTITY FIRST"])

    def test_keeps_a_part_format_that_is_the_only_one_of_a_session(self):
        self.select("COMMA SEPARATED")
        self.click(SESSION, "Delete")
        self.click(QUESTION, "Yes")
        self.assertIn("WEB SHOP EXPORT", " ".join(self.message().told()))
        self.person.press("Return")
        self.expect(lambda node: "COMMA SEPARATED" in node.rows())
        self.leave()
        self.assertEqual(self.store.files(), self.files)


if __name__ == "__main__":
    unittest.main(verbosity=2)
