// SPDX-License-Identifier: GPL-2.0-or-later
// reelmoor-odds simulate: random spins of one bet through the settlement's
// arithmetic, against the exact figures.
#include "arguments.h"
#include "threads.h"

#include "tools/odds/interval.h"
#include "tools/odds/odds.h"
#include "rules/paylines.h"
#include "tools/odds/simulation.h"

#include <chrono>
#include <cmath>
#include <cstdio>

int simulateCommand(const std::vector<std::string_view>& args)
{
    const Options options(args, {"--spins", "--seed", "--threads", "--symbols", "--lines", "--credits"},
                          {"--both"});
    if (!options.has("--spins"))
        usageError("simulate needs --spins N");
    const auto spins = static_cast<std::uint64_t>(options.whole("--spins", 0, 1, INT64_MAX));
    const auto seed = static_cast<std::uint64_t>(options.whole("--seed", 1, 0, INT64_MAX));
    const int threads = static_cast<int>(options.whole("--threads", defaultThreads(), 1, 256));
    SpinSetup setup;
    setup.symbols = static_cast<int>(options.whole("--symbols", kMaxSymbols, 1, kMaxSymbols));
    setup.lines = static_cast<int>(options.whole("--lines", 9, 1, 9));
    if (!isPlayableLineCount(setup.lines))
        usageError("--lines must be 1, 3, 5, 7 or 9");
    setup.bothWays = options.has("--both");
    setup.creditsPerLine = static_cast<int>(options.whole("--credits", 1, 1, 1'000'000));

    const auto started = std::chrono::steady_clock::now();
    const SimulationTally tally = runParts<SimulationTally>(threads, [&](int part) {
        const std::uint64_t share = spins / static_cast<std::uint64_t>(threads)
            + (static_cast<std::uint64_t>(part) < spins % static_cast<std::uint64_t>(threads) ? 1 : 0);
        return simulate(setup, share, partSeed(seed, part));
    });
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();

    const ExactOdds exact = exactOdds(lineDistribution(setup.symbols), setup.lines, setup.bothWays,
                                      setup.creditsPerLine);
    const long double bet = static_cast<long double>(exact.bet);
    const long double rtp = 100 * tally.meanPaid() / bet;
    const long double halfWidth = 100 * 2.5758293035489004L * tally.stddevPaid()
        / std::sqrt(static_cast<long double>(tally.spins)) / bet;
    const bool inside = std::fabs(exact.rtpPercent() - rtp) <= halfWidth;

    std::printf("%llu spins, seed %llu, %d threads: %d symbols, %d lines, %s, credits per line %d, bet %lld\n",
                static_cast<unsigned long long>(tally.spins), static_cast<unsigned long long>(seed), threads,
                setup.symbols, setup.lines, setup.bothWays ? "both directions" : "one direction",
                setup.creditsPerLine, static_cast<long long>(exact.bet));
    std::printf("RTP %.4Lf%%, 99%% interval [%.4Lf%%, %.4Lf%%]\n", rtp, rtp - halfWidth, rtp + halfWidth);
    std::printf("exact RTP %.4Lf%% (%s the interval)\n", exact.rtpPercent(), inside ? "inside" : "OUTSIDE");
    const Interval paying = wilson(tally.payingSpins, tally.spins);
    std::printf("paying spins %.6f%%, 99%% interval [%.6Lf%%, %.6Lf%%]\n",
                100.0 * static_cast<double>(tally.payingSpins) / static_cast<double>(tally.spins), 100 * paying.low,
                100 * paying.high);
    std::printf("credits paid per spin: mean %.6Lf, std dev %.4Lf\n", tally.meanPaid(), tally.stddevPaid());
    const Interval jackpot = wilson(tally.jackpots, tally.spins);
    std::printf("largest win %lld, jackpot spins %llu: P(jackpot) %.4Le, 99%% interval [%.4Le, %.4Le]\n",
                static_cast<long long>(tally.largest), static_cast<unsigned long long>(tally.jackpots),
                static_cast<long double>(tally.jackpots) / tally.spins, jackpot.low, jackpot.high);
    std::printf("%.3f s, %.2f million spins/s\n", seconds, static_cast<double>(tally.spins) / seconds / 1e6);
    return 0;
}
