// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/odds/spin_odds.h"

#include "tools/odds/bet_group.h"
#include "tools/odds/interval.h"

#include <atomic>
#include <cmath>
#include <thread>

using namespace odds_detail;

namespace {

// Sum and sum of squares of one sampled quantity.
struct Moments {
    long double sum = 0, squares = 0;
    std::uint64_t nonzero = 0;
    void add(long double x)
    {
        sum += x;
        squares += x * x;
        nonzero += x != 0;
    }
    long double mean(std::uint64_t n) const { return sum / static_cast<long double>(n); }
    // Half-width of the 99 % interval of the mean.
    long double halfWidth(std::uint64_t n) const
    {
        const long double nn = static_cast<long double>(n), m = sum / nn;
        const long double variance = std::max<long double>(0, (squares - nn * m * m) / (nn - 1));
        return kZ99 * std::sqrt(variance / nn);
    }
};

Figure exactFigure(long double value)
{
    return {value, value, value, true};
}

BetRow groupOdds(const LineDistribution& distribution, const ReadingValuer& valuer, int lines, bool bothWays,
                 const SamplingPlan& plan, std::uint64_t seed)
{
    BetRow row;
    const BetGroup group(distribution, lines, bothWays, valuer);
    const auto readings = static_cast<long double>(group.readingCount());
    SpinRandom random(seed);
    Grid g{};

    // Jackpots: the sure lines exactly, the rest conditioned on a large reading.
    std::array<Moments, kCreditChoices> rest{};
    std::uint64_t restGrids = 0;
    auto jackpotRange = [&](int c, long double& value, long double& low, long double& high) {
        const long double sure = group.sureChance(c + 1), scale = group.conditionChance();
        value = low = high = sure;
        if (restGrids == 0)
            return;
        const Moments& m = rest[static_cast<std::size_t>(c)];
        value += scale * m.mean(restGrids);
        if (m.nonzero >= 20) {
            low += scale * std::max<long double>(0, m.mean(restGrids) - m.halfWidth(restGrids));
            high += scale * (m.mean(restGrids) + m.halfWidth(restGrids));
        } else {
            // Few hits: each weight is at most 1, so the mean is at most the
            // share of grids with a hit.
            high += scale * wilson(m.nonzero, restGrids).high;
        }
    };
    if (!group.remainderEmpty()) {
        for (bool precise = false; !precise && restGrids < plan.jackpotMaxGrids;) {
            for (std::uint64_t i = 0; i < plan.jackpotBatch; ++i) {
                group.fillCondition(g, random);
                const auto spin = group.evaluate(g, true);
                for (int c = 0; c < kCreditChoices; ++c) {
                    const bool jackpot = spin.paid[static_cast<std::size_t>(c)] >= kJackpotFactor * (c + 1);
                    rest[static_cast<std::size_t>(c)].add(jackpot && !spin.sureLine[static_cast<std::size_t>(c)]
                                                              ? 1.0L / group.conditionCount(spin)
                                                              : 0);
                }
            }
            restGrids += plan.jackpotBatch;
            precise = true;
            for (int c = 0; c < kCreditChoices; ++c) {
                long double v, lo, hi;
                jackpotRange(c, v, lo, hi);
                precise = precise && (v == 0 || std::max(v - lo, hi - v) <= plan.jackpotTarget * v);
            }
        }
    }
    for (int c = 0; c < kCreditChoices; ++c) {
        Figure& f = row[static_cast<std::size_t>(c)].jackpot;
        jackpotRange(c, f.value, f.low, f.high);
        f.exact = group.remainderEmpty();
    }

    // Paying spins and the spread.
    std::array<BetGroup::ReadingMoments, kCreditChoices> one{};
    for (int c = 0; c < kCreditChoices; ++c)
        one[static_cast<std::size_t>(c)] = BetGroup::readingMoments(distribution, c + 1);
    if (group.readingsIndependent()) {
        for (int c = 0; c < kCreditChoices; ++c) {
            const auto& m = one[static_cast<std::size_t>(c)];
            const long double bet = readings * (c + 1);
            auto& out = row[static_cast<std::size_t>(c)];
            out.paying = exactFigure(1 - power(1 - m.paying, static_cast<int>(readings)));
            out.spread = exactFigure(std::sqrt(readings * (m.square - m.mean * m.mean)) / bet);
        }
        return row;
    }
    Moments paying;
    std::array<Moments, kCreditChoices> smallSquares{}, figureSquares{};
    for (std::uint64_t i = 0; i < plan.plainGrids; ++i) {
        group.fillPlain(g, random);
        const auto spin = group.evaluate(g, false);
        paying.add(spin.paying);
        for (int c = 0; c < kCreditChoices; ++c) {
            const auto x = static_cast<long double>(spin.paid[static_cast<std::size_t>(c)]);
            smallSquares[static_cast<std::size_t>(c)].add(spin.figureReadings == 0 ? x * x : 0);
        }
    }
    for (std::uint64_t i = 0; i < plan.figureGrids; ++i) {
        group.fillFigure(g, random);
        const auto spin = group.evaluate(g, false);
        for (int c = 0; c < kCreditChoices; ++c) {
            const auto x = static_cast<long double>(spin.paid[static_cast<std::size_t>(c)]);
            figureSquares[static_cast<std::size_t>(c)].add(x * x / spin.figureReadings);
        }
    }
    const long double figureScale = readings * group.figureChance();
    const long double payingHalf = paying.halfWidth(plan.plainGrids);
    for (int c = 0; c < kCreditChoices; ++c) {
        auto& out = row[static_cast<std::size_t>(c)];
        const long double p = paying.mean(plan.plainGrids);
        out.paying = {p, std::max<long double>(0, p - payingHalf), std::min<long double>(1, p + payingHalf), false};
        if (one[static_cast<std::size_t>(c)].paying == 1)
            out.paying = exactFigure(1);  // every reading pays (few symbols)
        const auto& small = smallSquares[static_cast<std::size_t>(c)];
        const auto& large = figureSquares[static_cast<std::size_t>(c)];
        const long double square = small.mean(plan.plainGrids) + figureScale * large.mean(plan.figureGrids);
        const long double half = std::hypot(small.halfWidth(plan.plainGrids),
                                            figureScale * large.halfWidth(plan.figureGrids));
        const long double mean = readings * one[static_cast<std::size_t>(c)].mean;
        const long double bet = readings * (c + 1);
        auto sd = [&](long double s) { return std::sqrt(std::max<long double>(0, s - mean * mean)) / bet; };
        out.spread = {sd(square), sd(square - half), sd(square + half), false};
    }
    return row;
}

}  // namespace

long double Figure::relativeError() const
{
    if (exact || value == 0)
        return 0;
    return std::max(value - low, high - value) / value;
}

BetRow spinOdds(const LineDistribution& distribution, int lines, bool bothWays, const SamplingPlan& plan,
                std::uint64_t seed)
{
    const ReadingValuer valuer(distribution.symbols);
    return groupOdds(distribution, valuer, lines, bothWays, plan, seed);
}

BetTable spinOddsTable(const LineDistribution& distribution, const SamplingPlan& plan, std::uint64_t seed,
                       int threads)
{
    BetTable table;
    const ReadingValuer valuer(distribution.symbols);
    std::atomic<int> next{0};
    auto work = [&] {
        for (int group; (group = next++) < 10;) {
            const int li = group / 2, both = group % 2;
            table[static_cast<std::size_t>(li)][static_cast<std::size_t>(both)] =
                groupOdds(distribution, valuer, kLineChoices[li], both != 0, plan,
                          seed + 0x9e3779b97f4a7c15ULL * static_cast<std::uint64_t>(group + 1));
        }
    };
    std::vector<std::thread> pool;
    for (int t = 0; t < std::max(1, threads); ++t)
        pool.emplace_back(work);
    for (auto& t : pool)
        t.join();
    return table;
}
