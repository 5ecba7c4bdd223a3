"""Runs a program to its end, with its output. The output goes through files: under Wine a program starts
helpers that inherit what it writes to and stay for up to a minute, and a pipe would only end with them."""

import subprocess
import tempfile


def captured_run(command, text=False, **options):
    """As subprocess.run with its output captured."""
    mode = "w+" if text else "w+b"
    with tempfile.TemporaryFile(mode) as output, tempfile.TemporaryFile(mode) as errors:
        done = subprocess.run(command, stdout=output, stderr=errors, check=False, **options)
        output.seek(0)
        errors.seek(0)
        done.stdout, done.stderr = output.read(), errors.read()
    return done
