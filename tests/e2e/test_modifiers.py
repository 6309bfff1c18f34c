# SPDX-License-Identifier: MIT
"""Whatever a cell does, afterwards every key is up: a modifier left down would turn all that the
user types into something else. (Wine shows the state of a key only if it was sent by virtual key;
of those sent by scan code the unit tests tell.)"""

from standin import CENTRE, PRESSED, TILTS
from waiting import wait_until

VK_SHIFT, ESCAPE, LETTER_X = 16, 27, 88

# A name, the action code and the command of a cell.
ACTIONS = [
    ("shift", 10065, ""), ("ctrl", 20067, ""), ("shift-ctrl", 30036, ""), ("alt", 40120, ""),
    ("shift-alt", 50120, ""), ("ctrl-alt", 60120, ""), ("shift-ctrl-alt", 70120, ""),
    ("windows", 90068, ""), ("character", 1033, ""), ("capital", 1065, ""),
    ("unknown character", 1255, ""), ("acute", 2030, ""), ("caron", 3032, ""),
    ("scan ctrl", 4029, ""), ("scan alt", 4056, ""), ("altgr", 5003, ""), ("cut", 10046, ""),
    ("key of right shift", 161, ""), ("negative", -10065, ""), ("missing", 0, "no_such_program"),
]
PHRASES = ["+ab^c%{F9}+^{HOME}", "+{a^", "A!?{SHIFT}{CONTROL}%{ESC}+^%{F9 2}{ALT}{ESC}{ESC}+"]


def assert_all_up(desktop, name):
    assert desktop.probe.keys_down() == [], f"keys are down after {name!r}"


def test_all_keys_are_up_after_every_kind_of_action(desktop):
    program = desktop.program()
    program.use_map([("zacatek", 0), *ACTIONS],
                    [("esc", ESCAPE), ("texty", 0, "*;" + ";".join(PHRASES))], [("x", LETTER_X)])
    editor = desktop.editor()
    program.start()
    before = "nothing"
    for name, _, _ in ACTIONS:
        program.standin.play(TILTS["right"])  # read by a poll after the one that pressed
        assert_all_up(desktop, before)
        program.standin.play(PRESSED)
        before = name
    program.standin.centre()
    assert_all_up(desktop, before)
    program.position = (len(ACTIONS) + 1, 1)
    program.run_cell(program.map().cell((1, 2)))
    for row, phrase in enumerate(PHRASES):
        program.press_next()
        program.standin.play(*[TILTS["down"], CENTRE] * row, PRESSED, CENTRE)
        assert_all_up(desktop, phrase)
        program.position = (1, 2)  # where a "^" in a command sends the highlight
    program.run_cell(program.map().cell((1, 3)))
    wait_until(lambda: "x" in editor.text(), lambda: f"an x in the editor: {editor.text()!r}")

    editor.wait_for_keyboard(desktop.display)
    desktop.display.hold("shift")  # a key that stays down would have been seen
    wait_until(lambda: VK_SHIFT in desktop.probe.keys_down(), "the held key")
    desktop.display.release("shift")
    wait_until(lambda: desktop.probe.keys_down() == [], "the released key")
    assert program.close() == 0
