"""zeapi data: keyed printer data files."""

import program_case


class Data(program_case.ProgramCase):
    def test_data_files(self):
        line = b'"%s","Setting","PCL","1B","%%d",1,2.5,0.5,"P"\n'
        self.write("d.cfg", b"#!Settings\n" + line % b"A_1" + line % b"SF" + line % b"ST")
        records = self.answer("data", "list", "d.cfg")["records"]
        self.assertEqual([record["key"] for record in records], ["A_1", "SF", "ST"])
        self.assertEqual((records[0]["high"], records[0]["duration"]), (2.5, "P"))
        self.assertEqual(
            self.run_program("data", "find", "d.cfg", "S").stdout, "SF  Setting (PCL): 1B\n"
        )
        missing = self.run_program("data", "find", "d.cfg", "X", exit_code=41)
        self.assertIn("zeapi: cannot find X in d.cfg: ", missing.stderr)
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


if __name__ == "__main__":
    program_case.main()
