"""The files of a store, read as any other program would read them."""

import os
import subprocess
import xml.etree.ElementTree as ElementTree


class Store:
    """A store's folder."""

    def __init__(self, folder):
        self.folder = folder

    def path(self, *parts):
        """A path below the folder."""
        return os.path.join(self.folder, *parts)

    def session(self, name):
        """The rows of a session, data by key."""
        return self._rows("MORAM", f"{name}.vla")

    def sessions(self):
        """The rows of all sessions by their names."""
        return {name: self.session(name) for name in self._names("MORAM")}

    def formats(self):
        """The names of the part formats."""
        return self._names("PARTFORMAT")

    def part_format(self, name):
        """The rows of a part format, data by key."""
        return self._rows("PARTFORMAT", f"{name}.vla")

    def deleted_format(self, name):
        """The rows of a part format that was deleted."""
        return self._rows("PARTFORMAT", "deleted", f"{name}.vla")

    def files(self):
        """The lines of every file, to the byte, by its path below the folder."""
        found = {}
        for folder, _, names in os.walk(self.folder):
            for name in names:
                path = os.path.join(folder, name)
                with open(path, "rb") as file:
                    found[os.path.relpath(path, self.folder)] = file.read().splitlines(True)
        return found

    def check(self, schema):
        """Raises AssertionError unless each record is in the stored form."""
        records = [self.path(name) for name in self.files() if name.endswith((".vla", ".vls"))]
        judged = subprocess.run(["xmllint", "--noout", "--schema", schema, *records],
                                capture_output=True, text=True, check=False)
        if judged.returncode != 0:
            raise AssertionError(judged.stderr)

    def _names(self, folder):
        files = os.listdir(self.path(folder))
        return sorted(name[:-4] for name in files if name.endswith(".vla"))

    def _rows(self, *parts):
        root = ElementTree.parse(self.path(*parts)).getroot()
        name = os.path.splitext(parts[-1])[0]
        if root.get("name") != name:
            raise AssertionError(f'the record in {name} has the name "{root.get("name")}"')
        return {row.get("key"): row.text or "" for row in root.iter("row")}


def formats_of(rows):
    """The part formats that a session's rows name, in their order."""
    return [rows[f"FORMAT{number + 1}"] for number in range(int(rows["FormatCount"]))]
