# SPDX-License-Identifier: MIT
"""For tests of every built program: `@for_every_build` gives them the argument `build`. Whatever needs
an x86 program carries the mark `x86`, and does not run where Wine cannot run one."""

import pytest

for_every_build = pytest.mark.parametrize(
    "build", ["win64", pytest.param("win32", marks=pytest.mark.x86)])
