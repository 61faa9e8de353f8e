# SPDX-License-Identifier: GPL-2.0-or-later
# The installed menu entry, metainfo and manual pages pass the checks that
# distributions and software centres apply, and the manual of reelmoor-odds
# names every option its --help does.
. "$(dirname "$0")/common.sh"
need desktop-file-validate appstreamcli

for name in plain deb; do
  layout $name
  id=$(app_id)
  desktop-file-validate "$data/applications/$id.desktop" || fail "desktop-file-validate rejects $id.desktop ($name)"
  appstreamcli validate --pedantic --no-net --explain "$data/metainfo/$id.metainfo.xml" \
    || fail "appstreamcli rejects $id.metainfo.xml"
  # The whole tree: metainfo, menu entry and icons found together.
  appstreamcli validate-tree --pedantic --no-net "$REELMOOR_STAGE/$name" \
    || fail "appstreamcli rejects the installed tree ($name)"
done
layout plain

# groff's warnings about the roff source, when man-db is there to ask.
if command -v man >/dev/null 2>&1; then
  for page in "$man/man1/reelmoor-odds.1.gz" "$man/man1/reelmoor-picture-check.1.gz" "$man/man6/reelmoor.6.gz"; do
    warnings=$(LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
    [ -z "$warnings" ] || fail "$page: $warnings"
  done
fi

page=$(gzip -dc "$man/man1/reelmoor-odds.1.gz")
options=$("$bin/reelmoor-odds" --help | grep -o -- '--[a-z-]*' | sort -u)
[ -n "$options" ] || fail "reelmoor-odds --help names no options"
for option in $options line table simulate; do
  printf '%s\n' "$page" | sed 's/\\-/-/g' | grep -q -- "$option" || fail "the manual of reelmoor-odds does not mention $option"
done
printf '%s\n' "$page" | grep -q '^\.SH EXIT STATUS' || fail "the manual of reelmoor-odds has no EXIT STATUS"
echo "menu entry, metainfo and manual pages of $id validate"
