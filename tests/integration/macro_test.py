"""Macros and demos made of real files: PCL and PostScript from Ghostscript, and what an interpreter of
PostScript makes of stored files.

Usage: macro_test.py --program ZEAPI
"""
import argparse
import os
import shutil
import subprocess
import sys
import unittest

import macro_filter
from folder_case import LibraryCase
from not_run import not_run

OPTIONS = None

PAGES = b"""%!PS-Adobe-3.0
%%Pages: 2
%%EndComments
/Times-Roman findfont 14 scalefont setfont
1 1 2 {
  72 720 moveto (Page ) show 3 string cvs show
  1 1 20 { 72 exch 30 mul 40 add moveto (quick brown fox) show } for
  100 100 200 50 rectfill
  4711 srand
  gsave 300 300 translate 200 200 scale
  64 64 8 [64 0 0 -64 0 64] { 64 string 0 1 63 { 1 index exch rand 255 and put } for } image
  grestore
  showpage
} for
"""

# A printer's disk is the current folder, and its extensions are switched without effect.
PRINTER = b"""
userdict begin
/serverdict 1 dict def
serverdict /exitserver { pop end } put
/realfile systemdict /file get def
/file { exch (%disk1%) anchorsearch { pop (./) exch concatstrings } if exch realfile } def
end
statusdict begin /currentfilenameextend { true } def /setfilenameextend { pop } def end
"""

START, STOP = b"\x1b&f7y0X", b"\x1b&f1X"


class MacroTest(LibraryCase):
    def setUp(self):
        super().setUp()
        self.write("pages.ps", PAGES)

    def run_in_folder(self, *command):
        done = subprocess.run(
            command, cwd=self.folder, env=self.environment, stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=120)  # fmt: skip
        self.assertEqual(done.returncode, 0, done.stdout)
        return done.stdout

    def zeapi(self, *arguments):
        self.run_in_folder(OPTIONS.program, *arguments)
        return self.read("out") if "out" in arguments else None

    def gs(self, *arguments):
        return self.run_in_folder(
            "gs", "-q", "-dNOPAUSE", "-dBATCH", "-dNOSAFER", *arguments)

    def job(self, device):
        self.gs(f"-sDEVICE={device}", "-r150", "-sOutputFile=job", "pages.ps")
        return self.read("job")

    def rendering(self, name):
        """The pages of a PostScript file, as one bitmap each."""
        self.gs("-sDEVICE=pbmraw", "-r50", "-sOutputFile=page%d", name)
        pages = []
        while os.path.exists(self.path(f"page{len(pages) + 1}")):
            page = f"page{len(pages) + 1}"
            pages.append(self.read(page))
            os.remove(self.path(page))
        return pages


class Pcl(MacroTest):
    def check(self, device):
        job = self.job(device)
        self.write("job", job)
        macro = self.zeapi("macro", "create", "job", "-p", "out", "--id", "7", "--fixup")
        self.assertTrue(macro.startswith(START) and macro.endswith(STOP))
        content = macro[len(START):-len(STOP)]
        self.assertEqual(content, macro_filter.fixed_up(job))
        self.assertEqual(macro_filter.raster_rows(content), macro_filter.raster_rows(job))
        self.assertGreater(len(macro_filter.raster_rows(job)), 500)
        self.assertNotIn(b"\x1bE", content.replace(b"".join(macro_filter.raster_rows(job)), b""))
        for options in (0, 0x002, 0xFFF):
            macro = self.zeapi(
                "macro", "create", "job", "-p", "out", "--id", "7", "--fixup-options", str(options))
            self.assertEqual(
                macro[len(START):-len(STOP)], macro_filter.fixed_up(job, options), options)
        self.zeapi("macro", "check", "job")
        self.assertEqual(self.read("fixup.mac"), macro_filter.fixed_up(job))

    def test_ljet4(self):
        self.check("ljet4")

    def test_laserjet(self):
        self.check("laserjet")

    def test_job_with_job_control_round_it(self):
        uel = b"\x1b%-12345X"
        job = uel + b"@PJL SET COPIES = 2\n@PJL ENTER LANGUAGE = PCL\n" + self.job("ljet4") + uel
        self.write("job", job)
        macro = self.zeapi("macro", "create", "job", "-p", "out", "--id", "7", "--fixup")
        self.assertEqual(macro, START + macro_filter.fixed_up(job) + STOP)
        self.assertNotIn(b"@PJL", macro)


