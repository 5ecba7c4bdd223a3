#!/usr/bin/python3
"""The check of the DLL must refuse a DLL that is not as it should be.

check_dll_test.py DLL DEF VERSION: damages copies of the real ones, one thing at a time.
"""

import os
import struct
import subprocess
import sys
import tempfile
import unittest

CHECK = os.path.join(os.path.dirname(os.path.abspath(__file__)), "check_dll.py")
DLL, DEFINITIONS, VERSION = sys.argv[1:]
MAJOR, MINOR = map(int, VERSION.split("."))


def read(name):
    with open(name, "rb") as file:
        return file.read()


def replaced(data, old, new):
    if data.count(old) == 0 or len(old) != len(new):
        raise ValueError(f"cannot replace {old}")
    return data.replace(old, new)


class CheckDllTest(unittest.TestCase):
    def check(self, dll=None, definitions=None):
        """Exit status and lines of the check of this DLL and these definitions."""
        with tempfile.TemporaryDirectory() as folder:
            names = []
            for name, data in (("dll", dll or read(DLL)),
                               ("def", definitions or read(DEFINITIONS))):
                names.append(os.path.join(folder, name))
                with open(names[-1], "wb") as file:
                    file.write(data)
            done = subprocess.run([sys.executable, "-B", CHECK, *names, VERSION], capture_output=True,
                                  text=True, check=False)
        return done.returncode, done.stdout.splitlines()

    def assert_fault(self, text, **changed):
        status, lines = self.check(**changed)
        self.assertEqual(status, 1)
        self.assertIn(text, lines)

    def with_characteristic_cleared(self, bit):
        data = bytearray(read(DLL))
        place = struct.unpack_from("<I", data, 0x3C)[0] + 24 + 70
        data[place:place + 2] = struct.pack("<H", struct.unpack_from("<H", data, place)[0] & ~bit)
        return bytes(data)

    def test_accepts_the_real_one(self):
        self.assertEqual(self.check(), (0, []))

    def test_refuses_a_missing_export(self):
        self.assert_fault("not exported: ZeNewCall",
                          definitions=read(DEFINITIONS) + b"    ZeNewCall@4\n")

    def test_refuses_an_extra_export(self):
        self.assert_fault("exported but not in the definition file: ZeMemFree",
                          definitions=read(DEFINITIONS).replace(b"    ZeMemFree@4\n", b""))

    def test_refuses_a_decorated_export(self):
        self.assert_fault("exported but not in the definition file: ZeMemF@4",
                          dll=replaced(read(DLL), b"\0ZeMemFree\0", b"\0ZeMemF@4\0\0"))

    def test_refuses_an_empty_definition_file(self):
        self.assert_fault("the definition file names no exports", definitions=b"LIBRARY ZEAPI1TD\n")

    def test_refuses_a_library_that_is_not_the_system_s(self):
        self.assert_fault("imports libgcc.dll, which is no system DLL",
                          dll=replaced(read(DLL), b"msvcrt.dll\0", b"libgcc.dll\0"))

    def test_refuses_a_fixed_address(self):
        self.assert_fault("DYNAMIC_BASE is not set", dll=self.with_characteristic_cleared(0x40))

    def test_refuses_executable_data(self):
        self.assert_fault("NX_COMPAT is not set", dll=self.with_characteristic_cleared(0x100))

    def test_refuses_another_version(self):
        there = MAJOR << 16 | MINOR
        numbers = struct.pack("<4I", there, 0, there, 0)
        other = struct.pack("<4I", there + 1, 0, there + 1, 0)
        version = (MAJOR, MINOR + 1, 0, 0)
        self.assert_fault(f"version is {version}, product {version}",
                          dll=replaced(read(DLL), numbers, other))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
