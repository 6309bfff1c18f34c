# SPDX-License-Identifier: MIT
"""Writes a file in which every break stands beside the true code, chosen by its number."""

import dataclasses

import literals

RUNTIME = "tools/mutants/runtime/mutants_runtime.h"


@dataclasses.dataclass
class Written:
    """The text, and where in it each break came to stand: (start, end, number)."""
    data: bytes
    places: list


class _Writer:
    def __init__(self, data):
        self.data = data
        self.out = bytearray()
        self.places = []

    def emit(self, text):
        self.out += text.encode() if isinstance(text, str) else text

    def span(self, start, end, nodes):
        """The bytes start..end with the breaks in them."""
        place = start
        for item, inner in nodes:
            self.emit(self.data[place:item.start])
            self.node(item, inner)
            place = item.end
        self.emit(self.data[place:end])

    def node(self, item, inner):
        if item.wrap == "instead":
            self.emit(item.broken)
            return
        began = len(self.out)
        before, after = _around(item)
        self.emit(before)
        if item.wrap != "characters":
            self.span(item.start, item.end, inner)
        self.emit(after)
        self.places.append((began, len(self.out), item.number))


def _around(item):
    """What stands before and after the true code."""
    asked = f"::mutants::{'BrokenAtRun' if item.in_constexpr else 'Broken'}({item.number})"
    if item.wrap == "condition":
        return f"({asked} != static_cast<bool>(", "))"
    if item.wrap == "value":
        return f"({asked} ? ({item.broken}) : (", "))"
    if item.wrap == "characters":
        return _characters(item, asked), ""
    if not item.broken:
        return f"{{ if (!{asked}) {{ ", " } }"
    return f"{{ if ({asked}) {{ {item.broken}\n }} else {{ ", " } }"


def _characters(item, asked):
    prefix, letters = literals.letters_of(item.original)
    others = literals.letters_of(item.broken)[1]
    values = [f"{prefix}'{letter}'" if letter == other else
              f"({asked} ? {prefix}'{other}' : {prefix}'{letter}')"
              for letter, other in zip(letters, others)]
    return "{" + ", ".join([*values, f"{prefix}'\\0'"]) + "}"


def _nested(breaks):
    """(break, those inside it) for breaks in the order of their beginnings, longer ones first. One
    that overlaps its neighbour without lying in it is left away."""
    top, stack = [], []
    for item in sorted(breaks, key=lambda item: (item.start, -item.end)):
        while stack and stack[-1][0].end <= item.start:
            stack.pop()
        if stack and item.end > stack[-1][0].end:
            continue
        node = (item, [])
        (stack[-1][1] if stack else top).append(node)
        stack.append(node)
    return top


def write(data, breaks, demotions):
    """The file with its breaks; constants of the demotions lose their constexpr."""
    writer = _Writer(data)
    writer.emit(f'#include "{RUNTIME}"\n')
    writer.span(0, len(data), _nested([*breaks, *demotions]))
    return Written(bytes(writer.out), writer.places)
