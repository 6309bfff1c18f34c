# SPDX-License-Identifier: MIT
"""Each fact of Windows in docs/windows-facts.md has all its cells, and names tests that exist."""

import re

from tree import cpp_files, read

FACTS = "docs/windows-facts.md"
CELLS = 6
TEST = 5
ROW = re.compile(r"^\|(?!---)(.+)\|$", re.MULTILINE)
NAME = re.compile(r"`([^`]+)`")
DEFINED = re.compile(r"\bTEST(?:_[FP])?\(\s*(\w+),\s*(\w+)\s*\)")


def _tests(root):
    return {f"{suite}.{name}" for path in cpp_files(root) if str(path).startswith("tests/")
            for suite, name in DEFINED.findall(read(root, path) or "")}


def facts_without_test(root):
    tests, problems = _tests(root), []
    rows = ROW.findall((root / FACTS).read_text(encoding="utf-8"))[1:]  # the first is the head
    if not rows:
        return [f"{FACTS} has no fact"]
    for row in rows:
        cells = [cell.strip() for cell in row.split("|")]
        if len(cells) != CELLS or not all(cells):
            problems.append(f"{FACTS}: {len(cells)} cells, or an empty one: {row[:60]}")
            continue
        named = NAME.findall(cells[TEST])
        problems += [f"{FACTS}: there is no test {name}" for name in named if name not in tests]
        if not named:
            problems.append(f"{FACTS}: no test stands beside: {cells[0]}")
    return problems
