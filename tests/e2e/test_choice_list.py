# SPDX-License-Identifier: MIT
"""The list of entries over the map: seen, stepped through, clicked, and typed into the editor,
which keeps the keyboard all the while."""

from choice_list import ChoiceList
from standin import CENTRE, PRESSED, TILTS
from waiting import wait_until

ACTION, MODE = 0, 1
LIST_CELL = ("seznam", 0, "*Texty;Dobry den;Ahoj;+ano{BS};ne*")
MANY = 10_000
LONG_COMMAND = "x" * 1_000_000


def test_list_stands_over_the_map_and_types_into_the_editor(desktop):
    program = desktop.program()
    program.use_map([LIST_CELL, ("x", 88), ("dalsi", 89)], *([("y", 89)] for _ in range(9)))
    editor = desktop.editor()
    window = program.start()
    choices = ChoiceList(desktop, window)
    stick = program.standin
    stick.wait_for_poll()
    editor.wait_for_keyboard(desktop.display)
    assert not choices.is_shown()

    stick.press(ACTION)
    assert choices.is_shown()
    assert (choices.count(), choices.selected()) == (4, 0)
    client_left, client_top = desktop.probe.client_origin(window.handle)
    left, top, right, bottom = choices.area()
    assert (left, top) == (client_left, client_top)
    assert client_left + 3 * 60 <= right <= window.right
    assert client_top + 40 < bottom < window.bottom
    assert [seen.handle for seen in desktop.probe.windows()][0] == window.handle

    for direction, row in [("down", 1), ("right", 2), ("left", 1), ("up", 0), ("up", 0)]:
        stick.tilt(direction)
        assert choices.selected() == row
    stick.tilt("down")
    stick.press(ACTION)
    editor.wait_for_text("Ahoj")
    assert not choices.is_shown()

    stick.press(ACTION)
    choices.click(2)
    wait_until(lambda: choices.selected() == 2, "the clicked entry selected")
    assert editor.has_focus()
    desktop.display.key("z")  # a physical key still goes to the editor
    editor.wait_for_text("Ahojz")
    stick.press(ACTION)
    editor.wait_for_text("AhojzAn")
    assert desktop.probe.keys_down() == []

    stick.press(ACTION)
    assert choices.is_shown()
    stick.press(MODE)
    assert not choices.is_shown()
    program.press_next()
    editor.wait_for_text("AhojzAnx")
    assert program.close() == 0


def test_huge_list_and_huge_command_are_taken_as_any_other(desktop):
    program = desktop.program()
    entries = ";".join(f"polozka {n}" for n in range(MANY))
    program.use_map([("x", 88), ("obr", 0, "*;" + entries), ("dlouhy", 0, LONG_COMMAND),
                     ("dlouhy list", 0, "*;" + LONG_COMMAND + "," + LONG_COMMAND)])
    editor = desktop.editor()
    window = program.start()
    choices = ChoiceList(desktop, window)
    stick = program.standin
    program.press_next()
    assert (choices.count(), choices.selected()) == (MANY, 0)
    stick.play(TILTS["down"], CENTRE, PRESSED, CENTRE)
    editor.wait_for_text("polozka 1")
    program.press_next()
    program.press_next()
    assert choices.count() == 1
    stick.press(ACTION)
    program.press_next()
    editor.wait_for_text("polozka 1x")
    assert program.close() == 0
