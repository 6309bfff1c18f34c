# SPDX-License-Identifier: MIT
"""The map's window beside the program that is driven: always above it, never in its way."""

from PIL import Image

from probe import WS_EX_TOPMOST
from waiting import wait_until

CELL_WIDTH, CELL_HEIGHT, GAP = 60, 15, 1
WHITE = (255, 255, 255)


def centre_of_cell(probe, window, column, row):
    left, top = probe.client_origin(window.handle)
    return (left + (column - 1) * (CELL_WIDTH + GAP) + CELL_WIDTH // 2,
            top + (row - 1) * (CELL_HEIGHT + GAP) + CELL_HEIGHT // 2)


def is_highlighted(desktop, window, column, row, picture):
    """Whether the cell's background, seen in its corner, is white on the screen."""
    desktop.display.screenshot(picture)
    x, y = centre_of_cell(desktop.probe, window, column, row)
    with Image.open(picture) as image:
        return image.convert("RGB").getpixel((x - CELL_WIDTH // 2 + 1, y - CELL_HEIGHT // 2 + 1)) == WHITE


def test_window_starts_above_the_editor_and_leaves_it_the_focus(desktop):
    program = desktop.program()
    editor = desktop.editor(place=(0, 0, 1200, 700))
    window = program.start()
    program.standin.wait_for_poll()
    assert window.extended_style & WS_EX_TOPMOST
    assert editor.has_focus()
    editor.wait_for_keyboard(desktop.display)
    order = [seen.handle for seen in desktop.probe.windows()]
    assert order.index(window.handle) < order.index(editor.window.handle)
    desktop.display.key("x")
    editor.wait_for_text("x")


def test_click_on_the_map_highlights_the_cell_and_leaves_the_focus(desktop, tmp_path):
    program = desktop.program()
    editor = desktop.editor()
    window = program.start()
    picture = tmp_path / "screen.png"
    wait_until(lambda: is_highlighted(desktop, window, 1, 1, picture), "the first cell highlighted")
    assert not is_highlighted(desktop, window, 2, 3, picture)
    desktop.display.click(*centre_of_cell(desktop.probe, window, 2, 3))
    wait_until(lambda: is_highlighted(desktop, window, 2, 3, picture), "the clicked cell")
    assert not is_highlighted(desktop, window, 1, 1, picture)
    assert editor.has_focus()
    assert editor.text() == ""  # a click selects, it never runs
    assert desktop.probe.keys_down() == []
