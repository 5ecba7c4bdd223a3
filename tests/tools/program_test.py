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

    def test_pclxl_list_shows_operators_and_why_a_job_cannot_be_stored(self):
        page = b"\xc0\x02\xf8\x25\x43\x85\x44"
        header = b") HP-PCL XL;1;1;\n\x41"
        path = os.path.join(self.folder, "page.xl")
        for pages, code, end in ((1, 0, "\n    &EndSession;\n5 operators"),
                                 (2, 46, "ERROR. (code = 51, op = 0x43, pos = 5)\n\n")):
            with open(path, "wb") as file:
                file.write(UEL + header + page * pages + b"\x42" + UEL)
            done = self.run_program("pclxl", "list", "page.xl", exit_code=code)
            self.assertIn('\n    &Ubyte("eA4Paper"); &MediaSize;\n    &BeginPage;\n', done.stdout)
            self.assertIn(end, done.stdout)
            answer = json.loads(self.run_program("pclxl", "list", "page.xl", "--json",
                                                 exit_code=code).stdout)
            self.assertEqual(answer["code"], 0 if code == 0 else 51)
            self.assertEqual(answer["operators"], 5)
        self.run_program("pclxl", "list", "none.xl", exit_code=2)

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


class Configuration(ProgramTest):
    def test_ini_values_are_set_read_listed_and_deleted(self):
        self.run_program("ini", "set", "a.ini", "Options", "Tray", "2")
        self.run_program("ini", "add", "a.ini", "Options", "Tray", "3")
        self.run_program("ini", "add", "a.ini", "Options", "Tray", "3")
        self.assertEqual(self.run_program("ini", "get", "a.ini", "options", "TRAY").stdout, "2\n")
        answer = self.answer("ini", "list", "a.ini", "Options")
        self.assertEqual(answer["lines"], ["Tray=2", "Tray=3"])
        self.run_program("ini", "delete", "a.ini", "Options", "Tray", "2")
        self.assertEqual(
            self.read("a.ini").replace(b"\r", b""), b"[Options]\nTray=3\n"
        )
        self.run_program("ini", "delete", "a.ini", "Options")
        self.assertEqual(self.read("a.ini").replace(b"\r", b""), b"Tray=3\n")

    def test_ini_says_what_is_missing(self):
        self.write("a.ini", b"[s]\nkey=" + b"v" * 1000 + b"\n")
        self.assertEqual(self.answer("ini", "get", "a.ini", "s", "key")["value"], "v" * 1000)
        self.run_program("ini", "get", "a.ini", "s", "other", exit_code=41)
        self.run_program("ini", "get", "a.ini", "t", "key", exit_code=45)
        self.run_program("ini", "list", "a.ini", "t", exit_code=45)
        self.run_program("ini", "get", "none.ini", "s", "key", exit_code=3)
        self.run_program("ini", "delete", "none.ini", "s", exit_code=3)
        answer = self.answer("ini", "get", "a.ini", "s", "other", "--default", "d")
        self.assertEqual((answer["value"], answer["default"]), ("d", True))

    def test_panel_queries(self):
        os.mkdir(os.path.join(self.folder, "panels"))
        self.write(
            "panels/opc007.cfg",
            b"[Format]\nStyle=2\n[Spin Limits]\n001a=1;99;5\n[Combos]\n001a-3=10;20\n"
            b"[Edit Lengths]\n001a=8\n[Dialogs]\n1=P\n[P]\nNumCtrls=1\nDefaults=1a;-6\n"
            b"NumOMVAR=1\nOMVAR=12AB\n",
        )
        where = ["--directory", "panels"]
        self.assertEqual(self.answer("panel", "file", "7")["file"], "opc007.cfg")
        spin = self.answer("panel", "spin", "7", "26", *where)
        self.assertEqual((spin["minimum"], spin["maximum"], spin["third"]), (1, 99, 5))
        self.assertEqual(
            self.run_program("panel", "texts", "7", "26", "--sub", "3", *where).stdout, "10\n20\n"
        )
        self.assertEqual(self.answer("panel", "edit-length", "7", "26", *where)["length"], 8)
        self.assertEqual(
            self.answer("panel", "defaults", "7", "1", *where)["defaults"],
            [{"control": 26, "default": -6}],
        )
        self.assertEqual(self.answer("panel", "variables", "7", "1", *where)["variables"], ["12ab"])
        self.run_program("panel", "defaults", "7", "2", *where, exit_code=41)
        self.write(
            "panels/opc009.cfg",
            b"[Dialogs]\n1=P\n2=Q\n[P]\nNumCtrls=4\nDefaults=0;0;ffff;-1;1b\n[Q]\nNumCtrls=2\n",
        )
        self.assertEqual(
            self.answer("panel", "defaults", "9", "1", *where)["defaults"],
            [
                {"control": 0, "default": 0},
                {"control": 65535, "default": -1},
                {"control": 27, "default": None},
            ],
        )
        self.assertEqual(self.answer("panel", "defaults", "9", "2", *where)["defaults"], [])
        self.run_program("panel", "texts", "7", "26", *where, exit_code=41)
        self.run_program("panel", "spin", "8", "26", *where, exit_code=3)

    def test_qsf_lists_and_blocks(self):
        self.write(
            "lists.ini", b"[DEFAULTORDER]\nNUMVARS=2\nNUMENTRIES=1\nOMVARS1=0x1A beef\n"
        )
        answer = self.answer("qsf", "list", "lists.ini", "12", "order")
        self.assertEqual(answer["variables"], ["001a", "beef"])
        self.run_program("qsf", "list", "lists.ini", "12", "required", exit_code=45)
        self.write("file.qsf", b"QS" + bytes(72))
        self.run_program("qsf", "block", "file.qsf", "1", "1", exit_code=44)
        self.run_program("qsf", "block", "file.qsf", "0", "1", exit_code=43)
        # The words beside the checksum add up to "QS".
        self.write("file.qsf", b"QS" + (65536 - 0x5351).to_bytes(2, "little") + bytes(70))
        self.assertEqual(self.answer("qsf", "block", "file.qsf", "0", "1")["count"], 0)
        self.run_program("qsf", "block", "file.qsf", "0", "3", exit_code=1)
        self.write("file.qsf", b"XY" + bytes(72))
        self.run_program("qsf", "block", "file.qsf", "0", "1", exit_code=29)
        self.run_program("qsf", "block", "none.qsf", "0", "1", exit_code=3)

    def test_data_files(self):
        line = b'"%s","Setting","PCL","1B","%%d",1,2.5,0.5,"P"\n'
        self.write("d.cfg", b"#!Settings\n" + line % b"A_1" + line % b"SF" + line % b"ST")
        records = self.answer("data", "list", "d.cfg")["records"]
        self.assertEqual([record["key"] for record in records], ["A_1", "SF", "ST"])
        self.assertEqual((records[0]["high"], records[0]["duration"]), (2.5, "P"))
        self.assertEqual(
            self.run_program("data", "find", "d.cfg", "S").stdout, "SF  Setting (PCL): 1B\n"
        )
        self.run_program("data", "find", "d.cfg", "X", exit_code=41)
        self.assertEqual(self.answer("data", "count", "d.cfg", "S")["count"], 2)
        counts = self.answer("data", "count", "d.cfg")
        self.assertEqual((counts["first"]["S"], counts["second"]["SF"]), (2, 1))
        listing = self.run_program("data", "count", "d.cfg").stdout.split("\n")
        self.assertEqual(listing[0], "A 1")
        self.assertEqual(listing[4:8], ["S 2", "T 0", "SA 0", "SF 1"])
        self.assertEqual(listing[11:], ["ST 1", ""])
        files = self.answer("data", "files", ".", "--kind", "configuration")["files"]
        self.assertEqual(files, [{"path": ".\\d.cfg", "description": "Settings"}])
        self.run_program("data", "list", "none.cfg", exit_code=2)
        self.write("bad.cfg", line % b"S" + b"bad\n")
        for query in (["list"], ["count"]):
            self.run_program("data", *query, "bad.cfg", exit_code=27)

    def test_data_counts_beyond_16_bits(self):
        line = b'"%s","","","","",0,0,0,""\n'
        self.write("d.cfg", (line % b"S") * 40000 + (line % b"sa") * 25537 + line % b"T")
        self.assertEqual(self.answer("data", "count", "d.cfg", "S")["count"], 40000)
        counts = self.answer("data", "count", "d.cfg")
        self.assertEqual((counts["first"]["S"], counts["second"]["SA"]), (65537, 25537))
        self.assertEqual(self.answer("data", "count", "d.cfg", "T")["count"], 1)
        self.assertEqual(self.answer("data", "count", "d.cfg", "X")["count"], 0)
        self.run_program("data", "count", "none.cfg", "S", exit_code=2)

    def test_web_addresses(self):
        url = self.answer("url", "path", "drivers", "--printer", "0", "--language", "3")["url"]
        self.assertTrue(url.endswith("/NA/drivers/3/8"), url)
        self.run_program("url", "path", "drivers", "--printer", "2", exit_code=44)
        self.write("web.ini", b"[AREA]\nDRIVERS=\n")
        url = self.answer("url", "path", "drivers", "--ini", "web.ini")["url"]
        self.assertTrue(url.endswith("/NA/0"), url)
        self.run_program("url", "path", "drivers", "--ini", "none.ini", exit_code=3)
        url = self.answer(
            "url", "query", "techsupport", "--family", "1", "--model", "2", "--language-id", "1031"
        )["url"]
        self.assertIn("/MD/?func=support&lang=2&prtr=B001002&ctry=", url)


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

    # Of the second of three files, so that the first is good and the third is never reached.
    def damaged_archive(self):
        self.archive("a.zip", {"one": b"1", "d/": b"", "two.txt": b"2", "three": b"3"})
        data = bytearray(self.read("a.zip"))
        local = data.index(b"two.txt") - 30
        data[local + 14] ^= 1
        self.write("a.zip", data)

    def test_wrong_checksum_in_the_middle_is_a_failure(self):
        self.damaged_archive()
        for pattern, files in (("", "1 file of 3"), ("t*", "0 files of 2")):
            done = self.run_program("archive", "extract", "a", pattern, exit_code=43)
            self.assertEqual(done.stdout, "")
            self.assertIn("zeapi: cannot extract a behind " + files + ": the file is damaged", done.stderr)
        self.assertEqual(self.read("one"), b"1")
        self.assertFalse(os.path.exists(os.path.join(self.folder, "three")))
        end = self.answer("archive", "extract", "a.zip", "t*", exit_code=43)
        self.assertEqual((end["event"], end["result"], end["files"]), ("end", 43, 0))
        self.run_program("archive", "extract", "a.zip", "*e")

    def test_members_that_are_passed_over_are_no_failure(self):
        self.archive("a.zip", {"one": b"1", "two": b"2"})
        data = bytearray(self.read("a.zip"))
        data[data.index(b"PK\1\2") + 10] = 9
        self.write("a.zip", data)
        done = self.run_program("archive", "extract", "a.zip")
        self.assertEqual(done.stdout, "Extracted 1 file from a.zip.\n")
        self.assertIn("100% 1 file ", done.stderr)


