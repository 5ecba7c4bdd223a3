"""Printer records for the tests in Python: option and job accounting records as a printer sends them."""


def element(number, kind, body):
    return bytes([number, kind]) + body


def container(number, *children):
    body = b"".join(children)
    return element(number, 0, bytes([len(children)]) + len(body).to_bytes(2, "big") + body)


def integer(number, value):
    return element(number, 1, b"\4" + value.to_bytes(4, "big", signed=True))


def text(number, value):
    return element(number, 2, bytes([len(value)]) + value)


def printer_record(*elements):
    """The record: its length, the keys that give the widths used here, and the elements."""
    body = b"\0\1P{ID:1,DT:1}C{NE:1,LD:2}D{LD:1,DA:0}" + b"".join(elements)
    return len(body).to_bytes(2, "big") + body


def option_item(number, value, name):
    """An installed option: its texts and numbers as the parser's items have them."""
    return container(7, integer(1, number), integer(5, value), text(6, name))


def option_record(*items):
    """A record of installed options without groups."""
    return printer_record(container(1, container(1, *items)))
