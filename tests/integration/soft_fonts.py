"""Fonts made here for the tests: a TrueType font of the distribution as a PCL soft font, and small ones
of the other kinds."""

import struct

KEPT = (b"cvt ", b"fpgm", b"head", b"hhea", b"hmtx", b"maxp", b"prep")


class TrueType:
    """What a soft font needs of a TrueType file."""

    def __init__(self, path):
        with open(path, "rb") as file:
            self.data = file.read()
        count, = struct.unpack_from(">H", self.data, 4)
        self.tables = {}
        for i in range(count):
            tag, _, offset, length = struct.unpack_from(">4sIII", self.data, 12 + 16 * i)
            self.tables[tag] = self.data[offset:offset + length]
        self.units, = struct.unpack_from(">H", self.tables[b"head"], 18)
        self.ascent, self.descent = struct.unpack_from(">hh", self.tables[b"hhea"], 4)
        self._metrics_count, = struct.unpack_from(">H", self.tables[b"hhea"], 34)
        self._long_offsets = struct.unpack_from(">h", self.tables[b"head"], 50)[0] == 1

    def advance(self, glyph):
        entry = min(glyph, self._metrics_count - 1)
        return struct.unpack_from(">H", self.tables[b"hmtx"], entry * 4)[0]

    def glyph_data(self, glyph):
        if self._long_offsets:
            start, end = struct.unpack_from(">II", self.tables[b"loca"], glyph * 4)
        else:
            start, end = (2 * word for word in
                          struct.unpack_from(">HH", self.tables[b"loca"], glyph * 2))
        return self.tables[b"glyf"][start:end]

    def glyph_of(self, character):
        """From the cmap subtable of Unicode's first plane; 0 when there is none."""
        cmap = self.tables[b"cmap"]
        count, = struct.unpack_from(">H", cmap, 2)
        for i in range(count):
            platform, encoding, offset = struct.unpack_from(">HHI", cmap, 4 + 8 * i)
            if (platform, encoding) == (3, 1):
                return self._glyph_in(cmap[offset:], character)
        return 0

    @staticmethod
    def _glyph_in(table, character):
        doubled, = struct.unpack_from(">H", table, 6)
        for i in range(0, doubled, 2):
            end, = struct.unpack_from(">H", table, 14 + i)
            if character > end:
                continue
            start, = struct.unpack_from(">H", table, 16 + doubled + i)
            if character < start:
                return 0
            delta, = struct.unpack_from(">h", table, 16 + 2 * doubled + i)
            place = 16 + 3 * doubled + i
            range_offset, = struct.unpack_from(">H", table, place)
            if range_offset == 0:
                return (character + delta) & 0xFFFF
            glyph, = struct.unpack_from(">H", table, place + range_offset + 2 * (character - start))
            return (glyph + delta) & 0xFFFF if glyph else 0
        return 0

    def cut_down(self):
        """The tables that a soft font's header brings, as a font of their own."""
        kept = [(tag, self.tables[tag]) for tag in KEPT if tag in self.tables]
        kept.append((b"gdir", b""))
        kept.sort()
        offset = 12 + 16 * len(kept)
        directory, body = struct.pack(">IHHHH", 0x10000, len(kept), 0, 0, 0), b""
        for tag, table in kept:
            directory += tag + struct.pack(">III", 0, offset + len(body), len(table))
            body += table + b"\0" * (-len(table) % 4)
        return directory + body


def _with_checksum(data):
    return data + b"\0" + bytes([-sum(data) & 0xFF])


def descriptor(size, header_format, name, *, font_type=1, spacing=1, symbol_set=277, pitch=120,
               height=200, baseline=40, cell_height=52, typeface=4148):
    data = bytearray(64)
    struct.pack_into(">HBB", data, 0, size, header_format, font_type)
    struct.pack_into(">HHH", data, 6, baseline, cell_height, cell_height)
    struct.pack_into(">BHHH", data, 13, spacing, symbol_set, pitch, height)
    struct.pack_into("<H", data, 25, typeface)
    data[48:64] = name.ljust(16)[:16]
    return bytes(data)


def _character(code, block):
    return b"\x1b*c%dE\x1b(s%dW" % (code, len(block)) + block


def wrap(font, characters, name):
    """A bound soft font of header format 15: {code: glyph}."""
    gt = font.cut_down()
    header = descriptor(72, 15, name, pitch=font.advance(characters[32]), height=0,
                        baseline=font.ascent, cell_height=font.ascent - font.descent)
    body = struct.pack(">HhHBB", font.units, 0, 0, 1, 0)
    body += b"GT" + struct.pack(">H", len(gt)) + gt + b"\xff\xff\0\0"
    header += _with_checksum(body)
    data = b"\x1b)s%dW" % len(header) + header
    for code, glyph in sorted(characters.items()):
        outline = font.glyph_data(glyph)
        block = struct.pack(">HH", 4 + len(outline), glyph) + outline
        data += _character(code, bytes([15, 0, 2, 15]) + _with_checksum(block))
    return data


def bitmap(widths, name, spacing=1):
    """A bitmap of header format 0: {code: advance in dots}."""
    data = b"\x1b)s64W" + descriptor(64, 0, name, spacing=spacing)
    for code, width in sorted(widths.items()):
        block = struct.pack(">BBBBBBhhHHh", 4, 0, 14, 1, 0, 0, 1, 30, 8, 30, 4 * width)
        data += _character(code, block + b"\x18" * 30)
    return data


def dlf(name, flags):
    record = bytearray(34)
    struct.pack_into(">BBH", record, 0, 0, flags, 850)
    struct.pack_into(">I", record, 6, 1200)
    struct.pack_into(">I", record, 26, 7200)
    return b"\x1b=" + struct.pack("<H", 60) + b"1\x01" + bytes(record) + name.ljust(24)


def tfm(escapements, symbols, pairs, typeface):
    """Intellifont metrics: {symbol number: escapement}, without symbol sets."""
    rows = {symbol: row for row, symbol in enumerate(symbols)}
    kerning = struct.pack("<H", len(pairs)) + b"".join(
        struct.pack("<HHh", rows[first], rows[second], amount) for first, second, amount in pairs)
    entries = [
        (403, 3, len(symbols), struct.pack(f"<{len(symbols)}H", *symbols)),
        (408, 5, 1, struct.pack("<II", 8782, 1)),
        (411, 1, 1, b"\x78"),
        (417, 2, len(typeface) + 1, typeface + b"\0"),
        (433, 3, len(escapements), struct.pack(f"<{len(escapements)}H", *escapements)),
        (439, 1, len(kerning), kerning),
    ]
    start = 8 + 2 + 12 * len(entries)
    directory, data = struct.pack("<H", len(entries)), b""
    for tag, kind, count, value in entries:
        directory += struct.pack("<HHI", tag, kind, count)
        if len(value) <= 4:
            directory += value.ljust(4, b"\0")
        else:
            directory += struct.pack("<I", start + len(data))
            data += value
    return b"II" + struct.pack("<HI", 0x103, 8) + directory + data
