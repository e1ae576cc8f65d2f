"""Reads the drawings, in a small subset of SVG, and combines their parts.

A drawing is a list of items: shapes, and uses of parts of other files. Transforms are applied to the points.
A line has the same width everywhere, scaled by the square root of the area scale. Joins and caps are round.
"""

import math
import re
import xml.etree.ElementTree as ET
from dataclasses import dataclass
from pathlib import Path

IDENTITY = (1.0, 0.0, 0.0, 1.0, 0.0, 0.0)
CIRCLE = 0.5522847  # distance of the control points when a cubic curve draws a quarter of a unit circle
INHERITED = {"fill": "#000000", "stroke": "none", "stroke-width": "1"}


@dataclass
class Shape:
    verbs: str  # M and L use one point, C uses three, Z none
    points: list
    fill: str  # "none" or "#rrggbb"
    stroke: str
    width: float
    opacity: float


@dataclass
class Use:
    part: str
    matrix: tuple
    opacity: float


def multiply(outer, inner):
    a, b, c, d, e, f = outer
    g, h, i, j, k, l = inner
    return (a * g + c * h, b * g + d * h, a * i + c * j, b * i + d * j, a * k + c * l + e, b * k + d * l + f)


def apply(matrix, point):
    a, b, c, d, e, f = matrix
    x, y = point
    return (a * x + c * y + e, b * x + d * y + f)


def line_scale(matrix):
    a, b, c, d, _, _ = matrix
    return math.sqrt(abs(a * d - b * c))


def one_transform(name, values):
    if name == "translate":
        return (1, 0, 0, 1, values[0], values[1] if len(values) > 1 else 0)
    if name == "scale":
        return (values[0], 0, 0, values[-1], 0, 0)
    if name == "skewX":
        return (1, 0, math.tan(math.radians(values[0])), 1, 0, 0)
    if name == "rotate":
        cos, sin = math.cos(math.radians(values[0])), math.sin(math.radians(values[0]))
        x, y = values[1:] if len(values) == 3 else (0, 0)
        return (cos, sin, -sin, cos, x - cos * x + sin * y, y - sin * x - cos * y)
    raise ValueError(f"transform {name}")


def parse_transform(text):
    matrix = IDENTITY
    for name, values in re.findall(r"(\w+)\(([^)]*)\)", text or ""):
        matrix = multiply(matrix, one_transform(name, [float(v) for v in re.split(r"[ ,]+", values.strip())]))
    return matrix


def parse_path(text):
    tokens = re.findall(r"[A-Za-z]|-?\d*\.?\d+", text)
    verbs, points, at = "", [], 0
    verb = None
    while at < len(tokens):
        if tokens[at].isalpha():
            verb = tokens[at]
            at += 1
        if verb == "Z":
            verbs += "Z"
            continue
        count = {"M": 1, "L": 1, "Q": 2, "C": 3}[verb]
        new = [(float(tokens[at + 2 * i]), float(tokens[at + 2 * i + 1])) for i in range(count)]
        at += 2 * count
        if verb == "Q":
            start, (control, end) = points[-1], new
            new = [tuple(p + (q - p) * 2 / 3 for p, q in zip(side, control)) for side in (start, end)] + [end]
        if verb == "C" and is_s_shaped(points[-1], *new):
            verbs += "C"
            new = halves(points[-1], *new)
        verbs += "C" if verb == "Q" else verb
        points += new
        if verb == "M":
            verb = "L"
    return verbs, points


# An S-shaped curve crosses its chord in the middle. It must be split there: flattening that tests only the
# middle point would take it for a straight line.
def is_s_shaped(start, first, second, end):
    side = lambda p: (end[0] - start[0]) * (p[1] - start[1]) - (end[1] - start[1]) * (p[0] - start[0])
    return side(first) * side(second) < 0


def halves(start, first, second, end):
    middle = lambda p, q: ((p[0] + q[0]) / 2, (p[1] + q[1]) / 2)
    a, b, c = middle(start, first), middle(first, second), middle(second, end)
    d, e = middle(a, b), middle(b, c)
    return [a, d, middle(d, e), e, c, end]


