#pragma once
// One group of bets (lines, directions) of the odds table: its readings,
// its sure lines, and the grids drawn for its estimates. Used by
// spin_odds.cpp only.
#include "rules/pay.h"
#include "rules/settlement.h"
#include "tools/odds/grid.h"
#include "tools/odds/odds.h"
#include "tools/odds/simulation.h"
#include "tools/odds/spin_odds.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <stdexcept>
#include <tuple>
#include <unordered_map>
#include <vector>

namespace odds_detail {

constexpr std::int64_t kJackpotFactor = 8000;
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
    BetGroup(const LineDistribution& distribution, int lines, bool bothways, const ReadingValuer& valuer)
        : n_(distribution.symbols), lines_(lines),
          readings_(playedReadings(lines, bothways)), valuer_(valuer)
    {
        const auto r = static_cast<std::int64_t>(readings_.size());
        // All readings below this: sum of (value + 1.5) stays below 8000.
        largeReading_ = (kJackpotFactor * Currency::kScale - 15000 * r) / r;
        if (largeReading_ <= kSmallReadingMax)
            throw std::logic_error("too many readings for the large-reading bound");
        for (int cpl = 1; cpl <= kCreditChoices; ++cpl)
            for (int s = 0; s < n_; ++s) {
                const LinePayout p = linePayout(readLine(s, s, s, s, s).value, Currency::fromWhole(cpl));
                // Both directions read the same five cells: the line pays twice.
                const Currency line = bothways ? p.credits + p.credits : p.credits;
                sure_[cpl - 1][s] = line.compareWhole(kJackpotFactor * cpl) >= 0;
            }
        for (int s = 0; s < n_; ++s) {
            sureForAll_[s] = true;
            for (int c = 0; c < kCreditChoices; ++c)
                sureForAll_[s] = sureForAll_[s] && sure_[c][s];
        }
        listLargeReadings(distribution);
        if (!large_.empty())
            planCondition();
        for (int f = 0; 5 * f < n_; ++f)
            figureWeight_.push_back(power(std::min(5, n_ - 5 * f), 4));
    }

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
    void fillCondition(Grid& g, SpinRandom& random) const
    {
        const long double pick = static_cast<long double>(random.next()) / 18446744073709551616.0L * conditionChance();
        if (pick < singleChance())
            fillLarge(g, random);
        else
            fillPair(g, random, pick - singleChance());
    }
    // P(one given reading has its first four cells in one figure)
    long double figureChance() const { return totalFigureWeight() * n_ / power(n_, 5); }

    // P(some played line shows five identical symbols that are sure at cpl).
    long double sureChance(int cpl) const
    {
        int sure = 0;
        for (int s = 0; s < n_; ++s)
            sure += sure_[cpl - 1][s];
        long double total = 0;
        for (unsigned subset = 1; subset < (1u << lines_); ++subset) {
            // Lines that share a cell must show the same symbol.
            int component[kLineCount];
            std::array<int, std::tuple_size_v<Grid>> cellOwner{};
            cellOwner.fill(-1);
            int components = 0, cells = 0, count = 0;
            for (int k = 0; k < lines_; ++k)
                component[k] = k;
            auto root = [&](int k) {
                while (component[k] != k)
                    k = component[k];
                return k;
            };
            for (int k = 0; k < lines_; ++k) {
                if (!(subset & (1u << k)))
                    continue;
                ++count;
                for (int cell : allReadings()[static_cast<std::size_t>(k)]) {
                    if (cellOwner[cell] < 0) {
                        cellOwner[cell] = k;
                        ++cells;
                    } else {
                        component[root(k)] = root(cellOwner[cell]);
                    }
                }
            }
            for (int k = 0; k < lines_; ++k)
                components += (subset & (1u << k)) && root(k) == k;
            const long double term = power(sure, components) / power(n_, cells);
            total += count % 2 ? term : -term;
        }
        return total;
    }

