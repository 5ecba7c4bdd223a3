"""Runs the zeapi program as a person would and compares what arrives at a printer that is a file.

Usage: program_test.py COMMAND...    (the program, with what runs it in front where it needs that)
"""

import json
import os
import subprocess
import sys
import tempfile
import unittest
import zipfile

COMMAND = []

UEL = b"\x1b%-12345X"
CLEAR = b'@PJL RDYMSG DISPLAY = ""\n'


class ProgramTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.environment = dict(os.environ)
        # No print server of this host takes part, and drive C is the test's own.
        self.environment["CUPS_SERVER"] = os.path.join(self.folder, "no-server")
        self.environment["ZEAPI_DRIVES"] = self.folder
        os.mkdir(os.path.join(self.folder, "c"))

    def run_program(self, *arguments, exit_code=0):
        done = subprocess.run(
            COMMAND + list(arguments),
            cwd=self.folder,
            env=self.environment,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            text=True,
        )
        self.assertEqual(done.returncode, exit_code, done.stdout + done.stderr)
        return done

    def answer(self, *arguments, exit_code=0):
        return json.loads(self.run_program(*arguments, "--json", exit_code=exit_code).stdout)

    def write(self, name, data):
        with open(os.path.join(self.folder, name), "wb") as file:
            file.write(data)

    def read(self, name):
        with open(os.path.join(self.folder, name), "rb") as file:
            return file.read()


class Smoke(ProgramTest):
    """What is tried on every host."""

    def test_info_answers_in_json(self):
        info = self.answer("info")
        self.assertEqual(info["version"], 930)
        self.assertEqual(info["wordSize"], 32)
        words = {i: word for i, word in enumerate(info["words"]) if word != 0}
        ones = {i: 1 for i in (11, 12, 16, 17, 20, 23, 26, 28)}
        self.assertEqual(words, {0: 930, 1: 32, 2: 2, 3: 2, **ones})
        self.assertEqual(len(info["words"]), 64)

    def test_send_puts_pjl_and_copies_round_a_file(self):
        page = b"\x1bEpage\r\n\x00\xff\x0c" * 500
        self.write("page.pcl", page)
        answer = self.answer(
            "send", "page.pcl", "--printer", "out.prn", "--pjl", "--language", "pcl",
            "--copies", "3", "--job", "A page with a very long name",
        )  # fmt: skip
        self.assertEqual((answer["result"], answer["meaning"]), (0, "success"))
        self.assertEqual(
            self.read("out.prn"),
            UEL
            + b'@PJL RDYMSG DISPLAY = "A page with a very l"\n'
            + b"@PJL ENTER LANGUAGE = PCL\n@PJL SET COPIES = 3\n"
            + page
            + UEL + CLEAR + b"@PJL RESET\n" + UEL,
        )  # fmt: skip

    def test_failure_is_an_exit_code_and_words(self):
        done = self.run_program("send", "report.prn", "-p", "out.prn", exit_code=2)
        self.assertEqual(done.stderr, "zeapi: cannot send report.prn: the file does not exist (2)\n")
        self.assertEqual(done.stdout, "")


class Sending(ProgramTest):
    def test_format_request_of_a_pjl_printer(self):
        self.run_program(
            "resource", "format", "--device", "disk1", "-p", "out", "--pjl", "--language", "pcl"
        )
        self.assertEqual(
            self.read("out"),
            UEL + b"@PJL ENTER LANGUAGE = PCL\n"
            + UEL + b"@PJL LFORMAT DEVICE = disk1\n"
            + UEL + CLEAR + UEL,
        )  # fmt: skip

    def test_target_request_of_a_bracket_k_printer(self):
        self.run_program(
            "resource", "target", "--device", "flash2", "-p", "out", "--bracket-k",
            "--device-class", "2",
        )  # fmt: skip
        self.assertEqual(self.read("out"), b"\x1b[K\x01\x00\x01\x1b[K\x03\x00\x06\xc01")

    def test_requests_without_a_device(self):
        self.run_program("resource", "directory", "-p", "out")
        self.assertEqual(self.read("out"), b"\x1b[K\x03\x00\x06\xc0P")
        self.run_program("resource", "ram", "-p", "out", "--bracket-k")
        self.assertEqual(self.read("out"), b"\x1b[K\x03\x00\x06\xc02")
        self.run_program("resource", "format", "-p", "unused", exit_code=64)
        self.assertFalse(os.path.exists(os.path.join(self.folder, "unused")))

    def test_bracket_k_file_carries_channel_and_copies(self):
        self.write("page", b"page")
        self.run_program(
            "send", "page", "-p", "out", "--bracket-k", "--language", "pcl", "--copies", "2",
            "--channel", "4",
        )  # fmt: skip
        self.assertEqual(
            self.read("out"), b"\x1b[K\x03\x00\x064\x02\x1b&l2Xpage\x1b[K\x01\x00\x06"
        )

    def test_copies_of_a_plain_printer_follow_each_other(self):
        self.write("page", b"page\n")
        self.run_program("send", "page", "-p", "out", "--copies", "3")
        self.assertEqual(self.read("out"), b"page\npage\npage\n")

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


