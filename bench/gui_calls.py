# SPDX-License-Identifier: MIT
"""Measures calls to the automation object from another process under Wine: how many simple calls a
second, against a server of the same interface that does nothing, and what 10,000 calls leave behind.
Prints each figure with its budget; the exit code is 0 when all are kept."""

import contextlib
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))

from gui_object import (EMPTY_CLASS, Client, order, register_empty_server,  # noqa: E402
                        resident_kib)
from harness import new_desktop  # noqa: E402

ROUNDS, CALLS = 5, 2000
CALLS_BUDGET = 1000  # a second, or half of what the empty server reaches
STORM_ROUNDS, CALLS_IN_ROUND = 1700, 7
MEMORY_BUDGET = 256  # KiB


def report(name, text, kept):
    print(f"{name:36} {text:>44}  {'kept' if kept else 'EXCEEDED'}", flush=True)
    return kept


def main():
    with new_desktop() as desktop:
        program = desktop.program()
        order(program, "/regserver:machine")
        register_empty_server(desktop.probe)
        window = program.start()
        with contextlib.closing(Client(program.environment)) as ours, \
                contextlib.closing(Client(program.environment)) as empty:
            ours.create()
            empty.create(EMPTY_CLASS)
            ours_best, empty_best = map(max, zip(*((ours.speed(CALLS), empty.speed(CALLS))
                                                   for _ in range(ROUNDS))))
            ours.result("storm", STORM_ROUNDS, window.handle)  # fills caches and heaps
            handles, memory = ours.handles(window.process), resident_kib(program)
            ours.result("storm", STORM_ROUNDS, window.handle)
            more_handles = ours.handles(window.process) - handles
            more_memory = resident_kib(program) - memory
            ours.result("Quit")
            program.wait_for_end()
    calls = STORM_ROUNDS * CALLS_IN_ROUND
    kept = [
        report("simple calls a second", f"{ours_best}, the empty server {empty_best}",
               ours_best >= min(CALLS_BUDGET, empty_best / 2)),
        report(f"handles after {calls} calls", f"{more_handles} more", more_handles <= 0),
        report(f"memory after {calls} calls", f"{more_memory} KiB more",
               more_memory <= MEMORY_BUDGET),
    ]
    return 0 if all(kept) else 1


if __name__ == "__main__":
    sys.exit(main())
