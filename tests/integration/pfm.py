"""Windows printer font metrics, read by their published layout.

Checks the structure while it reads: a file that breaks a rule raises Broken.
"""

import struct

HEADER = ("version size copyright type points vert_res horiz_res ascent internal_leading "
          "external_leading italic underline strike_out weight char_set pix_width pix_height "
          "pitch_and_family avg_width max_width first last default_char break_char width_bytes "
          "device face bits_pointer bits_offset").split()
HEADER_FORMAT = "<HI60sHHHHHHHBBBHBHHBHHBBBBHIIII"
EXTENSION = ("size_fields ext_metrics extent_table origin_table pair_kern_table track_kern_table "
             "driver_info reserved").split()
EXTENDED = ("size point_size orientation master_height min_scale max_scale master_units cap_height "
            "x_height lower_case_ascent lower_case_descent slant super_script sub_script "
            "super_script_size sub_script_size underline_offset underline_width "
            "double_upper_offset double_lower_offset double_upper_width double_lower_width "
            "strike_out_offset strike_out_width kern_pairs kern_tracks").split()
DRIVER_INFO = "ep_size ep_version memory escape class_ table_offset table_length first last".split()


class Broken(Exception):
    pass


class Pfm:
    """The header's fields are attributes; `extended` and `driver` hold further ones."""

    def __init__(self, data):
        self.data = data
        self.parts = []  # (start, end, what)
        self._want(len(data) >= 256, "at least 256 bytes")
        self.header = dict(zip(HEADER, self._unpack(HEADER_FORMAT, 0, "header")))
        self.__dict__.update(self.header)
        self._check_header()
        self.count = self.last - self.first + 1
        self.device_name = self._text(self.device, "device name")
        self.face_name = self._text(self.face, "face name")
        self.is_postscript = self.device_name == b"PostScript"
        self._read_tables()
        self._check_parts()

    def width(self, code):
        """Extent, or dots where there are none; 0 outside the range."""
        if not self.first <= code <= self.last:
            return 0
        table = self.extents or self.widths
        return table[code - self.first] if table else self.avg_width

    def _want(self, holds, rule):
        if not holds:
            raise Broken(rule)

    def _unpack(self, layout, offset, what):
        size = struct.calcsize(layout)
        self._want(0 <= offset and offset + size <= len(self.data), f"{what} lies in the file")
        self.parts.append((offset, offset + size, what))
        return struct.unpack_from(layout, self.data, offset)

    def _text(self, offset, what):
        end = self.data.find(b"\0", offset)
        self._want(0 < offset < end, f"{what} lies in the file and ends there")
        self.parts.append((offset, end + 1, what))
        return self.data[offset:end]

    def _check_header(self):
        want = self._want
        want(self.version == 0x100, "version 1.0")
        want(self.size == len(self.data), "size is the file's")
        want(self.copyright[-1] == 0, "copyright is terminated")
        want(34 < self.face < 2048, "face name in the first 2048 bytes")
        want(self.first <= self.last, "first code before last")
        want(self.first + self.default_char <= self.last, "default character in range")
        want(self.first + self.break_char <= self.last, "break character in range")
        want(self.type in (0x80, 0x81), "type of a device font")
        want(self.char_set in (0, 2, 255, *range(0xB4, 0xBB)), "known character set")
        want(self.italic in (0, 1) and self.underline == self.strike_out == 0, "style bytes")
        want(self.avg_width <= self.max_width, "average not above maximum")
        want(self.pitch_and_family & 0x0E == 0 and self.pitch_and_family >> 4 <= 5, "family")
        want(self.width_bytes == self.bits_pointer == self.bits_offset == 0, "no bitmap")

    def _read_tables(self):
        want = self._want
        self.widths = None
        extension = 117
        if not self.is_postscript and self.pix_width == 0:
            self.widths = self._unpack(f"<{self.count + 1}H", extension, "width table")
            want(self.widths[-1] == 0, "width table ends with 0")
            extension += 2 * (self.count + 1)
        self.extension = dict(zip(EXTENSION, self._unpack("<H7I", extension, "extension")))
        e = self.extension
        want(e["size_fields"] == 30, "extension of 30 bytes")
        want(e["origin_table"] == e["track_kern_table"] == e["reserved"] == 0, "unused fields")
        self.extended = dict(zip(EXTENDED, self._unpack("<H24hH", e["ext_metrics"], "metrics")))
        want(self.extended["size"] == 52, "extended metrics of 52 bytes")
        self.extents = None
        if e["extent_table"]:
            self.extents = self._unpack(f"<{self.count}H", e["extent_table"], "extents")
        want(self.extents or not self.is_postscript, "PostScript fonts have extents")
        self._read_kerning(e["pair_kern_table"])
        self._read_driver_info(e["driver_info"])
        table = (self.extents if self.is_postscript else self.widths) or [self.pix_width]
        want(self.max_width == max(table), "maximum is the widest")

    def _read_kerning(self, offset):
        self.pairs = []
        if offset:
            count, = self._unpack("<H", offset, "pair count")
            flat = self._unpack("<" + "BBh" * count, offset + 2, "pairs")
            self.pairs = list(zip(flat[::3], flat[1::3], flat[2::3]))
        words = [second << 8 | first for first, second, _ in self.pairs]
        self._want(words == sorted(words), "pairs are sorted")
        for code in {code for pair in self.pairs for code in pair[:2]}:
            self._want(self.first <= code <= self.last, "pairs are in range")
        # Read as signed, it is a count.
        self._want(self.extended["kern_pairs"] & 0xFFFF == len(self.pairs), "pairs are counted")
        self._want(self.extended["kern_tracks"] == 0, "no tracks")

    def _read_driver_info(self, offset):
        self.driver = None
        self.selection = self.short_name = self.symbol_set = None
        if self.is_postscript:
            self.postscript_name = self._text(offset, "PostScript name")
            return
        self.driver = dict(zip(DRIVER_INFO, self._unpack("<HHIIHIHBB", offset, "driver info")))
        self._want(self.driver["ep_size"] == 22 and self.driver["ep_version"] == 1, "driver info")
        end = offset + 22
        if self.driver["escape"]:
            self._want(self.driver["escape"] == end, "selection behind the driver info")
            self.selection = self._text(end, "selection")
            end += len(self.selection) + 1
        # What is left before the next part is the stored name.
        starts = [start for start, _, _ in self.parts if start >= end] + [len(self.data)]
        rest = self.data[end:min(starts)].rstrip(b"\0").split(b"\0")
        if len(rest) == 2:
            self.short_name = self._text(end, "short name")
            self.symbol_set = self._text(end + len(rest[0]) + 1, "symbol set")

    def _check_parts(self):
        """No two parts overlap, and only zeros are in none."""
        end = 0
        for start, stop, what in sorted(self.parts):
            self._want(start >= end, f"{what} overlaps the part before")
            self._want(not any(self.data[end:start]), f"stray bytes before {what}")
            end = stop
        self._want(not any(self.data[end:]), "stray bytes at the end")
