#!/bin/sh
# SPDX-License-Identifier: GPL-2.0-or-later
# reelmoor-odds as a user runs it: results on stdout, and exit status 2 with
# one line on stderr for anything it cannot take.
odds=$1
failures=0
check() {  # check NAME EXPECTED ACTUAL
    if [ "$2" != "$3" ]; then
        echo "FAIL $1: expected [$2], got [$3]"
        failures=$((failures + 1))
    fi
}
refuses() {  # refuses NAME ARGS... (stdin from the caller)
    name=$1
    shift
    err=$("$odds" "$@" 2>&1 >/dev/null)
    status=$?
    check "$name: status" 2 "$status"
    check "$name: one line on stderr" 1 "$(printf '%s\n' "$err" | wc -l)"
}

check "line" "10275 11111" "$("$odds" line 24 24 24 24 24)"
check "line below one credit" "0.6667 11100" "$("$odds" line 5 0 0 1 2)"
check "stdin" "$(printf '20.8333 11100\n60 11110\n0 00000')" \
    "$(printf '0 0 0 6 6\n\n 5\t6 7 8 9\r\n1 7 13 4 5' | "$odds" line)"

refuses "no command" </dev/null
refuses "unknown command" spin </dev/null
refuses "symbol not a number" line 1 2 x 4 5 </dev/null
refuses "symbol too big" line 1 2 50 4 5 </dev/null
refuses "negative symbol" line 1 2 -1 4 5 </dev/null
refuses "four symbols" line 1 2 3 4 </dev/null
refuses "stdin short line" line <<IN
1 2 3 4 5
1 2 3 4
IN
refuses "stdin letters" line <<IN
1 2 3 4 five
IN
refuses "stdin huge number" line <<IN
1 2 3 4 99999999999999999999999
IN
refuses "table symbols zero" table --symbols 0 </dev/null
refuses "table symbols beyond" table --symbols 51 </dev/null
refuses "table unknown option" table --fast </dev/null
refuses "simulate without spins" simulate </dev/null
refuses "simulate bad spins" simulate --spins 1e6 </dev/null
refuses "simulate even lines" simulate --spins 10 --lines 4 </dev/null
refuses "simulate missing value" simulate --spins </dev/null
refuses "simulate twice" simulate --spins 5 --spins 6 </dev/null

refuses "table symbols and folder" table --symbols 5 --folder . </dev/null
refuses "table folder without 0.emf" table --folder /nonexistent </dev/null

# One symbol: every reading pays 2052 per credit: RTP 205200%, every spin a
# jackpot, counted over the one grid there is.
table=$("$odds" table --symbols 1 --threads 1)
check "table exact jackpot" "jackpot (paid >= 8000 x credits per line): exact, over all 1 grids" \
    "$(printf '%s\n' "$table" | grep '^jackpot')"
check "table one symbol" " 9 2 10 180 205200.000000 1.0000000000 369360.000000" \
    "$(printf '%s\n' "$table" | tail -n 1 | tr -s ' ' | cut -d' ' -f1-8)"
check "table one symbol jackpot" "1 in 1.00 (exact)" "$(printf '%s\n' "$table" | tail -n 1 | grep -o '1 in .*')"

# The symbols the game would load: 0.emf upwards until one its picture
# reader refuses (here a text file in place of 2.emf).
assets=$(dirname "$0")/../../../assets
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp "$assets/0.emf" "$assets/1.emf" "$assets/3.emf" "$folder"
echo "not a picture" > "$folder/2.emf"
check "table folder" "reelmoor odds, 2 symbols:" \
    "$("$odds" table --folder "$folder" --threads 1 | head -n 1 | cut -d' ' -f1-4)"
# Drawings and photos count as symbols too: 0.emf, 1.svg, 2.png and no 3.*
# make three; fifty of either make fifty.
rm "$folder"/*
cp "$assets/0.emf" "$folder/0.emf"
cp "$assets/reelmoor.svg" "$folder/1.svg"
cp "$assets/reelmoor-32.png" "$folder/2.png"
cp "$assets/reelmoor.svg" "$folder/4.svg"
check "table mixed folder" "reelmoor odds, 3 symbols:" \
    "$("$odds" table --folder "$folder" --threads 1 | head -n 1 | cut -d' ' -f1-4)"
for own in reelmoor.svg reelmoor-32.png; do
  rm "$folder"/*
  for n in $(seq 0 49); do cp "$assets/$own" "$folder/$n.${own##*.}"; done
  check "table folder of $own" "reelmoor odds, 50 symbols:" \
      "$("$odds" table --folder "$folder" --threads 1 | head -n 1 | cut -d' ' -f1-4)"
done

sim=$("$odds" simulate --spins 200000 --symbols 10 --lines 5 --both --credits 2 --threads 2 --seed 4)
check "simulate inside exact interval" "1" "$(printf '%s\n' "$sim" | grep -c '(inside the interval)')"

[ "$failures" -eq 0 ] && echo "all reelmoor-odds checks passed"
exit "$failures"
