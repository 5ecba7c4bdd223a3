#!/usr/bin/env python3
"""What the documents show holds: their C examples compile against the public header, as C99 and C11, their links lead
to files, and the pages of families name each export of the module definition file.

Usage: documents.py ROOT
"""
import re

import house

FAMILIES = "docs/families"
EXPORTS = "src/api/ZEAPI1TD.def"
COMPILER = ["gcc", "-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Werror", "-fsyntax-only", "-xc"]
EXAMPLE = re.compile(r"^```c\n(.*?)^```", re.MULTILINE | re.DOTALL)
CALL = re.compile(r"^\| `(Ze\w+)` \|", re.MULTILINE)
EXPORT = re.compile(r"^\s*(Ze\w+)@\d+", re.MULTILINE)
LINK = re.compile(r"\]\(([^)#:]+)(?:#[^)]*)?\)")


def documents(root):
    return [*sorted(root.glob("*.md")), *sorted((root / "docs").rglob("*.md"))]


def check_examples(root, path, text):
    for example in EXAMPLE.finditer(text):
        line = text.count("\n", 0, example.start()) + 1
        for standard in ("-std=c99", "-std=c11"):
            output = house.output_of([*COMPILER, standard, f"-I{root / 'include'}", "-"], input=example[1])
            if output is not None:
                yield f"{path}:{line}: the example does not compile ({standard}); mend it\n{output}"


def check_links(folder, path, text):
    for link in LINK.finditer(text):
        if not (folder / link[1]).exists():
            line = text.count("\n", 0, link.start()) + 1
            yield f"{path}:{line}: {link[1]} is not there; mend the link"


def check_exports(root):
    if not (root / EXPORTS).exists():
        return
    pages = [path for path in (root / FAMILIES).glob("*.md") if path.name != "README.md"]
    named = {name for page in pages for name in CALL.findall(page.read_text(encoding="utf-8"))}
    for export in EXPORT.findall((root / EXPORTS).read_text(encoding="utf-8")):
        if export not in named:
            yield f"{FAMILIES}: no page has {export} in its table of calls; add it"


def check(root):
    for path in documents(root):
        text = path.read_text(encoding="utf-8")
        name = path.relative_to(root)
        yield from check_examples(root, name, text)
        yield from check_links(path.parent, name, text)
    yield from check_exports(root)


if __name__ == "__main__":
    house.run(check)
