# SPDX-License-Identifier: MIT
"""The checks, on Taviro's own tree."""

import pytest

import facts
import floors
import meaning
import sizes
import style
import words
from tree import ROOT

CHECKS = (facts.facts_without_test, meaning.meaning_elsewhere, meaning.second_writers,
          meaning.disturbed_dead_keys,
          floors.upward_includes, floors.include_cycles, floors.foreign_headers,
          floors.missing_folders, sizes.long_files, sizes.long_procedures,
          style.unformatted_files, style.shell_faults, words.unfinished_work,
          words.foreign_origins, words.missing_licence_lines)


@pytest.mark.parametrize("check", CHECKS, ids=lambda check: check.__name__)
def test_tree_has_no(check):
    problems = check(ROOT)
    assert not problems, "\n" + "\n".join(problems)
