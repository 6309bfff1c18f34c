# SPDX-License-Identifier: MIT
"""Damaged or unreadable files of the user: the program starts about as fast as ever, ends cleanly
and leaves what it cannot read as it is."""

import contextlib
import random
import shutil
import time

import pytest

from harness import Desktop
from wine import windows_path

EXTRA_SECONDS = 2.0
MEGABYTE = 1_000_000
UNREADABLE = ("read-only", "locked", "folder")  # for the settings: what cannot be replaced


def content_of(kind):
    if kind == "binary":
        return random.Random(1).randbytes(MEGABYTE)
    if kind == "100 MB":
        line = b"[2,1]b,66\r\n"
        return line * (100 * MEGABYTE // len(line))
    if kind == "long line":
        return b"[1,1]" + b"x" * (10 * MEGABYTE) + b",65\r\n"
    return b"" if kind == "empty" else b"[1,1]x,65\r\n"


def spoil(program, kind, path):
    """Puts the file in place; returns what is there, None for a folder."""
    if path.exists():
        path.unlink()
    if kind == "folder":
        path.mkdir()
        return None
    content = content_of(kind)
    path.write_bytes(content)
    if kind == "read-only":
        path.chmod(0o444)
    if kind == "locked":
        program.probe.lock(windows_path(path))
    return content


@pytest.fixture(scope="module")
def program(display):
    """One program for all files, because each start takes a fresh look at them."""
    with contextlib.closing(Desktop(display)) as opened:
        yield opened.program()


@pytest.mark.timed
@pytest.mark.parametrize("kind", ["empty", "binary", "100 MB", "long line", "read-only", "locked",
                                  "folder"])
@pytest.mark.parametrize("name", ["data.ini", "setting.ini", "comfort.ini"])
def test_bad_file_delays_no_start_and_is_left_alone(program, normal_start_seconds, name, kind):
    shutil.rmtree(program.data_folder, ignore_errors=True)
    program.data_folder.parent.mkdir(parents=True, exist_ok=True)
    shutil.copytree(program.folder / "data", program.data_folder)
    path = program.data_folder / name
    content = spoil(program, kind, path)

    begin = time.monotonic()
    program.start()
    assert time.monotonic() - begin < normal_start_seconds + EXTRA_SECONDS
    program.standin.wait_for_poll()
    assert program.close() == 0

    if kind == "folder":
        assert path.is_dir() and not list(path.iterdir())
    elif name != "setting.ini" or kind in UNREADABLE:
        assert path.read_bytes() == content
    assert not [left.name for left in program.data_folder.iterdir()
                if left.suffix not in (".ini", ".txt")], "a temporary file was left behind"
