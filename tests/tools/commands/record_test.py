"""zeapi record: what a printer sends about its options and jobs."""

import program_case
from printer_record import container, integer, option_item, printer_record, text


class Record(program_case.ProgramCase):
    def test_options(self):
        values = container(3, container(1, integer(1, 7)))
        group = container(1, text(1, b"a"), values)
        record = container(1, container(1, option_item(11, 15, b"tray")), container(3, group))
        self.write("record", printer_record(record))
        answer = self.answer("record", "options", "record")
        self.assertEqual(answer["items"], [{"value1": 11, "value5": 15, "text6": "tray"}])
        self.assertEqual(answer["groups"], [{"text1": "a", "text2": None, "values": [7]}])
        self.assertEqual(
            self.run_program("record", "options", "record").stdout,
            'Items: 1\n  1: 11, 5: 15, 6: "tray"\nGroups: 1\n  1: "a", 2: none, 3: 7\n',
        )

    def test_account(self):
        job = container(2, container(1, integer(1, 5), text(11, b"job")))
        self.write("record", printer_record(container(1, job)))
        answer = self.answer("record", "account", "record")
        self.assertEqual(answer["job"]["value1_1"], 5)
        self.assertEqual(answer["job"]["text1_11"], "job")
        self.assertIsNone(answer["totals"])
        lines = self.run_program("record", "account", "record").stdout.splitlines()
        self.assertEqual(lines[:2], ["job:", "  value1_1 5"])

    def test_records_that_are_cut(self):
        for data in (b"", b"\0", b"\0\x05abcd"):
            self.write("record", data)
            self.run_program("record", "account", "record", exit_code=27)
        self.run_program("record", "options", "none", exit_code=2)


if __name__ == "__main__":
    program_case.main()
