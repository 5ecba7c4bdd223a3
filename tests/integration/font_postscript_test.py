#!/usr/bin/python3
"""Real Type 1 fonts, as they are sent to a PostScript printer, in a PostScript interpreter.

Ghostscript works as a job server here: the exit-server line of the job ends the job that would take
the font away with it, and the end of transmission begins the next one, the page.
"""

import os
import re
import shutil
import subprocess

import job_case
import jobs
import type1_fonts
from not_run import not_run

RENDER_SECONDS = 60
FONTS = ("lmr10.pfb", "lmtt10.pfb", "qtmri.pfb", "qhvb.pfb")
POSTSCRIPT_PJL = (f"flags={jobs.PJL}", f"language={jobs.POSTSCRIPT}", "jobName=Fonts")

# Every character of the font's own encoding, a row of the page for 16 codes.
PAGE = b"""%%!PS
/%s findfont 24 scalefont setfont
0 1 15 { /row exch def 36 740 row 42 mul sub moveto
  0 1 15 { row 16 mul add ( ) dup 0 4 -1 roll put show } for
} for
showpage
"""


def postscript_of(job):
    """What the PostScript interpreter gets of a PJL job."""
    _, _, payload, trailer, rest = re.split(
        rb"(?:^|(?<=\x04))\x1b%-12345X|(?<=POSTSCRIPT\n)|\x1b%-12345X$", job)
    assert rest == b"" and trailer == jobs.CLEAR_DISPLAY, (trailer, rest)
    return payload


def rendered(*parts):
    """The page that Ghostscript makes of these jobs, as a picture; None when it makes none."""
    done = subprocess.run(
        ["gs", "-q", "-dBATCH", "-dNOPAUSE", "-dJOBSERVER", "-dNONATIVEFONTMAP",
         "-sDEVICE=pgmraw", "-r100", "-sstdout=%stderr", "-sOutputFile=-", "-"],
        input=b"".join(parts), stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
        timeout=RENDER_SECONDS, check=False)
    return done.stdout if done.returncode == 0 and done.stdout else None


class FontPostScriptTest(job_case.JobCase):
    def sent(self, name, data):
        """The PostScript that the library makes of a font file."""
        self.write(name, data)
        outcome = self.call("font", name, "out.prn", 1, *POSTSCRIPT_PJL)
        self.assertEqual(outcome.results, [0])
        return postscript_of(self.read("out.prn"))

    def test_the_hexadecimal_form_is_still_the_font(self):
        for name in FONTS:
            with self.subTest(font=name):
                data = type1_fonts.read_outline(self, name)
                bodies = [body for _, body in jobs.pfb_segments(data)]
                face = re.search(rb"/FontName\s*/(\S+)", bodies[0])[1]
                page = PAGE % face
                wanted = rendered(b"".join(bodies), page)
                self.assertIsNotNone(wanted)
                self.assertNotEqual(wanted, rendered(page), "Ghostscript has this font anyway")
                sent = self.sent(name, data)
                os.remove(self.path("out.prn"))
                self.assertEqual(sent, b"".join(jobs.postscript_font(data)))
                self.assertTrue(wanted == rendered(sent, page), "the page looks different")

    def test_a_text_font_is_still_the_font(self):
        data = type1_fonts.read_outline(self, FONTS[0])
        (_, clear), (_, secret), (_, end) = jobs.pfb_segments(data)
        digits = secret.hex().encode()
        lines = b"\n".join(digits[at:at + 64] for at in range(0, len(digits), 64))
        pfa = clear.replace(b"\r", b"\n") + lines + b"\n" + end
        page = PAGE % b"LMRoman10-Regular"
        self.assertTrue(rendered(clear, secret, end, page) == rendered(self.sent("font.pfa", pfa),
                                                                       page))

    def test_one_wrong_digit_would_show(self):
        data = type1_fonts.read_outline(self, FONTS[0])
        sent = self.sent(FONTS[0], data)
        page = PAGE % b"LMRoman10-Regular"
        start = sent.index(b"currentfile eexec") + 20000
        wrong = sent[:start] + (b"0" if sent[start:start + 1] != b"0" else b"1") + sent[start + 1:]
        self.assertFalse(rendered(sent, page) == rendered(wrong, page))


if __name__ == "__main__":
    if shutil.which("gs") is None:
        not_run("there is no PostScript interpreter here (package ghostscript)")
    job_case.main()
