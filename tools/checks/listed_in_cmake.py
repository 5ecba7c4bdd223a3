#!/usr/bin/env python3
"""Every source stands by name in a CMakeLists.txt of its folder or of one above, and nothing is
collected by a pattern.

Usage: listed_in_cmake.py ROOT
"""
import re

import house

SUFFIXES = house.SOURCES + (".rc", ".def")
WORD = re.compile(r'[^\s()"]+')


def words_of(root, folder, cache):
    """The words of a folder's CMakeLists.txt, comments apart."""
    if folder not in cache:
        path = root / folder / "CMakeLists.txt"
        text = path.read_text(encoding="utf-8") if path.is_file() else ""
        # A variable that names a folder may stand before the file.
        cache[folder] = {word.rsplit("}/", 1)[-1]
                         for line in text.splitlines() for word in WORD.findall(line.split("#")[0])}
    return cache[folder]


def check(root):
    cache = {}
    for path in house.files(root, suffixes=SUFFIXES):
        listed = any(str(path.relative_to(folder)) in words_of(root, folder, cache)
                     for folder in path.parents)
        if not listed:
            yield f"{path}: is not built; name it in {path.parent}/CMakeLists.txt or one above"
    for path in house.files(root, house.FOLDERS + ("cmake",), (".txt", ".cmake")):
        for number, line in house.lines(root, path):
            if re.search(r"\bGLOB(_RECURSE)?\b", line):
                yield f"{path}:{number}: collects files by a pattern; list them by name"


if __name__ == "__main__":
    house.run(check)