class Macros(ProgramTest):
    def test_create_puts_a_file_between_start_and_stop(self):
        self.write("logo.pcl", b"logo")
        answer = self.answer("macro", "create", "logo.pcl", "-p", "out", "--id", "7", "--chain", "9")
        self.assertEqual((answer["file"], answer["printer"], answer["id"]), ("logo.pcl", "out", 7))
        self.assertEqual(self.read("out"), b"\x1b&f7y0X\x1b&f9y3x7Ylogo\x1b&f1X")

    def test_fixup_with_and_without_options(self):
        self.write("logo.pcl", b"\x1bE\x0clogo")
        self.run_program("macro", "create", "logo.pcl", "-p", "out", "--fixup")
        self.assertEqual(self.read("out"), b"\x1b&f0y0Xlogo\x1b&f1X")
        self.run_program("macro", "create", "logo.pcl", "-p", "out", "--fixup-options", "2")
        self.assertEqual(self.read("out"), b"\x1b&f0y0X\x1bElogo\x1b&f1X")

    def test_send_in_each_mode(self):
        self.write("logo.pcl", b"logo")
        for mode, job in (
            ("once", b"\x1b&f7y0Xlogo\x1b&f1X\x1b&f7y4X\xff\x0c\x1b&f7y5X"),
            ("store", b"\x1b&f7y0Xlogo\x1b&f1X\x1b&f7y10X"),
            ("raw", b"logo\x1b&f7y10X"),
        ):
            answer = self.answer(
                "macro", "send", "logo.pcl", "-p", "out", "--id", "7", "--mode", mode)
            self.assertEqual((answer["mode"], answer["device"]), (mode, "ram"))
            self.assertEqual(self.read("out"), job)
        self.run_program(
            "macro", "send", "logo.pcl", "-p", "out", "--unwrapped", "--id", "7")
        self.assertEqual(self.read("out"), b"logo\x1b&f7y10X")

    def test_send_a_postscript_demo_to_a_device(self):
        self.write("page.ps", b"page")
        self.run_program(
            "macro", "send", "page.ps", "-p", "out", "--language", "postscript", "--device",
            "disk1", "--name", "show", "--demo",
        )  # fmt: skip
        self.assertIn(b"/writefile (%disk1%show.demo) (w) file def\n", self.read("out"))

    def test_send_pcl_xl_is_not_wrapped(self):
        self.write("page", b"page")
        self.run_program("macro", "send", "page", "-p", "out", "--language", "pclxl")
        self.assertEqual(
            self.read("out"),
            b"@PJL SET LDOWNLOADTARGET = ram\n@PJL ENTER LANGUAGE = PCLXL\npage")

    def test_enable_disable_delete(self):
        for verb, job in (
            ("enable", b"\x1b&f7y4X"), ("disable", b"\x1b&f7y5X"), ("delete", b"\x1b&f7y8X\0")
        ):  # fmt: skip
            self.assertEqual(self.answer("macro", verb, "--id", "7", "-p", "out")["id"], 7)
            self.assertEqual(self.read("out"), job)
        self.run_program("macro", "enable", "-p", "out", exit_code=64)

    def test_check(self):
        self.write("good.pcl", b"text")
        self.write("bad.pcl", b"text\x1b&f1X")
        done = self.run_program("macro", "check", "good.pcl")
        self.assertEqual(done.stdout, "good.pcl may be stored as a macro.\n")
        self.run_program("macro", "check", "bad.pcl", exit_code=27)
        self.run_program("macro", "check", "bad.pcl", "--fixup-options", "2048")
        self.run_program("macro", "check", "good.pcl", "--language", "pclxl", exit_code=6)

    def test_list(self):
        os.mkdir(os.path.join(self.folder, "folder"))
        for name, data in (("a.pcl", b"text"), ("b.pcl", b"\x1b&f1X"), ("c.exe", b"")):
            self.write(os.path.join("folder", name), data)
        self.assertEqual(
            self.answer("macro", "list", "folder")["macros"],
            [{"path": "folder\\a.pcl", "size": 4}])
        self.assertEqual(
            self.run_program("macro", "list", "folder").stdout,
            "         4  folder\\a.pcl\nFiles: 1\n")
        self.run_program("macro", "list", "none", exit_code=2)


