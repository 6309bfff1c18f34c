# SPDX-License-Identifier: MIT
"""The menu under the real pointer, and the dialogs about the map: what is chosen and entered there
is seen in the map and stands in its file."""

import contextlib

from PIL import Image, ImageChops

from dialogs import DIALOGS, Dialog, open_dialog, wait_for_dialog
from map_file import lines
from test_window import centre_of_cell
from waiting import Late, wait_until

MENU_CLASS = "#32768"
MENU_BAR_ABOVE, MENU_BAR_STEP = 10, 8  # pixels
RIGHT_BUTTON = 3
CORNER = 4  # pixels between that corner and the frames that the system counts
CLICKS, CLICK_SECONDS = 5, 3.0
PLACE = (500, 120, 420, 200)  # where the chooser has room at the corner of the inner area
# As wide as the menu, which would need a second line else.
ROWS = [(letter, ord(letter.upper())) for letter in "abuvwx"], [("c", 67)]


def open_menu(desktop, program, group):
    """Opens the menu and goes along its bar to a group; returns the window of its entries."""
    probe, display = desktop.probe, desktop.display
    x, y = probe.client_origin(program.window().handle)
    x, y = x + MENU_BAR_STEP, y - MENU_BAR_ABOVE
    shown = None
    for _ in range(CLICKS):  # one is lost when the window manager is just placing the window
        display.click(x, y)
        with contextlib.suppress(Late):
            shown = wait_until(lambda: probe.window(class_name=MENU_CLASS), "the menu", CLICK_SECONDS)
            break
    assert shown, "the menu does not open"
    for _ in range(group):
        before = shown
        while shown is None or shown.left == before.left:
            x += MENU_BAR_STEP
            assert x < program.window().right, "no further group in the menu"
            display.move(x, y)
            shown = probe.window(class_name=MENU_CLASS)
    return shown


