#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Builds reelmoor and starts it. The game reads its pictures and sounds from
# its working directory and keeps the table of winners (name.dat) there, so it
# runs in a per-player folder that lasts between runs and links the assets.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/deps.sh"
"$root/scripts/build.sh" --target reelmoor >/dev/null

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
  echo "reelmoor needs a graphical desktop: no display is set (DISPLAY or WAYLAND_DISPLAY)." >&2
  exit 1
fi

home=${XDG_DATA_HOME:-$HOME/.local/share}/reelmoor
mkdir -p "$home"
# A file of the player's own stays, and so does a symbol they drew: no link
# to our n.emf where they have their own n.svg or n.png.
for f in "$root"/assets/*; do
  name=$(basename "$f")
  dest=$home/$name
  [ "$name" = README.md ] && continue
  [ -e "$dest" ] && [ ! -L "$dest" ] && continue
  if [[ $name =~ ^[0-9]+\.emf$ ]]; then
    own=
    for other in "$home/${name%.emf}.svg" "$home/${name%.emf}.png"; do
      [ -e "$other" ] && [ ! -L "$other" ] && own=yes
    done
    if [ -n "$own" ]; then
      rm -f "$dest"
      continue
    fi
  fi
  ln -sfn "$f" "$dest"
done
cd "$home"
exec "${REELMOOR_BUILD_DIR:-$root/build}/game/reelmoor"
