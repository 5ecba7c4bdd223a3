"""zeapi string: text typed on the command line, sent in four spellings."""

import os

import program_case
from program_case import CLEAR, UEL


class String(program_case.ProgramCase):
    def test_append_adds_to_the_file(self):
        self.run_program("string", "one", "-p", "out")
        self.run_program("string", "two", "-p", "out", "--append")
        self.assertEqual(self.read("out"), b"onetwo")
        self.run_program("string", "three", "-p", "out")
        self.assertEqual(self.read("out"), b"three")

    def test_plain_text_is_sent_as_it_is_typed(self):
        for text in ("%page", "$AB\\x41\\n", "0a1B", "hello", "", "info"):
            self.run_program("string", text, "-p", "out")
            self.assertEqual(self.read("out"), text.encode())

    def test_string_with_escapes(self):
        self.run_program("string", "--escaped", r"\eE\x00A\\\n\f", "-p", "out", "--pjl")
        self.assertEqual(self.read("out"), UEL + b"\x1bE\x00A\\\n\x0c" + UEL + CLEAR + UEL)

    def test_string_of_digits(self):
        self.run_program("string", "--hex", "1B 45 0c00", "-p", "out")
        self.assertEqual(self.read("out"), b"\x1bE\x0c\x00")

    def test_raw_string_goes_to_the_library(self):
        self.run_program("string", "--raw", r"$AB\x41\nC", "-p", "out")
        self.assertEqual(self.read("out"), b"ABA\nC")
        self.write("page", b"page")
        self.run_program("string", "--raw", "%page", "-p", "out", "--copies", "2")
        self.assertEqual(self.read("out"), b"pagepage")
        self.run_program("string", "--raw", "0g", "-p", "unused", exit_code=1)
        self.assertFalse(os.path.exists(os.path.join(self.folder, "unused")))

    def test_misspelt_strings_are_not_sent(self):
        self.run_program("string", "--hex", "0a1", "-p", "unused", exit_code=64)
        self.run_program("string", "--escaped", r"\q", "-p", "unused", exit_code=64)
        self.run_program("string", "--hex", "--escaped", "00", "-p", "unused", exit_code=64)
        self.assertFalse(os.path.exists(os.path.join(self.folder, "unused")))

    def test_printer_that_cannot_be_opened(self):
        done = self.run_program("string", "x", "-p", "no/such/folder/out", exit_code=3)
        self.assertIn("cannot be opened (3)", done.stderr)


if __name__ == "__main__":
    program_case.main()
