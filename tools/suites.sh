#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Sourced by ./test, which sets run and fuzz_seconds: which suites there are, and what each builds and runs.
# shellcheck disable=SC2154

python=(/usr/bin/python3 -B) # the system's, which has the modules that set-up installs
modules32_stamp=/usr/lib/x86_64-linux-gnu/wine/i386-windows/.libwine-version

# The suites of a run: what runs before every commit; what is worth waiting for besides; what takes
# hours; or one alone. Those whose waits and times are the real ones come last. Fails for an unknown one.
suites_of() { # default | full | gate | nightly | NAME
    local full=(unit scenario lint win64 win32 unit64 unit32 tidy fuzz mutants e2e e2e32 bench)
    case $1 in
        default) echo unit scenario lint win64 e2e ;;
        full) echo "${full[@]}" ;;
        # What decides whether a change lands: all but figures in seconds, which say as much about the
        # machine, the sample of the breaks, whose time there is not known yet, and the rules as an x64
        # program, which run natively and as x86.
        gate) printf '%s\n' "${full[@]}" | grep -vxE 'mutants|bench|unit64' | tr '\n' ' ' ;;
        nightly) echo fuzz mutants ;;
        *) printf '%s\n' "${full[@]}" | grep -xF -- "$1" ;;
    esac
}

# How long each fuzzer runs.
fuzz_seconds_of() { # RUN
    case $1 in
        nightly) echo 3600 ;;
        *) echo 6 ;;
    esac
}

# What uses one processor runs beside something else, and clang-tidy in what is left over.
suites_beside() { # NAME
    case $1 in
        unit) echo lint win64 tidy ;;
        win64) echo win32 ;;
        unit64) echo unit32 ;;
    esac
}

# How a suite's output is counted.
suite_kind() {
    case $1 in
        unit | unit64 | unit32 | win64 | win32) echo gtest ;;
        lint | e2e | e2e32) echo pytest ;;
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
    tools/build.sh asan taviro_unit_tests taviro_simulator || return
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

# Test programs of a Windows build, in Wine. Those for x86 take its 32-bit modules.
run_windows_tests() { # PRESET TARGET
    if [ "$1" = win32 ] && ! runs_x86; then return 77; fi
    tools/build.sh "$1" "$2" || return
    "${python[@]}" tests/e2e/on_display.py "$(find "build/$1/tests" -name "$2.exe")"
}
suite_win64() { run_windows_tests win64 taviro_win32_tests; }
suite_win32() { run_windows_tests win32 taviro_win32_tests; }
suite_unit64() { run_windows_tests win64 taviro_unit_tests; }
suite_unit32() { run_windows_tests win32 taviro_unit_tests; }

runs_x86() {
    [ -e "$modules32_stamp" ] && return
    echo "Wine's 32-bit modules cannot be had, so nothing of x86 was tested"
    return 1
}

# What a scenario expects holds under every circumstance.
suite_scenario() {
    local circumstance code=0
    tools/build.sh asan taviro_simulator || return
    for circumstance in --test --us --numlock --held --foreign; do
        echo "$circumstance"
        (cd tests/scenarios && ../../build/asan/tools/taviro_simulator --test "$circumstance" ./*.scenario) || code=1
    done
    return "$code"
}

suite_lint() { "${python[@]}" -m pytest -q tests/lint; }

# Gives way to the suites that it runs beside.
suite_tidy() {
    run_each "nice -n 19 tools/build.sh tidy" "nice -n 19 tools/build.sh tidy64 com platform_win32 \
        automation_win32 predictor_win32 taviro_win32_tests CMakeFiles/taviro.dir/main.cpp.obj"
}

# All fuzzers at once, so that more of them do not take longer; each says whether it passed.
suite_fuzz() {
    tools/build.sh fuzz || return
    printf '%s\0' build/fuzz/fuzz/fuzz_* |
        xargs -0 -n 1 -P 8 tools/fuzz_one.sh "$fuzz_seconds"
}

# A sample of the breaks that no test may overlook; all of them at night.
suite_mutants() {
    local which=--sample
    if [ "$run" = nightly ]; then which=--all; fi
    "${python[@]}" tools/mutants "$which" --count
}

# Three tests at a time, each on a display of its own: they mostly wait. Those that measure time run
# alone.
suite_e2e() {
    tools/build.sh win64 || return
    local code=0
    "${python[@]}" -m pytest -q -rs -n 3 -m 'not timed and not x86' tests/e2e || code=$?
    "${python[@]}" -m pytest -q -rs -m timed tests/e2e || code=$?
    return "$code"
}
suite_e2e32() {
    runs_x86 || return 77
    tools/build.sh win64 || return
    tools/build.sh win32 || return
    "${python[@]}" -m pytest -q -rs -n 3 -m x86 tests/e2e
}

# The engine's work, then the whole program beside an empty window.
suite_bench() {
    tools/build.sh native taviro_bench || return
    tools/build.sh win64 || return
    run_each build/native/bench/taviro_bench "/usr/bin/python3 -B bench/process_bench.py" \
        "/usr/bin/python3 -B bench/hook_bench.py" "/usr/bin/python3 -B bench/gui_calls.py" \
        "/usr/bin/python3 -B bench/dictionary_server.py"
}
