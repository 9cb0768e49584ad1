"""What calls of the component raise."""

from __future__ import annotations

from wynconfig import _abi


class Error(Exception):
    """A failure of the component: a number and a description.

    A host's own view or resource manager may raise it with any number and a description for the
    user.
    """

    def __init__(self, number: int, description: str, function: str = "") -> None:
        """
        Args:
            number: Tells kinds of failures apart; those of the component are in c.h.
            description: What a box tells the user.
            function: The call that failed, such as "wyn_record_get".
        """
        super().__init__(number, description, function)
        self.number = number
        self.description = description
        self.function = function

    def __str__(self) -> str:
        return self.description


class CallError(Error):
    """An argument or a state that the call can't serve."""


class RangeError(Error, IndexError):
    """No such row or node."""


class MissingFileError(Error):
    """No such file."""


class FileAccessError(Error):
    """A file that can't be read, written or deleted."""


class DuplicateKeyError(Error):
    """A key or name that is there already."""


class NoSuchKeyError(Error, KeyError):
    """A key that is not there."""


class RecordError(Error):
    """Stored text that is no record."""


class HandleError(Error):
    """An object that was closed, whose time is over, or that belongs to another thread."""


class UserError(Error):
    """What a person could not do, or what came up unannounced."""


_KINDS: dict[int, type[Error]] = {
    _abi.ERROR_CALL: CallError,
    _abi.ERROR_RANGE: RangeError,
    _abi.ERROR_FILE_NOT_FOUND: MissingFileError,
    _abi.ERROR_FILE_ACCESS: FileAccessError,
    _abi.ERROR_DUPLICATE_KEY: DuplicateKeyError,
    _abi.ERROR_NO_SUCH_KEY: NoSuchKeyError,
    _abi.ERROR_RECORD: RecordError,
    _abi.ERROR_HANDLE: HandleError,
    _abi.ERROR_USER: UserError,
}


def error_of(number: int, description: str, function: str) -> Error:
    """The error of a number, of the class that it has, if any."""
    return _KINDS.get(number, Error)(number, description, function)
