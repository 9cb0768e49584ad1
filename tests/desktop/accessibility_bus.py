"""Questions over the accessibility bus, many at a time: one by one, most of the time would go into
waking programs up.
"""

from typing import NamedTuple

from gi.repository import Gio, GLib

MILLISECONDS = 20_000  # to wait for an answer


class Object(NamedTuple):
    """An object of a program, by its address."""
    program: str  # name on the bus
    path: str

    def asks(self, interface, method, form="()", *arguments):
        """A question to this object.

        interface: without "org.a11y.atspi."
        form: of the arguments, as the bus writes types
        """
        return (self, "org.a11y.atspi." + interface, method, GLib.Variant(form, arguments))

    def asks_for(self, interface, name):
        """The question for a property."""
        return (self, "org.freedesktop.DBus.Properties", "Get",
                GLib.Variant("(ss)", ("org.a11y.atspi." + interface, name)))


REGISTRY = Object("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
BUS = Object("org.freedesktop.DBus", "/org/freedesktop/DBus")


class AccessibilityBus:
    """The bus that belongs to the session bus of this process."""

    def __init__(self):
        session = Gio.bus_get_sync(Gio.BusType.SESSION)
        address, = session.call_sync(
            "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None,
            Gio.DBusCallFlags.NONE, MILLISECONDS, None)
        self._connection = Gio.DBusConnection.new_for_address_sync(
            address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)

    def answers(self, questions):
        """The answers to questions, in their order.

        Raises GLib.Error when one could not be answered.
        """
        answers = {}

        def take(connection, result, index):
            try:
                answer = connection.call_finish(result).unpack()
                answers[index] = answer[0] if answer else None
            except GLib.Error as error:
                answers[index] = error
        for index, (to, interface, method, arguments) in enumerate(questions):
            self._connection.call(to.program, to.path, interface, method, arguments, None,
                                  Gio.DBusCallFlags.NONE, MILLISECONDS, None, take, index)
        while len(answers) < len(questions):
            GLib.MainContext.default().iteration(True)
        for each in answers.values():
            if isinstance(each, GLib.Error):
                raise each
        return [answers[index] for index in range(len(questions))]

    def answer(self, question):
        """The answer to one question."""
        return self.answers([question])[0]

    def program_of(self, process_id):
        """The root object of a process's program, or None."""
        for program, path in self.answer(REGISTRY.asks("Accessible", "GetChildren")):
            number = self.answer((BUS, BUS.program, "GetConnectionUnixProcessID",
                                  GLib.Variant("(s)", (program,))))
            if number == process_id:
                return Object(program, path)
        return None
