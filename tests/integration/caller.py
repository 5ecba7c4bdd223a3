"""The program of a test that calls the library, natively or under Wine."""

import argparse
import os

from captured_run import captured_run


def _arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument("--caller", required=True, type=os.path.abspath, help="the built caller")
    parser.add_argument("--velbce", type=os.path.abspath,
                        help="folder of the stand-in's variants, for the tests of jobs")
    parser.add_argument("--wine", action="store_true", help="run the caller under Wine")
    return parser.parse_args()


OPTIONS = _arguments()
WINE = OPTIONS.wine


def call(*arguments, folder, seconds, environment, data=None):
    """Runs the caller in a folder. Returns what it writes; it must end well."""
    command = ["wine"] if WINE else []
    done = captured_run([*command, OPTIONS.caller, *map(str, arguments)], cwd=folder, input=data,
                        env={**os.environ, **environment}, timeout=seconds)
    if done.returncode != 0:
        raise AssertionError(done.stderr.decode(errors="replace"))
    return done.stdout.replace(b"\r\n", b"\n")
