"""The commands that only look: list, show, check, refs; and the command line itself."""

import os
import re
import subprocess
import unittest

from tool_test_case import FAILED, FINDINGS, TOOL, USAGE, ToolTestCase, session_values


class Listing(ToolTestCase):
    """list and show."""

    def test_lists_both_kinds_in_their_order(self):
        self.store.put_session("DESK")
        self.store.put_session("ÄRGER")
        self.store.put_session("bench")
        self.store.put_format("CSV")
        items = [{"kind": "session", "name": name} for name in ["bench", "DESK", "ÄRGER"]]
        formats = [{"kind": "format", "name": "CSV"}]
        self.assertEqual(self.ask("list"), {"items": items + formats})
        self.assertEqual(self.ask("list", "sessions"), {"items": items})
        self.assertEqual(self.ask("list", "formats"), {"items": formats})
        self.assertEqual(self.say("list"),
                         "session:bench\nsession:DESK\nsession:ÄRGER\nformat:CSV\n")
        self.assertEqual(self.say("list", "formats"), "CSV\n")

    def test_lists_nothing_in_an_empty_store(self):
        self.assertEqual(self.say("list"), "")
        self.assertEqual(self.ask("list"), {"items": []})

    def test_shows_keys_and_values(self):
        self.store.put("format", "Csv", {"Header": "a\tb\n<TAB>", "MaxRecords": ""}, "CSV")
        self.assertEqual(self.say("show", "csv"), "Header = a\\tb\\n<TAB>\nMaxRecords = \n")
        self.assertEqual(self.ask("show", "csv"), {
            "kind": "format", "name": "Csv", "file": self.store.file_of("format", "Csv"),
            "type": "PARTFORMAT", "storedName": "CSV",
            "values": {"Header": "a\tb\n<TAB>", "MaxRecords": ""}})

    def test_shows_no_control_characters_to_a_terminal(self):
        self.store.put("format", "CSV", {"Header": "_x001B_[2J"})
        self.assertEqual(self.say("show", "CSV"), "Header = \\x1B[2J\n")
        self.assertEqual(self.ask("show", "CSV")["values"]["Header"], "\x1b[2J")

    def test_shows_the_one_of_two_kinds_that_is_meant(self):
        self.store.put_session("DESK")
        self.store.put_format("DESK", MaxRecords="3")
        self.assertIn("session:DESK", self.refuse("show", "DESK", code=USAGE))
        self.assertEqual(self.ask("show", "format:desk")["values"], {"MaxRecords": "3"})
        self.assertEqual(self.ask("show", "session:desk")["type"], "MORAM")

    def test_tells_where_the_file_lies_in_folders_of_another_case(self):
        self.store.put_session("DESK")
        os.rename(self.store.at("MORAM"), self.store.at("Moram"))
        self.assertEqual(self.ask("show", "DESK")["file"], self.store.at("Moram", "DESK.vla"))

    def test_finds_umlauts_in_any_case(self):
        self.store.put_session("ÄRGER")
        self.assertEqual(self.ask("show", "ärger")["name"], "ÄRGER")

    def test_refuses_what_is_not_there(self):
        self.store.write("x", "OUT.vla")
        for name in ["NONE", "../OUT", "..\\OUT", "format:NONE", ""]:
            self.assertIn("There is no item", self.refuse("show", name))

    def test_refuses_an_unreadable_file(self):
        self.store.write("<dataset>\n<row>", "MORAM", "DESK.vla")
        self.assertIn("holds no record", self.refuse("show", "DESK"))


