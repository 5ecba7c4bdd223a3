"""zeapi.py beside the header, and at work with the library of this build.

Usage: python_test.py LIBRARY FACTS    (FACTS: the program of facts.c)
"""

import pathlib
import subprocess
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "bindings/python"))

from python_calls import Calls  # noqa: E402
from python_declarations import Declarations  # noqa: E402


def main():
    library, facts = sys.argv[1:]
    Calls.library_path = library
    output = subprocess.run([facts], stdout=subprocess.PIPE, check=True, text=True).stdout
    Declarations.facts = {what: int(number) for what, number in map(str.split, output.splitlines())}
    load = unittest.defaultTestLoader.loadTestsFromTestCase
    suite = unittest.TestSuite([load(Declarations), load(Calls)])
    sys.exit(not unittest.TextTestRunner().run(suite).wasSuccessful())


if __name__ == "__main__":
    main()
