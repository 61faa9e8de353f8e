#!/bin/sh
# SPDX-License-Identifier: GPL-2.0-or-later
# The game program itself, started as a player starts it: without a display
# it says so in one line and ends; in a whole folder its main window comes up
# past the splash and the game keeps running; without "0.emf" it holds at a
# message and shows no main window.
# Usage: real_program_test.sh GAME ASSETS
set -u
game=$1
assets=$2
work=$(mktemp -d)
xvfb=
trap '[ -n "$xvfb" ] && kill $xvfb; rm -rf "$work"' EXIT
fail() { echo "FAIL: $*"; exit 1; }

out=$(cd "$work" && env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$game" 2>&1)
[ $? -eq 1 ] || fail "without a display the game did not end with status 1"
[ "$(printf '%s\n' "$out" | wc -l)" -eq 1 ] && case $out in *display*) ;; *) false ;; esac ||
  fail "without a display the game said: $out"

Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$work/display" 2>/dev/null &
xvfb=$!
for _ in $(seq 50); do [ -s "$work/display" ] && break; sleep 0.1; done
[ -s "$work/display" ] || fail "Xvfb did not start"
export DISPLAY=":$(cat "$work/display")" SDL_AUDIODRIVER=dummy XDG_RUNTIME_DIR="$work"
unset QT_QPA_PLATFORM WAYLAND_DISPLAY

# True when a window titled $1 is on the screen.
viewable() {
  for id in $(xwininfo -root -tree | awk -v t="\"$1\":" '$2 == t { print $1 }'); do
    xwininfo -id "$id" | grep -q IsViewable && return 0
  done
  return 1
}

# Runs the game in folder $1 for five seconds, past the splash's three.
run() {
  (cd "$1" && exec "$game") >"$work/log" 2>&1 &
  pid=$!
  sleep 5
  kill -0 $pid 2>/dev/null || fail "$1: the game ended: $(cat "$work/log")"
}

mkdir "$work/whole" "$work/no-symbols"
cp "$assets"/* "$work/whole/"
cp "$assets"/* "$work/no-symbols/"
rm "$work/no-symbols/0.emf"

run "$work/whole"
viewable REELMOOR || fail "no main window in a whole folder"
[ ! -e "$work/whole/name.dat" ] || fail "the game wrote name.dat before it was closed"
kill $pid

run "$work/no-symbols"
viewable reelmoor || fail "no message for a missing 0.emf"
viewable REELMOOR && fail "a main window came up without 0.emf"
kill $pid
echo "the real program: no display, a whole folder, no symbols: all as expected"