class Checking(ToolTestCase):
    """check: each of its findings."""

    def findings(self, *expected):
        """What the check finds, as (item, cause, reason)."""
        found = self.ask("check", code=FINDINGS)["findings"]
        self.assertEqual([(f"{each['kind']}:{each['name']}", each["cause"], each["reason"])
                          for each in found], list(expected))
        lines = self.say("check", code=FINDINGS).splitlines()
        for each, line in zip(found, lines, strict=True):
            place = f"{each['file']}:{each['line']}" if "line" in each else each["file"]
            self.assertEqual(line, f"{place}: {each['kind']}:{each['name']}: {each['reason']}")
            self.assertTrue(os.path.exists(each["file"]), each["file"])
        return found

    def test_passes_a_sound_store(self):
        self.store.put_format("CSV", MaxRecords="3")
        self.store.put_session("DESK", "CSV", PartFormat="csv")
        self.assertEqual(self.say("check"), "")
        self.assertEqual(self.ask("check"), {"findings": []})

    def test_tells_the_line_of_a_file_that_is_no_xml(self):
        self.store.write("<dataset>\n<row key='a'>\n</dataset>", "MORAM", "DESK.vla")
        found = self.ask("check", code=FINDINGS)["findings"]
        self.assertEqual((found[0]["cause"], found[0]["line"]), ("unreadable", 3))
        path = self.store.file_of("session", "DESK")
        self.assertIn(f"{path}:3: session:DESK: The file ", self.say("check", code=FINDINGS))

    def test_tells_an_xml_file_that_is_no_record(self):
        self.store.write("<other/>", "PARTFORMAT", "CSV.vla")
        found = self.ask("check", code=FINDINGS)["findings"]
        self.assertEqual((found[0]["cause"], found[0].get("line")), ("unreadable", None))
        self.assertIn("its root element is not a dataset", found[0]["reason"])

    def test_tells_a_record_of_another_type(self):
        self.store.write('<dataset type="OTHER" name="CSV"/>', "PARTFORMAT", "CSV.vla")
        self.findings(("format:CSV", "wrong-type", 'It is a record of the type "OTHER".'))

    def test_tells_another_name_than_the_files(self):
        self.store.put("format", "CSV", stored_name="TSV")
        self.findings(("format:CSV", "other-name", 'It has the name "TSV", unlike its file.'))

    def test_tells_unknown_keys(self):
        self.store.put_format("CSV", Colour="red")
        self.findings(("format:CSV", "unknown-key", 'It has the unknown key "Colour".'))

    def test_tells_part_formats_that_are_miscounted_or_not_there(self):
        self.store.put_format("CSV")
        self.store.put_session("A", "CSV", FormatCount="3")
        self.store.put_session("B", "CSV", "TSV", PartFormat="XML")
        values = session_values("CSV", "CSV")
        del values["FORMAT1"]
        self.store.put("session", "C", values)
        self.findings(
            ("session:A", "format-count", 'It counts "3" part formats and names 1.'),
            ("session:B", "missing-format", 'Its part format "TSV" is not there.'),
            ("session:B", "missing-format", 'The part format "XML" of its file is not there.'),
            ("session:C", "format-count", 'It counts "2" part formats and names 1.'),
            ("session:C", "missing-key", 'It lacks the key "FORMAT1".'))

    def test_tells_a_program_that_is_not_there(self):
        program = os.path.join(self.folder, "program")
        self.store.put_session("DESK", DisableProgramLaunch="false", ProgramPath=f'"{program}"')
        self.findings(("session:DESK", "missing-program",
                       f'Its program ""{program}"" is not there.'))
        with open(program, "w", encoding="utf-8"):
            pass
        self.assertEqual(self.say("check"), "")

    def test_tells_how_far_it_has_come_where_it_is_asked_to(self):
        for name in "ABC":
            self.store.put_session(name)
        ended = self.tool("check", "--progress")
        self.assertEqual((ended.returncode, ended.stdout), (0, ""))
        self.assertEqual(ended.stderr.splitlines()[-1], "checking: 3 of 3")


    def test_tells_a_terminal_how_far_it_has_come_and_wipes_it_off(self):
        self.store.put_session("A")
        ours, terminal = os.openpty()
        with os.fdopen(ours, "rb", buffering=0) as seen:
            with os.fdopen(terminal, "wb", buffering=0) as screen:
                subprocess.run([TOOL, "--store", self.store.path, "check"], stderr=screen,
                               check=True)
                told = seen.read(1000)
        self.assertEqual(told, b"\r\x1b[Kchecking: 1 of 1\r\x1b[K")


