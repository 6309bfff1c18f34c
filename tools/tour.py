# SPDX-License-Identifier: MIT
"""A person's way through all of Taviro, as pictures: the four modes, a choice list, a launched
program, and what was said at each step. Leaves one picture a step in out/tour/ and beside them
tour.txt (what was done and heard) and log.txt (what Taviro wrote down itself)."""

import pathlib
import shutil
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))

from choice_list import ChoiceList  # noqa: E402  (found through the line above)
from harness import new_desktop  # noqa: E402
from waiting import wait_until  # noqa: E402

ACTION, MODE = 0, 1
EDITOR_PLACE = (20, 330, 700, 400)


class Tour:
    def __init__(self, desktop, out):
        self.desktop = desktop
        self.out = out
        self.count = 0
        self.automation = desktop.automation()
        self.program = desktop.program(comfort=True)
        self.automation.serve(self.program)
        self.program.use_sounds()  # everything is spoken
        self.program.use_settings(ScanMode=1, Log=1, ScanDelay=100)
        self.lines = []

    def step(self, name, act, until=None):
        """Does one thing, waits for what it brings about, and keeps picture and speech."""
        act()
        if until:
            wait_until(until, name)
        self.program.standin.wait_for_poll()
        self.count += 1
        picture = f"{self.count:02}.png"
        self.desktop.display.screenshot(self.out / picture)
        heard = [line.split(">", 1)[1].rsplit('"', 1)[0] for line in self.automation.take()
                 if ".Speak(" in line]
        said = ", ".join(repr(text) for text in heard if text) or "nic"
        self.lines.append(f"{picture}  {name}\n        řečeno: {said}\n")
        print(self.lines[-1], end="", flush=True)

    def cell(self, caption):
        return self.program.map().find(caption)[0]

    def walk(self):
        program, stick = self.program, self.program.standin
        program.start()
        editor = self.desktop.editor(place=EDITOR_PLACE)
        self.step("po spuštění: mapa, editor je v popředí", stick.centre)
        self.step("výběr: páka na buňku a", lambda: program.go_to(self.cell("a")))
        self.step("výběr: tlačítko píše a", lambda: stick.press(ACTION),
                  lambda: editor.text() == "a")
        entries = ChoiceList(self.desktop, program.window())
        self.step("buňka seznam otevře seznam voleb",
                  lambda: program.run_cell(self.cell("seznam")), entries.is_shown)
        self.step("seznam: páka dolů", lambda: [stick.tilt("down") for _ in range(3)],
                  lambda: entries.selected() == 3)
        self.step("seznam: tlačítko napíše Ano", lambda: stick.press(ACTION),
                  lambda: editor.text() == "aAno")
        self.step("výběr: páka zpět na buňku a", lambda: program.go_to(self.cell("a")))
        self.step("tlačítko režimu: šipky", lambda: stick.press(MODE))
        self.step("šipky: třikrát vlevo", lambda: [stick.tilt("left") for _ in range(3)])
        self.step("šipky: tlačítko je Enter", lambda: stick.press(ACTION),
                  lambda: editor.text() == "a\r\nAno")
        self.step("tlačítko režimu: sken", lambda: stick.press(MODE))
        before = program.highlighted()
        self.step("sken: tlačítko spustí posun", lambda: stick.press(ACTION),
                  lambda: program.highlighted() != before)
        self.step("sken: tlačítko zastaví a provede buňku", lambda: stick.press(ACTION),
                  lambda: editor.text() != "a\r\nAno")
        self.step("tlačítko režimu: aplikace", lambda: stick.press(MODE))
        self.step("aplikace: páka vpravo", lambda: stick.tilt("right"))
        self.step("tlačítko režimu: výběr", lambda: stick.press(MODE))
        program.position = next(cell.position for cell in program.map().find(program.highlighted()))
        windows = len(self.desktop.probe.windows())
        self.step("buňka editor spustí další editor", lambda: program.run_cell(self.cell("editor")),
                  lambda: len(self.desktop.probe.windows()) > windows)
        program.close()
        shutil.copy2(program.data_folder / "log.txt", self.out / "log.txt")


def main():
    out = ROOT / "out" / "tour"
    shutil.rmtree(out, ignore_errors=True)
    out.mkdir(parents=True)
    with new_desktop() as desktop:
        tour = Tour(desktop, out)
        tour.walk()
    (out / "tour.txt").write_text("".join(tour.lines), encoding="utf-8")
    print(f"see {out.relative_to(ROOT)}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
