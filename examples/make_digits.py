#!/usr/bin/python3
"""Makes digits.sfp, a PCL soft font (bitmap, 300 dots an inch), out of the picture in digits.txt.

Usage: make_digits.py    (in this folder)
"""

import struct

COLUMNS, ROWS, GAP = 5, 7, 1  # of a digit in the picture
DOTS = 6  # a point of the picture is a square of so many dots
WIDTH, HEIGHT = COLUMNS * DOTS, ROWS * DOTS
PITCH = WIDTH + 2 * DOTS
QUARTER = 4  # sizes are given in quarter-dots

ROMAN_8 = 277


def descriptor():
    """The first 64 bytes of the font header, most significant byte first."""
    font = struct.pack(">HBBBBHHH", 64, 0, 1, 0, 0, HEIGHT, PITCH, HEIGHT)
    font += struct.pack(">BBHHHHBBb", 0, 0, ROMAN_8, PITCH * QUARTER, HEIGHT * QUARTER,
                        HEIGHT * QUARTER, 0, 0, 3)
    font += struct.pack("<H", 0) + struct.pack(">BBbbB", 0, 2, 0, 0, 0)
    font += struct.pack(">HHHHBBH", HEIGHT * QUARTER, PITCH * QUARTER, ord("0"), ord("9"), 0, 0,
                        HEIGHT * QUARTER)
    font += struct.pack(">I", 0) + b"Digits".ljust(16)
    assert len(font) == 64
    return font


def character(code, picture):
    """The commands that add a character: its code, then its header and its rows of dots."""
    header = struct.pack(">BBBBBBhhHHH", 4, 0, 14, 1, 0, 0, DOTS, HEIGHT, WIDTH, HEIGHT,
                         PITCH * QUARTER)
    rows = b""
    for line in picture:
        dots = "".join("1" * DOTS if point == "#" else "0" * DOTS for point in line)
        dots = dots.ljust((WIDTH + 7) // 8 * 8, "0")
        rows += int(dots, 2).to_bytes(len(dots) // 8, "big") * DOTS
    data = header + rows
    return b"\x1b*c%dE\x1b(s%dW" % (code, len(data)) + data


with open("digits.txt", encoding="ascii") as source:
    lines = source.read().split("\n")[:ROWS]
font = b"\x1b)s64W" + descriptor()
for digit in range(10):
    start = digit * (COLUMNS + GAP)
    font += character(ord("0") + digit, [line[start:start + COLUMNS] for line in lines])
with open("digits.sfp", "wb") as target:
    target.write(font)
