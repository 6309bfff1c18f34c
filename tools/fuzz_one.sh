#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# tools/fuzz_one.sh SECONDS FUZZER: runs one fuzzer from the inputs that its earlier runs found, and
# says in the closing line whether it passed. An input that breaks it is left in out/.
set -uo pipefail

name=$(basename "$2")
log=build/test-logs/$name.log
corpus=build/fuzz-corpus/$name
mkdir -p "$corpus" out build/test-logs
if "$2" -max_total_time="$1" -artifact_prefix="out/$name-" "$corpus" >"$log" 2>&1; then
    echo "$name: $(grep -E '^Done' "$log")"
    echo "1 passed, 0 failed"
else
    tail -n 60 "$log"
    echo "FAILED: $name"
    echo "0 passed, 1 failed"
fi
