#!/usr/bin/env python3
"""PCL XL jobs that Ghostscript makes of pages of ours, through the stream fixup."""
import argparse
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

import pclxl_stream
from not_run import not_run

PAGES = {
    "text": "/Helvetica findfont 40 scalefont setfont 72 700 moveto (A form: 12 @ 3) show",
    "drawing": """0.5 setgray 100 100 200 300 rectfill 0 setgray 4 setlinewidth
        newpath 300 400 90 0 360 arc stroke 1 0 0 setrgbcolor
        newpath 100 100 moveto 200 300 400 100 500 500 curveto stroke""",
    "image": """100 200 translate 400 400 scale /row 512 string def
        512 256 8 [512 0 0 256 0 0]
        { 0 1 511 { row exch dup dup mul 7 mul 255 and put } for row } image""",
    "pattern": """<< /PatternType 1 /PaintType 1 /TilingType 1 /BBox [0 0 20 20] /XStep 20 /YStep 20
        /PaintProc { pop 0 0 10 10 rectfill } >> matrix makepattern
        /Pattern setcolorspace setcolor 50 50 500 700 rectfill""",
    "blank": "",
}
DEVICES = ("pxlmono", "pxlcolor")
FIXUP_FAILED = 46


class StreamFixup(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def job(self, device, *pages):
        source = self.folder / "pages.ps"
        source.write_text("%!PS\n" + "".join(f"gsave {PAGES[page]} grestore showpage\n"
                                             for page in pages))
        job = self.folder / "job"
        subprocess.run(["gs", "-q", "-dBATCH", "-dNOPAUSE", f"-sDEVICE={device}",
                        "-sOutputFile=" + str(job), str(source)], check=True)
        return job.read_bytes()

    def fix_up(self, name="Form", execute=False, job="job"):
        answer = subprocess.run([arguments.caller, job, name, str(int(execute)), "output"],
                                cwd=self.folder, check=True, capture_output=True, text=True)
        return int(answer.stdout), (self.folder / "output").read_bytes()

    def test_page_becomes_the_stream_that_the_other_reader_makes_of_it(self):
        for device in DEVICES:
            for page in PAGES:
                for execute in (False, True):
                    with self.subTest(device=device, page=page, execute=execute):
                        job = self.job(device, page)
                        result, output = self.fix_up(execute=execute)
                        self.assertEqual(result, 0)
                        expected = pclxl_stream.stored_stream(job, b"Form", execute)
                        self.assertEqual(output, expected)

    def test_work_files_hold_the_stages(self):
        job = self.job("pxlcolor", "image")
        result, output = self.fix_up()
        self.assertEqual(result, 0)
        bodies = pclxl_stream.session_of(job)[1]
        self.assertGreater(len(bodies[0]), 4096)
        self.assertEqual((self.folder / "in.str").read_bytes(),
                         pclxl_stream.without_job_control(job))
        self.assertEqual((self.folder / "temp.str").read_bytes(), bodies[0])
        self.assertEqual((self.folder / "out.str").read_bytes(), output)

    def test_job_of_many_pages_is_refused_and_sends_nothing(self):
        for device in DEVICES:
            with self.subTest(device=device):
                job = self.job(device, "text", "drawing", "image")
                self.assertEqual(len(pclxl_stream.session_of(job)[1]), 3)
                self.assertEqual(self.fix_up(), (FIXUP_FAILED, b""))

    def test_stored_stream_is_a_session_again(self):
        self.job("pxlmono", "text")
        stream = self.fix_up(execute=True)[1]
        opening, bodies = pclxl_stream.session_of(stream)
        self.assertEqual(opening, stream[17:33])
        self.assertEqual(bodies, [b"\xc8\xc0\x04Form\xf8\x8b\x5e"])


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--caller", required=True)
    arguments, rest = parser.parse_known_args()
    if shutil.which("gs") is None:
        not_run("Ghostscript (package ghostscript) is not installed")
    unittest.main(argv=sys.argv[:1] + rest)