class Demos(ProgramTest):
    def test_send_by_each_method(self):
        self.write("page", b"AB")
        for method, part in (
            ("postscript", b"loop\n4142>\n"),
            ("pjl-file", b'FILENAME="show.demo" START=0 \nAB@PJL END DATA\n'),
            ("bracket-d", b"\x1b[D\0\x05\1\3show" + bytes(8) + b"\0\0\0\2AB"),
            ("pjl-demo", b'@PJL LOPENDEMOFILE NAME="show"\nAB\x1bM@PJL LCLOSEDEMOFILE\n'),
        ):
            answer = self.answer(
                "demo", "send", "page", "-p", "out", "--method", method, "--device", "disk1",
                "--name", "show", "--id", "5", "--slot", "3", "--option",
            )  # fmt: skip
            self.assertEqual((answer["method"], answer["device"]), (method, "disk1"))
            self.assertIn(part, self.read("out"))
        self.run_program("demo", "send", "page", "-p", "out", "--method", "nothing")
        self.assertEqual(self.read("out"), b"")

    def test_list(self):
        os.mkdir(os.path.join(self.folder, "folder"))
        for name in ("a.pcl", "b", "c.exe"):
            self.write(os.path.join("folder", name), b"demo")
        self.assertEqual(
            [demo["path"] for demo in self.answer("demo", "list", "folder")["demos"]],
            ["folder\\a.pcl", "folder\\b"])
        self.assertEqual(len(self.answer("demo", "list", "folder", "--limit", "1")["demos"]), 1)


