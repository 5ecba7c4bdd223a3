"""Tests with an empty folder of their own, in which their programs run."""

import os
import tempfile
import unittest


class FolderCase(unittest.TestCase):
    parent = None  # folder in which the tests have theirs; None: that of the host

    def setUp(self):
        folder = tempfile.TemporaryDirectory(dir=self.parent)
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def path(self, name):
        return os.path.join(self.folder, os.fsdecode(name))

    def write(self, name, data):
        os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
        with open(self.path(name), "wb") as file:
            file.write(data)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()


class LibraryCase(FolderCase):
    """With the environment of programs that use the library: no print server of this host takes part, and
    drive C is the test's own."""

    def setUp(self):
        super().setUp()
        os.mkdir(self.path("c"))
        self.drives = {"CUPS_SERVER": self.path("no-server"), "ZEAPI_DRIVES": self.folder}
        self.environment = {**os.environ, **self.drives}
