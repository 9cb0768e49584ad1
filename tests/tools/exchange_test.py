"""The commands that carry sessions from one store to another: export, import, migrate."""

import json
import os
import unittest

from tool_test_case import (CLEAN, FINDINGS, USAGE, ToolTestCase, formats, record, session_values,
                            sessions)


class ExchangeTestCase(ToolTestCase):
    """A store to take from beside the one to bring to."""

    def setUp(self):
        super().setUp()
        self.source = self.new_store("source")
        self.source.put_format("CSV", Header="a\tb\n", MaxRecords="7")
        self.source.put_format("ÄRGER", Header="_x001B_")
        self.source.put_format("UNUSED")
        self.source.put_session("DESK", "CSV", PartFormat="ärger")
        self.source.put_session("Bench", "csv")
        self.file = os.path.join(self.folder, "items.json")

    def export(self, *names, code=CLEAN):
        """Exports from the source."""
        return self.ask("export", *names, "--to", self.file, code=code, store=self.source)

    def write(self, content):
        with open(self.file, "w", encoding="utf-8") as file:
            file.write(content if isinstance(content, str) else json.dumps(content))

    def exported(self):
        with open(self.file, encoding="utf-8") as file:
            return json.load(file)


class Exporting(ExchangeTestCase):
    """export."""

    def test_writes_sessions_with_their_part_formats(self):
        before = self.source.files()
        self.assertEqual(self.export("desk"), {
            "file": self.file, "items": sessions("DESK") + formats("CSV", "ÄRGER"), "missing": []})
        content = self.exported()
        self.assertEqual((content["wynconfig"], content["version"]), ("items", 1))
        self.assertEqual(content["sessions"], [
            {"name": "DESK", "xml": self.source.read("MORAM", "DESK.vla")}])
        self.assertEqual([each["name"] for each in content["formats"]], ["CSV", "ÄRGER"])
        self.assertEqual(self.source.files(), before)

    def test_takes_all_sessions_where_none_is_named(self):
        told = self.say("export", "--to", self.file, store=self.source)
        self.assertEqual(told, "session:Bench\nformat:CSV\nsession:DESK\nformat:ÄRGER\n")

    def test_takes_names_as_they_are(self):
        for name in ["session:[DESK]", "{}", "../MORAM/DESK", "", "CSV", "format:CSV"]:
            self.assertIn("There is no item",
                          self.refuse("export", name, "--to", self.file, store=self.source))
        self.source.put_session("[A,B]")
        self.assertEqual(self.export("DESK", "session:[A,B]", "desk")["items"],
                         sessions("DESK") + formats("CSV", "ÄRGER") + sessions("[A,B]"))
        self.refuse("export", "DESK", code=USAGE)

    def test_tells_part_formats_that_are_not_there(self):
        self.source.put_session("DESK", "CSV", "GONE")
        told = self.export("DESK", code=FINDINGS)
        self.assertEqual(told["missing"], [{"session": "DESK", "format": "GONE"}])
        self.assertEqual(told["items"], sessions("DESK") + formats("CSV"))
        ended = self.tool("export", "--to", self.file, store=self.source)
        self.assertEqual(ended.returncode, FINDINGS)
        self.assertIn('"GONE", which is not there', ended.stderr)

    def test_gives_a_record_the_name_of_its_file(self):
        self.source.put("session", "DESK", session_values(), "OTHER")
        self.export("DESK")
        self.assertEqual(self.exported()["sessions"][0]["name"], "DESK")
        self.assertIn('name="DESK"', self.exported()["sessions"][0]["xml"])

    def test_leaves_the_old_file_when_it_fails(self):
        self.write("old")
        self.source.write("no record", "PARTFORMAT", "CSV.vla")
        self.assertIn("holds no record",
                      self.refuse("export", "--to", self.file, store=self.source))
        self.source.put("session", "DESK", {}, "DESK")
        self.source.write(record("format", "DESK", {}), "MORAM", "DESK.vla")
        self.assertIn('of the type "PARTFORMAT"',
                      self.refuse("export", "DESK", "--to", self.file, store=self.source))
        with open(self.file, encoding="utf-8") as file:
            self.assertEqual(file.read(), "old")

    def test_leaves_the_files_beside_it_alone(self):
        for end in (".part", ".new", "~"):
            with open(self.file + end, "w", encoding="utf-8") as file:
                file.write("the user's own")
        self.export("DESK")
        self.assertEqual(self.exported()["sessions"][0]["name"], "DESK")
        for end in (".part", ".new", "~"):
            with open(self.file + end, encoding="utf-8") as file:
                self.assertEqual(file.read(), "the user's own")

    def test_refuses_a_file_that_cant_be_written(self):
        for path in [self.folder, os.path.join(self.folder, "none", "x"), "/dev/full"]:
            self.assertIn("can't be written",
                          self.refuse("export", "--to", path, store=self.source))
        self.assertEqual(sorted(os.listdir(self.folder)), ["source", "store"])
        told = self.tool("export", "DESK", "--to", "/dev/stdout", store=self.source).stdout
        self.assertTrue(told.startswith('{\n  "wynconfig": "items"'), told)


