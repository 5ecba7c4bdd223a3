"""zeapi demo: demos sent and found."""

import os

import program_case


class Demo(program_case.ProgramCase):
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
        self.run_program("demo", "list", "none", exit_code=2)


if __name__ == "__main__":
    program_case.main()
