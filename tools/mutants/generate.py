# SPDX-License-Identifier: MIT
"""Reads all files that can be broken and decides which breaks the compiler can take."""

import hashlib
import json
import multiprocessing
import pathlib
import pickle
import re

import places
from folders import BUILD, FOLDERS, ROOT, sources

NUMBERS_OF_FILE = 2048  # breaks that one file may have
ARGUMENTS = ["-std=c++20", f"-I{ROOT}", "-DNDEBUG"]
OWN_FILES = ("places.py", "statements.py", "order.py", "literals.py", "source_text.py", "breaks.py")


def _tool_hash():
    here = pathlib.Path(__file__).parent
    return hashlib.sha1(b"".join((here / name).read_bytes() for name in OWN_FILES)).hexdigest()


def _found(job):
    """The breaks of one file, from the cache when neither it nor the tool has changed."""
    name, tool = job
    data = (ROOT / name).read_bytes()
    key = hashlib.sha1(f"{tool}{name}".encode() + data).hexdigest()
    cached = BUILD / "found" / f"{key}.pickle"
    if cached.exists():
        return pickle.loads(cached.read_bytes())
    breaks, finder = places.find(ROOT / name, data, ARGUMENTS, name)
    found = {"name": name, "data": data, "breaks": breaks, "demotions": finder.demotions,
             "needed": finder.needed, "uses": finder.uses,
             "code_lines": finder.source.code_lines()}
    cached.parent.mkdir(parents=True, exist_ok=True)
    cached.write_bytes(pickle.dumps(found))
    return found


class Refused:
    """What earlier compilations did not take: names of breaks, and constants that must stay
    constexpr."""

    def __init__(self):
        self.path = BUILD / "refused.json"
        known = json.loads(self.path.read_text()) if self.path.exists() else {}
        self.breaks = set(known.get("breaks", ()))
        self.constants = set(known.get("constants", ()))

    def save(self):
        self.path.write_text(json.dumps({"breaks": sorted(self.breaks),
                                         "constants": sorted(self.constants)}))


def _file_numbers(names):
    """A number for each file that it keeps, so that an added file leaves the others' text alone."""
    path = BUILD / "files.json"
    numbers = json.loads(path.read_text()) if path.exists() else {}
    for name in names:
        numbers.setdefault(name, len(numbers))
    path.write_text(json.dumps(numbers))
    return numbers


def find_all(names, jobs):
    """What is known of every file that can be broken; each break has its number."""
    BUILD.mkdir(parents=True, exist_ok=True)
    wanted = [name for folder in FOLDERS for name in sources(folder, names)]
    tool = _tool_hash()
    with multiprocessing.Pool(jobs) as pool:
        found = pool.map(_found, [(name, tool) for name in wanted], chunksize=1)
    numbers = _file_numbers(wanted)
    for file in found:
        if len(file["breaks"]) >= NUMBERS_OF_FILE:
            raise ValueError(f"{file['name']}: more breaks than numbers")
        for place, item in enumerate(file["breaks"], 1):
            item.number = numbers[file["name"]] * NUMBERS_OF_FILE + place
    return found


def constant_needs(found, refused):
    """The constants that must stay the compiler's: those that it asks for, and what these use."""
    needed = set(refused.constants)
    uses = {}
    for file in found:
        needed |= file["needed"]
        for name, used in file["uses"].items():
            uses.setdefault(name, set()).update(used)
    waiting = list(needed)
    while waiting:
        for name in uses.get(waiting.pop(), ()):
            if name not in needed:
                needed.add(name)
                waiting.append(name)
    return needed


def changes_nothing(item):
    """Memory that is asked for ahead is a matter of time alone."""
    reserving = r"[\w.:>-]+reserve\("
    return item.sort in ("left out", "exchanged") and any(
        re.match(reserving, text) for text in (item.original, item.told))


def taken(file, needed, refused):
    """The breaks and demotions of a file that are written."""
    breaks = [item for item in file["breaks"]
              if item.owner not in needed and item.id not in refused.breaks and
              not changes_nothing(item)]
    return breaks, [item for item in file["demotions"] if item.name not in needed]
