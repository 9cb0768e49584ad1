"""The manual, the completion in bash, and the samples of docs/administer.md."""

import os
import re
import shutil
import subprocess
import unittest

from tool_test_case import CLEAN, TOOL, ToolTestCase

SOURCE = os.environ["SOURCE"]
MANUAL = os.path.join(SOURCE, "tools", "wynconfig.1")
COMPLETION = os.path.join(SOURCE, "tools", "wynconfig.bash")
GUIDE = os.path.join(SOURCE, "docs", "administer.md")


def run(*command, **options):
    return subprocess.run(command, capture_output=True, text=True, check=False, timeout=60,
                          **options)


class HelpTestCase(ToolTestCase):
    """What the program itself says that it takes."""

    def commands(self):
        listed = self.say("--help").partition("Subcommands:")[2]
        return re.findall(r"^  ([a-z]+) ", listed, re.MULTILINE)

    def options(self, *command):
        return re.findall(r"--[a-z-]+", self.say(*command, "--help"))


class Manual(HelpTestCase):
    """wynconfig(1)."""

    def text(self):
        """The manual as a person reads it, on lines that are long enough."""
        shown = run("mandoc", "-T", "utf8", "-O", "width=300", MANUAL)
        return re.sub(".\b", "", shown.stdout)

    @unittest.skipUnless(shutil.which("mandoc"), "mandoc is not here")
    def test_has_no_faults(self):
        judged = run("mandoc", "-T", "lint", "-W", "style", MANUAL)
        self.assertEqual((judged.stdout + judged.stderr, judged.returncode), ("", 0))

    @unittest.skipUnless(shutil.which("mandoc"), "mandoc is not here")
    def test_tells_each_command_with_its_options(self):
        text = self.text()
        self.assertGreater(len(self.commands()), 10)
        for command in self.commands():
            told = re.findall(rf"^     {command}\b.*$", text, re.MULTILINE)
            self.assertTrue(told, command)
            for option in self.options(command):
                if option not in ["--help"]:
                    self.assertIn(option, " ".join(told), command)
        for option in self.options():
            self.assertRegex(text, rf"(?m)^     (-h, )?{option}\b")

    @unittest.skipUnless(shutil.which("mandoc"), "mandoc is not here")
    def test_tells_no_option_that_is_none(self):
        known = {each for command in self.commands() for each in self.options(command)}
        known |= set(self.options())
        self.assertEqual(set(re.findall(r"--[a-z][a-z-]*", self.text())) - known, set())


class Completion(HelpTestCase):
    """What the Tab key offers in bash."""

    def complete(self, *words, quoted=None):
        """What is offered for the last one of the words behind the program's name."""
        script = ('source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); '
                  '_wynconfig "$1" "${QUOTED-${!#}}" "${@:$#-1:1}"; '
                  'printf "%s\\n" "${COMPREPLY[@]}"')
        environment = {**os.environ, "WYNCONFIG_STORE": self.store.path, "LC_ALL": "C.UTF-8"}
        if quoted is not None:
            environment["QUOTED"] = quoted
        ended = run("bash", "-c", script, "bash", COMPLETION, TOOL, *words, env=environment,
                    cwd=self.folder)
        self.assertEqual(ended.stderr, "")
        return [line for line in ended.stdout.splitlines() if line]

    def setUp(self):
        super().setUp()
        self.store.put_session("DESK")
        self.store.put_session("MY DESK")
        self.store.put_session("ÄRGER")
        self.store.put_format("CSV")

    def test_offers_the_commands(self):
        self.assertEqual(sorted(self.complete("")), sorted(self.commands()))
        self.assertEqual(sorted(self.complete("re")), ["refs", "rename", "restore"])
        self.assertEqual(self.complete("--json", "--store", "x", "ch"), ["check"])

    def test_offers_the_options_of_each_command(self):
        for command in self.commands():
            offered = self.complete(command, "-")
            self.assertEqual(set(offered), set(self.options(command) + self.options()), command)
        self.assertEqual(self.complete("import", "--dr"), ["--dry-run"])

    def test_offers_names_of_items(self):
        everything = ["DESK", "MY\\ DESK", "ÄRGER", "CSV"]
        self.assertEqual(self.complete("show", ""), everything)
        self.assertEqual(self.complete("delete", ""), everything)
        self.assertEqual(self.complete("show", "de"), ["DESK"])
        self.assertEqual(self.complete("show", "ä"), ["ÄRGER"])
        self.assertEqual(self.complete("show", "my\\ d"), ["MY\\ DESK"])
        self.assertEqual(self.complete("show", '"my d', quoted="my d"), ["MY DESK"])
        for command in ["refs", "rename"]:
            self.assertEqual(self.complete(command, ""), ["CSV"])
        self.assertEqual(self.complete("export", "DESK", ""), everything[:3])
        self.assertEqual(self.complete("list", ""), ["sessions", "formats"])
        self.assertEqual(self.complete("sql", "pu"), ["push", "pull"])
        self.assertEqual(self.complete("show", "DESK", ""), [])
        self.assertEqual(self.complete("rename", "CSV", ""), [])

    def test_offers_deleted_items_to_restore(self):
        self.assertEqual(self.complete("restore", ""), [])
        self.say("delete", "DESK")
        self.assertEqual(self.complete("restore", ""), ["DESK"])

    def test_asks_the_store_that_is_named(self):
        other = self.new_store("other store")
        other.put_session("THERE")
        for words in [["--store", "other\\ store"], ["--store", '"other store"'],
                      ["--store", "=", other.path.replace(" ", "\\ ")]]:
            self.assertEqual(self.complete(*words, "show", ""), ["THERE"])
        self.assertEqual(self.complete("migrate", "other\\ store", ""), ["THERE"])
        self.assertEqual(self.complete("--store", "none", "show", ""), [])

    def test_offers_files_and_folders(self):
        with open(os.path.join(self.folder, "items.json"), "w", encoding="utf-8"):
            pass
        self.assertEqual(sorted(self.complete("import", "")), ["items.json", "store"])
        self.assertEqual(self.complete("export", "--to", "it"), ["items.json"])
        self.assertEqual(self.complete("list", "--store", ""), ["store"])
        self.assertEqual(self.complete("list", "--store", "="), ["store"])
        self.assertEqual(self.complete("migrate", ""), ["store"])

    def test_is_there_for_the_program(self):
        ended = run("bash", "-c", f'source "{COMPLETION}"; complete -p wynconfig')
        self.assertEqual(ended.stdout, "complete -F _wynconfig wynconfig\n")


