"""Reads and writes PNG images and icon files."""

import struct
import subprocess
import zlib

SIGNATURE = b"\x89PNG\r\n\x1a\n"


def render(svg, width, height):
    """Renders an SVG text and returns rows of RGBA bytes."""
    png = subprocess.run(["rsvg-convert", "-w", str(width), "-h", str(height)], input=svg.encode(),
                         capture_output=True, check=True).stdout
    return decode_png(png)


def decode_png(png):
    """Decodes the kind of PNG that the renderer writes: 8 bits, RGBA, not interlaced."""
    at, data, header = len(SIGNATURE), b"", None
    while at < len(png):
        length, kind = struct.unpack_from(">I4s", png, at)
        body = png[at + 8:at + 8 + length]
        if kind == b"IHDR":
            header = struct.unpack(">IIBBBBB", body)
        if kind == b"IDAT":
            data += body
        at += length + 12
    width, height = header[:2]
    if header[2:] != (8, 6, 0, 0, 0):
        raise ValueError("a picture of another kind")
    return unfilter(zlib.decompress(data), width * 4, height)


def unfilter(data, length, height):
    rows, above = [], bytes(length)
    for y in range(height):
        start = y * (length + 1)
        row = bytearray(data[start + 1:start + 1 + length])
        for x in range(length):
            left, corner = (row[x - 4], above[x - 4]) if x >= 4 else (0, 0)
            row[x] = (row[x] + predict(data[start], left, above[x], corner)) & 255
        rows.append(bytes(row))
        above = row
    return rows


def predict(kind, left, above, corner):
    if kind == 4:
        guess = left + above - corner
        return min((left, above, corner), key=lambda value: abs(guess - value))
    return (0, left, above, (left + above) // 2)[kind]


def encode_png(rows):
    width = len(rows[0]) // 4
    chunk = lambda kind, body: (struct.pack(">I", len(body)) + kind + body +
                                struct.pack(">I", zlib.crc32(kind + body)))
    data = b"".join(b"\0" + row for row in rows)
    return (SIGNATURE + chunk(b"IHDR", struct.pack(">IIBBBBB", width, len(rows), 8, 6, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(data, 9)) + chunk(b"IEND", b""))


def dib_header(width, height, data_size):
    return struct.pack("<IiiHHIIiiII", 40, width, height, 1, 32, 0, data_size, 0, 0, 0, 0)


def dib_pixels(rows):
    """Returns the pixels bottom up, as BGRA."""
    return b"".join(bytes(row[x + i] for x in range(0, len(row), 4) for i in (2, 1, 0, 3)) for row in rows[::-1])


def encode_bitmap(rows):
    """Returns the bitmap of an icon file, with a mask that hides nothing."""
    size = len(rows)
    data = dib_pixels(rows) + bytes((size + 31) // 32 * 4 * size)
    return dib_header(size, 2 * size, len(data)) + data


def multiplied(row):
    """Multiplies the colours with the opacity."""
    return bytes(value if i % 4 == 3 else (value * row[i | 3] + 127) // 255 for i, value in enumerate(row))


def encode_bitmap_file(rows):
    """Returns a bitmap file whose colours are multiplied with the opacity."""
    data = dib_pixels([multiplied(row) for row in rows])
    start = 14 + 40
    return (struct.pack("<2sIHHI", b"BM", start + len(data), 0, 0, start) +
            dib_header(len(rows[0]) // 4, len(rows), len(data)) + data)


def encode_icon(pictures):
    """Returns an icon file with square images; the one of 256 pixels is stored as PNG."""
    bodies = [encode_png(rows) if len(rows) == 256 else encode_bitmap(rows) for rows in pictures]
    at = 6 + 16 * len(bodies)
    entries = b""
    for rows, body in zip(pictures, bodies):
        size = len(rows) % 256  # 0 stands for 256
        entries += struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(body), at)
        at += len(body)
    return struct.pack("<HHH", 0, 1, len(bodies)) + entries + b"".join(bodies)


def beside(pictures):
    """Joins images of the same height side by side."""
    return [b"".join(rows) for rows in zip(*pictures)]
