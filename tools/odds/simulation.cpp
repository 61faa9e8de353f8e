// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/odds/simulation.h"

#include "rules/pay.h"
#include "rules/settlement.h"

#include <cmath>
#include <string>

namespace {

std::uint64_t splitmix(std::uint64_t x)
{
    x += 0x9e3779b97f4a7c15ULL;
    x = (x ^ (x >> 30)) * 0xbf58476d1ce4e5b9ULL;
    x = (x ^ (x >> 27)) * 0x94d049bb133111ebULL;
    return x ^ (x >> 31);
}

// Figures 0..9 on bits 0..9, colours 0..4 on bits 16..20 (symbols 0..49).
// Other symbols match everything, so that readLine decides for them.
std::uint32_t runMask(int symbol)
{
    if (symbol < 0 || symbol >= 50)
        return ~0u;
    return (1u << figureOf(symbol)) | (1u << (16 + colourOf(symbol)));
}
// The values of all eighteen readings of a grid: lines 1..9 left to right
// at 0..8, right to left at 9..17.
struct GridValues {
    std::array<Currency, 18> value{};
    std::int64_t bound = 0;  // sum of raw values + 1.5 credits per paying reading
};

GridValues gridValues(const Grid& sym, const ReadingValuer& valuer)
{
    GridValues g;
    for (std::size_t k = 0; k < g.value.size(); ++k) {
        const LineCells& c = allReadings()[k];
        g.value[k] = valuer(sym[c[0]], sym[c[1]], sym[c[2]], sym[c[3]], sym[c[4]]);
    }
    for (const Currency v : g.value)
        if (v > Currency())
            g.bound += v.raw() + 15000;
    return g;
}

// A spin can only be a jackpot for some bet when the values and stakes of
// all its readings together reach 8000 per credit (each reading pays at most
// value x credits + half a credit + its stake).
void countJackpots(const GridValues& g, JackpotTally& tally)
{
    ++tally.grids;
    if (g.bound < kJackpotFactor * Currency::kScale)
        return;
    for (std::size_t li = 0; li < kLineChoices.size(); ++li) {
        const int lines = kLineChoices[li];
        for (int both = 0; both < 2; ++both) {
            for (int cpl = 1; cpl <= kCreditChoices; ++cpl) {
                const Currency c = Currency::fromWhole(cpl);
                Currency total;
                for (int k = 0; k < lines; ++k) {
                    total = total + linePayout(g.value[k], c).credits;
                    if (both)
                        total = total + linePayout(g.value[k + 9], c).credits;
                }
                if (total.compareWhole(kJackpotFactor * cpl) >= 0)
                    ++tally.jackpots[li][both][cpl - 1];
            }
        }
    }
}

}  // namespace

SpinRandom::SpinRandom(std::uint64_t seed) : state_(splitmix(seed)) {}

ReadingValuer::ReadingValuer(int symbols) : n_(symbols)
{
    // Small symbol counts get a table of every reading.
    if (symbols <= 15) {
        const int size = symbols * symbols * symbols * symbols * symbols;
        table_.resize(static_cast<std::size_t>(size));
        for (int i = 0; i < size; ++i) {
            int s[5];
            for (int j = 4, rest = i; j >= 0; --j, rest /= symbols)
                s[j] = rest % symbols;
            table_[static_cast<std::size_t>(i)] = readLine(s[0], s[1], s[2], s[3], s[4]).value;
        }
    }
}

Currency ReadingValuer::operator()(int s1, int s2, int s3, int s4, int s5) const
{
    if (!table_.empty())
        return table_[static_cast<std::size_t>(((((s1 * n_) + s2) * n_ + s3) * n_ + s4) * n_ + s5)];
    return mayPay(s1, s2, s3) ? readLine(s1, s2, s3, s4, s5).value : Currency();
}

Settled settled(const Grid& grid, int lines, Currency creditsPerLine, bool bothWays)
{
    const Settlement s = settle(std::to_string(kStartingBank), lines, creditsPerLine, bothWays, grid);
    return {s.totalPaid, s.jackpot};
}