    // Exact moments of the credits one reading pays at cpl.
    struct ReadingMoments {
        long double paying = 0, mean = 0, square = 0;
    };
    static ReadingMoments readingMoments(const LineDistribution& d, int cpl)
    {
        ReadingMoments m;
        const auto outcomes = static_cast<long double>(d.outcomes);
        for (const auto& [value, count] : d.values) {
            const LinePayout p = linePayout(value, Currency::fromWhole(cpl));
            const auto credits = static_cast<long double>(p.credits.roundWhole());
            m.paying += p.paying ? count / outcomes : 0;
            m.mean += credits * count / outcomes;
            m.square += credits * credits * count / outcomes;
        }
        return m;
    }

    bool readingsIndependent() const
    {
        std::array<int, std::tuple_size_v<Grid>> used{};
        for (const auto& r : readings_)
            for (int cell : r)
                if (used[cell]++)
                    return false;
        return true;
    }

    // forJackpot: leave paid at zero when the readings cannot reach a
    // jackpot at any credits per line.
    Spin evaluate(const Grid& g, bool forJackpot) const
    {
        Spin spin;
        std::array<std::int64_t, kReadingCount> paying{};
        int payingCount = 0;
        std::int64_t reach = 0;  // what the readings can pay at most, per credit, raw
        for (const auto& c : readings_) {
            const int s[5] = {g[c[0]], g[c[1]], g[c[2]], g[c[3]], g[c[4]]};
            const std::int64_t v = valuer_(s[0], s[1], s[2], s[3], s[4]).raw();
            const int f = figureOf(s[0]);
            spin.figureReadings += f == figureOf(s[1]) && f == figureOf(s[2]) && f == figureOf(s[3]);
            const bool fiveAlike = s[0] == s[1] && s[1] == s[2] && s[2] == s[3] && s[3] == s[4];
            const bool sure = fiveAlike && sureForAll_[s[0]];
            spin.largeReadings += v >= largeReading_ && !sure;
            spin.pairReadings += v >= pairReading_ && !sure;
            if (fiveAlike)
                for (int cpl = 0; cpl < kCreditChoices; ++cpl)
                    spin.sureLine[cpl] = spin.sureLine[cpl] || sure_[cpl][s[0]];
            if (v > 0) {
                paying[payingCount++] = v;
                reach += v + 15000;
            }
        }
        spin.paying = payingCount > 0;
        if (forJackpot && reach < kJackpotFactor * Currency::kScale)
            return spin;
        // What linePayout gives: value x credits rounded to whole credits,
        // halves to even, plus the stake.
        for (int cpl = 1; cpl <= kCreditChoices; ++cpl) {
            std::int64_t total = 0;
            for (int i = 0; i < payingCount; ++i) {
                const std::int64_t x = paying[i] * cpl, whole = x / Currency::kScale, rest = x % Currency::kScale;
                total += whole + (rest > Currency::kScale / 2 || (rest == Currency::kScale / 2 && whole % 2)) + cpl;
            }
            spin.paid[cpl - 1] = total;
        }
        return spin;
    }

    void fillPlain(Grid& g, SpinRandom& random) const { random.fillGrid(g, n_); }
    // One played reading, at random, forced large; the other cells free.
    void fillLarge(Grid& g, SpinRandom& random) const
    {
        random.fillGrid(g, n_);
        const auto& cells = readings_[static_cast<std::size_t>(random.below(static_cast<int>(readings_.size())))];
        const Tuple& t = large_[static_cast<std::size_t>(random.below(static_cast<int>(large_.size())))];
        for (int i = 0; i < 5; ++i)
            g[cells[i]] = t[i];
    }
    // One played reading, at random, with its first four cells in one figure.
    void fillFigure(Grid& g, SpinRandom& random) const
    {
        random.fillGrid(g, n_);
        const auto& cells = readings_[static_cast<std::size_t>(random.below(static_cast<int>(readings_.size())))];
        long double pick = static_cast<long double>(random.next()) / 18446744073709551616.0L * totalFigureWeight();
        std::size_t f = 0;
        while (f + 1 < figureWeight_.size() && pick >= figureWeight_[f])
            pick -= figureWeight_[f++];
        const int first = 5 * static_cast<int>(f), size = std::min(5, n_ - first);
        for (int i = 0; i < 4; ++i)
            g[cells[i]] = first + random.below(size);
    }

private:
    struct Pair {
        std::size_t first, second;                                   // played readings
        std::vector<std::pair<std::uint32_t, std::uint32_t>> compatible;  // empty: no shared cell
    };

