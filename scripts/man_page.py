#!/usr/bin/env python3
"""Makes the manual page of zeapi from what the program says about itself.

Usage: man_page.py PROGRAM PAGE
"""
import re
import subprocess
import sys
from pathlib import Path

SUBCOMMANDS = "Subcommands"
OWN_GROUPS = ("Positionals", "Options", SUBCOMMANDS)

ENVIRONMENT = (("ZEAPI_DRIVES", "Folder whose folders stand for drives, on other systems than Windows: c:\\page.pcl "
                                "is $ZEAPI_DRIVES/c/page.pcl. Without it there are no drives."),)


class Help:
    """The parts of a help text: purpose, usage, groups of (term, text) and the footer."""

    def __init__(self, text):
        head, found, rest = text.partition("Usage: ")
        if not found:
            raise ValueError("no usage in: " + text)
        self.purpose = head.split("\n")[:-1]
        self.usage, _, rest = rest.partition("\n")
        self.groups = {}
        self.footer = []
        entries = None
        for line in rest.split("\n"):
            title = re.fullmatch(r"(\w+):", line)
            entry = re.fullmatch(r"  (\S.*?)(?:  +(\S.*))?", line)
            if title and not self.footer:
                entries = self.groups.setdefault(title[1], [])
            elif entry and entries is not None:
                entries.append([entry[1], entry[2] or ""])
            elif line.startswith("   ") and entries:
                entries[-1][1] = (entries[-1][1] + " " + line.strip()).strip()
            elif line:
                entries = None
                self.footer.append(line)


def escaped(text):
    text = text.replace("\\", "\\e").replace("-", "\\-")
    return "\\&" + text if text[:1] in (".", "'") else text


def tagged(entries):
    for term, text in entries:
        yield ".TP"
        yield ".B " + escaped(term.replace(",-", ", -"))
        yield escaped(text)


def verbatim(lines):
    if lines:
        yield ".PP"
        yield ".nf"
        yield from map(escaped, lines)
        yield ".fi"


def ask(program, *arguments):
    return subprocess.run([program, *arguments], check=True, capture_output=True, text=True).stdout


def command_section(words, text, shared):
    yield f'.SS "{" ".join(words)}"'
    yield from map(escaped, text.purpose)
    yield from verbatim([text.usage])
    for title, entries in text.groups.items():
        own = [entry for entry in entries if entry[0] != "-h,--help"]
        if title in OWN_GROUPS:
            yield from tagged(own)
        else:
            shared.setdefault(title, own)
            if shared[title] != own:
                raise ValueError(f"{' '.join(words)}: another group {title}")
            yield ".PP"
            yield f"It takes the options of the section {title.upper()}, too."
    yield from verbatim(text.footer)


def commands(program, path, text, shared):
    """The sections of all commands below `path`; a family is its commands."""
    for name, _ in text.groups.get(SUBCOMMANDS, []):
        words = [*path, name]
        below = Help(ask(program, *words, "--help"))
        if SUBCOMMANDS in below.groups:
            yield from commands(program, words, below, shared)
        else:
            yield from command_section(["zeapi", *words], below, shared)


def page(program):
    root = Help(ask(program, "--help"))
    shared = {}
    sections = list(commands(program, [], root, shared))
    yield f'.TH ZEAPI 1 "" "{ask(program, "--version").strip()}" "User Commands"'
    yield ".SH NAME"
    yield "zeapi \\- prepares and sends what laser printers get, and reads what they report"
    yield ".SH SYNOPSIS"
    yield escaped(root.usage)
    yield ".SH DESCRIPTION"
    yield from map(escaped, root.purpose)
    yield ".SH OPTIONS"
    yield from tagged(root.groups["Options"])
    yield ".SH COMMANDS"
    yield from tagged(root.groups[SUBCOMMANDS])
    yield from sections
    for title, entries in shared.items():
        yield ".SH " + title.upper()
        yield from tagged(entries)
    yield '.SH "EXIT STATUS"'
    yield from map(escaped, root.footer)
    yield ".SH ENVIRONMENT"
    yield from tagged(ENVIRONMENT)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    program, target = sys.argv[1:]
    text = "\n".join(page(program)) + "\n"
    Path(target).write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
