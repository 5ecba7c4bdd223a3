#!/usr/bin/env python3
"""Says what the tests that ran in a build reached of src/, and fails below the goals.

Lines that were not reached, and lines with a branch that was not taken, go to coverage.txt in the build folder.

Usage: coverage.py BUILD LINES BRANCHES    (the goals in percent)
"""
import collections
import pathlib
import re
import subprocess
import sys

# What llvm-cov calls them in its records.
KINDS = {"DA": "lines", "BRDA": "branches"}


def output_of(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, check=True, text=True).stdout


def check_that_none_is_lost(build):
    log = build / "Testing" / "Temporary" / "LastTest.log"
    if log.exists():
        for line in log.read_text(encoding="utf-8", errors="replace").splitlines():
            if line.startswith("LLVM Profile Error"):
                sys.exit(f"A program's counts are lost, give it a file of its own: {line}")


def counts(build):
    """How often each line and each branch of the library was taken: {(file, line, kind, which): times}.

    A header stands there once for each way in which the compiler was told its path.
    """
    merged = build / "profiles" / "merged.profdata"
    counted = sorted((build / "profiles").glob("*.profraw"))
    if not counted:
        sys.exit(f"No test of {build} has run.")
    output_of("llvm-profdata", "merge", "-sparse", "-o", merged, *counted)
    times = collections.Counter()
    file = None
    for row in output_of("llvm-cov", "export", "-format=lcov", f"-instr-profile={merged}",
                         build / "lib" / "libzeapi.so").splitlines():
        record, _, rest = row.partition(":")
        if record == "SF":
            file = re.search("(?:.*/)?(src/.*)|$", rest)[1]
        elif record in ("DA", "BRDA") and file:
            line, *which, count = rest.split(",")
            times[file, int(line), KINDS[record], *which] += 0 if count == "-" else int(count)
    return times


def main(build, *goals):
    build = pathlib.Path(build)
    check_that_none_is_lost(build)
    times = counts(build)
    left = sorted({key[:3] for key, count in times.items() if count == 0})
    (build / "coverage.txt").write_text(
        "".join(f"{file}:{line}: {kind}\n" for file, line, kind in left), encoding="utf-8")
    failed = False
    for kind, goal in zip(KINDS.values(), goals):
        of_kind = [count for (_, _, its_kind, *_), count in times.items() if its_kind == kind]
        reached = sum(count > 0 for count in of_kind)
        percent = 100 * reached / len(of_kind)
        failed |= percent < float(goal)
        print(f"{percent:.1f}% of the {kind} ({reached} of {len(of_kind)}; goal {goal}%)")
    return failed


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
