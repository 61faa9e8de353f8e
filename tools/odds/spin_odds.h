// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Figures of a whole spin that do not follow from one reading alone: the
// chance of a jackpot, the chance that a spin pays anything, and the spread
// of what a spin pays. The readings of a spin share cells, so these are
// exact only where the structure allows it and otherwise estimated, each
// with a 99 % interval.
//
// Jackpot: a spin whose paid total reaches 8000 x credits per line.
//  - A played line of five identical symbols whose value alone (once, or
//    twice when both directions count) reaches that is a sure jackpot; the
//    chance that some played line is one is counted exactly (inclusion and
//    exclusion over the played lines).
//  - Every reading pays at most its value + 1.5 per credit, so any other
//    jackpot has some reading worth at least 8000 / readings - 1.5. Grids
//    are drawn conditioned on "some reading is that large" (one such
//    reading forced, the others free, each grid weighted by one over the
//    number of large readings it holds), which gives the remainder without
//    waiting for one-in-a-million events. Where no reading can make a
//    jackpot without a second large one (few symbols), grids are drawn
//    with two readings forced large instead, weighted by pairs.
// Paying spins and the spread: exact when no two played readings share a
// cell; otherwise E(paid^2) is split into spins where no reading has its
// first four cells in one figure (plain random grids, small values) and the
// others (grids conditioned on such a reading, the same way as above).
#include "rules/bets.h"
#include "tools/odds/odds.h"

#include <array>
#include <cstdint>

// A probability or a spread with its 99 % interval; low == value == high
// when exact.
struct Figure {
    long double value = 0;
    long double low = 0;
    long double high = 0;
    bool exact = false;
    // The larger distance from the value to an end of the interval, as a
    // share of the value (0 when exact or when the value is 0).
    long double relativeError() const;
};

struct BetFigures {
    Figure jackpot;  // P(paid >= 8000 x credits per line)
    Figure paying;   // P(paid > 0)
    Figure spread;   // standard deviation of the credits paid, per credit bet
};

struct SamplingPlan {
    std::uint64_t plainGrids = 400'000;     // for paying spins and the small part of the spread
    std::uint64_t figureGrids = 1'000'000;    // conditioned on a reading of one figure in four cells
    std::uint64_t jackpotBatch = 1 << 16;   // conditioned on a large reading, per batch
    std::uint64_t jackpotMaxGrids = 8'000'000;
    long double jackpotTarget = 0.03;       // stop once every relative error is below this
};

using BetRow = std::array<BetFigures, kCreditChoices>;

// The figures of lines 1, 3, 5, 7 or 9, one or both directions, for 1..10
// credits per line. The same seed gives the same figures.
BetRow spinOdds(const LineDistribution& distribution, int lines, bool bothWays, const SamplingPlan& plan,
                std::uint64_t seed);

// Every bet of the table: [lineChoice 0..4 for 1,3,5,7,9][bothWays]; the
// ten groups shared out over threads, each with a seed of its own, so the
// figures do not depend on the number of threads.
using BetTable = std::array<std::array<BetRow, 2>, kLineChoices.size()>;
BetTable spinOddsTable(const LineDistribution& distribution, const SamplingPlan& plan, std::uint64_t seed,
                       int threads);
