#!/bin/sh
# SPDX-License-Identifier: GPL-2.0-or-later
# Speed of the odds tool: run.sh [build dir]. Prints the in-process timings,
# the time of the whole table as a user runs it, then how fast reelmoor-odds
# values lines read from stdin.
set -eu
build=${1:-$(dirname "$0")/../../build}
lines=${LINES_TO_READ:-4000000}
"$build/bench/odds/reelmoor-odds-bench"
for symbols in 50 4; do
    /usr/bin/time -f "table, $symbols symbols, 2 threads: %e s wall, %U s user, %S s system" \
        "$build/tools/odds/reelmoor-odds" table --symbols $symbols --threads 2 > /dev/null
done
input=$(mktemp)
trap 'rm -f "$input"' EXIT
awk -v n="$lines" 'BEGIN { srand(1); for (i = 0; i < n; i++) {
    printf "%d %d %d %d %d\n", int(rand()*50), int(rand()*50), int(rand()*50), int(rand()*50), int(rand()*50) } }' > "$input"
start=$(date +%s.%N)
"$build/tools/odds/reelmoor-odds" line < "$input" > /dev/null
end=$(date +%s.%N)
echo "line from stdin, $lines lines:" \
    "$(echo "$lines / ($end - $start) / 1000000" | bc -l | cut -c1-5) million lines/s ($(echo "$end - $start" | bc -l | cut -c1-5) s)"
