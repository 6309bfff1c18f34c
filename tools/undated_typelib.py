#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Takes the time of its making out of a type library, so that the program that carries it is the
same whenever it is built: tools/undated_typelib.py FILE. The compiler writes the time twice, as words
and as seconds right behind them."""

import pathlib
import re
import sys

MADE = re.compile(rb"(Created by WIDL version [0-9.]+ at )(.{24})(\nW*\x13\0)(.{4})", re.DOTALL)


def undated(content):
    return MADE.sub(lambda found: found[1] + b"an unrecorded time".ljust(24) + found[3] + bytes(4),
                    content)


def main():
    path = pathlib.Path(sys.argv[1])
    path.write_bytes(undated(path.read_bytes()))
    return 0


if __name__ == "__main__":
    sys.exit(main())
