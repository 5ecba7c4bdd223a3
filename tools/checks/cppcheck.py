#!/usr/bin/env python3
"""cppcheck finds nothing in the library.

What it need not look for:
  uninitMemberVar                     rooms are filled before anybody reads them; the sanitizers watch
  nullPointerArithmeticRedundantCheck it takes the result of a search for the place where it began
  CastIntegerToAddressAtReturn        it takes the names of a table for numbers

What it found in a file is kept in the build folder until the file changes.

Usage: cppcheck.py ROOT BUILD
"""
import house

OFF = ("uninitMemberVar", "nullPointerArithmeticRedundantCheck", "CastIntegerToAddressAtReturn")


def check(root, build):
    kept = build / "cppcheck"
    kept.mkdir(exist_ok=True)
    output = house.output_of(
        ["cppcheck", "--quiet", "-j2", "--std=c++20", "--language=c++", "--error-exitcode=1",
         f"--cppcheck-build-dir={kept}",
         "--enable=warning,performance,portability", "--inline-suppr",
         "--template={file}:{line}: {message} [{id}]", f"-I{root / 'include'}", f"-I{root / 'src'}",
         *(f"--suppress={name}" for name in OFF), root / "src"])
    if output is not None:
        yield f"cppcheck complains; mend it, or say at the line why not\n{output}"


if __name__ == "__main__":
    house.run(check)
