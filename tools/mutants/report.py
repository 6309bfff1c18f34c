# SPDX-License-Identifier: MIT
"""What is printed and kept of a run."""

import json

from folders import BUILD
from running import NOT_REACHED, NOTICED


def shares(broken, noticed):
    return f"{broken} broken, {noticed} noticed, {100.0 * noticed / max(broken, 1):.1f} %"


def survivor_line(item, result):
    fate, count = result
    tests = "no test reaches it" if fate == NOT_REACHED else f"{count} tests reach it"
    return f"{item.file}:{item.line}: {item.sort} {item.id}: {item.shown()} ({tests})"


def density_complaints(name, broken, code_lines):
    if broken * 4 >= code_lines:
        return []
    return [f"{name}: {broken} breaks for {code_lines} lines of code, fewer than one for four"]


def folder_report(name, breaks, results, listed):
    """The lines about a folder: new survivors, then sorts, then the closing line."""
    survivors = [item for item in breaks if results[item.id][0] != NOTICED]
    lines = [survivor_line(item, results[item.id]) for item in survivors if item.id not in listed]
    known = len(survivors) - len(lines)
    if known:
        lines.append(f"{name}: {known} more survivors are listed as unnoticeable")
    for sort in sorted({item.sort for item in breaks}):
        of_sort = [item for item in breaks if item.sort == sort]
        noticed = sum(results[item.id][0] == NOTICED for item in of_sort)
        lines.append(f"{name}, {sort}: {shares(len(of_sort), noticed)}")
    noticed = len(breaks) - len(survivors)
    lines.append(f"{name}: {shares(len(breaks), noticed)}")
    return lines


def sample_complaints(broken, noticed, least):
    """The sample as a whole must stay above its floor."""
    if noticed >= least * broken:
        return []
    return [f"the sample: {shares(broken, noticed)}, at least {100 * least:.0f} % must be"]


def keep(name, lines, results):
    """Writes the report, and what became of each break, for the next run."""
    (BUILD / f"{name}.txt").write_text("\n".join(lines) + "\n", encoding="utf-8")
    path = BUILD / "results.json"
    known = json.loads(path.read_text()) if path.exists() else {}
    known.update({key: fate for key, (fate, _) in results.items()})
    path.write_text(json.dumps(known))


def last_survivors():
    path = BUILD / "results.json"
    known = json.loads(path.read_text()) if path.exists() else {}
    return {key for key, fate in known.items() if fate != NOTICED}
