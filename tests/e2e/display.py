# SPDX-License-Identifier: MIT
"""A virtual screen with a window manager, unless it is to be without, and a keyboard layout, Czech
unless another is asked for."""

import os
import re
import select
import subprocess

from waiting import Late, wait_until

SCREEN = "1280x800x24"
START_SECONDS = 20
LOOKS, LOOK_SECONDS = 3, 0.15  # more often than a caret blinks
CONFIGURATION = "/etc/xdg/openbox/rc.xml"  # as delivered: a new window and a click get the focus


class Display:
    def __init__(self, screen=SCREEN, layout="cz", managed=True):
        self._programs = []
        try:
            self.name = self._start_server(screen)
            self.env = dict(os.environ, DISPLAY=self.name, LC_ALL="C.UTF-8")
            if managed:
                self._start_window_manager()
            subprocess.run(["setxkbmap", layout], env=self.env, check=True, timeout=START_SECONDS)
        except BaseException:
            self.close()
            raise

    def _start(self, command, **options):
        program = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL, **options)
        self._programs.append(program)
        return program

    def _start_server(self, screen):
        """Lets the server choose a free number and tell it once it answers."""
        read_end, write_end = os.pipe()
        with open(read_end, encoding="ascii") as answer:
            self._start(["Xvfb", "-displayfd", str(write_end), "-screen", "0", screen, "-nolisten",
                         "tcp", "-noreset"], pass_fds=[write_end])
            os.close(write_end)
            if not select.select([answer], [], [], START_SECONDS)[0]:
                raise Late("the virtual display did not start")
            # The whole line: the server ends when its last byte finds no reader.
            return f":{int(answer.readline())}"

    def _start_window_manager(self):
        self._start(["openbox", "--sm-disable", "--config-file", CONFIGURATION], env=self.env)
        wait_until(self._window_manager_answers, "the window manager's start", START_SECONDS)

    def _window_manager_answers(self):
        answer = subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], env=self.env,
                                check=False, capture_output=True, text=True)
        return "window id" in answer.stdout

    def screenshot(self, path):
        subprocess.run(["scrot", "--overwrite", str(path)], env=self.env, check=True, timeout=30)

    def settled_picture(self, window, path):
        """A picture of a window alone, once it shows the same at several looks in a row."""
        seen = []

        def is_settled():
            self._crop(window, path)
            seen.append(path.read_bytes())
            return len(seen) >= LOOKS and len(set(seen[-LOOKS:])) == 1

        wait_until(is_settled, "a picture that stays", interval=LOOK_SECONDS)

    def _crop(self, window, path):
        area = (f"{window.left},{window.top},{window.right - window.left},"
                f"{window.bottom - window.top}")
        subprocess.run(["scrot", "--overwrite", "--autoselect", area, str(path)], env=self.env,
                       check=True, timeout=30)

    def click(self, x, y, button=1):
        """A click of the real pointer at a place of the screen."""
        subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", str(button)],
                       env=self.env, check=True, timeout=30)

    def move(self, x, y):
        """Moves the real pointer."""
        subprocess.run(["xdotool", "mousemove", str(x), str(y)], env=self.env, check=True,
                       timeout=30)

    def active_title(self):
        """Title of the window that the window manager gives the keys to; empty while there is none."""
        answer = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], env=self.env,
                                check=False, capture_output=True, text=True)
        return answer.stdout.strip()

    def activate(self, title):
        """Chooses a window from the window manager's list by its title; one that is not in it yet
        is passed over."""
        subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{re.escape(title)}$",
                        "windowactivate"], env=self.env, check=False, timeout=30,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def key(self, name):
        """A press of a physical key."""
        self._keyboard("key", name)

    def hold(self, name):
        """Presses a physical key and does not let it go."""
        self._keyboard("keydown", name)

    def release(self, name):
        self._keyboard("keyup", name)

    def _keyboard(self, act, name):
        subprocess.run(["xdotool", act, name], env=self.env, check=True, timeout=30)

    def close(self):
        for program in reversed(self._programs):
            program.terminate()
            program.wait(START_SECONDS)
