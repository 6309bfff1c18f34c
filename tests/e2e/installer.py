# SPDX-License-Identifier: MIT
"""The test's side of the installer and the uninstaller: started silently, or driven through their
pages by pressing their buttons."""

import subprocess

from waiting import wait_until
from wine import windows_path

BM_CLICK = 0x00F5
DIALOG = "#32770"  # the class of pages and of messages
WS_DISABLED = 0x08000000
NEXT = 1      # the button that leads on, whatever is written on it
RETRY = 4
SECONDS = 60
RUNNING, NO_ROOM, NO_WRITING, WRONG_SWITCH = 3, 4, 5, 7  # exit codes, as docs/packaging.md has them


class Installer:
    def __init__(self, desktop, executable):
        self._desktop, self._probe = desktop, desktop.probe
        self._command = ["wine", str(executable)]
        self._process = None

    # Without a window.

    def run(self, *switches, **options):
        """Runs silently to its end; returns the exit code."""
        return subprocess.run([*self._command, "/S", *switches], env=self._desktop.env, check=False,
                              stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, timeout=SECONDS, **options).returncode

    # Through its pages.

    def open(self, *switches):
        self._process = subprocess.Popen([*self._command, *switches], env=self._desktop.env,
                                         stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                         stderr=subprocess.DEVNULL)
        return self._process

    def wait_for_end(self):
        return self._process.wait(SECONDS)

    def kill(self):
        if self._process and self._process.poll() is None:
            self._process.kill()
            self._process.wait(SECONDS)

    def windows(self):
        return [window for window in self._probe.windows() if window.class_name == DIALOG]

    def texts(self, window):
        return [child.caption for child in self._probe.children(window.handle)]

    def page(self, text):
        """The window once its page shows a text that begins so."""
        def shown():
            for window in self.windows():
                if any(one.startswith(text) for one in self.texts(window)):
                    return window
            return None
        return wait_until(shown, lambda: f"a page with {text!r}; there are " + repr(
            [self.texts(window) for window in self.windows()]), 30)

    def press(self, window, number=NEXT):
        """Presses a button, once it can be pressed."""
        button = wait_until(lambda: self._button(window, number), f"the button {number}")
        self._probe.post(button.handle, BM_CLICK)

    def _button(self, window, number):
        return next((child for child in self._probe.children(window.handle)
                     if child.control_id == number and not child.style & WS_DISABLED), None)


def registry(desktop, key):
    """The values of a key and of those below it, as the system's own tool lists them; empty when
    there is no such key."""
    path = desktop.prefix.folder / "registry.txt"
    path.unlink(missing_ok=True)
    subprocess.run(["wine", "reg", "export", key, windows_path(path), "/y"], env=desktop.env,
                   check=False, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL, timeout=SECONDS)
    return path.read_text("utf-16").replace("\\\\", "\\") if path.exists() else ""
