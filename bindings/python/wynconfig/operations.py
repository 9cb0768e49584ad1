"""The twelve operations, but for `InitResourceManager`, which is with the texts.

What they do, and what the two ways of working are, is told in wynconfig.h. A failure within them
comes up as a box of the view, and as an `Observer` is told; they raise `Error` on bad arguments
alone, and whatever a method of the host's own view, observer or resource manager raised meanwhile.
"""

from __future__ import annotations

import ctypes
from collections.abc import Sequence
from typing import Any, NamedTuple

from wynconfig import _library
from wynconfig._library import PathLike, text_in


class Outcome(NamedTuple):
    """How a dialog ended."""

    result: int
    """0 when the user confirmed, else 1."""
    name: str
    """The session's name."""

    @property
    def confirmed(self) -> bool:
        """Whether the user confirmed."""
        return self.result == 0


def _run_named(operation: str, *arguments: Any) -> Outcome:
    name = ctypes.c_void_p()
    result = ctypes.c_int32()
    _library.call(operation, *arguments, ctypes.byref(name), ctypes.byref(result))
    return Outcome(result.value, _library.text_of(name))


def init(root: PathLike) -> None:
    """Sets the store and makes sure that its folders and their catalogues are there.

    Args:
        root: The store's root, which must exist. A text needs its trailing separator; a path object
            gets it here.
    """
    _library.call("wyn_init", _library.root_in(root))


def GetDatasetSessionData() -> str:
    """The session held in memory as XML text, that of an empty record when there is none."""
    return _library.ask_text("wyn_GetDatasetSessionData")


def GetDatasetFormatsData() -> list[str]:
    """The part formats held in memory as XML texts, in their order. Without a part format it is one
    empty text, which `showMORAMConfigDlgEX` does not take back."""
    return _library.ask_texts("wyn_GetDatasetFormatsData")


def MigrateSession(migration_path: PathLike, name: str) -> bool:
    """Reads a session and its part formats out of another store into memory.

    Args:
        migration_path: The other store's root, as for `init`.
        name: The session's name, in any case.

    Returns:
        Whether all of it was read.
    """
    return _library.ask_bool(
        "wyn_MigrateSession", _library.root_in(migration_path), text_in(name)
    )


def showMORAMConfigDlg(name: str = "") -> Outcome:
    """Lets the user edit a session of the store.

    Args:
        name: In any case; an empty one opens a session that comes to exist at the first Apply.
    """
    return _run_named("wyn_showMORAMConfigDlg", text_in(name))


def showMORAMConfigDlgEX(name: str, session_xml: str, formats: Sequence[str] = ()) -> Outcome:
    """Lets the user edit a session that the host hands in. Begins the in-memory mode.

    Args:
        name: The session's name, in any case.
        session_xml: XML text of the session.
        formats: XML text of each part format of the user.
    """
    texts = [text_in(each) for each in formats]
    array = (ctypes.c_char_p * len(texts))(*texts)
    return _run_named(
        "wyn_showMORAMConfigDlgEX", text_in(name), text_in(session_xml), array, len(texts)
    )


def showMORAMMaintenanceDlg(name: str = "") -> Outcome:
    """Lets the user pick, make, edit and delete sessions of the store.

    Args:
        name: Of the session to select, in any case.
    """
    return _run_named("wyn_showMORAMMaintenanceDlg", text_in(name))


def showAddMORAMConfigDlg(name: str = "") -> Outcome:
    """Lets the user make a new session and edit it. Ends the in-memory mode.

    Args:
        name: A name to propose.
    """
    return _run_named("wyn_showAddMORAMConfigDlg", text_in(name))


def showAddMORAMConfigDlgEX(name: str = "") -> Outcome:
    """The same for a session that is held in memory. Begins the in-memory mode."""
    return _run_named("wyn_showAddMORAMConfigDlgEX", text_in(name))


def showSessionManagerDlg(sessions: str) -> str:
    """Lets the user pick a session out of a list.

    Args:
        sessions: Names joined by commas.

    Returns:
        The name picked; empty: none.
    """
    return _library.ask_text("wyn_showSessionManagerDlg", text_in(sessions))


def showConfigurableSessionManagerDlg(sessions: str) -> str:
    """Lets the user edit a list of sessions, and the sessions in it.

    Args:
        sessions: Names joined by commas.

    Returns:
        The list as the dialog left it.
    """
    return _library.ask_text("wyn_showConfigurableSessionManagerDlg", text_in(sessions))
