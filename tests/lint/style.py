# SPDX-License-Identifier: MIT
"""What other programs check: the layout of C++ files, and shell scripts."""

import subprocess

from tree import cpp_files, files, read


def _complaints(command, root, paths):
    if not paths:
        return []
    checked = subprocess.run(command + [str(path) for path in paths], cwd=root, check=False,
                             capture_output=True, text=True)
    if checked.returncode == 0:
        return []
    return (checked.stdout + checked.stderr).splitlines() or [f"{command[0]} failed"]


def unformatted_files(root):
    return _complaints(["clang-format", "--dry-run", "--Werror", "--style=file"], root,
                       cpp_files(root))


def shell_faults(root):
    scripts = [path for path in files(root)
               if (read(root, path) or "").startswith(("#!/usr/bin/env bash", "#!/bin/sh"))]
    return _complaints(["shellcheck", "-x"], root, scripts)
