"""A host whose dialogs belong to the window of another program, as those of another toolkit do."""

import ctypes
import os
import subprocess
import tempfile
import unittest

from host_test_case import ADD_SESSION, HOST, HostTestCase
from person import Person
from screen_reader import ScreenReader
from waiting import wait_for

C_HOST = os.environ["C_HOST"]


def window_of(title):
    """The number of the window of a title."""
    found = subprocess.run(["xdotool", "search", "--name", f"^{title}$"], check=True, timeout=20,
                           capture_output=True, text=True).stdout.split()
    return int(found[-1])


def owner_of(window):
    """The number of the window that another one belongs to; 0 when there is none."""
    xlib = ctypes.CDLL("libX11.so.6")
    xlib.XOpenDisplay.restype = ctypes.c_void_p
    display = ctypes.c_void_p(xlib.XOpenDisplay(None))
    owner = ctypes.c_ulong(0)
    xlib.XGetTransientForHint(display, ctypes.c_ulong(window), ctypes.byref(owner))
    xlib.XCloseDisplay(display)
    return owner.value


class Owner(HostTestCase):
    """The sample host stands for the window of another toolkit."""

    def start_c_host(self, *owner):
        """Adds a session by the host in C, and looks at the dialog."""
        folder = tempfile.mkdtemp(dir=self.desktop.folder)
        program = self.desktop.start(C_HOST, folder, *owner)
        self.addCleanup(program.end)
        self.host, self.reader = program, ScreenReader(program.process_id)
        self.person = Person()
        self.window(ADD_SESSION)
        return window_of(ADD_SESSION)

    def end_c_host(self):
        """Leaves it by Cancel."""
        self.person.press("Escape")
        wait_for("the host in C to end", lambda: self.host.exit_code is not None)
        self.assertEqual(self.host.exit_code, 1, self.host.printed())
        self.assertEqual(self.host.printed(), "nothing was added\n")

    def test_dialogs_belong_to_the_window_that_the_host_names(self):
        owner = window_of(HOST)
        self.assertEqual(owner_of(self.start_c_host(str(owner))), owner)
        self.end_c_host()

    def test_dialogs_belong_to_none_without_one(self):
        self.assertNotEqual(owner_of(self.start_c_host()), window_of(HOST))
        self.end_c_host()

    def test_a_window_that_is_not_there_is_none(self):
        self.start_c_host("0x7ffffff1")
        self.end_c_host()


if __name__ == "__main__":
    unittest.main(verbosity=2)