# The path is left open: the round ends of its line meet, and filling closes it.
def ellipse_path(cx, cy, rx, ry):
    x, y = rx * CIRCLE, ry * CIRCLE
    ring = [(rx, 0), (rx, y), (x, ry), (0, ry), (-x, ry), (-rx, y), (-rx, 0), (-rx, -y), (-x, -ry), (0, -ry),
            (x, -ry), (rx, -y), (rx, 0)]
    return "MCCCC", [(cx + px, cy + py) for px, py in ring]


def outline(node):
    tag = node.tag.split("}")[-1]
    number = lambda name: float(node.get(name, "0"))
    if tag == "path":
        return parse_path(node.get("d"))
    if tag == "circle":
        return ellipse_path(number("cx"), number("cy"), number("r"), number("r"))
    if tag == "ellipse":
        return ellipse_path(number("cx"), number("cy"), number("rx"), number("ry"))
    raise ValueError(f"element {tag}")


class Reader:
    """Converts the nodes of one file to items. Parts are named FILE#ID, FILE without its extension."""

    def __init__(self, path):
        self.path = path
        self.stem = Path(path).stem

    def read(self):
        try:
            root = ET.parse(self.path).getroot()
            return self.children(root, IDENTITY, 1.0, INHERITED)
        except (KeyError, ValueError, TypeError, IndexError) as error:
            raise SystemExit(f"{self.path}: {error!r}") from error

    def parts(self):
        root = ET.parse(self.path).getroot()
        return {f"{self.stem}#{node.get('id')}": self.children(node, IDENTITY, 1.0, INHERITED | pick(node))
                for node in root}

    def children(self, node, matrix, opacity, style):
        return [item for child in node for item in self.items(child, matrix, opacity, style)]

    def items(self, node, matrix, opacity, style):
        matrix = multiply(matrix, parse_transform(node.get("transform")))
        opacity *= float(node.get("opacity", "1"))
        style = style | pick(node)
        tag = node.tag.split("}")[-1]
        if tag == "g":
            return self.children(node, matrix, opacity, style)
        if tag == "use":
            file, part = node.get("href").split("#")
            return [Use(f"{Path(file).stem or self.stem}#{part}", matrix, opacity)]
        verbs, points = outline(node)
        return [Shape(verbs, [apply(matrix, point) for point in points], style["fill"], style["stroke"],
                      float(style["stroke-width"]) * line_scale(matrix), opacity)]


def pick(node):
    return {name: node.get(name) for name in INHERITED if node.get(name) is not None}


def flatten(items, parts, matrix=IDENTITY, opacity=1.0):
    """Yields the shapes of the items in drawing order."""
    for item in items:
        if isinstance(item, Use):
            yield from flatten(parts[item.part], parts, multiply(matrix, item.matrix), opacity * item.opacity)
        else:
            yield Shape(item.verbs, [apply(matrix, point) for point in item.points], item.fill, item.stroke,
                        item.width * line_scale(matrix), item.opacity * opacity)


def to_svg(shapes, size, background=None):
    lines = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {size} {size}" '
             'stroke-linejoin="round" stroke-linecap="round">']
    if background:
        lines.append(f'<rect width="{size}" height="{size}" fill="{background}"/>')
    return "\n".join(lines + [svg_path(shape) for shape in shapes] + ["</svg>"])


def svg_path(shape):
    points = iter(shape.points)
    path = "".join(verb + " ".join(f"{x:.2f},{y:.2f}" for x, y in (next(points) for _ in range(COUNTS[verb])))
                   for verb in shape.verbs)
    return (f'<path d="{path}" fill="{shape.fill}" stroke="{shape.stroke}" stroke-width="{shape.width:.2f}" '
            f'fill-opacity="{shape.opacity:.2f}" stroke-opacity="{shape.opacity:.2f}"/>')


COUNTS = {"M": 1, "L": 1, "C": 3, "Z": 0}
