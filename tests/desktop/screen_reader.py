"""What a screen reader learns of the windows of a program, over the accessibility bus."""

import functools

import gi

gi.require_version("Atspi", "2.0")
# pylint: disable=wrong-import-position
from gi.repository import Atspi  # noqa: E402  only for the names that it has for numbers

from accessibility_bus import AccessibilityBus, Object  # noqa: E402

# Objects that only say what they hold or what holds them: nobody works with them by their name.
PASSIVE = ("label", "panel", "table column header", "filler", "image", "menu item")
# It can have the keyboard, but goes by the name of the tab in front, which it holds.
TAB_BAR = "page tab list"
LISTS = ("list", "table", "tree", "tree table")
ITEMS = ("list item", "table cell", "menu item", "page tab")


class Node:
    """One object of the tree; what is below it is read when it is asked for."""

    def __init__(self, bus, address, facts, parent=None):
        self._bus = bus
        self._address = address
        self._child_count, role, name, self.states = facts
        self.role = Atspi.role_get_name(role)
        self.name = plain(name)
        self.parent = parent

    @functools.cached_property
    def children(self):
        """The objects right below, as far as a person can see them."""
        return nodes_below(self._bus, self._address, self) if self._child_count else []

    @functools.cached_property
    def description(self):
        """What is said besides the name."""
        return self._get("Accessible", "Description")

    @functools.cached_property
    def labels(self):
        """The names of the objects that it is labelled by."""
        return [plain(self._bus.answer(Object(*each).asks_for("Accessible", "Name")))
                for kind, targets in self._ask("Accessible", "GetRelationSet")
                if kind == Atspi.RelationType.LABELLED_BY for each in targets]

    @property
    def text(self):
        """The content of a box as it is now."""
        return self._ask("Text", "GetText", "(ii)", 0, -1)

    def set_text(self, text):
        """Has a box hold a text, as dictation does."""
        if not self._ask("EditableText", "SetTextContents", "(s)", text):
            raise AssertionError(f'{self.role} "{self.name}" takes no text')

    def insert_text(self, place, text):
        """Has a box hold a text more, from a place on."""
        if not self._ask("EditableText", "InsertText", "(isi)", place, text, len(text.encode())):
            raise AssertionError(f'{self.role} "{self.name}" takes no text')

    def act(self, name):
        """Does the action of a name, such as "Press" or "Toggle"."""
        names = [self._ask("Action", "GetName", "(i)", index)
                 for index in range(self._get("Action", "NActions"))]
        if name not in names:
            raise AssertionError(f'{self.role} "{self.name}" has the actions {names} alone')
        self._ask("Action", "DoAction", "(i)", names.index(name))

    @property
    def extents(self):
        """Its place on the screen as it is now: x, y, width, height."""
        return self._ask("Component", "GetExtents", "(u)", Atspi.CoordType.SCREEN)

    def _ask(self, *question):
        return self._bus.answer(self._address.asks(*question))

    def _get(self, *prop):
        return self._bus.answer(self._address.asks_for(*prop))

    @property
    def group(self):
        """The name of the frame that it stands in, or the empty string."""
        node = self.parent
        while node and not (node.role == "panel" and node.name):
            node = node.parent
        return node.name if node else ""

    def walk(self, rows=False):
        """This object and all below it; what stands in lists and tables only when asked for."""
        yield self
        if not self._child_count or (self.role in LISTS and not rows):
            return
        for child in self.children:
            yield from child.walk(rows)

    def named(self, name, group=None):
        """What a person works with under this name, but for lists.

        A combo box is known by its label, since its own name is what is chosen in it.
        group: name of the frame around it, where the name alone is not enough
        """
        def matches(node):
            known = node.labels if node.role == "combo box" else [node.name]
            return (name in known and node.role not in (*PASSIVE, *LISTS, TAB_BAR)
                    and node is not self and (group is None or node.group == group))
        return [each for each in self.walk() if matches(each)]

    def lists(self, name):
        """The lists and tables of a name."""
        return [each for each in self.walk() if each.role in LISTS and each.name == name]

    def entry(self, name):
        """A menu's or menu bar's entry, or None."""
        found = [each for each in self.walk() if each.role == "menu item" and each.name == name]
        return found[0] if found else None

    def told(self):
        """The texts that its labels show."""
        return [each.name for each in self.walk() if each.role == "label"]

    def rows(self):
        """The names of the rows of a list."""
        return [each.name for each in self.children if each.role in ITEMS]

    def row(self, name):
        """A row of a list."""
        return next(each for each in self.children if each.role in ITEMS and each.name == name)

    def selected(self):
        """The names of the selected rows of a list."""
        return [each.name for each in self.children
                if each.role in ITEMS and "selected" in each.states]

    def focused(self):
        """The control below that has the keyboard, or None."""
        # An item says so as long as it is the current one of its list, focus or not.
        found = [each for each in self.walk()
                 if "focused" in each.states and each.role not in ITEMS + PASSIVE]
        return found[-1] if found else None

    def listing(self, depth=0):
        """The tree as text, a line per object."""
        line = f'{"  " * depth}{self.role} "{self.name}"'
        if self.description:
            line += f" ({self.description})"
        if self.labels:
            line += f" labelled by {self.labels}"
        line += f" [{' '.join(sorted(self.states))}]"
        return "\n".join([line] + [each.listing(depth + 1) for each in self.children])


def plain(name):
    """A name without the mark of its key, and on one line."""
    return " ".join(name.replace("&", "", 1).split())


def nodes_below(bus, address, parent=None):
    """The objects right below one, as far as a person can see them."""
    below = [Object(*each) for each in bus.answer(address.asks("Accessible", "GetChildren"))]
    states = map(states_of, bus.answers([each.asks("Accessible", "GetState") for each in below]))
    shown = [(each, said) for each, said in zip(below, states) if "showing" in said]
    facts = iter(bus.answers([question for each, _ in shown for question in (
        each.asks_for("Accessible", "ChildCount"), each.asks("Accessible", "GetRole"),
        each.asks_for("Accessible", "Name"))]))
    return [Node(bus, each, (next(facts), next(facts), next(facts), said), parent)
            for each, said in shown]


def states_of(words):
    """The names of the states in a set of bits, which comes in two words."""
    bits = words[0] | words[1] << 32
    return {Atspi.StateType(bit).value_nick for bit in range(bits.bit_length()) if bits >> bit & 1}


class ScreenReader:
    """Reads the windows of one program."""

    def __init__(self, process_id):
        self._process_id = process_id
        self._bus = AccessibilityBus()
        self._program = None

    def active(self, title):
        """The window of this title, provided that it has the keyboard; or None."""
        return next((each for each in self._active_windows() if each.name == title), None)

    def active_title(self):
        """The title of the window that has the keyboard, or None."""
        return next((each.name for each in self._active_windows()), None)

    def active_message(self):
        """The message box that has the keyboard, or None."""
        return next((each for each in self._active_windows() if each.role == "alert"), None)

    def listing(self):
        """The titles of all windows, and the one that has the keyboard as a tree."""
        titles = [f'window "{each.name}"' for each in self._windows()]
        trees = [each.listing() for each in self._active_windows()]
        return "\n".join(titles + trees)

    def _active_windows(self):
        return [each for each in self._windows() if "active" in each.states]

    def _windows(self):
        self._program = self._program or self._bus.program_of(self._process_id)
        return nodes_below(self._bus, self._program) if self._program else []
