#!/usr/bin/env python3
"""clang-tidy finds nothing in the library, or in the folders named.

A file that was found clean is looked at again when it, a header or the rules have changed. A source of
the command-line program takes half a minute, for the size of the headers that it includes: name tools to
look there. What stands in src/platform/win32 is looked at where MinGW is, with its headers.

Usage: tidy.py ROOT BUILD [FOLDER...]
"""
import pathlib
import shutil
import subprocess

import house

WIN32 = pathlib.Path("src/platform/win32")


def preprocessed(command):
    """The text that the compiler sees, comments included: some are for clang-tidy."""
    words = iter(command)
    kept = []
    for word in words:
        if word in ("-o", "-MF", "-MT"):
            next(words)
        elif word not in ("-c", "-MD"):
            kept.append(word)
    return subprocess.run(kept + ["-E", "-C"], stdout=subprocess.PIPE, check=True).stdout


# Sources that are compiled together are looked at together: most of the time goes into the headers of the
# standard library. The analyzer is told to follow their functions as it would those of a single file, a
# third as far as it would by itself, which takes half the time.
OPTIONS = ["--quiet", "--checks=-bugprone-suspicious-include", "--extra-arg=-Wno-unknown-warning-option",
           *(f"--extra-arg={word}" for option in ("-analyzer-opt-analyze-headers",
                                                  "-analyzer-config", "max-nodes=75000")
             for word in ("-Xclang", option))]


def windows_unit(root, folder):
    """What is for Windows alone, as one more unit: [(file in this folder, [words], [sources])]."""
    sources = [path for path in house.files(root, ["src"], house.SOURCES) if path.parent == WIN32]
    if not sources or not shutil.which(house.WINDOWS_COMPILER):
        return []
    unit = folder / "win32.cpp"
    unit.write_text("".join(f'#include "{root / source}"\n' for source in sources), encoding="utf-8")
    library = subprocess.run([house.WINDOWS_COMPILER, "-print-file-name=include/c++"],
                             stdout=subprocess.PIPE, check=True, text=True).stdout.strip()
    # Clang knows the system's headers of MinGW, but not where a distribution puts its C++ library.
    return [(unit, ["clang++", "--target=i686-w64-mingw32", "-std=c++20", "-nostdinc++", "-isystem", library,
                    "-isystem", f"{library}/i686-w64-mingw32", f"-I{root / 'include'}", f"-I{root / 'src'}",
                    str(unit)], sources)]


def check(root, build, *folders):
    rules = root / ".clang-tidy"
    found_clean = house.FoundClean(build / "tidy")

    def named(units):
        return ((path, command) for path, command, sources in units
                if any((root / source).is_relative_to(folder) for source in sources
                       for folder in folders or [root / "src"]))

    units = [(path, command, ["--", *command[1:-1]])
             for path, command in named(windows_unit(root, found_clean.folder))]
    units += [(path, command, [f"-p={build}"])
              for path, command in named(house.compile_units(root, build))]

    def complaints_about(unit):
        path, command, compiled = unit
        depends_on = (rules.read_bytes(), " ".join(OPTIONS + command).encode(), preprocessed(command))
        # One unit a run: the analyzer mistakes things when it carries on from one to the next.
        return found_clean.or_complaint(depends_on, lambda: house.output_of(
            ["clang-tidy", f"--config-file={rules}", *OPTIONS, path, *compiled]))

    for (path, *_), output in zip(units, house.in_parallel(complaints_about, units)):
        if output is not None:
            yield f"{path.name}: clang-tidy complains; mend it, or say at the line why not\n{output}"


if __name__ == "__main__":
    house.run(check)
