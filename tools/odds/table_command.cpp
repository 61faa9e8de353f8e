// reelmoor-odds table: the exact return of every bet, and its jackpot chance.
#include "arguments.h"
#include "threads.h"

#include "tools/odds/odds.h"
#include "tools/odds/simulation.h"

#include <chrono>
#include <cmath>
#include <cstdio>

namespace {

constexpr int kLineChoices[5] = {1, 3, 5, 7, 9};
constexpr int kExhaustiveSymbols = 3;  // 3^15 = 14.3 million grids
constexpr double kZ99 = 2.5758293035489004;

struct Interval {
    double low, high;
};

// Wilson score interval for k successes in n trials.
Interval wilson(std::uint64_t k, std::uint64_t n)
{
    if (n == 0)
        return {0, 1};
    const double p = static_cast<double>(k) / static_cast<double>(n);
    const double z2n = kZ99 * kZ99 / static_cast<double>(n);
    const double centre = (p + z2n / 2) / (1 + z2n);
    const double half = kZ99 * std::sqrt(p * (1 - p) / static_cast<double>(n) + z2n / (4.0 * static_cast<double>(n))) / (1 + z2n);
    return {std::max(0.0, centre - half), std::min(1.0, centre + half)};
}

}  // namespace

int tableCommand(const std::vector<std::string_view>& args)
{
    const Options options(args, {"--symbols", "--jackpot-spins", "--seed", "--threads"}, {});
    const int symbols = static_cast<int>(options.whole("--symbols", kMaxSymbols, 1, kMaxSymbols));
    const auto spins = static_cast<std::uint64_t>(options.whole("--jackpot-spins", 10'000'000, 0, INT64_MAX));
    const auto seed = static_cast<std::uint64_t>(options.whole("--seed", 1, 0, INT64_MAX));
    const int threads = static_cast<int>(options.whole("--threads", defaultThreads(), 1, 256));

    const auto started = std::chrono::steady_clock::now();
    const LineDistribution distribution = lineDistribution(symbols);
    const double exactMs = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - started).count();

    const bool exhaustive = symbols <= kExhaustiveSymbols;
    JackpotTally jackpots;
    if (exhaustive)
        jackpots = runParts<JackpotTally>(std::min(threads, symbols), [&](int part) {
            return jackpotExhaustive(symbols, part, std::min(threads, symbols));
        });
    else if (spins > 0)
        jackpots = runParts<JackpotTally>(threads, [&](int part) {
            const std::uint64_t share = spins / static_cast<std::uint64_t>(threads)
                + (static_cast<std::uint64_t>(part) < spins % static_cast<std::uint64_t>(threads) ? 1 : 0);
            return jackpotSample(symbols, share, partSeed(seed, part));
        });

    std::printf("reelmoor odds, %d symbols: every cell uniform and independent\n", symbols);
    std::printf("one line reading: %llu outcomes, %llu pay, %zu different values (exact, %.1f ms)\n",
                static_cast<unsigned long long>(distribution.outcomes),
                static_cast<unsigned long long>(distribution.paying()), distribution.values.size(), exactMs);
    std::printf("exact: bet, RTP, P(line pays), E(paid): from the distribution of one reading's value\n");
    if (exhaustive)
        std::printf("exact: P(jackpot), over all %llu grids\n", static_cast<unsigned long long>(jackpots.grids));
    else if (spins > 0)
        std::printf("estimated: P(jackpot), %llu random grids (seed %llu), 99%% Wilson interval\n",
                    static_cast<unsigned long long>(jackpots.grids), static_cast<unsigned long long>(seed));
    else
        std::printf("P(jackpot) not estimated (--jackpot-spins 0)\n");
    std::printf("%5s %4s %4s %5s %12s %14s %14s  %s\n", "lines", "dirs", "cpl", "bet", "RTP%",
                "P(line pays)", "E(paid)/spin", "P(jackpot)");

    for (int li = 0; li < 5; ++li) {
        for (int both = 0; both < 2; ++both) {
            for (int cpl = 1; cpl <= 10; ++cpl) {
                const ExactOdds odds = exactOdds(distribution, kLineChoices[li], both != 0, cpl);
                std::printf("%5d %4d %4d %5lld %12.6Lf %14.10Lf %14.6Lf  ", kLineChoices[li], both + 1, cpl,
                            static_cast<long long>(odds.bet), odds.rtpPercent(), odds.payingProbability(),
                            odds.expectedPaidPerSpin());
                const std::uint64_t k = jackpots.jackpots[li][both][cpl - 1];
                if (exhaustive) {
                    std::printf("%.10g\n", static_cast<double>(k) / static_cast<double>(jackpots.grids));
                } else if (jackpots.grids > 0) {
                    const Interval i = wilson(k, jackpots.grids);
                    std::printf("%.3g [%.3g, %.3g] (%llu hits)\n",
                                static_cast<double>(k) / static_cast<double>(jackpots.grids), i.low, i.high,
                                static_cast<unsigned long long>(k));
                } else {
                    std::printf("-\n");
                }
            }
        }
    }
    return 0;
}
