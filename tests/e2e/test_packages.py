# SPDX-License-Identifier: MIT
"""The packages as a user meets them: installed, upgraded, interrupted and removed, in a fresh Wine.
What is the user's own is never lost."""

import resource
import shutil
import signal
import subprocess
import zipfile

import pytest

import packages
from installer import NO_ROOM, NO_WRITING, RETRY, RUNNING, WRONG_SWITCH, Installer, registry
from probe import WM_CLOSE
from waiting import wait_until
from wine import windows_path

CLASSES, RUN = r"HKCU\Software\Classes", r"HKCU\Software\Microsoft\Windows\CurrentVersion\Run"
UNINSTALL = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Taviro"
TEXTS = {"LICENSE.txt", "NOTICE.txt"}
ADDED = {"files.txt", "uninstall.exe"} | TEXTS  # beside the program's own folder

pytestmark = pytest.mark.x86  # an installer holds both programs


@pytest.fixture(scope="module")
def versions():
    return packages.versions()


class Place:
    """What an installation leaves on the desktop's disk and in its registry."""

    def __init__(self, desktop):
        self.desktop = desktop
        user = desktop.prefix.roaming_folder().parents[1]
        self.folder = user / "AppData" / "Local" / "Programs" / "Taviro"
        self.menu = (desktop.prefix.roaming_folder() / "Microsoft" / "Windows" / "Start Menu"
                     / "Programs" / "Taviro.lnk")

    def windows_folder(self):
        below = self.folder.relative_to(self.desktop.prefix.path / "drive_c")
        return "C:\\" + str(below).replace("/", "\\")

    def files(self):
        return packages.files_of(self.folder)

    def delivered(self):
        return {name: content for name, content in self.files().items() if name not in ADDED}

    def removed(self):
        """Waits for the end of an uninstaller, which goes on after it has copied itself away."""
        wait_until(lambda: not (self.folder / "uninstall.exe").exists()
                   and UNINSTALL not in registry(self.desktop, UNINSTALL), "the removal", 30)


def write_a_letter(program, desktop):
    """Types the letter under the highlight into an editor."""
    editor = desktop.editor()
    program.standin.press(0)
    editor.wait_for_text(program.highlighted())
    editor.close()


def close(program, desktop):
    """Ends a program that an installer or the system started."""
    desktop.probe.post(program.find_window().handle, WM_CLOSE)
    wait_until(lambda: not program.find_window(), "the program's end", 20)


def test_install_use_upgrade_and_removal(desktop, versions):
    own, newer = versions
    place = Place(desktop)
    assert Installer(desktop, own.setup).run("/AUTOSTART=1") == 0
    assert place.delivered() == own.files("x64")
    assert set(place.files()) & ADDED == ADDED
    assert place.menu.exists()
    assert rf'"Taviro"="\"{place.windows_folder()}\taviro.exe\""' in registry(desktop, RUN)
    entry = registry(desktop, UNINSTALL)
    assert f'"DisplayVersion"="{own.number}"' in entry and "vývojáři" in entry
    assert "Taviro.GUI" in registry(desktop, CLASSES)
    has_server = "presager.exe" in own.files("x64")
    assert ("Presager" in registry(desktop, CLASSES)) == has_server

    program = desktop.program(folder=place.folder)
    program.start()
    assert packages.files_of(program.data_folder) == packages.files_of(place.folder / "data")
    program.use_map([("x", 88)], [("můj", 89)])
    for setup in (own.setup, newer.setup):
        assert Installer(desktop, setup).run() == RUNNING
    assert Installer(desktop, place.folder / "uninstall.exe").run(
        "_?=" + place.windows_folder()) == RUNNING
    assert place.delivered() == own.files("x64") | {
        "winmm.dll": (place.folder / "winmm.dll").read_bytes()}
    program.close()
    program.start()
    write_a_letter(program, desktop)
    assert program.close() == 0

    (program.data_folder / "comfort.ini").write_bytes(b"[Stick]\r\nWatch=0\r\n")
    users = packages.files_of(program.data_folder)
    # Changed in the wrong place: the file is the program's, and an upgrade brings its new keys.
    (place.folder / "comfort.ini").write_bytes(b"[Stick]\r\nWatch=0\r\n")
    (place.folder / "sound" / "c.wav").write_bytes(b"recorded by the user")
    (place.folder / "sound" / "moje.wav").write_bytes(b"added by the user")
    assert Installer(desktop, newer.setup).run() == 0
    kept = {"sound/c.wav": b"recorded by the user", "sound/moje.wav": b"added by the user",
            "winmm.dll": (place.folder / "winmm.dll").read_bytes()}
    assert place.delivered() == newer.files("x64") | kept
    assert packages.files_of(program.data_folder) == users
    assert f'"DisplayVersion"="{newer.number}"' in registry(desktop, UNINSTALL)
    assert "Taviro" in registry(desktop, RUN)  # as it was chosen for the version before
    program.start()
    assert program.highlighted() == "x"
    assert program.close() == 0

    assert Installer(desktop, place.folder / "uninstall.exe").run() == 0
    place.removed()
    assert place.files() == kept
    assert packages.files_of(program.data_folder) == users
    assert not place.menu.exists()
    for key in (CLASSES, RUN, UNINSTALL):
        assert "aviro" not in registry(desktop, key) and "resager" not in registry(desktop, key)


