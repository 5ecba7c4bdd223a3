"""Type 1 fonts of the distribution (packages lmodern and tex-gyre)."""

import glob
import os

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
        reason = f"{name} is not here (packages lmodern and tex-gyre)"
        if os.environ.get("CI"):
            test.fail(reason)
        test.skipTest(reason)
    with open(path, "rb") as file:
        return file.read()
