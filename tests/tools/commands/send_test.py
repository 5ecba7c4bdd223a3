"""zeapi send: files to a printer."""

import program_case


class Send(program_case.ProgramCase):
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


if __name__ == "__main__":
    program_case.main()