# Runs a command on a workstation, which here is a folder.
SSH = """#!/bin/sh
[ "$1" != -n ] || { shift; exec < /dev/null; }
cd "$HOME/$1" && shift && WYNCONFIG_STORE=parts exec sh -c "$*"
"""


class Guide(ToolTestCase):
    """docs/administer.md: its samples run one after the other, and print what is printed there."""

    def setUp(self):
        super().setUp()
        self.programs = os.path.join(self.folder, "bin")
        os.mkdir(self.programs)
        os.symlink(TOOL, os.path.join(self.programs, "wynconfig"))
        with open(os.path.join(self.programs, "ssh"), "w", encoding="utf-8") as script:
            script.write(SSH)
        os.chmod(script.name, 0o755)
        self.parts = self.new_store("parts")
        self.parts.put_format("CSV")
        self.parts.put_format("LABELS")
        self.parts.put_session("DESK", "CSV")
        self.parts.put_session("WORKSHOP", "LABELS", "LIST")
        old = self.new_store("old-parts")
        old.put_session("DESK")
        old.put_session("ROAD")
        self.hosts = ["counter-1", "counter-2", "counter-3"]
        for host in self.hosts:
            os.mkdir(os.path.join(self.folder, host))
        self.new_store("counter-2/parts").put_format("CSV")
        self.new_store("counter-3/parts").put_session("DESK")
        with open(os.path.join(self.folder, "workstations.txt"), "w", encoding="utf-8") as file:
            file.writelines(f"{host}\n" for host in self.hosts)

    def samples(self):
        """The samples of the guide, each with what it prints."""
        with open(GUIDE, encoding="utf-8") as file:
            guide = file.read()
        return re.findall(r"```sh\n(.*?)```\n+```text\n(.*?)```", guide, re.DOTALL), guide

    def test_is_true(self):
        samples, guide = self.samples()
        self.assertEqual(len(samples), guide.count("```sh"))
        self.assertGreater(len(samples), 8)
        path = f"{self.programs}:{os.environ['PATH']}"
        environment = {**os.environ, "PATH": path, "HOME": self.folder,
                       "WYNCONFIG_STORE": self.parts.path}
        for sample, printed in samples:
            ended = run("bash", "-euc", f"exec 2>&1\n{sample}", env=environment, cwd=self.folder)
            shown = ended.stdout.replace(self.folder, "/home/me")
            self.assertEqual((shown, ended.returncode), (printed, CLEAN), sample)
        with open(os.path.join(self.folder, "counter-2/parts/MORAM/DESK.vla"),
                  encoding="utf-8") as file:
            self.assertIn("COMMAS", file.read())


if __name__ == "__main__":
    unittest.main()
