# SPDX-License-Identifier: MIT
"""Starts the built Taviro in Wine on the user's display, with the real joystick if there is one and
with the dictionary. The prefix in build/wine/user is kept, so that the maps, the settings and the
learned words last from one start to the next."""

import os
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))

from wine import WINE_FOLDER, environment  # noqa: E402  (found through the line above)


def main():
    prefix = WINE_FOLDER / "user"
    env = environment(prefix, os.environ["DISPLAY"])
    pathlib.Path(env["HOME"]).mkdir(parents=True, exist_ok=True)
    if not prefix.exists():
        print("making a Wine prefix in build/wine/user", flush=True)
        subprocess.run(["wineboot", "-i"], env=env, check=True)
    programs = ROOT / "build" / "win64" / "taviro"
    # Without it Taviro would go on, without offering words.
    subprocess.run(["wine", str(programs / "presager.exe"), "/regserver:machine"], env=env,
                   check=False)
    return subprocess.run(["wine", str(programs / "taviro.exe")], env=env, check=False).returncode


if __name__ == "__main__":
    sys.exit(main())
