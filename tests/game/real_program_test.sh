#!/bin/sh
# SPDX-License-Identifier: GPL-2.0-or-later
# The game program itself, started as a player starts it: without a display
# it says so in one line and ends; in a whole folder its main window comes up
# past the splash and the game keeps running; without "0.emf" it holds at a
# message and shows no main window. A player's folder of drawings (SVG) or of
# photos (PNG) plays as ours does, and shows them.
# Usage: real_program_test.sh GAME ASSETS PICTURE_GENERATOR
set -u
game=$1
assets=$2
generator=$3
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

# The window titled $1 that is on the screen, if any.
shown_window() {
  for id in $(xwininfo -root -tree | awk -v t="\"$1\":" '$2 == t { print $1 }'); do
    xwininfo -id "$id" | grep -q IsViewable && echo "$id" && return 0
  done
  return 1
}
viewable() { shown_window "$1" >/dev/null; }

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

# How many of the five colours of our symbols window $1 shows over at least
# 200 pixels each (the symbols' body colours, as the generator paints them).
symbol_colours() {
  xwd -silent -id "$1" | /usr/bin/python3 -c '
import struct, sys
import numpy
data = sys.stdin.buffer.read()
head = struct.unpack(">25I", data[:100])  # header size, ..., width 4, height 5, ..., colours 19
pixels = numpy.frombuffer(data, numpy.uint8, head[4] * head[5] * 4, head[0] + head[19] * 12)
bgr = pixels.reshape(-1, 4)[:, :3].astype(int)
fills = [(48, 36, 220), (70, 160, 34), (220, 90, 40), (20, 170, 245), (200, 60, 150)]
print(sum(int((numpy.abs(bgr - f).sum(axis=1) < 24).sum() >= 200) for f in fills))'
}

# Our symbols as drawings, then as photos, in place of the metafiles: the
# main window shows them and a spin (the Return key) changes what it shows;
# the pay table shows all five colours.
for format in svg png; do
  mkdir "$work/$format"
  cp "$assets"/* "$work/$format/"
  rm "$work/$format"/[0-9]*.emf
  "$generator" --symbols-as $format "$work/$format" 2>/dev/null || fail "no symbols as $format"
  run "$work/$format"
  viewable REELMOOR || fail "no main window with symbols as $format"
  id=$(shown_window REELMOOR)
  [ "$(symbol_colours "$id")" -ge 1 ] || fail "$format: the reels show none of our symbols"
  before=$(xwd -silent -id "$id" | md5sum)
  xdotool windowfocus --sync "$id" key Return
  sleep 2
  [ "$(xwd -silent -id "$id" | md5sum)" != "$before" ] || fail "$format: a spin changed nothing"
  # The pay table opens once the spin has settled.
  table=
  for _ in $(seq 10); do
    xdotool windowfocus --sync "$id" key ctrl+p
    sleep 1
    table=$(xdotool search --onlyvisible --name 'PAY OUT TABLES AND RULES' | head -n 1)
    [ -n "$table" ] && break
  done
  [ -n "$table" ] && [ "$(symbol_colours "$table")" -eq 5 ] || fail "$format: the pay table does not show our symbols"
  kill $pid
done
echo "the real program: no display, a whole folder, no symbols, drawings, photos: all as expected"