    // Two played readings, chosen by the chance that both are large enough
    // for a pair, forced so; the other cells free.
    void fillPair(Grid& g, SpinRandom& random, long double pick) const
    {
        random.fillGrid(g, n_);
        const auto at = std::upper_bound(pairWeights_.begin(), pairWeights_.end(), pick) - pairWeights_.begin();
        const Pair& pair = pairs_[std::min(static_cast<std::size_t>(at), pairs_.size() - 1)];
        std::uint32_t t, u;
        if (pair.compatible.empty()) {  // no shared cell: any two
            t = static_cast<std::uint32_t>(random.below(static_cast<int>(pairList_.size())));
            u = static_cast<std::uint32_t>(random.below(static_cast<int>(pairList_.size())));
        } else {
            std::tie(t, u) = pair.compatible[static_cast<std::size_t>(random.below(static_cast<int>(pair.compatible.size())))];
        }
        for (int i = 0; i < 5; ++i) {
            g[readings_[pair.first][i]] = pairList_[t][i];
            g[readings_[pair.second][i]] = pairList_[u][i];
        }
    }

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
    void sharedPositions(std::size_t j, std::size_t k, std::vector<int>& inJ, std::vector<int>& inK) const
    {
        inJ.clear();
        inK.clear();
        for (int p = 0; p < 5; ++p)
            for (int q = 0; q < 5; ++q)
                if (readings_[j][p] == readings_[k][q]) {
                    inJ.push_back(p);
                    inK.push_back(q);
                }
    }

    // The chance that two given readings are both in list; with store, the
    // pairs of the list that agree on their common cells are kept.
    long double pairChance(const std::vector<Tuple>& list, std::size_t j, std::size_t k, Pair* store) const
    {
        std::vector<int> inJ, inK;
        sharedPositions(j, k, inJ, inK);
        const long double outcomes = power(n_, 10 - static_cast<int>(inJ.size()));
        if (inJ.empty())
            return static_cast<long double>(list.size()) * list.size() / outcomes;
        std::unordered_map<std::uint64_t, std::vector<std::uint32_t>> byShared;
        for (std::uint32_t u = 0; u < list.size(); ++u)
            byShared[keyOf(list[u], inK)].push_back(u);
        std::uint64_t count = 0;
        for (std::uint32_t t = 0; t < list.size(); ++t) {
            const auto it = byShared.find(keyOf(list[t], inJ));
            if (it == byShared.end())
                continue;
            count += it->second.size();
            if (store)
                for (std::uint32_t u : it->second)
                    store->compatible.emplace_back(t, u);
        }
        return static_cast<long double>(count) / outcomes;
    }

