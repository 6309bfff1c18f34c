#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Sourced by ./test, which sets fuzz_seconds: what each suite builds and runs.
# shellcheck disable=SC2154

python=(/usr/bin/python3 -B) # the system's, which has the modules that set-up installs
modules32_stamp=/usr/lib/x86_64-linux-gnu/wine/i386-windows/.libwine-version

# How a suite's output is counted.
suite_kind() {
    case $1 in
        unit | win64 | win32) echo gtest ;;
        lint | e2e) echo pytest ;;
        *) echo plain ;;
    esac
}

# Runs each command line of its arguments; fails if one did. Prints how many passed and failed.
run_each() {
    local command passed=0 failed=0
    for command in "$@"; do
        if bash -c "$command"; then
            passed=$((passed + 1))
        else
            echo "FAILED: $command"
            failed=$((failed + 1))
        fi
    done
    echo "$passed passed, $failed failed"
    [ "$failed" -eq 0 ]
}

suite_unit() {
    tools/build.sh asan || return
    local program shard pid code=0 pids=()
    for program in build/asan/tests/taviro_*_tests; do
        for shard in 0 1; do # one for each processor
            GTEST_TOTAL_SHARDS=2 GTEST_SHARD_INDEX=$shard "$program" \
                >"$log_folder/unit.$shard.log" 2>&1 &
            pids+=($!)
        done
        for pid in "${pids[@]}"; do
            wait "$pid" || code=1
        done
        cat "$log_folder"/unit.?.log
        pids=()
    done
    return "$code"
}

# The unit tests and those of the Windows platform, as Windows programs.
suite_windows() { # PRESET
    tools/build.sh "$1" || return
    local program commands=()
    for program in "build/$1"/tests/taviro_*_tests.exe "build/$1"/tests/*/taviro_*_tests.exe; do
        [ -e "$program" ] && commands+=(-- "$program")
    done
    "${python[@]}" tests/e2e/on_display.py "${commands[@]}"
}
suite_win64() { suite_windows win64; }
suite_win32() {
    if [ ! -e "$modules32_stamp" ]; then
        echo "Wine's 32-bit modules cannot be had, so no x86 program was tested"
        return 77
    fi
    suite_windows win32
}

suite_scenario() {
    tools/build.sh asan taviro_simulator || return
    (cd tests/scenarios && ../../build/asan/tools/taviro_simulator --test ./*.scenario)
}

suite_lint() { "${python[@]}" -m pytest -q tests/lint; }

# Gives way to the suites that it runs beside.
suite_tidy() { run_each "nice -n 19 tools/build.sh tidy"; }

# All fuzzers at once, so that more of them do not take longer; each says whether it passed.
suite_fuzz() {
    tools/build.sh fuzz || return
    printf '%s\0' build/fuzz/fuzz/fuzz_* |
        xargs -0 -n 1 -P 8 tools/fuzz_one.sh "$fuzz_seconds"
}

# Three tests at a time, each on a display of its own: they mostly wait. Those that measure time run
# alone.
suite_e2e() {
    tools/build.sh win64 || return
    if [ -e "$modules32_stamp" ]; then
        tools/build.sh win32 || return
    fi
    local code=0
    "${python[@]}" -m pytest -q -rs -n 3 -m 'not timed' tests/e2e || code=$?
    "${python[@]}" -m pytest -q -rs -m timed tests/e2e || code=$?
    return "$code"
}

# The engine's work, then the whole program beside an empty window.
suite_bench() {
    tools/build.sh native taviro_bench || return
    tools/build.sh win64 || return
    run_each build/native/bench/taviro_bench "/usr/bin/python3 -B bench/process_bench.py" \
        "/usr/bin/python3 -B bench/hook_bench.py" "/usr/bin/python3 -B bench/gui_calls.py" \
        "/usr/bin/python3 -B bench/dictionary_server.py"
}
