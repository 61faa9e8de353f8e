// SPDX-License-Identifier: GPL-2.0-or-later
// reelmoor-odds table: every bet's exact return, and the figures of a whole
// spin (paying spins, spread, jackpot) exact or with their 99 % interval.
#include "arguments.h"
#include "threads.h"

#include "tools/odds/odds.h"
#include "tools/odds/simulation.h"
#include "tools/odds/spin_odds.h"

#include <chrono>
#include <cstdio>
#include <string>

namespace {

constexpr int kExhaustiveSymbols = 3;  // 3^15 = 14.3 million grids

std::string precision(const Figure& f)
{
    char text[32];
    if (f.exact)
        return "(exact)";
    std::snprintf(text, sizeof text, "(±%.1Lf %%)", 100 * f.relativeError());
    return text;
}

// text padded with blanks to columns characters (the ± takes two bytes).
std::string padded(std::string text, std::size_t columns)
{
    std::size_t shown = 0;
    for (unsigned char c : text)
        shown += (c & 0xC0) != 0x80;
    if (shown < columns)
        text.append(columns - shown, ' ');
    return text;
}

std::string chance(const Figure& f)
{
    char text[64];
    if (f.value > 0)
        std::snprintf(text, sizeof text, 1 / f.value >= 100 ? "1 in %.0Lf " : "1 in %.2Lf ", 1 / f.value);
    else if (f.exact)
        std::snprintf(text, sizeof text, "never ");
    else  // not one hit: only the upper end is known
        std::snprintf(text, sizeof text, "below 1 in %.0Lf ", 1 / f.high);
    return text + (f.value > 0 || f.exact ? precision(f) : std::string("(99 %)"));
}

}  // namespace

int tableCommand(const std::vector<std::string_view>& args)
{
    const Options options(args, {"--symbols", "--folder", "--seed", "--threads"}, {});
    if (options.has("--symbols") && options.has("--folder"))
        usageError("give --symbols or --folder, not both");
    const int symbols = options.has("--folder")
        ? symbolsInFolder(options.text("--folder"))
        : static_cast<int>(options.whole("--symbols", kMaxSymbols, 1, kMaxSymbols));
    const auto seed = static_cast<std::uint64_t>(options.whole("--seed", 1, 0, INT64_MAX));
    const int threads = static_cast<int>(options.whole("--threads", defaultThreads(), 1, 256));

    const auto started = std::chrono::steady_clock::now();
    const LineDistribution distribution = lineDistribution(symbols);
    const bool exhaustive = symbols <= kExhaustiveSymbols;
    SamplingPlan plan;
    if (exhaustive)
        plan.jackpotMaxGrids = 0;  // counted over every grid below
    const BetTable figures = spinOddsTable(distribution, plan, seed, threads);
    JackpotTally jackpots;
    if (exhaustive)
        jackpots = runParts<JackpotTally>(std::min(threads, symbols), [&](int part) {
            return jackpotExhaustive(symbols, part, std::min(threads, symbols));
        });
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();

    std::printf("reelmoor odds, %d symbols: every cell uniform and independent (%.1f s, seed %llu)\n", symbols,
                seconds, static_cast<unsigned long long>(seed));
    std::printf("exact: bet, RTP, P(line pays) of one reading, E(paid) per spin\n");
    std::printf("P(pays): chance that a spin pays anything; sd/credit: standard deviation of a spin's\n"
                "  payout per credit bet. Exact where no two played readings share a cell, else\n"
                "  estimated: (±x %%) is the half-width of the 99 %% interval, relative to the figure\n");
    if (exhaustive)
        std::printf("jackpot (paid >= %lld x credits per line): exact, over all %llu grids\n",
                    static_cast<long long>(kJackpotFactor), static_cast<unsigned long long>(jackpots.grids));
    else
        std::printf("jackpot (paid >= %lld x credits per line): lines of five identical symbols that\n"
                    "  make one alone counted exactly, the rest estimated from grids drawn with one\n"
                    "  large reading (or two, where one cannot make it): (exact), or (±x %%) as above\n",
                    static_cast<long long>(kJackpotFactor));
    std::printf("%5s %4s %4s %5s %12s %13s %13s  %-24s %-20s %s\n", "lines", "dirs", "cpl", "bet", "RTP%",
                "P(line pays)", "E(paid)/spin", "P(pays)", "sd/credit", "jackpot");

    for (std::size_t li = 0; li < kLineChoices.size(); ++li) {
        for (int both = 0; both < 2; ++both) {
            for (int cpl = 1; cpl <= kCreditChoices; ++cpl) {
                const ExactOdds odds = exactOdds(distribution, kLineChoices[li], both != 0, cpl);
                const BetFigures& f = figures[li][static_cast<std::size_t>(both)]
                                             [static_cast<std::size_t>(cpl - 1)];
                Figure jackpot = f.jackpot;
                if (exhaustive) {
                    const auto k = jackpots.jackpots[li][static_cast<std::size_t>(both)]
                                                    [static_cast<std::size_t>(cpl - 1)];
                    const long double p = static_cast<long double>(k) / static_cast<long double>(jackpots.grids);
                    jackpot = {p, p, p, true};
                }
                char paying[40], spread[40];
                std::snprintf(paying, sizeof paying, "%.6Lf %s", f.paying.value, precision(f.paying).c_str());
                std::snprintf(spread, sizeof spread, "%.4Lf %s", f.spread.value, precision(f.spread).c_str());
                std::printf("%5d %4d %4d %5lld %12.6Lf %13.10Lf %13.6Lf  %s %s %s\n", kLineChoices[li],
                            both + 1, cpl, static_cast<long long>(odds.bet), odds.rtpPercent(),
                            odds.payingProbability(), odds.expectedPaidPerSpin(), padded(paying, 24).c_str(),
                            padded(spread, 20).c_str(), chance(jackpot).c_str());
            }
        }
    }
    return 0;
}
