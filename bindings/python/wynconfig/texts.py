"""Where the texts and the font of the dialogs come from."""

from __future__ import annotations

import abc
import ctypes
from dataclasses import dataclass
from typing import Any, NamedTuple

from wynconfig import _abi, _library
from wynconfig._library import PathLike


@dataclass(frozen=True)
class Font:
    """A font; what is left out is the view's own."""

    family: str = ""
    point_size: float = 0.0
    bold: bool = False
    italic: bool = False


class ResourceManager(abc.ABC):
    """The texts and the font of a host. What its methods raise comes back by the operation."""

    @abc.abstractmethod
    def get_string(self, key: str) -> str:
        """The text of a key, in the user's language."""

    def get_font(self, handle: int) -> Font:
        """The font for a form.

        Args:
            handle: Device context of the form, as its view gives it.
        """
        return Font()

    def find_string(self, key: str) -> str:
        """A text without which the dialogs do: help, what a view says by itself, what is told of
        work that takes its time. Is asked for only when it comes to that.

        Args:
            key: Begins with "HELP_", "VIEW_" or "PROGRESS_".

        Returns:
            Empty, as here: no help, and the English text of the others.
        """
        return ""


class _Kept:
    """A resource manager and what has to outlive a callback."""

    def __init__(self, manager: ResourceManager) -> None:
        self.manager = manager
        self.family = b""


def _get_string(kept: _Kept, key: bytes, answer: int) -> None:
    text = kept.manager.get_string(key.decode())
    _library.call("wyn_give", answer, _library.text_in(text))


def _find_string(kept: _Kept, key: bytes, answer: int) -> None:
    text = kept.manager.find_string(key.decode())
    _library.call("wyn_give", answer, _library.text_in(text))


def _get_font(kept: _Kept, handle: int, place: Any) -> None:
    font = kept.manager.get_font(handle)
    kept.family = _library.text_in(font.family)
    place[0].family = kept.family
    place[0].point_size = font.point_size
    place[0].bold = font.bold
    place[0].italic = font.italic


_GET_STRING = _library.callback(_abi.GET_STRING, _get_string)
_GET_FONT = _library.callback(_abi.GET_FONT, _get_font)
_FIND_STRING = _library.callback(_abi.GET_STRING, _find_string)


def _replace(number: int) -> None:
    """Forgets the thread's resource manager for another one; it is not called any more."""
    installed = _library.on_this_thread()
    _library.drop_host(installed.resource_manager)
    installed.resource_manager = number


def InitResourceManager(manager: ResourceManager) -> None:
    """Keeps the resource manager that all texts and the font of this thread come from."""
    number = _library.keep_host(_Kept(manager))
    # The library can't be told to let go of it, so it must not call anything as the program ends.
    functions = _abi.ResourceManager(
        size=ctypes.sizeof(_abi.ResourceManager),
        context=number,
        get_string=_GET_STRING,
        get_font=_GET_FONT,
        find_string=_FIND_STRING,
    )
    try:
        _library.call("wyn_InitResourceManager", ctypes.byref(functions))
    except BaseException:
        _library.drop_host(number)
        raise
    _replace(number)


def use_bundle(folder: PathLike = "", locale: str = "") -> None:
    """Takes the texts that come with the component.

    Args:
        folder: Of the texts; empty: where they are installed.
        locale: Such as "de" or "zh-Hans"; empty: the user's own.

    Raises:
        Error: The folder has no texts that serve.
    """
    _library.call("wyn_use_bundle", _library.path_in(folder), _library.text_in(locale))
    _replace(0)


def bundle_folder() -> str:
    """Where the texts are installed."""
    return _library.ask_text("wyn_bundle_folder")


class Language(NamedTuple):
    """A language that there are texts in."""

    tag: str
    """Names it as a locale, such as "de"."""
    name: str
    """Its own name, as for a list to choose from, such as "Deutsch"."""


def bundle_languages(folder: PathLike = "") -> list[Language]:
    """The languages in a folder of texts, in the order of their tags.

    Args:
        folder: As for `use_bundle`.
    """
    rows = _library.ask_rows("wyn_bundle_languages", _library.path_in(folder))
    return [Language(*row) for row in rows]


def bundle_right_to_left(folder: PathLike = "", locale: str = "") -> bool:
    """Whether the language that `use_bundle` takes is written from right to left.

    Raises:
        Error: The folder has no texts that serve.
    """
    return _library.ask_bool(
        "wyn_bundle_right_to_left", _library.path_in(folder), _library.text_in(locale)
    )
