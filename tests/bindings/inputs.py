"""Files for the tests that make real calls."""

# ESC ")s", the length and a descriptor of 64 bytes: a 12-point bitmap of the symbol set 8U.
SOFT_FONT = b"\x1b)s64W" + (
    b"\0\x40\0\1\0" + bytes(8) + b"\0\x01\x15\0\x78\0\xc8" + bytes(4) + b"\3\x03\x10"
).ljust(48, b"\0") + b"Courier".ljust(16, b"\0")


def data_line(key):
    """A line of a printer data file."""
    return b'"%s","d%s","PCL","\\x1bE","%%d",1,2.5,0.5,"P"\n' % (key, key)


def narrow(*numbers):
    return b"".join(number.to_bytes(4, "little") for number in numbers)


def metrics(face):
    """Windows metrics of one font: its size at 2, where its face is at 105."""
    font = bytearray(256)
    font[1:6] = b"\1" + narrow(len(font))
    font[105:109] = narrow(200)
    font[200 : 200 + len(face)] = face
    return bytes(font)
