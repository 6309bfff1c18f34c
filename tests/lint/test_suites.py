# SPDX-License-Identifier: MIT
"""Which suites ./test runs: each that there is, in some run, and none that there is not."""

import re
import subprocess

import pytest

from tree import ROOT

SUITES = re.findall(r"^suite_(\w+)\(\)", (ROOT / "tools" / "suites.sh").read_text("utf-8"),
                    re.MULTILINE)
HELPERS = {"kind"}


def suites_of(run):
    told = subprocess.run(["bash", "-uc", f"source tools/suites.sh; suites_of '{run}'"], cwd=ROOT,
                          check=False, capture_output=True, text=True)
    return told.stdout.split(), told.returncode


def test_every_suite_belongs_to_the_full_run_and_no_other_does():
    assert sorted(suites_of("full")[0]) == sorted(set(SUITES) - HELPERS)


@pytest.mark.parametrize("run", ["default", "nightly"])
def test_full_run_holds(run):
    suites = suites_of(run)[0]
    assert suites and set(suites) <= set(suites_of("full")[0])


@pytest.mark.parametrize("suite", sorted(set(SUITES) - HELPERS))
def test_one_suite_runs_alone(suite):
    assert suites_of(suite) == ([suite], 0)


@pytest.mark.parametrize("unknown", ["all", "uni", "unit scenario", "windows"])
def test_unknown_run_is_refused(unknown):
    assert suites_of(unknown) == ([], 1)


def test_unknown_argument_is_told_the_usage():
    told = subprocess.run([ROOT / "test", "everything"], check=False, capture_output=True, text=True)
    assert told.returncode == 2
    assert all(suite in told.stderr for suite in suites_of("full")[0])


def test_gate_holds_all_but_figures_and_what_another_suite_tells():
    assert set(suites_of("full")[0]) - set(suites_of("gate")[0]) == {"bench", "mutants", "unit64"}
