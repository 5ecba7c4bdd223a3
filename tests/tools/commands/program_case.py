"""Runs the zeapi program as a person would and compares what arrives at a printer that is a file.

Every test of a command is a program of its own: TEST COMMAND... (COMMAND: the zeapi program, with what
runs it in front where it needs that).
"""

import json
import os
import subprocess
import sys
import unittest

from captured_run import captured_run
from folder_case import LibraryCase

UEL = b"\x1b%-12345X"
CLEAR = b'@PJL RDYMSG DISPLAY = ""\n'


class ProgramCase(LibraryCase):
    command = []

    def run_program(self, *arguments, exit_code=0):
        done = captured_run(
            self.command + list(arguments),
            cwd=self.folder,
            env=self.environment,
            stdin=subprocess.DEVNULL,
            text=True,
        )
        self.assertEqual(done.returncode, exit_code, done.stdout + done.stderr)
        return done

    def answer(self, *arguments, exit_code=0):
        return json.loads(self.run_program(*arguments, "--json", exit_code=exit_code).stdout)


def main():
    # The program is started in another folder.
    ProgramCase.command = [
        os.path.abspath(word) if os.path.exists(word) else word for word in sys.argv[1:]
    ]
    unittest.main(argv=sys.argv[:1])
