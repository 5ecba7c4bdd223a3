#!/usr/bin/env python3
"""Prints the results of zeapi_bench (JSON, from the file named) as a table with the goals."""
import json
import sys

# Name of the benchmark, what the table calls subject and peer, the goal and its test.
ROWS = [
    ("SendStreamToFile/raw", "file to the file back end, raw", "its writes and log lines alone",
     "1.15 or less", lambda ratio, rate: ratio <= 1.15),
    ("SendStreamToFile/hexadecimal", "file to the file back end, hexadecimal",
     "its writes and log lines alone", "1.15 or less", lambda ratio, rate: ratio <= 1.15),
    ("HexText", "hexadecimal expansion", "plain loop over a table",
     "1000 MB/s or more, or 0.25 or less", lambda ratio, rate: rate >= 1e9 or ratio <= 0.25),
    ("Checksum", "checksum of a file", "reading the file", "1.50 or less",
     lambda ratio, rate: ratio <= 1.5),
    ("IniLoad/1", "loading an INI file of 1 MiB", "reading it as text", "4 or less",
     lambda ratio, rate: ratio <= 4),
    ("IniLoad/10", "loading an INI file of 10 MiB", "reading it as text", "4 or less",
     lambda ratio, rate: ratio <= 4),
    ("IniLookUp", "100,000 look-ups in 10 MiB", "the same in 1 MiB", "2 or less",
     lambda ratio, rate: ratio <= 2),
    ("DataCounts", "counting 100,000 records", "reading their lines", "3 or less",
     lambda ratio, rate: ratio <= 3),
    ("MacroFixup/raster_pcl", "macro fixup of PCL rasters", "memcpy", "3.33 or less",
     lambda ratio, rate: ratio <= 1 / 0.3),
    ("MacroFixup/text_pcl", "macro fixup of PCL text", "scan for ESC", "4.00 or less",
     lambda ratio, rate: ratio <= 4),
    ("MacroFixup/text_ps", "macro fixup of PostScript text", "scan for ESC", "4.00 or less",
     lambda ratio, rate: ratio <= 4),
    ("MacroFixup/image_ps", "macro fixup of PostScript images", "scan for ESC", "4.00 or less",
     lambda ratio, rate: ratio <= 4),
    ("FontFindAndRead", "10,000 fonts listed", "reading the files", "3.00 or less",
     lambda ratio, rate: ratio <= 3),
    ("FontFindAndScan", "Type 1 fonts listed", "`fc-scan`", "0.10 or less",
     lambda ratio, rate: ratio <= 0.1),
    ("FontFindTwice", "20,000 fonts listed", "10,000 fonts listed", "2.50 or less",
     lambda ratio, rate: ratio <= 2.5),
    ("InflateBesideZlib", "Deflate in memory", "zlib, in the same blocks", "0.555 or less",
     lambda ratio, rate: ratio <= 1 / 1.8),
    ("InflateBesideLibdeflate", "Deflate in memory", "libdeflate, whole buffers", "1.33 or less",
     lambda ratio, rate: ratio <= 1 / 0.75),
    ("CrcBesideZlib", "CRC-32", "zlib", "1.00 or less", lambda ratio, rate: ratio <= 1),
    ("CrcBesideLibdeflate", "CRC-32", "libdeflate", "1.25 or less",
     lambda ratio, rate: ratio <= 1.25),
    ("ExtractCorpus/unzip", "110 MiB extracted, processor time", "`unzip`", "1.00 or less",
     lambda ratio, rate: ratio <= 1),
    ("ExtractCorpus/7z", "110 MiB extracted, processor time", "`7z x`", "1.00 or less",
     lambda ratio, rate: ratio <= 1),
    ("ExtractCorpus/bsdtar", "110 MiB extracted, processor time", "`bsdtar -x`", "1.00 or less",
     lambda ratio, rate: ratio <= 1),
    ("ExtractSmallFiles", "60,000 small files extracted, processor time", "`bsdtar -x`",
     "1.00 or less", lambda ratio, rate: ratio <= 1),
    ("ExtractTwiceAsMany", "a file of 60,000, processor time", "a file of 30,000", "1.10 or less",
     lambda ratio, rate: ratio <= 1.1),
    ("StreamFixup/image", "PCL XL fixup of a page of images", "copying through as many files",
     "1.50 or less", lambda ratio, rate: ratio <= 1.5),
    ("StreamFixup/drawing", "PCL XL fixup of a page of lines", "copying through as many files",
     "1.50 or less", lambda ratio, rate: ratio <= 1.5),
]


def find(benchmarks, name):
    for run in benchmarks:
        if run["name"].startswith(name + "/") and run.get("run_type") == "iteration":
            if run.get("error_occurred"):
                sys.exit(f"{name}: {run['error_message']}")
            return run
    sys.exit(f"{name} was not measured")


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        benchmarks = json.load(file)["benchmarks"]
    print("| subject | peer | MB/s | peer's MB/s | time / peer's | goal | |")
    print("|---|---|---:|---:|---:|---|---|")
    for name, subject, peer, goal, met in ROWS:
        run = find(benchmarks, name)
        ratio, rate = run["ratio"], run["subject"]
        print(f"| {subject} | {peer} | {rate / 1e6:.0f} | {run['peer'] / 1e6:.0f} | {ratio:.2f} "
              f"| {goal} | {'met' if met(ratio, rate) else 'missed'} |")


main()
