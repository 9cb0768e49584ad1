"""The sample host on a desktop of its own, for tests that see and work it from outside."""

import os
import signal
import tempfile
import unittest

from desktop import Desktop
from person import Person
from screen_reader import ScreenReader
from store import Store
from waiting import wait_for

SAMPLE_HOST = os.environ["SAMPLE_HOST"]
SCHEMA = os.environ["DATASET_SCHEMA"]

# The titles of the windows.
HOST = "Parts Catalogue"
ADD_SESSION = "Add a session"
MAINTENANCE = "Session Maintenance"
MANAGER = "Session Manager"
SESSION = "WYN 3rd Party Application Configuration"
ADVANCED = "Advanced Configuration"
TALLYVANE = "Configure Tallyvane Session"
FORMAT_EDITOR = "Part Number Format"
RENAME = "Rename"
QUESTION = "Are You Sure?"

# Pages of the host's window, and what lies on them.
SENDING = "Send"
SESSIONS = "Sessions"
DELETED = "Deleted items"
DEVELOPERS = "For developers"
STORE_SESSIONS = "Sessions of the store"
DATABASE = "Database"
DELETED_ITEMS = "Deleted sessions and part formats"

# Told to end, a test tidies up as at the terminal's interrupt key.
signal.signal(signal.SIGTERM, signal.default_int_handler)

MOST_STEPS = 40  # of the Tab key to any control of a window


