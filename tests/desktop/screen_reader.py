"""What a screen reader learns of the windows of a program, over the accessibility bus."""

import functools

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402  pylint: disable=wrong-import-position

# Objects that only say what they hold or what holds them: nobody works with them by their name.
PASSIVE = ("label", "panel", "table column header", "filler", "image", "menu item")
# It can have the keyboard, but goes by the name of the tab in front, which it holds.
TAB_BAR = "page tab list"
LISTS = ("list", "table", "tree", "tree table")
ITEMS = ("list item", "table cell", "menu item", "page tab")


class Node:
    """One object of the tree; what is below it is read when it is asked for."""

    def __init__(self, accessible, parent=None):
        self._accessible = accessible
        self.parent = parent
        self.role = accessible.get_role_name()
        self.name = plain(accessible.get_name())
        self.states = _states_of(accessible)

    @functools.cached_property
    def children(self):
        """The objects right below, as far as a person can see them."""
        count = self._accessible.get_child_count()
        below = [self._accessible.get_child_at_index(index) for index in range(count)]
        return [Node(each, self) for each in below if each and _shows(each)]

    @functools.cached_property
    def description(self):
        """What is said besides the name."""
        return self._accessible.get_description()

    @functools.cached_property
    def labels(self):
        """The names of the objects that it is labelled by."""
        relations = [each for each in self._accessible.get_relation_set()
                     if each.get_relation_type() == Atspi.RelationType.LABELLED_BY]
        return [plain(relation.get_target(index).get_name())
                for relation in relations for index in range(relation.get_n_targets())]

    @property
    def text(self):
        """The content of a box as it is now."""
        return Atspi.Text.get_text(self._accessible, 0, -1)

    def set_text(self, text):
        """Has a box hold a text, as dictation does."""
        if not Atspi.EditableText.set_text_contents(self._accessible, text):
            raise AssertionError(f'{self.role} "{self.name}" takes no text')

    def insert_text(self, place, text):
        """Has a box hold a text more, from a place on."""
        if not Atspi.EditableText.insert_text(self._accessible, place, text, len(text.encode())):
            raise AssertionError(f'{self.role} "{self.name}" takes no text')

    def act(self, name):
        """Does the action of a name, such as "Press" or "Toggle"."""
        count = Atspi.Action.get_n_actions(self._accessible)
        names = [Atspi.Action.get_action_name(self._accessible, index) for index in range(count)]
        if name not in names:
            raise AssertionError(f'{self.role} "{self.name}" has the actions {names} alone')
        Atspi.Action.do_action(self._accessible, names.index(name))

    @property
    def extents(self):
        """Its place on the screen as it is now: x, y, width, height."""
        box = Atspi.Component.get_extents(self._accessible, Atspi.CoordType.SCREEN)
        return box.x, box.y, box.width, box.height

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
        if self.role in LISTS and not rows:
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


def _states_of(accessible):
    return {each.value_nick for each in accessible.get_state_set().get_states()}


def _active(window):
    return window.get_state_set().contains(Atspi.StateType.ACTIVE)


def _shows(accessible):
    return accessible.get_state_set().contains(Atspi.StateType.SHOWING)


class ScreenReader:
    """Reads the windows of one program."""

    def __init__(self, process_id):
        self._process_id = process_id
        self._desktop = Atspi.get_desktop(0)
        # Always as it is now: nobody here listens to what changes.
        self._desktop.set_cache_mask(Atspi.Cache.NONE)

    def active(self, title):
        """The window of this title, provided that it has the keyboard; or None."""
        for window in self._windows():
            if _active(window) and plain(window.get_name()) == title:
                return Node(window)
        return None

    def active_title(self):
        """The title of the window that has the keyboard, or None."""
        titles = [plain(each.get_name()) for each in self._windows() if _active(each)]
        return titles[0] if titles else None

    def active_message(self):
        """The message box that has the keyboard, or None."""
        for window in self._windows():
            if _active(window) and window.get_role() == Atspi.Role.ALERT:
                return Node(window)
        return None

    def listing(self):
        """The titles of all windows, and the one that has the keyboard as a tree."""
        windows = self._windows()
        titles = [f'window "{each.get_name()}"' for each in windows]
        trees = [Node(each).listing() for each in windows if _active(each)]
        return "\n".join(titles + trees)

    def _windows(self):
        for index in range(self._desktop.get_child_count()):
            program = self._desktop.get_child_at_index(index)
            if program and program.get_process_id() == self._process_id:
                below = [program.get_child_at_index(i) for i in range(program.get_child_count())]
                return [each for each in below if each and _shows(each)]
        return []
