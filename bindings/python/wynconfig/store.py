"""What is in a store, without a dialog."""

from __future__ import annotations

import ctypes
import enum
from collections.abc import Iterator, MutableMapping
from typing import NamedTuple, Self

from wynconfig import _library
from wynconfig._library import Handle, PathLike, text_in


class Kind(enum.IntEnum):
    """What the items of a store are."""

    SESSION = 0
    PART_FORMAT = 1


def upper_name(name: str) -> str:
    """A name in upper case, by which items are told apart."""
    return _library.ask_text("wyn_upper_name", text_in(name))


def is_item_name(name: str) -> bool:
    """Whether a session or part format may be given this name, by the rule of the dialogs."""
    return _library.ask_bool("wyn_is_item_name", text_in(name))


class Record(Handle, MutableMapping[str, str]):
    """A session or a part format in memory: a mapping of its keys (see `wynconfig.keys`) to its
    values, in their order. A key that is not there raises `NoSuchKeyError`."""

    @classmethod
    def new(cls, kind: Kind, name: str) -> Self:
        """An empty record."""
        return cls(_library.ask_handle("wyn_record_new", kind, text_in(name)))

    @classmethod
    def load(cls, path: PathLike) -> Self:
        """Reads the file of an item.

        Raises:
            MissingFileError, FileAccessError: It can't be read.
            RecordError: It holds no record.
        """
        return cls(_library.ask_handle("wyn_record_load", _library.path_in(path)))

    @classmethod
    def parse(cls, xml: str) -> Self:
        """Reads XML text, as `GetDatasetSessionData` gives it.

        Raises:
            RecordError: It holds no record.
        """
        return cls(_library.ask_handle("wyn_record_parse", text_in(xml)))

    @property
    def type(self) -> str:
        """ "MORAM" of a session, "PARTFORMAT" of a part format."""
        return _library.ask_text("wyn_record_type", self._handle)

    @property
    def name(self) -> str:
        """The item's name."""
        return _library.ask_text("wyn_record_name", self._handle)

    @property
    def xml(self) -> str:
        """The record as XML text."""
        return _library.ask_text("wyn_record_xml", self._handle)

    def save(self, path: PathLike) -> None:
        """Writes the file of an item: at all times it is wholly the old or the new one.

        Raises:
            FileAccessError: It can't be written.
        """
        _library.call("wyn_record_save", self._handle, _library.path_in(path))

    def __getitem__(self, key: str) -> str:
        return _library.ask_text("wyn_record_get", self._handle, text_in(key))

    def __setitem__(self, key: str, value: str) -> None:
        _library.call("wyn_record_set", self._handle, text_in(key), text_in(value))

    def __delitem__(self, key: str) -> None:
        _library.call("wyn_record_remove", self._handle, text_in(key))

    def __iter__(self) -> Iterator[str]:
        return iter([row.key for row in _library.ask_rows("wyn_record_rows", self._handle)])

    def __len__(self) -> int:
        return len(_library.ask_rows("wyn_record_rows", self._handle))


class StoreFault(NamedTuple):
    """Something about an item that its user should know."""

    kind: Kind
    item: str
    """The item's name."""
    what: str
    """An English sentence about it."""


_FAULT_HEADS = {Kind.SESSION: "session ", Kind.PART_FORMAT: "part format "}


def _fault(row: _library.Row) -> StoreFault:
    kind = Kind.SESSION if row.key.startswith(_FAULT_HEADS[Kind.SESSION]) else Kind.PART_FORMAT
    return StoreFault(kind, row.key.removeprefix(_FAULT_HEADS[kind]), row.text)


class Store(Handle):
    """A store. It keeps nothing: each call looks at the disk, and raises `FileAccessError` when the
    disk fails it. Names are compared without regard to case."""

    def __init__(self, root: PathLike) -> None:
        """
        Args:
            root: As for `init`. Nothing is made there.
        """
        super().__init__(_library.ask_handle("wyn_store_open", _library.root_in(root)))

    @property
    def is_made(self) -> bool:
        """Whether both folders are there with their catalogues."""
        return _library.ask_bool("wyn_store_is_made", self._handle)

    def names(self, kind: Kind) -> list[str]:
        """The names of all items of a kind, in their order."""
        return _library.ask_texts("wyn_store_names", self._handle, kind)

    def has(self, kind: Kind, name: str) -> bool:
        """Whether there is an item of this name."""
        return _library.ask_bool("wyn_store_has", self._handle, kind, text_in(name))

    def path(self, kind: Kind, name: str) -> str:
        """Where an item lies, or would be saved."""
        return _library.ask_text("wyn_store_path", self._handle, kind, text_in(name))

    def read(self, kind: Kind, name: str) -> Record:
        """Reads an item.

        Raises:
            MissingFileError: There is none.
            RecordError: Its file holds no record.
        """
        return Record(_library.ask_handle("wyn_store_read", self._handle, kind, text_in(name)))

    def sessions_with(self, part_format: str) -> list[str]:
        """The sessions that have a part format."""
        return _library.ask_texts("wyn_store_sessions_with", self._handle, text_in(part_format))

    def check(self) -> list[StoreFault]:
        """What is not as it should be, sessions first."""
        return [_fault(row) for row in _library.ask_rows("wyn_store_check", self._handle)]

    def save(self, *records: Record) -> None:
        """Writes records in place of the items that have their names: all of them or, after a
        failure, none.

        Raises:
            CallError: One is neither a session nor a part format, or has a name that `is_item_name`
                refuses, or that another one of them has. Nothing was written.
        """
        handles = (ctypes.c_void_p * len(records))(*(record._handle for record in records))
        _library.call("wyn_store_save", self._handle, handles, len(records))

    def rename(self, part_format: str, new_name: str) -> list[str]:
        """Gives a part format another name, in all sessions too; all of it comes about or nothing.

        Returns:
            The sessions that have it.

        Raises:
            MissingFileError: There is none.
            DuplicateKeyError: The name is taken.
            CallError: `is_item_name` refuses the name.
            RecordError: A session can't be read.
        """
        return _library.ask_texts(
            "wyn_store_rename", self._handle, text_in(part_format), text_in(new_name)
        )

    def deleted_names(self, kind: Kind) -> list[str]:
        """The names of the deleted items of a kind."""
        return _library.ask_texts("wyn_store_deleted_names", self._handle, kind)

    def move_to_deleted(self, kind: Kind, name: str) -> None:
        """Moves an item into the folder of the deleted ones. What refers to it stays as it is.

        Raises:
            MissingFileError: There is none.
        """
        _library.call("wyn_store_move_to_deleted", self._handle, kind, text_in(name))

    def restore(self, kind: Kind, name: str) -> None:
        """Moves a deleted item back.

        Raises:
            MissingFileError: There is none.
            DuplicateKeyError: The store has an item of this name.
        """
        _library.call("wyn_store_restore", self._handle, kind, text_in(name))
