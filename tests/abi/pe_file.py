"""Reads from a Windows executable file what the checks of the DLL ask about."""

import struct
from collections import namedtuple

FixedVersion = namedtuple("FixedVersion", "file product file_type")

EXPORTS, IMPORTS, RESOURCES, RELOCATIONS = 0, 1, 2, 5
RT_VERSION = 16
FIXED_VERSION_SIGNATURE = 0xFEEF04BD


class PeFile:
    @classmethod
    def load(cls, name):
        with open(name, "rb") as file:
            return cls(file.read())

    def __init__(self, data):
        self.data = data
        header = self._u32(0x3C)
        if data[header:header + 4] != b"PE\0\0":
            raise ValueError("not a Windows executable file")
        section_count = self._u16(header + 6)
        optional_size = self._u16(header + 20)
        optional = header + 24
        wide = self._u16(optional) == 0x20B
        self.dll_characteristics = self._u16(optional + 70)
        self._directories = optional + (112 if wide else 96)
        self._sections = [struct.unpack_from("<IIII", data, optional + optional_size + 40 * i + 8)
                          for i in range(section_count)]

    def export_names(self):
        table, _ = self._directory(EXPORTS)
        count = self._u32(table + 24)
        names = self._offset(self._u32(table + 32))
        return [self._text(self._u32(names + 4 * i)) for i in range(count)]

    def export_count(self):
        table, _ = self._directory(EXPORTS)
        return self._u32(table + 20)

    def import_names(self):
        entry, _ = self._directory(IMPORTS)
        names = []
        while self._u32(entry + 12) != 0:
            names.append(self._text(self._u32(entry + 12)))
            entry += 20
        return names

    def has_relocations(self):
        return self._directory_words(RELOCATIONS)[1] != 0

    def fixed_version(self):
        """The numbers of the version resource; None when there is none."""
        if self._directory_words(RESOURCES)[1] == 0:
            return None
        root, _ = self._directory(RESOURCES)
        node = self._resource_child(root, root, RT_VERSION)
        while node is not None and node & 0x80000000:
            node = self._resource_child(root, root + (node & 0x7FFFFFFF), None)
        if node is None:
            return None
        start = self._offset(self._u32(root + node))
        size = self._u32(root + node + 4)
        place = self.data.find(struct.pack("<I", FIXED_VERSION_SIGNATURE), start, start + size)
        if place < 0:
            return None
        words = struct.unpack_from("<13I", self.data, place)
        return FixedVersion(_four_parts(words[2:4]), _four_parts(words[4:6]), words[9])

    def _resource_child(self, root, node, wanted):
        """What the entry with the wanted number points to; the first entry when any will do."""
        count = self._u16(node + 12) + self._u16(node + 14)
        for i in range(count):
            number, target = struct.unpack_from("<II", self.data, node + 16 + 8 * i)
            if wanted in (None, number):
                return target
        return None

    def _directory_words(self, index):
        return struct.unpack_from("<II", self.data, self._directories + 8 * index)

    def _directory(self, index):
        address, size = self._directory_words(index)
        return self._offset(address), size

    def _offset(self, address):
        for size, start, raw_size, raw in self._sections:
            if start <= address < start + max(size, raw_size):
                return address - start + raw
        raise ValueError(f"address {address:#x} lies in no section")

    def _text(self, address):
        start = self._offset(address)
        return self.data[start:self.data.index(b"\0", start)].decode("ascii")

    def _u16(self, offset):
        return struct.unpack_from("<H", self.data, offset)[0]

    def _u32(self, offset):
        return struct.unpack_from("<I", self.data, offset)[0]


def _four_parts(words):
    high, low = words
    return (high >> 16, high & 0xFFFF, low >> 16, low & 0xFFFF)
