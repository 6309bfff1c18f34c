#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the packages out of built program folders: a portable archive for x64 and for x86, one
installer that holds both, and their checksums. The same folders and time give the same bytes.

packaging/make_packages.py [--x64 FOLDER] [--x86 FOLDER] [--out FOLDER] [--version VERSION]

The version is the program's own unless it is given. SOURCE_DATE_EPOCH sets the time of all files
(seconds since 1970); without it the time of the last commit is taken."""

import argparse
import hashlib
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tools"))

import make_icon  # noqa: E402  (found through the line above)

PRODUCT = ROOT / "dialogs" / "product.h"
SCRIPT = ROOT / "packaging" / "taviro.nsi"
PROGRAM = "taviro.exe"
TEXTS = {"LICENSE": "LICENSE.txt", "NOTICE": "NOTICE.txt"}
LIST = "files.txt"  # what an installed version consists of, for the next version's installer
LAST = (PROGRAM, LIST)  # replaced when all else is in place, by the script itself
FOLDERS = ("common", "x64", "x86")
EARLIEST = 315532800  # 1980, where the time of archives begins


def product():
    """The macros of product.h that are texts or numbers."""
    return {name: text.strip('"') for name, text in
            re.findall(r"^#define PRODUCT_(\w+) (\".*\"|\d+)$", PRODUCT.read_text("utf-8"), re.M)}


def own_version(facts):
    return ".".join(facts[part] for part in ("MAJOR", "MINOR", "REVISION"))


def file_time():
    """Seconds since 1970, even, because archives and some disks count in pairs of seconds."""
    given = os.environ.get("SOURCE_DATE_EPOCH")
    if given is None:
        last = subprocess.run(["git", "log", "-1", "--format=%ct"], cwd=ROOT, check=False,
                              capture_output=True, text=True)
        given = last.stdout.strip() or EARLIEST
    return max(int(given) // 2 * 2, EARLIEST)


def files_of(folder):
    """Relative paths of all files."""
    return sorted(path.relative_to(folder).as_posix()
                  for path in folder.rglob("*") if path.is_file())


def same_everywhere(name, folders):
    contents = [(folder / name).read_bytes() for folder in folders if (folder / name).exists()]
    return len(contents) == len(folders) and len(set(contents)) == 1


def put(content, target, seconds):
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_bytes(content)
    os.utime(target, (seconds, seconds))


def text_files():
    """The texts that go with every package, with the line ends that Windows editors expect."""
    return {name: b"\r\n".join((ROOT / source).read_bytes().splitlines()) + b"\r\n"
            for source, name in TEXTS.items()}


def stage(programs, target, seconds):
    """Lays the installer's files out: what both programs share once, the rest apart."""
    for kind, folder in programs.items():
        for name in files_of(folder):
            part = "common" if same_everywhere(name, programs.values()) else kind
            put((folder / name).read_bytes(), target / part / name, seconds)
    for name, content in text_files().items():
        put(content, target / "common" / name, seconds)
    for kind in programs:
        names = files_of(target / "common") + files_of(target / kind) + [LIST]
        lines = "".join(name.replace("/", "\\") + "\r\n" for name in names)
        put(lines.encode("utf-16"), target / kind / LIST, seconds)


def quoted(text):
    return '"' + text.replace("$", "$$") + '"'


def extracting(folder):
    """Lines that unpack a folder's files beside the installed ones."""
    lines, last = [], None
    for name in files_of(folder):
        place = pathlib.PurePosixPath(name).parent
        if place != last:
            below = "" if str(place) == "." else "\\" + str(place).replace("/", "\\")
            lines.append(f'SetOutPath "$INSTDIR\\${{NEW}}{below}"')
            last = place
        lines.append(f"File {quoted(str(folder / name))}")
    return lines


def each(names, macro):
    return [f"!insertmacro {macro} " + quoted(name.replace("/", "\\")) for name in names]


def kilobytes(*folders):
    return sum((path.stat().st_size + 4095) // 4096 * 4
               for folder in folders for path in folder.rglob("*") if path.is_file())


