// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The pay schedule: what one pay line pays per credit bet on it. Runs count
// from the line's first cell only: identical symbols from two cells on, one
// figure in any colours and one colour in any figures from three cells on.
// A line that forms several runs pays their sum.
#include "rules/currency.h"
#include "rules/grid.h"

#include <array>
#include <cstdint>

// A symbol's figure and colour: symbols come in groups of five colours.
constexpr int figureOf(int symbol) { return symbol / 5; }
constexpr int colourOf(int symbol) { return symbol % 5; }

struct LineReading {
    Currency value;           // credits per credit bet, never negative for symbols >= 0
    std::uint8_t marked = 0;  // bit i set: the (i+1)-th cell in reading order is in a paying run
};

// What one run pays per credit before a line's runs are added up: count
// (2..5) identical symbols of the given figure, and count (3..5) symbols of
// one figure in any colours. The pay table shows these.
double matchRunValue(int figure, int count);
std::int64_t figureRunValue(int figure, int count);

// The value of five symbols s1..s5 in reading order.
LineReading readLine(int s1, int s2, int s3, int s4, int s5);

// Whether a reading that starts with s1, s2, s3 can pay at all. When it is
// false no run starts, so readLine gives zero and marks nothing; the fast
// paths of the odds tool rely on that.
constexpr bool mayPay(int s1, int s2, int s3)
{
    return s1 == s2 || (figureOf(s1) == figureOf(s2) && figureOf(s2) == figureOf(s3))
        || (colourOf(s1) == colourOf(s2) && colourOf(s2) == colourOf(s3));
}

// Values the line whose cells, in reading order, are cells and sets the
// flag of every cell in a paying run. Flags are only ever set, never cleared.
Currency pay(const Grid& symbols, CellFlags& winning, const std::array<int, kColumns>& cells);
