"""What the tests on real fonts share: their folder and the caller program, natively or under Wine."""

import argparse
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

CALL_SECONDS = 600


def _arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument("--caller", required=True, type=os.path.abspath,
                        help="the built font_caller")
    parser.add_argument("--wine", action="store_true", help="run the caller under Wine")
    return parser.parse_args()


OPTIONS = _arguments()


class FontCase(unittest.TestCase):
    """A folder for the whole class: conversions of many fonts are made once."""

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp()
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        os.makedirs(cls.path("drives/c"))

    @classmethod
    def path(cls, name):
        return os.path.join(cls.folder, name)

    @classmethod
    def store(cls, name, data):
        with open(cls.path(name), "wb") as file:
            file.write(data)

    @classmethod
    def content(cls, name):
        with open(cls.path(name), "rb") as file:
            return file.read()

    @classmethod
    def call(cls, calls):
        """Makes all calls in one process; an answer is the list of a line's words."""
        lines = "".join("\t".join(map(str, call)) + "\n" for call in calls)
        command = ["wine"] if OPTIONS.wine else []
        done = subprocess.run([*command, OPTIONS.caller], cwd=cls.folder,
                              input=lines.encode("latin-1"), stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, timeout=CALL_SECONDS, check=False,
                              env={**os.environ, "ZEAPI_DRIVES": cls.path("drives")})
        if done.returncode != 0:
            raise AssertionError(done.stderr.decode(errors="replace"))
        answers = done.stdout.decode("latin-1").replace("\r\n", "\n").splitlines()
        return [answer.split("\t") for answer in answers]


def main():
    unittest.main(argv=sys.argv[:1])