class PostScript(MacroTest):
    def test_overlay_prints_the_same_pages(self):
        job = self.job("ps2write")
        self.write("sent", b"\x1b%-12345X@PJL ENTER LANGUAGE = POSTSCRIPT\n" + job + b"\x04")
        overlay = self.zeapi(
            "macro", "create", "sent", "-p", "out", "--language", "postscript", "--name", "Letter",
            "--fixup",
        )  # fmt: skip
        first, rest = job.split(b"\n", 1)
        self.assertEqual(overlay, first + b"\n%%Velquist Overlay: Letter\n" + rest)
        pages = self.rendering("out")
        self.assertEqual(len(pages), 2)
        self.assertEqual(pages, self.rendering("job"))

    def test_printed_once_it_shows_one_page(self):
        self.write("logo.ps", b"%!PS\n100 100 200 50 rectfill\nshowpage\n")
        self.zeapi("macro", "send", "logo.ps", "-p", "out", "--mode", "once", "--language",
                   "postscript", "--fixup")  # fmt: skip
        pages = self.rendering("out")
        self.assertEqual(len(pages), 1)
        self.assertEqual(pages, self.rendering("logo.ps"))

    def test_stored_file_is_the_file_sent(self):
        self.write("printer.ps", PRINTER)
        sent = self.job("ps2write") + bytes(set(range(256)) - {1}) + b"\r\n\r"
        self.write("page", sent)
        self.zeapi("macro", "send", "page", "-p", "out", "--language", "postscript", "--device",
                   "disk1", "--name", "stored")  # fmt: skip
        self.write("after.ps", b"(after) print\n")
        self.assertEqual(self.gs("-sDEVICE=nullpage", "printer.ps", "out", "after.ps"), b"after")
        self.assertEqual(self.read("stored"), sent)

    def test_stored_demo_that_was_fixed_up_shows_its_page(self):
        self.write("printer.ps", PRINTER)
        self.write("page", b"%!PS\n100 100 200 50 rectfill\nshowpage\n\x04")
        self.zeapi("macro", "send", "page", "-p", "out", "--language", "postscript", "--device",
                   "disk1", "--name", "show", "--demo", "--fixup")  # fmt: skip
        self.gs("-sDEVICE=nullpage", "printer.ps", "out")
        self.assertEqual(
            self.read("show.demo"),
            b"userdict begin /showpage {} def end\n"
            b"%!PS\n100 100 200 50 rectfill\nshowpage\n"
            b"\nuserdict /showpage undef \nshowpage ")
        pages = self.rendering("show.demo")
        self.assertEqual(len(pages), 1)
        self.assertEqual(pages, self.rendering("page"))

    def test_procedure_in_memory_runs_when_it_is_named(self):
        self.write("printer.ps", PRINTER)
        self.write("page", b"(ran) print")
        self.zeapi("macro", "send", "page", "-p", "out", "--language", "postscript", "--name",
                   "Logo")  # fmt: skip
        self.write("run.ps", b"Logo\n")
        self.assertEqual(self.gs("-sDEVICE=nullpage", "printer.ps", "out"), b"")
        self.assertEqual(self.gs("-sDEVICE=nullpage", "printer.ps", "out", "run.ps"), b"ran")


class Demos(MacroTest):
    def test_file_written_by_the_interpreter_is_the_file_sent(self):
        self.write("printer.ps", PRINTER)
        sent = bytes(range(256)) * 20 + self.job("ljet4")
        self.write("page", sent)
        self.zeapi("demo", "send", "page", "-p", "out", "--device", "disk1", "--name", "demo1")
        self.write("after.ps", b"(after) print\n")
        self.assertEqual(self.gs("-sDEVICE=nullpage", "printer.ps", "out", "after.ps"), b"after")
        self.assertEqual(self.read("demo1.demo"), sent)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--program", required=True)
    OPTIONS, rest = parser.parse_known_args()
    if shutil.which("gs") is None:
        not_run("Ghostscript (package ghostscript) is not installed")
    unittest.main(argv=[sys.argv[0], *rest])
