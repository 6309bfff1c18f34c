# SPDX-License-Identifier: MIT
"""A virtual screen with a window manager and the Czech keyboard layout."""

import os
import select
import subprocess

from waiting import Late, wait_until

SCREEN = "1280x800x24"
START_SECONDS = 20
CONFIGURATION = "/etc/xdg/openbox/rc.xml"  # as delivered: a new window and a click get the focus


class Display:
    def __init__(self):
        self._programs = []
        try:
            self.name = self._start_server()
            self.env = dict(os.environ, DISPLAY=self.name, LC_ALL="C.UTF-8")
            self._start_window_manager()
            subprocess.run(["setxkbmap", "cz"], env=self.env, check=True, timeout=START_SECONDS)
        except BaseException:
            self.close()
            raise

    def _start(self, command, **options):
        program = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL, **options)
        self._programs.append(program)
        return program

    def _start_server(self):
        """Lets the server choose a free number and tell it once it answers."""
        read_end, write_end = os.pipe()
        with open(read_end, encoding="ascii") as answer:
            self._start(["Xvfb", "-displayfd", str(write_end), "-screen", "0", SCREEN, "-nolisten",
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

    def click(self, x, y, button=1):
        """A click of the real pointer at a place of the screen."""
        subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", str(button)],
                       env=self.env, check=True, timeout=30)

    def active_title(self):
        """Title of the window that the window manager gives the keys to; empty while there is none."""
        answer = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], env=self.env,
                                check=False, capture_output=True, text=True)
        return answer.stdout.strip()

    def key(self, name):
        """A press of a physical key."""
        subprocess.run(["xdotool", "key", name], env=self.env, check=True, timeout=30)

    def close(self):
        for program in reversed(self._programs):
            program.terminate()
            program.wait(START_SECONDS)
