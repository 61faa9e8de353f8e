#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Builds the fuzz targets with clang and libFuzzer (under AddressSanitizer and
# UndefinedBehaviorSanitizer) and runs each for a bounded time, starting from
# its committed seed corpus. Fails when a target crashes, breaks one of its
# checks, leaks, runs out of memory or spends too long on one input.
#   tests/fuzz/run.sh [seconds per target]
# Seconds default to $REELMOOR_FUZZ_SECONDS or 60; the build folder is
# $REELMOOR_FUZZ_BUILD_DIR or build-fuzz. Inputs that break a target are kept
# in <build folder>/fuzz-runs/<target>/artifacts.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
seconds=${1:-${REELMOOR_FUZZ_SECONDS:-60}}
build=${REELMOOR_FUZZ_BUILD_DIR:-$root/build-fuzz}
targets=(fuzz_picture fuzz_symbol_file fuzz_winners fuzz_bank)

echo "== building the fuzz targets with clang in $build"
mkdir -p "$build"
if ! CC=clang CXX=clang++ cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
        -DREELMOOR_FUZZ=ON >"$build/configure.log" 2>&1; then
  cat "$build/configure.log"
  echo "fuzz: 0 passed, ${#targets[@]} failed (configure failed)"
  exit 1
fi
if ! cmake --build "$build" -j"$(nproc)" --target "${targets[@]}"; then
  echo "fuzz: 0 passed, ${#targets[@]} failed (build failed)"
  exit 1
fi

export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=detect_leaks=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export LSAN_OPTIONS=suppressions=$here/lsan.supp:print_suppressions=0

passed=0
failed=0
rows=()
for target in "${targets[@]}"; do
  work=$build/fuzz-runs/$target
  rm -rf "$work"
  mkdir -p "$work/corpus" "$work/artifacts"
  echo "== fuzzing $target for $seconds s"
  # New inputs go to the first folder, the seeds stay as committed.
  (cd "$work" && "$build/tests/fuzz/$target" \
      -max_total_time="$seconds" -timeout=5 -rss_limit_mb=2048 -detect_leaks=1 \
      -print_final_stats=1 -artifact_prefix="$work/artifacts/" \
      "$work/corpus" "$here/corpus/$target") >"$work/log" 2>&1
  status=$?

  execs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$work/log" | tail -1)
  rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$work/log" | tail -1)
  last=$(grep -E '^#[0-9]+.*cov: ' "$work/log" | tail -1)
  cov=$(sed -n 's/.* cov: \([0-9]*\).*/\1/p' <<<"$last")
  ft=$(sed -n 's/.* ft: \([0-9]*\).*/\1/p' <<<"$last")
  units=$(sed -n 's/.* corp: \([0-9]*\)\/.*/\1/p' <<<"$last")
  if [ "$status" -eq 0 ]; then
    result=ok
    passed=$((passed + 1))
  else
    result="FAILED (exit $status)"
    failed=$((failed + 1))
    echo "-- $target failed; the end of its log ($work/log):"
    tail -n 60 "$work/log"
    ls "$work/artifacts" | sed "s|^|-- kept input: $work/artifacts/|"
  fi
  rows+=("$(printf '%-14s %12s %8s %6s %7s %7s  %s' "$target" "${execs:--}" "${rate:--}" \
            "${cov:--}" "${ft:--}" "${units:--}" "$result")")
done

echo
printf '%-14s %12s %8s %6s %7s %7s  %s\n' target executions exec/s cov ft corpus result
printf '%s\n' "${rows[@]}"
echo "fuzz: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