def test_x86_program_in_a_folder_with_czech_letters(desktop, versions):
    own = versions[0]
    place = Place(desktop)
    place.folder = desktop.prefix.path / "drive_c" / "Žluťoučký kůň" / "Taviro"
    setup = Installer(desktop, own.setup)
    assert setup.run("/PLATFORM=x86", "/STARTMENU=0", r"/D=C:\Žluťoučký kůň\Taviro") == 0
    assert place.delivered() == own.files("x86")
    assert not place.menu.exists()
    assert "Taviro" not in registry(desktop, RUN)
    program = desktop.program(build="win32", folder=place.folder)
    program.start()
    assert packages.files_of(program.data_folder) == packages.files_of(place.folder / "data")
    assert program.close() == 0
    (place.folder / "winmm.dll").unlink()

    assert setup.run() == 0  # once more: into the same folder, with the same choices
    assert place.delivered() == own.files("x86")
    assert not place.menu.exists()

    before, place.folder = place.folder, desktop.prefix.path / "drive_c" / "Jinde"
    assert setup.run(r"/D=C:\Jinde") == 0  # into another: it moves
    assert place.delivered() == own.files("x86")
    assert not before.exists()
    assert place.windows_folder() in registry(desktop, UNINSTALL)
    in_use = windows_path(place.folder / "taviro.exe")
    desktop.probe.lock(in_use)
    removal = Installer(desktop, place.folder / "uninstall.exe")
    assert removal.run("_?=" + place.windows_folder()) == NO_WRITING
    assert place.delivered() == own.files("x86")
    desktop.probe.unlock(in_use)
    assert removal.run() == 0
    place.removed()
    wait_until(lambda: not place.folder.exists(), "the end of the folder")


def test_wrong_switch_or_folder_installs_nothing(desktop, versions):
    for switch in ("/AUTOSTART=yes", "/PLATFORM=arm", "/D=no whole path", "/D=folder",
                   r"/D=Q:\no_drive", r"/D=C:\windows\win.ini\file"):
        assert Installer(desktop, versions[0].setup).run(switch) == WRONG_SWITCH, switch
    place = Place(desktop)
    assert not place.folder.exists()
    place.folder.mkdir(parents=True)
    (place.folder / "~new").write_bytes(b"where the folder of the new version should be")
    assert Installer(desktop, versions[0].setup).run() == NO_WRITING
    assert list(place.files()) == ["~new"]


def whole(place, *all_versions):
    """Whether every file that is there is a whole one of some version."""
    allowed = [version.files("x64") for version in all_versions]
    return all(any(files.get(name) == content for files in allowed)
               for name, content in place.delivered().items() if not name.startswith("~new/"))


