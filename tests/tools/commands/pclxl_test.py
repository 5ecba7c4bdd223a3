"""zeapi pclxl: listings of jobs that the reader accepts and no stream can be made of."""

import json

import program_case
from program_case import UEL

HEADER = b") HP-PCL XL;1;1;\n"
BEGIN_SESSION, END_SESSION, BEGIN_PAGE, END_PAGE, TEXT = b"\x41", b"\x42", b"\x43", b"\x44", b"\xa8"

LISTED_HEADER = "    &LINE(') HP-PCL XL;1;1;');\n"
ACCEPTED = "one session, at most one page"


def operators(*names):
    return "".join(f"\n    &{name};\n" for name in names)


def page(data):
    """A page whose text has embedded data after it."""
    return BEGIN_PAGE + TEXT + b"\xfb" + bytes([len(data)]) + data + END_PAGE


class PclXl(program_case.ProgramCase):
    def assert_listed(self, job, listing, count):
        """The listing and the answer of a job that is accepted."""
        self.write("job.xl", job)
        done = self.run_program("pclxl", "list", "job.xl")
        self.assertEqual(done.stdout, f"{listing}{count} operators: {ACCEPTED}.\n")
        self.assertEqual(done.stderr, "")
        done = self.run_program("pclxl", "list", "job.xl", "--json")
        self.assertEqual(json.loads(done.stdout), {
            "command": "pclxl list", "result": 0, "meaning": ACCEPTED, "file": "job.xl",
            "operators": count, "header": 0, "code": 0})

    def assert_storable(self, storable):
        """What the fixup makes of the job that was listed last."""
        self.run_program("macro", "check", "job.xl", "--language", "pclxl", "--fixup",
                         exit_code=0 if storable else 46)

    def test_session_without_a_page(self):
        job = UEL + HEADER + BEGIN_SESSION + END_SESSION + UEL
        self.assert_listed(job, LISTED_HEADER + operators("BeginSession", "EndSession"), 2)
        self.assert_storable(True)

    def test_session_with_data_and_without_a_page(self):
        job = HEADER + BEGIN_SESSION + b"\xfb\x01x" + END_SESSION
        self.assert_listed(job, LISTED_HEADER + operators("BeginSession")
                           + "    &EMB_DATA_BYTE_HDR(1);\n    &HEX(\"78\");\n"
                           + operators("EndSession"), 3)
        self.assert_storable(True)

    def test_pjl_text_in_embedded_data_is_data(self):
        for data, lines, storable in (
            (b"@PJL SET X=1\nrest", ["40504a4c2053455420583d310a726573", "74"], False),
            (b"text @PJL", ["746578742040504a4c"], False),
            (UEL, ["1b252d313233343558"], False),
            (b"text @PJM", ["746578742040504a4d"], True),
        ):
            with self.subTest(data=data):
                job = (UEL + b"@PJL ENTER LANGUAGE = PCLXL\r\n" + HEADER + BEGIN_SESSION + page(data)
                       + END_SESSION + UEL + b"@PJL EOJ\r\n" + UEL)
                hexadecimal = "".join(f'    &HEX("{line}");\n' for line in lines)
                self.assert_listed(
                    job,
                    LISTED_HEADER + operators("BeginSession", "BeginPage", "Text")
                    + f"    &EMB_DATA_BYTE_HDR({len(data)});\n" + hexadecimal
                    + operators("EndPage", "EndSession"), 6)
                self.assert_storable(storable)

    def test_pjl_line_within_the_session_ends_the_listing(self):
        job = HEADER + BEGIN_SESSION + b"@PJL SET X=1\n" + page(b"") + END_SESSION
        self.write("job.xl", job)
        done = self.run_program("pclxl", "list", "job.xl", exit_code=46)
        self.assertEqual(done.stdout, LISTED_HEADER + operators("BeginSession")
                         + "\nERROR. (code = 3, op = 0x40, pos = 1)\n\n")
        # Its page can be stored: the fixup drops such lines wherever they stand.
        self.assert_storable(True)


if __name__ == "__main__":
    program_case.main()
