#!/usr/bin/env python3
"""The code is laid out as clang-format does it with the .clang-format of the root.

Usage: formatted.py ROOT
"""
import re

import house


def check(root):
    output = house.output_of(["clang-format", "--dry-run", "--Werror", *house.files(root)], cwd=root)
    for path in dict.fromkeys(re.findall(r"^(.+?):\d+:\d+: error:", output or "", re.MULTILINE)):
        yield f"{path}: is not formatted; run clang-format -i {path}"


if __name__ == "__main__":
    house.run(check)
