# SPDX-License-Identifier: MIT
"""A sentence typed with the stick arrives in another program."""

import pytest

from sentence import type_sentence
from wine import has_modules32

SENTENCE = "Ahoj, světe."


@pytest.mark.parametrize("build", ["win64", "win32"])
def test_sentence_arrives_in_the_editor_and_no_key_stays_down(desktop, build):
    if build == "win32" and not has_modules32():
        pytest.skip("no 32-bit modules of Wine")
    program = desktop.program(build=build)
    editor = desktop.editor()
    program.start()
    type_sentence(program, editor, SENTENCE)
    assert editor.text() == SENTENCE
    assert desktop.probe.keys_down() == []
    assert editor.has_focus()
    assert program.close() == 0
