"""The example of a view of one's own: a person at a terminal adds a session."""

import os
import re
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

PROGRAM = os.environ["TERMINAL_VIEW"]


class Terminal(unittest.TestCase):
    """Each test starts the program on an empty store."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.program = subprocess.Popen([PROGRAM, self.folder], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.addCleanup(self.program.stdout.close)
        self.addCleanup(self.program.stdin.close)
        self.addCleanup(self.program.wait)
        self.addCleanup(self.program.kill)
        self.screen = self.read()

    def read(self):
        """What is printed up to the next prompt, or up to the end."""
        printed = b""
        while not printed.endswith(b"\n> ") and (byte := self.program.stdout.read(1)):
            printed += byte
        return printed.decode()

    def say(self, line):
        """Types a line, and looks at what comes of it."""
        self.program.stdin.write(f"{line}\n".encode())
        self.program.stdin.flush()
        self.screen = self.read()

    def number_of(self, text):
        """The number in front of a control."""
        found = re.findall(rf"^(\d+)\. (?:\[.\] |\(.\) |\[)?{re.escape(text)}", self.screen,
                           flags=re.MULTILINE)
        self.assertEqual(len(found), 1, f"{text}:\n{self.screen}")
        return found[0]

    def give(self, text, value):
        """Types into a box, or picks a row."""
        self.say(f"{self.number_of(text)} = {value}")
        self.assertNotIn("?", self.screen.split("\n")[0])

    def end(self, exit_code, last_line):
        """The program has said its last."""
        self.assertEqual(self.program.wait(timeout=20), exit_code)
        self.assertEqual(self.screen.strip().splitlines()[-1], last_line)

    def name_session(self):
        """Goes to the session dialog."""
        self.assertIn("== Add a session", self.screen)
        self.give("Add a new session named", "counter")
        self.say("")
        self.assertIn("== WYN 3rd Party Application Configuration", self.screen)

    def test_adds_a_session(self):
        self.name_session()
        self.give("Program Path", PROGRAM)
        self.say(self.number_of("Left"))
        self.assertIn("(o) Left", self.screen)
        self.assertIn("( ) Top", self.screen)
        tabs = re.search(r"^(\d+)\. .*\| *$", self.screen, flags=re.MULTILINE)[1]
        self.say(f"{tabs} = Part Number Format")
        self.say(self.number_of("New"))
        self.give("Part Format Name", "plain")
        self.give("Maximum Records", "12")
        self.say(self.number_of("OK"))
        self.give("Available Part Formats:", "PLAIN")
        self.say(self.number_of("Available Part Formats to Selected Part Formats"))
        self.say(self.number_of("OK"))
        self.end(0, "added COUNTER")
        rows = self.rows("MORAM", "COUNTER")
        self.assertEqual((rows["ProgramPath"], rows["Orientation"], rows["FORMAT1"]),
                         (PROGRAM, "left", "PLAIN"))
        self.assertEqual(self.rows("PARTFORMAT", "PLAIN")["MaxRecords"], "12")

    def rows(self, *parts):
        """The rows of a stored item."""
        path = os.path.join(self.folder, parts[0], f"{parts[1]}.vla")
        return {row.get("key"): row.text or ""
                for row in ElementTree.parse(path).getroot().iter("row")}

    def test_shows_a_refusal_and_goes_on(self):
        self.give("Add a new session named", "a.b")
        self.say("")
        self.assertIn("!! ", self.screen)
        self.say("")
        self.assertIn("== Add a session", self.screen)
        self.say("esc")
        self.end(1, "nothing was added")

    def test_minds_no_nonsense(self):
        for line in ["99", "0", "x = y", "1 =", "=", "123456789012345678901234567890"]:
            self.say(line)
            self.assertIn("== Add a session", self.screen)
        self.say("close")
        self.end(1, "nothing was added")

    def test_cancels_at_the_end_of_the_input(self):
        self.name_session()
        self.program.stdin.close()
        self.screen = self.read()
        while (more := self.read()):
            self.screen += more
        self.end(1, "nothing was added")


if __name__ == "__main__":
    unittest.main()
