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
    """The words of a folder's CMake files, comments apart."""
    if folder not in cache:
        text = "\n".join(line.split("#")[0]
                         for path in sorted((root / folder).iterdir())
                         if path.name == "CMakeLists.txt" or path.suffix == ".cmake"
                         for _, line in house.lines(root, path))
        # A variable that names a folder may stand before the file.
        cache[folder] = {word.rsplit("}/", 1)[-1] for word in WORD.findall(text)}
    return cache[folder]


def names_of(path, folder):
    """What a folder's CMake files may call a source: a function may add "folder_" and the suffix."""
    yield str(path.relative_to(folder))
    prefix = path.parent.name + "_"
    if path.stem.startswith(prefix):
        yield path.stem.removeprefix(prefix)


def check(root):
    cache = {}
    for path in house.files(root, suffixes=SUFFIXES):
        listed = any(name in words_of(root, folder, cache)
                     for folder in path.parents for name in names_of(path, folder))
        if not listed:
            yield f"{path}: is not built; name it in {path.parent}/CMakeLists.txt or one above"
    for path in house.files(root, house.FOLDERS + ("cmake",), (".txt", ".cmake")):
        for number, line in house.lines(root, path):
            if re.search(r"\bGLOB(_RECURSE)?\b", line.split("#")[0]):
                yield f"{path}:{number}: collects files by a pattern; list them by name"


if __name__ == "__main__":
    house.run(check)
