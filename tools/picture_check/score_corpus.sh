#!/bin/sh
# SPDX-License-Identifier: GPL-2.0-or-later
# Draws every .emf and .svg file of a folder into OUT_DIR/<name>.png at 256 × 256, the
# way the renderer is measured against other renderers' drawings:
#   score_corpus.sh FILES_DIR OUT_DIR [reelmoor-picture-check binary]
# Refused files get no PNG; their reasons go to OUT_DIR/refused.txt.
set -eu
if [ $# -lt 2 ] || [ $# -gt 3 ]; then
    echo "usage: $0 FILES_DIR OUT_DIR [reelmoor-picture-check]" >&2
    exit 2
fi
files=$1
out=$2
tool=${3:-reelmoor-picture-check}
mkdir -p "$out"
: > "$out/refused.txt"
for f in "$files"/*.emf "$files"/*.svg; do
    [ -e "$f" ] || continue
    name=$(basename "$f"); name=${name%.*}
    rm -f "$out/$name.png"
    timeout 60 "$tool" render "$f" "$out/$name.png" 2>&1 >/dev/null |
        grep ': refused: ' >> "$out/refused.txt" || true
done
echo "$(ls "$out"/*.png 2>/dev/null | wc -l) drawn, $(wc -l < "$out/refused.txt") refused"
