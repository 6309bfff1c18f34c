# SPDX-License-Identifier: MIT
"""The files of a source tree: those that git knows or would add."""

import pathlib
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
CPP_SUFFIXES = (".cpp", ".h")
SCRIPT_SUFFIXES = (".py", ".sh")


def files(root):
    """All files, as paths relative to the root, sorted."""
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                            cwd=root, check=True, capture_output=True).stdout
    names = sorted(set(listed.decode().split("\0")) - {""})
    return [pathlib.PurePosixPath(name) for name in names if (root / name).is_file()]


def cpp_files(root):
    return [path for path in files(root) if path.suffix in CPP_SUFFIXES]


def scripts(root):
    """Python and shell."""
    return [path for path in files(root) if path.suffix in SCRIPT_SUFFIXES
            or not path.suffix and is_shell(root, path)]


def is_shell(root, path):
    return (read(root, path) or "").startswith(("#!/usr/bin/env bash", "#!/bin/sh"))


def read(root, path):
    """The text of a file; None when it is no UTF-8 text."""
    try:
        return (root / path).read_text(encoding="utf-8")
    except UnicodeDecodeError:
        return None
