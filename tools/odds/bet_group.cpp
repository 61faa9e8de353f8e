// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/odds/bet_group.h"

#include "rules/pay.h"
#include "rules/settlement.h"

#include <algorithm>
#include <stdexcept>
#include <tuple>
#include <unordered_map>

namespace odds_detail {

template <class Visit>
void BetGroup::forFigureRuns(Visit visit) const
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

BetGroup::BetGroup(const LineDistribution& distribution, int lines, bool bothWays, const ReadingValuer& valuer)
    : n_(distribution.symbols), lines_(lines),
      readings_(playedReadings(lines, bothWays)), valuer_(valuer)
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
            const Currency line = bothWays ? p.credits + p.credits : p.credits;
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

void BetGroup::fillCondition(Grid& g, SpinRandom& random) const
{
    const long double pick = static_cast<long double>(random.next()) / 18446744073709551616.0L * conditionChance();
    if (pick < singleChance())
        fillLarge(g, random);
    else
        fillPair(g, random, pick - singleChance());
}

long double BetGroup::sureChance(int cpl) const
{
    int sure = 0;
    for (int s = 0; s < n_; ++s)
        sure += sure_[cpl - 1][s];
    long double total = 0;
    for (unsigned subset = 1; subset < (1u << lines_); ++subset) {
        // Lines that share a cell must show the same symbol.
        int component[kPayLineCount];
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

BetGroup::ReadingMoments BetGroup::readingMoments(const LineDistribution& d, int cpl)
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

bool BetGroup::readingsIndependent() const
{
    std::array<int, std::tuple_size_v<Grid>> used{};
    for (const auto& r : readings_)
        for (int cell : r)
            if (used[cell]++)
                return false;
    return true;
}

BetGroup::Spin BetGroup::evaluate(const Grid& g, bool forJackpot) const
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

void BetGroup::fillLarge(Grid& g, SpinRandom& random) const
{
    random.fillGrid(g, n_);
    const auto& cells = readings_[static_cast<std::size_t>(random.below(static_cast<int>(readings_.size())))];
    const Tuple& t = large_[static_cast<std::size_t>(random.below(static_cast<int>(large_.size())))];
    for (int i = 0; i < 5; ++i)
        g[cells[i]] = t[i];
}

void BetGroup::fillFigure(Grid& g, SpinRandom& random) const
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

void BetGroup::fillPair(Grid& g, SpinRandom& random, long double pick) const
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

void BetGroup::sharedPositions(std::size_t j, std::size_t k, std::vector<int>& inJ, std::vector<int>& inK) const
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

long double BetGroup::pairChance(const std::vector<Tuple>& list, std::size_t j, std::size_t k, Pair* store) const
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

void BetGroup::planCondition()
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

void BetGroup::listLargeReadings(const LineDistribution& d)
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
}  // namespace odds_detail
