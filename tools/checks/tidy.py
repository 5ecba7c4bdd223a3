#!/usr/bin/env python3
"""clang-tidy finds nothing in the library, or in the folders named.

A file that was found clean is looked at again when it, a header or the rules have changed. A source of
the command-line program takes half a minute, for the size of the headers that it includes: name tools to
look there.

Usage: tidy.py ROOT BUILD [FOLDER...]
"""
import hashlib
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


def check(root, build, *folders):
    rules = root / ".clang-tidy"
    found_clean = build / "tidy"
    found_clean.mkdir(exist_ok=True)
    commands = {path: command for path, command in house.compile_commands(root, build).items()
                if any((root / path).is_relative_to(folder) for folder in folders or [root / "src"])}

    def complaints_about(path):
        seen = hashlib.sha256(rules.read_bytes() + " ".join(commands[path]).encode() +
                              preprocessed(commands[path])).hexdigest()
        if (found_clean / seen).exists():
            return None
        # One file a run: the analyzer mistakes things when it carries on from file to file.
        output = house.output_of(["clang-tidy", "--quiet", f"--config-file={rules}", f"-p={build}",
                                  "--extra-arg=-Wno-unknown-warning-option", root / path])
        if output is None:
            (found_clean / seen).touch()
        return output

    for path, output in zip(commands, house.in_parallel(complaints_about, commands)):
        if output is not None:
            yield f"{path}: clang-tidy complains; mend it, or say at the line why not\n{output}"


if __name__ == "__main__":
    house.run(check)
