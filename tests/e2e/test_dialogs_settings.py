# SPDX-License-Identifier: MIT
"""The dialogs about the program's settings, a joystick's button and the voice, by keyboard, pointer
and stick: what they change at once, what they store, and what disturbs them."""

import stat

from automation import VOICES, read_out, spoken
from dialogs import Dialog, open_dialog, wait_for_dialog
from standin import CENTRE, TILTS
from waiting import wait_until

BUTTON = 3
PRESSED = (32767, 32767, 1 << BUTTON)
TITLE_OF_BUTTON = f"Nastavení tlačítka {BUTTON}"
MOVED_RATE, MOVED_VOLUME = 51, 60


def chosen(dialog, name, key, keys, text):
    """Goes to a list by its letter and on in it until an entry is chosen."""
    dialog.go_to(name, key)
    dialog.key(*keys)
    wait_until(lambda: dialog.text(name) == text, lambda: f"{text} in {name}: {dialog.text(name)}")


def button_dialog(desktop, program):
    """Presses the joystick's button while the settings are open."""
    program.standin.let_every_read_take()
    program.standin.queue(PRESSED)
    dialog = Dialog(desktop, wait_for_dialog(desktop, TITLE_OF_BUTTON))
    program.standin.queue(CENTRE)  # read once the dialog has gone
    return dialog


def stored(program):
    return program.setting_file().read_bytes().decode("cp1250").split("\r\n")


def set_button_to_ctrl_shift_q(desktop, program, dialog):
    """After it was given up once, and although the stick is away at the end."""
    inner = button_dialog(desktop, program).take_keyboard()
    dialog.click("cmdCancel")  # held by the inner dialog
    inner.click("OptionType", option=2)
    inner.go_to("ComboKey", "alt+k")
    inner.key("q")
    inner.key("Escape")
    inner.wait_for_end()
    assert dialog.is_open()
    inner = button_dialog(desktop, program).take_keyboard()
    assert not any(inner.is_ticked("OptionType", option) for option in range(4))  # nothing stored
    inner.click("OptionType", option=2)
    inner.go_to("ComboKey", "alt+k")
    inner.key("q", "alt+c", "alt+h")
    wait_until(lambda: inner.is_ticked("chkCTRL") and inner.is_ticked("chkSHIFT"), "both ticked")
    program.standin.set_present(False)  # taken away while its button is being set
    inner.click("cmdOK")
    inner.wait_for_end()
    program.standin.set_present(True)


def test_settings_and_a_buttons_action_work_and_survive_a_restart(desktop):
    program = desktop.program()
    program.use_map([(letter, ord(letter.upper())) for letter in "abuvwx"])
    program.use_settings(RowWrap=1, ScanMode=1, ScanSizeX=50, CellTextSize=8, CellWidth=60,
                         CellHeight=15)
    editor = desktop.editor()
    window = program.start()
    width = window.right - window.left
    dialog = Dialog(desktop, open_dialog(desktop, program, "frmAppSetting")).take_keyboard()
    assert (dialog.text("ComboScanX"), dialog.text("ComboCellWidth")) == ("", "64")
    dialog.key("alt+u")
    wait_until(lambda: not dialog.is_enabled("ComboScanX"), "the scan area greyed out")
    assert not dialog.is_enabled("ComboScanY") and dialog.is_enabled("Combo1")
    chosen(dialog, "ComboCellWidth", "alt+b", ["Down", "Down"], "66")
    chosen(dialog, "ComboCellHeight", "alt+a", ["Down"], "20")

    first = program.standin.read_count()
    program.standin.let_every_read_take()
    program.standin.queue(TILTS["right"], CENTRE)
    wait_until(lambda: len(program.standin.reads(first)) >= 2, "the tilt read")
    program.standin.set_present(False)
    dialog.key("alt+o")  # goes on without the stick
    wait_until(lambda: dialog.is_ticked("chkVoiceOnLineChange"), "the box ticked")
    assert program.highlighted() == "a"
    program.standin.set_present(True)

    set_button_to_ctrl_shift_q(desktop, program, dialog)
    dialog.take_keyboard()
    dialog.key("Return")
    dialog.wait_for_end()
    program.standin.set_present(True)
    wait_until(lambda: program.window().right - program.window().left > width, "wider cells")
    wait_until(editor.has_focus, "the editor in front")
    program.standin.tilt("right")
    wait_until(lambda: program.highlighted() == "b", "the stick moving again")
    assert program.close() == 0
    lines = stored(program)
    for line in ("ScanMode=0", "VoiceOnLineChange=1", "ScanSizeX=50", "CellTextSize=8", "CellWidth=62", "CellHeight=16",
                 f"{BUTTON}={30000 + ord('Q')}"):
        assert line in lines, "\n".join(lines)

    program.start()
    dialog = Dialog(desktop, open_dialog(desktop, program, "frmAppSetting"))
    inner = button_dialog(desktop, program)
    assert inner.is_ticked("OptionType", 2) and inner.is_ticked("chkCTRL")
    inner.click("chkCTRL")
    inner.click("chkSHIFT")
    inner.click("cmdOK")
    inner.wait_for_end()
    dialog.click("cmdCancel")
    dialog.wait_for_end()
    program.standin.set_present(True)
    wait_until(editor.has_focus, "the editor in front")
    program.standin.press(BUTTON)
    editor.wait_for_text("q")
    assert program.close() == 0
    assert f"{BUTTON}={ord('Q')}" in stored(program)


