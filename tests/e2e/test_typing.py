# SPDX-License-Identifier: MIT
"""A sentence typed with the stick arrives in another program."""

from builds import for_every_build
from sentence import type_sentence

SENTENCE = "Ahoj, světe."


@for_every_build
def test_sentence_arrives_in_the_editor_and_no_key_stays_down(desktop, build):
    program = desktop.program(build=build)
    editor = desktop.editor()
    program.start()
    type_sentence(program, editor, SENTENCE)
    assert editor.text() == SENTENCE
    assert desktop.probe.keys_down() == []
    assert editor.has_focus()
    assert program.close() == 0
