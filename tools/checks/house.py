"""What the checks of the house rules share.

A check is a function that takes the root of the sources (and the build folder where it needs one) and
yields its complaints, each "file:line: what is wrong; what to do". run() makes a program of it.
"""
import concurrent.futures
import hashlib
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
# Compiles what includes <windows.h>.
WINDOWS_COMPILER = "i686-w64-mingw32-g++-posix"


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


def compile_units(root, build):
    """What the compiler is run on, from the compile database: [(file, [words], [sources])].

    The sources are paths below FOLDERS. A file that the build makes to compile several of them together
    has them all, any other is its own source.
    """
    units = []
    for entry in json.loads((build / "compile_commands.json").read_text(encoding="utf-8")):
        path = pathlib.Path(entry["directory"], entry["file"])
        sources = [path]
        if path.parent.name == "Unity":
            sources = [pathlib.Path(name) for _, _, name in includes(path.parent, path.name)]
        sources = [source.relative_to(root) for source in sources if source.is_relative_to(root)
                   and source.relative_to(root).parts[0] in FOLDERS]
        if sources:
            units.append((path, shlex.split(entry["command"]), sources))
    return units


def compile_commands(root, build):
    """What each file below FOLDERS is compiled with: {path: [words]}."""
    return {source: command for _, command, sources in compile_units(root, build)
            for source in sources}


def text_of_all(root, path, folders):
    """The text of a file and of all files below the root that it includes, searched in its own folder
    and in these."""
    seen = {}
    left = [root / path]
    while left:
        file = left.pop()
        if file in seen:
            continue
        seen[file] = file.read_bytes()
        for _, _, name in includes(root, file):
            left += [folder / name for folder in (file.parent, *folders)
                     if (folder / name).is_file() and folder.is_relative_to(root)][:1]
    return b"".join(seen[file] for file in sorted(seen))


class FoundClean:
    """Remembers in a folder what a check found nothing in, by all that this depends on."""

    def __init__(self, folder):
        self.folder = folder
        folder.mkdir(exist_ok=True)

    def or_complaint(self, depends_on, look):
        """None for what was found clean before or is now; else what look() says."""
        seen = self.folder / hashlib.sha256(b"\0".join(depends_on)).hexdigest()
        if seen.exists():
            return None
        complaint = look()
        if complaint is None:
            seen.touch()
        return complaint


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
