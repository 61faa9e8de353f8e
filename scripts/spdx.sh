#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Puts the licence line "SPDX-License-Identifier: GPL-2.0-or-later" at the top
# of every tracked C++ source, script and CMake file that has none, in the
# file's own comment syntax and below its "#!" line where it has one. Running
# it again changes nothing; a file that names another licence in that place
# is left as it is.
#
#   scripts/spdx.sh [--check] [PATH...]
#
# PATHs limit it to the tracked files below them (default: the whole
# checkout). --check changes nothing: it lists the files that lack the line
# and exits with 1 when there is any.
set -euo pipefail

check=0
if [ "${1:-}" = --check ]; then
  check=1
  shift
fi
# PATHs are taken from where it is started, the work from the checkout's top.
here=$(git rev-parse --show-prefix)
paths=()
for path in "$@"; do
  paths+=("$here$path")
done
cd "$(git rev-parse --show-toplevel)"

tag="SPDX-License-Identifier: GPL-2.0-or-later"
missing=0
while IFS= read -r -d '' file; do
  [ -f "$file" ] && [ ! -L "$file" ] || continue
  first=$(head -c 2 "$file" | tr -d '\0')
  case $file in
    *.cpp | *.h | *.hpp | *.c) comment=// ;;
    *.sh | *.sh.in | *.py | *.cmake | CMakeLists.txt | */CMakeLists.txt) comment='#' ;;
    *)
      # A script without an extension, like .ci/run, is known by its "#!"
      # line; other files (data, seeds) are left alone whatever they start with.
      case ${file##*/} in *.*) continue ;; esac
      [ "$first" = '#!' ] && comment='#' || continue
      ;;
  esac
  # The line's place: the first line, or the second after "#!".
  top=1
  [ "$first" = '#!' ] && top=2
  sed -n "${top}p" "$file" | grep -q 'SPDX-License-Identifier:' && continue
  if [ "$check" = 1 ]; then
    echo "$file"
    missing=1
  elif [ ! -s "$file" ]; then
    printf '%s %s\n' "$comment" "$tag" >"$file"
  elif [ "$top" = 2 ]; then
    sed -i "1a $comment $tag" "$file"
  else
    sed -i "1i $comment $tag" "$file"
  fi
done < <(git ls-files -z -- "${paths[@]}")
exit "$missing"
