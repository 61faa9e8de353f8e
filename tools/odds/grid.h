#pragma once
// The game's grid as the odds code sees it. Only this file and grid.cpp know
// how the rules number the cells and name the readings; everything else in
// the odds code works through them.
#include "rules/currency.h"

#include <array>
#include <vector>

using Grid = std::array<int, 16>;  // cells 1..15, top row first, entry 0 unused
inline constexpr int kFirstCell = 1;
inline constexpr int kCellCount = 15;
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
