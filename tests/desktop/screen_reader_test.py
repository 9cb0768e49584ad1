"""Whether a screen reader can say of every control of every window what it is, and what for."""

import collections
import os
import unittest

from dialogs import ALL_SESSIONS, Control, WINDOWS, flat
from host_test_case import HOST, SESSION, HostTestCase
from screen_reader import LISTS

LISTINGS = os.environ["LISTINGS"]

# What has to have a name. Whatever else can take the focus has to have one as well.
TOLD = ("text", "check box", "radio button", "push button", "combo box", "page tab", "label",
        "menu item", "list item", "table column header", *LISTS)
# Of these, what the tables of windows name.
LISTED = ("text", "check box", "radio button", "push button", "combo box", "page tab", "label",
          "list")


def role_of(node):
    """The role; lists of any form are lists."""
    return "list" if node.role in LISTS else node.role


def unnamed(window):
    """What a screen reader would have to leave unsaid, a line each."""
    def lacks_name(node):
        # A tab widget passes the focus on to its tabs, which stand in it.
        if any(each.role == "page tab list" for each in node.children):
            return False
        # A cell may well be empty.
        told = node.role in TOLD or ("focusable" in node.states and node.role != "table cell")
        return told and not node.name
    return [f"{node.role} without a name in {around(node)}" for node in window.walk(rows=True)
            if lacks_name(node)]


def around(node):
    """What an object stands in and beside, for a message."""
    beside = [each.name for each in node.parent.children if each.name] if node.parent else []
    return f'frame "{node.group}" beside {beside}'


def spoken(window):
    """The controls of a window."""
    return [node for node in window.walk() if role_of(node) in LISTED]


def key_of(role, name, group):
    """How a control is told from others."""
    return f'{role} "{name}"' + (f' in "{group}"' if group else "")


def faults_of(node, control: Control):
    """What is wrong with a control that is there, a line each."""
    passive = control.role == "label"
    facts = [
        (control.label and control.label not in node.labels,
         f'is labelled by {node.labels} instead of "{control.label}"'),
        (not passive and ("enabled" in node.states) != control.enabled,
         "is " + ("disabled" if control.enabled else "enabled")),
        (not passive and "focusable" not in node.states, "cannot take the focus"),
        (("checked" in node.states) != control.checked,
         "is " + ("not checked" if control.checked else "checked")),
        (control.rows is not None and tuple(node.rows()) != control.rows,
         f"has the rows {node.rows()}")]
    return [f"{key_of(control.role, control.name, control.group)} {what}"
            for wrong, what in facts if wrong]


def differences(window, wanted):
    """In what a window is not as its table says, a line each."""
    found = collections.defaultdict(list)
    for node in spoken(window):
        found[key_of(role_of(node), node.name, node.group)].append(node)
    lines = []
    for control in flat(wanted.controls):
        there = found[key_of(control.role, control.name, control.group)]
        if there:
            lines += faults_of(there.pop(0), control)
        else:
            lines.append(f"{key_of(control.role, control.name, control.group)} is missing")
    if wanted.whole:
        lines += [f"{key} is there besides" for key, nodes in found.items() for _ in nodes]
    return lines


class ScreenReaderTest(HostTestCase):
    """Walks to one window after the other, and compares each with its table."""

    def setUp(self):
        super().setUp()
        self.listing = []

    def look_at(self, wanted):
        """Walks from the host's window to another one, and reads it."""
        for title, act in wanted.way:
            act(self, title)
        self.wait_for_focus(wanted.title, wanted.focus)
        return self.window(wanted.title)

    def go_back(self):
        """Leaves whatever is open by the Escape key, down to the host's window."""
        while (title := self.wait_for("a window", self.reader.active_title)) != HOST:
            self.person.press("Escape")
            self.wait_for(f'"{title}" to go',
                          lambda title=title: self.reader.active_title() not in (None, title))

    def write_listing(self):
        """Puts all that was read into a file, for people to look at."""
        os.makedirs(LISTINGS, exist_ok=True)
        path = os.path.join(LISTINGS, "screen-reader.txt")
        with open(path, "w", encoding="utf-8") as file:
            file.write("\n\n".join(self.listing) + "\n")
        print(f"What a screen reader finds: {path}")

    def test_finds_every_control_by_name_and_role(self):
        before = self.store.files()
        self.addCleanup(self.write_listing)
        for name, wanted in WINDOWS.items():
            with self.subTest(name):
                window = self.look_at(wanted)
                self.listing.append(f"---- {name}\n{window.listing()}")
                self.assertEqual(window.role, wanted.role)
                faults = unnamed(window) + differences(window, wanted)
                self.assertFalse(faults, "\n" + "\n".join(faults))
            self.go_back()
        self.quit_host()
        # Nobody confirmed anything; the list of sessions is kept even so.
        kept = {"session-list.txt": [",".join(ALL_SESSIONS).encode()]}
        self.assertEqual(self.store.files(), before | kept)

    def test_fills_a_dialog_by_actions_alone(self):
        self.person.press("ctrl+Return")
        self.wait_for_focus(SESSION, "Display Name")
        name = self.control(SESSION, "Display Name").text
        before = self.store.session(name)
        program = self.store.path("programs", "workshop-counter")
        self.assertNotEqual(before["ProgramPath"], program)

        self.control(SESSION, "Program Path").set_text(program)
        self.control(SESSION, "Program Path", when=lambda box: box.text == program)
        self.control(SESSION, "Command Line Options").set_text("/quiet")
        self.control(SESSION, "Command Line Options").insert_text(0, "--job 7 ")
        self.control(SESSION, "Reverse List Order").act("Toggle")
        was_on = before["ReverseList"] == "true"
        self.control(SESSION, "Reverse List Order",
                     when=lambda box: ("checked" in box.states) != was_on)
        self.control(SESSION, "Left").act("Press")
        self.control(SESSION, "Left", when=lambda option: "checked" in option.states)
        # A box that is left by an action hears of it, as it does when a key or the mouse leaves it.
        self.control(SESSION, "Display Name").set_text(" said aloud ")
        self.control(SESSION, "OK").act("Press")

        self.window(HOST)
        rows = self.store.session("SAID ALOUD")
        expected = {"ProgramPath": program, "CommandLineArgs": "--job 7 /quiet",
                    "ReverseList": "false" if was_on else "true", "Orientation": "left"}
        self.assertEqual({key: rows.get(key) for key in expected}, expected)
        self.quit_host()

    def test_is_told_what_a_field_is_for(self):
        self.person.press("ctrl+Return")
        self.wait_for_focus(SESSION, "Display Name")
        self.control(SESSION, "Display Name",
                     when=lambda box: box.description.startswith("Name of the session, "))
        self.person.press("alt+p")
        self.wait_for_focus(SESSION, "Program Path")
        self.control(SESSION, "Program Path", when=lambda box: "full path" in box.description)
        self.person.press("F1")
        title = f"{SESSION} – Help"
        self.wait_for_focus(title, title)
        self.control(title, title, when=lambda page: "Program Path" in page.text)
        self.person.press("Escape")
        self.wait_for_focus(SESSION, "Program Path")
        self.person.press("Escape")
        self.window(HOST)
        self.quit_host()


if __name__ == "__main__":
    unittest.main(verbosity=2)
