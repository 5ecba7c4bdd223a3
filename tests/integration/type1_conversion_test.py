#!/usr/bin/python3
"""Every Type 1 font of the distribution's packages: queried, its metrics turned into Windows metrics
and back into an AFM file. What the fonts say must survive."""

import os
import shutil

import afm
import font_case
import pfm
import type1_fonts
from not_run import not_run

# What the way back calls characters that it has other names for.
BACK = {"bullet": "bullet1", "circumflex": "asciicircum", "tilde": "asciitilde", "florin": "W83"}
# Encoded in Adobe's standard encoding, but not in Windows; and those whose codes the accents take.
NOT_IN_WINDOWS = {"fraction", "fi", "fl", "dotlessi", "Lslash", "lslash", "macron", "breve",
                  "dotaccent", "ring", "hungarumlaut", "ogonek", "caron", "asciicircum",
                  "asciitilde"}
# Has no standard code and is dropped on the way back; its pairs stay.
DROPPED = {"florin"}
ACCENTED = ("Agrave Aacute Acircumflex Atilde Adieresis Aring AE Ccedilla Egrave Eacute Ecircumflex "
            "Edieresis Igrave Iacute Icircumflex Idieresis Eth Ntilde Ograve Oacute Ocircumflex "
            "Otilde Odieresis multiply Oslash Ugrave Uacute Ucircumflex Udieresis Yacute Thorn "
            "germandbls agrave aacute acircumflex atilde adieresis aring ae ccedilla egrave eacute "
            "ecircumflex edieresis igrave iacute icircumflex idieresis eth ntilde ograve oacute "
            "ocircumflex otilde odieresis divide oslash ugrave uacute ucircumflex udieresis yacute "
            "thorn ydieresis").split()

FONTS, MISSING = type1_fonts.find()


