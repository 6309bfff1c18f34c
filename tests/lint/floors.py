# SPDX-License-Identifier: MIT
"""Every include points down: a folder includes itself and lower floors only, no two files include
each other, and the system's own headers stay in the Windows layers."""

import re

from tree import cpp_files, read

FLOORS = {
    "win32": 0,
    "vocabulary": 0,
    "state": 1, "forms": 1,
    "platform": 2,
    "settings": 3, "input": 3,
    "maps": 4, "feedback": 4,
    "actions": 5, "dialogs": 5,
    "core": 6,
    "automation": 7,
    "main.cpp": 8,
    # Built beside the program, on top of all its floors.
    "tests": 9, "bench": 9, "fuzz": 9, "tools": 9,
}
ALONE = "predictor"  # a program of its own, tried out like the rest; it shares one floor only:
SHARED = "win32"
WINDOWS_FOLDERS = ("win32/", "platform/win32/", "automation/win32/", "predictor/win32/", "tests/win32/",
                   "tests/e2e/", "bench/windows/", "main.cpp")
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)
WINDOWS_HEADERS = {"windows.h", "mmsystem.h", "shlobj.h", "shellapi.h", "objbase.h", "ole2.h",
                   "oaidl.h", "oleauto.h", "tlhelp32.h", "psapi.h", "commctrl.h", "sapi.h",
                   "oleacc.h"}


def _includes(root, path):
    found = INCLUDE.findall(read(root, path) or "")
    return [own for own, _ in found if own], [system for _, system in found if system]


def _own_includes(root):
    return {str(path): _includes(root, path)[0] for path in cpp_files(root)}


def upward_includes(root):
    problems = []
    for path, targets in _own_includes(root).items():
        source = path.split("/")[0]
        for target in targets:
            there = target.split("/")[0]
            if there == source:
                continue
            tries_out = there == ALONE and FLOORS.get(source, 0) >= FLOORS["tests"]
            if tries_out or (source == ALONE and there == SHARED):
                continue
            if ALONE in (source, there):
                problems.append(f"{path}: {ALONE}/ shares {SHARED}/ only, but includes {target}")
            elif source not in FLOORS or there not in FLOORS:
                problems.append(f"{path}: {target} is on no known floor")
            elif FLOORS[there] >= FLOORS[source] and FLOORS[source] < FLOORS["tests"]:
                problems.append(f"{path} (floor {FLOORS[source]}) includes {target}"
                                f" (floor {FLOORS[there]})")
    return problems


def include_cycles(root):
    graph = _own_includes(root)
    problems, done = [], set()

    def walk(path, trail):
        if path in trail:
            problems.append(" -> ".join(trail[trail.index(path):] + [path]))
        elif path not in done:
            for target in graph.get(path, []):
                walk(target, trail + [path])
            done.add(path)

    for start in graph:
        walk(start, [])
    return problems


def windows_headers(root):
    problems = []
    for path in cpp_files(root):
        if str(path).startswith(WINDOWS_FOLDERS):
            continue
        problems += [f"{path}: <{system}> belongs in the Windows layers"
                     for system in _includes(root, path)[1] if system.lower() in WINDOWS_HEADERS]
    return problems
