#!/bin/sh
# SPDX-License-Identifier: GPL-2.0-or-later
# reelmoor-picture-check as a player runs it: a symbol (a metafile, a
# drawing or a photo) drawn into a square PNG of the size asked for, and a file the game would refuse told apart in
# one line with exit status 2.
check=$1
assets=$2
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
# As in a desktop session (Qt warns on stderr without one).
export XDG_RUNTIME_DIR="$out/runtime"
mkdir -m 700 "$XDG_RUNTIME_DIR"
failures=0
fail() { echo "FAIL $*"; failures=$((failures + 1)); }
png_size() { file -b "$1" | sed -n 's/^PNG image data, \([0-9]*\) x \([0-9]*\),.*/\1x\2/p'; }

"$check" render "$assets/7.emf" "$out/7.png" || fail "a symbol of the game: status $?"
[ "$(png_size "$out/7.png")" = 256x256 ] || fail "default size: $(png_size "$out/7.png")"
"$check" render "$assets/splash.emf" "$out/splash.png" --size 64 || fail "--size 64: status $?"
[ "$(png_size "$out/splash.png")" = 64x64 ] || fail "--size 64: $(png_size "$out/splash.png")"

"$check" render "$assets/reelmoor.svg" "$out/drawing.png" || fail "a drawing: status $?"
"$check" render "$assets/reelmoor-32.png" "$out/photo.png" --size 64 || fail "a PNG: status $?"
[ "$(png_size "$out/photo.png")" = 64x64 ] || fail "a PNG at --size 64: $(png_size "$out/photo.png")"

printf 'not a picture at all, just some words\n' >"$out/words.emf"
head -c 60 "$assets/7.emf" >"$out/cut.emf"
cp "$out/words.emf" "$out/words.svg"
head -c 200 "$assets/reelmoor.svg" >"$out/cut.svg"
: >"$out/empty.svg"
head -c 100 "$assets/reelmoor-64.png" >"$out/cut.png"
: >"$out/empty.png"
# A PNG whose header claims 100000 x 100000 pixels, its checksum made good:
# refused for its size, before anything is allocated for it.
python3 - "$assets/reelmoor-32.png" "$out/huge.png" <<'PY'
import struct, sys, zlib
data = bytearray(open(sys.argv[1], "rb").read())
data[16:24] = struct.pack(">II", 100000, 100000)
data[29:33] = struct.pack(">I", zlib.crc32(data[12:29]))
open(sys.argv[2], "wb").write(data)
PY
err=$("$check" render "$out/huge.png" "$out/huge-out.png" 2>&1 >/dev/null)
[ $? = 2 ] && case $err in *"larger than 64 megapixels"*) ;; *) false ;; esac || fail "huge PNG: [$err]"
for bad in words.emf cut.emf missing.emf words.svg cut.svg empty.svg cut.png empty.png; do
  err=$("$check" render "$out/$bad" "$out/$bad.png" 2>&1 >/dev/null)
  status=$?
  [ "$status" = 2 ] || fail "$bad: status $status"
  [ "$(printf '%s\n' "$err" | wc -l)" = 1 ] && [ -n "$err" ] || fail "$bad: not one line: [$err]"
  [ ! -e "$out/$bad.png" ] || fail "$bad: a picture was written"
done
for usage in "" "draw $assets/7.emf $out/x.png" "render $assets/7.emf"; do
  # shellcheck disable=SC2086
  "$check" $usage >/dev/null 2>&1
  [ $? = 2 ] || fail "usage [$usage] not refused"
done
[ "$failures" = 0 ] && echo "picture check: all cases passed"
exit "$failures"
