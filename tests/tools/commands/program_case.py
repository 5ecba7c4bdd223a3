"""Runs the zeapi program as a person would and compares what arrives at a printer that is a file.

Every test of a command is a program of its own: TEST COMMAND... (COMMAND: the zeapi program, with what
runs it in front where it needs that).
"""

import json
import os
import subprocess
import sys
import tempfile
import unittest

UEL = b"\x1b%-12345X"
CLEAR = b'@PJL RDYMSG DISPLAY = ""\n'


class ProgramCase(unittest.TestCase):
    command = []

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.environment = dict(os.environ)
        # No print server of this host takes part, and drive C is the test's own.
        self.environment["CUPS_SERVER"] = os.path.join(self.folder, "no-server")
        self.environment["ZEAPI_DRIVES"] = self.folder
        os.mkdir(os.path.join(self.folder, "c"))

    def run_program(self, *arguments, exit_code=0):
        done = subprocess.run(
            self.command + list(arguments),
            cwd=self.folder,
            env=self.environment,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            text=True,
        )
        self.assertEqual(done.returncode, exit_code, done.stdout + done.stderr)
        return done

    def answer(self, *arguments, exit_code=0):
        return json.loads(self.run_program(*arguments, "--json", exit_code=exit_code).stdout)

    def write(self, name, data):
        with open(os.path.join(self.folder, name), "wb") as file:
            file.write(data)

    def read(self, name):
        with open(os.path.join(self.folder, name), "rb") as file:
            return file.read()


def main():
    # The program is started in another folder.
    ProgramCase.command = [
        os.path.abspath(word) if os.path.exists(word) else word for word in sys.argv[1:]
    ]
    unittest.main(argv=sys.argv[:1])
