# SPDX-License-Identifier: MIT
"""Shows Taviro at work on a virtual display: a scripted joystick types a Czech sentence letter by
letter from the map into a text editor, adds a word from a choice list, goes back with the arrow mode
and puts in the blank that is missing. Then the dictionary is registered, and a second sentence is
typed with the words that it offers. Leaves out/demo.png, out/demo_list.png, out/demo_prediction.png
and out/demo.txt; the exit code is 0 only if the text is right."""

import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))

from choice_list import ChoiceList  # noqa: E402  (found through the line above)
from dictionary import Offers, register  # noqa: E402
from harness import new_desktop  # noqa: E402
from sentence import type_sentence, type_words  # noqa: E402
from waiting import Late, wait_until  # noqa: E402

SENTENCE = "Ahoj, světe."
WORD = "Ano"
FIRST_LINE = f"{SENTENCE} {WORD}"
OFFERED = ["Přeji", "vám", "krásný", "den"]
RESULT = f"{FIRST_LINE}\r\n{' '.join(OFFERED)} "
SHOWN_ROWS = 3  # of the list that is worth a picture
MODE_BUTTON = 1
GAP = 24  # pixels between the map and the editor below it
EDITOR_HEIGHT = 260


def tell(text):
    print(f"demo: {text}", flush=True)


def cell(program, caption):
    return program.map().find(caption)[0]


def add_word(desktop, program, editor, out):
    """Types the word from the choice list."""
    program.run_cell(cell(program, "seznam"))
    entries = ChoiceList(desktop, program.window())
    wait_until(entries.is_shown, "the choice list")
    command = cell(program, "seznam").command
    row = [entry.split(",")[0] for entry in command.split(";")[1:]].index(WORD)
    for _ in range(row):
        program.standin.tilt("down")
    wait_until(lambda: entries.selected() == row, f"the entry {WORD!r}")
    desktop.display.screenshot(out / "demo_list.png")
    program.standin.press(0)
    editor.wait_for_text(SENTENCE + WORD)
    tell(f"the list, {row} times down, press on {WORD!r} -> {editor.text()!r}")


def put_in_blank(program, editor):
    """Goes back before the word with the arrow mode, then types the blank in the selection mode."""
    program.standin.press(MODE_BUTTON)
    for _ in WORD:
        program.standin.tilt("left")
    tell(f"arrow mode, {len(WORD)} times left")
    program.standin.press(MODE_BUTTON)  # the editor has a map of its own
    program.standin.press(MODE_BUTTON)
    wait_until(lambda: program.highlighted() == "seznam", "the selection mode's cell")
    program.run_cell(cell(program, "mezera"))
    editor.wait_for_text(FIRST_LINE)
    tell(f"selection mode, press on 'mezera' -> {editor.text()!r}")


def start_line(program, editor):
    """Goes behind the word with the arrow mode and begins a new line."""
    program.standin.press(MODE_BUTTON)
    for _ in WORD:
        program.standin.tilt("right")
    program.standin.press(MODE_BUTTON)
    program.standin.press(MODE_BUTTON)
    program.run_cell(cell(program, "Enter"))
    editor.wait_for_text(FIRST_LINE + "\r\n")


def type_with_offers(desktop, program, editor, out):
    """Types words from the dictionary, which the program finds with the next key."""
    register(program)
    picture = out / "demo_prediction.png"
    picture.unlink(missing_ok=True)

    def look(rows):
        accented = [row for row in rows if not row.isascii()]
        if len(rows) >= SHOWN_ROWS and accented and not picture.exists():
            desktop.display.screenshot(picture)

    offers = Offers(program, ChoiceList(desktop, program.window()), desktop.probe, look)
    type_words(program, editor, offers, OFFERED, FIRST_LINE + "\r\n", tell)
    tell(f"{len(offers.taken)} of {len(OFFERED)} words taken, {offers.dismissed} lists sent away")


def run(desktop, out):
    editor = desktop.editor()
    program = desktop.program(comfort=True)
    window = program.start()
    desktop.probe.place(editor.window.handle, window.left, window.bottom + GAP,
                        window.right - window.left, EDITOR_HEIGHT)
    tell(f"the map is shown, {program.highlighted()!r} is highlighted; the editor has the focus")
    try:
        type_sentence(program, editor, SENTENCE, tell)
        add_word(desktop, program, editor, out)
        put_in_blank(program, editor)
        start_line(program, editor)
        type_with_offers(desktop, program, editor, out)
    finally:
        text = editor.text()
        (out / "demo.txt").write_text(text, encoding="utf-8")
        desktop.display.screenshot(out / "demo.png")
        tell("see out/demo.png, out/demo_list.png, out/demo_prediction.png and out/demo.txt")
    program.close()
    return text


def main():
    out = ROOT / "out"
    out.mkdir(exist_ok=True)
    with new_desktop() as desktop:
        try:
            text = run(desktop, out)
        except Late as late:
            tell(f"FAILED: {late}")
            return 1
    tell(f"the editor holds {text!r}")
    return 0 if text == RESULT else 1


if __name__ == "__main__":
    sys.exit(main())
