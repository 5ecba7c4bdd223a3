#!/usr/bin/python3
"""Windows metrics of fonts that printers take: a TrueType font of the distribution wrapped as a PCL
soft font, bitmaps, DLF fonts and Intellifont metrics. Read with an independent reader."""

import os

import font_case
import pfm
import soft_fonts
from not_run import not_run

TRUETYPE = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"


class SoftFontConversionTest(font_case.FontCase):
    def convert(self, data, number, *, pcl=None):
        (self.folder / "font.in").write_bytes(data)
        if pcl is None:
            call = ("convert", "font.in", "out.pfm", number)
        else:
            (self.folder / "font.sfp").write_bytes(pcl)
            call = ("tfm", "font.in", "out.pfm", number, "font.sfp")
        self.assertEqual(self.call([call]), [["0"]])
        return pfm.Pfm((self.folder / "out.pfm").read_bytes())

    def test_truetype_soft_font(self):
        font = soft_fonts.TrueType(TRUETYPE)
        # Roman-8, the set that the descriptor names; Windows has most of it.
        glyphs = {}
        for code in [*range(32, 127), *range(161, 255)]:
            character = bytes([code]).decode("hp-roman8")
            glyph = font.glyph_of(ord(character))
            if glyph:
                glyphs[code] = glyph
        self.assertGreater(len(glyphs), 180)
        data = soft_fonts.wrap(font, glyphs, b"DejaVu Sans")
        for number in (5, 17):
            written = self.convert(data, number)
            self.assertEqual(written.device_name, b"PCL / HP LaserJet")
            self.assertEqual(written.extended["master_units"], font.units)
            compared = 0
            for code in range(32, 256):
                try:
                    there = bytes([code]).decode("cp1252").encode("hp-roman8")[0]
                except UnicodeError:
                    continue
                if there in glyphs and code != 160:
                    advance = font.advance(glyphs[there])
                    self.assertEqual(written.width(code), advance, code)
                    dots = written.widths[code - written.first]
                    self.assertEqual(dots, (advance * 100 + font.units) // (2 * font.units), code)
                    compared += 1
            self.assertGreater(compared, 170)
            self.assertEqual(written.driver["class_"], 1)
            self.assertEqual(written.driver["memory"], len(data) + 320)
            self.assertEqual(written.ascent, round(font.ascent * 50 / font.units))
        self.assertEqual(written.short_name, b"DejaVu Sans8U   ")
        self.assertEqual(written.symbol_set, b"8U")

    def test_bitmaps(self):
        widths = {code: 10 + code % 20 for code in range(33, 127)}
        written = self.convert(soft_fonts.bitmap(widths, b"Bitmap"), 5)
        for code, width in widths.items():
            self.assertEqual(written.width(code), width)
        self.assertEqual(written.width(32), 30)
        self.assertEqual(written.selection, b"\x1b(8U\x1b(s1p12.00v0s0b4148T")
        fixed = self.convert(soft_fonts.bitmap(widths, b"Bitmap", spacing=0), 17)
        self.assertEqual(fixed.pix_width, 30)
        self.assertIsNone(fixed.widths)

    def test_dlf_fonts(self):
        for flags in (1, 2):
            written = self.convert(soft_fonts.dlf(b"Courier Bold", flags), 4)
            self.assertEqual(written.device_name, b"Velquist LaserPrinter")
            self.assertEqual(written.face_name, b"Courier Bold")
            self.assertEqual(written.width(65), 30)

    def test_intellifont_metrics(self):
        symbols = list(range(34, 60))  # A to Z
        escapements = [5000 + symbol for symbol in symbols]
        data = soft_fonts.tfm(escapements, symbols, [(34, 55, -400), (34, 35, 7)], b"CG Test")
        pcl = soft_fonts.bitmap({65: 10}, b"Stored")
        for number in (6, 16):
            written = self.convert(data, number, pcl=pcl)
            self.assertEqual(written.device_name, b"PCL5 / HP LaserJet III")
            for symbol, escapement in zip(symbols, escapements):
                self.assertEqual(written.width(symbol + 31), escapement)
            self.assertEqual(written.pairs, [(65, 66, 7), (65, 86, -400)])
            self.assertEqual(written.driver["memory"], len(pcl) + 320)
        self.assertEqual(written.short_name, b"Stored32008U    "[:16])


if __name__ == "__main__":
    if not os.path.exists(TRUETYPE):
        not_run("DejaVu Sans (package fonts-dejavu-core) is not installed")
    font_case.main()
