# SPDX-License-Identifier: MIT
"""The test's side of desktop_probe.exe, which looks at the desktop from inside Wine."""

import contextlib
import dataclasses
import re
import subprocess

WS_EX_TOPMOST = 0x00000008
WM_CLOSE = 0x0010
ESCAPES = {"t": "\t", "n": "\n", "r": "\r"}


class ProbeError(Exception):
    """The probe could not do what it was asked."""


@dataclasses.dataclass(frozen=True)
class Window:
    handle: int
    process: int
    class_name: str
    left: int
    top: int
    right: int
    bottom: int
    style: int
    extended_style: int
    control_id: int
    caption: str


def _escape(field):
    return (str(field).replace("\\", "\\\\").replace("\t", "\\t").replace("\n", "\\n")
            .replace("\r", "\\r"))


def _unescape(field):
    return re.sub(r"\\(.)", lambda found: ESCAPES.get(found[1], found[1]), field)


class Probe:
    def __init__(self, executable, env):
        self._program = subprocess.Popen(["wine", str(executable)], env=env, encoding="utf-8",
                                         stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                         stderr=subprocess.DEVNULL)

    def ask(self, *fields):
        """Sends one command, returns the answer's lines as lists of fields."""
        self._tell(fields)
        return self._answer(fields)

    def _tell(self, fields):
        self._program.stdin.write("\t".join(map(_escape, fields)) + "\n")
        self._program.stdin.flush()

    def _answer(self, fields):
        answer = []
        while True:
            line = self._program.stdout.readline()
            if line.startswith(" "):
                answer.append([_unescape(field) for field in line[1:-1].split("\t")])
            elif line == "ok\n":
                return answer
            else:
                raise ProbeError(f"{fields}: {line.strip() or 'the probe ended'}")

    @staticmethod
    def _window(fields):
        return Window(int(fields[0]), int(fields[1]), fields[2], *map(int, fields[3:10]),
                      fields[10])

    def windows(self):
        """The visible top-level windows, the topmost first."""
        return [self._window(fields) for fields in self.ask("windows")]

    def children(self, handle):
        return [self._window(fields) for fields in self.ask("children", handle)]

    def window(self, caption=None, class_name=None):
        """The first visible window whose caption starts so and whose class is this, or None."""
        for window in self.windows():
            if ((caption is None or window.caption.startswith(caption))
                    and (class_name is None or window.class_name == class_name)):
                return window
        return None

    def client_origin(self, handle):
        """Where the inner area of a window begins on the screen."""
        return tuple(map(int, self.ask("client", handle)[0][:2]))

    def client_size(self, handle):
        return tuple(map(int, self.ask("client", handle)[0][2:]))

    def foreground(self):
        return int(self.ask("foreground")[0][0])

    def activate(self, handle):
        self.ask("activate", handle)

    def place(self, handle, x, y, width, height):
        self.ask("place", handle, x, y, width, height)

    def text(self, handle):
        return self.ask("gettext", handle)[0][0]

    def set_text(self, handle, text):
        self.ask("settext", handle, text)

    def post(self, handle, message, wparam=0, lparam=0):
        self.ask("post", handle, message, wparam, lparam)

    def send(self, handle, message, wparam=0, lparam=0):
        return int(self.ask("send", handle, message, wparam, lparam)[0][0])

    @contextlib.contextmanager
    def watching_caption(self, handle, milliseconds):
        """A list that, after the block, holds (tick, caption) of the window's caption now and of
        each that it took during the time."""
        seen = []
        command = ("watch", handle, milliseconds)
        self._tell(command)
        first = self._program.stdout.readline()  # the watch has begun
        tick, caption = first[1:-1].split("\t")
        seen.append((int(tick), _unescape(caption)))
        yield seen
        seen += [(int(tick), caption) for tick, caption in self._answer(command)]

    def keys_down(self):
        return [int(fields[0]) for fields in self.ask("keysdown")]

    def register(self, view, key, value):
        """Stores a key's default value in the machine's registry, as 64- or 32-bit programs see
        it."""
        self.ask("register", view, key, value)

    def open_hidden(self, class_name, title):
        """Opens a top-level window that nobody sees; returns its handle."""
        return int(self.ask("openhidden", class_name, title)[0][0])

    def lock(self, windows_path):
        self.ask("lock", windows_path)

    def unlock(self, windows_path):
        self.ask("unlock", windows_path)

    def code_pages(self):
        return tuple(map(int, self.ask("codepages")[0]))

    def close(self):
        self._program.stdin.close()
        self._program.wait(20)
        self._program.stdout.close()
