# SPDX-License-Identifier: MIT
"""The user's data folder: made and seeded by the first start, settings saved at the end."""

WM_QUERYENDSESSION = 0x0011
WM_ENDSESSION = 0x0016

FIRST_SETTINGS = """\
[Info]
TriggerRowReset=0
TriggerColumnReset=0
ColumnWrap=0
RowWrap=1
ScanMode=0
VoiceOnLineChange=0
ScanSizeX=50
ScanSizeY=50
ScanDelay=0
CellTextSize=8
CellWidth=60
CellHeight=15
DefCursorButton=-1
DefActionButton=-1
Log=0
[Voice]
Name=Male
Rate=0
Pitch=0
Volume=50
[Buttons]
0=*action
1=*mode
"""


def first_settings():
    """The bytes of a first save."""
    return FIRST_SETTINGS.replace("\n", "\r\n").encode("ascii")


def files_of(folder):
    return {path.name: path.read_bytes() for path in folder.iterdir() if path.is_file()}


def test_first_start_makes_the_folders_and_copies_every_data_file(desktop):
    program = desktop.program()
    assert not (desktop.prefix.roaming_folder() / "Nordane").exists()
    program.start()
    delivered = files_of(program.folder / "data")
    assert "data.ini" in delivered
    assert files_of(program.data_folder) == delivered
    assert program.close() == 0


def test_start_with_data_ini_copies_nothing(desktop):
    program = desktop.program()
    program.data_folder.mkdir(parents=True)
    own = b"[1,1]x,65\r\n"
    (program.data_folder / "data.ini").write_bytes(own)
    program.start()
    assert program.highlighted() == "x"
    assert files_of(program.data_folder) == {"data.ini": own}
    program.close()


def test_close_saves_the_settings_as_a_first_save(desktop):
    program = desktop.program()
    program.start()
    assert not program.setting_file().exists()
    assert program.close() == 0
    assert program.setting_file().read_bytes().splitlines() == first_settings().splitlines()
    assert program.setting_file().read_bytes() == first_settings()


def test_logoff_saves_the_settings(desktop):
    program = desktop.program()
    window = program.start()
    assert desktop.probe.send(window.handle, WM_QUERYENDSESSION) == 1
    desktop.probe.send(window.handle, WM_ENDSESSION, 1)
    # The system may end the program as soon as the message was answered.
    assert program.setting_file().read_bytes() == first_settings()


def test_refused_logoff_saves_nothing_and_goes_on(desktop):
    program = desktop.program()
    window = program.start()
    desktop.probe.send(window.handle, WM_ENDSESSION, 0)
    program.standin.wait_for_poll()
    assert not program.setting_file().exists()
    assert program.close() == 0
