# SPDX-License-Identifier: MIT
"""Runs the tests: once to learn which breaks each of them reaches, then for each break those that
reach it, the cheapest first, until one notices."""

import collections
import concurrent.futures
import dataclasses
import os
import re
import resource
import subprocess

from building import PROGRAM, TREE
from folders import BUILD, ROOT

RECORD = BUILD / "reached.txt"
FIRST_TESTS = 40          # what is tried before the many others
MOST_NOTICERS = 12        # tests that noticed others of the file and are asked before all
SLOW_MS = 150             # tests that take longer come last
MOST_MEMORY = 3 << 30     # bytes; a break may ask for ever more
TOO_SLOW_MS = 2000        # what takes longer without optimisation measures time, not rules
SPARE_SECONDS = 2         # beyond five times what the tests took when nothing was broken
NOTICED, SURVIVED, NOT_REACHED = "noticed", "survived", "not reached"


@dataclasses.dataclass
class Reach:
    """Which tests reach which breaks, and what each test costs in ms."""
    tests: dict       # break's number: names of tests
    everywhere: set   # numbers that are asked for before any test starts
    cost: dict
    failing: list     # tests that fail with nothing broken, so that they tell nothing


def _environment(**more):
    return dict(os.environ, TAVIRO_SCENARIOS=str(ROOT / "tests" / "scenarios"), **more)


def too_slow(text):
    """The lines of a record about tests that are not asked."""
    return [line for line in text.splitlines()
            if line[0] in "+!" and int(line.split(" ", 2)[1]) > TOO_SLOW_MS]


def record():
    """Runs all tests with nothing broken; not again when the program is no newer than the record, and
    without those that were too slow the last time."""
    if not RECORD.exists() or RECORD.stat().st_mtime < PROGRAM.stat().st_mtime:
        slow = too_slow(RECORD.read_text(encoding="utf-8")) if RECORD.exists() else []
        fresh = RECORD.with_suffix(".new")
        passed_over = "--gtest_filter=*-" + ":".join(line.split(" ")[0][1:] for line in slow)
        subprocess.run([str(PROGRAM), *([passed_over] if slow else [])], cwd=TREE, check=False,
                       stdout=subprocess.DEVNULL, env=_environment(TAVIRO_MUTANT_RECORD=str(fresh)))
        with fresh.open("a", encoding="utf-8") as file:
            file.writelines(f"{line}\n" for line in slow)
        os.replace(fresh, RECORD)
    return read_record(RECORD.read_text(encoding="utf-8"))


def read_record(text):
    reach = Reach({}, set(), {}, [])
    for line in text.splitlines():
        name, cost, *numbers = line.split(" ")
        if name == "-":
            reach.everywhere = {int(number) for number in numbers}
            continue
        if name.startswith("!"):
            reach.failing.append(name[1:])
            continue
        if int(cost) > TOO_SLOW_MS:
            continue
        reach.cost[name[1:]] = int(cost)
        for number in numbers:
            reach.tests.setdefault(int(number), []).append(name[1:])
    return reach


def chosen_tests(item, reach, neighbours):
    """The tests that may notice a break, in rows that are run one after the other. What is computed
    before any test starts is read by code of the same file, or of any when it stands in a header or in a
    file of tables alone."""
    tests = list(reach.tests.get(item.number, ()))
    rows = []
    if item.number in reach.everywhere:
        likely = set(neighbours) | set(tests)
        private = item.file.endswith(".cpp") and likely
        others = set() if private else set(reach.cost) - likely
        rows = [sorted(likely, key=reach.cost.get), sorted(others, key=reach.cost.get)]
    else:
        tests.sort(key=reach.cost.get)
        rows = [tests[:FIRST_TESTS], tests[FIRST_TESTS:]]
    quick = [[name for name in row if reach.cost[name] < SLOW_MS] for row in rows]
    slow = [name for row in rows for name in row if reach.cost[name] >= SLOW_MS]
    return [row for row in [*quick, slow] if row]


def _limits(seconds):
    def set_limits():
        resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds + 1))
        resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    return set_limits


def _failing_test(number, tests, milliseconds, scratch, show):
    """The test that fails with one break, "" when the program ended otherwise (a crash, a loop without
    end), None when all pass."""
    flags = scratch / f"{number}.flags"
    flags.write_text("--gtest_filter=" + ":".join(tests) + "\n", encoding="utf-8")
    seconds = SPARE_SECONDS + milliseconds * 5 // 1000
    try:
        ran = subprocess.run([str(PROGRAM), f"--gtest_flagfile={flags}", "--gtest_fail_fast",
                              "--gtest_brief=1"], cwd=TREE, check=False, stdout=subprocess.PIPE,
                             stderr=subprocess.STDOUT, timeout=seconds * 15 + 30,
                             preexec_fn=_limits(seconds), env=_environment(TAVIRO_MUTANT=str(number)))
    except subprocess.TimeoutExpired:
        return ""
    finally:
        flags.unlink()
    if ran.returncode == 0:
        return None
    said = ran.stdout.decode("utf-8", "replace")
    if show:
        print(said)
    named = re.search(r"^\[  FAILED  \] ([\w./]+)", said, re.MULTILINE)
    return named[1] if named else ""


def with_noticers(rows, noticers):
    """The rows with a first one of the tests that noticed most of the same file's breaks so far."""
    present = {name for row in rows for name in row}
    first = [name for name, _ in noticers.most_common() if name in present][:MOST_NOTICERS]
    return [row for row in [first, *([name for name in row if name not in first] for row in rows)]
            if row]


def run_one(item, reach, neighbours, scratch, noticers=None, show=False):
    """What became of a break, and how many tests could have noticed."""
    noticers = collections.Counter() if noticers is None else noticers
    rows = with_noticers(chosen_tests(item, reach, neighbours), noticers)
    count = sum(len(row) for row in rows)
    for row in rows:
        failing = _failing_test(item.number, row, sum(map(reach.cost.get, row)), scratch, show)
        if failing is not None:
            noticers[failing] += 1
            return NOTICED, count
    return (SURVIVED, count) if rows else (NOT_REACHED, 0)


def run(breaks, reach, jobs, tell):
    """(what became of it, number of tests) for each break's name; tell is called after each."""
    scratch = BUILD / "scratch"
    scratch.mkdir(parents=True, exist_ok=True)
    of_file = {}
    for number, tests in reach.tests.items():
        if number not in reach.everywhere:
            of_file.setdefault(number // 2048, set()).update(tests)
    results, noticers = {}, {item.file: collections.Counter() for item in breaks}
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        waiting = {pool.submit(run_one, item, reach, of_file.get(item.number // 2048, ()), scratch,
                               noticers[item.file]): item
                   for item in breaks}
        for done in concurrent.futures.as_completed(waiting):
            item = waiting[done]
            results[item.id] = done.result()
            tell(item, results[item.id])
    return results
