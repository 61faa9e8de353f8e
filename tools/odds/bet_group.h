// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// One group of bets (lines, directions) of the odds table: its readings,
// its sure lines, and the grids drawn for its estimates. Used by
// spin_odds.cpp only.
#include "rules/paylines.h"
#include "tools/odds/odds.h"
#include "tools/odds/simulation.h"
#include "tools/odds/spin_odds.h"

#include <array>
#include <cstdint>
#include <vector>

namespace odds_detail {

// Without a reading whose first four cells share a figure no reading is
// worth more than this (three identical of the top figure, three of one
// figure, five of one colour).
constexpr std::int64_t kSmallReadingMax = 256 * Currency::kScale;

using Tuple = std::array<int, 5>;

inline long double power(long double base, int exponent)
{
    long double r = 1;
    for (int i = 0; i < exponent; ++i)
        r *= base;
    return r;
}

// Everything one group of bets (lines, directions) shares.
class BetGroup {
public:
    BetGroup(const LineDistribution& distribution, int lines, bool bothWays, const ReadingValuer& valuer);

    // One evaluated grid.
    struct Spin {
        std::array<std::int64_t, kCreditChoices> paid{};  // whole credits at 1..10 per line
        bool paying = false;
        int figureReadings = 0;  // first four cells in one figure
        int largeReadings = 0;   // large, and not a sure line
        int pairReadings = 0;    // large enough for a pair, and not a sure line
        std::array<bool, kCreditChoices> sureLine{};
    };
    std::size_t readingCount() const { return readings_.size(); }
    bool remainderEmpty() const { return remainderEmpty_; }
    // The sum over the conditioning events of their chances.
    long double conditionChance() const { return singleChance() + (pairs_.empty() ? 0 : pairWeights_.back()); }
    // How many of the conditioning events a grid meets (at least one for
    // the grids drawn), so that it counts as one grid over all of them.
    long double conditionCount(const Spin& spin) const
    {
        return spin.largeReadings + spin.pairReadings * (spin.pairReadings - 1) / 2.0L;
    }
    void fillCondition(Grid& g, SpinRandom& random) const;
    // P(one given reading has its first four cells in one figure)
    long double figureChance() const { return totalFigureWeight() * n_ / power(n_, 5); }

    // P(some played line shows five identical symbols that are sure at cpl).
    long double sureChance(int cpl) const;

    // Exact moments of the credits one reading pays at cpl.
    struct ReadingMoments {
        long double paying = 0, mean = 0, square = 0;
    };
    static ReadingMoments readingMoments(const LineDistribution& d, int cpl);

    bool readingsIndependent() const;

    // forJackpot: leave paid at zero when the readings cannot reach a
    // jackpot at any credits per line.
    Spin evaluate(const Grid& g, bool forJackpot) const;

    void fillPlain(Grid& g, SpinRandom& random) const { random.fillGrid(g, n_); }
    // One played reading, at random, forced large; the other cells free.
    void fillLarge(Grid& g, SpinRandom& random) const;
    // One played reading, at random, with its first four cells in one figure.
    void fillFigure(Grid& g, SpinRandom& random) const;

private:
    struct Pair {
        std::size_t first, second;                                   // played readings
        std::vector<std::pair<std::uint32_t, std::uint32_t>> compatible;  // empty: no shared cell
    };

    // Two played readings, chosen by the chance that both are large enough
    // for a pair, forced so; the other cells free.
    void fillPair(Grid& g, SpinRandom& random, long double pick) const;

    long double singleChance() const
    {
        return readings_.size() * static_cast<long double>(large_.size()) / power(n_, 5);
    }

    // A 64-bit key of the symbols at some positions of a reading.
    static std::uint64_t keyOf(const Tuple& t, const std::vector<int>& positions)
    {
        std::uint64_t key = 0;
        for (int p : positions)
            key = key * 64 + static_cast<std::uint64_t>(t[p]);
        return key;
    }

    // Positions in reading j and in reading k of the cells they share.
    void sharedPositions(std::size_t j, std::size_t k, std::vector<int>& inJ, std::vector<int>& inK) const;

    // The chance that two given readings are both in list; with store, the
    // pairs of the list that agree on their common cells are kept.
    long double pairChance(const std::vector<Tuple>& list, std::size_t j, std::size_t k, Pair* store) const;

    // Grids are drawn conditioned on a union of events that every jackpot
    // without a sure line meets: "some reading is worth at least single" or
    // "two readings are worth at least pair", where no reading below single
    // and at most one of pair or more keep the sum of (value + 1.5) per
    // credit below 8000. The least likely union of a few splits is taken
    // (single = the large-reading bound alone needs no pairs).
    void planCondition();

    long double totalFigureWeight() const
    {
        long double w = 0;
        for (long double x : figureWeight_)
            w += x;
        return w;
    }

    // Every reading whose first four cells share a figure, with its value.
    template <class Visit>
    void forFigureRuns(Visit visit) const;

    // Readings worth largeReading_ or more need their first four cells in
    // one figure; the fifth is free. Sure lines are left out: they are
    // counted exactly.
    void listLargeReadings(const LineDistribution& d);

    int n_, lines_;
    std::vector<LineCells> readings_;
    const ReadingValuer& valuer_;
    std::int64_t largeReading_ = 0;
    std::array<std::array<bool, kMaxSymbols>, kCreditChoices> sure_{};
    std::array<bool, kMaxSymbols> sureForAll_{};
    std::vector<Tuple> large_;
    bool remainderEmpty_ = true;
    std::int64_t maxValue_ = 0;  // of any reading that is not a sure line
    std::int64_t pairReading_ = INT64_MAX;
    std::vector<Tuple> pairList_;
    std::vector<Pair> pairs_;
    std::vector<long double> pairWeights_;  // running sums of the pairs' chances
    std::vector<long double> figureWeight_;
};

}  // namespace odds_detail
