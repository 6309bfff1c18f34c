# SPDX-License-Identifier: MIT
"""The list of breaks that no test can tell: a line each, `file | sort | name | why`."""

from breaks import SORTS


class BadList(ValueError):
    """A line of the list that cannot be read."""


def read(text):
    """{name of the break: (line number, file, sort, why)}"""
    listed = {}
    for number, line in enumerate(text.splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        parts = [part.strip() for part in line.split("|", 3)]
        if len(parts) != 4 or parts[1] not in SORTS or not parts[3]:
            raise BadList(f"line {number}: not `file | sort | name | why`: {line}")
        file, sort, name, why = parts
        if name in listed:
            raise BadList(f"line {number}: {name} stands twice")
        listed[name] = (number, file, sort, why)
    return listed


def stale(listed, existing, files, noticed):
    """Complaints about entries of these files: `existing` are all breaks by name, `noticed` the names
    of those that a test told this time."""
    complaints = []
    for name, (number, file, sort, _) in listed.items():
        if file not in files:
            continue
        item = existing.get(name)
        if item is None or item.file != file or item.sort != sort:
            complaints.append(f"line {number}: no break {name} ({sort}) is in {file} any more")
        elif name in noticed:
            complaints.append(f"line {number}: a test notices {name} in {file} now")
    return complaints
