# SPDX-License-Identifier: GPL-2.0-or-later
# The installed launcher: it starts the game in the player's own folder,
# keeps that folder's links to the installed assets current, and never
# touches the table of winners or anything the player put there.
. "$(dirname "$0")/common.sh"

work=$REELMOOR_SCRATCH/launcher
rm -rf "$work"
mkdir -p "$work"
unset XDG_DATA_HOME

# --- The launcher's own work, against a stand-in for the game that writes
# down where it was started and with what arguments.
fake=$work/prefix
mkdir -p "$fake/$BINDIR" "$fake/$LIBEXECDIR/reelmoor" "$fake/$DATADIR/reelmoor"
cp "$bin/reelmoor" "$fake/$BINDIR/reelmoor"
cat >"$fake/$LIBEXECDIR/reelmoor/reelmoor" <<'STUB'
#!/bin/sh
{ pwd -P; printf '%s\n' "$@"; } >"$STUB_LOG"
STUB
chmod +x "$fake/$LIBEXECDIR/reelmoor/reelmoor"
assets=$(cd "$fake/$DATADIR/reelmoor" && pwd -P)
for name in 0.emf 1.jpg clink.wav; do
  cp "$REELMOOR_SOURCE/assets/$name" "$assets/$name"
done
launch() { STUB_LOG=$work/stub.log "$@"; }

links_to() { [ -L "$1" ] && [ "$(readlink "$1")" = "$2" ]; }

# A first start makes the folder under ~/.local/share and links every asset.
home=$work/home
launch env HOME="$home" "$fake/$BINDIR/reelmoor" -x "two words" || fail "the launcher failed"
folder=$home/.local/share/reelmoor
[ "$(sed -n 1p "$work/stub.log")" = "$(cd "$folder" && pwd -P)" ] || fail "the game did not start in $folder"
[ "$(sed -n '2,$p' "$work/stub.log")" = "$(printf -- '-x\ntwo words')" ] || fail "arguments were not passed on"
for name in 0.emf 1.jpg clink.wav; do
  links_to "$folder/$name" "$assets/$name" || fail "$folder/$name is not a link to $assets/$name"
done

# An upgrade: one asset dropped, one added, one moved; the player's table of
# winners, a sound of their own and an unrelated file stay as they were.
head -c 240 /dev/urandom >"$folder/name.dat"
cp "$folder/name.dat" "$work/name.dat.before"
rm "$folder/clink.wav"
echo "my own sound" >"$folder/clink.wav"
echo "notes" >"$folder/notes.txt"
mkdir "$work/old"
cp "$assets/1.jpg" "$work/old/1.jpg"
ln -sfn "$work/old/1.jpg" "$folder/1.jpg"
rm "$assets/0.emf"
cp "$REELMOOR_SOURCE/assets/3.jpg" "$assets/3.jpg"
launch env HOME="$home" "$fake/$BINDIR/reelmoor" || fail "the launcher failed after the upgrade"
cmp -s "$folder/name.dat" "$work/name.dat.before" || fail "name.dat was changed"
[ ! -e "$folder/0.emf" ] && [ ! -L "$folder/0.emf" ] || fail "the link to a dropped asset stayed"
links_to "$folder/3.jpg" "$assets/3.jpg" || fail "a new asset was not linked"
links_to "$folder/1.jpg" "$assets/1.jpg" || fail "a link to an old asset was not renewed"
[ ! -L "$folder/clink.wav" ] && grep -qx "my own sound" "$folder/clink.wav" || fail "the player's own file was replaced"
grep -qx notes "$folder/notes.txt" || fail "an unrelated file was touched"

