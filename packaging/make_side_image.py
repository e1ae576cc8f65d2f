#!/usr/bin/env python3
"""make_side_image.py ICON BMP: draws the image beside the last page of setup, with the icon's 128 pixel picture."""
import struct
import sys

WIDTH, HEIGHT, ICON = 164, 314, 128
LEFT, TOP = (WIDTH - ICON) // 2, 40
GROUND = (0xE6, 0xEE, 0xF2)  # blue, green, red


def picture(path):
    """Returns the rows of the picture from the bottom up, as BGRA bytes."""
    with open(path, "rb") as source:
        data = source.read()
    for entry in range(struct.unpack_from("<H", data, 4)[0]):
        width, _, _, _, _, bits, _, offset = struct.unpack_from("<BBBBHHII", data, 6 + 16 * entry)
        if width == ICON and bits == 32:
            start = offset + struct.unpack_from("<I", data, offset)[0]
            return data[start : start + 4 * ICON * ICON]
    raise SystemExit(f"{path}: no picture of {ICON} pixels")


def blend(ground, color, alpha):
    return bytes((g * (255 - alpha) + c * alpha + 127) // 255 for g, c in zip(ground, color))


def main(icon, target):
    pixels = [bytes(GROUND)] * (WIDTH * HEIGHT)
    data = picture(icon)
    for y in range(ICON):
        for x in range(ICON):
            *color, alpha = data[4 * (y * ICON + x) :][:4]
            at = (HEIGHT - TOP - ICON + y) * WIDTH + LEFT + x
            pixels[at] = blend(GROUND, color, alpha)
    body = b"".join(pixels)  # a row is a multiple of four bytes
    header = struct.pack("<2sIII", b"BM", 54 + len(body), 0, 54)
    with open(target, "wb") as output:
        output.write(header + struct.pack("<IiiHHIIiiII", 40, WIDTH, HEIGHT, 1, 24, 0, len(body), 0, 0, 0, 0) + body)


main(*sys.argv[1:])
