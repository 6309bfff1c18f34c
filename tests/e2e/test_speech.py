# SPDX-License-Identifier: MIT
"""What a user hears: the exact texts that the speech engine or the external reader is given, in all
modes, and that the program goes on when they fail."""

import itertools

import pytest

from automation import NEWER_VOICE, RELAY_QUIETED, VOICES, read_out, spoken
from builds import for_every_build
from probe import WM_CLOSE

ACTION, MODE = 0, 1
HARD_TEXT = 'Č & "ř" <b>'
COMMON = [("a", 65), (HARD_TEXT, 66), ("žluť", 67)]
OF_THE_EDITOR = [("první", 65), ("druhý", 68)]
BLOCK_MILLISECONDS = 600
BREAKS = [("fail", "{} failed 0x80004005"), ("throw", "{} failed 0x80020009"),
          ("gone", "SAPI.SpVoice.Speak lost")]


def speaking_program(desktop, build="win64", **settings):
    automation = desktop.automation(builds=(build,))
    program = desktop.program(build=build)
    automation.serve(program)
    program.use_sounds()
    program.use_map(COMMON)
    program.use_map(OF_THE_EDITOR, app="NOTEPAD.EXE")
    program.use_settings(**settings)
    return automation, program


@for_every_build
def test_engine_says_every_mode_and_cell_and_quiets_the_host(desktop, build):
    automation, program = speaking_program(desktop, build, voice=VOICES[1], rate=2, pitch=-3,
                                           volume=70, ScanMode=1)
    editor = desktop.editor()
    program.start()
    program.standin.wait_for_poll()
    prepared = automation.take()
    assert 'SAPI.SpVoice.GetVoices(bstr "", bstr "")' in prepared
    # Each bar of the voice form that finds its place applies its value once more and speaks it.
    assert [call for call in prepared if "=" in call] == [
        *["SAPI.SpVoice.Voice = &object Voice1"] * 2,
        *["SAPI.SpVoice.Rate = i4 2"] * 2, spoken(60, -3),
        *["SAPI.SpVoice.Volume = i4 70"] * 2, spoken(70, -3), spoken(35, -3)]

    def says(act, *acts_on, text):
        act(*acts_on)
        automation.expect(spoken(text, -3))

    stick = program.standin
    says(stick.tilt, "right", text=HARD_TEXT)
    says(stick.press, MODE, text="Šipky")
    stick.tilt("left")  # an arrow key, in silence
    says(stick.press, MODE, text="Sken")
    says(stick.tilt, "right", text="žluť")
    says(stick.press, MODE, text="aplikace první")
    says(stick.tilt, "right", text="druhý")
    says(stick.press, ACTION, text="")
    editor.wait_for_text("d")
    says(stick.press, MODE, text="výběr žluť")

    other = desktop.probe.open_hidden("OtherMain", "HOSTWATCH")
    says(stick.press, ACTION, text="")
    desktop.probe.post(other, WM_CLOSE)
    desktop.probe.open_hidden("XThunderRT6Main", "HOSTWATCH")
    stick.press(ACTION)
    automation.expect(RELAY_QUIETED, spoken("", -3))
    editor.wait_for_text("dcc")
    assert program.close() == 0


def test_reader_speaks_instead_of_the_engine_when_it_is_chosen(desktop):
    automation, program = speaking_program(desktop, voice="Kestrel", pitch=5)
    desktop.probe.open_hidden("ThunderRT6Main", "HOSTWATCH")
    editor = desktop.editor()
    program.start()
    program.standin.wait_for_poll()
    automation.take()
    program.standin.tilt("right")
    program.standin.press(ACTION)
    program.standin.press(MODE)
    automation.expect(read_out(HARD_TEXT), read_out(""), read_out("Šipky"))
    editor.wait_for_text("b")

    automation.behave("gone")
    program.standin.press(MODE)
    program.standin.press(ACTION)
    program.standin.wait_for_poll()
    assert set(automation.take()) == {"Parlex.app.Sayit lost"}


def test_cells_still_type_when_the_engine_breaks_or_blocks(desktop):
    automation, program = speaking_program(desktop, rate=3)
    editor = desktop.editor()
    program.start()
    program.standin.wait_for_poll()
    automation.take()

    def types_next(answer):
        program.press_next()
        cell = program.map().cell(program.position)
        automation.expect(answer.format(spoken(cell.caption)), answer.format(spoken("")))

    types_next("{}")
    for how, answer in BREAKS:
        automation.behave(how)
        types_next(answer)
        automation.behave("")
        types_next("{}")
    automation.behave(f"block {BLOCK_MILLISECONDS}")
    first = program.standin.read_count()
    types_next("{}")
    automation.behave("")
    ticks = [read.tick for read in program.standin.reads(first)]
    gaps = [later - earlier for earlier, later in itertools.pairwise(ticks)]
    assert sum(gap >= BLOCK_MILLISECONDS for gap in gaps) >= 2  # the move and the press
    types_next("{}")
    editor.wait_for_text("bcabcabca")
    assert desktop.probe.keys_down() == []
    automation.behave("gone")
    assert program.close() == 0
    assert b"\r\nRate=3\r\n" in program.setting_file().read_bytes()


def test_voice_of_the_newer_store_speaks_when_the_settings_name_it(desktop):
    automation = desktop.automation(newer=True)
    program = desktop.program()
    automation.serve(program)
    program.use_map(COMMON)
    program.use_settings(voice=NEWER_VOICE)
    program.start()
    program.standin.wait_for_poll()
    prepared = automation.take()
    store = r"HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Speech_OneCore\Voices"
    assert f'SAPI.SpObjectTokenCategory.SetId(bstr "{store}")' in prepared
    chosen = f"Voice{len(VOICES)}"  # the one behind the engine's own
    assert f"SAPI.SpVoice.Voice = &object {chosen}" in prepared
    assert program.close() == 0
