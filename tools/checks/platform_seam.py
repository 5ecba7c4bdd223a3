#!/usr/bin/env python3
"""What the host gives is asked for behind the seam: outside src/platform the library includes only the
C++ standard library and asks nowhere what it is compiled for.

Usage: platform_seam.py ROOT
"""
import re

import house

SEAM = "src/platform"
HOSTS = re.compile(r"\b(_WIN(32|64)|__MINGW(32|64)__|_MSC_VER|__CYGWIN__|_?_?(linux|unix|APPLE)_?_?)\b")
# The public header is C as well, and gives the calling convention of its host.
PUBLIC = "include/zeapi.h"
PUBLIC_INCLUDES = {"stddef.h", "stdint.h"}
PUBLIC_CONDITION = "#if defined(_WIN32)"


def check(root):
    for path in house.files(root, ("include", "src")):
        if path.is_relative_to(SEAM):
            continue
        public = str(path) == PUBLIC
        for number, kind, name in house.includes(root, path):
            if kind == "<" and "." in name and not (public and name in PUBLIC_INCLUDES):
                yield (f"{path}:{number}: <{name}> belongs behind the seam; put what needs it into "
                       f"{SEAM}, or include the header of the C++ library (<cstdio>, not <stdio.h>)")
        allowed = 1 if public else 0
        for number, line in house.lines(root, path):
            if not line.lstrip().startswith("#") or not HOSTS.search(line):
                continue
            if line == PUBLIC_CONDITION and allowed > 0:
                allowed -= 1
                continue
            yield f"{path}:{number}: asks for the host; put what differs into {SEAM}/win32 and posix"


if __name__ == "__main__":
    house.run(check)
