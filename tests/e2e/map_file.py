# SPDX-License-Identifier: MIT
"""Map files as a user knows them: which cell is where, and how to get there with the stick."""

import codecs
import collections
import dataclasses
import re

CELL_LINE = re.compile(r"^\[(\d+),(\d+)\]([^,]*),(-?\d+)(?:,(.*))?$")
DIRECTIONS = ("right", "left", "down", "up")


def map_bytes(rows):
    """The file of a map given as rows of cells, each (caption, code) or (caption, code, command)."""
    lines = [f"[{column},{row}]" + ",".join(map(str, cell)) + "\r\n"
             for row, cells in enumerate(rows, 1) for column, cell in enumerate(cells, 1)]
    return "".join(lines).encode("cp1250")


@dataclasses.dataclass(frozen=True)
class Cell:
    column: int
    row: int
    caption: str
    code: int
    command: str

    @property
    def position(self):
        return (self.column, self.row)


def lines(path):
    content = path.read_bytes()
    encoding = "utf-8-sig" if content.startswith(codecs.BOM_UTF8) else "cp1250"
    return content.decode(encoding).split("\r\n")


class Map:
    """The map of a file; moves follow the settings that a new user has: along a row the highlight
    wraps, along a column it stops."""

    def __init__(self, path):
        self._cells = {}
        for line in lines(path):
            found = CELL_LINE.match(line)
            if found:
                column, row = int(found[1]), int(found[2])
                self._cells[column, row] = Cell(column, row, found[3], int(found[4]),
                                                found[5] or "")

    def cells(self):
        return list(self._cells.values())

    def cell(self, position):
        return self._cells[position]

    def is_cell(self, column, row):
        return (column, row) in self._cells and bool(self._cells[column, row].caption)

    def last_column(self, row):
        column = 0
        while self.is_cell(column + 1, row):
            column += 1
        return column

    def find(self, caption):
        """The cells of a caption that the stick can reach."""
        return [cell for cell in self.cells()
                if cell.caption == caption and cell.column <= self.last_column(cell.row)]

    def move(self, position, direction):
        """Where one tilt leads."""
        column, row = position
        if direction == "right":
            return (column + 1, row) if self.is_cell(column + 1, row) else (1, row)
        if direction == "left":
            return (column - 1, row) if column > 1 else (self.last_column(row), row)
        row += 1 if direction == "down" else -1
        if row < 1 or self.last_column(row) < 1:
            return position
        return (min(column, self.last_column(row)), row)

    def path(self, start, target):
        """The shortest list of tilts from one cell to another."""
        paths = {start: []}
        waiting = collections.deque([start])
        while waiting:
            position = waiting.popleft()
            if position == target:
                return paths[position]
            for direction in DIRECTIONS:
                there = self.move(position, direction)
                if there not in paths:
                    paths[there] = paths[position] + [direction]
                    waiting.append(there)
        raise LookupError(f"no way from {start} to {target}")
