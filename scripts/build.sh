#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Configures and builds reelmoor in build/ (or $REELMOOR_BUILD_DIR).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${REELMOOR_BUILD_DIR:-$root/build}
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$build" -j"$(nproc)" "$@"
