#!/usr/bin/env python3
"""art.py: generates the icons and drawing tables of the program from art/.

art.py           writes the generated files, and previews to build/art/
art.py --check   prints generated files that do not match the drawings and fails
"""

import subprocess
import sys
from pathlib import Path

TOP = Path(__file__).resolve().parent.parent
sys.dont_write_bytecode = True
sys.path.insert(0, str(TOP / "art"))

from generator import characters, icons, images, scene  # noqa: E402

# In the order of BkImgType.
CHARACTERS = ("OK LOVELOVE NO HATENA MASSAKASAMA ASE GAKKURI PEROON DARUDARU CHOUDAI DOGEZA MANEKI ONEGAI BUTSUYO "
              "GUROKKII GUTTARI DOWN IYAIYA OMOI ZUKO BIRIBIRI URAMIMASU CHANCE GETTODAZE").split()
# In the order of ResultState.
STATES = "created running not_updated failed incomplete".split()
PREVIEWS = TOP / "build" / "art"
COLUMNS = 6


def read_characters():
    parts = scene.Reader(TOP / "art/characters/parts.svg").parts()
    return read_drawings("characters", CHARACTERS, parts), parts


def read_drawings(folder, names, parts):
    drawings = [scene.Reader(TOP / f"art/{folder}/{name.lower()}.svg").read() for name in names]
    for name, items in zip(names, drawings):
        if characters.outside(scene.flatten(items, parts)):
            raise SystemExit(f"art: {name} reaches over its edge")
    return drawings


def generated_files():
    """Returns the generated files that are checked in, as name and content."""
    drawings, parts = read_characters()
    states = read_drawings("states", STATES, {})
    folder = TOP / "art/icons"
    files = {"src/ui/look/character_data.cpp": characters.make_data(drawings, states, parts).encode(),
             "src/ui/look/tool_icons.h": icons.make_header().encode()}
    for name in ("quillmoor", "document"):
        files[f"res/icons/{name}.ico"] = icons.make_icon(folder, name, parts)
    for size, rows in icons.make_strips(folder).items():
        files[f"res/icons/tools_{size}.bmp"] = images.encode_bitmap_file(rows)
    return files


def contact_sheet(pictures, cell):
    """Returns an SVG sheet of all drawings with their names."""
    rows = -(-len(pictures) // COLUMNS)
    lines = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{COLUMNS * cell}" height="{rows * (cell + 20)}">',
             '<rect width="100%" height="100%" fill="#ffffff"/>']
    for index, (name, shapes) in enumerate(pictures):
        x, y = index % COLUMNS * cell, index // COLUMNS * (cell + 20)
        lines.append(f'<g transform="translate({x} {y}) scale({cell / characters.SIZE})" stroke-linejoin="round" '
                     f'stroke-linecap="round">' + "".join(map(scene.svg_path, shapes)) + "</g>")
        lines.append(f'<text x="{x + cell / 2}" y="{y + cell + 14}" font-size="12" text-anchor="middle" '
                     f'font-family="sans-serif">{name}</text>')
    return "\n".join(lines + ["</svg>"])


def render(svg, file, size=()):
    subprocess.run(["rsvg-convert", *size, "-o", str(file)], input=svg.encode(), check=True)


def write_previews():
    PREVIEWS.mkdir(parents=True, exist_ok=True)
    drawings, parts = read_characters()
    pictures = [(name, list(scene.flatten(items, parts))) for name, items in zip(CHARACTERS, drawings)]
    for name, shapes in pictures:
        render(scene.to_svg(shapes, characters.SIZE, "#ffffff"), PREVIEWS / f"{name.lower()}.png", ["-w", "400"])
    for cell in (200, 400):
        render(contact_sheet(pictures, cell), PREVIEWS / f"characters_{cell}.png")


def check():
    stale = [name for name, content in generated_files().items()
             if not (TOP / name).exists() or (TOP / name).read_bytes() != content]
    for name in stale:
        print(f"{name}:1: does not match art/: run scripts/art.py")
    return 1 if stale else 0


def main():
    if sys.argv[1:] == ["--check"]:
        return check()
    for name, content in generated_files().items():
        (TOP / name).parent.mkdir(parents=True, exist_ok=True)
        (TOP / name).write_bytes(content)
    write_previews()
    return 0


if __name__ == "__main__":
    sys.exit(main())
