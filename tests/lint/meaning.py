# SPDX-License-Identifier: MIT
"""What has one home stays there: the digits of action codes, key numbers and marks in vocabulary/,
and what is written by one module alone."""

import re

from tree import cpp_files, read

HOME = "vocabulary/"
# Who would otherwise know a code or a mark by heart. The virtual keyboard's layout is data of the
# keyboard; the Windows layers use the system's own names.
MEANING_FOLDERS = ("actions/", "automation/", "core/", "dialogs/", "feedback/", "forms/", "input/",
                   "maps/", "settings/", "state/")
MEANINGS = [
    (re.compile(r"[/%*]\s*(?:1'?000|10'?000)\b(?!\.)"), "takes a code apart"),
    (re.compile(r"\b(?:VK|SCAN|KIND|MODIFIER|DIRECTION)_(?!\w*_MS\b)\w+\s*=\s*(?:0x)?\d"),
     "names a key number"),
    (re.compile(r"\b(?:SendVirtualKey|KeyDownVk|KeyUpVk|KeyTapScan|KeyDownScan|KeyUpScan|MoveCursor|"
                r"ListMove|PressActionCode|SendInArrowMode)\(\s*\d"), "holds a key number"),
    (re.compile(r"\bn(?:Vk|Scan|Key)\w*\s*(?:[=!<>]=|[<>])\s*(?!0\b|1\b)\d"), "holds a key number"),
    (re.compile(r"L'(?:\||<|>|\*|\^|;|\+|%|~|\{|\}|\$)'"), "holds a mark"),
    (re.compile(r'"\*(?:action|mode)"'), "holds a button's word"),
]

# A state, how a write to it looks, and the files that may.
ASSIGNED = r"\s*(?:=(?!=)|\.(?:clear|erase|assign|append|push_back|swap)\()"
OWNERS = [
    ("which map is shown", re.compile(
        r"\bForeground\.(?:bAppMapShown|AppMapName|strCurrentAppName)" + ASSIGNED),
     {"maps/shown_map.cpp"}),
    ("the mode", re.compile(
        r"\bModes\.(?:(?:bSelectMode|bScanMode|bArrowMode|bAppMode)" + ASSIGNED
        + r"|(?:Set|Clear)\()"),
     {"actions/mode_transitions.cpp"}),
    ("whether the list is open", re.compile(r"\bModes\.bListMode" + ASSIGNED),
     {"actions/choice_list.cpp"}),
    ("whether a tilt repeats", re.compile(r"\bModes\.bAutoRepeatMode" + ASSIGNED),
     {"core/poll_loop.cpp"}),
    ("what comfort.ini says", re.compile(r"\bComfort(?:\.\w+)?" + ASSIGNED),
     {"settings/comfort_key.cpp", "core/program_reset.cpp"}),
]
COMMENT = re.compile(r"//.*")

# Asking the system what a key types uses up a dead key that waits for its letter, in whatever program
# the person writes. The keyboard of the maps knows (platform/map_keyboard.h).
DISTURBING = re.compile(r"\bTo(?:Ascii|Unicode)(?:Ex)?\s*\(")


def _lines(root, path):
    for number, line in enumerate((read(root, path) or "").splitlines(), 1):
        yield number, COMMENT.sub("", line)


def meaning_elsewhere(root):
    problems = []
    for path in cpp_files(root):
        if not str(path).startswith(MEANING_FOLDERS) or "/win32/" in str(path):
            continue
        for number, line in _lines(root, path):
            problems += [f"{path}:{number}: {why}, which belongs in {HOME}: {line.strip()}"
                         for pattern, why in MEANINGS if pattern.search(line)]
    return problems


def second_writers(root):
    problems = []
    for path in cpp_files(root):
        if not str(path).startswith(MEANING_FOLDERS + ("platform/",)):
            continue
        for number, line in _lines(root, path):
            problems += [f"{path}:{number}: {state} is written by {', '.join(sorted(owners))} alone"
                         for state, pattern, owners in OWNERS
                         if str(path) not in owners and pattern.search(line)]
    return problems


def disturbed_dead_keys(root):
    return [f"{path}:{number}: disturbs a dead key that waits: {line.strip()}"
            for path in cpp_files(root) if not str(path).startswith("tests/")
            for number, line in _lines(root, path) if DISTURBING.search(line)]
