"""Zeapi.cs compiled, with the library of this build behind it.

Usage: csharp_run_test.py LIBRARY FACTS    (FACTS: the program of facts.c)
"""

import re
import shutil
import subprocess
import sys
import unittest
import zipfile

import inputs
import interface
from folder_case import LibraryCase
from not_run import not_run
from printer_record import option_item, option_record

BINDING = interface.ROOT / "bindings/csharp/Zeapi.cs"
HOST = interface.ROOT / "tests/bindings/csharp_host.cs"
# The run time finds the library under another name here.
MAP = '<configuration><dllmap dll="ZEAPI1TD" target="%s"/></configuration>\n'


def output(*command, **options):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)
    if done.returncode:
        raise AssertionError(done.stdout)
    return done.stdout


class CSharpRun(LibraryCase):
    library = facts = None

    def run_program(self, source):
        """What a program says that is made of a source and the binding."""
        program = self.path("program.exe")
        output("mcs", "-warnaserror", "-warn:4", "-out:" + program, str(source), str(BINDING))
        self.write("program.exe.config", (MAP % self.library).encode())
        return output("mono", program, cwd=self.folder, env=self.environment)

    def test_structures_and_calls(self):
        self.write("a.sfp", inputs.SOFT_FONT)
        self.write("a.dat", inputs.data_line(b"SA1"))
        self.write("lines", b"one\ntwo\n")
        self.write("record", option_record(option_item(-2, 15, b"tray")))
        with zipfile.ZipFile(self.path("a.zip"), "w") as archive:
            archive.writestr("member.txt", b"text")

        structures, calls = self.run_program(HOST).split("calls:\n")
        self.assertEqual(set(structures.splitlines()), set(output(self.facts).splitlines()))

        ini = b"[One]\nkey=value\n"
        words = [int.from_bytes(ini[at : at + 2], "little") for at in range(0, len(ini), 2)]
        self.assertEqual(
            calls.splitlines(),
            [
                "version: 930",
                "send: ZE_OK",
                "no file: ZE_FILE_NOT_FOUND",
                "font: ZE_OK ZE_FONT_PCL_BITMAP 8U",
                f"found: 1 {len(inputs.SOFT_FONT)} ZE_FONT_PCL_BITMAP True",
                "ini: ZE_OK value key=value 1",
                "record: 0 SA1 True",
                "next: ZE_DAT_END_OF_FILE",
                "close: 0",
                f"modify: {-sum(words) & 0xFFFF} ZE_OK",
                "name: PAGE.PCL",
                "extract: ZE_OK member.txt",
                "options: 1 -2 15 tray",
            ],
        )
        self.assertEqual(
            self.read("out"),
            b'\x1b%-12345X@PJL RDYMSG DISPLAY = "First"\n@PJL ENTER LANGUAGE = PCL\n\x1bE'
            b'\x1b%-12345X@PJL RDYMSG DISPLAY = ""\n\x1b%-12345X',
        )
        self.assertEqual(self.read("lines"), b"Xne\nXwo\n")
        self.assertEqual(self.read("member.txt"), b"text")

    def test_the_first_call_of_the_readme(self):
        readme = (interface.ROOT / "README.md").read_text(encoding="utf-8")
        self.write("first.cs", re.search(r"```csharp\n(.*?)```", readme, re.S)[1].encode())
        self.write("page.pcl", b"page")
        said = self.run_program(self.path("first.cs"))
        self.assertEqual(said, "ZE_OK\n")
        self.assertIn(b"@PJL SET COPIES = 2\npage", self.read("Laser"))


def main():
    if not shutil.which("mcs") or not shutil.which("mono"):
        not_run("Mono (package mono-mcs) is not installed")
    CSharpRun.library, CSharpRun.facts = sys.argv[1:]
    unittest.main(argv=sys.argv[:1])


if __name__ == "__main__":
    main()
