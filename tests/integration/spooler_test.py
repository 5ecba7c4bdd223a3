#!/usr/bin/python3
"""Jobs through the host's real spooler."""

import os
import unittest

import jobs
import spooler_case
import type1_fonts
from caller import WINE
from jobs import PRINTER_WRITE_FAILED
from print_server import LARGEST_JOB
from spooler_case import QUEUE

PJL_PCL = (f"flags={jobs.PJL}", f"language={jobs.PCL}")

class SpoolerTest(spooler_case.SpoolerCase):
    def new_jobs(self, before):
        """The jobs that the server did not have before. Old ones go with their queues."""
        return [job for number, job in self.server.jobs().items() if number not in before]

    def assert_arrives(self, writes, job_name, *arguments):
        """The call's bytes reach the printer in one job of that name, and no file is made."""
        job, before = self.printer.received, self.server.jobs()
        outcome = self.call(*arguments)
        self.assertEqual(outcome.results, [0])
        self.assertEqual(self.arrived(job), b"".join(writes))
        (new_job,) = self.new_jobs(before)
        self.assertEqual(new_job.name, job_name)
        if not WINE:
            self.assertEqual(new_job.document_format, "application/vnd.cups-raw")
        self.assertEqual(outcome.log, jobs.job_log("spooler", len(writes)))
        self.assertFalse(os.path.exists(self.path(QUEUE)), "the job went to a file")

    def assert_in_file(self, *failed_steps, **environment):
        """A string job on the queue's name lands in a file of that name, after these steps."""
        job, before = self.printer.received, self.server.jobs()
        outcome = self.call("string", "$text", QUEUE, **environment)
        self.assertEqual(outcome.results, [0])
        self.assertEqual(self.read(QUEUE), b"text")
        self.assertEqual(outcome.log, [
            *jobs.open_log("Attempt to use Win32 Printer", *failed_steps, "OpenPrinter FAILED!",
                           "Default: use file i/o"),
            *jobs.job_log("file", 1)[5:]])
        self.assertEqual(self.new_jobs(before), [])
        self.assertEqual(self.printer.received, job)

    def test_prints_a_file(self):
        data = bytes(range(256)) * 40
        self.write("page.prn", data)
        self.assert_arrives(jobs.file_job(b"Quarterly report", data, 2), "Quarterly report",
                            "file", "page.prn", QUEUE, *PJL_PCL, "copies=2",
                            "jobName=Quarterly report")

    def test_prints_a_string(self):
        self.assert_arrives(jobs.string_job(b"Forms", b"A\r\n\x04\0B"), "Forms",
                            "string", "410d0a040042", QUEUE, *PJL_PCL, "jobName=Forms")

    def test_prints_a_resource_request(self):
        self.assert_arrives(jobs.format_job(b"disk1"), "Vantrel Job",
                            "resource", 3, QUEUE, 4, *PJL_PCL)

    def test_prints_a_pcl_font(self):
        font = (b"\x1b)s64W" + (64).to_bytes(2, "big") + b"\0\1" + bytes(10) + b"\x01\x15"
                + bytes(32) + b"Courier".ljust(16) + bytes(range(256)) * 20)
        self.write("font.sfp", font)
        self.assert_arrives(jobs.font_job(b"Fonts", jobs.ENTER_PCL, b"flash1",
                                          jobs.pcl_font(10, font)),
                            "Fonts", "font", "font.sfp", QUEUE, 2, *PJL_PCL, "resourceId=10",
                            "jobName=Fonts")

    def test_prints_a_real_type_1_font(self):
        font = type1_fonts.read_outline(self, "lmsy10.pfb")
        self.write("lmsy10.pfb", font)
        self.assert_arrives(jobs.font_job(b"Fonts", jobs.ENTER_POSTSCRIPT, b"disk1",
                                          jobs.postscript_font(font)),
                            "Fonts", "font", "lmsy10.pfb", QUEUE, 4, f"flags={jobs.PJL}",
                            f"language={jobs.POSTSCRIPT}", "jobName=Fonts")

    def test_prints_a_real_type_1_font_in_ppds_blocks(self):
        font = type1_fonts.read_outline(self, "lmsy10.pfb")
        self.write("lmsy10.pfb", font)
        self.assert_arrives(jobs.font_job(b"Fonts", jobs.ENTER_PPDS, b"disk1",
                                          jobs.ppds_font(300, 0x1302, 7, font)),
                            "Fonts", "font", "lmsy10.pfb", QUEUE, 4, f"flags={jobs.PJL}",
                            f"language={jobs.PPDS}", "resourceId=300", "ppdsFontCode=0x1302",
                            "ppdsFontSlot=7", "jobName=Fonts")

    def test_names_a_document_without_a_job_name(self):
        self.assert_arrives([b"text"], "Vantrel Job", "string", "$text", QUEUE)

    def test_prints_copies_of_plain_data_one_after_the_other(self):
        self.write("page.prn", b"plain\r\n")
        self.assert_arrives([b"plain\r\n"] * 3, "Copies", "file", "page.prn", QUEUE, "copies=3",
                            "jobName=Copies")

    def test_writes_a_file_when_the_queue_has_gone(self):
        self.assert_arrives([b"text"], "Vantrel Job", "string", "$text", QUEUE)
        self.server.remove_queue(QUEUE)
        self.addCleanup(self.server.add_queue, QUEUE, self.printer.port)
        self.assert_in_file()

    def test_writes_a_file_when_the_server_has_gone(self):
        self.assert_arrives([b"text"], "Vantrel Job", "string", "$text", QUEUE)
        self.assert_in_file(CUPS_SERVER=self.path("no_server"))

    # On Windows the spooler has taken the job before anybody asks the print server.
    @unittest.skipIf(WINE, "Wine's spooler takes the job and loses it when CUPS refuses it")
    def test_writes_a_file_when_the_queue_rejects_jobs(self):
        self.server.reject_jobs(QUEUE)
        self.assert_in_file("StartDocPrinter FAILED!")

    @unittest.skipIf(WINE, "Wine's spooler takes the job and loses it when CUPS refuses it")
    def test_abandons_a_job_that_the_server_refuses_to_go_on_with(self):
        line = b"0123456789abcde\n"
        block = line * (jobs.BLOCK // len(line))
        self.write("page.prn", line * (2 * LARGEST_JOB // len(line)))
        outcome = self.call("file", "page.prn", QUEUE, "jobName=Too large")
        self.assertEqual(outcome.results, [PRINTER_WRITE_FAILED])
        self.assertRegex(outcome.output, b"^\nWritePrinter FAILED! [0-9]+ " + block +
                         b" 2048 0 \nGetLastError: [0-9]+\n$")
        # How many writes go well before the server's refusal is seen is the network's affair.
        good_writes = outcome.log.count(*jobs.log("WritePrinter")) - 1
        log = jobs.job_log("spooler", good_writes)
        log[-4:-4] = jobs.log("+GenQueWrite", "WritePrinter", "WritePrinter FAILED!", "-GenQueWrite")
        self.assertEqual(outcome.log, log)
        # Nothing of it is printed: the next job is the next one that arrives.
        self.assert_arrives([b"text"], "Vantrel Job", "string", "$text", QUEUE)


if __name__ == "__main__":
    spooler_case.main()
