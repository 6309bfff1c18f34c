# SPDX-License-Identifier: MIT
"""Words offered while the user types: the real program with the real dictionary, and what the program
does when the dictionary is late, dies or is another one."""

from choice_list import ChoiceList
from dictionary import (ACTION, MODE, STANDIN, Offers, StandIn, kill_server, learned, order,
                        register, server_process)
from waiting import wait_until

SPACE = 32
CAPITAL = 1000  # and the character's code: a key whose character the program does not know
CZECH_KEYS = {"ě": 50, "š": 51, "č": 52, "ř": 53, "ž": 54, "ý": 55, "á": 56, "í": 57, "é": 48}
SLOW_MILLISECONDS = 200


def key_code(character):
    if character in CZECH_KEYS:
        return CZECH_KEYS[character]
    if character == " ":
        return SPACE
    return ord(character.upper()) + (CAPITAL if character.isupper() else 0)


def map_for(text):
    """A map whose cells stand in the order of a text."""
    return [("mezera" if character == " " else character, key_code(character))
            for character in text]


class Writer:
    """Types words from a map of map_for()."""

    def __init__(self, desktop, program, text):
        program.use_map(map_for(text))
        self.editor = desktop.editor()
        self.program = program
        window = program.start()
        self.offers = Offers(program, ChoiceList(desktop, window), desktop.probe)
        self._text = text
        self._typed = 0  # cells so far
        self.written = ""

    def press(self, place):
        """Goes to a cell by its place in the text and presses it."""
        self.program.run_cell(self.program.map().cell((place + 1, 1)))

    def word(self, word):
        """Types a word and its blank, taking it from a list as soon as it is there."""
        start = self._text.index(word, self._typed)
        self._typed = start + len(word) + 1
        for end in range(1, len(word) + 1):
            self.press(start + end - 1)
            taken = self.offers.answer(word)
            if taken:
                break
            self.editor.wait_for_text(self.written + word[:end])
        if not taken.endswith(" "):
            self.press(start + len(word))
            assert not self.offers.rows()
        self.written += word + " "
        self.editor.wait_for_text(self.written)


def test_sentence_is_written_with_words_from_the_dictionary(desktop):
    words = ["Dobrý", "den", "plkuj", "děkuji"]
    program = desktop.program()
    register(program)
    text = " ".join(words) + " abc"
    writer = Writer(desktop, program, text)
    for word in words:
        writer.word(word)
    assert writer.editor.text() == "Dobrý den plkuj děkuji "
    assert {"Dobrý", "děkuji"} <= set(writer.offers.taken)
    assert "plkuj" not in writer.offers.taken
    assert writer.offers.dismissed > 0
    assert desktop.probe.keys_down() == []
    assert writer.editor.has_focus()
    words = wait_until(lambda: learned(program), "the learned words")

    kill_server(program)
    for place in range(len(text) - 3, len(text)):
        writer.press(place)
    writer.editor.wait_for_text("Dobrý den plkuj děkuji abc")
    assert not writer.offers.rows()
    assert server_process(program) is None  # asked once, and not again
    assert learned(program) == words  # as it was when the server was killed
    assert program.close() == 0


def test_program_goes_on_without_with_a_slow_and_with_a_dying_dictionary(desktop):
    program = desktop.program()
    program.use_map([("a", 65), ("b", 66), ("c", 67), ("d", 68)])
    editor = desktop.editor()
    choices = ChoiceList(desktop, program.start())
    stick = program.standin
    stick.press(ACTION)
    editor.wait_for_text("a")
    assert not choices.is_shown()

    # Installed during the run, it is found; it dies in the second call.
    dying = StandIn(desktop, program, words="abeceda ", delay=SLOW_MILLISECONDS, death=2)
    program.press_next()
    editor.wait_for_text("ab")
    wait_until(choices.is_shown, "the list")
    assert dying.calls() == ["ab"]
    stick.press(MODE)
    program.press_next()
    editor.wait_for_text("abc")
    wait_until(lambda: server_process(program, STANDIN) is None, "the stand-in's end")
    assert not choices.is_shown()
    assert dying.calls() == ["ab", "abc"]

    # Another one takes its place; the program keeps to the object that it has.
    register(program)
    program.press_next()
    editor.wait_for_text("abcd")
    assert not choices.is_shown()
    assert server_process(program) is None
    assert dying.calls() == ["ab", "abc"]
    assert program.close() == 0

    assert order(program, "/unregserver:machine") == (0, "")
    slow = StandIn(desktop, program, words="abrakadabra ", delay=SLOW_MILLISECONDS)
    choices = ChoiceList(desktop, program.start())
    editor.activate()
    stick.press(ACTION)
    editor.wait_for_text("abcda")
    wait_until(choices.is_shown, "the slow list")
    stick.press(ACTION)
    editor.wait_for_text("abcdabrakadabra ")
    program.press_next()
    editor.wait_for_text("abcdabrakadabra b")
    assert slow.calls() == ["a", "b"]
    assert server_process(program, STANDIN) is not None
    assert program.close() == 0
    wait_until(lambda: server_process(program, STANDIN) is None, "the end of the stand-in")
