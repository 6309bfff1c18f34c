# SPDX-License-Identifier: MIT
"""Measures the whole program under Wine against an empty window built the same way, both in one
run: from start to the first painted content, the memory that it has written to, and the processor time
of an idle minute with the joystick polled. Prints each figure with its budget; the exit code is 0 when all are kept."""

import pathlib
import statistics
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))

from PIL import ImageGrab  # noqa: E402

from harness import new_desktop  # noqa: E402  (found through the line above)
from probe import WM_CLOSE  # noqa: E402
from waiting import wait_until  # noqa: E402
from wine import BUILD  # noqa: E402

ROUNDS = 7
IDLE_SECONDS = 60
INSIDE = (900, 60, 1200, 200)  # a part of the screen that both windows' contents cover
RATIO_BUDGET = 1.3  # of the times
MEMORY_BUDGET = 10 * 1024  # KiB
IDLE_BUDGET = 0.003  # of one core


def is_painted(display):
    picture = ImageGrab.grab(xdisplay=display.name).crop(INSIDE)
    return picture.convert("L").getextrema()[1] > 0  # the root window is black


def pid_of(executable):
    for folder in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            command = (folder / "cmdline").read_bytes().decode(errors="replace")
        except OSError:
            continue
        if command.split("\0")[0].replace("\\", "/").endswith("/" + executable):
            return int(folder.name)
    return None


def memory_kib(pid):
    """Memory that is the process's own; unwritten pages of files are not, the system can drop them."""
    rollup = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text(encoding="ascii")
    return next(int(line.split()[1]) for line in rollup.splitlines() if line.startswith("Private_Dirty:"))


def cpu_seconds(pid):
    """Of all threads. The process's own clock would count in steps of ten milliseconds."""
    return sum(int(path.read_text(encoding="ascii").split()[0])
               for path in pathlib.Path(f"/proc/{pid}/task").glob("*/schedstat")) / 1e9


class EmptyWindow:
    """The yardstick, with the parts of Program that are needed here."""

    def __init__(self, desktop):
        self._desktop = desktop
        self._process = None

    def launch(self):
        executable = BUILD / "win64" / "bench" / "empty_window.exe"
        self._process = subprocess.Popen(["wine", str(executable)], env=self._desktop.env,
                                         stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                         stderr=subprocess.DEVNULL)

    def end(self):
        window = self._desktop.probe.window(class_name="EmptyWindow")
        self._desktop.probe.post(window.handle, WM_CLOSE)
        self._process.wait(20)


class Taviro:
    def __init__(self, desktop):
        self._program = desktop.program(comfort=True)

    def launch(self):
        self._program.launch()

    def end(self):
        self._program.close()


def measure_once(desktop, subject, executable):
    wait_until(lambda: not is_painted(desktop.display), "an empty screen")
    begin = time.monotonic()
    subject.launch()
    wait_until(lambda: is_painted(desktop.display), "a painted window")
    seconds = time.monotonic() - begin
    pid = wait_until(lambda: pid_of(executable), "the process")
    memory = memory_kib(pid)
    subject.end()
    return seconds, memory


def idle_share(desktop):
    """Share of one core over an idle minute with the joystick polled."""
    program = desktop.program(build="win64", comfort=True)
    program.start()
    pid = pid_of("taviro.exe")
    first_read = program.standin.read_count()
    begin, used = time.monotonic(), cpu_seconds(pid)
    time.sleep(IDLE_SECONDS)  # the measured minute itself
    share = (cpu_seconds(pid) - used) / (time.monotonic() - begin)
    reads = program.standin.read_count() - first_read
    program.close()
    return share, reads


def report(name, value, budget, text):
    kept = value <= budget
    print(f"{name:42} {text:>34}  budget {budget:g}  {'kept' if kept else 'EXCEEDED'}", flush=True)
    return kept


def main():
    with new_desktop() as desktop:
        taviro, empty = Taviro(desktop), EmptyWindow(desktop)
        ours, theirs = [], []
        for _ in range(ROUNDS):
            theirs.append(measure_once(desktop, empty, "empty_window.exe"))
            ours.append(measure_once(desktop, taviro, "taviro.exe"))
    medians = [[statistics.median(row[n] for row in rows) for n in (0, 1)]
               for rows in (ours, theirs)]
    (our_time, our_memory), (their_time, their_memory) = medians
    with new_desktop() as desktop:
        share, reads = idle_share(desktop)
    size = (BUILD / "win64" / "taviro" / "taviro.exe").stat().st_size
    kept = [
        report("start to first painted map, ratio", our_time / their_time, RATIO_BUDGET,
               f"{our_time:.3f} s / {their_time:.3f} s = {our_time / their_time:.2f}"),
        report("private memory, KiB", our_memory, MEMORY_BUDGET,
               f"{our_memory}, an empty window {their_memory}"),
        report("processor, share of a core, idle minute", share, IDLE_BUDGET,
               f"{share:.4f} with {reads} reads"),
        report("program file, bytes", size, 3 * 1024 * 1024, f"{size}"),
    ]
    return 0 if all(kept) else 1


if __name__ == "__main__":
    sys.exit(main())
