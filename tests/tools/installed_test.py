"""The administrator's program as it is installed, with its manual and its completion."""

import os
import subprocess
import unittest

PREFIX = os.environ["PREFIX"]


class Installed(unittest.TestCase):
    """An installation anywhere."""

    def test_has_the_program_and_what_belongs_to_it(self):
        told = subprocess.run([os.path.join(PREFIX, "bin", "wynconfig"), "--version"],
                              capture_output=True, text=True, check=True)
        self.assertTrue(told.stdout.startswith("wynconfig "))
        for path, beginning in [("share/man/man1/wynconfig.1", '.\\" The manual'),
                                ("share/bash-completion/completions/wynconfig", "# Completion"),
                                ("share/doc/wynconfig/administer.md", "# Administering")]:
            with open(os.path.join(PREFIX, path), encoding="utf-8") as file:
                self.assertTrue(file.read().startswith(beginning), path)


if __name__ == "__main__":
    unittest.main()