    // Grids are drawn conditioned on a union of events that every jackpot
    // without a sure line meets: "some reading is worth at least single" or
    // "two readings are worth at least pair", where no reading below single
    // and at most one of pair or more keep the sum of (value + 1.5) per
    // credit below 8000. The least likely union of a few splits is taken
    // (single = the large-reading bound alone needs no pairs).
    void planCondition()
    {
        const auto r = static_cast<std::int64_t>(readings_.size());
        std::vector<std::pair<Tuple, std::int64_t>> runs;  // not sure lines, above the small ones, by value
        forFigureRuns([&](const Tuple& t, std::int64_t v) {
            if (v > kSmallReadingMax && !(t[0] == t[4] && t[1] == t[4] && t[2] == t[4] && t[3] == t[4] && sureForAll_[t[0]]))
                runs.emplace_back(t, v);
        });
        std::sort(runs.begin(), runs.end(), [](const auto& a, const auto& b) { return a.second > b.second; });
        auto from = [&](std::int64_t threshold) {
            std::vector<Tuple> list;
            for (const auto& [t, v] : runs) {
                if (v < threshold)
                    break;
                list.push_back(t);
            }
            return list;
        };
        if (r < 2)
            return;
        long double best = singleChance();
        std::int64_t bestSingle = largeReading_, bestPair = INT64_MAX;
        for (int step = 1; step <= 8; ++step) {
            const std::int64_t single = largeReading_ + (maxValue_ + 1 - largeReading_) * step / 8;
            const std::int64_t pair = (kJackpotFactor * Currency::kScale - single - 15000 * r) / (r - 1);
            if (pair <= kSmallReadingMax)
                continue;
            const std::vector<Tuple> pairList = from(pair);
            if (pairList.size() > 5000)
                continue;
            long double chance = readings_.size() * static_cast<long double>(from(single).size()) / power(n_, 5);
            for (std::size_t j = 0; j < readings_.size() && chance < best; ++j)
                for (std::size_t k = j + 1; k < readings_.size() && chance < best; ++k)
                    chance += pairChance(pairList, j, k, nullptr);
            if (chance < best) {
                best = chance;
                bestSingle = single;
                bestPair = pair;
            }
        }
        if (bestPair == INT64_MAX)
            return;
        large_ = from(bestSingle);
        largeReading_ = bestSingle;
        pairReading_ = bestPair;
        pairList_ = from(bestPair);
        long double total = 0;
        for (std::size_t j = 0; j < readings_.size(); ++j) {
            for (std::size_t k = j + 1; k < readings_.size(); ++k) {
                Pair pair{j, k, {}};
                const long double chance = pairChance(pairList_, j, k, &pair);
                if (chance == 0)
                    continue;
                total += chance;
                pairs_.push_back(std::move(pair));
                pairWeights_.push_back(total);
            }
        }
    }

    long double totalFigureWeight() const
    {
        long double w = 0;
        for (long double x : figureWeight_)
            w += x;
        return w;
    }

    // Every reading whose first four cells share a figure, with its value.
    template <class Visit>
    void forFigureRuns(Visit visit) const
    {
        for (int f = 0; 5 * f < n_; ++f) {
            const int first = 5 * f, last = std::min(n_, first + 5);
            for (int a = first; a < last; ++a)
                for (int b = first; b < last; ++b)
                    for (int c = first; c < last; ++c)
                        for (int e = first; e < last; ++e)
                            for (int s5 = 0; s5 < n_; ++s5)
                                visit(Tuple{a, b, c, e, s5}, readLine(a, b, c, e, s5).value.raw());
        }
    }

    // Readings worth largeReading_ or more need their first four cells in
    // one figure; the fifth is free. Sure lines are left out: they are
    // counted exactly.
    void listLargeReadings(const LineDistribution& d)
    {
        maxValue_ = kSmallReadingMax;
        forFigureRuns([&](const Tuple& t, std::int64_t v) {
            if (t[0] == t[4] && t[1] == t[4] && t[2] == t[4] && t[3] == t[4] && sureForAll_[t[0]])
                return;
            maxValue_ = std::max(maxValue_, v);
            if (v >= largeReading_)
                large_.push_back(t);
        });
        // The list must hold every large reading of the distribution.
        std::uint64_t expected = 0;
        for (const auto& [value, count] : d.values)
            if (value.raw() >= largeReading_)
                expected += count;
        for (int s = 0; s < n_; ++s)
            expected -= sureForAll_[s];
        if (expected != large_.size())
            throw std::logic_error("large readings missed");
        remainderEmpty_ = large_.empty();
    }

    int n_, lines_;
    std::vector<ReadingCells> readings_;
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
