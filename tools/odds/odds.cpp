// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/odds/odds.h"

#include "rules/pay.h"
#include "rules/settlement.h"

#include <algorithm>
#include <unordered_map>

std::uint64_t LineDistribution::paying() const
{
    std::uint64_t count = 0;
    for (const auto& [value, n] : values)
        if (value > Currency())
            count += n;
    return count;
}

LineDistribution lineDistribution(int symbols)
{
    LineDistribution d;
    if (symbols < 1 || symbols > kMaxSymbols)
        return d;
    const std::uint64_t n = static_cast<std::uint64_t>(symbols);
    d.symbols = symbols;
    d.outcomes = n * n * n * n * n;

    std::unordered_map<std::int64_t, std::uint64_t> counts;
    counts.reserve(4096);
    auto add = [&](LineReading r, std::uint64_t weight) {
        if (weight != 0)
            counts[r.value.raw()] += weight;
    };

    // A run that has stopped by the third cell leaves the last cells free:
    // such readings are counted per first pair. Runs that reach the third
    // cell look at the fourth, and only one that reaches the fourth looks at
    // the fifth, and then only at whether it repeats the fourth.
    for (int s1 = 0; s1 < symbols; ++s1) {
        for (int s2 = 0; s2 < symbols; ++s2) {
            std::uint64_t stopped = 0;
            int stoppedExample = -1;
            for (int s3 = 0; s3 < symbols; ++s3) {
                const bool match3 = s1 == s2 && s2 == s3;
                const bool figure3 = figureOf(s1) == figureOf(s2) && figureOf(s2) == figureOf(s3);
                const bool colour3 = colourOf(s1) == colourOf(s2) && colourOf(s2) == colourOf(s3);
                if (!match3 && !figure3 && !colour3) {
                    ++stopped;
                    stoppedExample = s3;
                    continue;
                }
                std::uint64_t notExtended = 0;
                int notExtendedExample = -1;
                for (int s4 = 0; s4 < symbols; ++s4) {
                    const bool extends = (match3 && s4 == s3)
                        || (figure3 && figureOf(s4) == figureOf(s3))
                        || (colour3 && colourOf(s4) == colourOf(s3));
                    if (!extends) {
                        ++notExtended;
                        notExtendedExample = s4;
                        continue;
                    }
                    add(readLine(s1, s2, s3, s4, s4), 1);
                    if (symbols > 1)
                        add(readLine(s1, s2, s3, s4, (s4 + 1) % symbols), n - 1);
                }
                if (notExtended != 0)
                    add(readLine(s1, s2, s3, notExtendedExample, 0), notExtended * n);
            }
            if (stopped != 0)
                add(readLine(s1, s2, stoppedExample, 0, 0), stopped * n * n);
        }
    }

    d.values.reserve(counts.size());
    for (const auto& [raw, count] : counts)
        d.values.emplace_back(Currency::fromRaw(raw), count);
    std::sort(d.values.begin(), d.values.end());
    return d;
}

ExactOdds exactOdds(const LineDistribution& distribution, int lines, bool bothWays,
                    int creditsPerLine)
{
    ExactOdds odds;
    odds.readings = lines * (bothWays ? 2 : 1);
    odds.bet = std::int64_t{creditsPerLine} * odds.readings;
    odds.outcomes = distribution.outcomes;
    const Currency cpl = Currency::fromWhole(creditsPerLine);
    for (const auto& [value, count] : distribution.values) {
        const LinePayout p = linePayout(value, cpl);
        odds.paidSum += p.credits.roundWhole() * static_cast<std::int64_t>(count);
        if (p.paying)
            odds.payingCount += count;
    }
    return odds;
}

long double ExactOdds::rtpPercent() const
{
    if (outcomes == 0 || bet == 0)
        return 0;
    return 100.0L * paidSum * readings / (static_cast<long double>(outcomes) * bet);
}

long double ExactOdds::payingProbability() const
{
    return outcomes == 0 ? 0 : static_cast<long double>(payingCount) / outcomes;
}

long double ExactOdds::expectedPaidPerSpin() const
{
    return outcomes == 0 ? 0 : static_cast<long double>(paidSum) * readings / outcomes;
}
