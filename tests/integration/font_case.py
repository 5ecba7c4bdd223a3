"""What the tests on real fonts share: a folder for the whole class, and all calls in one process."""

import pathlib
import sys
import tempfile
import unittest

import caller

CALL_SECONDS = 600


class FontCase(unittest.TestCase):
    """Conversions of many fonts are made once."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        (cls.folder / "drives/c").mkdir(parents=True)

    @classmethod
    def call(cls, calls):
        """Makes all calls in one process; an answer is the list of a line's words."""
        lines = "".join("\t".join(map(str, call)) + "\n" for call in calls)
        said = caller.call(folder=cls.folder, seconds=CALL_SECONDS, data=lines.encode("latin-1"),
                           environment={"ZEAPI_DRIVES": str(cls.folder / "drives")})
        return [answer.split("\t") for answer in said.decode("latin-1").splitlines()]


def main():
    unittest.main(argv=sys.argv[:1])
