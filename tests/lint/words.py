# SPDX-License-Identifier: MIT
"""What no file may say, and the line that every source file begins with."""

import re

from tree import CPP_SUFFIXES, SCRIPT_SUFFIXES, files, read

# Taken apart, so that this file does not hold what it forbids.
UNFINISHED = re.compile(r"\b(" + "|".join(
    ["TO" + "DO", "FIX" + "ME", "X" + "XX", "not (?:yet )?" + "implemented", "place" + "holder"])
    + r")\b", re.IGNORECASE)
ORIGINS = re.compile("|".join([
    r"\bspec" + r"\.md\b", r"\bthe sp" + r"ec\b", r"\bspecifi" + r"cations?\b",
    r"\bparts? " + r"[1-8]\.[0-9]", r"\.\./sha" + r"red\b", r"/wo" + r"rk/",
    r"\bissue" + r" #?[0-9]", r"deb\.debian" + r"\.org", r"registry\.npm" + r"js"]),
    re.IGNORECASE)
FIRST_LINE = "SPDX-License-Identifier: " + "MIT"
# Words of the users' language and binary-like tables are no texts of the developers.
EXEMPT_FOLDERS = ("data/", "predictor/data/")
EXEMPT_SUFFIXES = (".tsv", ".dic")


def _matches(root, pattern):
    problems = []
    for path in files(root):
        if str(path).startswith(EXEMPT_FOLDERS) or path.suffix in EXEMPT_SUFFIXES:
            continue
        for number, line in enumerate((read(root, path) or "").splitlines(), 1):
            found = pattern.search(line)
            if found:
                problems.append(f"{path}:{number}: {found[0]!r}")
    return problems


def unfinished_work(root):
    return _matches(root, UNFINISHED)


def foreign_origins(root):
    return _matches(root, ORIGINS)


def missing_licence_lines(root):
    problems = []
    for path in files(root):
        if path.suffix not in CPP_SUFFIXES + SCRIPT_SUFFIXES:
            continue
        lines = (read(root, path) or "").splitlines()
        comment = "// " if path.suffix in CPP_SUFFIXES else "# "
        first = lines[1:2] if lines[:1] and lines[0].startswith("#!") else lines[:1]
        if first != [comment + FIRST_LINE]:
            problems.append(f"{path}: does not begin with the licence line")
    return problems
