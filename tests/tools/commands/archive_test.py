"""zeapi archive: extracting, and how far it is."""

import json
import os
import zipfile

import program_case


class Archive(program_case.ProgramCase):
    def archive(self, name, members):
        with zipfile.ZipFile(os.path.join(self.folder, name), "w", zipfile.ZIP_DEFLATED) as archive:
            for member, content in members.items():
                archive.writestr(member, content)

    def test_extracts_and_shows_a_bar_with_names(self):
        self.archive("a.zip", {"one.txt": b"1" * 5000, "d/two.txt": b"2", "three.dat": b"3"})
        done = self.run_program("archive", "extract", "a", "*.TXT")
        self.assertEqual(done.stdout, "Extracted 2 files from a.\n")
        self.assertEqual(self.read("one.txt"), b"1" * 5000)
        self.assertEqual(self.read("d/two.txt"), b"2")
        self.assertFalse(os.path.exists(os.path.join(self.folder, "three.dat")))
        self.assertIn("one.txt", done.stderr)
        self.assertIn("d/two.txt", done.stderr)
        self.assertIn("[########################] 100% 2 files", done.stderr)

    def test_quiet_shows_nothing(self):
        self.archive("a.zip", {"one": b"1"})
        self.assertEqual(self.run_program("archive", "extract", "a.zip", "--quiet").stderr, "")

    def test_events_in_json(self):
        self.archive("a.zip", {"one": b"1", "two": b"22"})
        lines = self.run_program("archive", "extract", "a.zip", "--json").stdout.splitlines()
        first, second, end = [json.loads(line) for line in lines]
        self.assertEqual((first["event"], first["name"]), ("file", "one"))
        self.assertEqual((second["name"], second["compressedSize"]), ("two", 4))
        self.assertEqual((end["event"], end["command"], end["result"], end["files"]),
                         ("end", "archive extract", 0, 2))  # fmt: skip

    def test_failures(self):
        self.run_program("archive", "extract", "none", exit_code=2)
        self.write("bad.zip", b"no archive")
        done = self.run_program("archive", "extract", "bad.zip", exit_code=27)
        self.assertIn("zeapi: cannot extract bad.zip", done.stderr)

    # Of the second of three files, so that the first is good and the third is never reached.
    def damaged_archive(self):
        self.archive("a.zip", {"one": b"1", "d/": b"", "two.txt": b"2", "three": b"3"})
        data = bytearray(self.read("a.zip"))
        local = data.index(b"two.txt") - 30
        data[local + 14] ^= 1
        self.write("a.zip", data)

    def test_wrong_checksum_in_the_middle_is_a_failure(self):
        self.damaged_archive()
        for pattern, what in (("", "a behind 1 file of 3"), ("t*", "t* from a behind 0 files of 2")):
            done = self.run_program("archive", "extract", "a", pattern, exit_code=43)
            self.assertEqual(done.stdout, "")
            self.assertIn("zeapi: cannot extract " + what + ": the file is damaged", done.stderr)
        self.assertEqual(self.read("one"), b"1")
        self.assertFalse(os.path.exists(os.path.join(self.folder, "three")))
        end = self.answer("archive", "extract", "a.zip", "t*", exit_code=43)
        self.assertEqual((end["event"], end["result"], end["files"]), ("end", 43, 0))
        self.run_program("archive", "extract", "a.zip", "*e")

    def test_pattern_without_a_match_is_named(self):
        self.archive("a.zip", {"one": b"1"})
        done = self.run_program("archive", "extract", "a", "x*", exit_code=2)
        self.assertIn("zeapi: cannot extract x* from a: ", done.stderr)

    def test_member_named_like_the_archive_is_not_taken_for_it(self):
        self.archive("inner.zip", {str(number): b"x" for number in range(5)})
        self.archive("fonts.zip", {"fonts": self.read("inner.zip")})
        done = self.run_program("archive", "extract", "fonts")
        self.assertEqual(done.stdout, "Extracted 1 file from fonts.\n")
        self.archive("p.zip", {"p": b"hello", "q": b"2", "r": b"3"})
        data = bytearray(self.read("p.zip"))
        data[data.index(b"q") - 30 + 14] ^= 1
        self.write("p.zip", data)
        done = self.run_program("archive", "extract", "p", exit_code=43)
        self.assertIn("zeapi: cannot extract p behind 1 file of 3: the file is damaged", done.stderr)

    # The directory's name may be a file's and the member's own a folder's, and the other way round.
    def test_member_is_what_its_own_header_says(self):
        for local, central, files in ((b"a/", b"ab", 0), (b"ab", b"a/", 1)):
            self.archive("a.zip", {"xy": b""})
            data = self.read("a.zip").replace(b"xy", local, 1).replace(b"xy", central)
            self.write("a.zip", data)
            self.assertEqual(self.answer_lines("a.zip")[-1]["files"], files)

    def test_member_without_a_header_is_a_failure(self):
        self.archive("a.zip", {"one": b"1", "two": b"2"})
        data = self.read("a.zip")
        self.write("a.zip", data.replace(b"PK\3\4", b"XX\3\4", 1))
        self.run_program("archive", "extract", "a.zip", exit_code=27)

    def answer_lines(self, archive):
        done = self.run_program("archive", "extract", archive, "--json")
        return [json.loads(line) for line in done.stdout.splitlines()]

    def test_members_that_are_passed_over_are_no_failure(self):
        self.archive("a.zip", {"one": b"1", "two": b"2"})
        data = bytearray(self.read("a.zip"))
        data[data.index(b"PK\1\2") + 10] = 9
        self.write("a.zip", data)
        done = self.run_program("archive", "extract", "a.zip")
        self.assertEqual(done.stdout, "Extracted 1 file from a.zip.\n")
        self.assertIn("100% 1 file ", done.stderr)


if __name__ == "__main__":
    program_case.main()
