"""Holds the manual page against the program that it was made from.

Usage: man_page_test.py PAGE PROGRAM
"""

import re
import shutil
import subprocess
import sys
import unittest

from not_run import not_run_test

PAGE = PROGRAM = ""


def commands(*words):
    """All commands that can be run, as "family command"; asked of the program alone."""
    text = subprocess.run([PROGRAM, *words, "--help"], check=True, capture_output=True, text=True).stdout
    _, listed, below = text.partition("\nSubcommands:\n")
    if not listed:
        return [" ".join(words)]
    names = re.findall(r"^  (\S+)", below.split("\n\n")[0], re.MULTILINE)
    return [command for name in names for command in commands(*words, name)]


class ManPageTest(unittest.TestCase):
    def setUp(self):
        with open(PAGE, encoding="utf-8") as page:
            self.lines = page.read().split("\n")

    def test_has_a_section_for_each_command(self):
        sections = [line for line in self.lines if line.startswith(".SS ")]
        self.assertEqual(sections, [f'.SS "zeapi {command}"' for command in commands()])

    def test_has_the_shared_options_once(self):
        self.assertEqual(self.lines.count(".B \\-\\-bidi\\-port N"), 1)

    def test_is_the_same_on_every_day(self):
        self.assertRegex(self.lines[0], r'^\.TH ZEAPI 1 "" "zeapi \d+\.\d+" "User Commands"$')

    def test_is_formatted_without_a_warning(self):
        if shutil.which("groff") is None:
            not_run_test(self, "groff (package groff-base) is not installed")
        done = subprocess.run(["groff", "-man", "-ww", "-z", PAGE], capture_output=True, text=True)
        self.assertEqual((done.returncode, done.stderr), (0, ""))


if __name__ == "__main__":
    PAGE, PROGRAM = sys.argv[1:]
    unittest.main(argv=sys.argv[:1])
