#!/usr/bin/env python3
"""Each check refuses a small bad sample, for the reason meant, and accepts its mended form."""
import json
import pathlib
import shutil
import tempfile
import unittest

import cppcheck
import documents
import file_length
import formatted
import headers_alone
import house
import layers
import listed_in_cmake
import own_header_first
import platform_seam
import tidy

PROJECT = pathlib.Path(__file__).resolve().parents[2]


class Checks(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name).resolve()

    def write(self, path, text):
        (self.root / path).parent.mkdir(parents=True, exist_ok=True)
        (self.root / path).write_text(text, encoding="utf-8")

    def write_compile_commands(self, *paths):
        entries = [{"directory": str(self.root), "file": str(self.root / path),
                    "command": f"g++ -std=c++20 -I{self.root}/src -o x.o -c {self.root / path}"}
                   for path in paths]
        self.write("compile_commands.json", json.dumps(entries))

    def complaints(self, check, *arguments):
        return list(check(self.root, *arguments))

    def refuses(self, expected, check, *arguments):
        """The check complains once, and the complaint begins as expected."""
        complaints = self.complaints(check, *arguments)
        self.assertEqual(len(complaints), 1, complaints)
        self.assertTrue(complaints[0].startswith(expected), complaints[0])

    def accepts(self, check, *arguments):
        self.assertEqual(self.complaints(check, *arguments), [])

    def test_a_header_includes_what_it_uses(self):
        self.write_compile_commands()
        self.write("src/base/a.h", "#pragma once\nstd::size_t Count();\n")
        self.refuses("src/base/a.h: does not compile alone", headers_alone.check, self.root)
        self.write("src/base/a.h", "#pragma once\n#include <cstddef>\nstd::size_t Count();\n")
        self.accepts(headers_alone.check, self.root)

    def test_a_header_is_tried_again_when_what_it_includes_has_changed(self):
        self.write_compile_commands()
        self.write("src/base/a.h", "#pragma once\nstruct A { int first; };\n")
        self.write("src/base/b.h", '#pragma once\n#include "base/a.h"\ninline int First(A a) { return a.first; }\n')
        self.accepts(headers_alone.check, self.root)
        self.accepts(headers_alone.check, self.root)
        self.write("src/base/a.h", "#pragma once\nstruct A { int last; };\n")
        self.refuses("src/base/b.h: does not compile alone", headers_alone.check, self.root)

    def test_a_header_may_be_included_twice(self):
        self.write_compile_commands()
        self.write("src/base/a.h", "struct A {};\n")
        self.refuses("src/base/a.h: does not compile alone", headers_alone.check, self.root)

    def test_the_public_header_is_c99(self):
        self.write_compile_commands()
        guard = "#ifndef A\n#define A\n{}\n#endif\n"
        self.write("include/zeapi.h", guard.format("enum Kind { kOne };\nstruct Kinds { Kind kind; };"))
        complaints = self.complaints(headers_alone.check, self.root)
        self.assertEqual(len(complaints), 2, complaints)
        self.assertIn("does not compile alone (gcc -x c -std=c99", complaints[0])
        self.assertIn("does not compile alone (gcc -x c -std=c11", complaints[1])
        self.write("include/zeapi.h", guard.format("enum Kind { kOne };"))
        self.accepts(headers_alone.check, self.root)

    def test_examples_of_documents_compile(self):
        self.write("include/zeapi.h", "int Send(void);\n")
        example = "# A page\n\n```c\n#include <zeapi.h>\n\nint Twice(void) {{ return {}() + Send(); }}\n```\n"
        self.write("docs/page.md", example.format("Sent"))
        complaints = self.complaints(documents.check)
        self.assertEqual(len(complaints), 2, complaints)
        self.assertTrue(complaints[0].startswith("docs/page.md:3: the example does not compile"))
        self.write("docs/page.md", example.format("Send"))
        self.accepts(documents.check)

    def test_links_of_documents_lead_to_files(self):
        self.write("README.md", "A page\n\n[here](docs/page.md#top), [there](https://example.com)\n")
        self.refuses("README.md:3: docs/page.md is not there", documents.check)
        self.write("docs/page.md", "[back](../README.md)\n")
        self.accepts(documents.check)

    def test_each_export_has_a_page(self):
        self.write("src/api/ZEAPI1TD.def", "EXPORTS\n  ZeMemFree@4\n  ZeFilCopy@8\n")
        self.write("docs/families/files.md", "| `ZeFilCopy` | copies |\nSee also `ZeMemFree`.\n")
        self.refuses("docs/families: no page has ZeMemFree", documents.check)
        self.write("docs/families/general.md", "| `ZeMemFree` | releases |\n")
        self.accepts(documents.check)

    def test_the_own_header_comes_first(self):
        self.write("src/base/a.h", "")
        self.write("src/base/a.cpp", '#include <cstdio>\n\n#include "base/a.h"\n')
        self.refuses('src/base/a.cpp:1: include "base/a.h" first', own_header_first.check)
        self.write("src/base/a.cpp", '#include "base/a.h"\n#include <cstdio>\n')
        self.refuses("src/base/a.cpp:2: leave a blank line", own_header_first.check)
        self.write("src/base/a.cpp", '#include "base/a.h"\n\n#include <cstdio>\n')
        self.accepts(own_header_first.check)

    def test_the_own_header_of_a_host_is_in_the_folder_above(self):
        self.write("src/platform/a.h", "")
        self.write("src/platform/posix/a.cpp", "#include <cstdio>\n")
        self.refuses('src/platform/posix/a.cpp:1: include "platform/a.h" first',
                     own_header_first.check)

    def test_host_headers_stay_behind_the_seam(self):
        self.write("src/platform/posix/a.cpp", "#include <unistd.h>\n#ifdef _WIN32\n#endif\n")
        self.accepts(platform_seam.check)
        self.write("src/files/a.cpp", "#include <windows.h>\n")
        self.refuses("src/files/a.cpp:1: <windows.h> belongs behind the seam", platform_seam.check)
        self.write("src/files/a.cpp", "#include <sys/stat.h>\n")
        self.refuses("src/files/a.cpp:1: <sys/stat.h> belongs behind the seam", platform_seam.check)

    def test_the_library_does_not_ask_for_its_host(self):
        self.write("src/files/a.cpp", "#include <cstdio>\n#if defined(__linux__)\n#endif\n")
        self.refuses("src/files/a.cpp:2: asks for the host", platform_seam.check)

    def test_the_public_header_asks_for_the_calling_convention_once(self):
        condition = "#if defined(_WIN32)\n#endif\n"
        self.write("include/zeapi.h", "#include <stdint.h>\n" + condition)
        self.accepts(platform_seam.check)
        self.write("include/zeapi.h", condition * 2)
        self.refuses("include/zeapi.h:3: asks for the host", platform_seam.check)
        self.write("include/zeapi.h", "#include <windows.h>\n")
        self.refuses("include/zeapi.h:1: <windows.h> belongs", platform_seam.check)

    def test_an_include_points_down(self):
        self.write("src/output/a.cpp", '#include "base/a.h"\n#include "output/b.h"\n'
                                       '#include "zeapi.h"\n')
        self.accepts(layers.check)
        self.write("src/base/a.cpp", '#include "output/a.h"\n')
        self.refuses('src/base/a.cpp:1: "output/a.h" is above base', layers.check)

    def test_an_include_names_its_layer(self):
        self.write("src/base/a.cpp", '#include "a.h"\n')
        self.refuses('src/base/a.cpp:1: write "a.h" as', layers.check)

    def test_every_folder_is_a_layer(self):
        self.write("src/helpers/a.cpp", "")
        self.refuses("src/helpers/a.cpp: the folder helpers is no layer", layers.check)

    def test_headers_of_one_host_stay_there(self):
        self.write("src/platform/posix/a.cpp", '#include "platform/posix/path.h"\n')
        self.accepts(layers.check)
        self.write("src/files/a.cpp", '#include "platform/posix/path.h"\n')
        self.refuses('src/files/a.cpp:1: "platform/posix/path.h" is for its own host', layers.check)

    def test_the_program_knows_the_public_header_only(self):
        self.write("src/base/text.h", "")
        self.write("tools/zeapi/a.cpp", '#include "zeapi.h"\n#include "options.h"\n')
        self.accepts(layers.check)
        self.write("tools/zeapi/a.cpp", '#include "base/text.h"\n')
        self.refuses('tools/zeapi/a.cpp:1: "base/text.h" is inside the library', layers.check)

    def test_every_source_is_listed(self):
        self.write("src/CMakeLists.txt", "add_library(a base/b.cpp) # base/a.cpp\n")
        self.write("src/base/a.cpp", "")
        self.refuses("src/base/a.cpp: is not built", listed_in_cmake.check)
        self.write("src/CMakeLists.txt", "add_library(a ${CMAKE_CURRENT_SOURCE_DIR}/base/a.cpp)\n")
        self.accepts(listed_in_cmake.check)

    def test_a_function_may_add_the_name_of_the_folder(self):
        self.write("fuzz/CMakeLists.txt", "add_fuzz_target(lines)\n")
        self.write("fuzz/fuzz_lines.cpp", "")
        self.accepts(listed_in_cmake.check)
        self.write("fuzz/fuzz_words.cpp", "")
        self.refuses("fuzz/fuzz_words.cpp: is not built", listed_in_cmake.check)

    def test_no_source_is_listed_by_a_pattern(self):
        self.write("src/CMakeLists.txt", "file(GLOB sources *.cpp)\n")
        self.refuses("src/CMakeLists.txt:1: collects files by a pattern", listed_in_cmake.check)

    def test_files_are_short(self):
        self.write("src/base/a.cpp", "\n" * file_length.LONGEST)
        self.accepts(file_length.check)
        self.write("src/base/a.cpp", "\n" * (file_length.LONGEST + 1))
        self.refuses("src/base/a.cpp: 601 lines", file_length.check)

    def test_the_code_is_formatted(self):
        shutil.copy(PROJECT / ".clang-format", self.root)
        self.write("src/base/a.cpp", "int  a;\n")
        self.refuses("src/base/a.cpp: is not formatted", formatted.check)
        self.write("src/base/a.cpp", "int a;\n")
        self.accepts(formatted.check)

    def tidy_output(self, text):
        shutil.copy(PROJECT / ".clang-tidy", self.root)
        self.write_compile_commands("src/base/a.cpp")
        self.write("src/base/a.cpp", text)
        return "\n".join(self.complaints(tidy.check, self.root))

    def test_tidy_knows_the_scheme_of_names(self):
        bad = {"int count_lines();": "function 'count_lines'",
               "int Count(int NextLine);": "parameter 'NextLine'",
               "constexpr int longest = 1;": "constexpr variable 'longest'",
               "struct line_end {};": "struct 'line_end'",
               "class A {\n  int sum = 0;\n};": "private member 'sum'",
               "namespace Fonts {}": "namespace 'Fonts'",
               "enum Kind { one };": "enum constant 'one'",
               "#define Longest 1": "macro definition 'Longest'"}
        output = self.tidy_output("\n".join(bad) + "\n")
        for name in bad.values():
            self.assertIn("invalid case style for " + name, output)
        self.assertEqual(output.count("invalid case style"), len(bad), output)

    def test_tidy_looks_for_bugs(self):
        output = self.tidy_output("int First(const int* values) {\n"
                                  "  return values == nullptr ? *values : values[0];\n}\n")
        self.assertIn("clang-analyzer-core.NullDereference", output)

    @unittest.skipUnless(shutil.which(house.WINDOWS_COMPILER), "no MinGW")
    def test_tidy_looks_at_what_is_for_windows_alone(self):
        self.write("src/platform/win32/a.cpp", "#include <windows.h>\n#include <string>\n"
                                               "DWORD count_lines() { return 1; }\n")
        self.assertIn("function 'count_lines'", self.tidy_output("int Count();\n"))

    def test_cppcheck_looks_for_bugs(self):
        self.write("include/zeapi.h", "")
        self.write("src/base/a.cpp", "int Last() {\n  int values[2] = {1, 2};\n  return values[2];\n}\n")
        self.refuses("cppcheck complains", cppcheck.check, self.root)
        # What it keeps of an unchanged file is told again.
        self.refuses("cppcheck complains", cppcheck.check, self.root)
        self.write("src/base/a.cpp", "int Last() {\n  int values[2] = {1, 2};\n  return values[1];\n}\n")
        self.accepts(cppcheck.check, self.root)

    def test_tidy_looks_again_at_what_has_changed(self):
        self.assertEqual(self.tidy_output("int Count();\n"), "")
        self.assertEqual(self.tidy_output("int Count();\n"), "")
        self.assertIn("invalid case style", self.tidy_output("int count();\n"))


if __name__ == "__main__":
    unittest.main()