def listing(staged):
    """What the installer's script includes: macros that go through the files."""
    placed = {kind: files_of(staged / kind) for kind in FOLDERS}
    everything = sorted(set().union(*placed.values()))
    inner = {str(parent) for name in everything for parent in pathlib.PurePosixPath(name).parents}
    lines = []
    for kind in FOLDERS:
        lines += [f"!macro Extract_{kind}", *extracting(staged / kind), "!macroend",
                  f"!macro Place_{kind}",
                  *each([name for name in placed[kind] if name not in LAST], "PlaceFile"),
                  "!macroend"]
    lines += ["!macro RemoveFiles", *each([name for name in everything if name != PROGRAM],
                                          "RemoveFile"), "!macroend",
              "!macro RemoveFolders",
              *[f'RMDir "$INSTDIR\\{name}"'.replace("/", "\\")
                for name in sorted(inner - {"."}, reverse=True)], "!macroend"]
    lines += ["!macro MakeFolders",
              *[f'CreateDirectory "$INSTDIR\\{name}"'.replace("/", "\\")
                for name in sorted(inner - {"."})], "!macroend"]
    for kind in ("x64", "x86"):
        lines.append(f"!define KILOBYTES_{kind} {kilobytes(staged / 'common', staged / kind)}")
    return "\n".join(lines) + "\n"


def make_installer(programs, target, version, facts, seconds, options):
    with tempfile.TemporaryDirectory() as folder:
        staged = pathlib.Path(folder)
        stage(programs, staged, seconds)
        (staged / "files.nsh").write_text("\ufeff" + listing(staged), encoding="utf-8")
        make_icon.banner().save(staged / "banner.bmp")
        os.utime(staged / "banner.bmp", (seconds, seconds))  # it is unpacked for the pages
        defines = {"VERSION": version, "FILES": staged / "files.nsh", "TARGET": target,
                   "STUB": options.stub, "COMPRESSION": options.compression,
                   "BANNER": staged / "banner.bmp", "ICON": make_icon.TARGET,
                   "TITLE": facts["TITLE"], "COMMENTS": facts["COMMENTS"], "MAKER": facts["MAKER"],
                   "COPYRIGHT": facts["COPYRIGHT"], "WEB": facts["WEB"]}
        made = subprocess.run(
            ["makensis", "-V2", "-WX", "-INPUTCHARSET", "UTF8",
             *[f"-D{name}={value}" for name, value in defines.items()], str(SCRIPT)],
            env=dict(os.environ, LC_ALL="C.UTF-8", SOURCE_DATE_EPOCH=str(seconds)), check=False,
            capture_output=True, text=True)
        if made.returncode:
            raise SystemExit(made.stdout + made.stderr)


def make_archive(program, target, top, seconds):
    files = {name: (program / name).read_bytes() for name in files_of(program)}
    files.update(text_files())
    with zipfile.ZipFile(target, "w") as archive:
        for name in sorted(files):
            entry = zipfile.ZipInfo(f"{top}/{name}", time.gmtime(seconds)[:6])
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.create_system = 0  # as Windows programs write it, without rights
            archive.writestr(entry, files[name], compresslevel=9)


def make_all(programs, out, version, facts, options):
    seconds = file_time()
    shutil.rmtree(out, ignore_errors=True)
    out.mkdir(parents=True)
    base = f"{facts['TITLE']}-{version}"
    for kind, folder in programs.items():
        make_archive(folder, out / f"{base}-{kind}.zip", base, seconds)
    make_installer(programs, out / f"{base}-setup.exe", version, facts, seconds, options)
    sums = [f"{hashlib.sha256(path.read_bytes()).hexdigest()}  {path.name}\n"
            for path in sorted(out.iterdir())]
    (out / "SHA256SUMS").write_text("".join(sums), encoding="ascii")


def main():
    facts = product()
    parser = argparse.ArgumentParser()
    parser.add_argument("--x64", type=pathlib.Path, default=ROOT / "build" / "win64" / "taviro")
    parser.add_argument("--x86", type=pathlib.Path, default=ROOT / "build" / "win32" / "taviro")
    parser.add_argument("--out", type=pathlib.Path, default=ROOT / "out" / "packages")
    parser.add_argument("--version", default=own_version(facts))
    # Wine without 32-bit drawing can show the pages of the other kind alone.
    parser.add_argument("--stub", choices=("x86-unicode", "amd64-unicode"), default="x86-unicode",
                        help="which systems the installer itself runs on; x86 runs on all")
    parser.add_argument("--compression", choices=("lzma", "zlib"), default="lzma",
                        help="of the installer: small, or made quickly")
    given = parser.parse_args()
    if not re.fullmatch(r"\d{1,4}\.\d{1,4}\.\d{1,4}", given.version):
        parser.error("a version is three numbers: 1.2.3")
    programs = {"x64": given.x64, "x86": given.x86}
    for folder in programs.values():
        if not (folder / PROGRAM).is_file():
            parser.error(f"{folder} is no program folder; packaging/build.sh builds both")
    make_all(programs, given.out.resolve(), given.version, facts, given)
    for path in sorted(given.out.iterdir()):
        print(f"{path.stat().st_size:9} {path}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
