# SPDX-License-Identifier: MIT
"""Taviro itself: a copy of the program's folder, or an installed one, with the stand-in beside it,
started in a prefix."""

import shutil
import subprocess
import wave

from map_file import Map, map_bytes
from probe import WM_CLOSE
from standin import CENTRE, PRESSED, TILTS, Standin
from waiting import wait_until
from wine import BUILD, environment, windows_path

CAPTION = "Taviro - "
START_SECONDS = 30
END_SECONDS = 20
SAMPLES_A_SECOND = 8000


class Program:
    """Without the delivered comfort.ini every rule holds to the letter, which is what most tests are
    about; with `comfort` it is as a user gets it."""

    def __init__(self, prefix, display, probe, build="win64", present=True, folder=None,
                 comfort=False):
        self.probe = probe
        self._processes = []
        built = BUILD / build
        self.folder = folder or prefix.folder / build
        if folder is None:
            shutil.copytree(built / "taviro", self.folder)
            if not comfort:
                (self.folder / "comfort.ini").unlink()
        shutil.copy2(built / "e2e" / "winmm.dll", self.folder)
        self.standin = Standin(prefix.folder / f"{build}.standin", present)
        self.environment = environment(prefix.path, display.name)
        self.environment["TAVIRO_STANDIN"] = windows_path(self.standin.path)
        self.data_folder = (prefix.roaming_folder()
                            / "Nordane" / "Corvela" / "v2.2" / "taviro")
        self.position = (1, 1)
        self._map = None

    # Running.

    def launch(self):
        """Starts the executable without waiting for anything."""
        process = subprocess.Popen(["wine", str(self.folder / "taviro.exe")],
                                   env=self.environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self._processes.append(process)
        return process

    def find_window(self):
        return self.probe.window(CAPTION)

    def start(self, seconds=START_SECONDS):
        """Starts the program and waits for its window."""
        process = self.launch()
        self.position = (1, 1)
        return wait_until(lambda: self.find_window() or self._ended(process),
                          "the program's window", seconds)

    @staticmethod
    def _ended(process):
        if process.poll() is not None:
            raise AssertionError(f"the program ended with {process.returncode} before its window")

    def close(self):
        """Closes the window as a user does; returns the exit code."""
        self.probe.post(self.window().handle, WM_CLOSE)
        return self.wait_for_end()

    def wait_for_end(self, seconds=END_SECONDS):
        return self._processes[-1].wait(seconds)

    def kill(self):
        for process in self._processes:
            if process.poll() is None:
                process.kill()
                process.wait(END_SECONDS)

    # What it shows.

    def window(self):
        window = self.find_window()
        assert window, "the program has no window"
        return window

    def highlighted(self):
        """The caption of the highlighted cell, as the window's title tells it."""
        return self.window().caption.removeprefix(CAPTION)

    # Driving it with the stick.

    def map(self):
        if self._map is None:
            self._map = Map(self.data_folder / "data.ini")
        return self._map

    def go_to(self, cell):
        """Tilts until a cell is highlighted."""
        for direction in self.map().path(self.position, cell.position):
            self.standin.tilt(direction)
            self.position = self.map().move(self.position, direction)
        wait_until(lambda: self.highlighted() == cell.caption,
                   lambda: f"the highlight on {cell.caption!r}; it is on {self.highlighted()!r}")

    def run_cell(self, cell):
        """Goes to a cell and presses the action button."""
        self.go_to(cell)
        self.standin.press(0)

    def press_next(self, count=1):
        """So many times, moves one cell to the right and presses that cell. When this returns, what
        the last press did has ended."""
        for _ in range(count):
            self.position = self.map().move(self.position, "right")
        self.standin.play(*[TILTS["right"], PRESSED] * count, CENTRE)

    # The user's files.

    def use_map(self, *rows, app=None):
        """Gives the user a map of his own, for one application or for all: rows of cells, each
        (caption, code) or (caption, code, command)."""
        self.data_folder.mkdir(parents=True, exist_ok=True)
        name = f"data_{app}.ini" if app else "data.ini"
        (self.data_folder / name).write_bytes(map_bytes(rows))

    def use_settings(self, voice="Male", rate=0, pitch=0, volume=50, **info):
        """Settings as another run would have saved them, the buttons as a new user has them."""
        lines = ["[Info]", *(f"{name}={value}" for name, value in info.items()), "[Voice]",
                 f"Name={voice}", f"Rate={rate}", f"Pitch={pitch}", f"Volume={volume}", "[Buttons]",
                 "0=*action", "1=*mode", ""]
        self.data_folder.mkdir(parents=True, exist_ok=True)
        self.setting_file().write_bytes("\r\n".join(lines).encode("cp1250"))

    def use_sounds(self, *names, seconds=0):
        """Puts these sounds, and no others, into the program's folder, each as long as that; without
        names there is no folder of sounds at all and everything is spoken."""
        folder = self.folder / "sound"
        shutil.rmtree(folder, ignore_errors=True)
        if names:
            folder.mkdir()
        for name in names:
            with wave.open(str(folder / f"{name}.wav"), "wb") as file:
                file.setparams((1, 1, SAMPLES_A_SECOND, 0, "NONE", ""))
                file.writeframes(bytes([128]) * int(SAMPLES_A_SECOND * seconds))

    def setting_file(self):
        return self.data_folder / "setting.ini"
