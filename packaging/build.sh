#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds Taviro for x64 and x86 and makes the packages: installer, portable archives, checksums. They
# go to out/packages/. Installs what is missing; asks nothing. docs/packaging.md has the details.
set -euo pipefail
cd "$(dirname "$0")/.."

tools/setup.sh
for preset in win64 win32; do
    tools/build.sh "$preset" program_folder
done
exec /usr/bin/python3 -B packaging/make_packages.py "$@"
