#pragma once
// The nine pay lines over the grid of fifteen cells (1..5 top row, 6..10
// middle, 11..15 bottom), each one cell per column from left to right.
#include <array>

inline constexpr int kPayLineCount = 9;

inline constexpr std::array<std::array<int, 5>, kPayLineCount> kPayLines{{
    {6, 7, 8, 9, 10},     // 1: middle row
    {1, 2, 3, 4, 5},      // 2: top row
    {11, 12, 13, 14, 15}, // 3: bottom row
    {1, 7, 3, 9, 5},      // 4: top, middle, top, middle, top
    {11, 7, 13, 9, 15},   // 5: bottom, middle, bottom, middle, bottom
    {6, 12, 8, 14, 10},   // 6: middle, bottom, middle, bottom, middle
    {6, 2, 8, 4, 10},     // 7: middle, top, middle, top, middle
    {1, 2, 8, 14, 15},    // 8: top, top, middle, bottom, bottom
    {11, 12, 8, 4, 5},    // 9: bottom, bottom, middle, top, top
}};

enum class Reading { LeftToRight, RightToLeft };

// The numbers of lines a player can play: 1, 3, 5, 7 or 9.
bool isPlayableLineCount(int lines);

// The cells of line 1..9 in the order they are read; right to left is the
// same five cells reversed.
std::array<int, 5> lineCells(int line, Reading reading);