class Fonts(ProgramTest):
    """Fonts made here: a PCL bitmap, a Type 1 font of two segments, a cartridge."""

    PCL = (
        b"\x1b)s64W" + b"\0\x40\0\1" + bytes(10) + b"\x01\x15\0\x78\0\xc8" + bytes(4)
        + b"\3\x03\x10" + bytes(21) + b"Courier".ljust(16, b"\0") + b"characters"
    )  # fmt: skip
    PFB = b"\x80\1\x11\0\0\0/FontName /Times\n\x80\2\2\0\0\0\xab\x0c\x80\3"

    def test_info_of_a_soft_font(self):
        self.write("font.sfp", self.PCL)
        self.assertEqual(
            self.run_program("font", "info", "font.sfp").stdout,
            "Courier  Bd [12.0 Pt.] (Roman-8)\n"
            "  kind            downloadable\n"
            "  format          PCL bitmap\n"
            "  detail          " + self.answer("font", "info", "font.sfp")["detail"] + "\n"
            "  symbol set      8U\n"
            "  flags           binary, standard\n"
            "  file size       80 bytes\n"
            "  printer memory  400 bytes\n",
        )

    def test_info_in_json(self):
        self.write("font.sfp", self.PCL)
        answer = self.answer("font", "info", "font.sfp")
        self.assertEqual((answer["result"], answer["kind"], answer["format"]), (0, 3, 9))
        self.assertEqual((answer["kindName"], answer["formatName"]), ("downloadable", "PCL bitmap"))
        self.assertEqual(answer["flags"], ["binary", "standard"])
        self.assertEqual((answer["fileSize"], answer["printerMemory"]), (80, 400))
        self.assertEqual(answer["description"], "Courier  Bd [12.0 Pt.] (Roman-8)")
        self.assertEqual(answer["symbolSet"], "8U")
        self.assertIsNone(answer["cartridge"])

    def test_info_shows_a_font_whose_companion_is_missing(self):
        self.write("font.pfb", self.PFB)
        done = self.run_program("font", "info", "font.pfb", "--query-option", "2", exit_code=32)
        self.assertTrue(done.stdout.startswith("Times\n  kind            downloadable\n"))
        self.assertIn("zeapi: cannot find every companion of font.pfb: ", done.stderr)
        self.write("font.AFM", b"x")
        answer = self.answer("font", "info", "font.pfb", "--query-option", "2")
        self.assertEqual(answer["companionFile"], "font.AFM")

    def test_info_of_files_that_are_no_fonts(self):
        self.write("page.prn", b"page")
        done = self.run_program("font", "info", "page.prn", exit_code=27)
        self.assertEqual(done.stdout, "")
        self.run_program("font", "info", "none.sfp", exit_code=2)
        self.write("font.tfm", b"x")
        self.run_program("font", "info", "font.tfm")
        self.run_program("font", "info", "font.tfm", "--fonts-only", exit_code=27)

    def test_info_lists_the_fonts_of_a_cartridge(self):
        entry = bytearray(256)
        entry[2:6] = (256).to_bytes(4, "little")
        entry[83:85] = (700).to_bytes(2, "little")
        entry[105:109] = (200).to_bytes(4, "little")
        entry[200:207] = b"Courier"
        header = b"".join(n.to_bytes(4, "little") for n in (0, 96 + 2 * 256, 16, 96))
        self.write("cart.pcm", header + b"Forms".ljust(80, b"\0") + bytes(entry) * 2)
        self.assertEqual(
            self.answer("font", "info", "cart.pcm")["cartridge"],
            {"name": "Forms", "fonts": ["Courier (Bd)", "Courier (Bd)"]},
        )
        text = self.run_program("font", "info", "cart.pcm").stdout
        self.assertEqual(text.count("  font            Courier (Bd)\n"), 2)

    def make_folder(self):
        os.mkdir(os.path.join(self.folder, "fonts"))
        self.write("fonts/a.sfp", self.PCL)
        self.write("fonts/b.pfb", self.PFB)
        self.write("fonts/c.ttf", b"x")
        self.write("fonts/page.prn", b"page")

    def test_list_is_a_table(self):
        self.make_folder()
        done = self.run_program("font", "list", "fonts")
        lines = sorted(done.stdout.splitlines())
        self.assertEqual(lines.pop(), "Fonts: 3")
        self.assertEqual([" ".join(line.rsplit("  ", 1)[0].split()) for line in lines], [
            "1 TrueType of the host c",
            "33 Type 1 Times",
            "80 PCL bitmap 8U Courier Bd [12.0 Pt.] (Roman-8)",
        ])
        self.assertEqual(done.stderr, "")

    def test_list_in_json_with_filters(self):
        self.make_folder()
        fonts = self.answer("font", "list", "fonts")["fonts"]
        self.assertEqual({font["description"]: font["format"] for font in fonts},
                         {"Courier  Bd [12.0 Pt.] (Roman-8)": 9, "Times": 2, "c": 21})
        self.assertEqual({font["size"] for font in fonts}, {80, 33, 1})

        def names(*filters):
            fonts = self.answer("font", "list", "fonts", *filters)["fonts"]
            return sorted(font["path"].replace("/", "\\").rpartition("\\")[2] for font in fonts)

        self.assertEqual(names("--type", "2"), ["b.pfb"])
        self.assertEqual(names("--type", "10"), ["a.sfp"])
        self.assertEqual(names("--kind", "3"), ["a.sfp", "b.pfb"])
        self.assertEqual(len(names("--limit", "1")), 1)
        self.assertEqual(names("--query-option", "2"), ["a.sfp", "c.ttf"])

    def test_list_of_no_fonts_and_of_no_folder(self):
        os.mkdir(os.path.join(self.folder, "empty"))
        self.assertEqual(self.run_program("font", "list", "empty").stdout, "Fonts: 0\n")
        self.assertEqual(self.answer("font", "list", "none", exit_code=2)["result"], 2)
        self.run_program("font", "list", "empty", "--type", "29", exit_code=64)

    def test_list_shows_how_far_it_is(self):
        self.make_folder()
        done = self.run_program("font", "list", "fonts", "--progress")
        self.assertIn("[" + "#" * 40 + "] 100%", done.stderr)
        # The bar is wiped away; a carriage return is read as the end of a line here.
        self.assertTrue(done.stderr.endswith("\n" + " " * 47 + "\n"))

    def test_convert_there_and_back(self):
        self.write("t.afm", b"StartFontMetrics 2.0\nFontName Times-Roman\nFullName Times Roman\n"
                   b"FamilyName Times\nWeight Roman\nIsFixedPitch false\nFontBBox 0 -200 1000 900\n"
                   b"CapHeight 662\nXHeight 448\nAscender 682\nDescender -217\n"
                   b"StartCharMetrics 1\nC 65 ; WX 722 ; N A ; B 15 0 706 674 ;\nEndCharMetrics\n"
                   b"EndFontMetrics\n")
        self.write("t.inf", b"MSMenuName (Tms Rmn)\n")
        answer = self.answer("font", "convert", "t.afm", "afm-to-pfm", "-o", "out.pfm")
        self.assertEqual((answer["result"], answer["conversion"]), (0, "afm-to-pfm"))
        self.assertEqual(self.answer("font", "info", "out.pfm")["description"], "Tms Rmn")
        self.run_program("font", "convert", "out.pfm", "pfm-to-afm", "-o", "back.afm")
        self.assertRegex(self.read("back.afm"), rb"C +65 ; WX +722 ; N A ;")

    def test_convert_refuses_what_is_no_font(self):
        self.write("a.sfp", self.PCL)
        self.run_program("font", "convert", "none.afm", "afm-to-pfm", exit_code=2)
        self.run_program("font", "convert", "a.sfp", "tfm-to-pfm", exit_code=64)
        self.run_program("font", "convert", "a.sfp", "nonsense", exit_code=64)
        self.run_program("font", "convert", "a.sfp", "tfm-to-pfm", "--tfm", "none.tfm", exit_code=27)

    def test_send_into_flash_memory(self):
        self.write("font.sfp", self.PCL)
        answer = self.answer(
            "font", "send", "font.sfp", "-p", "out", "--pjl", "--language", "pcl", "--id", "10",
            "--target", "flash1",
        )  # fmt: skip
        self.assertEqual((answer["result"], answer["target"]), (0, "flash1"))
        self.assertEqual(
            self.read("out"),
            UEL + b"@PJL ENTER LANGUAGE = PCL\n"
            + UEL + b"@PJL SET LDOWNLOADTARGET = flash1\n"
            + b"\x1b*c10D" + self.PCL + b"\x1b*c5F"
            + UEL + b"@PJL SET LDOWNLOADTARGET = ram\n"
            + UEL + CLEAR + UEL,
        )  # fmt: skip

    def test_send_without_a_language_is_postscript_for_a_type_1_font(self):
        self.write("font.pfb", self.PFB)
        self.run_program("font", "send", "font.pfb", "-p", "out", "--query-option", "4")
        job = self.read("out")
        self.assertEqual(job[:20], b"%% BeginExitServer 0")
        self.assertEqual(job[103:], b"/FontName /Times\nAB0C%!\x04")

    def test_send_in_ppds_blocks(self):
        self.write("font.pfb", self.PFB)
        self.run_program(
            "font", "send", "font.pfb", "-p", "out", "--language", "ppds", "--id", "300",
            "--ppds-code", "4866", "--ppds-slot", "7",
        )  # fmt: skip
        self.assertEqual(
            self.read("out"),
            b"\x1b=\4\0A\x0e\x01\x2c" + b"\x1b=\x29\0A\1\1\x12\2\0\7\1" + self.PFB,
        )

    def test_send_refuses_what_no_printer_takes(self):
        self.write("font.ttf", b"x")
        done = self.run_program("font", "send", "font.ttf", "-p", "out", exit_code=27)
        self.assertIn("zeapi: cannot send font.ttf: ", done.stderr)
        self.run_program("font", "send", "none.sfp", "-p", "out", exit_code=2)
        self.run_program("font", "send", "font.ttf", "-p", "out", "--target", "rom", exit_code=64)


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


