# SPDX-License-Identifier: GPL-2.0-or-later
# Shared by the packaging tests: failing with a reason, skipping when a
# tool is not installed, and where the staged install keeps things.
set -eu

fail() {
  echo "FAIL: $*" >&2
  exit 1
}

# A tool the test cannot run without: skip (77) when it is not installed.
need() {
  for tool in "$@"; do
    if ! command -v "$tool" >/dev/null 2>&1; then
      echo "SKIP: $tool is not installed (scripts/deps.sh --test installs it)" >&2
      exit 77
    fi
  done
}

# The staged installs, both under the prefix /usr: "plain", as a plain
# `cmake --install` lays it out, and "deb", the component the Debian package
# holds. `layout NAME` points the variables below at one of them.
layout() {
  root=$REELMOOR_STAGE/$1/usr
  case $1 in
    plain) bindir=$BINDIR gamedir=$DATADIR/reelmoor exec=reelmoor ;;
    deb) bindir=$DEB_BINDIR gamedir=$DEB_GAMEDIR exec=/usr/$DEB_BINDIR/reelmoor ;;
    *) fail "no layout $1" ;;
  esac
  bin=$root/$bindir
  libexec=$root/$LIBEXECDIR
  data=$root/$DATADIR
  gamedata=$root/$gamedir
  man=$root/$MANDIR
}
layout plain

# The desktop id, taken from the one menu entry installed.
app_id() {
  set -- "$data"/applications/*.desktop
  [ $# -eq 1 ] && [ -f "$1" ] || fail "expected one menu entry in $data/applications, found: $*"
  basename "$1" .desktop
}

# The files of the game's assets folder that are installed: all but README.md.
asset_names() {
  ls "$REELMOOR_SOURCE/assets" | grep -vx README.md
}
