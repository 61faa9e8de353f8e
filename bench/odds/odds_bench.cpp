// SPDX-License-Identifier: GPL-2.0-or-later
// How fast the odds come: the exact figures of one bet with 50 symbols, the
// figures of a whole spin for every bet of the table, and random spins of
// the largest bet on two threads. Wall time and the CPU time
// of the process are both shown, since the machine may be shared.
#include "tools/odds/odds.h"
#include "tools/odds/simulation.h"
#include "tools/odds/spin_odds.h"

#include <algorithm>
#include <cmath>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <thread>
#include <vector>

namespace {

struct Clocks {
    std::chrono::steady_clock::time_point wall = std::chrono::steady_clock::now();
    std::clock_t cpu = std::clock();
    double wallSeconds() const
    {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - wall).count();
    }
    double cpuSeconds() const { return static_cast<double>(std::clock() - cpu) / CLOCKS_PER_SEC; }
};

}  // namespace

int main()
{
    // Exact figures: the distribution of one reading, then one bet from it.
    std::vector<double> times;
    long double rtp = 0;
    for (int run = 0; run < 15; ++run) {
        const Clocks c;
        const ExactOdds odds = exactOdds(lineDistribution(50), 9, true, 10);
        times.push_back(c.wallSeconds() * 1e3);
        rtp = odds.rtpPercent();
    }
    std::sort(times.begin(), times.end());
    std::printf("exact, 50 symbols, 9 lines both ways, 10 credits: RTP %.6Lf%%\n", rtp);
    std::printf("  %.2f ms median, %.2f ms best of %zu\n", times[times.size() / 2], times.front(), times.size());

    // The table's figures of a whole spin (paying, spread, jackpot) for all
    // hundred bets, on two threads; the worst jackpot precision with them.
    for (int symbols : {50, 20, 8}) {
        const Clocks t;
        const BetTable table = spinOddsTable(lineDistribution(symbols), SamplingPlan{}, 1, 2);
        long double worst = 0;
        for (const auto& lines : table)
            for (const auto& direction : lines)
                for (const BetFigures& bet : direction)
                    worst = std::max(worst, bet.jackpot.relativeError());
        std::printf("table, %d symbols, 2 threads: %.2f s wall, %.2f s CPU; jackpot within ±%.1Lf %%\n", symbols,
                    t.wallSeconds(), t.cpuSeconds(), 100 * worst);
    }

    // The jackpot estimates with three symbols against the count over all
    // 3^15 grids.
    {
        const BetTable table = spinOddsTable(lineDistribution(3), SamplingPlan{}, 1, 2);
        JackpotTally count;
        for (int part = 0; part < 3; ++part)
            count.merge(jackpotExhaustive(3, part, 3));
        int inside = 0, estimated = 0;
        long double worst = 0;
        for (std::size_t li = 0; li < 5; ++li)
            for (std::size_t both = 0; both < 2; ++both)
                for (std::size_t c = 0; c < 10; ++c) {
                    const Figure& f = table[li][both][c].jackpot;
                    const long double p = static_cast<long double>(count.jackpots[li][both][c]) / count.grids;
                    estimated += !f.exact;
                    inside += p >= f.low && p <= f.high;
                    worst = std::max(worst, p == 0 ? 0 : std::fabs(f.value - p) / p);
                }
        std::printf("3 symbols: %d of 100 jackpot chances (%d estimated) hold the count over all %llu grids "
                    "in their interval; worst estimate off by %.2Lf %%\n",
                    inside, estimated, static_cast<unsigned long long>(count.grids), 100 * worst);
    }

    // Random spins: 9 lines both ways, one credit, two threads.
    const std::uint64_t spins = 40'000'000;
    const int threads = 2;
    const SpinSetup setup{50, 9, true, 1};
    std::vector<SimulationTally> tallies(threads);
    const Clocks c;
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t)
        workers.emplace_back([&, t] { tallies[static_cast<std::size_t>(t)] = simulate(setup, spins / threads, 1 + static_cast<std::uint64_t>(t)); });
    for (auto& w : workers)
        w.join();
    const double wall = c.wallSeconds(), cpu = c.cpuSeconds();
    SimulationTally total;
    for (const auto& t : tallies)
        total.merge(t);
    std::printf("simulate, %llu spins, 9 lines both ways, %d threads: RTP %.4Lf%%\n",
                static_cast<unsigned long long>(total.spins), threads, 100 * total.meanPaid() / 18);
    std::printf("  %.2f million spins/s of wall time (%.2f s); %.2f million spins/s per CPU second\n",
                static_cast<double>(spins) / wall / 1e6, wall, static_cast<double>(spins) / cpu / 1e6);
    return 0;
}
