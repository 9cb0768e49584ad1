"""A desk for each test: texts in English, a store, and in the end nothing installed."""

import os
import sys
from pathlib import Path

import pytest

import wynconfig
from wynconfig import Kind, Record, Store
from wynconfig.keys import part_format, session

SOURCE = Path(os.environ.get("WYNCONFIG_SOURCE", Path(__file__).parents[3]))


@pytest.fixture(autouse=True)
def nothing_installed():
    """Nothing of a test is left for the next one."""
    yield
    wynconfig.install_view(None)
    wynconfig.install_observer(None)


@pytest.fixture
def root(tmp_path):
    """The root of a store that was made."""
    folder = tmp_path / "store"
    folder.mkdir()
    wynconfig.use_bundle(locale="en")
    wynconfig.init(folder)
    wynconfig.showAddMORAMConfigDlg()  # cancelled without a view; ends the in-memory mode
    return folder


@pytest.fixture
def store(root):
    """A store with the part format CSV and the session BENCH, whose program is there."""
    program = root / "program"
    program.touch()
    with Store(root) as made:
        put_format(made, "CSV")
        put_session(made, "BENCH", program, ["CSV"])
        yield made


@pytest.fixture
def user(store):
    """A person in front of the view without a screen; finishes with the test."""
    with wynconfig.install_scripted_view() as person:
        yield person


def put_format(store, name):
    """Saves a part format."""
    with Record.new(Kind.PART_FORMAT, name) as record:
        record[part_format.HEADER] = f"head of {name}"
        record[part_format.MAX_RECORDS] = "10"
        store.save(record)


def put_session(store, name, program, formats):
    """Saves a session."""
    with Record.new(Kind.SESSION, name) as record:
        record[session.PROGRAM_PATH] = str(program)
        record[session.COMMAND_LINE_ARGS] = "/list"
        record[session.FORMAT_COUNT] = str(len(formats))
        for number, each in enumerate(formats, 1):
            record[session.format_key(number)] = each
        store.save(record)


def value_of(store, name, key):
    """A value of a stored session."""
    with store.read(Kind.SESSION, name) as record:
        return record[key]


@pytest.fixture(scope="session")
def screen():
    """Where the desktop view shows its windows: on a desktop of its own where DESKTOP_KIT has the
    means for one, else on no screen at all."""
    kit = os.environ.get("DESKTOP_KIT")
    if not kit:
        os.environ.setdefault("QT_QPA_PLATFORM", "offscreen")
        return
    sys.path.insert(0, kit)
    from desktop import Desktop

    Desktop()  # goes with this process, as the windows' connection to it does
