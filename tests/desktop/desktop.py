"""A desktop for one test program: screen, window manager, message bus and accessibility bus.

All of it is private: several can stand beside each other on one machine. A process can have one
only, since the accessibility library finds its bus once.
"""

import atexit
import contextlib
import os
import subprocess
import tempfile

from gi.repository import Gio, GLib

from programs import Program
from waiting import wait_for

SCREEN = "1600x1200x24"
LAUNCHER = "/usr/libexec/at-spi-bus-launcher"
# What the person who runs the tests may want to tell the host.
HANDED_ON = ("PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS")


class Desktop:
    """Comes up when it is made, and goes with `close`."""

    def __init__(self):
        self._stack = contextlib.ExitStack()
        with self._stack:
            self.folder = self._stack.enter_context(
                tempfile.TemporaryDirectory(prefix="desktop-"))
            self.environment = self._private_environment()
            self._start_screen()
            self._start_buses()
            # Of this process too: xdotool and the accessibility library look there.
            os.environ.update(self.environment)
            self._start_window_manager()
            self._stack = self._stack.pop_all()
        atexit.register(self.close)

    def close(self):
        """Ends all that was started, in the opposite order, and removes the folder."""
        self._stack.close()

    def start(self, *command, pass_fds=()):
        """Starts a program on this desktop. It ends with the desktop, or earlier by `end`."""
        name = os.path.basename(command[0])
        handle, log = tempfile.mkstemp(prefix=f"{name}-", suffix=".log", dir=self.folder)
        os.close(handle)
        program = Program(command, self.environment, log, pass_fds)
        self._stack.callback(program.end)
        return program

    def _private_environment(self):
        environment = {name: os.environ[name] for name in HANDED_ON if name in os.environ}
        runtime = os.path.join(self.folder, "run")
        os.mkdir(runtime, mode=0o700)
        environment.update(
            HOME=self.folder, XDG_RUNTIME_DIR=runtime, LC_ALL="C.UTF-8", QT_QPA_PLATFORM="xcb",
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        return environment

    def _start_telling(self, what, *command):
        """Starts a program that tells a line about itself through a pipe; gives that line."""
        reading, writing = os.pipe()
        with open(reading, encoding="utf-8") as pipe:
            arguments = [each.format(pipe=writing) for each in command]
            program = self.start(*arguments, pass_fds=(writing,))
            os.close(writing)
            line = pipe.readline().strip()
        if not line:
            raise AssertionError(f"{program.name} tells no {what}: {program.printed()}")
        return line

    def _start_screen(self):
        number = self._start_telling(
            "number of its screen", "Xvfb", "-displayfd", "{pipe}", "-screen", "0", SCREEN,
            "-nolisten", "tcp", "-noreset")
        self.environment["DISPLAY"] = f":{number}"

    def _start_buses(self):
        address = self._start_telling(
            "address", "dbus-daemon", "--session", "--nofork", "--print-address={pipe}")
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        bus = Gio.DBusConnection.new_for_address_sync(
            address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        self._stack.callback(bus.close_sync)
        launcher = self.start(LAUNCHER, "--launch-immediately")
        wait_for("the accessibility bus", lambda: _has_owner(bus, "org.a11y.Bus"),
                 launcher.printed)

    def _start_window_manager(self):
        manager = self.start("openbox", "--sm-disable")
        wait_for("the window manager",
                 lambda: subprocess.run(["xdotool", "get_num_desktops"], capture_output=True,
                                        check=False).returncode == 0,
                 manager.printed)


def _has_owner(bus, name):
    service = "org.freedesktop.DBus"
    reply = bus.call_sync(service, "/org/freedesktop/DBus", service, "NameHasOwner",
                          GLib.Variant("(s)", (name,)), None, Gio.DBusCallFlags.NONE, -1, None)
    return reply.unpack()[0]
