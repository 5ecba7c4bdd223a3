#!/usr/bin/python3
"""A C program that knows the public header only sets a printer up: panel, fonts, macro, demo, options,
archive and web link, on a real queue."""

import os
import zipfile

import jobs
import spooler_case
from printer_record import option_item, option_record
from spooler_case import QUEUE

PANEL = b"[Format]\nStyle=2\n[Dialogs]\n1=Paper\n[Paper]\nNumCtrls=2\nDefaults=1A;5;2B;-3\n"
LETTER = b"\x1bE\x1b&l0OLetterhead\r\n\x0c"
DEMO = b"Welcome\r\n\x0c"
ORDER = b"An order\n" * 1000
EXIT = jobs.UNIVERSAL_EXIT
FRAME_START = EXIT + jobs.ready(b"Set up") + jobs.ENTER_PCL
FRAME_END = EXIT + jobs.CLEAR_DISPLAY + EXIT
OPTIONS = option_record(option_item(11, 0, b"tray"), option_item(12, 0, b"duplex"))


def target(device):
    return EXIT + b"@PJL SET LDOWNLOADTARGET = " + device + b"\n"


def font():
    header = (64).to_bytes(2, "big") + b"\0\1" + bytes(10) + b"\x01\x15" + bytes(32)
    return b"\x1b)s64W" + header + b"Courier".ljust(16) + bytes(range(256)) * 20


class SetupTest(spooler_case.SpoolerCase):
    def setUp(self):
        super().setUp()
        self.write("opc007.cfg", PANEL)
        self.write("letter.pcl", LETTER)
        self.write("demo.pcl", DEMO)
        self.write("options.bin", OPTIONS)
        os.mkdir(self.path("fonts"))
        self.write("fonts/courier.sfp", font())
        with zipfile.ZipFile(self.path("forms.zip"), "w", zipfile.ZIP_DEFLATED) as archive:
            archive.writestr("forms/order.txt", ORDER)
            archive.writestr("forms/logo.bin", bytes(1000))

    def packed_sizes(self):
        with zipfile.ZipFile(self.path("forms.zip")) as archive:
            return [member.compress_size for member in archive.infolist()]

    def test_sets_a_printer_up(self):
        first = self.printer.received
        outcome = self.call(QUEUE)
        self.assertEqual([self.arrived(first + i) for i in range(3)], [
            b"".join(jobs.font_job(b"Set up", jobs.ENTER_PCL, b"disk1", jobs.pcl_font(21, font()))),
            FRAME_START + b"\x1b&f21y0X" + LETTER + b"\x1b&f1X\x1b&f21y10X" + FRAME_END,
            FRAME_START + target(b"flash1")
            + EXIT + b'@PJL LOPENFILE DEVICE=flash1 FILENAME="WELCOME.demo" ACCESS=WO\n'
            + b'@PJL LWRITEFILE DEVICE=flash1 FILENAME="WELCOME.demo" START=0 \n'
            + DEMO + b"@PJL END DATA\n"
            + b'@PJL LCLOSEFILE DEVICE=flash1 FILENAME="WELCOME.demo"\n'
            + target(b"ram") + FRAME_END])
        order, logo = self.packed_sizes()
        percentage = (200 * order + order + logo) // (2 * (order + logo))
        self.assertEqual(outcome.output.decode().splitlines(), [
            "control 26: 5", "control 43: -3",
            "font fonts\\courier.sfp: Courier           [ 0.0 Pt.] (Roman-8) *TF:0",
            "option 11: tray", "option 12: duplex",
            f"file forms/order.txt: {order} bytes, {percentage} %",
            "address http://support.example.com/NA/drivers/3/8"])
        self.assertEqual(self.read("forms/order.txt"), ORDER)
        self.assertFalse(os.path.exists(self.path("forms/logo.bin")))


if __name__ == "__main__":
    spooler_case.main()
