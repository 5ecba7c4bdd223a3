"""Zeapi.cs, read as text, beside the header and the module definition file.

Usage: csharp_test.py
"""

import re
import unittest

import interface

SOURCE = (interface.ROOT / "bindings/csharp/Zeapi.cs").read_text(encoding="utf-8")
CODE = re.sub(r"^ *//.*\n", "", SOURCE, flags=re.M)

# Sizes in a 32-bit process.
SIZES = {
    "byte": 1,
    "ushort": 2,
    "short": 2,
    "int": 4,
    "uint": 4,
    "double": 8,
    "IntPtr": 4,
}
SCALARS = {"uint32_t": "uint", "int32_t": "int", "int16_t": "short", "void": "void"}
FIELDS = {
    "uint8_t": "byte",
    "uint16_t": "ushort",
    "uint32_t": "uint",
    "int32_t": "int",
    "double": "double",
}
ELEMENTS = {"uint16_t": "ushort", "int16_t": "short", "int32_t": "int", "uint32_t": "uint"}


def enumerations():
    """{name: (type, {enumerator: value})}"""
    return {
        name: (kind, {key: int(value, 0) for key, value in re.findall(r"(\w+) = (-?\w+),", body)})
        for name, kind, body in re.findall(r"public enum (\w+) : (\w+)\s*\{(.*?)\n    \}", CODE, re.S)
    }


ENUMERATIONS = enumerations()


def structures():
    """{name: (attribute, [(marshalling, type, field)])}"""
    pattern = r"\[StructLayout\((.*?)\)\]\s*public struct (\w+)\s*\{(.*?)\n    \}"
    field = r"(?:\[MarshalAs\((.*?)\)\]\s*)?public ([\w\[\]]+) (\w+);"
    found = {}
    for attribute, name, body in re.findall(pattern, CODE, re.S):
        fields = re.findall(field, body)
        # Nothing else stands there.
        rest = re.sub(field, "", body)
        assert not rest.strip(), (name, rest)
        found[name] = (attribute, fields)
    return found


def size_and_alignment(marshalling, kind):
    kind = ENUMERATIONS[kind][0] if kind in ENUMERATIONS else kind
    if not marshalling:
        return SIZES[kind], SIZES[kind]
    if marshalling == "UnmanagedType.LPStr":
        assert kind == "string"
        return 4, 4
    how, count = re.fullmatch(r"UnmanagedType\.(\w+), SizeConst = (\d+)", marshalling).groups()
    if how == "ByValTStr":
        assert kind == "string"
        return int(count), 1
    assert how == "ByValArray"
    element = SIZES[kind.removesuffix("[]")]
    return int(count) * element, element


def layout(attribute, fields):
    """The size of a structure and the offsets of its fields, in their order."""
    packed = "Pack = 1" in attribute
    offsets, end, widest = [], 0, 1
    for marshalling, kind, name in fields:
        size, alignment = size_and_alignment(marshalling, kind)
        alignment = 1 if packed else alignment
        widest = max(widest, alignment)
        end += -end % alignment
        offsets.append((name, end))
        end += size
    return end + -end % widest, offsets


def calls():
    """{name: (attribute, result, [argument])}"""
    pattern = r"\[DllImport\(([^]]*)\)\]\s*public static extern (\w+) (\w+)\((.*?)\);"
    return {
        name: (attribute, result, [" ".join(word.split()) for word in arguments.split(",")])
        for attribute, result, name, arguments in re.findall(pattern, CODE, re.S)
    }


