# SPDX-License-Identifier: MIT
"""Runs Windows test programs, one after the other, in a fresh prefix on a display of its own.
Usage: on_display.py PROGRAM [ARGUMENT...] [-- PROGRAM [ARGUMENT...]]...
The exit code is 0 when all ended with 0."""

import contextlib
import itertools
import subprocess
import sys

from display import Display
from wine import ROOT, Prefix, environment


def main(arguments):
    commands = [list(group) for separator, group
                in itertools.groupby(arguments, lambda argument: argument == "--")
                if not separator]
    failures = 0
    with contextlib.closing(Display()) as display, contextlib.closing(Prefix()) as prefix:
        env = environment(prefix.path, display.name)
        for command in commands:
            print("running", *command, flush=True)
            code = subprocess.run(["wine", *command], env=env, cwd=ROOT, check=False,
                                  stdin=subprocess.DEVNULL).returncode
            if code:
                print(f"{command[0]} ended with {code}", flush=True)
                failures += 1
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
