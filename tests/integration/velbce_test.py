#!/usr/bin/python3
"""Jobs through the bidirectional DLL: the library loads a stand-in that records every call."""

import os
import shutil
import struct

import job_case
import jobs
from caller import OPTIONS
from jobs import PRINTER_WRITE_FAILED, UNUSABLE

PORT, HANDLE = 0x1234, 0xFFFE
PJL_PCL = (f"flags={jobs.PJL}", f"language={jobs.PCL}")
BIDI = (f"bidiPort={PORT}", f"bidiHandle={HANDLE}")
JOB_NAME = "Overlay forms"
DATA = b"A\nB"
STRING_CALL = ("string", "$A\\nB", "printer", *PJL_PCL, *BIDI, f"jobName={JOB_NAME}")
STRING_WRITES = jobs.string_job(JOB_NAME.encode(), DATA)
ENTRIES = ("BceOpen", "BceClose", "BceStartDoc", "BceEndDoc", "BceWrite", "BceGetPrtInfo")

OPEN = f"BceOpen {PORT} {HANDLE} 0"
END = [f"BceEndDoc {HANDLE} 0", f"BceClose {PORT} {HANDLE}"]


def document_block(job_name):
    """Five words, then four strings: where each begins and what it is."""
    strings = [*job_case.host_names(), b"Vantrel", job_name]
    offsets = [20]
    for string in strings:
        offsets.append(offsets[-1] + len(string) + 1)
    words = [offsets[-1], *offsets[:4]]
    return struct.pack("<5I", *words) + b"".join(string + b"\0" for string in strings)


def start_line(job_name=JOB_NAME.encode()):
    return f"BceStartDoc {HANDLE} 0 {document_block(job_name).hex()}"


def write_line(data):
    return f"BceWrite {PORT} {HANDLE} 0 {len(data)} 1 {data.hex()}"


class VelbceCase(job_case.JobCase):
    def install(self, variant):
        shutil.copy(os.path.join(OPTIONS.velbce, variant, "VELBCE.DLL"), self.folder)

    def call(self, *arguments, **environment):
        outcome = super().call(*arguments, VELBCE_RECORD="record", **environment)
        record = self.path("record")
        self.record = self.read("record").decode("ascii").splitlines() if os.path.exists(
            record) else None
        self.assertFalse(os.path.exists(self.path("printer")), "the job went to a file")
        return outcome


