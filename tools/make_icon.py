#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws resources/taviro.ico: the map, with the highlight on its middle cell and an arrow for each
way of the stick. Every size is drawn for itself on whole pixels, so that the small ones stay sharp.

tools/make_icon.py [PICTURE]    PICTURE: all sizes side by side, for a look"""

import io
import pathlib
import struct
import sys

from PIL import Image, ImageDraw

TARGET = pathlib.Path(__file__).resolve().parents[1] / "resources" / "taviro.ico"
SIZES = (16, 20, 24, 32, 40, 48, 64, 128, 256)
LARGEST_BITMAP = 48  # larger pictures are packed; programs older than that know only bitmaps
FRAME, CELL, HIGHLIGHT, ARROW = (22, 48, 92), (255, 255, 255), (255, 178, 0), (22, 48, 92)
SMALLEST_ARROW = 5  # pixels of a cell that an arrow fits into
SMOOTH = 8          # drawn larger and shrunk, where edges are round or slanting


def measures(size):
    """The pixels of the margin, a cell and a gap, which fill the size as well as they can."""
    gap = max(round(size / 24), 1)
    cell = (size - 2 * gap - 2 * max(size // 16, 1)) // 3
    return (size - 3 * cell - 2 * gap) // 2, cell, gap


def arrow(box, way):
    """The corners of a triangle in a cell, its tip towards WAY (columns, rows)."""
    left, top, side = box
    middle_x, middle_y, reach = left + side / 2, top + side / 2, side * 0.3
    x, y = way
    tip = (middle_x + x * reach, middle_y + y * reach)
    base_x, base_y = middle_x - x * reach * 0.6, middle_y - y * reach * 0.6
    return [tip, (base_x + y * reach, base_y + x * reach), (base_x - y * reach, base_y - x * reach)]


def draw(size):
    margin, cell, gap = (SMOOTH * part for part in measures(size))
    whole = SMOOTH * size
    # An odd pixel that the cells leave over lies outside the frame.
    end = 2 * margin + 3 * cell + 2 * gap
    picture = Image.new("RGBA", (whole, whole), FRAME + (0,))
    pen = ImageDraw.Draw(picture)
    pen.rounded_rectangle((0, 0, end - 1, end - 1), radius=whole // 9, fill=FRAME + (255,))
    for row in range(3):
        for column in range(3):
            left, top = margin + column * (cell + gap), margin + row * (cell + gap)
            middle = row == column == 1
            pen.rounded_rectangle((left, top, left + cell - 1, top + cell - 1), radius=cell // 8,
                                  fill=HIGHLIGHT if middle else CELL)
            way = (column - 1, row - 1)
            if abs(way[0]) + abs(way[1]) == 1 and cell >= SMOOTH * SMALLEST_ARROW:
                pen.polygon(arrow((left, top, cell), way), fill=ARROW)
    return picture.resize((size, size), Image.Resampling.BOX)


def bitmap(picture):
    """The picture as an icon's bitmap: from the bottom up, then the mask of older systems."""
    size = picture.width
    rows = [picture.crop((0, y, size, y + 1)) for y in reversed(range(size))]
    colours = b"".join(row.tobytes("raw", "BGRA") for row in rows)
    mask = b"".join(_mask_row(row) for row in rows)
    head = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, len(colours) + len(mask),
                       0, 0, 0, 0)
    return head + colours + mask


def _mask_row(row):
    clear = "".join("1" if alpha < 128 else "0" for alpha in row.getchannel("A").tobytes())
    clear += "0" * (-len(clear) % 32)
    return int(clear, 2).to_bytes(len(clear) // 8, "big")


def packed(picture):
    content = io.BytesIO()
    picture.save(content, "PNG", optimize=True)
    return content.getvalue()


def icon():
    contents = [bitmap(draw(size)) if size <= LARGEST_BITMAP else packed(draw(size))
                for size in SIZES]
    start = 6 + 16 * len(SIZES)
    entries = b""
    for size, content in zip(SIZES, contents):
        entries += struct.pack("<4B2H2I", size % 256, size % 256, 0, 0, 1, 32, len(content), start)
        start += len(content)
    return struct.pack("<3H", 0, 1, len(SIZES)) + entries + b"".join(contents)


def banner():
    """The picture at the side of the installer's first and last page."""
    picture = Image.new("RGB", (164, 314), FRAME)
    sign = draw(128)
    picture.paste(sign, ((picture.width - sign.width) // 2, 56), sign)
    return picture


def overview():
    picture = Image.new("RGBA", (sum(SIZES) + 8 * len(SIZES), 2 * (max(SIZES) + 16)), "white")
    picture.paste("black", (0, picture.height // 2, picture.width, picture.height))
    x = 8
    for size in SIZES:
        one = draw(size)
        for y in (8, picture.height // 2 + 8):
            picture.alpha_composite(one, (x, y))
        x += size + 8
    return picture


def main():
    TARGET.write_bytes(icon())
    if sys.argv[1:]:
        overview().save(sys.argv[1])
    return 0


if __name__ == "__main__":
    sys.exit(main())
