"""zeapi macro: macros made, sent, enabled, checked and found."""

import os

import program_case


class Macro(program_case.ProgramCase):
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


if __name__ == "__main__":
    program_case.main()