class Records(ProgramTest):
    KEYS = b"\0\1P{ID:1,DT:1}C{NE:1,LD:2}D{LD:1,DA:0}"

    @staticmethod
    def container(identifier, *children):
        content = b"".join(children)
        return bytes([identifier, 0, len(children)]) + len(content).to_bytes(2, "big") + content

    def write_record(self, *elements):
        body = self.KEYS + b"".join(elements)
        self.write("record", len(body).to_bytes(2, "big") + body)

    def test_options(self):
        item = self.container(1, b"\1\1\1\x0b", b"\5\1\1\x0f", b"\6\2\4tray")
        values = self.container(3, self.container(1, b"\1\1\1\x07"))
        group = self.container(1, b"\1\2\1a", values)
        self.write_record(self.container(1, self.container(1, item), self.container(3, group)))
        answer = self.answer("record", "options", "record")
        self.assertEqual(answer["items"], [{"value1": 11, "value5": 15, "text6": "tray"}])
        self.assertEqual(answer["groups"], [{"text1": "a", "text2": None, "values": [7]}])
        self.assertEqual(
            self.run_program("record", "options", "record").stdout,
            'Items: 1\n  1: 11, 5: 15, 6: "tray"\nGroups: 1\n  1: "a", 2: none, 3: 7\n',
        )

    def test_account(self):
        job = self.container(2, self.container(1, b"\1\1\1\x05", b"\x0b\2\3job"))
        self.write_record(self.container(1, job))
        answer = self.answer("record", "account", "record")
        self.assertEqual(answer["job"]["value1_1"], 5)
        self.assertEqual(answer["job"]["text1_11"], "job")
        self.assertIsNone(answer["totals"])
        lines = self.run_program("record", "account", "record").stdout.splitlines()
        self.assertEqual(lines[:2], ["job:", "  value1_1 5"])

    def test_records_that_are_cut(self):
        for data in (b"", b"\0", b"\0\x05abcd"):
            self.write("record", data)
            self.run_program("record", "account", "record", exit_code=27)
        self.run_program("record", "options", "none", exit_code=2)


class CommandLine(ProgramTest):
    def test_every_command_has_help(self):
        commands = [
            "info", "send", "string", "font", "macro", "demo", "pclxl", "resource", "file", "job", "record",
        ]  # fmt: skip
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
    suites = ProgramTest.__subclasses__()
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
