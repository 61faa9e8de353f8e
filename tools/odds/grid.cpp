// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/odds/grid.h"

#include "rules/paylines.h"
#include "rules/settlement.h"

const std::array<ReadingCells, kReadingCount>& allReadings()
{
    static const auto readings = [] {
        std::array<ReadingCells, kReadingCount> r{};
        for (int k = 1; k <= kLineCount; ++k) {
            r[static_cast<std::size_t>(k - 1)] = lineCells(k, Reading::LeftToRight);
            r[static_cast<std::size_t>(k + 8)] = lineCells(k, Reading::RightToLeft);
        }
        return r;
    }();
    return readings;
}

std::vector<ReadingCells> playedReadings(int lines, bool bothways)
{
    std::vector<ReadingCells> readings;
    if (!isPlayableLineCount(lines))
        return readings;
    for (int k = 0; k < lines; ++k)
        readings.push_back(allReadings()[static_cast<std::size_t>(k)]);
    if (bothways)
        for (int k = 0; k < lines; ++k)
            readings.push_back(allReadings()[static_cast<std::size_t>(k + kLineCount)]);
    return readings;
}

Settled settled(const Grid& grid, int lines, Currency creditsperline, bool bothways)
{
    const Settlement s = settle("2500", lines, creditsperline, bothways, grid);
    return {s.totalPaid, s.jackpot};
}
