"""What zeapi.py declares beside the header and the module definition file."""

import ast
import ctypes
import unittest

import interface
import zeapi

SCALARS = {
    "void": None,
    "uint32_t": ctypes.c_uint32,
    "int32_t": ctypes.c_int32,
    "int16_t": ctypes.c_int16,
}
FIELDS = {
    "uint8_t": ctypes.c_uint8,
    "uint16_t": ctypes.c_uint16,
    "uint32_t": ctypes.c_uint32,
    "int32_t": ctypes.c_int32,
    "char": ctypes.c_char,
    "double": ctypes.c_double,
}
TEXT = ctypes.c_char_p
CALLBACKS = {name: getattr(zeapi, name) for name in interface.callbacks()}


def is_pointer(kind):
    return kind is TEXT or issubclass(kind, ctypes.c_void_p) or hasattr(kind, "contents")


def with_narrow_pointers(record):
    """A record as a 32-bit library has it."""
    fields = [
        (name, ctypes.c_uint32 if is_pointer(kind) else kind) for name, kind in record._fields_
    ]
    members = {"_fields_": fields}
    if getattr(record, "_pack_", 0):
        members = {"_pack_": record._pack_, "_layout_": "ms", **members}
    return type(record.__name__, (ctypes.Structure,), members)


def layout(record):
    """The size of a record and the offsets of its fields, in their order."""
    offsets = [(name, getattr(record, name).offset) for name, _ in record._fields_]
    return ctypes.sizeof(record), offsets


class Declarations(unittest.TestCase):
    facts = {}

    def test_every_export_is_there_with_its_stack_bytes(self):
        # In the 32-bit library each argument takes four bytes of the stack.
        declared = {name: 4 * len(types[1:]) for name, types in zeapi.PROTOTYPES.items()}
        self.assertEqual(declared, interface.exports())

    def test_prototypes_are_those_of_the_header(self):
        prototypes = interface.prototypes()
        self.assertEqual(set(zeapi.PROTOTYPES), set(prototypes))
        for name, (result, *arguments) in zeapi.PROTOTYPES.items():
            stated_result, stated = prototypes[name]
            if stated == ["void"]:
                stated = []
            with self.subTest(name):
                self.assertEqual(len(arguments), len(stated))
                for kind, words in zip([result, *arguments], [stated_result, *stated]):
                    self.check_type(kind, words)

    def check_type(self, kind, words):
        if words in SCALARS:
            self.assertIs(kind, SCALARS[words])
        elif words in CALLBACKS:
            self.assertIs(kind, CALLBACKS[words])
        elif words == "const char*":
            self.assertIs(kind, TEXT)
        elif words == "char*" and kind is not TEXT:
            # What a call writes to: texts of Python must not get there.
            self.assertIn(kind, (zeapi._Buffer, ctypes.POINTER(zeapi.ZeDatRecord)))
        else:
            self.assertTrue(words.endswith("*") and is_pointer(kind), (kind, words))
            record = words.replace("const ", "").rstrip("*")
            if record in interface.record_names():
                self.assertIs(kind, ctypes.POINTER(getattr(zeapi, record)))

    def test_enumerations_are_those_of_the_header(self):
        for name, values in interface.enumerations().items():
            with self.subTest(name):
                members = getattr(zeapi, name).__members__
                self.assertEqual({key: int(value) for key, value in members.items()}, values)
                for key, value in values.items():
                    self.assertEqual(getattr(zeapi, key), value)

    def test_constants_are_those_of_the_header(self):
        constants = interface.constants()
        self.assertGreaterEqual(len(constants), 4)
        for name, text in constants.items():
            self.assertEqual(getattr(zeapi, name), ast.literal_eval(text), name)

    def test_callbacks_have_the_arguments_of_the_header(self):
        callbacks = interface.callbacks()
        self.assertEqual(len(callbacks), 3)
        for name, (result, count) in callbacks.items():
            kind = getattr(zeapi, name)
            self.assertEqual(len(kind._argtypes_), count, name)
            self.assertIs(kind._restype_, SCALARS[result], name)

    def test_records_of_the_32_bit_library_are_those_of_the_header(self):
        records = interface.records()
        self.assertEqual(set(records), interface.record_names())
        for name, (size, offsets) in records.items():
            with self.subTest(name):
                narrow = with_narrow_pointers(getattr(zeapi, name))
                self.assertEqual(layout(narrow), (size, list(offsets.items())))

    def test_records_of_this_host_are_those_of_the_compiler(self):
        self.assertGreater(len(self.facts), 100)
        for name in interface.record_names():
            size, offsets = layout(getattr(zeapi, name))
            here = {name: size, **{f"{name}.{field}": offset for field, offset in offsets}}
            compiled = {
                what: number
                for what, number in self.facts.items()
                if what == name or what.startswith(name + ".")
            }
            self.assertEqual(here, compiled)

    def test_fields_have_the_types_of_the_header(self):
        for name, stated in interface.fields().items():
            fields = getattr(zeapi, name)._fields_
            self.assertEqual(len(fields), len(stated), name)
            for (field, kind), (words, stated_field, length) in zip(fields, stated):
                with self.subTest(f"{name}.{field}"):
                    self.assertEqual(field, stated_field)
                    if words == "*":
                        self.assertTrue(is_pointer(kind))
                    elif length:
                        self.assertIs(kind, FIELDS[words] * int(length))
                    else:
                        self.assertIs(kind, FIELDS[words])

    def test_every_failure_has_words(self):
        for code in [*zeapi.ZeResult, *zeapi.ZeDatCode]:
            if code:
                self.assertNotIn("unknown", zeapi.Error("call", code).words, code)
        self.assertEqual(str(zeapi.Error("Call", 99)), "Call: an unknown result (99)")

    def test_an_old_python_reads_it(self):
        source = (interface.ROOT / "bindings/python/zeapi.py").read_text(encoding="utf-8")
        ast.parse(source, feature_version=(3, 9))
