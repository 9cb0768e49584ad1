"""The commands that make a store and change its items: init, rename, delete, deleted, restore."""

import os
import subprocess
import time
import unittest

from tool_test_case import CLEAN, FAILED, TOOL, USAGE, Folder, ToolTestCase, session_values


class Making(ToolTestCase):
    """init."""

    def test_makes_a_store_that_is_clean_and_leaves_it_then(self):
        root = os.path.join(self.folder, "new")
        made = Folder(root)
        self.assertEqual(self.ask("init", store=made), {"store": root + "/"})
        self.assertEqual(sorted(os.path.relpath(path, root) for path in made.files()),
                         ["MORAM", "MORAM/MORAM.vls", "PARTFORMAT", "PARTFORMAT/PARTFORMAT.vls"])
        before = made.files()
        self.assertEqual(self.say("init", store=made), "")
        self.assertEqual(self.say("check", store=made), "")
        self.assertEqual(made.files(), before)

    def test_refuses_a_root_that_is_not_there_or_in_the_way(self):
        self.assertIn("its folder is not there", self.refuse("--store", "none/where", "init"))
        os.mkdir(os.path.join(self.folder, "taken"))
        with open(os.path.join(self.folder, "taken", "MORAM"), "w", encoding="utf-8"):
            pass
        self.assertIn("Not a directory", self.refuse("--store", "taken", "init"))


class Renaming(ToolTestCase):
    """rename."""

    def test_carries_the_name_through_many_sessions(self):
        self.store.put_format("CSV", MaxRecords="7")
        self.store.put_format("TSV")
        for number in range(300):
            self.store.put_session(f"S{number:03}", "TSV", "CSV" if number % 3 else "Csv",
                                   PartFormat="csv" if number % 2 else "TSV")
        self.store.put_session("OTHER", "TSV")
        other = self.store.read("MORAM", "OTHER.vla")
        renamed = [f"S{number:03}" for number in range(300)]
        self.assertEqual(self.ask("rename", "csv", "Ärger 1"),
                         {"format": "CSV", "newName": "ÄRGER 1", "sessions": renamed})
        self.assertEqual(self.say("list", "formats"), "TSV\nÄRGER 1\n")
        self.assertEqual(self.ask("refs", "CSV", code=FAILED)["error"]["number"], 53)
        self.assertEqual(self.ask("refs", "ÄRGER 1")["sessions"], renamed)
        for number in [0, 1, 299]:
            shown = self.ask("show", f"S{number:03}")["values"]
            self.assertEqual(shown, session_values(
                "TSV", "ÄRGER 1", PartFormat="ÄRGER 1" if number % 2 else "TSV"))
        shown = self.ask("show", "format:ärger 1")
        self.assertEqual((shown["storedName"], shown["values"]), ("ÄRGER 1", {"MaxRecords": "7"}))
        self.assertEqual(self.store.read("MORAM", "OTHER.vla"), other)
        self.assertEqual(self.say("check"), "")

    def test_lists_the_sessions_for_a_person(self):
        self.store.put_format("CSV")
        self.store.put_session("A", "CSV")
        self.store.put_session("B", "CSV")
        ended = self.tool("rename", "CSV", "TSV", "--progress")
        self.assertEqual((ended.returncode, ended.stdout), (CLEAN, "A\nB\n"))
        self.assertEqual(ended.stderr.splitlines()[-1], "renaming: 2 of 2")

    def test_refuses_names_that_are_taken_or_none(self):
        self.store.put_format("CSV")
        self.store.put_format("Tsv")
        self.store.put_session("A", "CSV")
        for name in ["TSV", "csv", "CSV"]:
            self.assertIn("is there already", self.refuse("rename", "CSV", name))
        for name in ["../x", "..\\x", "..", "a/b", "a.b", "a:b", "", " ", "12", "a*"]:
            self.assertIn("can't have the name", self.refuse("rename", "CSV", name))
        self.refuse("rename", "CSV", "A" * 300)
        for name in ["NONE", "../CSV", ""]:
            self.assertIn("was not found", self.refuse("rename", name, "NEW"))
        self.refuse("rename", "CSV", code=USAGE)

    def test_leaves_a_sound_store_wherever_it_is_killed(self):
        self.store.put_format("CSV")
        for number in range(100):
            self.store.put_session(f"S{number:03}", "CSV", PartFormat="CSV")
        environment = {**os.environ, "WYNCONFIG_STORE": self.store.path}
        for delay in range(0, 60, 12):
            with subprocess.Popen([TOOL, "rename", "CSV", "TSV"], env=environment,
                                  stdout=subprocess.DEVNULL) as renaming:
                time.sleep(delay / 1000)
                renaming.kill()
            self.assertEqual(self.say("check"), "", delay)
            formats = self.say("list", "formats").split()
            if formats == ["CSV", "TSV"]:
                self.say("delete", "--force", "TSV")
            if "CSV" in formats:
                self.say("rename", "CSV", "TSV")
            self.assertEqual(self.say("check") + self.say("list", "formats"), "TSV\n")
            self.assertEqual(len(self.ask("refs", "TSV")["sessions"]), 100)
            self.say("rename", "TSV", "CSV")

    def test_changes_nothing_when_a_file_cant_be_read_or_written(self):
        self.store.put_format("CSV")
        for name in "AB":
            self.store.put_session(name, "CSV")
        self.store.block("format", "NEW")
        self.assertIn("can't be written", self.refuse("rename", "CSV", "NEW"))
        self.store.write("<dataset>\n<row>", "MORAM", "C.vla")
        self.assertIn("holds no record", self.refuse("rename", "CSV", "OTHER"))


