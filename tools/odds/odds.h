// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Exact odds of the pay schedule. Every cell shows each of the symbols in
// play with the same chance, independently of the others, so each reading
// of a pay line (either direction) has the same distribution of values, and
// the expected credits of a spin follow from it by linearity.
#include "rules/currency.h"

#include <cstdint>
#include <utility>
#include <vector>

inline constexpr int kMaxSymbols = 50;

struct LineDistribution {
    int symbols = 0;             // symbols in play, numbered 0..symbols-1
    std::uint64_t outcomes = 0;  // symbols^5 equally likely readings
    // Every line value with the number of readings that give it, ascending
    // by value; the counts add up to outcomes.
    std::vector<std::pair<Currency, std::uint64_t>> values;

    std::uint64_t paying() const;  // readings whose value is above zero
};

// The distribution of one reading's value with 1..kMaxSymbols symbols.
// Only the first cells that can extend a run are looked at one by one; the
// others are counted, so this takes a few milliseconds even for 50 symbols.
LineDistribution lineDistribution(int symbols);

// Exact expectations for one bet: lines 1, 3, 5, 7 or 9, one or both
// directions, 1..1,000,000 whole credits per line.
struct ExactOdds {
    std::int64_t bet = 0;             // credits per spin
    int readings = 0;                 // line readings per spin
    // Credits one reading pays, summed over all outcomes: the expected
    // credits per reading are paidSum / outcomes, exactly.
    std::int64_t paidSum = 0;
    std::uint64_t outcomes = 0;
    std::uint64_t payingCount = 0;    // readings that pay, of outcomes

    long double rtpPercent() const;          // 100 x expected paid / bet
    long double payingProbability() const;   // one reading pays
    long double expectedPaidPerSpin() const;
};

ExactOdds exactOdds(const LineDistribution& distribution, int lines, bool bothWays,
                    int creditsPerLine);
