#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Builds reelmoor and runs every test. Tests run on Qt's offscreen platform;
# the few that need a real X server get one from Xvfb, started here.
# Then, unless REELMOOR_QUICK=1: the whole suite again built with
# AddressSanitizer and UndefinedBehaviorSanitizer (build-asan/, or
# $REELMOOR_ASAN_BUILD_DIR), and each fuzz target for a while (build-fuzz/,
# $REELMOOR_FUZZ_SECONDS seconds each, default 60). Exits non-zero when any
# stage fails.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/deps.sh" --test

if [ -z "${DISPLAY:-}" ] && command -v Xvfb >/dev/null; then
  display=:$(( 90 + RANDOM % 100 ))
  Xvfb "$display" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
  xvfb_pid=$!
  trap 'kill $xvfb_pid 2>/dev/null || true' EXIT
  export DISPLAY=$display
fi

# Each stage runs to its end; the summary at the bottom tells which failed.
stages=()
failures=0
record() {  # record <stage> <exit status>
  if [ "$2" -eq 0 ]; then
    stages+=("$1: passed")
  else
    stages+=("$1: FAILED")
    failures=$((failures + 1))
  fi
}

echo "== tests"
status=0
# The asset generators and the benchmarks build too, so they never rot.
cmake -S "$root" -B "${REELMOOR_BUILD_DIR:-$root/build}" -DREELMOOR_DEVELOPER_TOOLS=ON >/dev/null &&
  "$root/scripts/build.sh" && (cd "${REELMOOR_BUILD_DIR:-$root/build}" && ctest --output-on-failure -j"$(nproc)") \
  || status=$?
record "tests" "$status"

# A developer's quick run stops here, on ctest's summary.
[ "${REELMOOR_QUICK:-0}" = 1 ] && exit "$status"

echo "== tests under AddressSanitizer and UndefinedBehaviorSanitizer"
asan=${REELMOOR_ASAN_BUILD_DIR:-$root/build-asan}
status=0
(
  export ASAN_OPTIONS=detect_leaks=1
  export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
  export LSAN_OPTIONS=suppressions=$root/tests/fuzz/lsan.supp:print_suppressions=0
  cmake -S "$root" -B "$asan" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DREELMOOR_SANITIZE=ON -DREELMOOR_DEVELOPER_TOOLS=ON >/dev/null &&
    cmake --build "$asan" -j"$(nproc)" &&
    cd "$asan" &&
    ctest --output-on-failure -j"$(nproc)"
) || status=$?
record "sanitized tests" "$status"

echo "== fuzzing"
status=0
"$root/tests/fuzz/run.sh" "${REELMOOR_FUZZ_SECONDS:-60}" || status=$?
record "fuzzing" "$status"

echo
printf '%s\n' "${stages[@]}"
if [ "$failures" -eq 0 ]; then
  echo "all ${#stages[@]} stages passed"
else
  echo "$failures of ${#stages[@]} stages FAILED"
  exit 1
fi
