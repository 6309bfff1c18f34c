#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# tools/build.sh PRESET [TARGET...]: configures and builds a preset, everything or some targets of it.
# A build folder that an interrupted or older configuration spoilt is made anew.
set -euo pipefail
cd "$(dirname "$0")/.."

preset=$1
shift
# The system's tools first: another Python or CMake on the path may lack what the build takes.
export PATH=/usr/bin:/bin:$PATH
cmake --preset "$preset" || cmake --fresh --preset "$preset"
arguments=()
if [ $# -gt 0 ]; then
    arguments+=(--target "$@")
fi
if [[ $preset == tidy* ]]; then
    arguments+=(-- -k 0) # all complaints at once
fi
cmake --build --preset "$preset" "${arguments[@]}"
