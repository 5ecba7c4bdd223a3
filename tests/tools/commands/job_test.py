"""zeapi job: a captured job, element by element."""

import os

import program_case


class Job(program_case.ProgramCase):
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
        page = os.path.join(os.path.dirname(__file__), "..", "..", "..", "examples", "page.pcl")
        lines = self.run_program("job", page, "--fold").stdout.splitlines()
        self.assertLess(len(lines), 40)
        self.assertTrue(any("row of a picture" in line for line in lines), lines)


if __name__ == "__main__":
    program_case.main()