class CSharp(unittest.TestCase):
    def test_every_export_is_there_with_its_stack_bytes(self):
        # Each argument takes four bytes of the stack; check_argument() admits no wider ones.
        declared = {name: 4 * len(arguments) for name, (_, _, arguments) in calls().items()}
        self.assertEqual(declared, interface.exports())
        self.assertEqual(SOURCE.count(" extern "), len(declared))

    def test_calls_are_looked_up_by_their_plain_names(self):
        stated = "Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true"
        self.assertEqual({attribute for attribute, _, _ in calls().values()}, {stated})
        for constant in (
            'private const string Dll = "ZEAPI1TD";',
            "private const CallingConvention StdCall = CallingConvention.StdCall;",
            "private const CharSet Ansi = CharSet.Ansi;",
        ):
            self.assertIn(constant, CODE)

    def test_prototypes_are_those_of_the_header(self):
        prototypes = interface.prototypes()
        for name, (_, result, arguments) in calls().items():
            stated_result, stated = prototypes[name]
            with self.subTest(name):
                self.check_result(result, stated_result)
                self.assertEqual(len(arguments), len(stated))
                for argument, words in zip(arguments, stated):
                    self.check_argument(argument.rsplit(" ", 1)[0], words)

    def check_result(self, kind, words):
        if words.endswith("*"):
            self.assertEqual(kind, "IntPtr")  # a string would be freed
        elif kind == "ZeResult":
            self.assertEqual(words, "uint32_t")
        else:
            self.assertEqual(kind, SCALARS[words])

    def check_argument(self, kind, words):
        if words in SCALARS:
            if kind in ENUMERATIONS:
                self.assertIn(ENUMERATIONS[kind][0], ("int", "uint"))
            else:
                self.assertEqual(kind, SCALARS[words])
        elif words in interface.callbacks():
            self.assertEqual(kind, words)
        elif words == "const char*":
            self.assertEqual(kind, "string")
        elif words == "char*":
            # The last one is the record in whose key a call is told what to look for.
            self.assertIn(kind, ("StringBuilder", "[Out] byte[]", "ref ZeDatRecord"))
        elif words in ("void*", "const void*"):
            self.assertIn(kind, ("IntPtr", "byte[]", "[Out] byte[]", "out ZeApiInfo"))
        elif words.endswith("**"):
            self.assertEqual(kind, "out IntPtr")
        else:
            target = words.removeprefix("const ").removesuffix("*")
            element = ELEMENTS.get(target, target)
            way = "[In] ref " if words.startswith("const ") else "ref "
            self.assertIn(kind, (way + element, "IntPtr", f"[Out] {element}[]"))

    def test_enumerations_are_those_of_the_header(self):
        values = {name: values for name, (_, values) in ENUMERATIONS.items()}
        self.assertEqual(values, interface.enumerations())

    def test_constants_are_those_of_the_header(self):
        constants = dict(re.findall(r"public const \w+ (\w+) = (.*?);", CODE))
        self.assertEqual(constants, interface.constants())

    def test_structures_are_those_of_the_header(self):
        records = interface.records()
        found = structures()
        self.assertEqual(set(found), interface.record_names())
        self.assertEqual(SOURCE.count("public struct "), len(found))
        for name, (attribute, fields) in found.items():
            with self.subTest(name):
                size, offsets = records[name]
                self.assertEqual(layout(attribute, fields), (size, list(offsets.items())))
                self.assertRegex(attribute, r"^LayoutKind\.Sequential, .*CharSet = CharSet\.Ansi$")

    def test_texts_that_cannot_be_written_in_the_encoding_throw_everywhere(self):
        strict = "[BestFitMapping(false, ThrowOnUnmappableChar = true)]"
        parts = re.split(r"(?:public struct|internal static class|public static class) ", CODE)
        with_text = 0
        for before, declared in zip(parts, parts[1:]):
            name, body = declared.split("\n", 1)
            if "string " in body or "StringBuilder " in body:
                with_text += 1
                self.assertIn(strict, before[before.rindex("\n    }" if "\n    }" in before else "\n"):], name)
        self.assertGreater(with_text, 9)

    def test_fields_have_the_types_of_the_header(self):
        records = structures()
        for name, stated in interface.fields().items():
            found = records[name][1]
            self.assertEqual(len(found), len(stated), name)
            for (marshalling, kind, field), (words, stated_field, length) in zip(found, stated):
                with self.subTest(f"{name}.{field}"):
                    self.assertEqual(field, stated_field)
                    self.check_field(marshalling, kind, words, length)

    def check_field(self, marshalling, kind, words, length):
        if words == "*":
            self.assertIn((marshalling, kind), [("", "IntPtr"), ("UnmanagedType.LPStr", "string")])
        elif words == "char":
            self.assertEqual(kind, "string")
            self.assertEqual(marshalling, f"UnmanagedType.ByValTStr, SizeConst = {length}")
        elif length:
            self.assertEqual(kind, FIELDS[words] + "[]")
            self.assertEqual(marshalling, f"UnmanagedType.ByValArray, SizeConst = {length}")
        else:
            kind = ENUMERATIONS[kind][0] if kind in ENUMERATIONS else kind
            self.assertEqual((marshalling, kind), ("", FIELDS[words]))

    def test_callbacks_have_the_calling_convention_and_arguments_of_the_header(self):
        pattern = r"\[UnmanagedFunctionPointer\((.*?)\)\]\s*public delegate (\w+) (\w+)\((.*?)\);"
        found = {}
        for attribute, result, name, arguments in re.findall(pattern, CODE, re.S):
            self.assertEqual(attribute, "CallingConvention.StdCall, CharSet = CharSet.Ansi")
            words = {"uint": "uint32_t", "void": "void"}[result]
            found[name] = (words, arguments.count(",") + 1)
        self.assertEqual(found, interface.callbacks())


if __name__ == "__main__":
    unittest.main()
