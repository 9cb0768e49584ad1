"""The desktop view on Qt. It is in a library of its own, which this module loads."""

from __future__ import annotations

from wynconfig import _abi, _library
from wynconfig._library import PathLike
from wynconfig.testing import User

__all__ = ["install_view", "save_picture", "set_owner", "user"]

_library.load("wynconfig_qt", _abi.QT_FUNCTIONS)


def install_view() -> None:
    """Installs the view that shows every form in a real window.

    Raises:
        CallError: It can't work here: without a display, in a program whose application object
            shows no widgets, or on another thread than that of the QApplication.
    """
    _library.call("wyn_install_qt_view")


def set_owner(window: int) -> None:
    """Has the dialogs belong to a window of the host: they stand in front of it and centre on it.

    Args:
        window: Its number with the window system, of X11 its id, such as Tk's `winfo_id()` gives;
            0: to none.

    Raises:
        CallError: `install_view` was not called before.
    """
    _library.call("wyn_qt_set_owner", window)


def user() -> User:
    """The person who drives the real windows by real mouse and key events, in place of the one at
    the desk.

    Raises:
        CallError: `install_view` was not called before.
    """
    return User(_library.ask_handle("wyn_qt_user"))


def save_picture(path: PathLike) -> None:
    """Saves a picture of the window on top, as PNG.

    Raises:
        UserError: There is no window, or the file can't be written.
    """
    _library.call("wyn_qt_save_picture", _library.path_in(path))
