# SPDX-License-Identifier: MIT
"""log.txt: what a run through all modes leaves there, to the byte, and what becomes of it when the
file cannot be written."""

import re

from dialogs import FIRST_ENTRY, LOG_ENTRY, WM_COMMAND
from waiting import wait_until
from wine import windows_path

ACTION, MODE = 0, 1
DATE_LINE = re.compile(rb"\d{1,2}\. ?\d{1,2}\. ?\d{4} \d{1,2}:\d{2}:\d{2}")
TIME = re.compile(rb"\d{2}:\d{2}:\d{2} ")
EVENTS = [
    "Say: žluť", "Say: ", "Say: Šipky", "Arrow mode set", "Arrow left", "Say: Sken", "ScanMode set",
    "Say: a", "Say: a", "AppMode set", "Say: aplikace první", "Say: výběr a", "Say: Šipky",
    "Arrow mode set",
]


def block(events):
    """What one block of the log holds, without its times."""
    return ["the date", *events]


def lines_of(log):
    """The log's lines without their times, each of which must be where it belongs."""
    *lines, after_last = log.read_bytes().split(b"\r\n")
    assert after_last == b""
    assert all(DATE_LINE.fullmatch(line) or TIME.match(line) for line in lines), lines
    return ["the date" if DATE_LINE.fullmatch(line) else TIME.sub(b"", line, 1).decode("cp1250")
            for line in lines]


def toggle(desktop, window):
    desktop.probe.send(window.handle, WM_COMMAND, FIRST_ENTRY + LOG_ENTRY)


def test_log_holds_a_block_for_each_time_it_was_on(desktop):
    program = desktop.program()
    program.use_sounds()
    program.use_map([("a", 65), ("žluť", 66)])
    program.use_map([("první", 65)], app="NOTEPAD.EXE")
    program.use_settings(Log=1, ScanMode=1, RowWrap=1)
    log = program.data_folder / "log.txt"
    desktop.editor()
    window = program.start()
    stick = program.standin

    stick.tilt("right")
    stick.press(ACTION)
    stick.press(MODE)
    stick.tilt("left")
    stick.press(MODE)
    stick.tilt("right")
    stick.press(MODE)
    stick.press(MODE)
    stick.press(MODE)
    assert not log.exists()
    toggle(desktop, window)
    first = block(EVENTS)
    assert lines_of(log) == first
    stick.press(MODE)  # not logged
    assert program.close() == 0
    assert lines_of(log) == first + first  # the end writes the last block again
    assert b"\r\nLog=0\r\n" in program.setting_file().read_bytes()

    window = program.start()
    toggle(desktop, window)
    stick.tilt("right")
    desktop.probe.lock(windows_path(log))
    toggle(desktop, window)
    desktop.probe.unlock(windows_path(log))
    assert lines_of(log) == first + first
    stick.tilt("right")
    wait_until(lambda: program.highlighted() == "a", "the program going on")
    assert program.close() == 0
    assert lines_of(log) == first + first + block(["Say: žluť"])


def test_log_names_what_is_wrong_with_both_comfort_files(desktop):
    program = desktop.program(comfort=True)
    program.use_settings(Log=1)
    delivered = program.folder / "comfort.ini"
    delivered.write_bytes(delivered.read_bytes() + b"Wach=1\r\n")
    last_line = len(delivered.read_bytes().splitlines())
    users = program.data_folder / "comfort.ini"
    users.write_bytes(b"[Stick]\r\nWatch=5\r\n")
    program.start()
    program.standin.wait_for_poll()
    assert program.close() == 0
    told = [line for line in lines_of(program.data_folder / "log.txt") if "comfort.ini" in line]
    assert [line.rpartition("\\")[2] for line in told] == [
        "comfort.ini, line 2: [Stick] Watch=5 is out of range, 1 counts (0 or 1)",
        f"comfort.ini, line {last_line}: [Windows] Wach is no key"]
    assert "v2.2\\taviro\\" in told[0] and "v2.2" not in told[1]
    assert users.read_bytes() == b"[Stick]\r\nWatch=5\r\n"
