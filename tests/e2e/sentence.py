# SPDX-License-Identifier: MIT
"""Typing a sentence letter by letter from the map, as a user does."""

NAMES = {" ": "mezera", ",": "čárka"}  # captions of characters that a cell cannot show


def cell_of(character, cells):
    """The cell of the map that types a character."""
    caption = NAMES.get(character, character)
    found = cells.find(caption)
    assert found, f"the map has no cell {caption!r}"
    return found[0]


def type_sentence(program, editor, sentence, tell=lambda text: None):
    """Types and checks each letter's arrival before the next."""
    for end in range(1, len(sentence) + 1):
        cell = cell_of(sentence[end - 1], program.map())
        tilts = program.map().path(program.position, cell.position)
        program.run_cell(cell)
        editor.wait_for_text(sentence[:end])
        tell(f"{' '.join(tilts) or 'no tilt'}, press on {cell.caption!r}"
             f" -> {editor.text()!r}")
