# SPDX-License-Identifier: MIT
"""What other programs check: the layout of C++ files, and shell scripts."""

import subprocess

from tree import cpp_files, files, is_shell


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
    shell = [path for path in files(root) if is_shell(root, path)]
    return _complaints(["shellcheck", "-x"], root, shell)
