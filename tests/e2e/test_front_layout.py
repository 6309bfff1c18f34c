# SPDX-License-Identifier: MIT
"""A computer whose keyboard layout is not Czech: what cells type is what their captions say. (Wine
shows Shift and Ctrl only if they were sent by virtual key; the marks that need them by scan code are
told of by the unit tests.)"""

import contextlib

from display import Display
from harness import Desktop
from sentence import type_sentence

ENGLISH = {"LC_ALL": "C.UTF-8", "LANG": "C.UTF-8"}
SENTENCE = "Ahoj, světe; žádné ú ani ů (1+5)!"


def test_sentence_arrives_on_an_english_layout():
    with contextlib.closing(Display(layout="us")) as display, \
            contextlib.closing(Desktop(display)) as desktop:
        desktop.env.update(ENGLISH)
        program = desktop.program()
        program.environment.update(ENGLISH)
        editor = desktop.editor()
        program.start()
        type_sentence(program, editor, SENTENCE)
        assert editor.text() == SENTENCE
        assert desktop.probe.keys_down() == []
        assert program.close() == 0
