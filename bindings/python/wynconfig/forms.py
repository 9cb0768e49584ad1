"""Forms and controls, for a view and for a test: what a person sees and does.

A form can be acted on as long as the method or function lasts that it was handed to, and while
nothing else is in front of it. An act that a person could not do, such as on a control that is
hidden or disabled, raises `UserError`.
"""

from __future__ import annotations

import ctypes
import enum
from dataclasses import dataclass, field

from wynconfig import _abi, _library
from wynconfig._library import Row, text_in
from wynconfig.errors import RangeError


class Key(enum.IntEnum):
    """Keys that a form answers."""

    ENTER = 0
    ESCAPE = 1
    DELETE = 2
    F2 = 3
    TAB = 4


class ControlKind(enum.IntEnum):
    """Kinds of controls."""

    EDIT = 0
    LIST_VIEW = 1
    COMBO_BOX = 2
    TABS = 3
    OPTION_BUTTON = 4
    CHECK_BOX = 5
    BUTTON = 6
    LABEL = 7
    FRAME = 8
    CONTAINER = 9


class NodeKind(enum.IntEnum):
    """Kinds of nodes of a layout."""

    COLUMN = 0
    """Children from top to bottom."""
    ROW = 1
    """Children from left to right."""
    GROUP = 2
    """A frame around the children."""
    TABS = 3
    """Tabs; the children are their panes in order."""
    PANE = 4
    """A container around the children."""
    FIELD = 5
    """A label in front of a control; children stand behind it."""
    TITLED = 6
    """A label above a control, children in front of it."""
    SINGLE = 7
    """A control alone."""
    BUTTONS = 8
    """The buttons that end the dialog."""
    STRETCH = 9
    """Empty space that takes what is left."""


@dataclass(frozen=True)
class Sight:
    """What a person sees of a control, beside its texts."""

    value: bool
    """Of an option or a check box: it is on."""
    selected: int
    """Number of the selected row from 1; 0: none."""
    caret: int
    """Of a box for text, in characters."""
    focus: bool
    enabled: bool
    visible: bool
    """False also for what lies on a tab that is not on top."""
    tab_stop: bool
    switched_off: bool
    """It has the background of a box that is switched off."""


class Control:
    """A control of a form."""

    def __init__(self, handle: int) -> None:
        self._handle = handle

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Control) and self._handle == other._handle

    def __hash__(self) -> int:
        return hash(self._handle)

    # What a person sees.

    @property
    def name(self) -> str:
        """Its name, such as "txtName"."""
        return _library.ask_text("wyn_control_name", self._handle)

    @property
    def kind(self) -> ControlKind:
        """What it is. Of a view of the host alone."""
        return ControlKind(_library.ask_int("wyn_control_kind", self._handle))

    def look(self) -> Sight:
        """Looks at it."""
        seen = _abi.Sight(ctypes.sizeof(_abi.Sight))
        _library.call("wyn_look", self._handle, ctypes.byref(seen))
        return Sight(
            value=seen.value != 0,
            selected=seen.selected,
            caret=seen.caret,
            focus=seen.focus != 0,
            enabled=seen.enabled != 0,
            visible=seen.visible != 0,
            tab_stop=seen.tab_stop != 0,
            switched_off=seen.switched_off != 0,
        )

    @property
    def value(self) -> bool:
        """Of an option or a check box: it is on."""
        return self.look().value

    @property
    def enabled(self) -> bool:
        """Whether it is enabled."""
        return self.look().enabled

    @property
    def visible(self) -> bool:
        """Whether it can be seen."""
        return self.look().visible

    @property
    def selected_row(self) -> Row | None:
        """The selected row of a list or item of a combo box."""
        number = self.look().selected
        return self.rows[number - 1] if number else None

    @property
    def text(self) -> str:
        """What is in a box for text or a combo box."""
        return _library.ask_text("wyn_text", self._handle)

    @property
    def caption(self) -> str:
        """The words of a label, button, frame, option or check box, without the mark of a key."""
        return _library.ask_text("wyn_caption", self._handle)

    @property
    def mnemonic(self) -> str:
        """The key that the caption marks; empty: none."""
        return _library.ask_text("wyn_mnemonic", self._handle)

    @property
    def rows(self) -> list[Row]:
        """The rows of a list with their keys, the items of a combo box, or the captions of tabs
        with the keys that these mark."""
        return _library.ask_rows("wyn_rows", self._handle)

    @property
    def help(self) -> str:
        """What is told of it to whoever asks; empty when nothing is."""
        return _library.ask_text("wyn_help", self._handle)

    # What a person does.

    def click(self) -> None:
        """Clicks a button, check box or option by the mouse; the focus moves there first."""
        _library.call("wyn_click", self._handle)

    def bare_click(self) -> None:
        """The click's event alone, for toolkits whose clicks move no focus."""
        _library.call("wyn_bare_click", self._handle)

    def focus(self) -> None:
        """Puts the focus here, without pressing it."""
        _library.call("wyn_focus", self._handle)

    def type(self, text: str) -> None:
        """Goes to a box and types this in place of its text; the caret stands behind it."""
        _library.call("wyn_type", self._handle, text_in(text))

    def set_caret(self, caret: int) -> None:
        """Puts the caret of a box behind so many characters; beyond the end it is the end."""
        _library.call("wyn_set_caret", self._handle, caret)

    def tick(self, value: bool = True) -> None:
        """Clicks a check box or option unless it shows this value already."""
        _library.call("wyn_tick", self._handle, value)

    def pick(self, text: str) -> None:
        """Clicks the first row of a list with this text, also when it is selected already."""
        _library.call("wyn_pick", self._handle, text_in(text))

    def double_click(self, text: str) -> None:
        """Clicks that row twice: that does the usual act of the list as well."""
        _library.call("wyn_double_click", self._handle, text_in(text))

    def type_ahead(self, letters: str) -> None:
        """Types letters in a list or a combo box, which picks the first row that begins so."""
        _library.call("wyn_type_ahead", self._handle, text_in(letters))

    def choose(self, text: str) -> None:
        """Chooses the first item of a combo box with this text."""
        _library.call("wyn_choose", self._handle, text_in(text))

    def change_tab(self, index: int) -> None:
        """Clicks a tab, by its index from 0."""
        _library.call("wyn_change_tab", self._handle, index)


