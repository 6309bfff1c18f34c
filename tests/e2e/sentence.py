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


def type_words(program, editor, offers, words, before="", tell=lambda text: None):
    """Types words and a blank behind each, after the text that is there already; a word is taken from
    the list of offers as soon as it is in it, and its blank may come with it."""
    written = before
    for word in words:
        taken = ""
        for end in range(1, len(word) + 1):
            program.run_cell(cell_of(word[end - 1], program.map()))
            taken = offers.answer(word)
            if taken:
                tell(f"{word[:end]!r} typed, {taken!r} taken from the list")
                break
            editor.wait_for_text(written + word[:end])
        if not taken.endswith(" "):
            program.run_cell(cell_of(" ", program.map()))
            tell(f"a blank typed behind {word!r}")
        written += word + " "
        editor.wait_for_text(written)
