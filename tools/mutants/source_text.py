# SPDX-License-Identifier: MIT
"""A source file as bytes beside a masked copy, in which comments, strings and characters are blank, so
that brackets and signs can be looked for."""

import re

_MASKED = re.compile(rb'//[^\n]*|/\*.*?\*/|R"\((?:.|\n)*?\)"|"(?:\\.|[^"\\\n])*"|(?<![0-9A-Fa-f])\'(?:\\.|[^\'\\\n])+\'',
                     re.DOTALL)
_OPENING = {b"(": b")", b"[": b"]", b"{": b"}"}


def is_foreign(path):
    """Whether a header belongs to the compiler or its library."""
    return bool(re.search(r"^/usr/|/lib/gcc/|/include/c\+\+/", path))


class SourceText:
    def __init__(self, data):
        self.data = data
        self.masked = _MASKED.sub(lambda match: re.sub(rb"[^\n]", b" ", match.group()), data)

    def text(self, start, end):
        return self.data[start:end].decode("utf-8")

    def past_semicolon(self, end):
        """The place behind the semicolon that follows; None when something else follows."""
        found = re.compile(rb"\s*;").match(self.masked, end)
        return found.end() if found else None

    def next_sign(self, place):
        found = re.compile(rb"\s*(.)", re.DOTALL).match(self.masked, place)
        return found.group(1).decode() if found else ""

    def closing(self, opening):
        """The place of the bracket that closes the one at a place."""
        ends = []
        for place in range(opening, len(self.masked)):
            sign = self.masked[place:place + 1]
            if sign in _OPENING:
                ends.append(_OPENING[sign])
            elif ends and sign == ends[-1]:
                ends.pop()
                if not ends:
                    return place
        return len(self.masked)

    def line(self, place):
        """The number of the line that holds a place, and its text."""
        start = self.data.rfind(b"\n", 0, place) + 1
        end = self.data.find(b"\n", place)
        end = len(self.data) if end < 0 else end
        return self.data.count(b"\n", 0, place) + 1, self.data[start:end].decode("utf-8").strip()

    def code_lines(self):
        """How many lines hold more than comments."""
        without = re.sub(rb"//[^\n]*|/\*.*?\*/", lambda match: b"\n" * match.group().count(b"\n"),
                         self.data, flags=re.DOTALL)
        return sum(1 for line in without.split(b"\n") if line.strip())