class Importing(ExchangeTestCase):
    """import."""

    def test_brings_everything_over(self):
        self.export()
        self.assertEqual(self.ask("import", self.file), {
            "dryRun": False, "imported": True,
            "new": sessions("Bench", "DESK") + formats("CSV", "ÄRGER"),
            "replaced": [], "unchanged": [], "conflicts": []})
        self.assertEqual(self.say("list"), "session:BENCH\nsession:DESK\nformat:CSV\nformat:ÄRGER\n")
        for kind, name in [("session", "DESK"), ("format", "CSV"), ("format", "ÄRGER")]:
            with open(self.store.file_of(kind, name), "rb") as new, \
                    open(self.source.file_of(kind, name), "rb") as old:
                self.assertEqual(new.read(), old.read())
        self.assertEqual(self.say("check"), "")

    def test_changes_nothing_the_second_time(self):
        self.export()
        self.say("import", self.file)
        before = self.store.files()
        self.assertEqual(self.say("import", self.file),
                         "unchanged session:Bench\nunchanged session:DESK\n"
                         "unchanged format:CSV\nunchanged format:ÄRGER\n")
        self.assertEqual(self.store.files(), before)

    def test_refuses_all_of_it_for_one_conflict(self):
        self.export()
        self.store.put_format("csv", MaxRecords="8")
        before = self.store.files()
        refused = {"dryRun": False, "imported": False,
                   "new": sessions("Bench", "DESK") + formats("ÄRGER"), "replaced": [],
                   "unchanged": [], "conflicts": formats("CSV")}
        self.assertEqual(self.ask("import", self.file, code=FINDINGS), refused)
        self.assertEqual(self.ask("import", "--dry-run", self.file, code=FINDINGS),
                         refused | {"dryRun": True})
        ended = self.tool("import", self.file)
        self.assertEqual(ended.returncode, FINDINGS)
        self.assertIn("conflict format:CSV\n", ended.stdout)
        self.assertIn("Nothing was imported", ended.stderr)
        self.assertEqual(self.store.files(), before)

    def test_writes_nothing_in_a_dry_run(self):
        self.export("BENCH")
        before = self.store.files()
        self.assertEqual(self.say("import", self.file, "--dry-run"),
                         "new session:Bench\nnew format:CSV\n")
        self.assertEqual(self.store.files(), before)

    def test_replaces_where_it_is_told_to(self):
        self.export("BENCH")
        self.store.put_format("Csv", MaxRecords="8")
        self.store.write("no record", "MORAM", "BENCH.vla")
        dry = self.ask("import", self.file, "--replace", "--dry-run")
        self.assertEqual(dry["replaced"], sessions("Bench") + formats("CSV"))
        self.assertEqual(self.say("import", "--replace", self.file),
                         "replaced session:Bench\nreplaced format:CSV\n")
        self.assertEqual(self.ask("show", "csv")["values"]["MaxRecords"], "7")
        self.assertEqual(self.say("list", "formats"), "Csv\n")
        self.assertEqual(self.say("check"), "")

    def test_leaves_the_store_as_it_was_when_it_fails_in_the_middle(self):
        self.export()
        self.store.put_format("KEPT")
        self.store.block("session", "DESK")
        self.assertIn("can't be written", self.refuse("import", self.file))
        os.rmdir(self.store.file_of("session", "DESK"))
        self.store.block("format", "ÄRGER")
        self.assertIn("can't be written", self.refuse("import", self.file, "--replace"))

    def test_refuses_where_no_store_is(self):
        self.export()
        os.remove(self.store.at("PARTFORMAT", "PARTFORMAT.vls"))
        os.rmdir(self.store.at("PARTFORMAT"))
        self.assertIn("There is no store", self.refuse("import", self.file))
        self.assertIn("can't be read", self.refuse("import", "none.json", store=self.source))
        self.assertIn("can't be read", self.refuse("import", self.folder, store=self.source))

    def test_refuses_files_of_another_form(self):
        self.export("BENCH")
        good = self.exported()
        session = good["sessions"][0]
        cases = [
            ("", "no JSON"), ("{", "no JSON"), ("[" * 100000, "no JSON"), ([], "not marked"),
            ({}, "not marked"), (good | {"wynconfig": 1}, "not marked"),
            (good | {"version": 2}, "version"), (good | {"sessions": {}}, "no list of sessions"),
            ({key: good[key] for key in ["wynconfig", "version", "sessions"]},
             "no list of formats"),
            (good | {"sessions": ["x"]}, "no name, or no XML"),
            (good | {"sessions": [{"name": "A", "xml": 1}]}, "no name, or no XML"),
            (good | {"sessions": [session | {"xml": "<a>"}]}, "not well-formed XML"),
            (good | {"sessions": [session | {"xml": "<a/>"}]}, "holds no record"),
            (good | {"sessions": [session | {"name": "OTHER"}]}, 'the name "Bench" in its XML'),
            (good | {"sessions": [session, session]}, "is there twice"),
            (good | {"formats": good["sessions"]}, 'of the type "MORAM"'),
        ]
        for name in ["../x", "..\\x", "a.b", "", "12"]:
            evil = {"name": name, "xml": record("session", name, session_values())}
            cases.append((good | {"sessions": [evil]}, "can't have that name"))
        for content, cause in cases:
            self.write(content)
            self.assertIn(cause, self.refuse("import", self.file))
            self.assertIn(cause, self.refuse("import", "--dry-run", self.file))
        self.assertEqual(sorted(os.listdir(self.folder)), ["items.json", "source", "store"])


