"""What the commands of a newcomer install: what is missing, or with --no-setup nothing."""

import os
import shutil
import stat
import subprocess
import tempfile
import unittest

SOURCE = os.path.abspath(os.environ["SOURCE"])
COMMANDS = ("run", "test", "bench")


class Setup(unittest.TestCase):
    """Copies of the commands, among packages and programs of the test's own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        for name in COMMANDS + ("scripts/setup",):
            os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
            shutil.copy(os.path.join(SOURCE, name), self.path(name))
        self.write("scripts/packages.txt", "".join(
            f"[{purpose}]\npackage-of-{purpose}\n\n" for purpose in COMMANDS))
        # Nothing is installed; what is called notes it down.
        self.program("dpkg-query", "exit 1")
        for name in ("apt-get", "cmake", "sudo"):
            self.program(name, f'echo "{name} $*" >> {self.path("called")}; [ {name} != cmake ]')

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, text):
        os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
        with open(self.path(name), "w", encoding="utf-8") as file:
            file.write(text)

    def program(self, name, script):
        self.write(f"bin/{name}", f"#!/bin/sh\n{script}\n")
        os.chmod(self.path(f"bin/{name}"), stat.S_IRWXU)

    def call(self, command, *arguments):
        """Calls a command; gives its exit code, its words of failure, and what it called."""
        path = self.path("bin") + os.pathsep + os.environ["PATH"]
        done = subprocess.run([self.path(command), *arguments], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, env={**os.environ, "PATH": path}, text=True,
                              stdin=subprocess.DEVNULL, check=False)
        called = ""
        if os.path.exists(self.path("called")):
            with open(self.path("called"), encoding="utf-8") as file:
                called = file.read()
        return done.returncode, done.stderr, called

    def test_says_in_one_line_what_is_missing_and_installs_nothing(self):
        for command in COMMANDS:
            with self.subTest(command):
                code, told, called = self.call(command, "--no-setup")
                self.assertEqual((code, called), (1, ""))
                self.assertEqual(len(told.splitlines()), 1, told)
                self.assertIn(f"package-of-{command}", told)

    def test_installs_what_is_missing_without_being_told(self):
        for command in COMMANDS:
            with self.subTest(command):
                called = self.call(command)[2]
                self.assertRegex(called, f"apt-get install .*package-of-{command}")

    def test_goes_on_when_nothing_is_missing(self):
        self.program("dpkg-query", "echo installed")
        for command in COMMANDS:
            with self.subTest(command):
                called = self.call(command, "--no-setup")[2]
                self.assertNotIn("apt-get", called)
                self.assertIn("cmake", called)


if __name__ == "__main__":
    unittest.main()