def entry_place(menu, entry, count):
    return ((menu.left + menu.right) // 2,
            menu.top + (menu.bottom - menu.top) * (2 * entry + 1) // (2 * count))


def choose(desktop, program, group, entry, count):
    """Clicks an entry of a group that has so many."""
    desktop.display.click(*entry_place(open_menu(desktop, program, group), entry, count))
    wait_until(lambda: not desktop.probe.window(class_name=MENU_CLASS), "the menu closed")


def picture_of_settings(desktop, program, path):
    """A picture of the settings' group; the menu is closed again."""
    menu = open_menu(desktop, program, 1)
    desktop.display.settled_picture(menu, path)
    y = desktop.probe.client_origin(program.window().handle)[1]
    desktop.display.click(menu.left + MENU_BAR_STEP, y - MENU_BAR_ABOVE)
    wait_until(lambda: not desktop.probe.window(class_name=MENU_CLASS), "the menu closed")
    with Image.open(path) as image:
        return image.convert("RGB")


def test_menu_opens_every_dialog_and_ends_the_program(desktop, tmp_path):
    program = desktop.program()
    editor = desktop.editor()
    program.start()
    first = picture_of_settings(desktop, program, tmp_path / "unticked.png")
    choose(desktop, program, 1, 3, 4)  # the log
    ticked = picture_of_settings(desktop, program, tmp_path / "ticked.png")
    changed = ImageChops.difference(first, ticked).getbbox()
    assert changed, "no check mark"
    assert changed[1] >= first.height * 3 // 4 and changed[2] < first.width // 4

    for name, place in [("frmMap", (0, 0, 2)), ("frmConfig", (1, 0, 4)), ("frmAppSetting", (1, 1, 4)),
                        ("FrmVoice", (1, 2, 4)), ("frmAbout", (2, 0, 2))]:
        choose(desktop, program, *place)
        dialog = Dialog(desktop, wait_for_dialog(desktop, DIALOGS[name][1])).take_keyboard()
        dialog.key("Escape")
        dialog.wait_for_end()
        wait_until(editor.has_focus, f"the editor in front after {name}")
    assert editor.text() == ""
    choose(desktop, program, 0, 1, 2)
    assert program.wait_for_end() == 0
    assert b"\r\nLog=1\r\n" in program.setting_file().read_bytes()


def test_edited_cell_is_shown_and_stored_and_works(desktop):
    program = desktop.program()
    program.use_map(*ROWS)
    editor = desktop.editor()
    window = program.start()
    path = program.data_folder / "data.ini"
    before = lines(path)
    dialog = Dialog(desktop, open_dialog(desktop, program, "frmConfig")).take_keyboard()
    dialog.go_to("Text4", "alt+t")
    dialog.key("ctrl+a", "x", "y", "comma")  # the comma would end the caption in the file
    wait_until(lambda: dialog.text("Text4") == "xy", "the entered caption")
    dialog.set_text("Text4", "ž,lu\u4e2dť")
    assert dialog.text("Text4") == "žlu\u4e2dť"  # the code page lacks one
    dialog.go_to("ComboKey", "alt+k")
    dialog.key("q")
    dialog.key("Return")
    dialog.wait_for_end()
    wait_until(lambda: program.highlighted() == "žlu\u4e2dť", "the new caption in the map")
    assert lines(path) == [f"[1,1]žlu\u4e2dť,{ord('Q')}", *before[1:]]
    wait_until(editor.has_focus, "the editor in front")
    program.standin.press(0)
    editor.wait_for_text("q")

    desktop.display.click(*centre_of_cell(desktop.probe, window, 1, 2), button=RIGHT_BUTTON)
    dialog = Dialog(desktop, wait_for_dialog(desktop, "Nastavení položky - c")).take_keyboard()
    assert (dialog.text("ComboX"), dialog.text("ComboY"), dialog.text("Text4")) == ("1", "2", "c")
    dialog.set_text("Text4", "")
    dialog.key("Escape")
    dialog.wait_for_end()
    stored = lines(path)
    assert stored[1:] == before[1:]

    dialog = Dialog(desktop, open_dialog(desktop, program, "frmConfig")).take_keyboard()
    dialog.set_text("Text4", "d")
    locked = str(path).replace("/", "\\")
    desktop.probe.lock("Z:" + locked)
    dialog.click("cmdOK")
    dialog.wait_for_end()
    desktop.probe.unlock("Z:" + locked)
    wait_until(lambda: program.highlighted() == "d", "the new caption in the map")
    assert lines(path) == stored  # it could not be written, and is whole
    assert program.close() == 0


def test_chosen_map_is_shown_and_its_own_file_is_edited(desktop):
    program = desktop.program()
    program.use_map(*ROWS)
    program.use_map([("první", 68), *ROWS[0]], app="kniha")
    program.use_map([("jiný", 70)], app="sešit")
    editor = desktop.editor()
    window = program.start()
    desktop.probe.place(window.handle, *PLACE)
    wait_until(lambda: program.window().left == PLACE[0], "the main window moved")
    common = (program.data_folder / "data.ini").read_bytes()
    dialog = Dialog(desktop, open_dialog(desktop, program, "frmMap"))
    inner = desktop.probe.client_origin(window.handle)
    assert abs(dialog.window.left - inner[0]) <= CORNER and abs(dialog.window.top - inner[1]) <= CORNER
    dialog.take_keyboard()
    dialog.key("Down")  # data.ini is the first
    dialog.key("Return")
    dialog.wait_for_end()
    wait_until(lambda: program.highlighted() == "první", "the chosen map")
    wait_until(editor.has_focus, "the editor in front")

    dialog = Dialog(desktop, open_dialog(desktop, program, "frmConfig"))
    dialog.set_text("Text4", "nový")
    dialog.click("cmdOK")
    dialog.wait_for_end()
    assert lines(program.data_folder / "data_kniha.ini")[0] == "[1,1]nový,68"
    assert (program.data_folder / "data.ini").read_bytes() == common

    dialog = Dialog(desktop, open_dialog(desktop, program, "frmMap")).take_keyboard()
    dialog.key("End")
    (program.data_folder / "data_sešit.ini").unlink()
    dialog.key("Return")
    dialog.wait_for_end()
    wait_until(lambda: program.highlighted() == "a", "the common map instead of the lost one")
    assert not (program.data_folder / "data_sešit.ini").exists()
    assert program.close() == 0
