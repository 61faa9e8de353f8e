# SPDX-License-Identifier: GPL-2.0-or-later
# Debian's package checker finds no error and no warning in the .deb that
# packaging_deb built, even at its most pedantic. What it still says (pedantic
# and informational remarks) is shown in the test's output.
. "$(dirname "$0")/common.sh"
need lintian

set -- "$REELMOOR_SCRATCH"/deb/reelmoor_"$REELMOOR_VERSION"_*.deb
[ -f "$1" ] || fail "no package to check: packaging_deb builds it"
status=0
lintian --pedantic --display-info --display-experimental --fail-on error,warning "$1" \
  >"$REELMOOR_SCRATCH/lintian.out" 2>&1 || status=$?
cat "$REELMOOR_SCRATCH/lintian.out"
[ "$status" -eq 0 ] || fail "lintian rejects $(basename "$1") (status $status)"
! grep -q '^[EW]: ' "$REELMOOR_SCRATCH/lintian.out" || fail "lintian reports errors or warnings"
echo "lintian accepts $(basename "$1")"
