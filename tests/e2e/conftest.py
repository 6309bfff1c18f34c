# SPDX-License-Identifier: MIT
import contextlib
import time

import pytest

from display import Display
from harness import Desktop
from wine import ROOT, has_modules32


def pytest_collection_modifyitems(items):
    if not has_modules32():
        for item in items:
            if item.get_closest_marker("x86"):
                item.add_marker(pytest.mark.skip(reason="Wine's 32-bit modules cannot be had"))


@pytest.fixture(scope="session")
def display():
    with contextlib.closing(Display()) as opened:
        yield opened


@pytest.hookimpl(hookwrapper=True)
def pytest_runtest_makereport(item, call):
    outcome = yield
    report = outcome.get_result()
    if report.when == "call" and report.failed:
        item.stash[FAILED] = True


FAILED = pytest.StashKey()


@pytest.fixture
def desktop(display, request):
    """A fresh desktop; a picture of it is left in out/e2e when the test fails."""
    with contextlib.closing(Desktop(display)) as opened:
        yield opened
        if request.node.stash.get(FAILED, False):
            folder = ROOT / "out" / "e2e"
            folder.mkdir(parents=True, exist_ok=True)
            display.screenshot(folder / f"{request.node.name}.png")


@pytest.fixture(scope="session")
def normal_start_seconds(display):
    """How long the program takes to show its window with the delivered files."""
    with contextlib.closing(Desktop(display)) as opened:
        program = opened.program()
        begin = time.monotonic()
        program.start()
        return time.monotonic() - begin
