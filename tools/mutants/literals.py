# SPDX-License-Identifier: MIT
"""How constants are broken: a number becomes its neighbour, a text changes one letter."""

import re

_TEXT = re.compile(r'^(L|u8|u|U)?"((?:\\.|[^"\\])*)"(\w*)$')
_CHARACTER = re.compile(r"^(L|u8|u|U)?'((?:\\.|[^'\\])+)'$")


def broken_number(text):
    plain = re.fullmatch(r"(\d+)([uUlL]*)", text)
    if plain and not (len(plain[1]) > 1 and plain[1][0] == "0"):
        return f"{int(plain[1]) + 1}{plain[2]}"
    return f"({text} + 1)"


def broken_letter(letter):
    if letter in "zZ9":
        return {"z": "y", "Z": "Y", "9": "8"}[letter]
    return chr(ord(letter) + 1)


def _broken_body(body):
    place = 0
    while place < len(body):
        if body[place] == "\\":
            place += 2
            continue
        if body[place].isascii() and body[place].isalnum():
            if not re.search(r"\\x[0-9A-Fa-f]*$", body[:place]):
                return body[:place] + broken_letter(body[place]) + body[place + 1:]
        place += 1
    return "?" if not body or body[0] == "\\" else "?" + body[1:]


def broken_text(text):
    """None when it is no single plain literal."""
    found = _TEXT.match(text)
    return f'{found[1] or ""}"{_broken_body(found[2])}"{found[3]}' if found else None


def broken_character(text):
    found = _CHARACTER.match(text)
    if not found:
        return None
    body = found[2]
    changed = broken_letter(body) if re.fullmatch(r"[A-Za-z0-9]", body) else "_"
    return f"{found[1] or ''}'{changed}'"


def letters_of(text):
    """The prefix and the plain letters of a text; None when it has others."""
    found = _TEXT.match(text)
    if not found or found[3] or not found[2] or re.search(r"[\\'\"]|[^ -~]", found[2]):
        return None
    return found[1] or "", found[2]