@dataclass(frozen=True)
class Node:
    """A node of a form's layout."""

    kind: NodeKind
    control: Control | None
    label: Control | None
    grows: bool
    """It takes a share of the space that is left."""
    behind_box: bool
    """Of `NodeKind.TITLED`: its children stand behind the box."""
    children: list[Node] = field(default_factory=list)


class Form:
    """A form on the screen."""

    def __init__(self, handle: int) -> None:
        self._handle = handle

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Form) and self._handle == other._handle

    def __hash__(self) -> int:
        return hash(self._handle)

    @property
    def name(self) -> str:
        """Its name, such as "frmMORAMConfig"."""
        return _library.ask_text("wyn_form_name", self._handle)

    @property
    def title(self) -> str:
        """What its title bar shows."""
        return _library.ask_text("wyn_form_title", self._handle)

    @property
    def is_open(self) -> bool:
        """Whether it is still on the screen."""
        return _library.ask_bool("wyn_form_is_open", self._handle)

    def control_names(self) -> list[str]:
        """The names of the controls in the order of the Tab key. Of a view of the host alone."""
        return _library.ask_texts("wyn_form_controls", self._handle)

    def find(self, name: str) -> Control:
        """The control of a name. `form["txtName"]` is the same.

        Raises:
            UserError: There is none.
        """
        return Control(_library.ask_handle("wyn_find", self._handle, text_in(name)))

    __getitem__ = find

    def buttons(self) -> tuple[Control | None, Control | None]:
        """The buttons behind the Enter and Escape keys. Of a view of the host alone."""
        by_enter, by_escape = ctypes.c_void_p(), ctypes.c_void_p()
        _library.call(
            "wyn_form_buttons", self._handle, ctypes.byref(by_enter), ctypes.byref(by_escape)
        )
        return (
            Control(by_enter.value) if by_enter.value else None,
            Control(by_escape.value) if by_escape.value else None,
        )

    def layout(self) -> Node:
        """What stands where. Of a view of the host alone."""
        above: list[Node] = []
        number = 0
        while True:
            found = _abi.Node(ctypes.sizeof(_abi.Node))
            try:
                _library.call("wyn_form_node", self._handle, number, ctypes.byref(found))
            except RangeError:
                return above[0]
            node = Node(
                kind=NodeKind(found.kind),
                control=Control(found.control) if found.control else None,
                label=Control(found.label) if found.label else None,
                grows=found.grows != 0,
                behind_box=found.behind_box != 0,
            )
            del above[found.depth :]
            if above:
                above[-1].children.append(node)
            above.append(node)
            number += 1

    def press(self, key: Key) -> None:
        """Presses a key where the focus is."""
        _library.call("wyn_press", self._handle, key)

    def press_mnemonic(self, key: str) -> None:
        """Presses the Alt key and this one, an upper-case character."""
        _library.call("wyn_press_mnemonic", self._handle, text_in(key))

    def resize(self, width: int, height: int) -> None:
        """Pulls the window's frame to a size in twips (1/1440 inch)."""
        _library.call("wyn_resize", self._handle, width, height)

    def close_by_frame(self) -> None:
        """Closes the window by its frame."""
        _library.call("wyn_close_by_frame", self._handle)
