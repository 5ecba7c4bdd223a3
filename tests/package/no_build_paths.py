#!/usr/bin/env python3
"""Refuses installed files that name a folder of the machine that built them.

Usage: no_build_paths.py PREFIX FOLDER...
"""
import pathlib
import sys


def main(prefix, folders):
    files = sorted(path for path in pathlib.Path(prefix).rglob("*") if path.is_file())
    if not files:
        print(f"{prefix}: nothing is installed here")
        return 1
    named = [(path, folder) for path in files for folder in folders
             if folder.encode() in path.read_bytes()]
    for path, folder in named:
        print(f"{path}: names {folder}; write the path relative to the file, or map it away "
              "with -ffile-prefix-map")
    return 1 if named else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2:]))
