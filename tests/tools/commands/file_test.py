"""zeapi file: file utilities."""

import os

import program_case


class File(program_case.ProgramCase):
    def test_exists(self):
        self.write("a", b"")
        self.assertTrue(self.answer("file", "exists", "a")["exists"])
        self.assertFalse(self.answer("file", "exists", "b", exit_code=2)["exists"])

    def test_size(self):
        self.write("a.txt", b"12345")
        self.write("empty", b"")
        self.assertEqual(self.run_program("file", "size", "a.txt").stdout, "5\n")
        self.assertEqual(self.answer("file", "size", "*.txt")["size"], 5)
        self.assertEqual(self.answer("file", "size", "empty")["size"], 0)
        self.run_program("file", "size", "none", exit_code=2)

    def test_copy_and_backup(self):
        self.write("a.txt", b"12345")
        self.run_program("file", "copy", "a.txt", "b.txt")
        self.assertEqual(self.read("b.txt"), b"12345")
        self.run_program("file", "copy", "none", "b.txt", exit_code=2)
        self.assertEqual(self.answer("file", "backup", "a.txt")["backup"], "a.001")
        self.assertEqual(self.read("a.001"), b"12345")
        self.run_program("file", "backup", "none", exit_code=27)

    def test_checksum(self):
        self.write("a", b"\x01\x00\x02\x00")
        self.assertEqual(self.run_program("file", "checksum", "a").stdout, "65533 (0xFFFD)\n")
        self.assertEqual(self.answer("file", "checksum", "a", "--skip", "2")["checksum"], 65535)
        self.assertNotIn("checksum", self.answer("file", "checksum", "none", exit_code=3))

    def test_make_path(self):
        self.assertEqual(self.answer("file", "make-path", r"c:\one\two")["created"], r"\one\two")
        self.assertTrue(os.path.isdir(os.path.join(self.folder, "c", "one", "two")))
        self.assertEqual(self.answer("file", "make-path", r"c:\one")["created"], "")
        self.run_program("file", "make-path", "one", exit_code=26)

    def test_split(self):
        answer = self.answer("file", "split", r"c:\dir/name.txt")
        self.assertEqual((answer["directory"], answer["file"]), ("C:\\DIR/", "NAME.TXT"))

    def test_modify(self):
        self.write("a", b"one\ntwo\nthree\n")
        answer = self.answer("file", "modify", "a", "--drop", "two", "--find", "e", "--replace", "E")
        self.assertEqual((answer["changed"], answer["dropped"], answer["tooLong"]), (2, 1, 0))
        self.assertEqual(self.read("a"), b"onE\nthrEE\n")
        self.run_program("file", "modify", "a", exit_code=64)


if __name__ == "__main__":
    program_case.main()
