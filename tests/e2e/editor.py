# SPDX-License-Identifier: MIT
"""A real text editor, Wine's notepad, into which Taviro types."""

import subprocess

from waiting import wait_until


class Editor:
    def __init__(self, probe, env, place=(10, 40, 420, 300)):
        self._probe = probe
        self._program = subprocess.Popen(["wine", "notepad"], env=env, stdin=subprocess.DEVNULL,
                                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.window = wait_until(lambda: probe.window(class_name="Notepad"), "the editor's window",
                                 30)
        self._edit = wait_until(self._find_edit, "the editor's text field")
        probe.place(self.window.handle, *place)
        self.activate()

    def _find_edit(self):
        return next((child.handle for child in self._probe.children(self.window.handle)
                     if child.class_name == "Edit"), None)

    def activate(self):
        self._probe.activate(self.window.handle)
        wait_until(self.has_focus, "the editor in the foreground")

    def wait_for_keyboard(self, display):
        """Waits until physical keys go to the editor. Wine's own foreground is not enough: the window
        manager follows it, and a window that has just come up, in its own time."""
        self.activate()
        wait_until(lambda: display.active_title() == self._title(),
                   lambda: f"the editor as the active window, which is {display.active_title()!r}")

    def _title(self):
        return self._probe.window(class_name="Notepad").caption

    def has_focus(self):
        return self._probe.foreground() == self.window.handle

    def text(self):
        return self._probe.text(self._edit)

    def wait_for_text(self, expected, seconds=10.0):
        wait_until(lambda: self.text() == expected,
                   lambda: f"the text {expected!r} in the editor, which holds {self.text()!r}",
                   seconds)

    def close(self):
        self._program.kill()  # without the question whether to save
        self._program.wait(20)
