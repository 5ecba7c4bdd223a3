#!/usr/bin/env python3
"""clang-tidy finds nothing in the library and the command-line program.

A file that was found clean is looked at again when it, a header or the rules have changed.

Usage: tidy.py ROOT BUILD
"""
import hashlib
import subprocess

import house

FOLDERS = ("src", "tools")


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


def check(root, build):
    rules = root / ".clang-tidy"
    found_clean = build / "tidy"
    found_clean.mkdir(exist_ok=True)
    commands = {path: command for path, command in house.compile_commands(root, build).items()
                if path.parts[0] in FOLDERS}

    def complaints_about(path):
        seen = hashlib.sha256(rules.read_bytes() + " ".join(commands[path]).encode() +
                              preprocessed(commands[path])).hexdigest()
        if (found_clean / seen).exists():
            return None
        # One file a run: the analyzer mistakes things when it carries on from file to file.
        output = house.output_of(["clang-tidy", "--quiet", f"--config-file={rules}", f"-p={build}",
                                  root / path])
        if output is None:
            (found_clean / seen).touch()
        return output

    for path, output in zip(commands, house.in_parallel(complaints_about, commands)):
        if output is not None:
            yield f"{path}: clang-tidy complains; mend it, or say at the line why not\n{output}"


if __name__ == "__main__":
    house.run(check)
