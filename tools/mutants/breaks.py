# SPDX-License-Identifier: MIT
"""What a break of the code is, and how it is known again when the file around it changes."""

import dataclasses
import hashlib

SORTS = ("relation", "constant", "negated", "left out", "exchanged", "argument")


@dataclasses.dataclass
class Break:
    """One place that can be broken: the bytes start..end of a file; while it is switched on, `broken`
    stands there. `wrap` says how the two are joined: "value" (an expression), "statement", "condition"
    (negated in place), "characters" (an array made of a text)."""
    sort: str
    start: int
    end: int
    broken: str
    wrap: str
    original: str           # what stands there, and
    told: str               # what is put in its place, both as short as a reader wants them
    line: int = 0
    line_text: str = ""
    in_constexpr: bool = False
    owner: str = ""         # the constant in whose initialiser it stands
    id: str = ""            # eight hexadecimal digits
    number: int = 0         # by which the program is told
    file: str = ""

    def shown(self):
        """The change on one line."""
        def one_line(text):
            text = " ".join(text.split())
            return text if len(text) <= 110 else text[:107] + "..."
        return f"`{one_line(self.original)}` -> `{one_line(self.told)}`"


def give_ids(breaks, file):
    """Names each break by its file, line's text, sort and change, and counts the equal ones: what
    stays the same when other lines change."""
    met = {}
    for item in sorted(breaks, key=lambda item: (item.start, item.end, item.sort)):
        item.file = file
        key = "\0".join((file, item.line_text, item.sort, item.original, item.told))
        met[key] = met.get(key, 0) + 1
        item.id = hashlib.sha1(f"{key}\0{met[key]}".encode()).hexdigest()[:8]


def sample(breaks, share):
    """Those whose name, read as a number, falls into the share: each place decides for itself."""
    return [item for item in breaks if int(item.id, 16) < share * 2 ** 32]
