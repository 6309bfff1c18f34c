# SPDX-License-Identifier: MIT
"""Real keys of a keyboard: without a joystick arrows and Enter drive the map, with one the stick
sends such keys itself, and no key that a cell pressed stays down."""

from choice_list import ChoiceList
from waiting import wait_until

ACTION, MODE = 0, 1
ROW = [("a", 65), ("b", 66), ("c", 67), ("enter", 13), ("seznam", 0, "*;prvni;druhy")]


def test_release_of_enter_runs_the_cell_and_the_editor_gets_neither(desktop):
    program = desktop.program(present=False)
    program.use_map(ROW, [("x", 88)])
    program.use_settings(RowWrap=1)
    editor = desktop.editor()
    choices = ChoiceList(desktop, program.start())
    editor.wait_for_keyboard(desktop.display)
    keyboard = desktop.display

    keyboard.hold("Return")
    keyboard.key("w")  # passes after the press of Enter, which therefore did nothing
    editor.wait_for_text("w")
    keyboard.release("Return")
    editor.wait_for_text("wa")
    for key, caption in [("Right", "b"), ("Right", "c"), ("Down", "x"), ("Up", "a"),
                         ("Left", "seznam"), ("Left", "enter")]:
        keyboard.key(key)
        wait_until(lambda wanted=caption: program.highlighted() == wanted,
                   f"the highlight on {caption!r} after {key}")
    keyboard.key("Return")  # the cell's own Enter reaches the editor
    editor.wait_for_text("wa\r\n")
    for key in ("k", "Home", "Tab", "End", "shift+k"):  # all others pass
        keyboard.key(key)
    editor.wait_for_text("wa\r\n\tkK")

    keyboard.key("Right")
    keyboard.key("Return")
    wait_until(choices.is_shown, "the list")
    keyboard.key("Right")  # the arrow keys go on moving the highlight of the map
    wait_until(lambda: program.highlighted() == "a", "the cell after the list's")
    assert (choices.count(), choices.selected()) == (2, 0)
    keyboard.key("Return")
    editor.wait_for_text("wa\r\n\tkKprvni")
    wait_until(lambda: not choices.is_shown(), "the list closed")
    keyboard.key("Return")
    editor.wait_for_text("wa\r\n\tkKprvnia")
    assert editor.has_focus()
    assert desktop.probe.keys_down() == []
    assert program.close() == 0


def test_stick_sends_arrows_and_enter_in_arrow_mode(desktop):
    program = desktop.program()
    program.use_map(ROW)
    editor = desktop.editor()
    program.start()
    stick = program.standin
    stick.press(ACTION)
    stick.press(ACTION)
    editor.wait_for_text("aa")
    stick.press(MODE)
    stick.tilt("left")
    stick.press(ACTION)
    editor.wait_for_text("a\r\na")
    stick.tilt("up")
    stick.tilt("right")
    stick.tilt("down")
    assert desktop.probe.keys_down() == []
    editor.wait_for_keyboard(desktop.display)
    for key in ("Return", "Left", "q"):  # physical ones go to the editor as well
        desktop.display.key(key)
    editor.wait_for_text("a\r\naq\r\n")
    stick.press(MODE)
    stick.press(ACTION)
    editor.wait_for_text("a\r\naqa\r\n")
    assert program.highlighted() == "a"
    assert program.close() == 0
