# SPDX-License-Identifier: MIT
"""A joystick that is pulled out while it is tilted, and keys while the program is busy: nobody is left
with a held key, a running highlight or a keyboard that waits."""

import time

from automation import spoken
from waiting import wait_until

ACTION = 0
GONE = spoken("Joystick se neozývá. Mapu teď ovládají šipky a Enter.")
FOUND = spoken("Joystick je připojený.")
BLOCK_SECONDS = 5


def talking_program(desktop, **options):
    automation = desktop.automation()
    program = desktop.program(**options)
    automation.serve(program)
    program.use_sounds()  # everything is spoken
    program.use_map([("a", 65), ("b", 66), ("c", 67)])
    program.use_settings(RowWrap=1)
    return automation, program


def test_stick_may_be_pulled_out_tilted_and_come_back(desktop):
    automation, program = talking_program(desktop, comfort=True)
    editor = desktop.editor()
    program.start()
    editor.wait_for_keyboard(desktop.display)
    stick = program.standin
    stick.press(ACTION)
    editor.wait_for_text("a")
    stick.hold("right")
    stick.set_present(False)
    wait_until(lambda: GONE in automation.calls(), "the news that the joystick is gone")
    row = ["a", "b", "c"]
    cell = row.index(program.highlighted())
    desktop.display.key("Right")
    wait_until(lambda: program.highlighted() == row[(cell + 1) % 3], "the arrow key's step")

    stick.set_present(True)
    wait_until(lambda: FOUND in automation.calls(), "the news that the joystick is back")
    stick.wait_for_poll()
    assert program.highlighted() == row[(cell + 1) % 3], "it is still tilted from before"
    stick.centre()
    stick.tilt("left")
    wait_until(lambda: program.highlighted() == row[cell], "the stick's step")
    assert automation.calls().count(GONE) == automation.calls().count(FOUND) == 1
    assert desktop.probe.keys_down() == []
    assert program.close() == 0


def test_other_keys_pass_and_arrows_wait_while_a_word_blocks_the_program(desktop):
    automation, program = talking_program(desktop, present=False)
    editor = desktop.editor()
    program.start()
    editor.wait_for_keyboard(desktop.display)
    automation.behave(f"block {1000 * BLOCK_SECONDS}")
    begin = time.monotonic()
    desktop.display.key("Right")  # its word blocks
    desktop.display.key("w")
    desktop.display.key("Right")
    desktop.display.key("x")
    editor.wait_for_text("wx")
    assert time.monotonic() - begin < BLOCK_SECONDS
    automation.behave("")
    wait_until(lambda: program.highlighted() == "c", "the arrow that was pressed meanwhile",
               4 * BLOCK_SECONDS)
    assert desktop.probe.keys_down() == []
    assert program.close() == 0
