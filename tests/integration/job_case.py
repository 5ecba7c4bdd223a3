"""What the tests of jobs share: each has an empty folder, in which the caller runs, and a drive C without
a debug log.
"""

import collections
import contextlib
import functools
import os
import pwd
import signal
import socket
import sys
import tempfile
import unittest

import caller
from caller import WINE
from captured_run import captured_run
from folder_case import FolderCase

Outcome = collections.namedtuple("Outcome", "results output log")

CALL_SECONDS = 60


class JobCase(FolderCase):
    def setUp(self):
        super().setUp()
        if WINE:
            self.drive_c = os.path.join(os.environ["WINEPREFIX"], "drive_c")
            self.remove_log()
            self.addCleanup(self.remove_log)
        else:
            self.drive_c = self.path("drives/c")
            os.makedirs(self.drive_c)

    def call(self, *arguments, **environment):
        """Runs the caller. The outcome has all its results, its other output and the log's lines."""
        self.remove_log()
        # Without a print server of a test's own there is none.
        settings = {"ZEAPI_DRIVES": self.path("drives"), "LD_LIBRARY_PATH": self.folder,
                    "CUPS_SERVER": self.path("no_server"), **environment}
        said = caller.call(*arguments, folder=self.folder, seconds=CALL_SECONDS, environment=settings)
        lines = said.splitlines(keepends=True)
        results = [int(line.split()[1]) for line in lines if line.startswith(b"result ")]
        output = b"".join(line for line in lines if not line.startswith(b"result "))
        return Outcome(results, output, self.read_log())

    @property
    def log_path(self):
        return os.path.join(self.drive_c, "zeapiw32.log")

    def remove_log(self):
        if os.path.isfile(self.log_path):
            os.remove(self.log_path)

    def read_log(self):
        """The lines of the log; a line ends as the host's text lines do."""
        if not os.path.isfile(self.log_path):
            return []
        with open(self.log_path, "rb") as file:
            text = file.read().decode("ascii")
        *lines, rest = text.split("\r\n" if WINE else "\n")
        self.assertEqual(rest, "", "the log's last line is not complete")
        return lines


@functools.cache
def host_names():
    """Names of the computer and of the user as the host's programs see them."""
    if WINE:
        told = captured_run(["wine", "cmd", "/c", "echo %COMPUTERNAME%/%USERNAME%"],
                            timeout=CALL_SECONDS, text=True)
        told.check_returncode()
        computer, user = told.stdout.strip().split("/")
    else:
        # A Windows computer name has at most 15 characters and no domain.
        computer = socket.gethostname().split(".")[0][:15]
        user = pwd.getpwuid(os.geteuid()).pw_name
    return computer.encode(), user.encode()


@contextlib.contextmanager
def session():
    """The folder in which all tests have theirs. A Ctrl-C or a request to end removes it as well."""
    for request in (signal.SIGINT, signal.SIGTERM):
        signal.signal(request, signal.default_int_handler)
    with tempfile.TemporaryDirectory(prefix="zeapi_") as JobCase.parent:
        yield JobCase.parent


def run_tests():
    unittest.main("__main__", argv=sys.argv[:1], verbosity=2)


def main():
    with session():
        run_tests()