class Archives(ProgramTest):
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


class Files(ProgramTest):
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


class Job(ProgramTest):
    def test_lists_a_captured_job(self):
        self.run_program("string", "--escaped", r"\eE\f", "-p", "out", "--pjl")
        self.assertEqual(
            self.run_program("job", "out").stdout,
            "  offset    bytes\n"
            "00000000        9  ESC %-12345X      universal exit\n"
            "00000009        2  ESC E             reset\n"
            "0000000B        1  FF                end of the page\n"
            "0000000C        9  ESC %-12345X      universal exit\n"
            '00000015       25  @PJL RDYMSG DISPLAY = ""\n'
            "0000002E        9  ESC %-12345X      universal exit\n"
            "00000037        0  end\n",
        )

    def test_json_elements_tile_the_file(self):
        self.write("out", bytes(range(256)) * 20 + b"\x1b*b7000W" + bytes(300))
        at = 0
        for element in self.answer("job", "out"):
            self.assertEqual(element["offset"], at)
            at += element["length"]
        self.assertEqual(at, 256 * 20 + 8 + 300)
        self.assertEqual(element["missing"], 6700)

    def test_empty_and_missing_files(self):
        self.write("out", b"")
        self.assertEqual(self.answer("job", "out"), [])
        self.assertEqual(self.answer("job", "none", exit_code=2)["result"], 2)

    def test_fold_shows_the_page_of_the_examples_in_a_screen(self):
        page = os.path.join(os.path.dirname(__file__), "..", "..", "examples", "page.pcl")
        lines = self.run_program("job", page, "--fold").stdout.splitlines()
        self.assertLess(len(lines), 40)
        self.assertTrue(any("row of a picture" in line for line in lines), lines)


class CommandLine(ProgramTest):
    def test_every_command_has_help(self):
        commands = ["info", "send", "string", "resource", "file", "job"]
        listed = self.run_program("--help").stdout
        for command in commands:
            self.assertIn("\n  " + command + " ", listed)
            self.assertIn("Usage: zeapi " + command, self.run_program(command, "--help").stdout)

    def test_usage_errors_are_told_from_results(self):
        self.run_program(exit_code=64)
        self.run_program("nonsense", exit_code=64)
        self.run_program("send", "page", exit_code=64)
        done = self.run_program("send", "a", "-p", "b", "--language", "latin", exit_code=64)
        self.assertIn("latin is none of none, default", done.stderr)
        self.assertIn('Try "zeapi send --help".', done.stderr)


def main():
    arguments = sys.argv[1:]
    suites = [Smoke, Sending, Files, Job, CommandLine]
    if arguments[:1] == ["--smoke"]:
        arguments = arguments[1:]
        suites = [Smoke]
    # The program is started in another folder.
    COMMAND.extend(os.path.abspath(word) if os.path.exists(word) else word for word in arguments)
    load = unittest.defaultTestLoader.loadTestsFromTestCase
    result = unittest.TextTestRunner().run(unittest.TestSuite(load(suite) for suite in suites))
    sys.exit(not result.wasSuccessful())


if __name__ == "__main__":
    main()