def test_interrupted_upgrades_leave_a_working_program(desktop, versions):
    older, newer = reversed(versions)  # the later version first, because the other one takes longer
    place = Place(desktop)
    assert Installer(desktop, older.setup).run() == 0
    before = place.files()

    def let_no_file_grow():
        # As a full disk, with room for the installer's own work and none for the program.
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        resource.setrlimit(resource.RLIMIT_FSIZE, (700_000, 700_000))

    upgrade = Installer(desktop, newer.setup)
    assert upgrade.run(preexec_fn=let_no_file_grow) == NO_WRITING
    assert place.files() == before

    in_use = windows_path(place.folder / "taviro.exe")
    desktop.probe.lock(in_use)
    assert upgrade.run() == NO_WRITING
    desktop.probe.unlock(in_use)
    assert place.files() == before

    # Ended by force while it unpacks, and again while it replaces one file after the other.
    for sign in ("~new", "sound/b.wav"):
        started = upgrade.open("/S")
        wait_until(lambda path=place.folder / sign, one=started:
                   path.exists() or one.poll() is not None, "the installer's work")
        upgrade.kill()
        assert whole(place, older, newer)
    program = desktop.program(folder=place.folder)
    program.start()
    assert program.close() == 0
    (place.folder / "winmm.dll").unlink()

    assert upgrade.run() == 0
    assert place.delivered() == newer.files("x64")


def test_full_disk_is_told_before_anything_is_written(desktop, versions, tmp_path):
    disk = desktop.prefix.path / "drive_c" / "disk"
    disk.mkdir()
    mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", "size=1m", "tmpfs", str(disk)],
                             check=False, capture_output=True)
    if mounted.returncode:
        pytest.skip("a small disk takes the right to mount one")
    try:
        setup = Installer(desktop, versions[0].setup)
        assert setup.run(r"/D=C:\disk\Taviro") == NO_ROOM
        assert list(disk.iterdir()) == []
    finally:
        subprocess.run(["umount", str(disk)], check=True)


def test_pages_wait_for_the_running_program_and_start_the_new_one(desktop, versions):
    setup = Installer(desktop, versions[1].pages)
    setup.open()
    welcome = setup.page("Taviro umožňuje ovládat počítač")
    assert Installer(desktop, versions[1].setup).run() == RUNNING  # one installer at a time
    running = desktop.program()
    running.start()
    setup.press(welcome)
    setup.press(setup.page("&Přidat Taviro do nabídky Start"))
    setup.press(setup.page("Instalační program nainstaluje"))
    message = setup.page("Taviro právě běží")
    assert not (Place(desktop).folder).exists()
    assert running.close() == 0
    setup.press(message, RETRY)
    setup.press(setup.page("Taviro je nainstalován."))
    wait_until(running.find_window, "the installed program's window", 30)
    assert setup.wait_for_end() == 0
    close(running, desktop)
    assert Place(desktop).delivered() == versions[1].files("x64")


@pytest.mark.parametrize("platform", packages.BUILDS)
def test_archive_holds_the_program_folder_and_the_licences(versions, platform):
    own = versions[0]
    with zipfile.ZipFile(own.archives[platform]) as archive:
        top = f"Taviro-{own.number}/"
        contents = {name.removeprefix(top): archive.read(name) for name in archive.namelist()}
        assert all(name.startswith(top) for name in archive.namelist())
    assert set(contents) == set(own.files(platform)) | TEXTS
    assert {name: contents[name] for name in own.files(platform)} == own.files(platform)
    assert b"MIT License\r\n" in contents["LICENSE.txt"]


def test_packages_are_the_same_when_made_again(versions, tmp_path):
    newer = versions[1]
    programs = {}
    for platform, folder in newer.programs.items():  # other files, folders and times
        programs[platform] = tmp_path / "another place" / platform
        shutil.copytree(folder, programs[platform], copy_function=shutil.copyfile)
    packages.make(programs, tmp_path / "out", newer.number, packages.TIMES[packages.NEWER])
    assert packages.files_of(tmp_path / "out") == packages.files_of(newer.setup.parent)
