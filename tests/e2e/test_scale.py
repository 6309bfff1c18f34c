# SPDX-License-Identifier: MIT
"""The map at every scale of the screen: of the right size, sharp, and clicked where it is shown."""

import pytest
from PIL import Image

from harness import new_desktop
from test_window import CELL_HEIGHT, CELL_WIDTH, GAP, WHITE
from waiting import wait_until

ROWS = [(letter, ord(letter.upper())) for letter in "abuvwx"], [("c", 67), ("d", 68)]
COLUMNS = 6
NORMAL_DPI = 96


def shown(length, dpi):
    return (2 * length * dpi + NORMAL_DPI) // (2 * NORMAL_DPI)


def cell_corner(desktop, window, column, row, dpi):
    left, top = desktop.probe.client_origin(window.handle)
    return (left + shown((column - 1) * (CELL_WIDTH + GAP), dpi) + 1,
            top + shown((row - 1) * (CELL_HEIGHT + GAP), dpi) + 1)


def is_highlighted(desktop, window, column, row, dpi, picture):
    desktop.display.screenshot(picture)
    with Image.open(picture) as image:
        return image.convert("RGB").getpixel(cell_corner(desktop, window, column, row, dpi)) == WHITE


@pytest.mark.parametrize("dpi", [96, 120, 144, 192])
def test_map_is_shown_at_the_scale_of_the_screen_and_clicked_where_it_is_shown(dpi, tmp_path):
    with new_desktop() as desktop:
        desktop.set_dpi(dpi)
        program = desktop.program()
        program.use_map(*ROWS)
        window = program.start()
        width = shown(COLUMNS * (CELL_WIDTH + GAP) - GAP, dpi)
        wait_until(lambda: desktop.probe.client_size(window.handle)[0] == width,
                   lambda: f"a width of {width}, which is {desktop.probe.client_size(window.handle)}")
        picture = tmp_path / "screen.png"
        wait_until(lambda: is_highlighted(desktop, window, 1, 1, dpi, picture), "the first cell")
        desktop.display.click(*cell_corner(desktop, window, 2, 2, dpi))
        wait_until(lambda: is_highlighted(desktop, window, 2, 2, dpi, picture), "the clicked cell")
        assert program.highlighted() == "d"
