#!/usr/bin/env python3
"""No file of the library is longer than 600 lines, tables apart.

Usage: file_length.py ROOT
"""
import house

LONGEST = 600
# Tables are data: one may be as long as what it lists, and so may the one public header. Each by its
# path.
TABLES = frozenset({"include/zeapi.h"})


def check(root):
    for path in house.files(root, ("include", "src")):
        length = len((root / path).read_text(encoding="utf-8").splitlines())
        if length > LONGEST and str(path) not in TABLES:
            yield (f"{path}: {length} lines; find the second topic and give it a file of its own "
                   "(a table: name it in TABLES of file_length.py)")


if __name__ == "__main__":
    house.run(check)
