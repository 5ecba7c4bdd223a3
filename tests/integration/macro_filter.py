"""The macro fixup of PCL, as a regular expression over the whole file and a look at each match.

It says what the fixup must make of a real job and shares nothing with the library. Sequences that are
cut off are none of its business: real jobs have none.
"""
import re

DEFAULT = 831

FIXED = {
    b"&l": "F# P#", b"&a": "", b"&b": "M#", b"&f": "X6 X7 X10", b"&p": "X!", b"&r": "",
    b"(f": "W!", b"(s": "W!", b")s": "W!", b"*b": "W! V!", b"*c": "W! F0 F1",
}  # fmt: skip
OPTIONAL = {
    b"&l": [(0x004, "A#"), (0x008, "H#"), (0x010, "S#"), (0x020, "O#"), (0x040, "T1"),
            (0x080, "X#"), (0x100, "L#"), (0x400, "G#")],
    b"&a": [(0x010, "G#")],
    b"&f": [(0x800, "X0 X1")],
    b"&r": [(0x200, "F#")],
}  # fmt: skip

TOKEN = re.compile(
    rb"(?P<uel>\x1b%-12345X)"
    rb"|(?P<pjl>@PJL[^\n]*\n?)"
    rb"|(?P<block>\x1b\[K(?P<length>..))"
    rb"|(?P<reset>\x1bE)"
    rb"|(?P<feed>\x0c)"
    rb"|(?P<enter>\x1b%[-+.\d]*B)"
    rb"|(?P<sequence>\x1b(?P<prefix>&[labfpr]|\([fs]|\)s|\*[bc])"
    rb"(?P<groups>(?:[-+.\d]*[`-~])*[-+.\d]*[^-+.\d`-~]))",
    re.DOTALL,
)
LEAVE = re.compile(rb"\x1b%[-+.\d]*A|(?P<reset>\x1bE)")


def number(text):
    return int(re.match(rb"[-+]?\d*", text).group().strip(b"+-") or 0) * (
        -1 if text.startswith(b"-") else 1)


def fate(prefix, letter, value, options):
    entries = FIXED[prefix].split()
    for bit, more in OPTIONAL.get(prefix, ()):
        if options & bit:
            entries += more.split()
    for entry in entries:
        if entry[0] == letter.upper():
            if entry[1] == "!":
                return "data"
            if entry[1] == "#" or int(entry[1:]) == value:
                return "drop"
    return "keep"


def sequence(prefix, groups, options):
    """What is left of a sequence, and how many bytes of data follow it."""
    kept, count, last = [], 0, True
    for value, letter in re.findall(rb"([-+.\d]*)([^-+.\d])", groups):
        what = fate(prefix, chr(letter[0]), number(value), options)
        last = what != "drop"
        if last:
            kept.append(value + letter)
        if what == "data":
            count += max(0, number(value))
    if not kept:
        return b"", count
    if not last:
        kept[-1] = kept[-1].upper()
    return b"\x1b" + prefix + b"".join(kept), count


def fixed_up(job, options=DEFAULT):
    out, at = [], 0
    while match := TOKEN.search(job, at):
        out.append(job[at:match.start()])
        at = match.end()
        if match.group("block"):
            at += int.from_bytes(match.group("length"), "little")
        elif match.group("reset"):
            out.append(b"" if options & 1 else match.group())
        elif match.group("feed"):
            out.append(b"" if options & 2 else match.group())
        elif match.group("enter"):
            out.append(match.group())
            end = LEAVE.search(job, at)
            out.append(job[at:end.start() if end else None])
            at = end.end() if end else len(job)
            if end and not (end.group("reset") and options & 1):
                out.append(end.group())
        elif match.group("sequence"):
            left, count = sequence(match.group("prefix"), match.group("groups"), options)
            out += [left, job[at:at + count]]
            at += count
    return b"".join(out) + job[at:]


def raster_rows(job):
    """The data of every row of raster graphics, in order."""
    rows, at = [], 0
    while match := re.compile(rb"\x1b\*b(?:\d+[a-z])*(\d+)W").search(job, at):
        at = match.end() + int(match.group(1))
        rows.append(job[match.end():at])
    return rows
