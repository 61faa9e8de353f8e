// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The grid of symbols: three rows of five columns, fifteen cells counted
// from 0 at the top left, row by row.
#include <array>

inline constexpr int kRows = 3;
inline constexpr int kColumns = 5;
inline constexpr int kCells = kRows * kColumns;

// The symbol in each cell.
using Grid = std::array<int, kCells>;
// One flag per cell (for instance: the cell is in a paying run).
using CellFlags = std::array<bool, kCells>;

struct CellPlace {
    int row;
    int column;
};
constexpr CellPlace placeOf(int cell) { return {cell / kColumns, cell % kColumns}; }
constexpr int cellAt(int row, int column) { return row * kColumns + column; }