class Deleting(ToolTestCase):
    """delete, deleted and restore."""

    def test_deletes_and_brings_back(self):
        self.store.put_session("DESK")
        before = self.store.files()
        self.assertEqual(self.ask("delete", "desk"),
                         {"deleted": {"kind": "session", "name": "DESK"}})
        self.assertEqual(self.say("list"), "")
        self.assertEqual(self.say("deleted"), "session:DESK\n")
        self.assertEqual(self.ask("deleted"), {"items": [{"kind": "session", "name": "DESK"}]})
        self.assertEqual(self.ask("restore", "session:desk"),
                         {"restored": {"kind": "session", "name": "DESK"}})
        self.assertEqual(self.say("deleted"), "")
        os.rmdir(self.store.at("MORAM", "deleted"))
        self.assertEqual(self.store.files(), before)
        self.assertEqual(self.say("delete", "DESK") + self.say("restore", "DESK"), "")

    def test_deletes_what_cant_be_read(self):
        self.store.write("no record", "PARTFORMAT", "CSV.vla")
        self.say("delete", "CSV")
        self.assertEqual(self.store.read("PARTFORMAT", "deleted", "CSV.vla"), "no record")

    def test_keeps_a_part_format_that_sessions_have(self):
        self.store.put_format("CSV")
        self.store.put_session("A", "CSV")
        self.store.put_session("B", PartFormat="csv")
        self.assertIn("sessions have it: A B", self.refuse("delete", "CSV"))
        self.say("delete", "--force", "CSV")
        self.assertEqual(self.say("deleted"), "format:CSV\n")

    def test_restores_nothing_over_an_item(self):
        self.store.put_session("DESK")
        self.say("delete", "DESK")
        self.store.put_session("Desk")
        self.assertIn("is there already", self.refuse("restore", "DESK"))

    def test_refuses_what_is_not_there(self):
        self.store.write("x", "OUT.vla")
        self.store.put_session("DESK")
        for name in ["NONE", "../OUT", "..\\OUT", "format:DESK", "deleted/DESK"]:
            self.assertIn("There is no item", self.refuse("delete", name))
        for name in ["NONE", "DESK", "../DESK", "..\\..\\OUT"]:
            self.assertIn("There is no item", self.refuse("restore", name))

    def test_stays_where_it_is_when_it_cant_be_moved(self):
        self.store.put_session("DESK")
        os.makedirs(self.store.at("MORAM", "deleted", "DESK.vla"))
        self.assertIn("can't be written", self.refuse("delete", "DESK"))


if __name__ == "__main__":
    unittest.main()
