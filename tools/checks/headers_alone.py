#!/usr/bin/env python3
"""Every header compiles alone and twice; the public header also as C99, C11 and C++11.

A header that did is tried again when it, what it includes of ours, or the compiler has changed.

Usage: headers_alone.py ROOT BUILD
"""
import pathlib
import shutil
import subprocess

import house

PUBLIC = "include/zeapi.h"
WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Werror"]
LANGUAGES = [["gcc", "-x", "c", "-std=c99", "-Wstrict-prototypes"],
             ["gcc", "-x", "c", "-std=c11", "-Wstrict-prototypes"],
             ["g++", "-x", "c++", "-std=c++11"]]
USUAL = ["-x", "c++", "-std=c++20"]


def include_flags(root, build):
    """What the sources of each top folder are compiled with to find their headers."""
    flags = {folder: [f"-I{root / 'include'}", f"-I{root / 'src'}", f"-I{root / folder}"]
             for folder in house.FOLDERS}
    for path, words in house.compile_commands(root, build).items():
        for index, word in enumerate(words):
            more = words[index:index + 2] if word == "-isystem" else [word]
            if word.startswith(("-I", "-isystem")) and more[-1] not in flags[path.parts[0]]:
                flags[path.parts[0]] += more
    return flags


def compilers(root, path):
    """The compilers for one header; none where the one that it needs is not there."""
    if any(name == "windows.h" for _, _, name in house.includes(root, path)):
        return [[house.WINDOWS_COMPILER] + USUAL] if shutil.which(house.WINDOWS_COMPILER) else []
    if str(path) == PUBLIC:
        return [["g++"] + USUAL] + LANGUAGES
    return [["g++"] + USUAL]


def check(root, build):
    flags = include_flags(root, build)
    tries = [(path, compiler) for path in house.files(root, suffixes=house.HEADERS)
             for compiler in compilers(root, path)]

    versions = {name: subprocess.run([name, "--version"], stdout=subprocess.PIPE, check=True).stdout
                for name in {compiler[0] for _, compiler in tries}}
    found_clean = house.FoundClean(build / "headers_alone")

    def compile_alone(item):
        path, compiler = item
        command = compiler + WARNINGS + flags[path.parts[0]] + ["-fsyntax-only", "-"]
        folders = [pathlib.Path(word[2:]) for word in command if word.startswith("-I")]
        depends_on = (versions[compiler[0]], " ".join(command).encode(),
                      house.text_of_all(root, path, folders))
        text = f'#include "{root / path}"\n' * 2
        return found_clean.or_complaint(depends_on, lambda: house.output_of(command, input=text))

    for (path, compiler), output in zip(tries, house.in_parallel(compile_alone, tries)):
        if output is not None:
            yield (f"{path}: does not compile alone ({' '.join(compiler)}); include what it uses\n"
                   f"{output}")


if __name__ == "__main__":
    house.run(check)
