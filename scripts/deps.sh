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
# look at and press keys in the real program's windows (x11-utils, x11-apps,
# xdotool, python3-numpy), read them as a screen reader does on a session bus
# of their own (python3-pyatspi, at-spi2-core, dbus-daemon;
# gir1.2-gdkpixbuf-2.0 reads the symbols drawn for comparison), list its sound
# stream on a sound server of their own (pulseaudio, pulseaudio-utils), fuzz
# and sanitize.
[ "${1:-}" = "--test" ] && packages+=(clang libclang-rt-14-dev desktop-file-utils appstream dpkg-dev file lintian
  x11-utils x11-apps xdotool python3-numpy
  python3-pyatspi gir1.2-gdkpixbuf-2.0 at-spi2-core dbus-daemon pulseaudio pulseaudio-utils)

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
