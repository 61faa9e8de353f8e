# SPDX-License-Identifier: GPL-2.0-or-later
# Both staged installs put every file where a distribution expects it, and
# nothing anywhere else.
. "$(dirname "$0")/common.sh"

is_elf() { [ "$(head -c 4 "$1" | od -An -c | tr -d ' ')" = "177ELF" ]; }

check_layout() {
  layout "$1"
  id=$(app_id)
  # The command players run is the launcher; the real program is out of PATH.
  [ -x "$bin/reelmoor" ] || fail "no launcher $bin/reelmoor"
  head -n 1 "$bin/reelmoor" | grep -qx '#!/bin/sh' || fail "the launcher is not a /bin/sh script"
  sh -n "$bin/reelmoor" || fail "the launcher does not parse"
  [ -x "$libexec/reelmoor/reelmoor" ] && is_elf "$libexec/reelmoor/reelmoor" \
    || fail "no game executable at $libexec/reelmoor/reelmoor"
  for tool in reelmoor-odds reelmoor-picture-check; do
    [ -x "$bin/$tool" ] && is_elf "$bin/$tool" || fail "no $bin/$tool"
  done

  # Every asset but the README, each the same as in the checkout.
  expected=$(asset_names)
  installed=$(ls "$gamedata")
  [ "$installed" = "$expected" ] || {
    echo "$expected" >"$REELMOOR_SCRATCH/assets.expected"
    echo "$installed" >"$REELMOOR_SCRATCH/assets.installed"
    diff "$REELMOOR_SCRATCH/assets.expected" "$REELMOOR_SCRATCH/assets.installed" >&2 || true
    fail "the installed assets differ from assets/ (less README.md)"
  }
  for name in $expected; do
    cmp -s "$REELMOOR_SOURCE/assets/$name" "$gamedata/$name" || fail "$name differs from assets/$name"
  done

  # Menu entry, metainfo and icons share the desktop id.
  desktop=$data/applications/$id.desktop
  for line in "Exec=$exec" "Icon=$id" "Name=reelmoor" "Type=Application"; do
    grep -qx "$line" "$desktop" || fail "$desktop lacks $line"
  done
  grep -q '^Categories=Game;' "$desktop" || fail "$desktop is not in the Game category"
  metainfo=$data/metainfo/$id.metainfo.xml
  grep -q "<id>$id</id>" "$metainfo" || fail "$metainfo does not carry the id $id"
  grep -q "<launchable type=\"desktop-id\">$id.desktop</launchable>" "$metainfo" \
    || fail "$metainfo does not launch $id.desktop"
  grep -q "<release version=\"$REELMOOR_VERSION\"" "$metainfo" || fail "$metainfo has no release $REELMOOR_VERSION"

  icons=$data/icons/hicolor
  cmp -s "$REELMOOR_SOURCE/assets/reelmoor.svg" "$icons/scalable/apps/$id.svg" || fail "no scalable icon $id.svg"
  # A PNG's width and height are the big-endian words at bytes 16 and 20.
  png_size() { od -An -tu1 -j16 -N8 "$1" | awk '{ print $1*16777216+$2*65536+$3*256+$4 "x" $5*16777216+$6*65536+$7*256+$8 }'; }
  for size in 32 48 64 128 256; do
    png=$icons/${size}x$size/apps/$id.png
    [ -f "$png" ] || fail "no icon $png"
    [ "$(png_size "$png")" = "${size}x$size" ] || fail "$png is $(png_size "$png"), not ${size}x$size"
  done

  for page in man1/reelmoor-odds.1.gz man1/reelmoor-picture-check.1.gz man6/reelmoor.6.gz; do
    gzip -t "$man/$page" 2>/dev/null || fail "no manual page $man/$page"
  done

  # Nothing else: no libraries, headers, test programs or stray files. The
  # Debian package also has its copyright file and changelog.
  cat >"$REELMOOR_SCRATCH/allowed" <<EOF
^$bindir/reelmoor(-odds|-picture-check)?\$
^$LIBEXECDIR/reelmoor/reelmoor\$
^$gamedir/
^$DATADIR/applications/$id\.desktop\$
^$DATADIR/metainfo/$id\.metainfo\.xml\$
^$DATADIR/icons/hicolor/[^/]*/apps/$id\.(svg|png)\$
^$MANDIR/(man1/reelmoor-odds\.1|man1/reelmoor-picture-check\.1|man6/reelmoor\.6)\.gz\$
EOF
  [ "$1" = deb ] && echo "^$DATADIR/doc/reelmoor/(copyright|changelog\.gz)\$" >>"$REELMOOR_SCRATCH/allowed"
  stray=$(cd "$root" && find . -type f | sed 's|^\./||' | grep -v -E -f "$REELMOOR_SCRATCH/allowed" || true)
  [ -z "$stray" ] || fail "unexpected files installed ($1 layout): $stray"
  echo "$1 layout as expected for $id"
}

check_layout plain
check_layout deb
grep -q '^Files: \*$' "$data/doc/reelmoor/copyright" || fail "no copyright file in the deb layout"
gzip -dc "$data/doc/reelmoor/changelog.gz" | head -n 1 | grep -q "^reelmoor ($REELMOOR_VERSION) " \
  || fail "the changelog does not start with $REELMOOR_VERSION"
