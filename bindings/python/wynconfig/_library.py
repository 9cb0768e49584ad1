"""Finds the library and calls it: texts on their way in and out, failures, and what the callbacks of
the host raise."""

from __future__ import annotations

import atexit
import ctypes
import itertools
import os
import sys
import threading
import traceback
from collections.abc import Callable
from types import TracebackType
from typing import Any, NamedTuple, Self

from wynconfig import _abi
from wynconfig.errors import Error, HandleError, error_of

PathLike = str | os.PathLike[str]

# -------------------------------------------------------------------------------------------------
# The libraries.

_functions: dict[str, Any] = {}


def _place_of(name: str) -> str:
    """Where a library is: as WYNCONFIG_LIBRARY says, which is a folder or the core library itself;
    else the loader looks for it."""
    file = f"lib{name}.so.0"
    place = os.environ.get("WYNCONFIG_LIBRARY", "")
    if os.path.isdir(place):
        return os.path.join(place, file)
    if name == "wynconfig":
        return place or file
    return os.path.join(os.path.dirname(place), file)


def load(name: str, functions: dict[str, tuple[Any, ...]]) -> None:
    """Loads a library and takes its functions in.

    Raises:
        ImportError: It is not there, or of another version.
    """
    place = _place_of(name)
    try:
        library = ctypes.CDLL(place)
        for function, arguments in functions.items():
            found = getattr(library, function)
            found.argtypes = arguments
            found.restype = _abi.RESULTS.get(function, ctypes.c_int32)
            _functions[function] = found
    except (OSError, AttributeError) as error:
        raise ImportError(
            f"{place} can't be used: {error}. WYNCONFIG_LIBRARY may name the folder of the library."
        ) from error


load("wynconfig", _abi.FUNCTIONS)

# -------------------------------------------------------------------------------------------------
# Calls. What a callback of the host raises is kept, and raised by the call in which it was called.


class _Thread(threading.local):
    """What a thread is in the middle of."""

    def __init__(self) -> None:
        self.raised: list[list[BaseException]] = []  # of each call that has not returned yet


_thread = _Thread()


def call(name: str, *arguments: Any) -> None:
    """Calls a function of the library.

    Raises:
        Error: It failed.
        BaseException: Whatever a callback raised meanwhile. When several did it is the first one,
            and its notes tell of the others.
    """
    raised: list[BaseException] = []
    _thread.raised.append(raised)
    try:
        status = _functions[name](*arguments)
    finally:
        _thread.raised.pop()
    if raised:
        first, *others = raised
        raised.clear()
        for each in others:
            told = "".join(traceback.format_exception_only(type(each), each)).rstrip()
            first.add_note(f"A later callback raised {told}")
        others.clear()
        try:
            raise first
        finally:
            del first  # a cycle with its own traceback would keep all objects of the callback
    if status != _abi.OK:
        raise _last_error()


def _last_error() -> Error:
    told = _abi.Error(ctypes.sizeof(_abi.Error))
    _functions["wyn_last_error"](ctypes.byref(told))
    return error_of(told.number, told.description.decode(), told.function.decode())


def _keep(error: BaseException) -> int:
    """Keeps what a callback raised, and has the component know of it."""
    if _thread.raised:
        _thread.raised[-1].append(error)
    else:
        sys.excepthook(type(error), error, error.__traceback__)
    number = error.number if isinstance(error, Error) else _abi.ERROR_CALL
    description = (str(error) or type(error).__name__).replace("\0", " ")
    return int(_functions["wyn_fail"](number, description.encode(errors="replace")))


# -------------------------------------------------------------------------------------------------
# Objects of the host that the library calls. Their callbacks are functions of this package, and get
# the number of the object as their context: nothing is called that has gone.

_hosts: dict[int, Any] = {}
_numbers = itertools.count(1)


def keep_host(host: object) -> int:
    """Keeps an object of the host until `drop_host`; gives its number."""
    number = next(_numbers)
    _hosts[number] = host
    return number


def drop_host(number: int) -> Any:
    """Forgets an object of the host, if it is there still; gives it back."""
    return _hosts.pop(number, None)


release = _abi.RELEASE(drop_host)


def callback(kind: Any, function: Callable[..., None]) -> Any:
    """Makes a callback.

    Args:
        kind: Its type.
        function: Is called with the host's object and what else the callback gets.
    """

    def guarded(number: int, *arguments: Any) -> int:
        try:
            host = _hosts.get(number)
            if host is None:
                raise HandleError(_abi.ERROR_HANDLE, "Nobody answers this any more.")
            function(host, *arguments)
            return _abi.OK
        except BaseException as error:
            return _keep(error)

    return kind(guarded)


