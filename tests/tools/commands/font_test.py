"""zeapi font: told, listed, converted and sent; the fonts are made here."""

import os

import program_case
from program_case import CLEAR, UEL


class Font(program_case.ProgramCase):
    PCL = (
        b"\x1b)s64W" + b"\0\x40\0\1" + bytes(10) + b"\x01\x15\0\x78\0\xc8" + bytes(4)
        + b"\3\x03\x10" + bytes(21) + b"Courier".ljust(16, b"\0") + b"characters"
    )  # fmt: skip
    PFB = b"\x80\1\x11\0\0\0/FontName /Times \x80\2\2\0\0\0\xab\x0c\x80\3"

    def test_info_of_a_soft_font(self):
        self.write("font.sfp", self.PCL)
        self.assertEqual(
            self.run_program("font", "info", "font.sfp").stdout,
            "Courier  Bd [12.0 Pt.] (Roman-8)\n"
            "  kind            downloadable\n"
            "  format          PCL bitmap\n"
            "  detail          " + self.answer("font", "info", "font.sfp")["detail"] + "\n"
            "  symbol set      8U\n"
            "  flags           binary, standard\n"
            "  file size       80 bytes\n"
            "  printer memory  400 bytes\n",
        )

    def test_info_in_json(self):
        self.write("font.sfp", self.PCL)
        answer = self.answer("font", "info", "font.sfp")
        self.assertEqual((answer["result"], answer["kind"], answer["format"]), (0, 3, 9))
        self.assertEqual((answer["kindName"], answer["formatName"]), ("downloadable", "PCL bitmap"))
        self.assertEqual(answer["flags"], ["binary", "standard"])
        self.assertEqual((answer["fileSize"], answer["printerMemory"]), (80, 400))
        self.assertEqual(answer["description"], "Courier  Bd [12.0 Pt.] (Roman-8)")
        self.assertEqual(answer["symbolSet"], "8U")
        self.assertIsNone(answer["cartridge"])

    def test_info_shows_a_font_whose_companion_is_missing(self):
        self.write("font.pfb", self.PFB)
        done = self.run_program("font", "info", "font.pfb", "--query-option", "2", exit_code=32)
        self.assertTrue(done.stdout.startswith("Times\n  kind            downloadable\n"))
        self.assertIn("zeapi: cannot find every companion of font.pfb: ", done.stderr)
        self.write("font.AFM", b"x")
        answer = self.answer("font", "info", "font.pfb", "--query-option", "2")
        self.assertEqual(answer["companionFile"], "font.AFM")

    def test_info_of_files_that_are_no_fonts(self):
        self.write("page.prn", b"page")
        done = self.run_program("font", "info", "page.prn", exit_code=27)
        self.assertEqual(done.stdout, "")
        self.run_program("font", "info", "none.sfp", exit_code=2)
        self.write("font.tfm", b"x")
        self.run_program("font", "info", "font.tfm")
        self.run_program("font", "info", "font.tfm", "--fonts-only", exit_code=27)

    def test_info_lists_the_fonts_of_a_cartridge(self):
        entry = bytearray(256)
        entry[2:6] = (256).to_bytes(4, "little")
        entry[83:85] = (700).to_bytes(2, "little")
        entry[105:109] = (200).to_bytes(4, "little")
        entry[200:207] = b"Courier"
        header = b"".join(n.to_bytes(4, "little") for n in (0, 96 + 2 * 256, 16, 96))
        self.write("cart.pcm", header + b"Forms".ljust(80, b"\0") + bytes(entry) * 2)
        self.assertEqual(
            self.answer("font", "info", "cart.pcm")["cartridge"],
            {"name": "Forms", "fonts": ["Courier (Bd)", "Courier (Bd)"]},
        )
        text = self.run_program("font", "info", "cart.pcm").stdout
        self.assertEqual(text.count("  font            Courier (Bd)\n"), 2)

    def make_folder(self):
        os.mkdir(os.path.join(self.folder, "fonts"))
        self.write("fonts/a.sfp", self.PCL)
        self.write("fonts/b.pfb", self.PFB)
        self.write("fonts/c.ttf", b"x")
        self.write("fonts/page.prn", b"page")

    def test_list_is_a_table(self):
        self.make_folder()
        done = self.run_program("font", "list", "fonts")
        lines = sorted(done.stdout.splitlines())
        self.assertEqual(lines.pop(), "Fonts: 3")
        self.assertEqual([" ".join(line.rsplit("  ", 1)[0].split()) for line in lines], [
            "1 TrueType of the host c",
            "33 Type 1 Times",
            "80 PCL bitmap 8U Courier Bd [12.0 Pt.] (Roman-8)",
        ])
        self.assertEqual(done.stderr, "")

    def test_list_in_json_with_filters(self):
        self.make_folder()
        fonts = self.answer("font", "list", "fonts")["fonts"]
        self.assertEqual({font["description"]: font["format"] for font in fonts},
                         {"Courier  Bd [12.0 Pt.] (Roman-8)": 9, "Times": 2, "c": 21})
        self.assertEqual({font["size"] for font in fonts}, {80, 33, 1})

        def names(*filters):
            fonts = self.answer("font", "list", "fonts", *filters)["fonts"]
            return sorted(font["path"].replace("/", "\\").rpartition("\\")[2] for font in fonts)

        self.assertEqual(names("--type", "2"), ["b.pfb"])
        self.assertEqual(names("--type", "10"), ["a.sfp"])
        self.assertEqual(names("--kind", "3"), ["a.sfp", "b.pfb"])
        self.assertEqual(len(names("--limit", "1")), 1)
        self.assertEqual(names("--query-option", "2"), ["a.sfp", "c.ttf"])

    def test_list_of_no_fonts_and_of_no_folder(self):
        os.mkdir(os.path.join(self.folder, "empty"))
        self.assertEqual(self.run_program("font", "list", "empty").stdout, "Fonts: 0\n")
        self.assertEqual(self.answer("font", "list", "none", exit_code=2)["result"], 2)
        self.run_program("font", "list", "empty", "--type", "29", exit_code=64)

    def test_lists_of_all_families_take_the_same_options(self):
        self.make_folder()
        for family, most in (("font", 65535), ("demo", 32767), ("macro", 32767)):
            with self.subTest(family):
                words = (family, "list", "fonts")
                self.run_program(*words, "--limit", str(most), "--recurse")
                for limit in ("0", str(most + 1), "-1"):
                    self.run_program(*words, "--limit", limit, exit_code=64)
                usage = self.run_program(family, "list", "--help").stdout
                self.assertIn("what they hold is not listed", " ".join(usage.split()))

    def test_list_shows_how_far_it_is(self):
        self.make_folder()
        done = self.run_program("font", "list", "fonts", "--progress")
        self.assertIn("[" + "#" * 24 + "] 100%", done.stderr)
        # The bar is wiped away; a carriage return is read as the end of a line here.
        self.assertTrue(done.stderr.endswith("\n" + " " * 78 + "\n"))

    def test_convert_there_and_back(self):
        self.write("t.afm", b"StartFontMetrics 2.0\nFontName Times-Roman\nFullName Times Roman\n"
                   b"FamilyName Times\nWeight Roman\nIsFixedPitch false\nFontBBox 0 -200 1000 900\n"
                   b"CapHeight 662\nXHeight 448\nAscender 682\nDescender -217\n"
                   b"StartCharMetrics 1\nC 65 ; WX 722 ; N A ; B 15 0 706 674 ;\nEndCharMetrics\n"
                   b"EndFontMetrics\n")
        self.write("t.inf", b"MSMenuName (Tms Rmn)\n")
        answer = self.answer("font", "convert", "t.afm", "afm-to-pfm", "-o", "out.pfm")
        self.assertEqual((answer["result"], answer["conversion"]), (0, "afm-to-pfm"))
        self.assertEqual(self.answer("font", "info", "out.pfm")["description"], "Tms Rmn")
        self.run_program("font", "convert", "out.pfm", "pfm-to-afm", "-o", "back.afm")
        self.assertRegex(self.read("back.afm"), rb"C +65 ; WX +722 ; N A ;")

    def test_convert_names_all_files_that_may_be_missing(self):
        self.write("a.sfp", self.PCL)
        self.write("t.afm", b"StartFontMetrics 2.0\n")
        done = self.run_program("font", "convert", "t.afm", "afm-to-pfm", exit_code=2)
        self.assertEqual(done.stderr, "zeapi: cannot convert t.afm with the INF file beside it: "
                         "the file does not exist (2)\n")
        done = self.run_program("font", "convert", "a.sfp", "tfm-to-pfm", "--tfm", "none.tfm",
                                exit_code=27)
        self.assertIn("cannot convert a.sfp with none.tfm: ", done.stderr)

    def test_convert_refuses_what_is_no_font(self):
        self.write("a.sfp", self.PCL)
        self.run_program("font", "convert", "none.afm", "afm-to-pfm", exit_code=2)
        self.run_program("font", "convert", "a.sfp", "tfm-to-pfm", exit_code=64)
        self.run_program("font", "convert", "a.sfp", "nonsense", exit_code=64)

    def test_send_into_flash_memory(self):
        self.write("font.sfp", self.PCL)
        answer = self.answer(
            "font", "send", "font.sfp", "-p", "out", "--pjl", "--language", "pcl", "--id", "10",
            "--target", "flash1",
        )  # fmt: skip
        self.assertEqual((answer["result"], answer["target"]), (0, "flash1"))
        self.assertEqual(
            self.read("out"),
            UEL + b"@PJL ENTER LANGUAGE = PCL\n"
            + UEL + b"@PJL SET LDOWNLOADTARGET = flash1\n"
            + b"\x1b*c10D" + self.PCL + b"\x1b*c5F"
            + UEL + b"@PJL SET LDOWNLOADTARGET = ram\n"
            + UEL + CLEAR + UEL,
        )  # fmt: skip

    def test_send_without_a_language_is_postscript_for_a_type_1_font(self):
        self.write("font.pfb", self.PFB)
        self.run_program("font", "send", "font.pfb", "-p", "out", "--query-option", "4")
        job = self.read("out")
        self.assertEqual(job[:20], b"%% BeginExitServer 0")
        self.assertEqual(job[103:], b"/FontName /Times AB0C%!\x04")

    def test_send_in_ppds_blocks(self):
        self.write("font.pfb", self.PFB)
        self.run_program(
            "font", "send", "font.pfb", "-p", "out", "--language", "ppds", "--id", "300",
            "--ppds-code", "4866", "--ppds-slot", "7",
        )  # fmt: skip
        self.assertEqual(
            self.read("out"),
            b"\x1b=\4\0A\x0e\x01\x2c" + b"\x1b=\x29\0A\1\1\x12\2\0\7\1" + self.PFB,
        )

    def test_send_refuses_what_no_printer_takes(self):
        self.write("font.ttf", b"x")
        done = self.run_program("font", "send", "font.ttf", "-p", "out", exit_code=27)
        self.assertIn("zeapi: cannot send font.ttf: ", done.stderr)
        self.run_program("font", "send", "none.sfp", "-p", "out", exit_code=2)
        self.run_program("font", "send", "font.ttf", "-p", "out", "--target", "rom", exit_code=64)


if __name__ == "__main__":
    program_case.main()
