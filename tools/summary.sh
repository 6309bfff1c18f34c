#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Sourced by ./test: runs a suite, counts its tests from what it printed, and sums all up.

log_folder=build/test-logs
summary_rows=()
total_passed=0
total_failed=0
suites_not_run=()

# Adds up the numbers that a sed expression takes out of a log.
sum_of() { # LOG EXPRESSION
    tr -d '\r' <"$1" | sed -nE "$2" | awk '{ sum += $1 } END { print sum + 0 }'
}

# Each prints "passed failed notrun" of one log.
count_gtest() {
    echo "$(sum_of "$1" 's/^\[  PASSED  \] ([0-9]+) tests?\..*/\1/p')" \
        "$(sum_of "$1" 's/^ *([0-9]+) FAILED TESTS?$/\1/p')" \
        "$(sum_of "$1" 's/^\[  SKIPPED \] ([0-9]+) tests?, listed below.*/\1/p')"
}
count_pytest() { # each run's closing line: "3 failed, 25 passed, 1 skipped, 2 errors in 99.60s"
    local closing=$1.closing
    grep -E '^(=+ )?[0-9]+ [a-z, 0-9]+ in [0-9.]+s' "$1" | tr ',' '\n' >"$closing"
    echo "$(sum_of "$closing" 's/^[= ]*([0-9]+) passed.*/\1/p')" \
        "$(sum_of "$closing" 's/^[= ]*([0-9]+) (failed|errors?).*/\1/p')" \
        "$(sum_of "$closing" 's/^[= ]*([0-9]+) skipped.*/\1/p')"
}
count_plain() { # lines "N passed, N failed"
    echo "$(sum_of "$1" 's/^([0-9]+) passed, [0-9]+ failed$/\1/p')" \
        "$(sum_of "$1" 's/^[0-9]+ passed, ([0-9]+) failed$/\1/p')" 0
}

declare -A started_suites=()

# Runs suite_NAME beside what comes next; run_suite waits for it then.
start_suite() { # NAME
    "suite_$1" >"$log_folder/$1.log" 2>&1 &
    started_suites[$1]=$!
}

# Runs suite_NAME, or waits for it if it was started. Its result is told by count_KIND for the KIND that suite_kind names. A suite
# that fails without naming a test, or that names none at all, is a failure itself. Exit code 77: it
# could not run here.
run_suite() { # NAME
    local name=$1 log=$log_folder/$1.log started=$SECONDS code=0 passed failed notrun remark=
    printf '\n== %s (after %d min %d s)\n' "$name" $((SECONDS / 60)) $((SECONDS % 60))
    if [ -n "${started_suites[$name]:-}" ]; then
        wait "${started_suites[$name]}" || code=$?
    else
        "suite_$name" >"$log" 2>&1 || code=$?
    fi
    if [ "$code" -eq 77 ]; then
        suites_not_run+=("$name: $(tail -n 1 "$log")")
        summary_rows+=("$(summary_row "$name" - - - $((SECONDS - started)) 'NOT RUN')")
        printf '!!! NOT RUN: %s\n' "$(tail -n 1 "$log")"
        return
    fi
    read -r passed failed notrun <<<"$("count_$(suite_kind "$name")" "$log")"
    if [ "$failed" -eq 0 ] && { [ "$code" -ne 0 ] || [ "$passed" -eq 0 ]; }; then
        failed=1
        remark="ended with $code after $passed passed tests"
    fi
    if [ "$name" = bench ]; then
        cat "$log" # its numbers are the result
    elif [ "$failed" -gt 0 ]; then
        tail -n 80 "$log"
    fi
    if [ "$notrun" -gt 0 ]; then
        suites_not_run+=("$name: $notrun tests could not run here")
    fi
    printf '%s: %s passed, %s failed%s (the whole output: %s)\n' "$name" "$passed" "$failed" \
        "${remark:+, $remark}" "$log"
    total_passed=$((total_passed + passed))
    total_failed=$((total_failed + failed))
    summary_rows+=("$(summary_row "$name" "$passed" "$failed" "$notrun" \
        $((SECONDS - started)) "$remark")")
}

summary_row() { # NAME PASSED FAILED NOTRUN SECONDS REMARK
    printf '%-10s %7s %7s %8s %8s  %s' "$@"
}

# The table, what could not run, and the closing line. Fails when a test did.
print_summary() {
    printf '\n%s\n' "$(summary_row suite passed failed 'not run' seconds '')"
    printf '%s\n' "${summary_rows[@]}"
    local missing
    for missing in "${suites_not_run[@]}"; do
        printf '!!! NOT RUN, and not counted as passed: %s\n' "$missing"
    done
    printf '%s passed, %s failed\n' "$total_passed" "$total_failed"
    [ "$total_failed" -eq 0 ]
}
