#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Installs the Debian 12 packages reelmoor builds, runs and tests with,
# when any is missing. Safe to run again: it does nothing when all are there.
set -euo pipefail

packages=(
  build-essential cmake pkg-config
  qt6-base-dev qt6-base-dev-tools qt6-svg-dev libgl-dev librsvg2-dev
  libuemf-dev libsdl2-mixer-dev
  fonts-liberation
  xvfb xauth
)
# Tests also validate the desktop files, build and check the package (lintian),
# look at and press keys in the real program's windows (x11-utils, x11-apps, xdotool, python3-numpy),
# fuzz and sanitize.
[ "${1:-}" = "--test" ] && packages+=(clang libclang-rt-14-dev desktop-file-utils appstream dpkg-dev file lintian x11-utils x11-apps xdotool python3-numpy)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
echo "Installing: ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
