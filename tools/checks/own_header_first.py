#!/usr/bin/env python3
"""A source includes its own header first, then comes a blank line: so each header shows in every
build that it stands alone.

Usage: own_header_first.py ROOT
"""
import house

# The folders that quoted includes start from.
BASES = ("src", "tools/zeapi")


def own_header(root, path):
    """The name by which a source includes its header; None when it has none of its own."""
    for base in BASES:
        if path.is_relative_to(base):
            # The hosts' folders of the platform implement headers of the folder above.
            for folder in (path.parent, path.parent.parent):
                header = folder / (path.stem + ".h")
                if header.is_relative_to(base) and (root / header).is_file():
                    return str(header.relative_to(base))
    return None


def check(root):
    for path in house.files(root, BASES, house.SOURCES):
        own = own_header(root, path)
        if own is None:
            continue
        number, _, first = next(house.includes(root, path), (1, None, None))
        if first != own:
            yield f'{path}:{number}: include "{own}" first'
            continue
        following = dict(house.lines(root, path)).get(number + 1, "")
        if following.strip():
            yield f'{path}:{number + 1}: leave a blank line after "{own}"'


if __name__ == "__main__":
    house.run(check)
