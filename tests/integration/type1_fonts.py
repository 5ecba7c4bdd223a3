"""The Type 1 fonts of the distribution's packages, and INF files made for them."""

import collections
import functools
import os
import shutil
import subprocess

import afm
from not_run import not_run_test

PACKAGES = ("fonts-urw-base35", "tex-gyre", "lmodern")

Font = collections.namedtuple("Font", "name afm_path outline_path")


@functools.cache
def _files_of(package):
    if shutil.which("dpkg-query") is None:
        return []
    done = subprocess.run(["dpkg-query", "-L", package], stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, check=False)
    return [path for path in done.stdout.decode().splitlines() if os.path.isfile(path)]


def find():
    """All pairs of a metrics file and an outline; names the packages that are not there."""
    fonts, missing = [], []
    for package in PACKAGES:
        files = _files_of(package)
        outlines = {}
        for path in files:
            stem, extension = os.path.splitext(os.path.basename(path))
            if extension in (".pfb", ".t1"):
                outlines.setdefault(stem, path)
        found = []
        for path in files:
            stem, extension = os.path.splitext(os.path.basename(path))
            if extension == ".afm" and stem in outlines:
                found.append(Font(stem, path, outlines[stem]))
        fonts += found
        if not found:
            missing.append(package)
    return fonts, missing


def read_outline(test, name):
    """The bytes of an outline. Without it the test is skipped, but not where everything has to be there."""
    for package in PACKAGES:
        for path in _files_of(package):
            if os.path.basename(path) == name:
                with open(path, "rb") as file:
                    return file.read()
    not_run_test(test, f"{name} is not here (packages {', '.join(PACKAGES)})")


def inf_for(metrics):
    """What a foundry's INF file says of the font."""
    header = metrics.header
    bold = "Bold" in header.get("Weight", "")
    italic = float(header.get("ItalicAngle", "0")) != 0
    letter = {(False, False): "N", (True, False): "B", (False, True): "I", (True, True): "T"}
    lines = [f"FontName ({header['FontName']})",
             f"MSMenuName ({header.get('FamilyName', header['FontName'])})",
             f"VPStyle ({letter[bold, italic]})",
             "Serif true", "Pi false", "PCLTypefaceID 4101", f"PCLStyle {int(italic)}",
             f"PCLStrokeWeight {3 if bold else 0}"]
    return "\n".join(lines).encode("latin-1") + b"\n"


def read(font):
    with open(font.afm_path, "rb") as file:
        return afm.read(file.read())
