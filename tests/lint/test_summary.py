# SPDX-License-Identifier: MIT
"""The totals of ./test: no test is lost or invented on the way from a log to the closing line."""

import subprocess

import pytest

from tree import ROOT

GTEST = "[  PASSED  ] 740 tests.\r\n[  PASSED  ] 1 test.\n"
GTEST_BAD = "[  PASSED  ] 37 tests.\n[  FAILED  ] 2 tests, listed below:\n\n 2 FAILED TESTS\n"
GTEST_SKIP = "[  PASSED  ] 3 tests.\n[  SKIPPED ] 1 test, listed below:\n"

COUNTS = [
    ("gtest", GTEST, "741 0 0"),
    ("gtest", GTEST_BAD, "37 2 0"),
    ("gtest", GTEST_BAD + GTEST, "778 2 0"),
    ("gtest", GTEST_SKIP, "3 0 1"),
    ("gtest", "Segmentation fault\n", "0 0 0"),
    ("pytest", "1 failed, 26 passed in 70.44s (0:01:10)\n", "26 1 0"),
    ("pytest", "==== 110 passed, 2 skipped, 1 error in 3.85s ====\n", "110 1 2"),
    ("pytest", "1 failed, 2 passed in 7.00s\n14 passed, 9 deselected in 60.00s\n", "16 1 0"),
    ("pytest", "the log says 5 passed in words\n3 passed in 0.10s\n", "3 0 0"),
    ("plain", "20 passed, 0 failed\n", "20 0 0"),
    ("plain", "x\n1 passed, 0 failed\n0 passed, 1 failed\n", "1 1 0"),
]

# What a suite prints and its exit code; the closing line and ./test's exit code.
RUNS = [
    ("2 passed, 0 failed", 0, "2 passed, 0 failed", 0),
    ("2 passed, 1 failed", 1, "2 passed, 1 failed", 1),
    ("2 passed, 1 failed", 0, "2 passed, 1 failed", 1),
    ("2 passed, 0 failed", 3, "2 passed, 1 failed", 1),   # it broke after its last test
    ("", 0, "0 passed, 1 failed", 1),                     # it ran no test
    ("there is no tool for it", 77, "0 passed, 0 failed", 0),
]


def bash(script, folder):
    return subprocess.run(["bash", "-uc", f"source {ROOT}/tools/summary.sh\n" + script], cwd=folder,
                          check=False, capture_output=True, text=True)


@pytest.mark.parametrize("kind, log, expected", COUNTS)
def test_log_is_counted(tmp_path, kind, log, expected):
    (tmp_path / "log").write_bytes(log.encode())
    assert bash(f"count_{kind} log", tmp_path).stdout.strip() == expected


@pytest.mark.parametrize("output, code, closing, result", RUNS)
def test_run_ends_with_the_closing_line(tmp_path, output, code, closing, result):
    ran = bash(f"""
        log_folder=.
        suite_kind() {{ echo plain; }}
        suite_sample() {{ echo '{output}'; return {code}; }}
        run_suite sample
        print_summary""", tmp_path)
    assert ran.stderr == ""
    assert ran.stdout.splitlines()[-1] == closing
    assert ran.returncode == result
    assert ("!!! NOT RUN" in ran.stdout) == (code == 77)


@pytest.mark.parametrize("output, code, closing, result", RUNS)
def test_started_suite_counts_like_one_that_ran(tmp_path, output, code, closing, result):
    ran = bash(f"""
        log_folder=.
        suite_kind() {{ echo plain; }}
        suite_sample() {{ echo '{output}'; return {code}; }}
        suite_other() {{ echo '0 passed, 0 failed'; return 77; }}
        start_suite sample
        run_suite other
        run_suite sample
        print_summary""", tmp_path)
    assert ran.stderr == ""
    assert ran.stdout.splitlines()[-1] == closing
    assert ran.returncode == result