def test_voice_dialog_speaks_what_it_changes_and_stores_it_at_once(desktop):
    automation = desktop.automation()
    program = desktop.program()
    automation.serve(program)
    program.use_sounds()
    program.use_map([("a", 65), ("b", 66)])
    program.use_settings(voice=VOICES[0])
    editor = desktop.editor()
    program.start()
    program.standin.wait_for_poll()
    dialog = Dialog(desktop, open_dialog(desktop, program, "FrmVoice")).take_keyboard()
    automation.take()
    dialog.go_to("HScroll_Rate", "alt+r")
    dialog.key("Right")
    wait_until(lambda: spoken(MOVED_RATE) in automation.calls(), "the rate's position spoken")
    dialog.go_to("HScroll_Volume", "alt+l")
    dialog.key("Next")
    wait_until(lambda: spoken(MOVED_VOLUME) in automation.calls(), "the volume's position spoken")
    dialog.go_to("VoiceList", "alt+h")
    automation.take()
    dialog.key("Down")
    wait_until(lambda: "SAPI.SpVoice.Voice = &object Voice1" in automation.calls(), "the voice")
    automation.behave("gone")  # the engine goes while its dialog is open
    dialog.go_to("HScroll_Pitch", "alt+v")
    dialog.key("Right")
    wait_until(lambda: any(call.endswith(" lost") for call in automation.take()), "the lost engine")
    assert dialog.is_open()
    automation.behave("")
    dialog.go_to("VoiceList", "alt+h")
    dialog.key("End")
    program.standin.tilt("right")  # the map goes on beside this dialog
    wait_until(lambda: read_out("b") in automation.calls(), "the reader's turn")
    dialog.key("Return")
    dialog.wait_for_end()
    wait_until(editor.has_focus, "the editor in front")
    saved = stored(program)
    assert "Name=Kestrel" in saved and f"Volume={MOVED_VOLUME}" in saved, saved

    automation.take()
    program.standin.tilt("left")
    wait_until(lambda: read_out("a") in automation.calls(),
               lambda: f"speech after the form had gone; there were {automation.take()}")
    assert any("GetVoices" in call for call in automation.take())  # it is loaded again
    before = program.setting_file().read_bytes()
    dialog = Dialog(desktop, open_dialog(desktop, program, "FrmVoice")).take_keyboard()
    dialog.go_to("VoiceList", "alt+h")
    dialog.key("Home")
    program.setting_file().chmod(stat.S_IREAD)
    dialog.click("cmdOK")
    dialog.wait_for_end()
    program.standin.tilt("right")
    wait_until(lambda: spoken("b") in automation.calls(), "the engine's turn, nothing stored")
    assert program.setting_file().read_bytes() == before
    assert program.close() == 0
    assert program.setting_file().read_bytes() == before
