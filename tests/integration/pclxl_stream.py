"""A reader of PCL XL of its own: it says what the stored stream of a job of one page must be.

It works on the whole job in memory, with regular expressions and slices, and shares nothing with the
library.
"""
import re
import struct

HEADER = b") HP-PCL XL;1;1;\n"
WIDTHS = (1, 2, 4, 2, 4, 4)
BEGIN_SESSION, END_SESSION, BEGIN_PAGE, END_PAGE = 0x41, 0x42, 0x43, 0x44


class NotStorable(Exception):
    pass


def without_job_control(job):
    return re.sub(rb"\x1b%-12345X|@PJL[^\n]*\n", b"", job)


def end_of_token(data, at):
    """Where the token that begins at an offset ends, and whether it is an operator or data."""
    tag = data[at]
    if tag in b"\0\t\n\v\f\r ":
        return at + 1, False
    if tag == 0xF8:
        return at + 2, False
    if tag == 0xFA:
        return at + 5 + struct.unpack_from("<I", data, at + 1)[0], True
    if tag == 0xFB:
        return at + 2 + data[at + 1], True
    if 0x41 <= tag <= 0xB9:
        return at + 1, True
    shape, element = tag >> 3, tag & 7
    width = WIDTHS[element]
    if shape == 0xC0 >> 3:
        return at + 1 + width, False
    if shape == 0xD0 >> 3:
        return at + 1 + 2 * width, False
    if shape == 0xE0 >> 3:
        return at + 1 + 4 * width, False
    if shape == 0xC8 >> 3:
        if data[at + 1] == 0xC0:
            return at + 3 + data[at + 2] * width, False
        return at + 4 + struct.unpack_from("<H", data, at + 2)[0] * width, False
    raise NotStorable(f"byte {tag:02x} at {at}")


def session_of(job):
    """The session's opening and the bodies of its pages."""
    data = without_job_control(job)
    at = start = data.index(b"\n") + 1
    opening, bodies, page = None, [], None
    after_operator = start
    while True:
        tag = data[at]
        at, is_operator = end_of_token(data, at)
        if not is_operator:
            continue
        if opening is None:
            opening = data[start:at]
        elif tag == BEGIN_PAGE:
            page = at
        elif tag == END_PAGE:
            bodies.append(data[page:after_operator])
        elif tag == END_SESSION:
            return opening, bodies
        after_operator = at


def array(data, identifier):
    return b"\xc8\xc0" + bytes([len(data)]) + data + b"\xf8" + bytes([identifier])


def stored_stream(job, name, execute):
    opening, bodies = session_of(job)
    if len(bodies) != 1:
        raise NotStorable(f"{len(bodies)} pages")
    data = HEADER + bodies[0]
    size = struct.pack("<I", len(data))
    parts = [HEADER, bytes.fromhex("d158025802f889 c000f886 c003f88f 41 c000f888 c001f882 48"),
             array(opening, 0x81), b"\x47", array(name, 0x8B), b"\x5b\xc2", size,
             b"\xf8\x8c\x5c\xfa", size, data, b"\x5d"]
    if execute:
        parts += [bytes.fromhex("c000f828 c000f825 c001f826 43"), array(name, 0x8B),
                  bytes.fromhex("5e c10100f831 44")]
    return b"".join(parts + [b"\x49\x42"])
