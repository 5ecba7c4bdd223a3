"""not_run.py: what is missing is a skip, and a failure where the variable CI is set."""

import os
import subprocess
import sys
import unittest

PROGRAM = "from not_run import not_run; not_run('no printer')"
TEST = """
import unittest
from not_run import not_run_test
class Test(unittest.TestCase):
    def test(self):
        not_run_test(self, "no printer")
unittest.main()
"""


def run(code, **variables):
    inherited = {name: value for name, value in os.environ.items() if name != "CI"}
    done = subprocess.run([sys.executable, "-c", code], env={**inherited, **variables},
                          stderr=subprocess.PIPE, text=True, check=False)  # fmt: skip
    return done.returncode, done.stderr


class NotRun(unittest.TestCase):
    def test_program_is_skipped_or_fails(self):
        self.assertEqual(run(PROGRAM), (77, "NOT RUN: no printer\n"))
        self.assertEqual(run(PROGRAM, CI="1"), (1, "NOT RUN: no printer\n"))

    def test_one_test_is_skipped_or_fails(self):
        code, said = run(TEST)
        self.assertEqual((code, said.splitlines()[-1]), (0, "OK (skipped=1)"))
        code, said = run(TEST, CI="1")
        self.assertEqual((code, said.splitlines()[-1]), (1, "FAILED (failures=1)"))


if __name__ == "__main__":
    unittest.main()
