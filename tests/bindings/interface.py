"""What include/zeapi.h and src/api/ZEAPI1TD.def say, for the tests of the bindings."""

import pathlib
import re

import definition_file

ROOT = pathlib.Path(__file__).resolve().parents[2]
HEADER = (ROOT / "include/zeapi.h").read_text(encoding="utf-8")
DEFINITIONS = (ROOT / "src/api/ZEAPI1TD.def").read_text(encoding="utf-8")

_CODE = re.sub(r"/\*.*?\*/", " ", HEADER, flags=re.S)


def exports():
    """{name: bytes on the stack} of the module definition file."""
    return definition_file.exports(DEFINITIONS)


def enumerations():
    """{name: {enumerator: value}} of the header."""
    return {
        name: {key: int(value, 0) for key, value in re.findall(r"(\w+) = (-?\w+)", body)}
        for name, body in re.findall(r"\benum (\w+) \{(.*?)\}", _CODE, re.S)
    }


def constants():
    """{name: text} of the header's own macros that are a value."""
    return dict(re.findall(r"^#define (ZE_\w+) (\S+)$", _CODE, re.M))


def prototypes():
    """{name: (result, [argument])} of the header, types alone."""
    found = {}
    pattern = r"ZEAPI_EXPORT ([\w* ]+?)\s+ZEAPI_CALL (\w+)\((.*?)\) ZEAPI_NOEXCEPT;"
    for result, name, arguments in re.findall(pattern, " ".join(_CODE.split())):
        types = [argument.rsplit(" ", 1)[0] for argument in arguments.split(",")]
        found[name] = (result, [kind.strip() for kind in types])
    return found


def callbacks():
    """{name: (result, number of arguments)} of the header."""
    pattern = r"typedef (\w+)\s*\(ZEAPI_CALL\* (\w+)\)\((.*?)\);"
    return {
        name: (result, arguments.count(",") + 1)
        for result, name, arguments in re.findall(pattern, _CODE, re.S)
    }


def records():
    """{record: (size, {field: offset})} that the header asserts for 4-byte pointers."""
    fields = {}
    for record, field, offset in re.findall(
        r"^ZEAPI_ASSERT_OFFSET\((\w+), (\w+), (\d+)\);", _CODE, re.M
    ):
        fields.setdefault(record, {})[field] = int(offset)
    sizes = dict(re.findall(r"^ZEAPI_ASSERT_SIZE\((\w+), (\d+)\);", _CODE, re.M))
    # The one record whose size is the same for all pointers.
    for record, size in re.findall(r"sizeof\((\w+)\) == (\d+),", _CODE):
        sizes[record] = size
        fields[record] = {"words": 0}
    return {record: (int(size), fields[record]) for record, size in sizes.items()}


def fields():
    """{record: [(type, field, length of the array or "")]} of the header; pointers are "*"."""
    field = r"^ +(?:const |struct )?(\w+\*?) (\w+)(?:\[(\d+)\])?;"
    return {
        record: [
            ("*" if kind.endswith("*") else kind, name, length)
            for kind, name, length in re.findall(field, body, re.M)
        ]
        for record, body in re.findall(r"typedef struct (\w+) \{(.*?)\n\}", _CODE, re.S)
    }


def record_names():
    """The records that the header defines."""
    return set(fields())
