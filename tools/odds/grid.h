// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The game's grid as the odds code sees it. Only this file and grid.cpp know
// how the rules number the cells and name the readings; everything else in
// the odds code works through them.
#include "rules/currency.h"
#include "rules/grid.h"

#include <array>
#include <vector>

// Grid (rules/grid.h): cells 0..14, top row first.
inline constexpr int kFirstCell = 0;
inline constexpr int kCellCount = kCells;
inline constexpr int kLineCount = 9;
inline constexpr int kReadingCount = 2 * kLineCount;

using ReadingCells = std::array<int, 5>;  // grid cells in reading order

// Every reading of the grid: line k (1..9) left to right at k-1, right to
// left at k+8.
const std::array<ReadingCells, kReadingCount>& allReadings();

// The readings a bet plays, in settling order: lines 1..lines left to right,
// then (both directions) the same lines right to left.
std::vector<ReadingCells> playedReadings(int lines, bool bothways);

// What the game's own settlement makes of this grid and bet.
struct Settled {
    Currency paid;
    bool jackpot = false;
};
Settled settled(const Grid& grid, int lines, Currency creditsperline, bool bothways);
