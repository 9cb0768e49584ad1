"""What the tests of the administrator's program share: stores in a temporary folder, written by hand
in the stored form, and the program at its command line."""

import json
import os
import subprocess
import tempfile
import unittest
from xml.sax.saxutils import escape, quoteattr

TOOL = os.environ["WYNCONFIG_TOOL"]
FOLDERS = {"session": "MORAM", "format": "PARTFORMAT"}
CLEAN, FINDINGS, USAGE, FAILED = range(4)


def record(kind, name, values):
    """The text of an item's file."""
    rows = "".join(f"  <row key={quoteattr(key)}" + (f">{escape(value)}</row>\n" if value else "/>\n")
                   for key, value in values.items())
    return (f'<?xml version="1.0" encoding="UTF-8"?>\n<dataset version="1" type="{FOLDERS[kind]}" '
            f'name={quoteattr(name)} key="Element">\n  <column>Element</column>\n'
            f"  <column>Data</column>\n{rows}</dataset>\n")


def session_values(*formats, **changed):
    """A session that launches nothing, and so lacks no program."""
    values = {"ProgramPath": "", "DisableProgramLaunch": "true", "FormatCount": str(len(formats))}
    values |= {f"FORMAT{number}": name for number, name in enumerate(formats, 1)}
    return values | {"PartFormat": "<NONE>"} | changed


def sessions(*names):
    """Sessions as JSON lists them."""
    return [{"kind": "session", "name": name} for name in names]


def formats(*names):
    """Part formats as JSON lists them."""
    return [{"kind": "format", "name": name} for name in names]


class Folder:
    """A folder whose files a test may compare to the byte."""

    def __init__(self, path):
        self.path = path

    def at(self, *parts):
        return os.path.join(self.path, *parts)

    def files(self):
        """Every file's bytes, and None for every folder, by path."""
        found = {}
        for folder, folders, names in os.walk(self.path):
            for name in folders:
                found[os.path.join(folder, name)] = None
            for name in names:
                path = os.path.join(folder, name)
                with open(path, "rb") as file:
                    found[path] = file.read()
        return found


class Store(Folder):
    """A store that is made, and empty."""

    def __init__(self, path):
        super().__init__(path)
        for name in FOLDERS.values():
            os.makedirs(self.at(name))
            self.write(record("session", name, {}), name, f"{name}.vls")

    def write(self, text, *parts):
        with open(self.at(*parts), "w", encoding="utf-8") as file:
            file.write(text)

    def read(self, *parts):
        with open(self.at(*parts), encoding="utf-8") as file:
            return file.read()

    def file_of(self, kind, name):
        return self.at(FOLDERS[kind], f"{name}.vla")

    def put(self, kind, name, values=None, stored_name=None):
        text = record(kind, name if stored_name is None else stored_name, values or {})
        self.write(text, FOLDERS[kind], f"{name}.vla")

    def put_session(self, name, *formats, **changed):
        self.put("session", name, session_values(*formats, **changed))

    def put_format(self, name, **values):
        self.put("format", name, values)

    def block(self, kind, name):
        """Puts a folder where an item's file would lie, so that it can't be saved."""
        os.mkdir(self.file_of(kind, name))


class ToolTestCase(unittest.TestCase):
    """Each test has a store, and a folder around it."""

    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.store = self.new_store("store")

    def new_store(self, name):
        return Store(os.path.join(self.folder, name))

    def tool(self, *arguments, store=None, environment=None):
        """Runs the program on the store, and returns how it ended."""
        root = (store or self.store).path
        variables = {**os.environ, "WYNCONFIG_STORE": root} if environment is None else environment
        return subprocess.run([TOOL, *arguments], capture_output=True, text=True, check=False,
                              cwd=self.folder, env=variables, timeout=60)

    def say(self, *arguments, code=CLEAN, store=None):
        """What the program prints for a person."""
        ended = self.tool(*arguments, store=store)
        self.assertEqual(ended.returncode, code, ended.stdout + ended.stderr)
        self.assertEqual(ended.stderr, "")
        return ended.stdout

    def ask(self, *arguments, code=CLEAN, store=None):
        """What the program answers in JSON, and nothing beside it."""
        ended = self.tool(*arguments, "--json", store=store)
        self.assertEqual(ended.returncode, code, ended.stdout + ended.stderr)
        self.assertEqual(ended.stderr, "")
        return json.loads(ended.stdout)

    def refuse(self, *arguments, code=FAILED, store=None):
        """The sentence with which the program refuses, alike for a person and in JSON; nothing is
        written meanwhile."""
        before = (store or self.store).files()
        ended = self.tool(*arguments, store=store)
        self.assertEqual((ended.returncode, ended.stdout), (code, ""), ended.stderr)
        error = self.ask(*arguments, code=code, store=store)["error"]
        self.assertEqual(ended.stderr, f"wynconfig: {error['message']}\n")
        self.assertEqual(error["kind"], "usage" if code == USAGE else "failure")
        self.assertEqual((store or self.store).files(), before)
        return error["message"]
