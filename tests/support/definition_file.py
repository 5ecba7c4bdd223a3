"""Reads a module definition file."""

import re


def exports(text):
    """{name: bytes on the stack} of its entries Name@bytes."""
    entries = re.findall(r"^\s+(\w+)@(\d+)\s*$", text, re.MULTILINE)
    return {name: int(size) for name, size in entries}
