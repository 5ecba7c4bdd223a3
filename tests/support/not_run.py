"""What a test says when something that it needs is not on this host. Where everything has to be there,
which the variable CI tells, that is a failure."""

import os
import sys

_SKIPPED = 77


def not_run(reason):
    """Ends the program of the tests, as skipped or as failed."""
    print(f"NOT RUN: {reason}", file=sys.stderr)
    sys.exit(1 if os.environ.get("CI") else _SKIPPED)


def not_run_test(test, reason):
    """Ends one test in the same way."""
    if os.environ.get("CI"):
        test.fail(reason)
    test.skipTest(reason)
