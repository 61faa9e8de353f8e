// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The arithmetic of settling one spin, free of any window: what the main
// window then shows, in the order it shows it.
#include "rules/bets.h"
#include "rules/currency.h"
#include "rules/grid.h"
#include "rules/paylines.h"

#include <array>
#include <string_view>
#include <vector>

struct Settlement {
    Currency bank;                       // after the bet, the wins and any refill
    Currency bankBeforeRefill;           // after the bet and the wins: the bank while this is shown
    Currency bet;
    // What each pay line read, per credit bet: line k at k - 1.
    std::array<Currency, kPayLineCount> leftToRight{};
    std::array<Currency, kPayLineCount> rightToLeft{};
    Currency totalPaid;
    std::vector<int> shownLines;         // paying lines to show: left to right first, then right to left
    bool paysLeftToRight = false;
    bool paysRightToLeft = false;
    CellFlags runCells{};                // cells of paying runs: the first flash
    CellFlags winning{};                 // runCells, or every cell on a jackpot
    bool paid = false;                   // totalPaid > 0: credited and strobed
    bool jackpot = false;                // totalPaid >= 8000 x credits per line: second strobe
    bool refilled = false;               // bank was <= 0 and became 2500
    Currency net;                        // bank - 2500
    bool netLoss = false;                // "NET LOSS" in red, else "NET GAIN" in black
};

// Reads the bank from the text of the total-credits box: a whole number,
// halves to even. The game only ever writes Currency::text() there; any
// other text reads as follows:
//  - blanks (spaces, tabs, line breaks) before and after are ignored;
//  - an optional sign, digits, and optionally a point with more digits
//    ("12.5", "+7", "-3", ".5", "4.") is a number, rounded to whole credits
//    with halves to even, however many digits follow the point;
//  - a number beyond the currency's range reads as the largest whole amount
//    of its sign (+/- Currency::kMaxWhole);
//  - anything else (empty, letters, separators, exponents, a lone sign or
//    point) reads as 0, so that the settlement refills the bank to 2500
//    unless the spin itself wins more than its bet.
Currency readBank(std::string_view text);

// What one line reading adds to the credits paid: its value times the
// credits per line, rounded to whole credits (halves to even), plus the
// line's stake when that product is above zero before rounding.
struct LinePayout {
    Currency credits;
    bool paying = false;
};
LinePayout linePayout(Currency value, Currency creditsPerLine);

Settlement settle(std::string_view bankText, int lines, Currency creditsPerLine, bool bothWays,
                  const Grid& symbols);
