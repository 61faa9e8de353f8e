# SPDX-License-Identifier: GPL-2.0-or-later
# The Debian package: built by cpack from the same install rules, it holds
# exactly the staged files of the Debian layout with root ownership, stripped
# programs, and declares the libraries and fonts the game needs.
. "$(dirname "$0")/common.sh"
layout deb
need cpack dpkg-deb dpkg-shlibdeps

out=$REELMOOR_SCRATCH/deb
rm -rf "$out"
cpack --config "$REELMOOR_BUILD/CPackConfig.cmake" -B "$out" >"$REELMOOR_SCRATCH/cpack.log" 2>&1 \
  || { cat "$REELMOOR_SCRATCH/cpack.log" >&2; fail "cpack failed"; }
set -- "$out"/reelmoor_"$REELMOOR_VERSION"_*.deb
[ $# -eq 1 ] && [ -f "$1" ] || fail "cpack wrote no reelmoor_${REELMOOR_VERSION}_<arch>.deb into $out"
deb=$1

field() { dpkg-deb -f "$deb" "$1"; }
[ "$(field Package)" = reelmoor ] || fail "package name $(field Package)"
[ "$(field Version)" = "$REELMOOR_VERSION" ] || fail "version $(field Version)"
[ "$(field Section)" = games ] || fail "section $(field Section)"
[ -n "$(field Maintainer)" ] || fail "no maintainer"
[ "$(field Architecture)" = "$(dpkg --print-architecture)" ] || fail "architecture $(field Architecture)"
field Description | sed -n 2p | grep -q . || fail "no long description"
depends=$(field Depends)
for package in fonts-liberation libc6 libqt6widgets6 libsdl2-mixer-2.0-0 libuemf0; do
  printf '%s\n' "$depends" | tr ',' '\n' | grep -q "^ *$package\( \|$\)" || fail "Depends lacks $package: $depends"
done

# The same files as the staged install, below /usr, owned by root.
dpkg-deb -c "$deb" >"$out/contents"
awk '$1 !~ /^d/ { print $6 }' "$out/contents" | sed 's|^\./||' | sort >"$out/files.deb"
(cd "$REELMOOR_STAGE/deb" && find . -type f -o -type l) | sed 's|^\./||' | sort >"$out/files.staged"
diff "$out/files.staged" "$out/files.deb" >&2 || fail "the package's files differ from the staged install"
awk '$2 != "root/root" { print; bad = 1 } END { exit bad }' "$out/contents" >&2 || fail "files not owned by root"
grep -q "^-rwxr-xr-x .* \./usr/$bindir/reelmoor\$" "$out/contents" || fail "the launcher is not executable"

dpkg-deb -x "$deb" "$out/root"
for program in "$bindir/reelmoor-odds" "$bindir/reelmoor-picture-check" "$LIBEXECDIR/reelmoor/reelmoor"; do
  [ -z "$(readelf -S "$out/root/usr/$program" | grep -e '\.debug_info' -e '\.symtab' -e '\.comment')" ] \
    || fail "$program is not stripped"
done
echo "$(basename "$deb"): $(wc -c <"$deb") bytes, Installed-Size $(field Installed-Size) KiB"
echo "Depends: $depends"
