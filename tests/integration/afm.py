"""Adobe font metrics, read by the published format."""

import collections

Afm = collections.namedtuple("Afm", "header characters pairs")
Character = collections.namedtuple("Character", "code width name box")


def read(data):
    """Characters in file order; pairs of names with their amounts."""
    header, characters, pairs = {}, [], {}
    for line in data.decode("latin-1").splitlines():
        keyword, _, value = line.partition(" ")
        if keyword == "C":
            characters.append(_character(line))
        elif keyword == "KPX":
            first, second, amount = value.split()[:3]
            pairs.setdefault((first, second), amount)
        else:
            header.setdefault(keyword, value.strip())
    return Afm(header, characters, pairs)


def _character(line):
    items = {words[0]: words[1:] for words in map(str.split, line.split(";")) if words}
    return Character(int(items["C"][0]), items["WX"][0], items.get("N", [None])[0],
                     items.get("B"))


def whole(number):
    """Without its fraction, as the library reads numbers."""
    return int(float(number))
