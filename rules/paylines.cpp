// SPDX-License-Identifier: GPL-2.0-or-later
#include "rules/paylines.h"

#include "rules/bets.h"

#include <algorithm>

bool isPlayableLineCount(int lines)
{
    return std::find(kLineChoices.begin(), kLineChoices.end(), lines) != kLineChoices.end();
}

LineCells lineCells(int line, Reading reading)
{
    LineCells cells = kPayLines.at(static_cast<std::size_t>(line - 1));
    if (reading == Reading::RightToLeft)
        return {cells[4], cells[3], cells[2], cells[1], cells[0]};
    return cells;
}

const std::array<LineCells, kReadingCount>& allReadings()
{
    static const auto readings = [] {
        std::array<LineCells, kReadingCount> r{};
        for (int k = 1; k <= kPayLineCount; ++k) {
            r[static_cast<std::size_t>(k - 1)] = lineCells(k, Reading::LeftToRight);
            r[static_cast<std::size_t>(k - 1 + kPayLineCount)] = lineCells(k, Reading::RightToLeft);
        }
        return r;
    }();
    return readings;
}

std::vector<LineCells> playedReadings(int lines, bool bothWays)
{
    std::vector<LineCells> readings;
    if (!isPlayableLineCount(lines))
        return readings;
    for (int k = 0; k < lines; ++k)
        readings.push_back(allReadings()[static_cast<std::size_t>(k)]);
    if (bothWays)
        for (int k = 0; k < lines; ++k)
            readings.push_back(allReadings()[static_cast<std::size_t>(k + kPayLineCount)]);
    return readings;
}
