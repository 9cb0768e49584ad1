"""Programs that a test starts: each ends by its own process id, whatever happens to the test."""

import os
import signal
import subprocess

END_SECONDS = 10


class Program:
    """A program in the background, in a process group of its own.

    It is told to end as well when the test dies without a chance to tidy up.
    """

    def __init__(self, command, environment, log, pass_fds=()):
        """Starts it.

        command: the program and its arguments
        environment: all of its environment variables
        log: path of the file that takes what it prints
        pass_fds: open file descriptors that it may use
        """
        self.name = os.path.basename(command[0])
        self._log = log
        self._ended = False
        with open(log, "wb") as output:
            self._process = subprocess.Popen(
                ["setpriv", "--pdeathsig", "TERM", *command], env=environment, cwd="/",
                stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.STDOUT,
                start_new_session=True, pass_fds=pass_fds)

    @property
    def process_id(self):
        """Its process id."""
        return self._process.pid

    @property
    def exit_code(self):
        """Its exit code, or None while it runs."""
        return self._process.poll()

    def printed(self):
        """What it printed so far."""
        with open(self._log, encoding="utf-8", errors="replace") as output:
            return output.read()

    def end(self):
        """Ends it, and what it started itself. Can be called again."""
        if self._ended:
            return
        self._ended = True
        self._signal(signal.SIGTERM)
        try:
            self._process.wait(END_SECONDS)
        except subprocess.TimeoutExpired:
            pass
        self._signal(signal.SIGKILL)
        self._process.wait()

    def _signal(self, number):
        try:
            os.killpg(self._process.pid, number)
        except ProcessLookupError:
            pass
