// SPDX-License-Identifier: GPL-2.0-or-later
#include "rules/paylines.h"

bool isPlayableLineCount(int lines)
{
    return lines >= 1 && lines <= kPayLineCount && lines % 2 == 1;
}

LineCells lineCells(int line, Reading reading)
{
    LineCells cells = kPayLines.at(static_cast<std::size_t>(line - 1));
    if (reading == Reading::RightToLeft)
        return {cells[4], cells[3], cells[2], cells[1], cells[0]};
    return cells;
}
