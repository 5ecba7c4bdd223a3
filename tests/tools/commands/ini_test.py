"""zeapi ini: values of configuration files."""

import program_case


class Ini(program_case.ProgramCase):
    def test_ini_values_are_set_read_listed_and_deleted(self):
        self.run_program("ini", "set", "a.ini", "Options", "Tray", "2")
        self.run_program("ini", "add", "a.ini", "Options", "Tray", "3")
        self.run_program("ini", "add", "a.ini", "Options", "Tray", "3")
        self.assertEqual(self.run_program("ini", "get", "a.ini", "options", "TRAY").stdout, "2\n")
        answer = self.answer("ini", "list", "a.ini", "Options")
        self.assertEqual(answer["lines"], ["Tray=2", "Tray=3"])
        self.run_program("ini", "delete", "a.ini", "Options", "Tray", "2")
        self.assertEqual(
            self.read("a.ini").replace(b"\r", b""), b"[Options]\nTray=3\n"
        )
        self.run_program("ini", "delete", "a.ini", "Options")
        self.assertEqual(self.read("a.ini").replace(b"\r", b""), b"Tray=3\n")

    def test_ini_says_what_is_missing(self):
        self.write("a.ini", b"[s]\nkey=" + b"v" * 1000 + b"\n")
        self.assertEqual(self.answer("ini", "get", "a.ini", "s", "key")["value"], "v" * 1000)
        self.run_program("ini", "get", "a.ini", "s", "other", exit_code=41)
        self.run_program("ini", "get", "a.ini", "t", "key", exit_code=45)
        self.run_program("ini", "list", "a.ini", "t", exit_code=45)
        self.run_program("ini", "get", "none.ini", "s", "key", exit_code=3)
        self.run_program("ini", "delete", "none.ini", "s", exit_code=3)
        answer = self.answer("ini", "get", "a.ini", "s", "other", "--default", "d")
        self.assertEqual((answer["value"], answer["default"]), ("d", True))


if __name__ == "__main__":
    program_case.main()
