"""Sessions made, deleted, brought back and sent through, and mistakes made on the way, by the
keyboard alone.
"""

import os
import unittest

from host_test_case import (
    ADD_SESSION, DELETED, DELETED_ITEMS, HOST, MAINTENANCE, QUESTION, SAMPLE_HOST, SENDING, SESSION,
    SESSIONS, STORE_SESSIONS, HostTestCase)
from store import formats_of


class Keyboard(HostTestCase):
    """A person who never touches the mouse."""

    def add_session(self, name):
        """Goes to the session dialog of a new session."""
        self.person.press("ctrl+n")
        self.enter(ADD_SESSION, "Add a new session named", name)
        self.person.press("Return")
        self.window(SESSION)

    def fill_launch_tab(self, program):
        """Fills the first tab from its first box on."""
        self.wait_for_focus(SESSION, "Display Name")
        self.tab_to(SESSION, "Program Path")
        self.enter(SESSION, "Program Path", program)
        self.tab_to(SESSION, "Command Line Options")
        self.enter(SESSION, "Command Line Options", "--job 7 /quiet")
        self.tab_to(SESSION, "Top")
        self.person.press("Down")
        self.wait_for_focus(SESSION, "Bottom")
        self.tab_to(SESSION, "Reverse List Order")
        self.person.press("space")
        self.control(SESSION, "Reverse List Order", when=lambda box: "checked" not in box.states)

    def go_down_to(self, title, name, row):
        """Goes down in the list that has the keyboard to a row."""
        while (before := self.list(title, name).selected()) != [row]:
            self.assertNotEqual(before, self.list(title, name).rows()[-1:], f"no row {row}")
            self.person.press("Down")
            self.list(title, name, lambda node, before=before: node.selected() != before)

    def go_to_page(self, *pages):
        """Goes from page to page of the host's window, each right of the one before it."""
        self.tab_to(HOST, pages[0])
        for page in pages[1:]:
            self.person.press("Right")
            self.wait_for_focus(HOST, page)

    def test_adds_and_fills_a_session(self):
        self.add_session("road test")
        self.fill_launch_tab(self.store.path("programs", "workshop-counter"))
        self.person.press("ctrl+Tab")
        self.wait_for_focus(SESSION, "New")
        self.tab_to(SESSION, "Available Part Formats", key="shift+Tab")
        self.go_down_to(SESSION, "Available Part Formats", "ORDER FORM")
        self.tab_to(SESSION, "Available Part Formats → Selected Part Formats")
        self.person.press("space")
        self.list(SESSION, "Selected Part Formats", lambda node: node.rows() == ["ORDER FORM"])
        self.tab_to(SESSION, "Selected Part Formats")
        self.person.press("Return")

        self.window(HOST)
        rows = self.store.session("ROAD TEST")
        self.assertEqual(formats_of(rows), ["ORDER FORM"])
        expected = {
            "ProgramPath": self.store.path("programs", "workshop-counter"),
            "CommandLineArgs": "--job 7 /quiet", "ReverseList": "false", "AutoResize": "true",
            "Orientation": "bottom", "DisableProgramLaunch": "false"}
        self.assertEqual({key: rows.get(key) for key in expected}, expected)
        self.go_to_page(SENDING, SESSIONS)
        self.list(HOST, STORE_SESSIONS, lambda node: node.selected() == ["ROAD TEST"])
        self.quit_host()

    def test_goes_round_the_session_by_the_tab_key(self):
        self.person.press("ctrl+Return")
        self.wait_for_focus(SESSION, "Display Name")
        self.tab_to(SESSION, "Apply")
        self.tab_to(SESSION, "3rd Party Application Launch")
        self.person.press("Right")
        self.wait_for_focus(SESSION, "New")
        self.tab_to(SESSION, "Apply")
        self.tab_to(SESSION, "Part Number Format")
        self.person.press("Escape")
        self.quit_host()

    def refuse(self, title, box):
        """Confirms what the box holds, and closes the message that comes up; gives its title
        and its text.
        """
        self.wait_for_focus(title, box)
        self.person.press("Return")
        message = self.message()
        self.wait_for_focus(message.name, "OK")
        told = " ".join(message.told())
        self.person.press("Return")
        self.wait_for_focus(title, box)
        return message.name, told

    def test_goes_back_to_the_box_of_a_new_name_that_is_refused(self):
        before = self.store.files()
        self.person.press("ctrl+n")
        self.assertEqual(self.refuse(ADD_SESSION, "Add a new session named"),
                         ("Invalid Name", "Enter a name for the new session."))

        self.enter(ADD_SESSION, "Add a new session named", "A/B")
        title, told = self.refuse(ADD_SESSION, "Add a new session named")
        self.assertEqual(title, "Invalid Name")
        self.assertIn('\\ / : * ? " < > | .', told)
        # The box still holds the name, for the person to mend.
        self.control(ADD_SESSION, "Add a new session named", when=lambda box: box.text == "A/B")

        self.person.press("Escape")
        self.quit_host()
        self.assertEqual(self.store.files(), before)

    def test_goes_back_to_the_box_of_a_name_that_a_session_cannot_take(self):
        before = self.store.files()
        self.person.press("ctrl+Return")
        self.enter(SESSION, "Display Name", "1E3")
        self.assertEqual(self.refuse(SESSION, "Display Name")[0], "Invalid Name")
        self.person.press("ctrl+a", "Delete")
        self.control(SESSION, "Display Name", when=lambda box: box.text == "")
        self.assertEqual(self.refuse(SESSION, "Display Name"),
                         ("Display Name", "Enter a display name for the session."))

        self.person.press("Escape")
        self.quit_host()
        self.assertEqual(self.store.files(), before)

    def delete_in_maintenance(self, typed, name):
        """Deletes a session in the maintenance dialog, found there by its first letters."""
        self.person.press("alt+s")
        self.wait_for("the menu", lambda: self.in_menu("Store", "Maintain sessions…"))
        self.person.press("m")
        self.wait_for_focus(MAINTENANCE, "Select a session")
        self.person.type(typed)
        self.list(MAINTENANCE, "Select a session", lambda node: node.selected() == [name])
        self.person.press("Delete")
        self.wait_for_focus(QUESTION, "Yes")
        self.person.press("Return")
        self.list(MAINTENANCE, "Select a session", lambda node: name not in node.rows())
        self.person.press("Escape")

    def test_deletes_a_session_and_brings_it_back(self):
        before = self.store.files()
        self.delete_in_maintenance("lab", "LABEL PRINTING")
        self.window(HOST)
        deleted = dict(before)
        deleted["MORAM/deleted/LABEL PRINTING.vla"] = deleted.pop("MORAM/LABEL PRINTING.vla")
        self.assertEqual(self.store.files(), deleted)

        self.go_to_page(SENDING, SESSIONS, DELETED)
        self.list(HOST, DELETED_ITEMS, lambda node: node.rows() == ["LABEL PRINTING", "Session"])
        self.tab_to(HOST, "Restore")
        self.person.press("space")
        self.list(HOST, DELETED_ITEMS, lambda node: node.rows() == [])
        # On the page, and in the status bar.
        self.assertEqual(
            self.window(HOST).told().count("Session LABEL PRINTING is back."), 2)
        self.assertEqual(self.store.files(), before)
        self.quit_host()

    def find_part(self, number):
        """Finds a part of the catalogue, and goes to its row."""
        self.person.press("ctrl+f")
        self.enter(HOST, "Search:", number)
        self.person.press("Return")
        self.wait_for_focus(HOST, "Parts catalogue")
        self.list(HOST, "Parts catalogue", lambda node: node.rows()[:1] == [number])

    def expect_parts_list(self, *parts):
        """Waits until the parts list holds these numbers and quantities."""
        def holds_them(node):
            cells = node.rows()
            return list(zip(cells[::5], cells[4::5])) == list(parts)
        self.list(HOST, "Parts list", holds_them)

    def test_hears_of_a_failed_sending_wherever_it_was_called(self):
        self.go_to_page(SENDING, SESSIONS, DELETED)
        # The box that has the keyboard has a use of its own for this key.
        self.person.press("ctrl+f")
        self.wait_for_focus(HOST, "Search:")
        self.person.press("ctrl+e")
        self.control(HOST, "What came of it", when=lambda box: "Nothing was sent." in box.text)
        self.assertIn("Failure: Nothing was sent. The parts list is empty.",
                      self.window(HOST).told())
        self.quit_host()

    def test_takes_changes_of_the_list_back(self):
        self.find_part("10-0183")
        self.person.press("space")
        self.expect_parts_list(("10-0183", "1"))
        self.person.press("ctrl+z")
        self.expect_parts_list()
        self.person.press("ctrl+shift+z")
        self.expect_parts_list(("10-0183", "1"))
        self.person.press("ctrl+z")
        self.expect_parts_list()
        self.quit_host()

    def test_finds_the_list_at_the_next_start(self):
        self.find_part("10-0183")
        self.person.press("space")
        self.expect_parts_list(("10-0183", "1"))
        self.quit_host()
        self.assertTrue(os.path.exists(self.settings))

        self.start(SAMPLE_HOST, "--store", self.store.folder)
        self.expect_parts_list(("10-0183", "1"))
        self.find_part("10-0183")
        self.person.press("space")
        self.expect_parts_list()
        self.quit_host()

    def test_sends_a_list_of_parts_into_a_file(self):
        before = self.store.files()
        self.find_part("10-0183")
        self.person.press("space")
        self.expect_parts_list(("10-0183", "1"))
        self.find_part("10-0120")
        self.person.press("End", "2", "Return")
        self.expect_parts_list(("10-0120", "2"), ("10-0183", "1"))

        self.tab_to(HOST, "Session:")
        self.person.type("web")
        self.control(HOST, "Session:", when=lambda node: node.name == "WEB SHOP EXPORT")
        self.tab_to(HOST, "Send list")
        self.person.press("space")
        self.control(HOST, "What came of it", when=lambda box: "web-shop.csv" in box.text)
        self.assertEqual(self.store.files(), before | {"lists/web-shop.csv": [
            b"Part number,Quantity,Description\r\n", b'10-0120,2,"Oil filter"\r\n',
            b'10-0183,1,"Air filter element"\r\n']})
        self.quit_host()


if __name__ == "__main__":
    unittest.main(verbosity=2)
