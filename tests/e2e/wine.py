# SPDX-License-Identifier: MIT
"""Wine prefixes. One template is made once; every run gets a copy of its own, so that no run sees
what another left behind. A copy takes a fraction of a second: its system files are hard links."""

import fcntl
import os
import pathlib
import re
import shutil
import subprocess
import tempfile

from waiting import wait_until

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ.get("TAVIRO_BUILD", ROOT / "build"))  # which build to test
WINE_FOLDER = ROOT / "build" / "wine"
WINE_MODULES = pathlib.Path("/usr/lib/x86_64-linux-gnu/wine")
MODULES32_STAMP = WINE_MODULES / "i386-windows" / ".libwine-version"
LINKED_FOLDERS = {"system32", "syswow64"}  # Wine replaces files there, it never writes into them
PREFIX_SECONDS = 180


def environment(prefix, display=None):
    """The environment of every Wine program: Czech, quiet, with the stand-in winmm.dll of the
    program's folder where there is one, and apart from the user's own folders."""
    result = {name: value for name, value in os.environ.items()
              if not name.startswith(("WINE", "LC_", "DISPLAY", "WAYLAND"))}
    result.update(
        WINEPREFIX=str(prefix),
        WINEDEBUG=os.environ.get("WINEDEBUG", "-all"),
        WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=;winmm=n,b",
        LC_ALL="cs_CZ.UTF-8",
        LANG="cs_CZ.UTF-8",
        HOME=str(WINE_FOLDER / "home"),
        PATH="/usr/bin:/bin:" + os.environ.get("PATH", ""),
    )
    if display:
        result["DISPLAY"] = display
    return result


def windows_path(path):
    """The path of a Linux file as Windows programs see it."""
    return "Z:" + str(path).replace("/", "\\")


def has_modules32():
    """Whether 32-bit programs can run."""
    return MODULES32_STAMP.exists()


def _template_stamp():
    version = subprocess.run(["/usr/bin/dpkg-query", "--show", "libwine"], check=True,
                             capture_output=True, text=True).stdout.strip()
    modules32 = MODULES32_STAMP.read_text().strip() if has_modules32() else "none"
    return f"{version}, 32-bit modules {modules32}\n"


def template():
    """The template prefix, made anew when Wine changed; about ten seconds the first time."""
    prefix = WINE_FOLDER / "prefix"
    stamp_file = WINE_FOLDER / "prefix.stamp"
    (WINE_FOLDER / "home").mkdir(parents=True, exist_ok=True)
    with open(WINE_FOLDER / "prefix.lock", "w", encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        stamp = _template_stamp()
        if stamp_file.exists() and stamp_file.read_text() == stamp:
            return prefix
        stamp_file.unlink(missing_ok=True)
        shutil.rmtree(prefix, ignore_errors=True)
        env = environment(prefix)
        subprocess.run(["wineboot", "-i"], env=env, check=True, timeout=PREFIX_SECONDS,
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)
        subprocess.run(["wineserver", "-w"], env=env, check=True, timeout=PREFIX_SECONDS)
        stamp_file.write_text(stamp)
    return prefix


def _copy_file(source, target):
    if pathlib.Path(source).parent.name in LINKED_FOLDERS:
        os.link(source, target)
    else:
        shutil.copy2(source, target)


class Prefix:
    """A copy of the template, removed with all its programs at the end."""

    def __init__(self):
        template_path = template()
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="run-", dir=WINE_FOLDER))
        self.path = self.folder / "prefix"
        shutil.copytree(template_path, self.path, symlinks=True, copy_function=_copy_file)

    def roaming_folder(self):
        """The user's roaming application data, as the prefix's registry names it."""
        registry = (self.path / "user.reg").read_text(encoding="latin-1")
        found = re.search(r'^\[[^\n]*\\\\Explorer\\\\Shell Folders\].*?^"AppData"="C:\\\\(.*?)"$',
                          registry, re.DOTALL | re.MULTILINE)
        return self.path / "drive_c" / pathlib.Path(*found.group(1).split("\\\\"))

    def close(self):
        env = environment(self.path)
        # At once, because nothing of the prefix is wanted any more; its programs end with it. Fails
        # when no program ran in the prefix; then there is nothing to end.
        subprocess.run(["wineserver", "-k9"], env=env, check=False, timeout=30)
        subprocess.run(["wineserver", "-w"], env=env, check=False, timeout=30)
        wait_until(self._remove, "the prefix's end", 30)

    def _remove(self):
        """Whether the folder is gone: a program that is just ending may still write into it."""
        shutil.rmtree(self.folder, ignore_errors=True)
        return not self.folder.exists()
