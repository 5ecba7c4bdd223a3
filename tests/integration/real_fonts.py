"""Type 1 fonts of the distribution (packages lmodern and tex-gyre)."""

import glob
import os

from not_run import not_run_test

_FOLDERS = ("/usr/share/texmf/fonts/type1/public", "/usr/share/texmf-dist/fonts/type1/public")


def find(name):
    """Path of a font, or None."""
    for folder in _FOLDERS:
        for path in glob.glob(os.path.join(folder, "*", name)):
            return path
    return None


def read(test, name):
    """The font's bytes. Without it the test is skipped, but not where everything has to be there."""
    path = find(name)
    if path is None:
        not_run_test(test, f"{name} is not here (packages lmodern and tex-gyre)")
    with open(path, "rb") as file:
        return file.read()
