// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The nine pay lines over the grid, each one cell per column from left to
// right (cells 0..4 top row, 5..9 middle, 10..14 bottom).
#include "rules/grid.h"

#include <vector>

inline constexpr int kPayLineCount = 9;

using LineCells = std::array<int, kColumns>;

inline constexpr std::array<LineCells, kPayLineCount> kPayLines{{
    {5, 6, 7, 8, 9},      // 1: middle row
    {0, 1, 2, 3, 4},      // 2: top row
    {10, 11, 12, 13, 14}, // 3: bottom row
    {0, 6, 2, 8, 4},      // 4: top, middle, top, middle, top
    {10, 6, 12, 8, 14},   // 5: bottom, middle, bottom, middle, bottom
    {5, 11, 7, 13, 9},    // 6: middle, bottom, middle, bottom, middle
    {5, 1, 7, 3, 9},      // 7: middle, top, middle, top, middle
    {0, 1, 7, 13, 14},    // 8: top, top, middle, bottom, bottom
    {10, 11, 7, 3, 4},    // 9: bottom, bottom, middle, top, top
}};

enum class Reading { LeftToRight, RightToLeft };

// The numbers of lines a player can play: 1, 3, 5, 7 or 9.
bool isPlayableLineCount(int lines);

// The cells of line 1..9 in the order they are read; right to left is the
// same five cells reversed.
LineCells lineCells(int line, Reading reading);

// Every reading of the grid: line k left to right at k - 1, right to left
// at k + 8.
inline constexpr int kReadingCount = 2 * kPayLineCount;
const std::array<LineCells, kReadingCount>& allReadings();

// The readings a bet plays, in settling order: lines 1..lines left to right,
// then (both ways) the same lines right to left. None for a line count
// that cannot be played.
std::vector<LineCells> playedReadings(int lines, bool bothWays);
