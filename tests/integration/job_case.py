"""What the integration tests share: running the caller program, natively or under Wine.

Each test has an empty folder, in which the caller runs, and a drive C without a debug log.
"""

import argparse
import collections
import contextlib
import functools
import os
import pwd
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import unittest

Outcome = collections.namedtuple("Outcome", "results output log")

CALL_SECONDS = 60


def _arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument("--caller", required=True, type=os.path.abspath,
                        help="the built job_caller")
    parser.add_argument("--velbce", required=True, type=os.path.abspath,
                        help="folder of the stand-in's variants")
    parser.add_argument("--wine", action="store_true", help="run the caller under Wine")
    return parser.parse_args()


OPTIONS = _arguments()
WINE = OPTIONS.wine
_base = None


class JobCase(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(dir=_base)
        self.addCleanup(shutil.rmtree, self.folder)
        if WINE:
            self.drive_c = os.path.join(os.environ["WINEPREFIX"], "drive_c")
            self.remove_log()
            self.addCleanup(self.remove_log)
        else:
            self.drive_c = self.path("drives/c")
            os.makedirs(self.drive_c)

    def path(self, name):
        return os.path.join(self.folder, name)

    def store(self, name, data):
        with open(self.path(name), "wb") as file:
            file.write(data)

    def content(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def call(self, *arguments, **environment):
        """Runs the caller. The outcome has all its results, its other output and the log's lines."""
        self.remove_log()
        # Without a print server of a test's own there is none.
        settings = {"ZEAPI_DRIVES": self.path("drives"), "LD_LIBRARY_PATH": self.folder,
                    "CUPS_SERVER": self.path("no_server"), **environment}
        command = ["wine"] if WINE else []
        done = subprocess.run([*command, OPTIONS.caller, *map(str, arguments)], cwd=self.folder,
                              env={**os.environ, **settings}, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, timeout=CALL_SECONDS, check=False)
        self.assertEqual(done.returncode, 0, done.stderr.decode(errors="replace"))
        lines = done.stdout.replace(b"\r\n", b"\n").splitlines(keepends=True)
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
        told = subprocess.run(["wine", "cmd", "/c", "echo %COMPUTERNAME%/%USERNAME%"], check=True,
                              stdout=subprocess.PIPE, timeout=CALL_SECONDS, text=True)
        computer, user = told.stdout.strip().split("/")
    else:
        # A Windows computer name has at most 15 characters and no domain.
        computer = socket.gethostname().split(".")[0][:15]
        user = pwd.getpwuid(os.geteuid()).pw_name
    return computer.encode(), user.encode()


@contextlib.contextmanager
def session():
    """The folder in which all tests have theirs. A Ctrl-C or a request to end removes it as well."""
    global _base
    for request in (signal.SIGINT, signal.SIGTERM):
        signal.signal(request, signal.default_int_handler)
    with tempfile.TemporaryDirectory(prefix="zeapi_") as _base:
        yield _base


def run_tests():
    unittest.main("__main__", argv=sys.argv[:1], verbosity=2)


def main():
    with session():
        run_tests()