class Migrating(ExchangeTestCase):
    """migrate."""

    def test_takes_sessions_over_and_reports_each(self):
        before = self.source.files()
        self.assertEqual(self.ask("migrate", self.source.path, "--all"), {
            "dryRun": False, "sessions": [
                {"name": "Bench", "result": "migrated",
                 "new": sessions("Bench") + formats("CSV"), "replaced": [], "unchanged": [],
                 "conflicts": [], "missing": []},
                {"name": "DESK", "result": "migrated",
                 "new": sessions("DESK") + formats("ÄRGER"), "replaced": [],
                 "unchanged": formats("CSV"), "conflicts": [], "missing": []}]})
        self.assertEqual(self.say("check"), "")
        self.assertEqual(self.say("list", "formats"), "CSV\nÄRGER\n")
        self.assertEqual(self.say("migrate", self.source.path + "/", "desk", "bench"),
                         "unchanged session:DESK\nunchanged session:Bench\n")
        self.assertEqual(self.source.files(), before)

    def test_reports_conflicts_and_overwrites_nothing(self):
        self.store.put_format("Ärger", Header="mine")
        before = self.store.files()
        self.assertEqual(self.say("migrate", self.source.path, "DESK", code=FINDINGS),
                         "conflict session:DESK: format:ÄRGER\n")
        self.assertEqual(self.store.files(), before)
        told = self.ask("migrate", self.source.path, "--all", code=FINDINGS)["sessions"]
        self.assertEqual([(each["name"], each["result"], each["conflicts"]) for each in told],
                         [("Bench", "migrated", []), ("DESK", "conflict", formats("ÄRGER"))])
        self.assertFalse(self.ask("list", "sessions")["items"][1:])
        told = self.ask("migrate", self.source.path, "DESK", "--replace")["sessions"]
        self.assertEqual(told[0]["replaced"], formats("ÄRGER"))
        self.assertEqual(self.ask("show", "format:Ärger")["values"]["Header"], "\x1b")

    def test_writes_nothing_in_a_dry_run(self):
        before = self.store.files()
        told = self.ask("migrate", self.source.path, "--all", "--dry-run")
        self.assertEqual((told["dryRun"], [each["result"] for each in told["sessions"]]),
                         (True, ["migrated", "migrated"]))
        self.assertEqual(self.store.files(), before)

    def test_goes_on_behind_a_session_that_fails(self):
        self.source.write("no record", "MORAM", "A.vla")
        self.store.block("session", "BENCH")
        told = self.ask("migrate", self.source.path, "--all", code=3)["sessions"]
        self.assertEqual([(each["name"], each["result"]) for each in told],
                         [("A", "failed"), ("Bench", "failed"), ("DESK", "migrated")])
        self.assertIn("holds no record", told[0]["message"])
        self.assertIn("can't be written", told[1]["message"])
        line = self.say("migrate", self.source.path, "A", code=3)
        self.assertTrue(line.startswith("failed session:A: The file "), line)
        self.assertEqual(self.say("list"), "session:DESK\nformat:CSV\nformat:ÄRGER\n")

    def test_tells_part_formats_that_are_not_there(self):
        self.source.put_session("DESK", "CSV", "GONE")
        told = self.ask("migrate", self.source.path, "DESK", code=FINDINGS)["sessions"]
        self.assertEqual((told[0]["result"], told[0]["missing"]), ("migrated", ["GONE"]))
        self.assertEqual(self.say("migrate", self.source.path, "DESK", code=FINDINGS),
                         "unchanged session:DESK: (format:GONE is not there)\n")

    def test_asks_for_sessions_or_all_of_them(self):
        self.refuse("migrate", self.source.path, code=USAGE)
        self.refuse("migrate", self.source.path, "DESK", "--all", code=USAGE)
        self.refuse("migrate", code=USAGE)
        self.assertIn("There is no item", self.refuse("migrate", self.source.path, "DESK", "X"))
        self.assertIn("There is no store in nowhere/",
                      self.refuse("migrate", "nowhere", "--all"))
        ended = self.tool("migrate", self.source.path, "--all", "--progress")
        self.assertEqual(ended.stderr.splitlines()[-1], "migrating: 2 of 2")


if __name__ == "__main__":
    unittest.main()
