#!/usr/bin/python3
"""Jobs on a name that is no printer: the host's spooler refuses it and the job goes to a file."""

import os

import job_case
import jobs
from jobs import OPEN_FAILED

PJL_PCL = (f"flags={jobs.PJL}", f"language={jobs.PCL}")
STRING_JOB = b"".join(jobs.string_job(b"Forms", b"A\nB"))
STRING_WRITES = 7
NO_FILE_LOG = jobs.open_log("Attempt to use Win32 Printer", "OpenPrinter FAILED!",
                            "Default: use file i/o")


def string_call(target, *options):
    return ("string", "$A\\nB", target, *PJL_PCL, "jobName=Forms", *options)


class FileQueueTest(job_case.JobCase):
    def test_receives_the_bytes_of_a_string_job(self):
        outcome = self.call(*string_call("out.prn"))
        self.assertEqual(outcome.results, [0])
        self.assertEqual(self.read("out.prn"), STRING_JOB)
        self.assertEqual(outcome.log, jobs.job_log("file", STRING_WRITES))

    def test_receives_the_bytes_of_a_file_job(self):
        data = bytes(range(256)) * 20
        self.write("page.prn", data)
        outcome = self.call("file", "page.prn", "out.prn", *PJL_PCL, "copies=2", "jobName=Page")
        writes = jobs.file_job(b"Page", data, 2)
        self.assertEqual(outcome.results, [0])
        self.assertEqual(self.read("out.prn"), b"".join(writes))
        self.assertEqual(outcome.log, jobs.job_log("file", len(writes)))

    def test_receives_the_bytes_of_a_resource_job(self):
        outcome = self.call("resource", 3, "out.prn", 4, *PJL_PCL)
        writes = jobs.format_job(b"disk1")
        self.assertEqual(outcome.results, [0])
        self.assertEqual(self.read("out.prn"), b"".join(writes))
        self.assertEqual(outcome.log, jobs.job_log("file", len(writes)))

    def test_is_appended_to_by_a_font_job(self):
        font = b"%!PS\n/FontName /Courier def\n" + b"x" * 5000
        self.write("font.pfa", font)
        self.write("out.prn", b"before\n")
        outcome = self.call("font", "font.pfa", "out.prn", 2, f"flags={jobs.PJL}",
                            f"language={jobs.PPDS}", "jobName=Fonts", "resourceId=10",
                            "ppdsFontCode=0x1302", "ppdsFontSlot=7")
        writes = jobs.font_job(b"Fonts", jobs.ENTER_PPDS, b"flash1",
                               jobs.ppds_font(10, 0x1302, 7, font))
        self.assertEqual(outcome.results, [0])
        self.assertEqual(self.read("out.prn"), b"before\n" + b"".join(writes))
        self.assertEqual(outcome.log, jobs.job_log("file", len(writes)))

    def test_repeats_plain_data_for_each_copy(self):
        self.write("page.prn", b"plain\r\n\x1a")
        outcome = self.call("file", "page.prn", "out.prn", "copies=3")
        self.assertEqual(outcome.results, [0])
        self.assertEqual(self.read("out.prn"), b"plain\r\n\x1a" * 3)

    def test_is_replaced(self):
        self.write("out.prn", b"what was there before, and longer than the job" * 9)
        outcome = self.call(*string_call("out.prn"))
        self.assertEqual(outcome.results, [0])
        self.assertEqual(self.read("out.prn"), STRING_JOB)

    def test_is_appended_to(self):
        self.write("out.prn", b"before\n")
        outcome = self.call(*string_call("out.prn", "append=1", "times=2"))
        self.assertEqual(outcome.results, [0, 0])
        self.assertEqual(self.read("out.prn"), b"before\n" + STRING_JOB * 2)
        self.assertEqual(outcome.log, jobs.job_log("file", STRING_WRITES) * 2)

    def test_lies_in_another_folder(self):
        os.mkdir(self.path("spool"))
        outcome = self.call(*string_call("spool\\out.prn"))
        self.assertEqual(outcome.results, [0])
        self.assertEqual(self.read("spool/out.prn"), STRING_JOB)

    def test_must_open(self):
        outcome = self.call(*string_call("no such folder\\out.prn"))
        self.assertEqual(outcome.results, [OPEN_FAILED])
        self.assertEqual(outcome.log, NO_FILE_LOG)

    def test_takes_the_job_when_the_log_cannot_be_written(self):
        os.mkdir(self.log_path)
        self.addCleanup(os.rmdir, self.log_path)
        outcome = self.call(*string_call("out.prn"))
        self.assertEqual(outcome.results, [0])
        self.assertEqual(self.read("out.prn"), STRING_JOB)
        self.assertEqual(outcome.log, [])


if __name__ == "__main__":
    job_case.main()
