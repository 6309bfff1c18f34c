#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# tools/effort/compare_maps.sh [FOLDER]: makes the arrangements of the letters that docs/maps.md
# compares, in a folder of its own, and prints what typing on each costs. Takes the build from FOLDER
# (build/native unless said). The arrangement "readable" is the delivered data/data.ini.
set -euo pipefail
cd "$(dirname "$0")/../.."

tool=$(realpath "${1:-build/native}")/tools/taviro_effort
words=predictor/data/words.tsv
source=data/data_abeceda.ini # the letters by the alphabet; what stands below them is the same everywhere
rows=6
seed=4
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

for order in frequency near readable annealed; do
    "$tool" arrange "$order" "$rows" "$words" "$source" "$seed" >"$folder/$order.ini" 2>/dev/null
done
cp "$source" "$folder/alphabet.ini"
cmp "$folder/readable.ini" data/data.ini
cmp "$folder/frequency.ini" data/data_sken.ini
cd "$folder"
"$tool" maps alphabet.ini frequency.ini near.ini readable.ini annealed.ini \
    --texts "$OLDPWD"/tools/effort/texts/*.txt
