"""zeapi qsf: lists of variables and blocks of a file."""

import program_case


class Qsf(program_case.ProgramCase):
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


if __name__ == "__main__":
    program_case.main()
