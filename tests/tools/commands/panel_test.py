"""zeapi panel: what the file of a panel says."""

import os

import program_case


class Panel(program_case.ProgramCase):
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
        self.assertEqual(
            self.run_program("panel", "defaults", "9", "1", *where).stdout, "0 0\n65535 -1\n27 none\n"
        )
        self.assertEqual(self.answer("panel", "defaults", "9", "2", *where)["defaults"], [])
        self.run_program("panel", "texts", "7", "26", *where, exit_code=41)
        self.run_program("panel", "spin", "8", "26", *where, exit_code=3)


if __name__ == "__main__":
    program_case.main()
