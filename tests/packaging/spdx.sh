# SPDX-License-Identifier: GPL-2.0-or-later
# Every tracked source, script and CMake file carries the licence line, and
# scripts/spdx.sh puts it where each kind of file wants it, once.
. "$(dirname "$0")/common.sh"
need git
git -C "$REELMOOR_SOURCE" rev-parse --git-dir >/dev/null 2>&1 || {
  echo "SKIP: $REELMOOR_SOURCE is not a git checkout" >&2
  exit 77
}
spdx=$REELMOOR_SOURCE/scripts/spdx.sh

# REELMOOR_SPDX_SCOPE, when set, limits the check to those folders.
# shellcheck disable=SC2086
lacking=$(cd "$REELMOOR_SOURCE" && "$spdx" --check ${REELMOOR_SPDX_SCOPE:-}) \
  || fail "files without the line SPDX-License-Identifier (scripts/spdx.sh adds it):
$lacking"

# The script on a scratch repository: each file as it is before, and what it
# must be after; \n stands for a line break.
work=$REELMOOR_SCRATCH/spdx
rm -rf "$work"
mkdir -p "$work/sub" "$work/sub.d"
line="SPDX-License-Identifier: GPL-2.0-or-later"
cases="\
a.cpp|int a;\n|// $line\nint a;\n
sub/b.h|#pragma once\n|// $line\n#pragma once\n
run|#!/bin/sh\necho hi\n|#!/bin/sh\n# $line\necho hi\n
c.sh|echo hi\n|# $line\necho hi\n
sub/CMakeLists.txt|add_subdirectory(x)\n|# $line\nadd_subdirectory(x)\n
d.cmake|#!ignored\nset(x 1)\n|#!ignored\n# $line\nset(x 1)\n
tool.py|#!/usr/bin/env python3\n|#!/usr/bin/env python3\n# $line\n
lib.py|x = 1\n|# $line\nx = 1\n
empty.cpp||// $line\n
other.cpp|// SPDX-License-Identifier: MIT\nint b;\n|// SPDX-License-Identifier: MIT\nint b;\n
notes.md|# notes\n|# notes\n
data.txt|1 2 3\n|1 2 3\n
sub.d/seed.bin|#!\0\n|#!\0\n"
printf '%s\n' "$cases" >"$work.cases"
while IFS='|' read -r name before after; do
  printf "$before" >"$work/$name"
done <"$work.cases"
chmod +x "$work/run"
git -C "$work" init -q
git -C "$work" add .
printf 'int c;\n' >"$work/untracked.cpp"

status=0
(cd "$work/sub" && "$spdx" --check) >"$work/check.out" || status=$?
[ "$status" = 1 ] || fail "--check found nothing to add (status $status)"
[ "$(sort "$work/check.out" | tr '\n' ' ')" = "a.cpp c.sh d.cmake empty.cpp lib.py run sub/CMakeLists.txt sub/b.h tool.py " ] \
  || fail "--check listed: $(cat "$work/check.out")"
(cd "$work/sub" && "$spdx" . && "$spdx" --check .) || fail "a path limited run left sub/ without the line"
[ "$(head -c 3 "$work/a.cpp")" = int ] || fail "a path limited run touched a.cpp"
(cd "$work/sub" && "$spdx" && "$spdx") || fail "the script failed"
while IFS='|' read -r name before after; do
  printf "$after" >"$work.expected"
  cmp -s "$work.expected" "$work/$name" || fail "$name became: $(cat "$work/$name")"
done <"$work.cases"
[ -x "$work/run" ] || fail "a script lost its execute permission"
[ "$(cat "$work/untracked.cpp")" = "int c;" ] || fail "an untracked file was changed"
echo "every tracked source carries the licence line${REELMOOR_SPDX_SCOPE:+ (in $REELMOOR_SPDX_SCOPE)}"