class Type1ConversionTest(font_case.FontCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.metrics = [type1_fonts.read(font) for font in FONTS]
        calls = []
        for number, font in enumerate(FONTS):
            shutil.copyfile(font.afm_path, cls.folder / f"{number}.afm")
            shutil.copyfile(font.outline_path, cls.folder / f"{number}.pfb")
            (cls.folder / f"{number}.INF").write_bytes(type1_fonts.inf_for(cls.metrics[number]))
            os.rename(cls.folder / f"{number}.afm", cls.folder / f"{number}.AFM")
            calls += [("query", f"{number}.pfb", 2), ("query", f"{number}.AFM", 4),
                      ("convert", f"{number}.AFM", "", 1), ("query", f"{number}.PFM", 0),
                      ("convert", f"{number}.PFM", f"{number}-back.AFM", 3),
                      ("convert", f"{number}.AFM", f"{number}-two.PFM", 2)]
        answers = cls.call(calls)
        cls.answers = [answers[i:i + 6] for i in range(0, len(answers), 6)]

    def each(self, check):
        """Checks the fonts with everything that was made of them. Returns the sum of what was checked."""
        count = 0
        for number, font in enumerate(FONTS):
            with self.subTest(font=font.afm_path):
                count += check(number, self.metrics[number],
                               pfm.Pfm((self.folder / f"{number}.PFM").read_bytes()),
                               afm.read((self.folder / f"{number}-back.AFM").read_bytes())) or 0
        return count

    def test_finds_the_fonts(self):
        print(f"{len(FONTS)} pairs of Type 1 metrics and outlines")
        self.assertGreater(len(FONTS), 200)
        self.assertEqual(len(self.answers), len(FONTS))

    def test_queries_tell_the_names(self):
        def check(number, metrics, written, _):
            outline, description, converted, windows, back, two = self.answers[number]
            name = metrics.header["FontName"]
            self.assertEqual(outline[:3], ["0", "3", "2"])
            # Names of outlines are looked for in 40 characters, "FontName /" among them.
            self.assertEqual(outline[4:], [f"{number}.AFM", name[:30]])
            self.assertEqual(description, ["0", "4", "2", "10", f"{number}.PFB", name])
            self.assertEqual([converted, back, two], [["0"]] * 3)
            face = written.face_name.decode("latin-1")
            face += " (It)" if written.italic else ""
            face += " (Bd)" if written.weight >= 700 else ""
            self.assertEqual(windows, ["0", "2", "25", "43", "", face])
        self.each(check)

    def test_header_tells_the_font(self):
        def check(_, metrics, written, _back):
            header = metrics.header
            self.assertEqual(written.postscript_name.decode(), header["FontName"])
            self.assertEqual(written.face_name.decode(), header["FamilyName"])
            self.assertEqual(written.italic, int(float(header["ItalicAngle"]) != 0))
            self.assertEqual(written.ascent, max(0, afm.whole(header["FontBBox"].split()[3])))
            standard = header["EncodingScheme"] == "AdobeStandardEncoding"
            self.assertEqual(written.char_set, 0 if standard else 2)
            fixed = header["IsFixedPitch"] == "true"
            self.assertEqual(written.pitch_and_family & 1, 0 if fixed else 1)
        self.each(check)

    def test_widths_survive(self):
        def check(_, metrics, written, back):
            if written.char_set == 0:
                return self.check_names(metrics, back)
            return self.check_codes(metrics, written, back)
        count = self.each(check)
        print(f"{count} widths of encoded glyphs compared")
        self.assertGreater(count, 20000)

    def check_names(self, metrics, back):
        widths = {character.name: afm.whole(character.width) for character in back.characters}
        count = 0
        for character in metrics.characters:
            wanted = character.code >= 0 or character.name in ACCENTED
            if not wanted or character.name in NOT_IN_WINDOWS | DROPPED:
                continue
            name = BACK.get(character.name, character.name)
            self.assertEqual(widths.get(name), afm.whole(character.width), character.name)
            count += 1
        return count

    def check_codes(self, metrics, written, back):
        widths = {character.code: afm.whole(character.width) for character in back.characters}
        encoded = {character.code: afm.whole(character.width) for character in metrics.characters
                   if character.code >= 0}
        for code, width in encoded.items():
            self.assertEqual(written.width(code), width, code)
        self.assertEqual(widths, {code: width for code, width in encoded.items() if width})
        return len(encoded)

    def test_kerning_survives(self):
        def check(_, metrics, written, back):
            self.check_pair_names(written, back)
            if written.char_set == 0:
                return self.check_named_pairs(metrics, back)
            return self.check_coded_pairs(metrics, written)
        count = self.each(check)
        print(f"{count} kerning pairs between encoded glyphs compared")
        self.assertGreater(count, 20000)

    def check_named_pairs(self, metrics, back):
        encoded = {character.name for character in metrics.characters
                   if character.code >= 0 or character.name in ACCENTED} - NOT_IN_WINDOWS
        pairs = {names: afm.whole(amount) for names, amount in metrics.pairs.items()
                 if encoded.issuperset(names) and afm.whole(amount) != 0}
        for names, amount in pairs.items():
            there = tuple(BACK.get(name, name) for name in names)
            self.assertEqual(afm.whole(back.pairs.get(there, "0")), amount, names)
        return len(pairs)

    def check_coded_pairs(self, metrics, written):
        codes = {}
        for character in metrics.characters:
            if character.code >= 0:
                codes.setdefault(character.name, character.code)
        pairs = {(codes[first], codes[second]): afm.whole(amount)
                 for (first, second), amount in metrics.pairs.items()
                 if first in codes and second in codes and afm.whole(amount) != 0}
        self.assertEqual({pair[:2]: pair[2] for pair in written.pairs}, pairs)
        return len(pairs)

    def check_pair_names(self, written, back):
        """The AFM file has the pairs of the Windows metrics in their order, each code by one name."""
        self.assertEqual([afm.whole(amount) for amount in back.pairs.values()],
                         [amount for _, _, amount in written.pairs])
        names = {}
        for pair, there in zip(written.pairs, back.pairs):
            for code, name in zip(pair[:2], there):
                self.assertEqual(names.setdefault(code, name), name)

    def test_second_device_has_the_same_font(self):
        def check(number, _, written, _back):
            self.assertEqual((self.folder / f"{number}-two.PFM").read_bytes(),
                             (self.folder / f"{number}.PFM").read_bytes())
            second = pfm.Pfm((self.folder / f"{number}-two.PSM").read_bytes())
            self.assertEqual(second.device_name, b"PCL5 / HP LaserJet III")
            self.assertEqual(second.face_name, written.face_name)
            self.assertEqual(second.extents, written.extents)
            self.assertEqual(second.pairs, written.pairs)
            self.assertTrue(second.selection.startswith(b"\x1b(9U\x1b(s"))
            self.assertTrue(second.selection.endswith(b"b4101T\x1b(s#HEIGHTV"))
        self.each(check)


if __name__ == "__main__":
    if MISSING:
        not_run("packages " + ", ".join(MISSING) + " are not installed")
    font_case.main()
