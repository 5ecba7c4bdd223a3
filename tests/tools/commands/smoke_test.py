"""What is tried of the program on every host: a listing, an answer, a job, a failure."""

import json
import os

import program_case
from program_case import CLEAR, UEL


class Smoke(program_case.ProgramCase):
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


if __name__ == "__main__":
    program_case.main()
