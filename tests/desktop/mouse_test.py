"""A session changed with the mouse, up to the close button of the window's frame."""

import unittest

from host_test_case import ADVANCED, HOST, SESSION, HostTestCase

NAME = "WORKSHOP COUNTER"


class Mouse(HostTestCase):
    """A person who types only what has to be typed."""

    def open_session(self):
        """Opens a session by the host's list and menu."""
        self.click_session(NAME)
        self.choose_from_menu("Store", "Configure session…")
        self.control(SESSION, "Display Name", when=lambda box: box.text == NAME)

    def change(self, title, name, text):
        """Replaces what a box holds."""
        self.click(title, name, times=3)
        self.enter(title, name, text)

    def change_advanced(self):
        """Changes each kind of control in the advanced dialog."""
        self.click(SESSION, "Advanced")
        self.click(ADVANCED, "Matches", group="Window Title")
        self.control(ADVANCED, "Matches", "Window Title", lambda node: "checked" in node.states)
        # Options that exclude each other follow.
        self.control(ADVANCED, "Starts with", "Window Title",
                     lambda node: "checked" not in node.states)
        self.change(ADVANCED, "Window Title/Class Delay", "7.5")
        self.click(ADVANCED, "Disable Program Launch")
        self.control(ADVANCED, "Program Launch Delay", when=lambda box: box.text == "0"
                     and "enabled" not in box.states)
        self.click(ADVANCED, "OK")

    def test_takes_part_formats_from_one_list_to_the_other(self):
        available, selected = "Available Part Formats", "Selected Part Formats"
        self.open_session()
        self.click(SESSION, "Part Number Format")
        before = self.list(SESSION, selected).rows()
        self.drag_row(SESSION, available, "SHELF LABEL", onto=selected)
        self.list(SESSION, selected, lambda node: node.rows() == [*before, "SHELF LABEL"])
        self.drag_row(SESSION, selected, before[0], onto=available)
        self.list(SESSION, selected, lambda node: node.rows() == [*before[1:], "SHELF LABEL"])
        self.person.press("Escape")
        self.quit_host()

    def test_changes_a_session_and_closes_it_by_its_frame(self):
        before = self.store.sessions()
        self.open_session()
        self.change_advanced()
        # The launch is off now, and the boxes for it with it.
        self.control(SESSION, "Program Path", when=lambda box: "enabled" not in box.states)
        self.click(SESSION, "Left")
        self.control(SESSION, "Left", when=lambda node: "checked" in node.states)
        self.click(SESSION, "Apply")
        self.wait_for("the session on disk",
                      lambda: self.store.session(NAME)["Orientation"] == "left")
        self.close_by_frame(SESSION)
        self.quit_host()

        expected = dict(before)
        expected[NAME] = before[NAME] | {
            "Orientation": "left", "WindowTitleSearchType": "matches",
            "WindowTitleClassDelay": "7.5", "DisableProgramLaunch": "true",
            "ProgramLaunchDelay": "0"}
        self.assertEqual(self.store.sessions(), expected)

    def test_closes_a_changed_session_by_its_frame_without_keeping_the_change(self):
        before = self.store.files()
        self.open_session()
        self.click(SESSION, "Left")
        self.control(SESSION, "Left", when=lambda node: "checked" in node.states)
        self.close_by_frame(SESSION)
        self.quit_host()
        self.assertEqual(self.store.files(), before)


if __name__ == "__main__":
    unittest.main(verbosity=2)
