"""The command line itself: help, and usage errors."""

import program_case


class CommandLine(program_case.ProgramCase):
    def test_every_command_has_help(self):
        commands = [
            "info", "send", "string", "font", "macro", "demo", "pclxl", "resource", "file", "job", "record",
        ]  # fmt: skip
        listed = self.run_program("--help").stdout
        for command in commands:
            self.assertIn("\n  " + command + " ", listed)
            self.assertIn("Usage: zeapi " + command, self.run_program(command, "--help").stdout)

    def test_usage_errors_are_told_from_results(self):
        self.run_program(exit_code=64)
        self.run_program("nonsense", exit_code=64)
        self.run_program("send", "page", exit_code=64)
        done = self.run_program("send", "a", "-p", "b", "--language", "latin", exit_code=64)
        self.assertIn("latin is none of none, default", done.stderr)
        self.assertIn('Try "zeapi send --help".', done.stderr)


if __name__ == "__main__":
    program_case.main()
