# SPDX-License-Identifier: MIT
"""Every include is one that the design allows: down the floors, never in a circle, and of the system's
headers those that the folder may use. The tables of floors in docs/design.md are what is read; they say
what their cells mean."""

import dataclasses
import re

from tree import cpp_files, read

DESIGN = "docs/design.md"
ROW = re.compile(r"^\| (\d+|beside \d+|above [^|]+) \|([^|]+)\|([^|]*)\|", re.MULTILINE)
NAME = re.compile(r"`([^`]+)`")
PLAIN = re.compile(r"headers that only compute:\s+(.*?)\.\n", re.DOTALL)
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)


@dataclasses.dataclass(frozen=True)
class Floor:
    """One row, for each folder that it names."""
    folder: str
    kind: str  # "on", "beside" or "above"
    number: int
    below: tuple  # what a folder "above" may include
    headers: frozenset

    def may_include(self, other, top):
        if self is other or (self.kind == "on" and self.number == top):
            return True
        if self.kind == "above":
            return other.folder in self.below
        if other.kind == "above":
            return False
        if self.kind == "beside" and other.kind == "beside":
            return other.number < self.number and _side(other.folder) == _side(self.folder)
        if other.kind == "beside":
            return self.number == top - 1  # where the program is put together
        return other.number < self.number + (self.kind == "beside")


def _side(folder):
    """`win32` or `headless`."""
    return folder.rstrip("/").rpartition("/")[2]


class Design:
    def __init__(self, root):
        text = (root / DESIGN).read_text(encoding="utf-8")
        plain = PLAIN.search(text)
        assert plain, f"{DESIGN} lists no headers that only compute"
        self.plain = frozenset(NAME.findall(plain[1]))
        self.floors = {}
        for floor, folders, headers in ROW.findall(text):
            kind, _, rest = floor.partition(" ") if floor[0].isalpha() else ("on", "", floor)
            for folder in NAME.findall(folders):
                self.floors[folder] = Floor(folder, kind, int(rest) if rest.isdigit() else 0,
                                            tuple(NAME.findall(rest)),
                                            frozenset(NAME.findall(headers)))
        assert self.floors, f"{DESIGN} has no table of floors"
        self.top = max(floor.number for floor in self.floors.values())

    def floor_of(self, path):
        """The row of the innermost folder that holds the file; None when there is none."""
        holding = [folder for folder in self.floors
                   if path == folder or (folder.endswith("/") and path.startswith(folder))]
        return self.floors[max(holding, key=len)] if holding else None


def _includes(root, path):
    found = INCLUDE.findall(read(root, path) or "")
    return [own for own, _ in found if own], [system for _, system in found if system]


def _is_own(root, header):
    return (root / header).is_file()


def upward_includes(root):
    """Own files, in quotation marks or in angle brackets."""
    design, problems = Design(root), []
    for path in map(str, cpp_files(root)):
        quoted, angled = _includes(root, path)
        here = design.floor_of(path)
        for target in quoted + [header for header in angled if _is_own(root, header)]:
            there = design.floor_of(target)
            if here is None or there is None:
                problems.append(f"{path}: {target} is on no known floor")
            elif not here.may_include(there, design.top):
                problems.append(f"{path} ({here.folder}) may not include {target} ({there.folder})")
    return problems


def include_cycles(root):
    graph = {str(path): sum(_includes(root, path), []) for path in cpp_files(root)}
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


def foreign_headers(root):
    """The system's headers that neither every folder nor this one may use."""
    design, problems = Design(root), []
    for path in map(str, cpp_files(root)):
        floor = design.floor_of(path)
        allowed = design.plain | (floor.headers if floor else frozenset())
        problems += [f"{path}: <{header}> is not among the headers of its folder in {DESIGN}"
                     for header in _includes(root, path)[1]
                     if header not in allowed and not _is_own(root, header)]
    return problems


def missing_folders(root):
    """Rows of the tables that nothing belongs to."""
    paths = [str(path) for path in cpp_files(root)]
    return [f"{DESIGN}: {folder} holds no source file" for folder in Design(root).floors
            if not any(path.startswith(folder) for path in paths)]
