# SPDX-License-Identifier: MIT
"""Files stay short enough to be one idea."""

from tree import cpp_files, read

MOST_LINES = 400
TABLES = {}  # path: why it may be longer


def long_files(root, tables=None):
    tables = TABLES if tables is None else tables
    problems = []
    for path in cpp_files(root):
        lines = len((read(root, path) or "").splitlines())
        if lines > MOST_LINES and str(path) not in tables:
            problems.append(f"{path}: {lines} lines, at most {MOST_LINES} are one idea")
        if lines <= MOST_LINES and str(path) in tables:
            problems.append(f"{path}: short enough, its exemption can go")
    return problems