# Symbols the player drew win over ours: no link to n.emf where the player
# has an n.svg or n.png of their own, and an old such link goes; a link
# named n.svg does not count as the player's own.
cp "$REELMOOR_SOURCE/assets/0.emf" "$assets/0.emf"
cp "$REELMOOR_SOURCE/assets/1.emf" "$assets/1.emf"
cp "$REELMOOR_SOURCE/assets/2.emf" "$assets/2.emf"
launch env HOME="$home" "$fake/$BINDIR/reelmoor" || fail "the launcher failed"
echo "<svg/>" >"$folder/0.svg"
echo "png" >"$folder/1.png"
ln -s "$work/old/1.jpg" "$folder/2.svg"
launch env HOME="$home" "$fake/$BINDIR/reelmoor" || fail "the launcher failed with the player's symbols"
[ ! -e "$folder/0.emf" ] && [ ! -L "$folder/0.emf" ] || fail "our 0.emf still shadows the player's 0.svg"
[ ! -L "$folder/1.emf" ] || fail "our 1.emf still shadows the player's 1.png"
links_to "$folder/2.emf" "$assets/2.emf" || fail "a link named 2.svg kept our 2.emf away"
grep -qx "<svg/>" "$folder/0.svg" || fail "the player's 0.svg was touched"

# XDG_DATA_HOME moves the folder when it is an absolute path, not otherwise.
launch env HOME="$home" XDG_DATA_HOME="$work/xdg" "$fake/$BINDIR/reelmoor" || fail "the launcher failed"
links_to "$work/xdg/reelmoor/1.jpg" "$assets/1.jpg" || fail "XDG_DATA_HOME was not used"
(cd "$work" && launch env HOME="$work/home2" XDG_DATA_HOME=relative "$fake/$BINDIR/reelmoor") || fail "the launcher failed"
[ ! -e "$work/relative" ] && [ -d "$work/home2/.local/share/reelmoor" ] || fail "a relative XDG_DATA_HOME was used"

# Reached through a link from elsewhere (a games folder), it still finds the game.
mkdir "$work/games"
ln -s "$fake/$BINDIR/reelmoor" "$work/games/reelmoor"
launch env HOME="$work/home3" "$work/games/reelmoor" || fail "the launcher failed when started through a link"
links_to "$work/home3/.local/share/reelmoor/1.jpg" "$assets/1.jpg" || fail "no links when started through a link"

# No folder to play in: one line that says why, and status 1.
one_line_refusal() {
  status=0
  launch "$@" 2>"$work/err" || status=$?
  [ "$status" -eq 1 ] || fail "expected status 1, got $status: $*"
  [ "$(wc -l <"$work/err")" -eq 1 ] && grep -q '^reelmoor: ' "$work/err" || fail "expected one line of explanation, got: $(cat "$work/err")"
}
one_line_refusal env -u HOME "$fake/$BINDIR/reelmoor"
one_line_refusal env HOME=/dev/null "$fake/$BINDIR/reelmoor"

# --- The real game from the staged install.
# Without a display it says so in one line.
status=0
env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM HOME="$work/real" "$bin/reelmoor" 2>"$work/err" || status=$?
[ "$status" -eq 1 ] && [ "$(wc -l <"$work/err")" -eq 1 ] && grep -q display "$work/err" \
  || fail "without a display: status $status, said: $(cat "$work/err")"

# On the offscreen platform it starts and keeps running until it is stopped,
# in a folder that links every installed asset, and writes nothing into the
# installed tree; in both layouts.
for name in plain deb; do
  layout $name
  touch "$work/before-start"
  sleep 1
  status=0
  HOME=$work/$name QT_QPA_PLATFORM=offscreen timeout 4 "$bin/reelmoor" >"$work/out" 2>&1 || status=$?
  [ "$status" -eq 124 ] || fail "the game ($name layout) ended with status $status before it was stopped: $(cat "$work/out")"
  folder=$work/$name/.local/share/reelmoor
  for asset in $(asset_names); do
    [ "$(readlink -f "$folder/$asset")" = "$(readlink -f "$gamedata/$asset")" ] \
      || fail "$folder/$asset does not lead to the installed $asset ($name layout)"
  done
  [ ! -e "$folder/README.md" ] || fail "the assets' README.md was linked"
  written=$(find "$REELMOOR_STAGE" -newer "$work/before-start")
  [ -z "$written" ] || fail "the game wrote into the installed tree: $written"
done
echo "the launcher keeps each player's folder and starts the game"
