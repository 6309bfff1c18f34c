# SPDX-License-Identifier: MIT
"""A desktop for one test: a Wine prefix on a display, the probe in it, and on demand Taviro and an
editor. Everything ends with it."""

import contextlib
import subprocess

from automation import Automation
from display import SCREEN, Display
from editor import Editor
from probe import Probe
from program import Program
from waiting import wait_until
from wine import BUILD, Prefix, environment


class Desktop:
    def __init__(self, display):
        self.display = display
        self._ends = contextlib.ExitStack()
        try:
            self.prefix = Prefix()
            self._ends.callback(self.prefix.close)
            self.env = environment(self.prefix.path, display.name)
            self.probe = Probe(BUILD / "win64" / "e2e" / "desktop_probe.exe", self.env)
            self._ends.callback(self.probe.close)
            assert self.probe.code_pages() == (1250, 852), "Wine is not set up for Czech"
        except BaseException:
            self._ends.close()
            raise

    def program(self, **options):
        """Taviro, ready to be started."""
        program = Program(self.prefix, self.display, self.probe, **options)
        self._ends.callback(program.kill)
        return program

    def editor(self, **options):
        """An editor that has the focus."""
        editor = Editor(self.probe, self.env, **options)
        self._ends.callback(editor.close)
        return editor

    def bring_to_front(self, window):
        """Chooses a window as a person does, from the window manager's list, and waits until Wine has
        followed. What Wine alone puts in front the manager never hears of, and the next word from it
        may take the focus away again."""
        def is_in_front():
            self.display.activate(window.caption)
            return self.probe.foreground() == window.handle

        wait_until(is_in_front, lambda: f"{window.caption!r} in front; the manager has "
                   f"{self.display.active_title()!r}", interval=0.2)

    def set_registry(self, key, name, value, kind="REG_SZ"):
        """A value of the user's registry, for programs that start from now on."""
        subprocess.run(["wine", "reg", "add", rf"HKCU\{key}", "/v", name, "/t", kind, "/d", str(value),
                        "/f"], env=self.env, check=True, timeout=60, stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL)

    def set_dpi(self, dpi):
        """The scale of the screen, for programs that start from now on."""
        self.set_registry(r"Control Panel\Desktop", "LogPixels", dpi, "REG_DWORD")

    def automation(self, **options):
        """The stand-in speech engine, reader and relay."""
        return Automation(self.prefix, self.probe, **options)

    def close(self):
        self._ends.close()


@contextlib.contextmanager
def new_desktop(screen=SCREEN, **options):
    """A desktop on a display of its own."""
    with contextlib.closing(Display(screen, **options)) as display, \
            contextlib.closing(Desktop(display)) as desktop:
        yield desktop
