# SPDX-License-Identifier: MIT
"""A person whose name, and with it every folder of his, is written in letters that Windows-1250
lacks: nothing is missing that others have."""

import shutil
import subprocess

from dictionary import data_folder, kill_server, learned, register
from test_files import files_of, first_settings
from test_launching import Recorder
from test_prediction import Writer
from waiting import wait_until
from wine import BUILD, windows_path

NAME = "Жанна 日本"
SHELL_FOLDERS = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Explorer\User Shell Folders"
MODE = 1
BYTE_ORDER_MARK = "\ufeff"


def foreign_program(desktop):
    """Taviro in a folder of the user's, who has such a name."""
    roaming = rf"C:\users\{NAME}\AppData\Roaming"
    subprocess.run(["wine", "reg", "add", SHELL_FOLDERS, "/v", "AppData", "/d", roaming, "/f"],
                   env=desktop.env, check=True, stdin=subprocess.DEVNULL,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=60)
    folder = desktop.prefix.path / "drive_c" / "users" / NAME
    (folder / "AppData" / "Roaming").mkdir(parents=True)
    shutil.copytree(BUILD / "win64" / "taviro", folder / "Programy" / "taviro")
    program = desktop.program(folder=folder / "Programy" / "taviro")
    (program.folder / "comfort.ini").unlink()
    program.data_folder = (folder / "AppData" / "Roaming" / "Nordane" / "Corvela" / "v2.2"
                           / "taviro")
    return program


def test_first_start_makes_files_and_settings_in_the_users_folder(desktop):
    program = foreign_program(desktop)
    program.start()
    delivered = files_of(program.folder / "data")
    assert files_of(program.data_folder) == delivered
    assert program.close() == 0
    assert program.setting_file().read_bytes() == first_settings()


def test_words_are_offered_and_learned(desktop):
    program = foreign_program(desktop)
    register(program)
    writer = Writer(desktop, program, "plkuj den abc")
    writer.word("plkuj")
    writer.word("den")
    assert "den" in writer.offers.taken
    wait_until(lambda: "plkuj" in learned(program), "the learned word")
    assert NAME in str(data_folder(program))
    kill_server(program)
    assert program.close() == 0


def test_sounds_programs_and_documents_of_the_users_folder_are_found(desktop):
    program = foreign_program(desktop)
    recorder = Recorder(desktop, program)
    inside = recorder.install(program.folder / "inside.exe")
    recorder.open_documents("tvdoc", inside)
    paper = program.folder / "письмо 本.tvdoc"
    paper.write_bytes(b"")
    cells = [("start", 27, ""), ("inside", 0, r"\inside.exe"), ("program", 0, f'"{inside}"'),
             ("paper", 0, f'"{windows_path(paper)}"')]
    lines = [*(f"[{column},1]{caption},{code},{command}"
               for column, (caption, code, command) in enumerate(cells, 1)), ""]
    program.data_folder.mkdir(parents=True)
    (program.data_folder / "data.ini").write_bytes(
        (BYTE_ORDER_MARK + "\r\n".join(lines)).encode("utf-8"))
    program.use_settings()
    # A button that opens the same document, as the program itself stores it.
    setting = program.setting_file().read_bytes().decode("ascii")
    program.setting_file().write_bytes(
        (BYTE_ORDER_MARK + setting + f"2=${windows_path(paper)}$\r\n").encode("utf-8"))
    program.use_sounds("mode_arrow")
    desktop.editor()
    program.start()
    program.standin.wait_for_poll()

    opened = ("inside.exe", f'"{windows_path(paper)}"')
    for expected in [("inside.exe", ""), ("inside.exe", ""), opened]:
        program.press_next()
        assert recorder.take() == expected
    program.standin.press(2)
    assert recorder.take() == opened
    program.standin.press(MODE)
    sound = wait_until(program.standin.sounds, "the mode's sound")[0]
    assert sound.path == rf"C:\users\{NAME}\Programy\taviro\sound\mode_arrow.wav"
    assert program.close() == 0
    assert f"2=${windows_path(paper)}$" in program.setting_file().read_text(encoding="utf-8")
