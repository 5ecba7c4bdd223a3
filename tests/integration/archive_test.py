"""Archives between programs: ours reads what `zip` and `7z` make, and `unzip` and `7z` read what the
encoders of the tests make."""
import argparse
import os
import random
import shutil
import subprocess
import sys
import tempfile
import unittest

from folder_case import FolderCase
from not_run import not_run

PROGRAMS = ("zip", "unzip", "7z")


def run(*words, folder, codes=(0,)):
    done = subprocess.run(words, cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True)  # fmt: skip
    if done.returncode not in codes:
        raise AssertionError(f"{words}: {done.returncode}\n{done.stdout}")
    return done


def contents(folder):
    found = {}
    for place, _, names in os.walk(folder):
        for name in names:
            path = os.path.join(place, name)
            with open(path, "rb") as file:
                found[os.path.relpath(path, folder)] = file.read()
    return found


class ArchiveTest(FolderCase):
    @classmethod
    def setUpClass(cls):
        packed = tempfile.TemporaryDirectory()
        cls.addClassCleanup(packed.cleanup)
        run(MAKER, "a.zip", "plain", folder=packed.name)
        cls.packed = packed.name

    def use_packed(self):
        shutil.copy(os.path.join(self.packed, "a.zip"), self.folder)
        return contents(os.path.join(self.packed, "plain"))

    def setUp(self):
        super().setUp()
        self.plain = self.path("plain")
        self.out = self.path("out")
        os.mkdir(self.out)

    def write_plain(self):
        """Texts, noise, runs and nothing, in folders."""
        chance = random.Random(81)
        words = [bytes(chance.choices(range(97, 123), k=chance.randint(1, 9))) for _ in range(300)]
        files = {
            "empty": b"",
            "one": b"1",
            "dir/text.txt": b" ".join(chance.choices(words, k=60000)),
            "dir/deep/noise.bin": chance.randbytes(100000),
            "dir/runs": b"".join(bytes([chance.randrange(3)]) * chance.randrange(600) for _ in range(900)),
            "name with blanks": b"x" * 70000,
        }  # fmt: skip
        for i in range(150):
            files[f"many/{i}"] = b" ".join(chance.choices(words, k=i))
        for name, content in files.items():
            self.write(os.path.join("plain", name), content)
        return files

    def explode(self, archive):
        return run(EXTRACTOR, archive, folder=self.out)

    def check_reads(self, *make):
        files = self.write_plain()
        run(*make, folder=self.plain)
        self.explode("../a.zip")
        self.assertEqual(contents(self.out), files)
        text = os.stat(os.path.join(self.out, "dir/text.txt"))
        self.assertLess(abs(text.st_mtime - os.stat(os.path.join(self.plain, "dir/text.txt")).st_mtime),
                        86400)  # fmt: skip

    def test_reads_zip_at_each_level(self):
        for level in range(10):
            with self.subTest(level=level):
                shutil.rmtree(self.plain, ignore_errors=True)
                shutil.rmtree(self.out)
                os.mkdir(self.out)
                if os.path.exists(os.path.join(self.folder, "a.zip")):
                    os.remove(os.path.join(self.folder, "a.zip"))
                self.check_reads("zip", "-q", "-r", f"-{level}", "../a.zip", ".")

    def test_reads_zip_with_descriptors(self):
        files = self.write_plain()
        with open(os.path.join(self.folder, "a.zip"), "wb") as archive:
            subprocess.run(["zip", "-q", "-r", "-fd", "-", "."], cwd=self.plain, stdout=archive,
                           stdin=subprocess.DEVNULL, check=True)  # fmt: skip
        self.explode("../a.zip")
        self.assertEqual(contents(self.out), files)

    def test_reads_7z(self):
        self.check_reads("7z", "a", "-tzip", "-bd", "-mx=9", "../a.zip", ".")

    def test_reads_7z_with_nothing_packed(self):
        self.check_reads("7z", "a", "-tzip", "-bd", "-mx=0", "../a.zip", ".")

    def check_other_reads(self, kinds, *program, but=()):
        plain = self.use_packed()
        run(*program, "../a.zip", folder=self.out, codes=(0, 2, 81))
        found = contents(self.out)
        wanted = [name for name in plain if name.startswith(kinds) and name not in but]
        self.assertEqual(len(wanted), 40 * len(kinds) - len(but))
        self.assertEqual([name for name in wanted if found.get(name) != plain[name]], [])

    IMPLODED = ("imploded0", "imploded2", "imploded4", "imploded6")
    REDUCED = ("reduced1", "reduced2", "reduced3", "reduced4")

    def test_unzip_reads_what_the_encoders_make(self):
        # It clears no string above the newest: right only for the first clearing of a full table.
        self.check_other_reads(("stored", "shrunk", *self.IMPLODED), "unzip", "-q", but=["shrunk20"])

    def test_7z_reads_what_the_encoders_make(self):
        self.check_other_reads(("stored", "shrunk", "cleared", *self.IMPLODED), "7z", "x", "-y", "-bd")

    def test_reads_what_the_encoders_make(self):
        plain = self.use_packed()
        self.explode("../a.zip")
        self.assertEqual(contents(self.out), plain)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--extractor", required=True)
    parser.add_argument("--maker", required=True)
    options, rest = parser.parse_known_args()
    EXTRACTOR, MAKER = options.extractor, options.maker
    missing = [program for program in PROGRAMS if shutil.which(program) is None]
    if missing:
        not_run("missing: " + ", ".join(missing))
    unittest.main(argv=[sys.argv[0]] + rest)