class References(ToolTestCase):
    """refs."""

    def test_lists_the_sessions_that_have_a_format(self):
        self.store.put_format("CSV")
        self.store.put_session("A", "CSV")
        self.store.put_session("B", PartFormat="Csv")
        self.store.put_session("C", "TSV")
        self.assertEqual(self.say("refs", "csv"), "A\nB\n")
        self.assertEqual(self.ask("refs", "csv"),
                         {"format": "csv", "exists": True, "sessions": ["A", "B"]})
        self.assertEqual(self.ask("refs", "TSV"),
                         {"format": "TSV", "exists": False, "sessions": ["C"]})

    def test_refuses_a_format_that_nobody_knows(self):
        self.assertIn('There is no part format "NONE"', self.refuse("refs", "NONE"))

    def test_refuses_when_a_session_cant_be_read(self):
        self.store.put_format("CSV")
        self.store.write("no record", "MORAM", "A.vla")
        self.assertIn("holds no record", self.refuse("refs", "CSV"))


class CommandLine(ToolTestCase):
    """What is alike for all commands."""

    def test_tells_its_version(self):
        self.assertRegex(self.say("--version"), r"^wynconfig \d+\.\d+\.\d+\n$")

    def test_helps(self):
        listed = self.say("--help").partition("Subcommands:")[2]
        commands = re.findall(r"^  ([a-z]+) ", listed, re.MULTILINE)
        self.assertIn("list", commands)
        for command in commands:
            self.assertIn(f"Usage: wynconfig {command} [OPTIONS]", self.say(command, "--help"))

    def test_refuses_a_command_line_without_sense(self):
        for arguments in [[], ["dance"], ["show"], ["list", "parts"], ["list", "--loud"],
                          ["refs", "A", "B"], ["check", "extra"]]:
            self.refuse(*arguments, code=USAGE)

    def test_takes_the_store_from_the_option_before_the_environment(self):
        other = self.new_store("other")
        other.put_session("THERE")
        for arguments in [["--store", other.path, "list"], ["list", "--store", other.path + "/"],
                          ["list", f"--store={os.path.basename(other.path)}"]]:
            self.assertEqual(self.say(*arguments), "session:THERE\n")

    def test_asks_for_the_store_where_none_is_named(self):
        without = {key: value for key, value in os.environ.items() if key != "WYNCONFIG_STORE"}
        ended = self.tool("list", environment=without)
        self.assertEqual((ended.returncode, ended.stdout), (USAGE, ""))
        self.assertIn("--store", ended.stderr)

    def test_takes_no_other_folder_for_a_store(self):
        for root in ["nowhere", ".", "store/MORAM"]:
            for command in [["list"], ["show", "A"], ["check"], ["refs", "A"]]:
                self.assertIn("There is no store in",
                              self.refuse("--store", root, *command))

    def test_tells_when_its_answer_cant_be_written(self):
        self.store.put_session("DESK")
        with open("/dev/full", "wb") as full:
            ended = subprocess.run([TOOL, "--store", self.store.path, "list"], stdout=full,
                                   stderr=subprocess.PIPE, text=True, check=False)
        self.assertEqual(ended.returncode, FAILED)
        self.assertIn("can't be written", ended.stderr)

    def test_minds_names_that_are_no_utf8(self):
        path = os.fsencode(self.store.at("MORAM")) + b"/A\xff.vla"
        with open(path, "wb") as file:
            file.write(b"no record")
        self.assertEqual(self.ask("list"), {"items": [{"kind": "session", "name": "A\ufffd"}]})
        self.assertEqual(len(self.ask("check", code=FINDINGS)["findings"]), 1)


if __name__ == "__main__":
    unittest.main()
