#!/usr/bin/env python3
"""Every header compiles alone and twice; the public header also as C99, C11 and C++11.

Usage: headers_alone.py ROOT BUILD
"""
import house

PUBLIC = "include/zeapi.h"
WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Werror"]
LANGUAGES = [["gcc", "-x", "c", "-std=c99", "-Wstrict-prototypes"],
             ["gcc", "-x", "c", "-std=c11", "-Wstrict-prototypes"],
             ["g++", "-x", "c++", "-std=c++11"]]
USUAL = ["g++", "-x", "c++", "-std=c++20"]


def include_folders(root, build):
    folders = []
    for words in house.compile_commands(root, build).values():
        for index, word in enumerate(words):
            if word == "-isystem":
                folders += [word, words[index + 1]]
            elif word.startswith("-I"):
                folders.append(word)
    return [f"-I{root / 'include'}", f"-I{root / 'src'}"] + list(dict.fromkeys(folders))


def check(root, build):
    folders = include_folders(root, build)
    tries = [(path, USUAL) for path in house.files(root, suffixes=house.HEADERS)]
    tries += [(path, language) for path, _ in tries if str(path) == PUBLIC for language in LANGUAGES]

    def compile_alone(item):
        path, language = item
        text = f'#include "{root / path}"\n' * 2
        return house.output_of(language + WARNINGS + folders + ["-fsyntax-only", "-"], input=text)

    for (path, language), output in zip(tries, house.in_parallel(compile_alone, tries)):
        if output is not None:
            yield (f"{path}: does not compile alone ({' '.join(language)}); include what it uses\n"
                   f"{output}")


if __name__ == "__main__":
    house.run(check)
