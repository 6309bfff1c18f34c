# SPDX-License-Identifier: MIT
"""Breaks the code one place at a time and tells what no test noticed; docs/mutants.md says more."""

import argparse
import math
import pathlib
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).parent))

import breaks as breaking
import building
import report
import running
import unnoticeable
from folders import BUILD, FOLDERS, ROOT, folder_of, tree_files

LIST = ROOT / "tests" / "mutants" / "unnoticeable.txt"
DEFAULT_SHARE = 0.4    # of all places, what a run breaks unless it is told to break all
SAMPLE_BREAKS = 400    # in all folders together, for the run with a time limit
SAMPLE_LEAST = 0.94    # of them, what must be noticed: 94.5 % when it was measured; only to be raised


def parse(arguments):
    parser = argparse.ArgumentParser(prog="./test mutants", description=__doc__)
    parser.add_argument("where", nargs="*", help="folders or files; all folders without one")
    parser.add_argument("--all", action="store_true", help="every place, not only the chosen ones")
    parser.add_argument("--sample", action="store_true",
                        help=f"{SAMPLE_BREAKS} places of all folders, at most 8 minutes")
    parser.add_argument("--survivors", action="store_true", help="only those that survived last time")
    parser.add_argument("--only", metavar="NAME", help="one break, with what the tests say")
    parser.add_argument("--count", action="store_true",
                        help="say how many passed and failed, as the other suites do")
    parser.add_argument("--jobs", type=int, default=2)
    options = parser.parse_args(arguments)
    for place in options.where:
        if place not in FOLDERS and not (ROOT / place).is_file():
            parser.error(f"{place}: neither a file nor one of {' '.join(FOLDERS)}")
    return options


def enough(items, code_lines):
    """The share that the names choose; more when that is less than one for four lines."""
    chosen = breaking.sample(items, DEFAULT_SHARE)
    least = math.ceil(code_lines / 4)
    if len(chosen) < least:
        chosen = sorted(items, key=lambda item: item.id)[:least]
    sorts = {item.sort for item in chosen}
    for sort in breaking.SORTS:  # of every sort at least one
        of_sort = [item for item in items if item.sort == sort]
        if of_sort and sort not in sorts:
            chosen = [*chosen, min(of_sort, key=lambda item: item.id)]
    names = {item.id for item in chosen}
    return [item for item in items if item.id in names]


def select(options, found, compiled):
    """{folder: the breaks that this run tries}"""
    chosen = {}
    for folder in FOLDERS:
        files = [file for file in found if folder_of(file["name"]) == folder]
        items = [item for file in files for item in compiled[file["name"]]]
        if not options.all:
            items = enough(items, sum(file["code_lines"] for file in files))
        asked = [item for item in items
                 if not options.where or folder in options.where or item.file in options.where]
        if options.survivors:
            names = report.last_survivors()
            asked = [item for item in asked if item.id in names]
        if asked:
            chosen[folder] = asked
    if options.sample:
        among = sorted((item for items in chosen.values() for item in items), key=lambda item: item.id)
        names = {item.id for item in among[:SAMPLE_BREAKS]}
        chosen = {folder: [item for item in items if item.id in names]
                  for folder, items in chosen.items()}
    return chosen


def say(text):
    print(text, file=sys.stderr, flush=True)


def show_one(name, compiled, reach):
    """Runs one break and shows what the tests print."""
    item = next((item for items in compiled.values() for item in items if item.id == name), None)
    if item is None:
        say(f"no break is called {name}")
        return 2
    scratch = BUILD / "scratch"
    scratch.mkdir(parents=True, exist_ok=True)
    result = running.run_one(item, reach, set(reach.cost), scratch, show=True)
    print(f"{report.survivor_line(item, result)}: {result[0]}")
    return 0


class Progress:
    """Says now and then how far a run is."""

    def __init__(self, total):
        self.total, self.count, self.started = total, 0, time.monotonic()

    def tell(self, _item, _result):
        self.count += 1
        if self.count % 50 == 0:
            say(f"{self.count} of {self.total} after {time.monotonic() - self.started:.0f} s")


def stale_entries(listed, chosen, compiled, results):
    files = {item.file for items in chosen.values() for item in items}
    existing = {item.id: item for items in compiled.values() for item in items}
    noticed = {name for name, (fate, _) in results.items() if fate == running.NOTICED}
    return [f"{LIST.relative_to(ROOT)}: {complaint}"
            for complaint in unnoticeable.stale(listed, existing, files, noticed)]


def run(options, found, compiled, reach):
    """Tries the breaks that are asked for; fails when one survived that is not listed."""
    listed = unnoticeable.read(LIST.read_text(encoding="utf-8")) if LIST.exists() else {}
    chosen = select(options, found, compiled)
    progress = Progress(sum(map(len, chosen.values())))
    complaints, closing, results = [], [], {}
    for folder, items in chosen.items():
        of_folder = running.run(items, reach, options.jobs, progress.tell)
        results |= of_folder
        lines = report.folder_report(folder, items, of_folder, listed)
        print("\n".join(lines[:-1]), flush=True)
        closing.append(lines[-1])
        whole = not (options.survivors or options.sample) and options.where in ([], [folder])
        report.keep(folder if whole else f"{folder}.part", lines, of_folder)
        if whole:
            code_lines = sum(file["code_lines"] for file in found
                             if folder_of(file["name"]) == folder)
            complaints += report.density_complaints(folder, len(items), code_lines)
    complaints += stale_entries(listed, chosen, compiled, results)
    noticed = sum(fate == running.NOTICED for fate, _ in results.values())
    if options.sample:
        failed = report.sample_complaints(len(results), noticed, SAMPLE_LEAST)
        complaints += failed
    else:
        failed = [name for name, (fate, _) in results.items()
                  if fate != running.NOTICED and name not in listed]
    print("\n".join(complaints), end="\n" if complaints else "")
    if options.count:
        print(f"{noticed} passed, {max(len(failed), len(complaints))} failed")
    print("\n".join(closing))
    return int(bool(failed or complaints))


def main(arguments):
    options = parse(arguments)
    names = tree_files()
    found, compiled = building.build(names, options.jobs, say)
    reach = running.record()
    for test in reach.failing:
        say(f"fails with nothing broken, so it is not asked: {test}")
    if options.only:
        return show_one(options.only, compiled, reach)
    return run(options, found, compiled, reach)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
