#!/bin/sh
# SPDX-License-Identifier: GPL-2.0-or-later
# The game read by a screen reader (screen_reader_test.py), on an X server,
# a D-Bus session with the accessibility bus and a sound server of its own,
# the symbols' pictures drawn beside it for the test to tell the reels apart
# on screen.
# Usage: screen_reader_test.sh GAME PICTURE_CHECK ASSETS
set -u
game=$1
check=$2
assets=$3
work=$(mktemp -d)
xvfb=
pulse=
trap 'for p in $xvfb $pulse; do kill $p 2>/dev/null; done; rm -rf "$work"' EXIT
fail() { echo "FAIL: $*"; exit 1; }

mkdir "$work/folder" "$work/refs" "$work/screen" "$work/runtime"
chmod 700 "$work/runtime"
cp "$assets"/* "$work/folder/"
export XDG_RUNTIME_DIR="$work/runtime"
for s in $(seq 0 49); do
  "$check" render "$assets/$s.emf" "$work/refs/$s.png" --size 73 || fail "symbol $s: not drawn"
done

# Without -noreset the server would reset, refusing connections, each time
# its last client (the accessibility bus's, at first) goes.
Xvfb -displayfd 3 -screen 0 1024x768x24 -fbdir "$work/screen" -nolisten tcp -noreset 3>"$work/display" 2>/dev/null &
xvfb=$!
for _ in $(seq 50); do [ -s "$work/display" ] && break; sleep 0.1; done
[ -s "$work/display" ] || fail "Xvfb did not start"
export DISPLAY=":$(cat "$work/display")" QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
unset QT_QPA_PLATFORM WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS SDL_AUDIODRIVER

# A sound server that plays into nothing, for the game's stream to show in.
export PULSE_SERVER="unix:$work/pulse"
HOME="$work" pulseaudio -n --daemonize=no --exit-idle-time=-1 --use-pid-file=no -L module-null-sink \
  -L "module-native-protocol-unix socket=$work/pulse auth-anonymous=1" 2>"$work/pulse.log" &
pulse=$!
for _ in $(seq 50); do pactl info >/dev/null 2>&1 && break; sleep 0.1; done
pactl info >/dev/null 2>&1 || fail "the sound server did not start: $(cat "$work/pulse.log")"

dbus-run-session -- /usr/bin/python3 "$(dirname "$0")/screen_reader_test.py" \
  "$game" "$work/folder" "$work/refs" "$work/screen/Xvfb_screen0" 2>"$work/log" ||
  fail "what the game and the session said: $(grep -v '^dbus-daemon' "$work/log")"
