# SPDX-License-Identifier: MIT
"""What the packages are made of agrees: icon, version, changes."""

import io
import re
import struct
import sys

import pytest
from PIL import Image

from tree import ROOT

sys.path.insert(0, str(ROOT / "tools"))

import make_icon  # noqa: E402  (found through the line above)
import undated_typelib  # noqa: E402

ENTRY = struct.Struct("<4B2H2I")


def pictures(content):
    """An icon file's pictures by their size, each decoded by itself as the system does."""
    count = struct.unpack_from("<3H", content)[2]
    for i in range(count):
        side, height, _, _, _, bits, size, start = ENTRY.unpack_from(content, 6 + i * ENTRY.size)
        alone = struct.pack("<3H", 0, 1, 1) + ENTRY.pack(side, height, 0, 0, 1, bits, size, 22)
        picture = Image.open(io.BytesIO(alone + content[start:start + size])).convert("RGBA")
        assert picture.size == (side or 256, height or 256)
        yield side or 256, picture


def test_icon_is_what_its_script_draws():
    drawn = dict(pictures(make_icon.TARGET.read_bytes()))
    assert tuple(drawn) == make_icon.SIZES
    for size, picture in drawn.items():
        assert picture.tobytes() == make_icon.draw(size).tobytes(), size


@pytest.mark.parametrize("size", make_icon.SIZES)
def test_icon_has_whole_cells_with_sharp_edges_and_the_highlight_in_the_middle(size):
    margin, cell, gap = make_icon.measures(size)
    assert 0 <= size - (2 * margin + 3 * cell + 2 * gap) <= 1
    picture = make_icon.draw(size)
    middle = margin + cell + gap
    assert picture.getpixel((middle + 1, middle + cell // 2)) == make_icon.HIGHLIGHT + (255,)
    assert picture.getpixel((middle - 1, middle + cell // 2)) == make_icon.FRAME + (255,)
    assert picture.getpixel((margin + cell // 2, margin + cell // 2)) == make_icon.CELL + (255,)


def test_changes_begin_with_the_version_of_the_product():
    header = (ROOT / "dialogs" / "product.h").read_text("utf-8")
    version = ".".join(re.search(rf"PRODUCT_{part} (\d+)", header)[1]
                       for part in ("MAJOR", "MINOR", "REVISION"))
    assert re.search(r"^## (\S+)", (ROOT / "CHANGELOG.md").read_text("utf-8"), re.M)[1] == version


def test_type_library_keeps_no_time():
    made = b"\0Created by WIDL version 7.0 at Sat Nov 21 09:55:24 2026\nWW\x13\0\x8c\x6a\x01\x6bWW"
    later = made.replace(b"09:55:24", b"10:02:01").replace(b"\x8c\x6a", b"\x99\x00")
    assert undated_typelib.undated(made) == undated_typelib.undated(later) != made
    assert len(undated_typelib.undated(made)) == len(made)
    assert undated_typelib.undated(b"nothing of the kind") == b"nothing of the kind"
