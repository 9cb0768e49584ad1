"""A screen that nobody else uses: its server begins anew whenever the last program leaves it."""

import os
import subprocess
import unittest

PROGRAM = os.environ["C_QT_TESTS"]
TEXTS = os.environ["TEXTS"]
PROGRAMS = 10  # one after the other; of those that came too early a fifth ended


class BareScreen(unittest.TestCase):
    """A screen without a window manager or any other program."""

    def setUp(self):
        reading, writing = os.pipe()
        self.server = subprocess.Popen(
            ["setpriv", "--pdeathsig", "TERM", "Xvfb", "-displayfd", str(writing), "-nolisten",
             "tcp"], stderr=subprocess.DEVNULL, pass_fds=(writing,))
        self.addCleanup(self.server.wait)
        self.addCleanup(self.server.terminate)
        os.close(writing)
        with open(reading, encoding="utf-8") as pipe:
            self.display = f":{pipe.readline().strip()}"

    def test_shows_windows_also_while_the_server_begins_anew(self):
        environment = {**os.environ, "DISPLAY": self.display, "QT_QPA_PLATFORM": "xcb"}
        for _ in range(PROGRAMS):
            ended = subprocess.run([PROGRAM, TEXTS], env=environment, capture_output=True, text=True,
                                   check=False, timeout=60)
            self.assertEqual(ended.returncode, 0, ended.stdout + ended.stderr)


if __name__ == "__main__":
    unittest.main(verbosity=2)
