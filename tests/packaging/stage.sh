# SPDX-License-Identifier: GPL-2.0-or-later
# Installs the built project into scratch DESTDIRs with the prefix a
# distribution uses, for the tests that look at the installed files: once as
# a plain install, once the component the Debian package holds.
. "$(dirname "$0")/common.sh"

rm -rf "$REELMOOR_STAGE"
DESTDIR=$REELMOOR_STAGE/plain cmake --install "$REELMOOR_BUILD" --prefix /usr >/dev/null \
  || fail "cmake --install into $REELMOOR_STAGE/plain failed"
DESTDIR=$REELMOOR_STAGE/deb cmake --install "$REELMOOR_BUILD" --prefix /usr --component deb >/dev/null \
  || fail "cmake --install --component deb into $REELMOOR_STAGE/deb failed"
for name in plain deb; do
  [ -d "$REELMOOR_STAGE/$name/usr" ] || fail "nothing was installed under $REELMOOR_STAGE/$name/usr"
done
