# SPDX-License-Identifier: MIT
"""Application mode follows the program in front: each has its own map and its own place in it."""

import subprocess

from automation import spoken
from probe import WM_CLOSE
from waiting import wait_until

ACTION, MODE = 0, 1
COMMON = [("spolecna", 65), ("druha", 66)]
EDITOR_MAP = [("n1", 67), ("n2", 68), ("n3", 69)]
GAME_MAP = [("m1", 0), ("m2", 0), ("m3", 0)]


def game(desktop):
    """The window of another real application, the game of mines that Wine brings along; it ends
    with the desktop."""
    subprocess.Popen(["wine", "winemine"], env=desktop.env, stdin=subprocess.DEVNULL,
                     stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return wait_until(lambda: desktop.probe.window("WineMin"), "the game's window", 30)


def test_maps_follow_the_program_in_front_until_it_ends(desktop):
    automation = desktop.automation()
    program = desktop.program()
    automation.serve(program)
    program.use_sounds()
    program.use_map(COMMON)
    program.use_map(EDITOR_MAP, app="NOTEPAD.EXE")
    program.use_map(GAME_MAP, app="WINEMINE.EXE")
    played = game(desktop)
    editor = desktop.editor()
    program.start()
    stick = program.standin
    stick.tilt("right")
    stick.press(MODE)
    stick.press(MODE)
    wait_until(lambda: automation.take()[-1:] == [spoken("aplikace n1")], "application mode")

    def bring(window, letter):
        """Brings a program to the front and waits for its map."""
        desktop.bring_to_front(window)
        wait_until(lambda: program.highlighted().startswith(letter),
                   lambda: f"the map of {letter!r}; the title is {program.highlighted()!r}")

    def says_next(text):
        stick.tilt("right")
        automation.expect(spoken(text))

    says_next("n2")
    bring(played, "m")
    says_next("m2")
    bring(editor.window, "n")
    stick.press(ACTION)  # still on its second cell
    automation.expect(spoken(""))
    editor.wait_for_text("d")
    bring(played, "m")
    says_next("m3")
    bring(editor.window, "n")
    says_next("n3")
    stick.press(MODE)
    automation.expect(spoken("výběr druha"))
    stick.press(ACTION)
    automation.expect(spoken(""))
    editor.wait_for_text("db")
    assert desktop.probe.keys_down() == []

    stick.press(MODE)
    stick.press(MODE)  # back to the editor's map, where the highlight was
    automation.expect(spoken("Šipky"), spoken("aplikace n3"))
    desktop.probe.send(played.handle, WM_CLOSE)  # closed behind the editor: nothing changes
    says_next("n1")
    editor.close()  # ended in front: its map has no program any more
    automation.expect(spoken("výběr druha"))
    assert program.highlighted() == "druha"
    second = desktop.editor()
    stick.press(ACTION)
    second.wait_for_text("b")
    assert program.close() == 0
