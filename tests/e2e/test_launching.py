# SPDX-License-Identifier: MIT
"""Cells that start programs and open documents. The programs are copies of a recorder, which tells
how it was called."""

import shutil

from builds import for_every_build
from standin import CENTRE, PRESSED, TILTS
from waiting import wait_until
from wine import BUILD, windows_path


class Recorder:
    """Copies of the recorder program and what they were called with."""

    def __init__(self, desktop, program):
        self._probe = desktop.probe
        self._system = desktop.prefix.path / "drive_c" / "windows"
        self._file = desktop.prefix.folder / "launched.txt"
        self._taken = 0
        program.environment["TAVIRO_RECORDER"] = windows_path(self._file)

    def install(self, path):
        path.parent.mkdir(exist_ok=True)
        shutil.copy2(BUILD / "win64" / "e2e" / "recorder.exe", path)
        return windows_path(path)

    def install_in_system(self, name, folder="system32"):
        self.install(self._system / folder / name)

    def open_documents(self, extension, program):
        """Registers an installed copy as the program of a kind of document."""
        classes = r"Software\Classes"
        self._probe.register("64", rf"{classes}\.{extension}", f"{extension}file")
        self._probe.register("64", rf"{classes}\{extension}file\shell\open\command",
                             f'"{program}" "%1"')

    def _lines(self):
        text = self._file.read_bytes().decode("utf-8") if self._file.exists() else ""
        return text.split("\n")[self._taken:-1]

    def _take(self):
        line = wait_until(self._lines, "a program that starts")[0]
        self._taken += 1
        return line.split("\t", 1)

    def take_folder(self):
        """The folder of the next copy that was run."""
        return self._take()[0].rsplit("\\", 2)[-2].lower()

    def take(self):
        """The name of the next copy that was run, and its arguments as written."""
        path, command_line = self._take()
        name = path.rsplit("\\", 1)[-1]
        quoted = command_line.startswith('"')
        end = command_line.index('"', 1) + 1 if quoted else (command_line + " ").index(" ")
        return name, command_line[end:].strip(" ")

    def has_none(self):
        return not self._lines()


@for_every_build
def test_screen_keyboard_is_that_of_the_systems_own_folder(desktop, build):
    """A program of 32 bits is shown another folder in its place."""
    program = desktop.program(build=build)
    recorder = Recorder(desktop, program)
    recorder.install_in_system("osk.exe")
    recorder.install_in_system("osk.exe", folder="syswow64")
    program.use_map([("start", 27), ("k", 0, "osk"), ("K", 0, "osk.exe")])
    desktop.editor()
    program.start()
    program.standin.wait_for_poll()
    for _ in range(2):
        program.press_next()
        assert recorder.take_folder() in ("system32", "sysnative")
    assert program.close() == 0


def test_cells_and_list_entries_launch_what_they_say(desktop):
    program = desktop.program()
    recorder = Recorder(desktop, program)
    recorder.install_in_system("rec.exe")
    recorder.install_in_system("c.exe")
    inside = recorder.install(program.folder / "inside.exe")
    recorder.install(program.folder / "my games" / "x y.exe")
    recorder.open_documents("tvdoc", inside)
    paper = program.folder / "můj list.tvdoc"
    paper.write_bytes(b"")
    launches = [
        ("rec", ("rec.exe", "")),
        ("rec:c.txt d", ("rec.exe", "c.txt d")),
        (f'"{inside}"', ("inside.exe", "")),
        (r"C:\games\x y", ("c.exe", r"\games\x y")),  # split at the drive's colon
        (r"\inside.exe", ("inside.exe", "")),
        (r"\my games\x y.exe:1, 2", ("x y.exe", "1, 2")),
        (r"\můj list.tvdoc", ("inside.exe", f'"{windows_path(paper)}"')),
    ]
    futile = ["", "no_such_program", r"\missing.exe", r"\missing.tvdoc", "rec*", "?"]
    # A futile one stands before each that tells when it is through.
    rows = [("start", 27)]
    for n, (command, _) in enumerate(launches):
        rows += [(f"f{n}", 0, futile[n] if n < len(futile) else ""), (f"l{n}", 0, command)]
    entries = {
        r"\inside.exe(c.txt (d))": ("inside.exe", "c.txt (d"),
        " rec( a, b ) ": ("rec.exe", "a, b"),
        "no_such_program(x)": None,
        "rec(C:": ("rec.exe", ""),  # no ")" after it
    }
    choices = "*Programy;" + ";".join(f"p{n},{entry}" for n, entry in enumerate(entries))
    program.use_map(rows + [("r^", 0, "r^ec:y^z"), ("x", 88)], [("seznam", 0, choices)])
    editor = desktop.editor()
    program.start()
    program.standin.wait_for_poll()
    windows = {window.handle for window in desktop.probe.windows()}

    for _, expected in launches:
        program.press_next(2)
        assert recorder.take() == expected
        assert desktop.probe.keys_down() == []
    program.press_next()
    assert recorder.take() == ("rec.exe", "y^z")
    program.standin.tilt("right")  # "^" has sent the highlight to the first column
    assert program.highlighted() == "f0"

    program.standin.tilt("down")
    for row, expected in enumerate(entries.values()):
        steps = [TILTS["down"], CENTRE] * row
        program.standin.play(PRESSED, CENTRE, *steps, PRESSED, CENTRE)
        if expected:
            assert recorder.take() == expected
    assert recorder.has_none()
    assert {window.handle for window in desktop.probe.windows()} == windows
    assert editor.has_focus()
    program.position = (1, 2)
    program.run_cell(program.map().find("x")[0])
    editor.wait_for_text("x")
    assert desktop.probe.keys_down() == []
    assert program.close() == 0
