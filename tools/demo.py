# SPDX-License-Identifier: MIT
"""Shows Taviro at work on a virtual display: a scripted joystick types a Czech sentence letter by
letter from the map into a text editor. Leaves out/demo.png and out/demo.txt; the exit code is 0 only
if the sentence arrived."""

import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))

from harness import new_desktop  # noqa: E402  (found through the line above)
from sentence import type_sentence  # noqa: E402
from waiting import Late  # noqa: E402

SENTENCE = "Ahoj, světe."
GAP = 24  # pixels between the map and the editor below it
EDITOR_SIZE = (732, 260)


def tell(text):
    print(f"demo: {text}", flush=True)


def run(desktop, out):
    editor = desktop.editor()
    program = desktop.program()
    window = program.start()
    desktop.probe.place(editor.window.handle, window.left, window.bottom + GAP, *EDITOR_SIZE)
    tell(f"the map is shown, {program.highlighted()!r} is highlighted; the editor has the focus")
    try:
        type_sentence(program, editor, SENTENCE, tell)
    finally:
        text = editor.text()
        (out / "demo.txt").write_text(text, encoding="utf-8")
        desktop.display.screenshot(out / "demo.png")
        tell("see out/demo.png and out/demo.txt")
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
    return 0 if text == SENTENCE else 1


if __name__ == "__main__":
    sys.exit(main())
