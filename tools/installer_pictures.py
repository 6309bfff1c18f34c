# SPDX-License-Identifier: MIT
"""Pictures of the pages of the installer and the uninstaller, and of their messages, for a look by
a person. The packages are made of what is built. The pictures go to out/installer/."""

import pathlib
import shutil
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))

import packages  # noqa: E402  (found through the line above)
from harness import new_desktop  # noqa: E402
from installer import RETRY, Installer  # noqa: E402
from probe import WM_CLOSE  # noqa: E402
from waiting import wait_until  # noqa: E402

# What a page begins with, its picture, and the button that leads on.
FIRST = (("Taviro umožňuje ovládat", "1-welcome"), ("&Přidat Taviro", "2-choices"),
         ("Instalační program nainstaluje", "3-folder"))
REMOVAL = (("Taviro bude odebrán", "6-removal"), ("Taviro byl z tohoto", "8-removed"))
SCREEN = "1920x1200x24"
ASIDE = (10, 10)  # where the map covers no page, which come up in the middle


class Album:
    def __init__(self, desktop, out):
        self._desktop, self._out = desktop, out

    def take(self, installer, text, name):
        window = installer.page(text)
        self._desktop.display.activate(window.caption)
        self._desktop.display.settled_picture(window, self._out / f"{name}.png")
        return window

    def turn(self, installer, pages):
        for text, name in pages:
            installer.press(self.take(installer, text, name))


def put_aside(desktop, program):
    window = program.window()
    desktop.probe.place(window.handle, *ASIDE, window.right - window.left,
                        window.bottom - window.top)


def take_all(desktop, out):
    album = Album(desktop, out)
    running = desktop.program()
    running.start()
    put_aside(desktop, running)
    setup = Installer(desktop, packages.versions()[1].pages)
    setup.open()
    album.turn(setup, FIRST)
    message = album.take(setup, "Taviro právě běží", "4-running")
    running.close()
    setup.press(message, RETRY)
    album.turn(setup, [("Taviro je nainstalován.", "5-installed")])
    wait_until(running.find_window, "the installed program", 30)
    put_aside(desktop, running)
    setup.wait_for_end()

    folder = desktop.prefix.roaming_folder().parent / "Local" / "Programs" / "Taviro"
    removal = Installer(desktop, folder / "uninstall.exe")
    removal.open()
    album.turn(removal, REMOVAL[:1])
    message = album.take(removal, "Taviro právě běží", "7-running")
    desktop.probe.post(running.find_window().handle, WM_CLOSE)
    wait_until(lambda: not running.find_window(), "the program's end", 30)
    removal.press(message, RETRY)
    album.turn(removal, REMOVAL[1:])

    folder.mkdir()
    (folder / "~new").write_bytes(b"where the folder of the new version should be")
    setup.open()
    for text, _ in FIRST:
        setup.press(setup.page(text))
    setup.press(album.take(setup, "Do složky", "9-no-folder"))
    setup.kill()


def main():
    out = ROOT / "out" / "installer"
    shutil.rmtree(out, ignore_errors=True)
    out.mkdir(parents=True)
    with new_desktop(SCREEN) as desktop:
        take_all(desktop, out)
    print(f"see {out.relative_to(ROOT)}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
