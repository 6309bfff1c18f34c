# SPDX-License-Identifier: MIT
"""What a screen reader tells of each dialog while Tab goes through it, and that with the usual and
with twice the scaling nothing is cut off. The texts are in golden/; after a wanted change
TAVIRO_GOLDEN=write python3 -B -m pytest -q tests/e2e/test_dialogs_read.py writes them anew."""

import contextlib
import os
import pathlib
import re

from dialogs import DIALOGS, Dialog, open_dialog, wait_for_dialog
from harness import new_desktop
from probe import Probe
from standin import CENTRE
from wine import BUILD, ROOT

PROBE = BUILD / "win64" / "e2e" / "desktop_probe.exe"
GOLDEN = pathlib.Path(__file__).parent / "golden"
DOTS_PER_INCH = 96
TWICE_THE_SCREEN = "1920x1200x24"
LARGEST_USUAL_UNIT = 9  # pixels of a layout unit with the usual scaling, whatever the font
WS_VISIBLE = 0x10000000
BUTTON_THREE = (32767, 32767, 1 << 3)
GROUP_BOX, PUSH_BUTTONS = 7, (0, 1)
# Pixels that a button needs beside its text, with the usual scaling.
ROOM_OF_TICK, ROOM_OF_FRAME, ROOM_OF_BUTTON = 16, 14, 6


def all_dialogs(desktop, program):
    """Each dialog while it is open, by its form's name."""
    for name in DIALOGS:
        dialog = Dialog(desktop, open_dialog(desktop, program, name))
        yield name, dialog
        if name == "frmAppSetting":
            program.standin.let_every_read_take()
            program.standin.queue(BUTTON_THREE)
            inner = Dialog(desktop, wait_for_dialog(desktop, "Nastavení tlačítka 3"))
            program.standin.queue(CENTRE)  # read once the inner dialog has gone
            yield "frmButtonConfig", inner
            inner.close()
        dialog.close()


def layout_width(form):
    texts = [path.read_text(encoding="utf-8") for path in (ROOT / "resources/dialogs").glob("*.rc")]
    head = rf"^{form.upper()} DIALOGEX 0, 0, (\d+), \d+$"
    return int(next(found[1] for found in (re.search(head, text, re.M) for text in texts) if found))


def room_beside(control, percent):
    if control.class_name != "Button":
        return 0
    kind = control.style & 0xF
    pixels = ROOM_OF_FRAME if kind == GROUP_BOX else (
        ROOM_OF_BUTTON if kind in PUSH_BUTTONS else ROOM_OF_TICK)
    return pixels * percent // 100


def cut_off(dialog, percent):
    """The controls whose text is larger than they are, with the sizes."""
    problems = []
    for control in dialog.controls():
        text = dialog.probe.text(control.handle)
        shown = control.style & WS_VISIBLE and control.class_name in ("Static", "Button")
        if not shown or not text:
            continue
        width, height = map(int, dialog.probe.ask("clientsize", control.handle)[0])
        wraps = width if control.class_name == "Static" else 0
        needed = list(map(int, dialog.probe.ask("measure", text, wraps)[0]))
        is_frame = control.class_name == "Button" and control.style & 0xF == GROUP_BOX
        if needed[0] + room_beside(control, percent) > width or (
                needed[1] > height and not is_frame):
            problems.append((text, needed[:2], (width, height)))
    return problems


def check_place(name, dialog, percent, screen):
    probe = dialog.probe
    unit = int(probe.ask("measure", "x", 0)[0][2])
    width = int(probe.ask("clientsize", dialog.window.handle)[0][0])
    assert width == (layout_width(name) * unit + 2) // 4, f"{name} has another font"
    assert cut_off(dialog, percent) == [], name
    window = dialog.window
    assert 0 <= window.left and 0 <= window.top, name
    assert (window.right, window.bottom) <= screen and window.bottom <= screen[1], name


def test_every_stop_of_the_keyboard_is_told_and_every_text_fits(desktop):
    automation = desktop.automation()
    program = desktop.program()
    automation.serve(program)
    program.use_sounds()
    program.use_map([("a", 65), ("žluť", 20083, "^|poznámky")])
    program.use_settings(voice="Hlas druhý", ScanMode=1, ScanSizeX=3, ScanSizeY=2, ScanDelay=500)
    desktop.editor()
    program.start()
    program.standin.tilt("right")
    GOLDEN.mkdir(exist_ok=True)
    told = set()
    for name, dialog in all_dialogs(desktop, program):
        check_place(name, dialog, 100, (1280, 800))
        stops = "\n".join([dialog.window.caption, *dialog.take_keyboard().stops(), ""])
        golden = GOLDEN / f"{name}.txt"
        if os.environ.get("TAVIRO_GOLDEN") == "write":
            golden.write_text(stops, encoding="utf-8")
        assert stops == golden.read_text(encoding="utf-8"), name
        told.add(name)
    assert {path.stem for path in GOLDEN.glob("*.txt")} == told
    assert program.close() == 0


def test_twice_the_scaling_cuts_no_text_off():
    with new_desktop(TWICE_THE_SCREEN) as desktop:
        desktop.set_dpi(2 * DOTS_PER_INCH)
        # A program keeps the scaling that it started with.
        with contextlib.closing(Probe(PROBE, desktop.env)) as desktop.probe:
            program = desktop.program()
            program.start()
            assert int(desktop.probe.ask("measure", "x", 0)[0][2]) > LARGEST_USUAL_UNIT
            for name, dialog in all_dialogs(desktop, program):
                check_place(name, dialog, 200, (1920, 1200))
            assert program.close() == 0