class _Installed:
    """Takes what was installed on a thread away as the thread ends: later than that, and when the
    program has ended, nothing of Python can be called any more."""

    resource_manager = 0  # number of the host's own one; 0: none

    def __del__(self) -> None:
        _functions["wyn_install_view"](None)
        _functions["wyn_install_observer"](None)
        drop_host(self.resource_manager)


def on_this_thread() -> _Installed:
    """What is installed on this thread; to be called by what installs something."""
    if "installed" not in _thread.__dict__:
        _thread.__dict__["installed"] = _Installed()
    installed: _Installed = _thread.__dict__["installed"]
    return installed


@atexit.register
def forget_installed() -> None:
    """Takes away what was installed on this thread; of the main thread also as Python ends."""
    _thread.__dict__.pop("installed", None)


# -------------------------------------------------------------------------------------------------
# Values on their way in and out.


def text_in(text: str) -> bytes:
    """A text for the library.

    Raises:
        ValueError: It has a zero character, or a surrogate.
    """
    if "\0" in text:
        raise ValueError("a text for the component has a zero character")
    return text.encode()


def path_in(path: PathLike) -> bytes:
    """The path of a file or folder."""
    return text_in(os.fspath(path))


def root_in(root: PathLike) -> bytes:
    """A store's root. A text goes as it stands; a path object gets the separator that it lacks."""
    if isinstance(root, str):
        return text_in(root)
    return path_in(os.path.join(root, ""))


def text_of(place: ctypes.c_void_p) -> str:
    """Takes a text that the library gave, and gives its memory back."""
    try:
        return ctypes.string_at(place).decode() if place else ""
    finally:
        _functions["wyn_free"](place)


def ask_text(name: str, *arguments: Any) -> str:
    """Calls a function whose last argument takes a text."""
    place = ctypes.c_void_p()
    call(name, *arguments, ctypes.byref(place))
    return text_of(place)


def ask_int(name: str, *arguments: Any) -> int:
    """Calls a function whose last argument takes an integer."""
    place = ctypes.c_int32()
    call(name, *arguments, ctypes.byref(place))
    return place.value


def ask_bool(name: str, *arguments: Any) -> bool:
    """Calls a function whose last argument takes yes or no."""
    return ask_int(name, *arguments) != 0


def ask_handle(name: str, *arguments: Any) -> int:
    """Calls a function whose last argument takes a handle."""
    place = ctypes.c_void_p()
    call(name, *arguments, ctypes.byref(place))
    return place.value or 0


class Row(NamedTuple):
    """A row with what names it."""

    key: str
    text: str


def ask_rows(name: str, *arguments: Any) -> list[Row]:
    """Calls a function whose last argument takes a list."""
    handle = ask_handle(name, *arguments)
    try:
        count = ctypes.c_size_t()
        call("wyn_list_count", handle, ctypes.byref(count))
        return [
            Row(ask_text("wyn_list_key", handle, index), ask_text("wyn_list_text", handle, index))
            for index in range(count.value)
        ]
    finally:
        call("wyn_close", handle)


def ask_texts(name: str, *arguments: Any) -> list[str]:
    """Calls a function whose last argument takes a list without keys."""
    return [row.text for row in ask_rows(name, *arguments)]


def version() -> int:
    """The version of the library in use as one number that grows, such as 10203 for 1.2.3."""
    return int(_functions["wyn_version"]())


def version_text() -> str:
    """The version of the library in use in words, such as "1.2.3"."""
    text: bytes = _functions["wyn_version_text"]()
    return text.decode()


class Handle:
    """An object of the library. It belongs to the thread that made it: on any other one, and after
    `close`, its methods raise `HandleError`. One that is left open is closed when it is forgotten
    on its own thread, or when that thread ends."""

    _is_open = False

    def __init__(self, number: int) -> None:
        self._handle = number
        self._thread = threading.get_ident()
        self._is_open = True

    def close(self) -> None:
        """Closes it. Can be called again.

        Raises:
            HandleError: This is not its thread.
        """
        if self._is_open:
            call("wyn_close", self._handle)
            self._is_open = False

    def __enter__(self) -> Self:
        return self

    def __exit__(
        self,
        kind: type[BaseException] | None,
        error: BaseException | None,
        trace: TracebackType | None,
    ) -> None:
        self.close()

    def __del__(
        self, this_thread: Callable[[], int] = threading.get_ident, calls: Any = _functions
    ) -> None:
        if self._is_open and self._thread == this_thread():
            calls["wyn_close"](self._handle)
