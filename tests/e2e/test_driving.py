# SPDX-License-Identifier: MIT
"""The stick, the keyboard that stands in for it, and a single instance."""

import itertools
import statistics

import pytest

from program import CAPTION
from standin import CENTRE, POLL
from waiting import wait_until

HOLD_MILLISECONDS = 2000
LEAST_REPEAT_MILLISECONDS = 180  # about 200: a tick of 100 and a wait of 100
MOST_REPEAT_MILLISECONDS = 250
QUIET_MILLISECONDS = 600               # several polls, if there were any


@pytest.mark.timed
def test_held_stick_moves_at_once_and_then_repeats_from_the_fourth_tick(desktop):
    program = desktop.program()
    window = program.start()
    program.standin.wait_for_poll()
    first = program.standin.read_count()
    with desktop.probe.watching_caption(window.handle, HOLD_MILLISECONDS) as captions:
        program.standin.hold("right")
    program.standin.centre()
    ticks = [read.tick for read in program.standin.reads(first) if read.sample != CENTRE]
    moves = captions[1:]

    position = (1, 1)
    for _, caption in moves:
        position = program.map().move(position, "right")
        assert caption == CAPTION + program.map().cell(position).caption
    moved_in_tick = [sum(1 for tick in ticks if tick <= moved) for moved, _ in moves]
    assert moved_in_tick[:5] == [1, 4, 5, 6, 7]
    assert moved_in_tick == [1] + list(range(4, 4 + len(moves) - 1))
    gaps = [later - earlier for earlier, later in itertools.pairwise(tick for tick, _ in moves[1:])]
    # The one in the middle: a busy machine holds a single tick back.
    assert LEAST_REPEAT_MILLISECONDS <= statistics.median(gaps) < MOST_REPEAT_MILLISECONDS


def test_keyboard_drives_the_map_while_no_joystick_answers(desktop):
    program = desktop.program(present=False)
    editor = desktop.editor()
    program.start()
    editor.wait_for_keyboard(desktop.display)
    second, third = (program.map().cell((column, 1)).caption for column in (2, 3))
    desktop.display.key("Right")
    wait_until(lambda: program.highlighted() == second, "the next cell")
    desktop.display.key("Right")
    wait_until(lambda: program.highlighted() == third, "the cell after it")
    desktop.display.key("a")
    editor.wait_for_text("a")  # other keys pass, and the arrows did not reach the editor
    assert program.close() == 0


def test_program_without_joystick_is_not_driven_by_one_plugged_in_later(desktop):
    program = desktop.program(present=False)
    window = program.start()
    program.standin.set_present(True)
    with desktop.probe.watching_caption(window.handle, QUIET_MILLISECONDS) as captions:
        pass
    assert [caption for _, caption in captions] == [window.caption]
    assert program.standin.reads(kind=POLL) == []
    assert program.close() == 0


def test_arrows_and_enter_reach_the_editor_while_a_joystick_answers(desktop):
    program = desktop.program()
    editor = desktop.editor()
    program.start()
    program.standin.wait_for_poll()  # its messages run, so the hook answers at once
    editor.wait_for_keyboard(desktop.display)
    for key in ("a", "Left", "b", "Return"):
        desktop.display.key(key)
    editor.wait_for_text("b\r\na")
    assert program.highlighted() == program.map().cell((1, 1)).caption


def test_second_instance_ends_silently(desktop):
    program = desktop.program()
    window = program.start()
    before = {seen.handle for seen in desktop.probe.windows()}
    program.launch()
    assert program.wait_for_end() == 0
    assert {seen.handle for seen in desktop.probe.windows()} == before
    program.standin.wait_for_poll()
    assert program.window().handle == window.handle
