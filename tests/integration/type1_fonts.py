"""The Type 1 fonts of the distribution's packages, and INF files made for them."""

import collections
import os
import subprocess

import afm

PACKAGES = ("fonts-urw-base35", "tex-gyre", "lmodern")

Font = collections.namedtuple("Font", "name afm_path outline_path")


def _files_of(package):
    done = subprocess.run(["dpkg-query", "-L", package], stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, check=False)
    return done.stdout.decode().splitlines()


def find():
    """All pairs of a metrics file and an outline; names the packages that are not there."""
    fonts, missing = [], []
    for package in PACKAGES:
        files = [path for path in _files_of(package) if os.path.isfile(path)]
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
