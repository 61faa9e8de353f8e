#!/usr/bin/env bash
# Builds reelmoor and runs every test. Tests run on Qt's offscreen platform;
# the few that need a real X server get one from Xvfb, started here.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/deps.sh" --test
"$root/scripts/build.sh"

if [ -z "${DISPLAY:-}" ] && command -v Xvfb >/dev/null; then
  display=:$(( 90 + RANDOM % 100 ))
  Xvfb "$display" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
  xvfb_pid=$!
  trap 'kill $xvfb_pid 2>/dev/null || true' EXIT
  export DISPLAY=$display
fi
cd "${REELMOOR_BUILD_DIR:-$root/build}"
ctest --output-on-failure -j"$(nproc)"
