# Installs the built project into a scratch DESTDIR with the prefix a
# distribution uses, for the tests that look at the installed files.
. "$(dirname "$0")/common.sh"

rm -rf "$REELMOOR_STAGE"
DESTDIR=$REELMOOR_STAGE cmake --install "$REELMOOR_BUILD" --prefix /usr >/dev/null \
  || fail "cmake --install into $REELMOOR_STAGE failed"
[ -d "$root" ] || fail "nothing was installed under $root"
