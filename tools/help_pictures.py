# SPDX-License-Identifier: MIT
"""Makes the pictures of the help page, help/pictures/*.png, from the real program on a virtual
display with the delivered maps: tools/help_pictures.py. The dictionary's list is taken from the real
dictionary. To be run again, and looked at, when a map or a dialog has changed."""

import io
import pathlib
import sys

from PIL import Image

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))

from choice_list import ChoiceList  # noqa: E402  (found through the line above)
from dictionary import Offers, register  # noqa: E402
from dialogs import open_dialog, wait_for_dialog  # noqa: E402
from harness import new_desktop  # noqa: E402
from probe import WM_CLOSE  # noqa: E402
from sentence import cell_of, type_words  # noqa: E402
from standin import CENTRE  # noqa: E402
from waiting import wait_until  # noqa: E402

FOLDER = ROOT / "help" / "pictures"
ACTION, MODE = 0, 1
BUTTON_PRESSED = (32767, 32767, 1 << 2)  # the first one that has no task yet
BUTTON_TITLE = "Nastavení tlačítka 2"
COLOURS = 128
GAP = 24  # pixels between the map and the editor below it
EDITOR_HEIGHT = 200
MARGIN = 8
GREETING = "Ahoj"
WORDS = ["krásný", "den"]
ROWS_SHOWN = 5
DIALOGS = {"settings": "frmAppSetting", "voice": "FrmVoice", "maps": "frmMap", "cell": "frmConfig"}


def small(path):
    """Fewer colours than a screen has are enough for windows and keep the page quick."""
    with Image.open(path) as picture:
        reduced = picture.convert("RGB").quantize(COLOURS, dither=Image.Dither.NONE)
    packed = io.BytesIO()
    reduced.save(packed, "PNG", optimize=True)
    path.write_bytes(packed.getvalue())


class Photographer:
    def __init__(self, desktop):
        self.desktop = desktop
        self.automation = desktop.automation()
        self.program = desktop.program(comfort=True)
        self.automation.serve(self.program)
        self.program.use_sounds()  # a picture is not to wait for one
        window = self.program.start()
        self.editor = desktop.editor()
        desktop.probe.place(self.editor.window.handle, window.left, window.bottom + GAP,
                            window.right - window.left, EDITOR_HEIGHT)

    def scene(self, name, below=GAP + EDITOR_HEIGHT + MARGIN):
        """The map and so many pixels below it, by default the editor that stands there."""
        path = FOLDER / f"{name}.png"
        self.desktop.display.screenshot(path)
        map_window = self.program.window()
        with Image.open(path) as screen:
            scene = screen.crop((map_window.left - MARGIN, map_window.top, screen.width,
                                 map_window.bottom + below))
            scene.load()
        scene.save(path)

    def lists(self):
        stick, program = self.program.standin, self.program
        program.run_cell(program.map().find("seznam")[0])
        entries = ChoiceList(self.desktop, program.window())
        wait_until(entries.is_shown, "the list")
        stick.tilt("down")
        wait_until(lambda: entries.selected() == 1, "the second entry")
        self.scene("list")
        stick.press(MODE)
        wait_until(lambda: not entries.is_shown(), "the list's end")

    def offers(self):
        register(self.program)
        entries = ChoiceList(self.desktop, self.program.window())
        taken = []

        def look(rows):
            if len(rows) == ROWS_SHOWN and not taken:
                taken.append(rows)
                self.scene("prediction")

        offers = Offers(self.program, entries, self.desktop.probe, look)
        type_words(self.program, self.editor, offers, WORDS, GREETING + " ")
        assert taken, "no list that is worth a picture"

    def application(self):
        """From the selection mode on through the arrows to the editor's own map."""
        before = self.program.highlighted()
        self.program.standin.press(MODE)
        self.program.standin.press(MODE)
        wait_until(lambda: self.program.highlighted() != before, "the editor's map")
        self.scene("application", below=MARGIN)
        self.program.standin.press(MODE)
        wait_until(lambda: self.program.highlighted() == before, "the common map")

    def dialogs(self):
        for name, form in DIALOGS.items():
            self._dialog(name, open_dialog(self.desktop, self.program, form))
        settings = open_dialog(self.desktop, self.program, DIALOGS["settings"])
        stick = self.program.standin
        stick.let_every_read_take()
        stick.queue(BUTTON_PRESSED)
        button = wait_for_dialog(self.desktop, BUTTON_TITLE)
        stick.queue(CENTRE)  # read once the dialog has gone
        self._dialog("button", button)
        self._close(settings)
        stick.set_present(True)

    def _dialog(self, name, dialog):
        self.desktop.display.activate(dialog.caption)
        self.desktop.display.settled_picture(dialog, FOLDER / f"{name}.png")
        self._close(dialog)

    def _close(self, dialog):
        self.desktop.probe.post(dialog.handle, WM_CLOSE)
        wait_until(lambda: dialog.handle not in
                   {window.handle for window in self.desktop.probe.windows()}, "the dialog's end")

    def take_all(self):
        for letter in GREETING:
            self.program.run_cell(cell_of(letter, self.program.map()))
        self.editor.wait_for_text(GREETING)
        self.program.go_to(cell_of(" ", self.program.map()))
        self.scene("main")
        self.program.run_cell(cell_of(" ", self.program.map()))
        self.lists()
        self.application()
        self.dialogs()
        self.offers()
        self.program.close()


def main():
    FOLDER.mkdir(parents=True, exist_ok=True)
    with new_desktop() as desktop:
        Photographer(desktop).take_all()
    for path in sorted(FOLDER.glob("*.png")):
        small(path)
        print(f"{path.relative_to(ROOT)}: {path.stat().st_size // 1024} KiB")
    return 0


if __name__ == "__main__":
    sys.exit(main())
