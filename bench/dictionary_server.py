# SPDX-License-Identifier: MIT
"""Measures the dictionary's server under Wine: from its start to its first answer, against a server
that does nothing, and its own memory, with the delivered dictionary: for a new user, and for one whose
store of learned words is full. Prints each figure with its budget; the exit code is 0 when all are
kept."""

import contextlib
import itertools
import pathlib
import re
import statistics
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))

from dictionary import (CLASS, DONE, SERVER, Client, data_folder, own_memory_kib,  # noqa: E402
                        server_process)
from gui_object import EMPTY_CLASS  # noqa: E402
from harness import new_desktop  # noqa: E402
from waiting import wait_until  # noqa: E402
from wine import BUILD  # noqa: E402

ROUNDS = 5
EMPTY_SERVER = "empty_server.exe"
START_BUDGET = 150  # milliseconds, or what the empty server takes and half as much again
MEMORY_BUDGET = 15 * 1024  # KiB
PREFIX = "dob"


def report(name, text, kept):
    print(f"{name:36} {text:>44}  {'kept' if kept else 'EXCEEDED'}", flush=True)
    return kept


def start(program, server, class_id, prefix):
    """Milliseconds to the first answer, and the server's memory then."""
    with contextlib.closing(Client(program.environment)) as client:
        code, ready, first = client.start(server, class_id, prefix)
        assert code == DONE, code
        name = pathlib.Path(server).name
        memory = own_memory_kib(server_process(program, name))
    wait_until(lambda: server_process(program, name) is None, "the server's end", 20)
    return ready + first, memory


def fill_store(program):
    """As many words and pairs as the server keeps, of those in the tables, in the order in which it
    writes them."""
    source = (ROOT / "predictor" / "learned.h").read_text(encoding="utf-8")
    most_words, most_pairs = (int(re.search(rf"MOST_{name}_KEPT = (\d+)", source)[1])
                              for name in ("WORDS", "PAIRS"))
    table = (ROOT / "predictor" / "data" / "words.tsv").read_text(encoding="utf-8")
    words = [word for word in re.findall(r"^([^\t\n]+)\t", table, re.MULTILINE)
             if word.isalpha() and len(word) > 2][:most_words]
    followers = itertools.cycle(words)
    lines = ["Taviro learned words 1"]
    for number, word in enumerate(sorted(words)):
        lines.append(f"{200 + number % 900} {word}")
        count = (number + 1) * most_pairs // most_words - number * most_pairs // most_words
        lines += [f"{100 + number % 700} ={follower}"
                  for follower in sorted(itertools.islice(followers, count))]
    path = data_folder(program) / "learned.txt"
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text("\n".join(lines) + "\n", encoding="utf-8")


def measure(program, whose):
    rounds = [(*start(program, program.folder / SERVER, CLASS, PREFIX),
               *start(program, BUILD / "win64" / "bench" / EMPTY_SERVER, EMPTY_CLASS, ""))
              for _ in range(ROUNDS)]
    time, memory, empty_time, empty_memory = map(statistics.median, zip(*rounds))
    return [
        report(f"start to first answer, {whose}", f"{time:.0f} ms, an empty server {empty_time:.0f} ms",
               time <= max(START_BUDGET, 1.5 * empty_time)),
        report(f"own memory, {whose}", f"{memory:.0f} KiB, an empty server {empty_memory:.0f} KiB",
               memory <= MEMORY_BUDGET),
    ]


def main():
    with new_desktop() as desktop:
        program = desktop.program()
        kept = measure(program, "new user")
        fill_store(program)
        kept += measure(program, "full store")
    return 0 if all(kept) else 1


if __name__ == "__main__":
    sys.exit(main())
