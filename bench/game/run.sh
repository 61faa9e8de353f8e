#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Measures start-up (median of 11 runs), whole spins, and memory growth over
# many spins (bench_soak) of the game under a
# real X server (Xvfb), in a folder holding the game's assets.
# Usage: bench/game/run.sh [build-dir]
# With SYMBOLS=svg or SYMBOLS=png the folder holds our symbols as drawings or
# photos instead of metafiles, as a player's own set would be.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
build=$(realpath "${1:-$root/build}")
work=$(mktemp -d)
cp "$root"/assets/* "$work"/
if [ -n "${SYMBOLS:-}" ]; then
  rm "$work"/[0-9]*.emf
  QT_QPA_PLATFORM=offscreen "$build/tools/pictures/reelmoor-pictures" --symbols-as "$SYMBOLS" "$work" 2>/dev/null
fi
cd "$work"
if [ -z "${DISPLAY:-}" ]; then
  Xvfb :77 -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
  xvfb=$!
  trap 'kill $xvfb' EXIT
  export DISPLAY=:77
  sleep 1
fi
export SDL_AUDIODRIVER=${SDL_AUDIODRIVER:-dummy}
for i in $(seq 11); do "$build/bench/game/bench_startup"; done | sort -t' ' -k2 -n | awk '
  { ms[NR]=$2; rss[NR]=$4 } END { printf "startup median_ms %s (min %s max %s) rss_mb %s\n", ms[int((NR+1)/2)], ms[1], ms[NR], rss[int((NR+1)/2)] }'
"$build/bench/game/bench_spin" "${SPINS:-5}"
"$build/bench/game/bench_soak" "${SOAK_SPINS:-300}"
