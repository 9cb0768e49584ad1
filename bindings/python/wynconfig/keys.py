"""The keys and the words of the two records. What each holds is told in keys.h."""

from __future__ import annotations

from typing import NamedTuple


class words:
    """The words that are the values of some keys."""

    TRUE = "true"
    FALSE = "false"
    CONTAINS = "contains"
    STARTS_WITH = "starts with"
    MATCHES = "matches"
    TOP = "top"
    BOTTOM = "bottom"
    RIGHT = "right"
    LEFT = "left"
    APPEND = "Append"
    OVER_WRITE = "OverWrite"


class session:
    """The keys of a session."""

    PROGRAM_PATH = "ProgramPath"
    COMMAND_LINE_ARGS = "CommandLineArgs"
    REVERSE_LIST = "ReverseList"
    AUTO_RESIZE = "AutoResize"
    ORIENTATION = "Orientation"
    FORMAT_COUNT = "FormatCount"
    FORMAT_PREFIX = "FORMAT"
    """What the keys of the part formats begin with, see `format_key`."""
    WINDOW_TITLE_SEARCH_TYPE = "WindowTitleSearchType"
    WINDOW_CLASS_SEARCH_TYPE = "WindowClassSearchType"
    WINDOW_TITLE = "WindowTitle"
    WINDOW_CLASS = "WindowClass"
    DISABLE_PROGRAM_LAUNCH = "DisableProgramLaunch"
    WINDOW_TITLE_CLASS_DELAY = "WindowTitleClassDelay"
    PROGRAM_LAUNCH_DELAY = "ProgramLaunchDelay"
    WINDOW_TITLE_CASE_SENSITIVE = "WindowTitleCaseSensitive"
    WINDOW_CLASS_CASE_SENSITIVE = "WindowClassCaseSensitive"
    PART_FORMAT = "PartFormat"
    FILE_NAME = "FileName"
    FILE_FOLDER = "FileFolder"
    FILE_ACTION = "FileAction"
    WRITE_FILE_ONLY = "WriteFileOnly"

    @staticmethod
    def format_key(number: int) -> str:
        """Key of one of the session's part formats.

        Args:
            number: From 1 to the number of `FORMAT_COUNT`.
        """
        return f"{session.FORMAT_PREFIX}{number}"


class FieldKeys(NamedTuple):
    """The keys of one field's settings."""

    flag: str
    length: str
    alignment: str
    pad: str


class part_format:
    """The keys of a part format."""

    HEADER = "Header"
    RECORD = "Record"
    SEPARATOR = "Separator"
    TRAILER = "Trailer"
    PART = FieldKeys("FormatPartNumber", "PartFieldLength", "PartAlignment", "PartPadCharacter")
    QTY = FieldKeys("FormatQty", "QtyFieldLength", "QtyAlignment", "QtyPadCharacter")
    DESC = FieldKeys("FormatDesc", "DescFieldLength", "DescAlignment", "DescPadCharacter")
    VIN = FieldKeys("FormatVIN", "VINFieldLength", "VINAlignment", "VINPadCharacter")
    MAX_RECORDS = "MaxRecords"
