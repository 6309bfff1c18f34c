# SPDX-License-Identifier: MIT
"""The test's side of the stand-in speech engine, reader and relay: registers them in the prefix,
tells them how to answer and reads what was asked of them. The library is automation/."""

import re

from waiting import wait_until
from wine import BUILD, windows_path

# As in automation/servers.cpp.
CLASSES = {
    "SAPI.SpVoice": "{6B1F2A30-52C4-4D0E-9C37-2F8E105A7D01}",
    "Parlex.app": "{6B1F2A30-52C4-4D0E-9C37-2F8E105A7D02}",
    "Relayer.Voice": "{6B1F2A30-52C4-4D0E-9C37-2F8E105A7D03}",
}
# The system's newer store of voices, which not every system has.
NEWER_CLASSES = {"SAPI.SpObjectTokenCategory": "{6B1F2A30-52C4-4D0E-9C37-2F8E105A7D04}"}
NEWER_VOICE = "Nový hlas"
VOICES = ("Hlas první", "Hlas druhý", "Hlas třetí")
VIEWS = {"win64": "64", "win32": "32"}
ESCAPES = {"\\\\": "\\", "\\n": "\n", "\\r": "\r"}


def spoken(text, pitch=0):
    """The transcript's line of a text that the engine is asked to speak at once."""
    return f'SAPI.SpVoice.Speak(bstr "<pitch absmiddle="{pitch}">{text}", i4 11)'


def read_out(text):
    """The transcript's line of a text that the reader is asked to speak at once."""
    return f'Parlex.app.Sayit(&bstr "{text}")'


RELAY_QUIETED = "Relayer.Voice.Voice(bstr null, i2 0, i2 4)"


class Automation:
    """Registered from the start; every Taviro that is started with it can create the objects."""

    def __init__(self, prefix, probe, builds=("win64",), newer=False):
        self.folder = prefix.folder / "automation"
        self.folder.mkdir()
        self._taken = 0
        for build in builds:
            library = windows_path(BUILD / build / "e2e" / "automation_standin.dll")
            classes = CLASSES | NEWER_CLASSES if newer else CLASSES
            for prog_id, class_id in classes.items():
                self._register(probe, VIEWS[build], prog_id, class_id, library)

    @staticmethod
    def _register(probe, view, prog_id, class_id, library):
        classes = r"Software\Classes"
        probe.register(view, rf"{classes}\{prog_id}\CLSID", class_id)
        probe.register(view, rf"{classes}\CLSID\{class_id}\ProgID", prog_id)
        probe.register(view, rf"{classes}\CLSID\{class_id}\InprocServer32", library)

    def serve(self, program):
        """Lets the program find the transcript's folder."""
        program.environment["TAVIRO_AUTOMATION"] = windows_path(self.folder)

    def behave(self, how):
        """How the engine and the reader answer from now on: "" as they should, "fail", "throw",
        "gone" or "block MILLISECONDS"."""
        new = self.folder / "behaviour.new"
        new.write_text(how, encoding="ascii")
        new.replace(self.folder / "behaviour.txt")  # in one step: a call may read it right now

    def calls(self):
        """All calls so far, one line each."""
        path = self.folder / "calls.txt"
        if not path.exists():
            return []
        text = path.read_bytes().decode("utf-8")
        complete = text[:text.rfind("\n") + 1]
        return [re.sub(r"\\.", lambda found: ESCAPES[found[0]], line)
                for line in complete.split("\n")[:-1]]

    def take(self):
        """The calls since the last take."""
        calls = self.calls()
        new = calls[self._taken:]
        self._taken = len(calls)
        return new

    def expect(self, *lines):
        """Waits for as many calls since the last take as there are lines, which must be these."""
        wait_until(lambda: len(self.calls()) >= self._taken + len(lines),
                   lambda: f"the calls {list(lines)}; there were {self.calls()[self._taken:]}")
        assert self.take() == list(lines)
