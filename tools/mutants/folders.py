# SPDX-License-Identifier: MIT
"""Which files are broken, and under which names folders are asked for."""

import pathlib
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "mutants"
FOLDERS = {
    "vocabulary": ("vocabulary/*",), "core": ("core/*",), "actions": ("actions/*",),
    "input": ("input/*",), "maps": ("maps/*",), "settings": ("settings/*",),
    "feedback": ("feedback/*",), "dialogs": ("dialogs/*",), "state": ("state/*",),
    "automation": ("automation/gui.cpp",), "predictor": ("predictor/*",),
}


def tree_files():
    """Every file that git knows or would add, relative to the root."""
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                            cwd=ROOT, check=True, capture_output=True).stdout
    names = sorted(set(listed.decode().split("\0")) - {""})
    return [name for name in names if (ROOT / name).is_file()]


def sources(folder, names):
    """The C++ files of a folder that are broken, without those of its subfolders."""
    found = []
    for pattern in FOLDERS[folder]:
        head, tail = pattern.split("/")
        for name in names:
            path = pathlib.PurePosixPath(name)
            if str(path.parent) == head and path.suffix in (".cpp", ".h") and path.match(tail):
                found.append(name)
    return found


def folder_of(name):
    return pathlib.PurePosixPath(name).parts[0]
