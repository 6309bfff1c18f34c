# SPDX-License-Identifier: MIT
"""Pictures of every dialog, at several scalings of the screen, for a look by a person:
tools/dialog_pictures.py [PERCENT...], by default 100, 150 and 200. They go to out/dialogs/."""

import pathlib
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))

from dialogs import DIALOGS, open_dialog  # noqa: E402  (found through the line above)
from harness import new_desktop  # noqa: E402
from probe import WM_CLOSE  # noqa: E402
from waiting import wait_until  # noqa: E402

DOTS_PER_INCH = 96
SCREEN = "1920x1200x24"  # room for twice the size


def scale(desktop, percent):
    """The screen's scaling, for programs that start from now on."""
    subprocess.run(["wine", "reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels", "/t",
                    "REG_DWORD", "/d", str(DOTS_PER_INCH * percent // 100), "/f"],
                   env=desktop.env, check=True, timeout=60, stdout=subprocess.DEVNULL)


def take(desktop, out, percent):
    scale(desktop, percent)
    desktop.automation()
    program = desktop.program(comfort=True)
    program.start()
    for name in DIALOGS:
        dialog = open_dialog(desktop, program, name)
        desktop.display.activate(dialog.caption)
        desktop.display.settled_picture(dialog, out / f"{name}-{percent}.png")
        desktop.probe.post(dialog.handle, WM_CLOSE)
        wait_until(lambda handle=dialog.handle: handle not in
                   {window.handle for window in desktop.probe.windows()}, f"the end of {name}")
    desktop.display.screenshot(out / f"main-{percent}.png")
    program.close()


def main():
    out = ROOT / "out" / "dialogs"
    shutil.rmtree(out, ignore_errors=True)
    out.mkdir(parents=True)
    for percent in map(int, sys.argv[1:] or ("100", "150", "200")):
        with new_desktop(SCREEN) as desktop:
            take(desktop, out, percent)
    print(f"see {out.relative_to(ROOT)}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
