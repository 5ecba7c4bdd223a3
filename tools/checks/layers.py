#!/usr/bin/env python3
"""An include points down the list of layers or stays in its own; the command-line program knows the
public header only.

Usage: layers.py ROOT
"""
import house

LAYERS = ("api", "download", "pclxl", "fonts", "web", "config", "data", "parse", "archive", "output",
          "files", "base", "platform")
PUBLIC = "zeapi.h"
HOST_FOLDERS = ("platform/posix", "platform/win32")
PROGRAM = "tools/zeapi"
# The listing of PCL XL is not exported, and no call tells how many files an extraction is to make.
REACHES_INSIDE = ("tools/zeapi/archive_members.cpp", "tools/zeapi/commands/pclxl.cpp")


def check_library(root, path):
    layer = path.parts[1]
    if layer not in LAYERS:
        yield f"{path}: the folder {layer} is no layer; give it a place in LAYERS of layers.py"
        return
    for number, kind, name in house.includes(root, path):
        if kind != '"' or name == PUBLIC:
            continue
        target = name.split("/")[0]
        if target not in LAYERS or "/" not in name:
            yield f'{path}:{number}: write "{name}" as "layer/header.h"'
        elif LAYERS.index(target) < LAYERS.index(layer):
            yield (f'{path}:{number}: "{name}" is above {layer}; move what is needed down, or hand it '
                   "in from above")
        for folder in HOST_FOLDERS:
            if name.startswith(folder + "/") and not path.is_relative_to("src/" + folder):
                yield f'{path}:{number}: "{name}" is for its own host only; include the seam\'s header'


def check(root):
    for path in house.files(root, ("src",)):
        yield from check_library(root, path)
    for path in house.files(root, (PROGRAM,)):
        if str(path) in REACHES_INSIDE:
            continue
        for number, kind, name in house.includes(root, path):
            if kind == '"' and name != PUBLIC and (root / "src" / name).is_file():
                yield f'{path}:{number}: "{name}" is inside the library; use {PUBLIC} alone'


if __name__ == "__main__":
    house.run(check)
