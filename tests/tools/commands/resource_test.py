"""zeapi resource: requests to a device of the printer."""

import os

import program_case
from program_case import CLEAR, UEL


class Resource(program_case.ProgramCase):
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


if __name__ == "__main__":
    program_case.main()
