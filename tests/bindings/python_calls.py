"""Real calls through zeapi.py."""

import contextlib
import ctypes
import ntpath
import os
import re
import subprocess
import sys
import zipfile

import interface
import zeapi
from folder_case import LibraryCase
from inputs import SOFT_FONT, data_line, metrics, narrow
from not_run import not_run_test
from printer_record import container, integer, option_item, printer_record, text

EXIT = b"\x1b%-12345X"
CLEAR = b'@PJL RDYMSG DISPLAY = ""\n'


class Calls(LibraryCase):
    library_path = None

    def setUp(self):
        super().setUp()
        self.addCleanup(os.chdir, os.getcwd())
        os.chdir(self.folder)
        for name, value in self.drives.items():
            self.set(name, value)
        self.library = zeapi.load(self.library_path)

    def set(self, name, value):
        before = os.environ.get(name)
        os.environ[name] = value
        if before is None:
            self.addCleanup(os.environ.pop, name)
        else:
            self.addCleanup(os.environ.__setitem__, name, before)

    @contextlib.contextmanager
    def fails(self, call, code):
        with self.assertRaises(zeapi.Error) as caught:
            yield caught
        self.assertEqual((caught.exception.call, caught.exception.code), (call, code))

    # Loading

    def python(self, code, **environment):
        folder = os.path.dirname(zeapi.__file__)
        variables = {**os.environ, "PYTHONPATH": folder, "PYTHONDONTWRITEBYTECODE": "1", **environment}
        done = subprocess.run(
            [sys.executable, "-c", code],
            env=variables,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            text=True,
        )
        return done.stdout

    def test_the_library_is_found_by_its_usual_name(self):
        code = "import zeapi; print(zeapi.load().api_info()[0])"
        folder = os.path.dirname(self.library_path)
        self.assertEqual(self.python(code, LD_LIBRARY_PATH=folder), "930\n")

    def test_an_environment_variable_names_the_library(self):
        code = "import zeapi; print(zeapi.load().api_info()[0])"
        self.assertEqual(self.python(code, ZEAPI_LIBRARY=self.library_path), "930\n")
        self.assertIn("OSError", self.python(code, ZEAPI_LIBRARY="none.so"))

    def test_the_first_call_of_the_readme(self):
        readme = (interface.ROOT / "README.md").read_text(encoding="utf-8")
        code = re.search(r"```python\n(import zeapi.*?)```", readme, re.S)[1]
        self.write("page.pcl", b"page")
        self.assertEqual(self.python(code, ZEAPI_LIBRARY=self.library_path), "")
        self.assertIn(b"@PJL SET COPIES = 2\npage", self.read("Laser"))

    # Texts and errors

    def test_texts_go_and_come_as_bytes_strings_or_paths(self):
        for name in ("a", b"b", "\u00fc", b"\xff"):
            self.write(name, b"1234")
            self.assertEqual(self.library.checksum(name), -(0x3231 + 0x3433) & 0xFFFF)
        self.write("t\u00e4.demo", b"")
        paths = {ntpath.basename(found.path) for found in self.library.find_demos(self.folder)}
        self.assertEqual(paths, {"a", "b", "\u00fc", os.fsdecode(b"\xff"), "t\u00e4.demo"})
        self.assertEqual(zeapi.encode(zeapi.decode(b"\xff\xe4")), b"\xff\xe4")

    def test_a_zero_byte_in_a_text_is_refused(self):
        with self.assertRaises(ValueError):
            self.library.checksum("a\0b")

    def test_an_error_has_the_code_and_words(self):
        with self.fails("ZeDatSendFile", zeapi.ZE_FILE_NOT_FOUND) as caught:
            self.library.send_file("none", "out")
        self.assertIs(caught.exception.code, zeapi.ZeResult.ZE_FILE_NOT_FOUND)
        self.assertEqual(str(caught.exception), "ZeDatSendFile: the file does not exist (2)")

    # Query, jobs

    def test_api_info(self):
        words = self.library.api_info()
        self.assertEqual((len(words), words[:4], words[11]), (64, (930, 32, 2, 2), 1))

    def test_a_call_works_as_in_c(self):
        printer = zeapi.ZeDestination(language=zeapi.ZE_LANGUAGE_PCL)
        self.assertEqual(self.library.ZeDatSendString(b"4142", b"out", printer, 0), zeapi.ZE_OK)
        self.assertEqual(self.read("out"), b"AB")
        name = ctypes.create_string_buffer(20)
        self.assertEqual(self.library.ZeStrCpyFile(name, rb"c:\a\page.pcl"), b"PAGE.PCL")
        self.assertEqual(name.value, b"PAGE.PCL")
        with self.assertRaises(ctypes.ArgumentError):
            self.library.ZeStrCpyFile(b"bytes are not written to", b"a")

    def test_a_string_becomes_the_bytes_of_a_job(self):
        printer = zeapi.ZeDestination(
            flags=zeapi.ZE_FLAG_PJL, language=zeapi.ZE_LANGUAGE_PCL, jobName="First"
        )
        self.library.send_bytes(b"\0\x1bE\xff", "out", printer)
        job = EXIT + b'@PJL RDYMSG DISPLAY = "First"\n@PJL ENTER LANGUAGE = PCL\n'
        job += b"\0\x1bE\xff" + EXIT + CLEAR + EXIT
        self.assertEqual(self.read("out"), job)
        self.library.send_string(r"$a\x41", "out", append=True)
        self.assertEqual(self.read("out"), job + b"aA")
        with self.fails("ZeDatSendString", zeapi.ZE_INVALID_ARGUMENT):
            self.library.send_string("4", "out")

    def test_a_storage_request(self):
        printer = zeapi.ZeDestination(flags=zeapi.ZE_FLAG_PJL, language=zeapi.ZE_LANGUAGE_PCL)
        self.library.resource(
            zeapi.ZE_RESOURCE_FORMAT_DEVICE, "out", printer, zeapi.ZE_DEVICE_DISK1
        )
        self.assertIn(b"@PJL LFORMAT DEVICE = ", self.read("out"))

    # Fonts

    def test_a_font_is_queried_and_sent(self):
        self.write("a.sfp", SOFT_FONT)
        info = self.library.query_font("a.sfp")
        self.assertEqual(info.format, zeapi.ZE_FONT_PCL_BITMAP)
        self.assertEqual((info.fileSize, info.symbolSet), (len(SOFT_FONT), b"8U"))
        printer = zeapi.ZeDestination(language=zeapi.ZE_LANGUAGE_PCL, resourceId=7)
        self.library.download_font("a.sfp", "out", printer)
        self.assertIn(b"\x1b*c7D" + SOFT_FONT, self.read("out"))

    def test_an_error_of_a_query_has_what_was_known(self):
        self.write("a.pfm", metrics(b"Courier"))
        self.assertEqual(self.library.query_font("a.pfm").format, zeapi.ZE_FONT_PFM)
        self.write("a.fot", b"")
        with self.fails("ZeFonQueryInfo", zeapi.ZE_BAD_FORMAT) as caught:
            self.library.query_font("a.fot")
        self.assertEqual(caught.exception.record.format, zeapi.ZE_FONT_HOST_TRUETYPE)

    def test_a_cartridge_is_copied_and_released(self):
        fonts = metrics(b"Courier") + metrics(b"Elite")
        head = narrow(0, 96 + len(fonts), 16, 96) + b"Forms".ljust(80, b"\0")
        self.write("a.pcm", head + fonts)
        cartridge = zeapi.Cartridge("Forms", ["Courier", "Elite"])
        self.assertEqual(self.library.query_cartridge("a.pcm"), cartridge)
        info = self.library.query_font("a.pcm")
        self.assertEqual((info.format, bool(info.cartridge)), (zeapi.ZE_FONT_CARTRIDGE, False))
        self.assertEqual([f.info.format for f in self.library.find_fonts(self.folder)], [28])

    def test_fonts_are_found_with_progress(self):
        self.write("fonts/a.pfm", metrics(b"Courier"))
        self.write("fonts/b.pfm", metrics(b"Elite"))
        self.write("fonts/c.txt", b"")
        told = []

        def progress(font, percent):
            told.append((font and font.format, percent))

        found = list(self.library.find_fonts("fonts", progress=progress))
        names = sorted(ntpath.basename(font.path) for font in found)
        self.assertEqual(names, ["a.pfm", "b.pfm"])
        self.assertEqual([(font.size, font.info.format) for font in found], [(256, 25), (256, 25)])
        self.assertEqual(sum(font == 25 for font, _ in told), 2)
        self.assertEqual(told[-1][1], 100)
        self.assertEqual(list(self.library.find_fonts("c")), [])
        with self.fails("ZeFonFind2", zeapi.ZE_INVALID_ARGUMENT):
            list(self.library.find_fonts("fonts", types=99))

    def test_limits_of_searches_are_not_wrapped(self):
        self.write("fonts/a.pfm", metrics(b"Courier"))
        self.write("fonts/b.pfm", metrics(b"Elite"))
        self.write("none/.c", b"")
        for search in (self.library.find_fonts, self.library.find_demos):
            for limit, found in ((1, 1), (None, 2), (0, 2), (32768, 2), (65535, 2), (65536, 2), (65537, 2)):
                with self.subTest(search=search.__name__, limit=limit):
                    self.assertEqual(len(list(search("fonts", limit=limit))), found)
                    self.assertEqual(list(search("none", limit=limit)), [])
            with self.assertRaisesRegex(ValueError, "not negative"):
                list(search("fonts", limit=-1))

    def watch_releases(self):
        """Tells for each list that is released whether there is one."""
        released = []
        free = self.library.ZeFonFindFree
        self.library.ZeFonFindFree = lambda first: released.append(bool(first)) or free(first)
        return released

    def test_what_a_progress_raises_is_raised_and_the_list_released(self):
        self.write("fonts/a.pfm", metrics(b"Courier"))
        released = self.watch_releases()

        def progress(*_):
            raise KeyError("stop")

        with self.assertRaisesRegex(KeyError, "stop"):
            list(self.library.find_fonts("fonts", progress=progress))
        self.assertEqual(released, [True])

    def test_a_list_is_released_when_its_generator_is_closed(self):
        self.write("fonts/a.pfm", metrics(b"Courier"))
        released = self.watch_releases()
        found = self.library.find_fonts("fonts")
        info = next(found).info
        self.assertEqual(released, [])
        found.close()
        self.assertEqual(released, [True])
        self.assertEqual(info.format, zeapi.ZE_FONT_PFM)

    def test_metrics_are_converted(self):
        self.write("a.pfm", metrics(b"Courier"))
        with self.fails("ZeFonConvert", zeapi.ZE_BAD_FORMAT):
            self.library.convert_font("a.pfm", zeapi.ZE_CONVERT_DLF_TO_PBM)
        fonts = "/usr/share/fonts/type1/urw-base35"
        if not os.path.isdir(fonts):
            not_run_test(self, "the package fonts-urw-base35 is not installed")
        self.write("c059.afm", self.read(fonts + "/C059-Roman.afm"))
        self.write("c059.inf", b"FontName (C059-Roman)\nMSMenuName (C059)\nVPStyle (N)\n")
        self.library.convert_font("c059.afm", zeapi.ZE_CONVERT_AFM_TO_PFM)
        self.assertEqual(self.library.query_font("c059.PFM").format, zeapi.ZE_FONT_PFM)

    # Macros and demos

    def test_macros(self):
        self.write("macros/a.mac", b"\x1b&l1Xtext")
        printer = zeapi.ZeDestination(language=zeapi.ZE_LANGUAGE_PCL, resourceId=5)
        macro = zeapi.ZeMacroInfo(macroName="a", macroDevice=zeapi.ZE_DEVICE_RAM)
        self.library.validate_macro("macros/a.mac", printer, macro)
        self.library.download_macro("macros/a.mac", "out", printer, macro)
        self.assertIn(b"\x1b&f5y0X\x1b&l1Xtext\x1b&f1X", self.read("out"))
        self.library.create_macro("macros/a.mac", "created", printer, macro)
        self.assertIn(b"text", self.read("created"))
        self.library.activate_macro("on", printer)
        self.assertIn(b"\x1b&f5y4X", self.read("on"))
        self.library.delete_macro("deleted", printer)
        self.assertIn(b"\x1b&f5", self.read("deleted"))
        [found] = self.library.find_macros("macros", zeapi.ZE_LANGUAGE_PCL)
        self.assertEqual((found.size, type(found.info)), (9, zeapi.ZeMacroInfo))
        with self.fails("ZeMacFind", zeapi.ZE_INVALID_ARGUMENT):
            list(self.library.find_macros("macros", 7))

    def test_a_demo_is_stored(self):
        self.write("page.ps", b"%!PS\nshowpage\n")
        printer = zeapi.ZeDestination(flags=zeapi.ZE_FLAG_PJL)
        demo = zeapi.ZeDemoInfo(
            method=zeapi.ZE_DEMO_PJL_FILE, name="PAGE", device=zeapi.ZE_DEVICE_DISK1
        )
        self.library.download_demo("page.ps", "out", printer, demo)
        self.assertIn(b"showpage", self.read("out"))
        self.assertEqual(printer.language, zeapi.ZE_LANGUAGE_PCL)

    # INI files and panels

    def test_an_ini_file_is_written_and_read(self):
        with self.library.open_ini("a.ini", zeapi.ZE_INI_CREATE) as ini:
            ini.write("One", "key", "value")
            ini.write("One", "long", "x" * 700)
            ini.add("One", "many", "1")
            ini.add("One", "many", "2")
            ini.write("One", "gone", "")
            ini.delete("One", "gone")
        with self.library.open_ini("a.ini") as ini:
            self.assertEqual(ini.read("one", "KEY"), "value")
            self.assertEqual(ini.read("One", "long"), "x" * 700)
            self.assertEqual(ini.read("One", "none", "fallback"), "fallback")
            self.assertEqual(ini.read("None", "none", ""), "")
            self.assertEqual([*ini.lines("One")][2:], ["many=1", "many=2"])
            with self.fails("ZeIniRead2", zeapi.ZE_KEY_NOT_FOUND):
                ini.read("One", "gone")
            with self.fails("ZeIniRead2", zeapi.ZE_SECTION_NOT_FOUND):
                ini.read("Two", "key")
        with self.assertRaises(ValueError):
            ini.read("One", "key")
        with self.fails("ZeIniOpen2", zeapi.ZE_OPEN_FAILED):
            self.library.open_ini("none.ini")

    def test_a_list_of_option_variables(self):
        self.write("a.ini", b"[012REQUIRED]\nNUMVARS=3\nNUMENTRIES=2\nOMVARS1=1 12ab\nOMVARS2=ffff\n")
        with self.library.open_ini("a.ini") as ini:
            self.assertEqual(ini.qsf_list(zeapi.ZE_QSF_REQUIRED, 12), [1, 0x12AB, 0xFFFF])

    def test_a_panel(self):
        self.write(
            "panels/opc007.cfg",
            b"[Format]\nStyle=2\n[Spin Limits]\n001a=1;99;5\n[Combos]\n001a-3=10;20\n"
            b"[Edit Lengths]\n001a=8\n[Dialogs]\n1=P\n2=Q\n[P]\nNumCtrls=1\nDefaults=1a;-6\n"
            b"NumOMVAR=2\nOMVAR=12AB\n[Q]\nNumCtrls=10923\n",
        )
        with self.library.open_panel(7, "panels") as panel:
            self.assertEqual(panel.spin_limits(26), (1, 99, 5))
            self.assertEqual(panel.texts(26, 3), [10, 20])
            self.assertEqual(panel.texts(26), [])
            self.assertEqual(panel.max_edit_length(26), 8)
            self.assertEqual(panel.page_defaults(1), [(26, -6)])
            self.assertEqual(panel.page_variables(1), [0x12AB])
            self.assertEqual(panel.page_defaults(9), [])
            self.assertEqual(panel.read("Format", "Style"), "2")
            with self.fails("ZeOpcGetPageDefaults", zeapi.ZE_BUFFER_TOO_SMALL):
                panel.page_defaults(2)  # 65538 bytes, which 16 bits do not tell
        with self.fails("ZeOpcRegisterCfg", zeapi.ZE_OPEN_FAILED):
            self.library.open_panel(8, "panels")

    # Data files

    def test_data_files(self):
        lines = b"".join(map(data_line, (b"A1", b"SA1", b"SA2")))
        self.write("data/a.cfg", b"#! First\n" + lines)
        records = list(self.library.data_records("data/a.cfg"))
        self.assertEqual([record.szKey for record in records], [b"A1", b"SA1", b"SA2"])
        self.assertEqual((records[0].szDescr, records[0].dVarRangeHi), (b"dA1", 2.5))
        self.assertEqual(len(list(self.library.data_records("data/a.cfg", "SA2"))), 1)
        self.assertEqual(list(self.library.data_records("data/a.cfg", "X")), [])
        self.assertEqual(list(self.library.data_counts("data/a.cfg").first), [1, 0, 0, 0, 2, 0])
        [found] = self.library.data_files("data", zeapi.ZE_DAT_CONFIGURATION_FILES)
        self.assertEqual(ntpath.basename(found.path).lower(), "a.cfg")
        self.assertIn("First", found.description)
        with self.fails("ZeDatOpenFile", zeapi.ZE_DAT_INVALID):
            list(self.library.data_records("none"))

    def test_data_files_are_closed_again(self):
        self.write("a", data_line(b"A1"))
        for _ in range(9):  # four places
            records = self.library.data_records("a")
            next(records)
            records.close()

    # Web links

    def test_web_links(self):
        path = self.library.web_url(-1, zeapi.ZE_WEB_DRIVERS, 9)
        self.assertIn("drivers", path.lower())
        self.assertIn("?", self.library.web_query_url(1, 2, zeapi.ZE_WEB_DRIVERS, 9))
        with self.fails("ZeWebGetURL", zeapi.ZE_INVALID_ARGUMENT):
            self.library.web_url(-1, 99, 9)

    # Files

    def test_files(self):
        self.write("a.txt", b"one\ntwo\nthree\n")
        self.library.copy_file("a.txt", "b.txt")
        self.assertEqual(self.read("b.txt"), b"one\ntwo\nthree\n")
        self.assertEqual(ntpath.basename(self.library.backup_file("a.txt")), "a.001")
        lines = {b"one\n": b"1\n", b"two\n": b""}
        self.library.modify_file("a.txt", lines.get)
        self.assertEqual(self.read("a.txt"), b"1\nthree\n")
        with self.assertRaises(ValueError):
            self.library.modify_file("a.txt", lambda line: bytes(2048))
        self.assertEqual(self.read("a.txt"), b"1\nthree\n")
        self.library.make_path(r"c:\x\y")
        self.assertTrue(os.path.isdir("c/x/y"))
        with self.fails("ZeFilMakePath", zeapi.ZE_UNUSABLE):
            self.library.make_path("x")
        with self.fails("ZeFilChecksum", zeapi.ZE_INVALID_ARGUMENT):
            self.library.checksum("")

    # Archives

    def test_an_archive_is_extracted_with_progress(self):
        with zipfile.ZipFile("a.zip", "w", zipfile.ZIP_DEFLATED) as archive:
            archive.writestr("folder/a.txt", b"text" * 1000)
            archive.writestr("b.bin", b"b")
        told = []
        self.library.extract("a.zip", progress=lambda *what: told.append(what))
        self.assertEqual(self.read("folder/a.txt"), b"text" * 1000)
        self.assertEqual([name for name, _, _ in told], ["folder/a.txt", "b.bin"])
        os.remove("b.bin")
        self.library.extract("a.zip", "b.*")
        self.assertEqual(self.read("b.bin"), b"b")
        with self.fails("ZeZipExplode", zeapi.ZE_FILE_NOT_FOUND):
            self.library.extract("none.zip")

    # Printer records

    def test_options_of_a_printer(self):
        values = container(3, *(container(9, integer(1, value)) for value in (5, -7)))
        group = container(1, text(1, b"a"), values)
        record = printer_record(container(1, container(1, option_item(-2, 15, b"tray")), container(3, group)))
        items, groups = self.library.parse_options(record)
        self.assertEqual(items, [(-2, 15, "tray")])
        self.assertEqual(groups, [("a", None, [5, -7])])
        self.assertEqual(self.library.parse_options(printer_record()), ([], []))

    def test_a_record_of_a_job(self):
        job = container(2, container(1, integer(1, 101)), container(2, text(1, b"First")))
        record = printer_record(container(1, job))
        job, totals = self.library.parse_job_account(record)
        self.assertEqual((job.value1_1, job.text2_1, totals), (101, b"First", None))

    def test_a_record_that_is_not_whole_is_refused(self):
        for parse in (self.library.parse_options, self.library.parse_job_account):
            for record in (b"", b"\0", printer_record()[:-1]):
                with self.assertRaises(zeapi.Error) as caught:
                    parse(record)
                self.assertEqual(caught.exception.code, zeapi.ZE_BAD_FORMAT)
