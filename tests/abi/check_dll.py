#!/usr/bin/python3
"""Checks the built DLL file itself against the module definition file.

check_dll.py DLL DEF VERSION: prints each fault on a line of its own; the exit status says whether there was
one.
"""

import sys

from definition_file import exports
from pe_file import PeFile

SYSTEM_DLLS = {"advapi32.dll", "kernel32.dll", "msvcrt.dll", "user32.dll", "winspool.drv"}
DYNAMIC_BASE = 0x0040
NX_COMPAT = 0x0100
VFT_DLL = 2


def faults(dll, definitions, wanted_version):
    expected = set(exports(definitions))
    exported = dll.export_names()
    if not expected:
        yield "the definition file names no exports"
    yield from (f"not exported: {name}" for name in sorted(expected - set(exported)))
    yield from (f"exported but not in the definition file: {name}"
                for name in sorted(set(exported) - expected))
    if dll.export_count() != len(exported):
        yield "something is exported by number only"
    yield from (f"imports {name}, which is no system DLL"
                for name in dll.import_names() if name.lower() not in SYSTEM_DLLS)
    if not dll.import_names():
        yield "imports nothing at all: the import table was not read"
    if not dll.dll_characteristics & DYNAMIC_BASE:
        yield "DYNAMIC_BASE is not set"
    if not dll.has_relocations():
        yield "DYNAMIC_BASE without relocations"
    if not dll.dll_characteristics & NX_COMPAT:
        yield "NX_COMPAT is not set"
    version = dll.fixed_version()
    if version is None:
        yield "no version resource"
        return
    if version.file != wanted_version or version.product != wanted_version:
        yield f"version is {version.file}, product {version.product}"
    if version.file_type != VFT_DLL:
        yield f"file type of the version resource is {version.file_type}"


def main(arguments):
    dll_name, definitions_name, version_text = arguments
    major, minor = map(int, version_text.split("."))
    with open(definitions_name, encoding="ascii") as file:
        definitions = file.read()
    found = list(faults(PeFile.load(dll_name), definitions, (major, minor, 0, 0)))
    for fault in found:
        print(fault)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
