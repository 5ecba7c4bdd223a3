#!/usr/bin/env python3
"""clang-tidy finds nothing in the library, or in the folders named.

A file that was found clean is looked at again when it, a header or the rules have changed. A source of
the command-line program takes half a minute, for the size of the headers that it includes: name tools to
look there. What stands in src/platform/win32 is compiled for Windows alone and not looked at.

Usage: tidy.py ROOT BUILD [FOLDER...]
"""
import subprocess

import house

def preprocessed(command):
    """The text that the compiler sees, comments included: some are for clang-tidy."""
    words = iter(command)
    kept = []
    for word in words:
        if word in ("-o", "-MF", "-MT"):
            next(words)
        elif word not in ("-c", "-MD"):
            kept.append(word)
    return subprocess.run(kept + ["-E", "-C"], stdout=subprocess.PIPE, check=True).stdout


# Sources that are compiled together are looked at together: most of the time goes into the headers of the
# standard library. The analyzer is told to follow their functions as it would those of a single file, a
# third as far as it would by itself, which takes half the time.
OPTIONS = ["--quiet", "--checks=-bugprone-suspicious-include", "--extra-arg=-Wno-unknown-warning-option",
           *(f"--extra-arg={word}" for option in ("-analyzer-opt-analyze-headers",
                                                  "-analyzer-config", "max-nodes=75000")
             for word in ("-Xclang", option))]


def check(root, build, *folders):
    rules = root / ".clang-tidy"
    found_clean = house.FoundClean(build / "tidy")
    units = [(path, command) for path, command, sources in house.compile_units(root, build)
             if any((root / source).is_relative_to(folder) for source in sources
                    for folder in folders or [root / "src"])]

    def complaints_about(unit):
        path, command = unit
        depends_on = (rules.read_bytes(), " ".join(OPTIONS + command).encode(), preprocessed(command))
        # One unit a run: the analyzer mistakes things when it carries on from one to the next.
        return found_clean.or_complaint(depends_on, lambda: house.output_of(
            ["clang-tidy", f"--config-file={rules}", f"-p={build}", *OPTIONS, path]))

    for (path, _), output in zip(units, house.in_parallel(complaints_about, units)):
        if output is not None:
            yield f"{path.name}: clang-tidy complains; mend it, or say at the line why not\n{output}"


if __name__ == "__main__":
    house.run(check)
