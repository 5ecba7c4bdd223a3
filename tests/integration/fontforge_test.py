#!/usr/bin/python3
"""Our Windows metrics beside those that FontForge writes of the same fonts. What both derive from the
AFM file must agree; docs/decisions.md explains where the two choose differently."""

import shutil
import subprocess

import afm
import font_case
import pfm
import type1_fonts
from not_run import not_run

FONTFORGE = shutil.which("fontforge")
FONTS, MISSING = type1_fonts.find()

SCRIPT = """
import fontforge, sys
for line in sys.stdin:
    outline, metrics, output = line.rstrip("\\n").split("\\t")
    font = fontforge.open(outline)
    font.mergeFeature(metrics)
    font.generate(output, flags=("pfm",))
    font.close()
"""

SAME_HEADER = ("version type points vert_res horiz_res external_leading italic underline strike_out "
               "char_set pix_width max_width first last break_char width_bytes bits_pointer "
               "bits_offset").split()
SAME_EXTENDED = ("size point_size orientation master_height min_scale max_scale master_units "
                 "underline_width kern_tracks").split()

# Windows codes of glyphs that our reading of AFM files names otherwise: 94 and 126 are the accents,
# 136 and 152 therefore empty; no-break space, soft hyphen, overline and micro go by other names; the
# euro is younger than the character set.
OTHER_CODES = {94, 126, 128, 136, 152, 160, 173, 175, 181}
# FontForge writes at most as many pairs as one published text allows.
MOST_PAIRS = 512


class Theirs(pfm.Pfm):
    """A file that need not keep all the rules."""

    def _want(self, holds, rule):
        if not holds and rule not in ("copyright is terminated", "pairs are sorted"):
            raise pfm.Broken(rule)


class FontForgeTest(font_case.FontCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.metrics = [type1_fonts.read(font) for font in FONTS]
        calls, jobs = [], ""
        for number, font in enumerate(FONTS):
            shutil.copyfile(font.afm_path, cls.folder / f"{number}.AFM")
            (cls.folder / f"{number}.INF").write_bytes(type1_fonts.inf_for(cls.metrics[number]))
            calls.append(("convert", f"{number}.AFM", "", 1))
            jobs += f"{font.outline_path}\t{font.afm_path}\t{cls.folder / f'{number}-theirs.pfb'}\n"
        answers = cls.call(calls)
        if answers != [["0"]] * len(FONTS):
            raise AssertionError("a conversion failed")
        (cls.folder / "generate.py").write_bytes(SCRIPT.encode())
        subprocess.run([FONTFORGE, "-quiet", "-lang=py", "-script", cls.folder / "generate.py"],
                       input=jobs.encode(), check=True, timeout=font_case.CALL_SECONDS,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def each(self, check):
        for number, font in enumerate(FONTS):
            with self.subTest(font=font.afm_path):
                check(pfm.Pfm((self.folder / f"{number}.PFM").read_bytes()),
                      Theirs((self.folder / f"{number}-theirs.pfm").read_bytes()),
                      self.metrics[number])

    def test_header_fields_agree(self):
        def check(ours, theirs, _metrics):
            for field in SAME_HEADER:
                self.assertEqual(ours.header[field], theirs.header[field], field)
            for field in SAME_EXTENDED:
                self.assertEqual(ours.extended[field], theirs.extended[field], field)
        self.each(check)

    def test_names_agree(self):
        def check(ours, theirs, _metrics):
            self.assertEqual(ours.device_name, theirs.device_name)
            self.assertEqual(ours.face_name, theirs.face_name)
            self.assertEqual(ours.postscript_name, theirs.postscript_name)
        self.each(check)

    def test_measures_of_letters_agree(self):
        def check(ours, theirs, _metrics):
            # A key of the AFM file and the box of a letter may differ where the letter has
            # overshoots; a font without such letters has the key alone.
            for field, delta in (("x_height", 1), ("lower_case_ascent", 1),
                                 ("lower_case_descent", 1), ("cap_height", 30)):
                if theirs.extended[field] != 0:
                    self.assertAlmostEqual(ours.extended[field], theirs.extended[field],
                                           delta=delta, msg=field)
        self.each(check)

    def test_widths_agree(self):
        def check(ours, theirs, metrics):
            other = OTHER_CODES if ours.char_set == 0 else set()
            for code in set(range(256)) - other:
                self.assertEqual(ours.width(code), theirs.width(code), code)
            # FontForge counts characters without a width.
            if not other and not any(c.code >= 0 and afm.whole(c.width) == 0
                                     for c in metrics.characters):
                self.assertEqual(ours.avg_width, theirs.avg_width)
        self.each(check)

    def test_kerning_agrees(self):
        def check(ours, theirs, _metrics):
            other = OTHER_CODES if ours.char_set == 0 else set()
            mine = {pair[:2]: pair[2] for pair in ours.pairs}
            for first, second, amount in theirs.pairs:
                if amount != 0 and not other.intersection((first, second)):
                    self.assertEqual(mine.get((first, second)), amount, (first, second))
            if len(theirs.pairs) < MOST_PAIRS:
                codes = {pair[:2] for pair in theirs.pairs}
                self.assertLessEqual(set(mine), codes)
        self.each(check)


if __name__ == "__main__":
    if FONTFORGE is None:
        not_run("FontForge (package fontforge-nox) is not installed")
    if MISSING:
        not_run("packages " + ", ".join(MISSING) + " are not installed")
    font_case.main()
