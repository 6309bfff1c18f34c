# SPDX-License-Identifier: MIT
"""Packages for the tests, made from the built program folders: the version that would be delivered,
and a later one, small, in which files came, changed and went. They are made once for a build."""

import dataclasses
import fcntl
import hashlib
import os
import pathlib
import shutil
import subprocess

from map_file import map_bytes
from wine import BUILD, ROOT, has_modules32

FOLDER = BUILD / "packages-test"
BUILDS = {"x64": "win64", "x86": "win32"}
NEWER = "9.8.7"
TIMES = {"own": 1_700_000_000, NEWER: 1_710_000_000}  # of the files, in seconds since 1970
INPUTS = ("LICENSE", "NOTICE", "dialogs/product.h", "resources/taviro.ico", "tools/make_icon.py")
# Wine has no 32-bit drawing, so its pages can be seen in an installer for x64 alone.
STUBS = {"setup": "x86-unicode" if has_modules32() else "amd64-unicode", "pages": "amd64-unicode"}


@dataclasses.dataclass(frozen=True)
class Version:
    """One version: its number, its packages, and the folders they were made of."""
    number: str
    programs: dict
    setup: pathlib.Path
    pages: pathlib.Path | None  # the same as the set-up, with pages that Wine can show
    archives: dict

    def files(self, platform):
        """The contents of what it installs, by path."""
        return files_of(self.programs[platform])


def files_of(folder):
    return {path.relative_to(folder).as_posix(): path.read_bytes()
            for path in sorted(folder.rglob("*")) if path.is_file()}


def make(programs, out, version, seconds, stub=STUBS["setup"], compression="lzma"):
    """Runs the script that makes packages."""
    subprocess.run(["/usr/bin/python3", "-B", str(ROOT / "packaging" / "make_packages.py"),
                    "--x64", str(programs["x64"]), "--x86", str(programs["x86"]), "--out", str(out),
                    "--version", version, "--stub", stub, "--compression", compression],
                   env=dict(os.environ, SOURCE_DATE_EPOCH=str(seconds)), check=True,
                   capture_output=True, text=True)


def _make_newer(platform, target):
    """A later version: another program and dictionary, a new map and a new sound; most sounds and
    a map are gone."""
    source = BUILD / BUILDS[platform] / "taviro"
    for name in ("data", "sound"):
        (target / name).mkdir(parents=True)
    # Bytes after a program's end do not count for the system.
    for name in ("taviro.exe", "presager.exe"):
        if (source / name).exists():
            (target / name).write_bytes((source / name).read_bytes() + b"a later version")
    (target / "czech.dict").write_bytes(b"a later dictionary")
    (target / "comfort.ini").write_bytes(b"[Stick]\r\nWatch=1\r\nTomorrow=1\r\n")
    (target / "data" / "data.ini").write_bytes(map_bytes([[("nová", 65)]]))
    (target / "data" / "data_NEW.EXE.ini").write_bytes(map_bytes([[("nová", 65)]]))
    shutil.copy2(source / "sound" / "b.wav", target / "sound" / "a.wav")
    shutil.copy2(source / "sound" / "b.wav", target / "sound" / "čeština.wav")


def _stamp():
    digest = hashlib.sha256(repr((STUBS, TIMES)).encode())
    inputs = [ROOT / name for name in INPUTS] + [pathlib.Path(__file__)]
    for folder in (ROOT / "packaging", *(BUILD / build / "taviro" for build in BUILDS.values())):
        inputs += sorted(path for path in folder.rglob("*") if path.is_file())
    for path in inputs:
        digest.update(str(path).encode() + b"\0" + path.read_bytes())
    return digest.hexdigest()


def _version(number, programs):
    folder = FOLDER / number

    def one(name, end):
        return next((folder / name).glob("*" + end), None)

    return Version(number, programs, one("setup", "-setup.exe"), one("pages", "-setup.exe"),
                   {platform: one("setup", f"-{platform}.zip") for platform in BUILDS})


def _own_version():
    lines = (ROOT / "dialogs" / "product.h").read_text("utf-8").splitlines()
    numbers = {line.split()[1]: line.split()[2] for line in lines if line.startswith("#define")}
    return ".".join(numbers["PRODUCT_" + part] for part in ("MAJOR", "MINOR", "REVISION"))


def _make_all(own, programs):
    shutil.rmtree(FOLDER, ignore_errors=True)
    for platform, folder in programs[NEWER].items():
        _make_newer(platform, folder)
    # One as it is delivered; the large one quickly, because compressing takes nearly all the time.
    make(programs[own], FOLDER / own / "setup", own, TIMES["own"], compression="zlib")
    make(programs[NEWER], FOLDER / NEWER / "setup", NEWER, TIMES[NEWER])
    make(programs[NEWER], FOLDER / NEWER / "pages", NEWER, TIMES[NEWER], STUBS["pages"], "zlib")


def versions():
    """The delivered version and the later one."""
    own = _own_version()
    programs = {own: {platform: BUILD / build / "taviro" for platform, build in BUILDS.items()},
                NEWER: {platform: FOLDER / "newer" / platform for platform in BUILDS}}
    BUILD.mkdir(exist_ok=True)
    with open(BUILD / "packages-test.lock", "w", encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        stamp_file, stamp = FOLDER / "stamp", _stamp()
        if not stamp_file.exists() or stamp_file.read_text() != stamp:
            _make_all(own, programs)
            stamp_file.write_text(stamp)
    return _version(own, programs[own]), _version(NEWER, programs[NEWER])