class HostTestCase(unittest.TestCase):
    """Each test has a host that just came up on a sample store of its own."""

    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop()
        cls.addClassCleanup(cls.desktop.close)

    def setUp(self):
        self.start_host()

    def start_host(self):
        """Starts the host on a new store, and waits until its window has the keyboard."""
        folder = tempfile.mkdtemp(dir=self.desktop.folder)
        self.store = Store(os.path.join(folder, "store"))
        # What one test leaves in the window is not to be there in the next one.
        self.settings = self.settings_in(folder)
        # Not in the store, whose files are compared.
        self.start(SAMPLE_HOST, "--store", self.store.folder,
                   "--database", os.path.join(folder, "catalogue.sqlite"))
        self.window(HOST)

    def settings_in(self, folder):
        """Lets hosts that start from now on have their settings in this folder; gives the file."""
        config = os.path.join(folder, "config")
        self.desktop.environment["XDG_CONFIG_HOME"] = config
        return os.path.join(config, "Parts Catalogue", "window.ini")

    def start(self, *command):
        """Starts a host, and sits down in front of it."""
        self.host = self.desktop.start(*command)
        self.addCleanup(self.host.end)
        self.person = Person()
        self.reader = ScreenReader(self.host.process_id)

    def quit_host(self):
        """Leaves the host as a person does: it must end well, and leave a store in good form."""
        self.window(HOST)
        self.person.press("ctrl+q")
        self.wait_for_end(0)

    def wait_for_end(self, exit_code):
        """Waits until the host has ended, which must be by this exit code."""
        wait_for("the host to end", lambda: self.host.exit_code is not None, self.reader.listing)
        self.assertEqual(self.host.exit_code, exit_code, self.host.printed())
        self.store.check(SCHEMA)

    def wait_for(self, what, condition):
        """Waits for a condition; when it fails to come, tells what the windows look like."""
        def asked():
            if self.host.exit_code is not None:
                self.fail(f"the host ended before {what}: {self.host.printed()}")
            return condition()
        return wait_for(what, asked, self.reader.listing)

    def window(self, title):
        """The window of this title, as soon as it has the keyboard."""
        return self.wait_for(f'the window "{title}"', lambda: self.reader.active(title))

    def message(self):
        """The message box that comes up."""
        return self.wait_for("a message box", self.reader.active_message)

    def control(self, title, name, group=None, when=None):
        """The one control of a name in a window, as soon as all is so.

        group: name of the frame around it, where the name alone is not enough
        when: what has to hold of it besides
        """
        return self._one(title, name, lambda window: window.named(name, group), when)

    def list(self, title, name, when=None):
        """The one list of a name in a window, as soon as all is so."""
        return self._one(title, name, lambda window: window.lists(name), when)

    def _one(self, title, name, find, when):
        def found():
            window = self.reader.active(title)
            nodes = find(window) if window else []
            return nodes[0] if len(nodes) == 1 and (not when or when(nodes[0])) else None
        return self.wait_for(f'"{name}" in "{title}" as expected', found)

    def click(self, title, name, group=None, times=1):
        """Clicks on a control of a window."""
        self.person.click(self._at_rest(lambda: self.control(title, name, group)), times)

    def click_row(self, title, name, row):
        """Selects a row of a list."""
        self.person.click(self._at_rest(
            lambda: self.list(title, name, lambda node: row in node.rows()).row(row)))
        self.list(title, name, lambda node: node.selected() == [row])

    def drag_row(self, title, name, row, onto):
        """Takes a row of a list along with the mouse, and puts it down on another list."""
        taken = self._at_rest(
            lambda: self.list(title, name, lambda node: row in node.rows()).row(row))
        self.person.drag(taken, self.list(title, onto))

    def click_session(self, row):
        """Goes to the host's list of sessions, and selects one of them."""
        self.click(HOST, SESSIONS)
        self.click_row(HOST, STORE_SESSIONS, row)

    def close_by_frame(self, title):
        """Closes a window by the key of the window manager, which asks it as its frame does."""
        self.window(title)
        self.person.press("alt+F4")
        self.wait_for(f'"{title}" to go', lambda: not self.reader.active(title))

    def choose_from_menu(self, menu, entry):
        """Chooses an entry of the host's menu bar with the mouse."""
        self.person.click(self._at_rest(lambda: self.window(HOST).entry(menu)))
        self.wait_for(f'the menu "{menu}"', lambda: self.in_menu(menu, entry))
        self.person.click(self._at_rest(lambda: self.in_menu(menu, entry)))

    def in_menu(self, menu, entry):
        """An entry of a menu of the host that is open, or None."""
        bar = self.reader.active(HOST)
        opened = bar.entry(menu) if bar else None
        return opened.entry(entry) if opened else None

    def _at_rest(self, find):
        """What is found, as soon as it stands still: a window can move while it comes up."""
        node = self.wait_for("something to point at", find)
        places = []

        def stands():
            places.append(node.extents)
            return places[-2:] == 2 * places[-1:]
        self.wait_for("windows to come to rest", stands)
        return node

    def focused(self, title):
        """The control of a window that has the keyboard, or None."""
        window = self.reader.active(title)
        return window.focused() if window else None

    def wait_for_focus(self, title, name, group=None):
        """Waits until a control of a window has the keyboard."""
        self.wait_for(f'the focus on "{name}" in "{title}"',
                      lambda: _goes_by(self.focused(title), name, group))

    def tab_to(self, title, name, group=None, key="Tab"):
        """Presses the Tab key until a control has the keyboard."""
        focused = self.wait_for(f'the focus in "{title}"', lambda: self.focused(title))
        for _ in range(MOST_STEPS):
            if _goes_by(focused, name, group):
                return
            place = focused.extents
            self.person.press(key)
            focused = self.wait_for("the focus to move",
                                    lambda place=place: self._moved(title, place))
        self.fail(f'the key {key} does not lead to "{name}" in "{title}"')

    def _moved(self, title, place):
        focused = self.focused(title)
        return focused if focused and focused.extents != place else None

    def enter(self, title, name, text, group=None):
        """Types into the box that has the keyboard, in place of what it holds."""
        self.wait_for_focus(title, name, group)
        self.person.press("ctrl+a")
        self.person.type(text)
        self.control(title, name, group, lambda box: box.text == text)


def _goes_by(node, name, group):
    """Whether a control, or None, is the one of a name, in a frame if that is given."""
    if not node or (group is not None and node.group != group):
        return False
    return name in (node.labels if node.role == "combo box" else [node.name])
