# SPDX-License-Identifier: MIT
"""The editor has the focus again after a menu, a dialog or a click on the frame, with no window manager
to hand it back."""

import pytest

from dialogs import DIALOGS, Dialog, wait_for_dialog
from harness import new_desktop
from test_dialogs import choose, open_menu
from test_window import is_highlighted
from waiting import wait_until

CAPTION_ABOVE = 25  # pixels from the menu bar's middle to the caption's
MENU_BAR_ABOVE = 10
ROWS = [(letter, ord(letter.upper())) for letter in "abuvwx"],


@pytest.fixture
def desktop():
    """Without a window manager; the windows' frames are Wine's own, as they are Windows' own."""
    with new_desktop(managed=False) as opened:
        opened.set_registry(r"Software\Wine\X11 Driver", "Managed", "N")
        yield opened


@pytest.fixture
def program(desktop):
    program = desktop.program()
    program.use_map(*ROWS)
    return program


def type_a(program, editor):
    """The highlighted cell goes to the editor."""
    before = editor.text()
    program.standin.press(0)
    editor.wait_for_text(before + "a")


def test_editor_has_the_focus_again_after_the_menu(desktop, program):
    editor = desktop.editor()
    program.start()
    menu = open_menu(desktop, program, 1)
    wait_until(lambda: not editor.has_focus(), "the menu with the focus")
    desktop.display.key("Escape")
    desktop.display.key("Escape")
    wait_until(lambda: not desktop.probe.window(class_name=menu.class_name), "the menu closed")
    wait_until(editor.has_focus, "the editor in front")
    type_a(program, editor)


@pytest.mark.parametrize("name", DIALOGS)
def test_editor_has_the_focus_again_after_a_dialog(desktop, program, name):
    places = {"frmMap": (0, 0, 2), "frmConfig": (1, 0, 4), "frmAppSetting": (1, 1, 4),
              "FrmVoice": (1, 2, 4), "frmAbout": (2, 0, 2)}
    editor = desktop.editor()
    program.start()
    choose(desktop, program, *places[name])
    dialog = Dialog(desktop, wait_for_dialog(desktop, DIALOGS[name][1]))
    wait_until(lambda: desktop.probe.foreground() == dialog.window.handle, "the dialog in front")
    desktop.display.key("Escape")
    dialog.wait_for_end()
    wait_until(editor.has_focus, "the editor in front")
    type_a(program, editor)


def test_editor_keeps_the_focus_when_the_caption_is_clicked(desktop, program, tmp_path):
    editor = desktop.editor()
    window = program.start()
    program.standin.wait_for_poll()
    # A click before that would reach what lies under the window.
    wait_until(lambda: is_highlighted(desktop, window, 1, 1, tmp_path / "screen.png"),
               "the map on the screen")
    x, y = desktop.probe.client_origin(window.handle)
    desktop.display.click(x + 60, y - CAPTION_ABOVE - MENU_BAR_ABOVE)
    wait_until(editor.has_focus, "the editor in front")
    type_a(program, editor)