class VelbceTest(VelbceCase):
    def test_sends_a_whole_job(self):
        self.install("complete")
        outcome = self.call(*STRING_CALL)
        self.assertEqual(outcome.results, [0])
        self.assertEqual(self.record, ["loaded", OPEN, start_line(),
                                       *map(write_line, STRING_WRITES), *END, "freed"])
        self.assertEqual(outcome.log, jobs.job_log("velbce", len(STRING_WRITES)))

    def test_keeps_the_empty_write_after_a_whole_last_block(self):
        self.install("complete")
        self.write("page.prn", b"x" * jobs.BLOCK)
        self.call("file", "page.prn", "printer", *BIDI, "jobName=Page")
        self.assertEqual(self.record[3:-3], [write_line(b"x" * jobs.BLOCK), write_line(b"")])

    def test_sends_a_file_in_blocks_with_copies_and_reset(self):
        self.install("complete")
        data = bytes(range(256)) * 20
        self.write("page.prn", data)
        outcome = self.call("file", "page.prn", "printer", *PJL_PCL, *BIDI, "copies=3",
                            "jobName=Page")
        writes = jobs.file_job(b"Page", data, 3)
        self.assertEqual(len(writes), 8 + 3)
        self.assertEqual(outcome.results, [0])
        self.assertEqual(self.record, ["loaded", OPEN, start_line(b"Page"),
                                       *map(write_line, writes), *END, "freed"])
        self.assertEqual(outcome.log, jobs.job_log("velbce", len(writes)))

    def test_frees_the_library_after_each_job(self):
        self.install("complete")
        outcome = self.call(*STRING_CALL, "times=2")
        self.assertEqual(outcome.results, [0, 0])
        once = ["loaded", OPEN, start_line(), *map(write_line, STRING_WRITES), *END, "freed"]
        self.assertEqual(self.record, once * 2)

    def test_needs_the_library_and_does_not_try_the_spooler(self):
        outcome = self.call(*STRING_CALL)
        self.assertEqual(outcome.results, [UNUSABLE])
        self.assertIsNone(self.record)
        self.assertEqual(outcome.log, jobs.open_log("bidi handle: use velbce",
                                                    "LoadLibrary (Bce) FAILED!"))

    def test_needs_each_entry_point(self):
        for entry in ENTRIES:
            with self.subTest(entry):
                self.install(f"no_{entry}")
                self.write("record", b"")
                outcome = self.call(*STRING_CALL, "times=2")
                self.assertEqual(outcome.results, [UNUSABLE] * 2)
                self.assertEqual(self.record, ["loaded", "freed"] * 2)
                self.assertEqual(outcome.log, 2 * jobs.open_log(
                    "bidi handle: use velbce", f"GetProcAddress ({entry}) FAILED!"))

    def test_names_every_missing_entry_point(self):
        self.install("empty")
        outcome = self.call(*STRING_CALL)
        self.assertEqual(outcome.results, [UNUSABLE])
        self.assertEqual(outcome.log, jobs.open_log(
            "bidi handle: use velbce",
            *(f"GetProcAddress ({entry}) FAILED!" for entry in ENTRIES)))

    def test_fails_when_the_port_does_not_open(self):
        self.install("complete")
        outcome = self.call(*STRING_CALL, "times=2", VELBCE_FAIL="BceOpen:0")
        self.assertEqual(outcome.results, [UNUSABLE] * 2)
        self.assertEqual(self.record, ["loaded", OPEN, "freed"] * 2)
        self.assertEqual(outcome.log,
                         2 * jobs.open_log("bidi handle: use velbce", "BceOpen FAILED!"))

    def test_keeps_the_port_open_when_the_document_does_not_start(self):
        self.install("complete")
        outcome = self.call(*STRING_CALL, "times=2", VELBCE_FAIL="BceStartDoc:0")
        self.assertEqual(outcome.results, [UNUSABLE] * 2)
        self.assertEqual(self.record, ["loaded", OPEN, start_line(), "freed"] * 2)
        self.assertEqual(outcome.log,
                         2 * jobs.open_log("bidi handle: use velbce", "BceStartDoc FAILED!"))

    def test_ends_the_job_with_the_write_that_fails(self):
        self.install("complete")
        for failing in range(1, len(STRING_WRITES) + 1):
            with self.subTest(failing):
                self.write("record", b"")
                outcome = self.call(*STRING_CALL, VELBCE_FAIL=f"BceWrite:{failing}")
                self.assertEqual(outcome.results, [PRINTER_WRITE_FAILED])
                self.assertEqual(self.record,
                                 ["loaded", OPEN, start_line(),
                                  *map(write_line, STRING_WRITES[:failing]), *END, "freed"])
                self.assertEqual(outcome.log, jobs.job_log("velbce", failing))

    def test_ends_a_file_job_with_the_write_that_fails(self):
        self.install("complete")
        data = b"0123456789" * 300
        self.write("page.prn", data)
        writes = jobs.file_job(b"Page", data, 1)
        for failing in range(1, len(writes) + 1):
            with self.subTest(failing):
                self.write("record", b"")
                outcome = self.call("file", "page.prn", "printer", *PJL_PCL, *BIDI, "copies=1",
                                    "jobName=Page", VELBCE_FAIL=f"BceWrite:{failing}")
                self.assertEqual(outcome.results, [PRINTER_WRITE_FAILED])
                self.assertEqual(self.record,
                                 ["loaded", OPEN, start_line(b"Page"),
                                  *map(write_line, writes[:failing]), *END, "freed"])
                self.assertEqual(outcome.log, jobs.job_log("velbce", failing))

    def test_keeps_going_when_fewer_bytes_are_reported(self):
        self.install("complete")
        outcome = self.call(*STRING_CALL, VELBCE_SHORT="2")
        self.assertEqual(outcome.results, [0])
        self.assertEqual(self.record[3:-3], list(map(write_line, STRING_WRITES)))

    def test_does_not_ask_how_the_job_ended(self):
        self.install("complete")
        for entry in ("BceEndDoc", "BceClose"):
            with self.subTest(entry):
                self.write("record", b"")
                outcome = self.call(*STRING_CALL, VELBCE_FAIL=f"{entry}:0")
                self.assertEqual(outcome.results, [0])
                self.assertEqual(self.record[-3:], [*END, "freed"])


class ConnectionTypeTest(VelbceCase):
    def test_is_read_from_two_bytes_of_the_information(self):
        self.install("complete")
        # Bytes 92 and 93, and the type that they mean.
        for info, connection in (("0000", 0), ("0200", 2), ("0400", 4), ("0600", 4), ("2000", 32),
                                 ("2600", 32), ("d9f7", 0), ("0008", 2048), ("2608", 2048)):
            with self.subTest(info):
                self.write("record", b"")
                outcome = self.call("type", "70000", VELBCE_INFO=info)
                self.assertEqual(outcome.results, [connection])
                self.assertEqual(self.record, ["loaded", "BceGetPrtInfo 70000 zeroed 0", "freed"])
                self.assertEqual(outcome.log, [])

    def test_is_read_even_when_the_call_failed(self):
        self.install("complete")
        outcome = self.call("type", "1", VELBCE_INFO="2600", VELBCE_FAIL="BceGetPrtInfo:0")
        self.assertEqual(outcome.results, [32])

    def test_needs_no_other_entry_point(self):
        self.install("no_BceOpen")
        outcome = self.call("type", "1", "times=2", VELBCE_INFO="2600")
        self.assertEqual(outcome.results, [32, 32])
        self.assertEqual(self.record, ["loaded", "BceGetPrtInfo 1 zeroed 0", "freed"] * 2)

    def test_is_none_without_the_entry_point(self):
        self.install("no_BceGetPrtInfo")
        outcome = self.call("type", "1", "times=2", VELBCE_INFO="2600")
        self.assertEqual(outcome.results, [0, 0])
        self.assertEqual(self.record, ["loaded", "freed"] * 2)

    def test_is_none_without_the_library(self):
        outcome = self.call("type", "1")
        self.assertEqual(outcome.results, [0])
        self.assertEqual(outcome.log, [])


if __name__ == "__main__":
    job_case.main()