Currency spinPaid(const Grid& symbol, const std::vector<LineCells>& readings,
                  Currency creditsPerLine)
{
    // mayPay, with a mask per cell: one bit for its figure, one for its
    // colour. Three cells share a figure or a colour exactly when the AND of
    // their masks is not zero.
    std::array<std::uint32_t, std::tuple_size_v<Grid>> mask{};
    for (int cell = 0; cell < kCells; ++cell)
        mask[cell] = runMask(symbol[cell]);
    Currency total;
    for (const auto& c : readings) {
        const int s1 = symbol[c[0]], s2 = symbol[c[1]], s3 = symbol[c[2]];
        // Bitwise, not short-circuit: one branch, rarely taken.
        const bool starts = (s1 == s2) | ((mask[c[0]] & mask[c[1]] & mask[c[2]]) != 0);
        if (!starts)
            continue;  // no run starts: value zero, adds nothing, no paying line
        const LineReading r = readLine(s1, s2, s3, symbol[c[3]], symbol[c[4]]);
        total = total + linePayout(r.value, creditsPerLine).credits;
    }
    return total;
}

void SimulationTally::merge(const SimulationTally& o)
{
    spins += o.spins;
    payingSpins += o.payingSpins;
    jackpots += o.jackpots;
    paid += o.paid;
    paidSquares += o.paidSquares;
    if (o.largest > largest)
        largest = o.largest;
}

long double SimulationTally::meanPaid() const
{
    return spins == 0 ? 0 : static_cast<long double>(paid) / spins;
}

long double SimulationTally::stddevPaid() const
{
    if (spins < 2)
        return 0;
    const long double n = spins;
    const long double mean = static_cast<long double>(paid) / n;
    const long double variance = (static_cast<long double>(paidSquares) - n * mean * mean) / (n - 1);
    return variance > 0 ? std::sqrt(variance) : 0;
}

SimulationTally simulate(const SpinSetup& setup, std::uint64_t spins, std::uint64_t seed)
{
    SimulationTally tally;
    const auto readings = playedReadings(setup.lines, setup.bothWays);
    const Currency cpl = Currency::fromWhole(setup.creditsPerLine);
    const Currency jackpot = Currency::fromWhole(kJackpotFactor) * cpl;
    SpinRandom random(seed);
    Grid symbol{};
    for (std::uint64_t i = 0; i < spins; ++i) {
        random.fillGrid(symbol, setup.symbols);
        const Currency paid = spinPaid(symbol, readings, cpl);
        const std::int64_t credits = paid.roundWhole();
        if (credits > 0) {
            ++tally.payingSpins;
            tally.paid += static_cast<std::uint64_t>(credits);
            tally.paidSquares += static_cast<SimulationTally::Wide>(credits) * static_cast<std::uint64_t>(credits);
            if (credits > tally.largest)
                tally.largest = credits;
        }
        if (paid >= jackpot)
            ++tally.jackpots;
    }
    tally.spins = spins;
    return tally;
}

void JackpotTally::merge(const JackpotTally& o)
{
    grids += o.grids;
    for (int a = 0; a < 5; ++a)
        for (int b = 0; b < 2; ++b)
            for (int c = 0; c < kCreditChoices; ++c)
                jackpots[a][b][c] += o.jackpots[a][b][c];
}

JackpotTally jackpotSample(int symbols, std::uint64_t spins, std::uint64_t seed)
{
    JackpotTally tally;
    const ReadingValuer valuer(symbols);
    SpinRandom random(seed);
    Grid symbol{};
    for (std::uint64_t i = 0; i < spins; ++i) {
        random.fillGrid(symbol, symbols);
        countJackpots(gridValues(symbol, valuer), tally);
    }
    return tally;
}

JackpotTally jackpotExhaustive(int symbols, int part, int parts)
{
    JackpotTally tally;
    const ReadingValuer valuer(symbols);
    for (int first = part; first < symbols; first += parts) {
        Grid symbol{};
        symbol[0] = first;
        for (;;) {
            countJackpots(gridValues(symbol, valuer), tally);
            int cell = kCells - 1;  // odometer over the cells after the first
            while (cell > 0 && ++symbol[cell] == symbols)
                symbol[cell--] = 0;
            if (cell == 0)
                break;
        }
    }
    return tally;
}
