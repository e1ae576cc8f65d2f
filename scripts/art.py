#!/usr/bin/env python3
"""art.py: the program's drawings. Makes from art/ what the program is built with.

art.py           writes the generated files, and previews to build/art/
art.py --check   fails when the generated files are not what the sources give
art.py NAME...   only the previews of these characters, 400 pixels wide
"""

import subprocess
import sys
from pathlib import Path

TOP = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(TOP / "art"))

from generator import scene  # noqa: E402

CHARACTERS = ("OK LOVELOVE NO HATENA MASSAKASAMA ASE GAKKURI PEROON DARUDARU CHOUDAI DOGEZA MANEKI ONEGAI BUTSUYO "
              "GUROKKII GUTTARI DOWN IYAIYA OMOI ZUKO BIRIBIRI URAMIMASU CHANCE GETTODAZE").split()
PREVIEWS = TOP / "build" / "art"


def read_parts():
    return scene.Reader(TOP / "art/characters/parts.svg").parts()


def character_svg(name, parts):
    items = scene.Reader(TOP / f"art/characters/{name.lower()}.svg").read()
    return scene.to_svg(scene.flatten(items, parts), 400, "#ffffff")


def render(svg, size, file):
    subprocess.run(["rsvg-convert", "-w", str(size), "-h", str(size), "-o", str(file)], input=svg.encode(), check=True)


def main():
    names = sys.argv[1:]
    PREVIEWS.mkdir(parents=True, exist_ok=True)
    parts = read_parts()
    for name in names or CHARACTERS:
        if (TOP / f"art/characters/{name.lower()}.svg").exists():
            render(character_svg(name, parts), 400, PREVIEWS / f"{name.lower()}.png")


if __name__ == "__main__":
    main()
