"""What the checks of the house rules share.

A check is a function that takes the root of the sources (and the build folder where it needs one) and
yields its complaints, each "file:line: what is wrong; what to do". run() makes a program of it.
"""
import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

FOLDERS = ("include", "src", "tools", "tests", "fuzz", "bench")
HEADERS = (".h",)
SOURCES = (".c", ".cpp")


def files(root, folders=FOLDERS, suffixes=HEADERS + SOURCES):
    """The files below some folders, as paths relative to the root, in order."""
    found = []
    for folder in folders:
        for path in (root / folder).rglob("*"):
            if path.suffix in suffixes and path.is_file():
                found.append(path.relative_to(root))
    return sorted(found)


def lines(root, path):
    """The numbered lines of a file."""
    return enumerate((root / path).read_text(encoding="utf-8").splitlines(), 1)


def includes(root, path):
    """Yields (line, "<" or '"', name) for each include of a file."""
    for number, line in lines(root, path):
        match = re.match(r'\s*#\s*include\s*([<"])([^>"]+)', line)
        if match:
            yield number, match[1], match[2]


def compile_commands(root, build):
    """The commands of the compile database for files below FOLDERS: {path: [words]}."""
    commands = {}
    for entry in json.loads((build / "compile_commands.json").read_text(encoding="utf-8")):
        path = pathlib.Path(entry["directory"], entry["file"])
        if path.is_relative_to(root) and path.relative_to(root).parts[0] in FOLDERS:
            commands[path.relative_to(root)] = shlex.split(entry["command"])
    return commands


def in_parallel(function, items):
    """function(item) for each item, in order, on every processor."""
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return list(pool.map(function, items))


def output_of(command, **options):
    """Runs a program: None when it ends well, else what it said."""
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          check=False, **options)
    return None if done.returncode == 0 else done.stdout


def run(check):
    """The program: arguments are the root of the sources and what else the check takes."""
    complaints = list(check(*(pathlib.Path(argument).resolve() for argument in sys.argv[1:])))
    for complaint in complaints:
        print(complaint)
    sys.exit(1 if complaints else 0)
