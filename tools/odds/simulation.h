// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Random spins through the settlement's own arithmetic, for the odds tool
// and its benchmark: no windows, no text, only the credits paid.
#include "rules/bets.h"
#include "rules/currency.h"
#include "rules/paylines.h"

#include <array>
#include <cstdint>
#include <vector>

// A fast, small generator (wyrand); each simulation thread owns one.
class SpinRandom {
public:
    explicit SpinRandom(std::uint64_t seed);
    std::uint64_t next()
    {
        state_ += 0xa0761d6478bd642fULL;
        const Wide t = static_cast<Wide>(state_) * (state_ ^ 0xe7037ed1a0b428dbULL);
        return static_cast<std::uint64_t>(t >> 64) ^ static_cast<std::uint64_t>(t);
    }
    // Uniform in 0..n-1 (multiply-high; the bias is below n / 2^64).
    int below(int n) { return static_cast<int>((static_cast<Wide>(next()) * static_cast<std::uint64_t>(n)) >> 64); }
    // Every cell uniform in 0..n-1 (n <= 50), five cells from each draw:
    // the low half of each product carries the rest of the draw on to the
    // next cell. Five cells of up to 50 symbols use about 28 of the 64 bits,
    // so no symbol's chance is off by more than 2^-35 of itself.
    void fillGrid(Grid& symbol, int n)
    {
        for (int first = 0; first < kCells; first += 5) {
            std::uint64_t x = next();
            for (int cell = first; cell < first + 5; ++cell) {
                const Wide product = static_cast<Wide>(x) * static_cast<std::uint64_t>(n);
                symbol[cell] = static_cast<int>(product >> 64);
                x = static_cast<std::uint64_t>(product);
            }
        }
    }

private:
    __extension__ typedef unsigned __int128 Wide;
    std::uint64_t state_;
};

// The value of a reading of five symbols 0..symbols-1, as readLine gives
// it: from a table of every reading for few symbols, else read on demand.
class ReadingValuer {
public:
    explicit ReadingValuer(int symbols);
    Currency operator()(int s1, int s2, int s3, int s4, int s5) const;

private:
    int n_;
    std::vector<Currency> table_;
};

// The credits paid by one spin: the same total as settle(...).totalPaid for
// that grid and bet, but readings that cannot pay are skipped unvalued.
Currency spinPaid(const Grid& symbol, const std::vector<LineCells>& readings,
                  Currency creditsPerLine);

// What the game's own settlement makes of this grid and bet.
struct Settled {
    Currency paid;
    bool jackpot = false;
};
Settled settled(const Grid& grid, int lines, Currency creditsPerLine, bool bothWays);

struct SpinSetup {
    int symbols = 50;
    int lines = 9;
    bool bothWays = true;
    int creditsPerLine = 1;
};

struct SimulationTally {
    __extension__ typedef unsigned __int128 Wide;
    std::uint64_t spins = 0;
    std::uint64_t payingSpins = 0;   // totalPaid > 0
    std::uint64_t jackpots = 0;      // totalPaid >= 8000 x creditsPerLine
    Wide paid = 0;                   // sum of credits paid
    Wide paidSquares = 0;            // sum of their squares
    std::int64_t largest = 0;        // largest credits paid by one spin

    void merge(const SimulationTally& other);
    long double meanPaid() const;
    long double stddevPaid() const;  // of the credits paid per spin
};

// Plays spins random grids with the given bet; the same seed gives the same
// tally.
SimulationTally simulate(const SpinSetup& setup, std::uint64_t spins, std::uint64_t seed);

// Jackpot chances of every bet at once over the same grids: index
// [lineChoice 0..4 for 1,3,5,7,9][bothWays][creditsPerLine - 1].
struct JackpotTally {
    std::uint64_t grids = 0;
    std::array<std::array<std::array<std::uint64_t, kCreditChoices>, 2>, kLineChoices.size()> jackpots{};
    void merge(const JackpotTally& other);
};

// Over spins random grids.
JackpotTally jackpotSample(int symbols, std::uint64_t spins, std::uint64_t seed);
// Over every grid, one share of them: grids whose first cell's symbol is
// congruent to part modulo parts (so parts threads can share the work).
// Only sensible while symbols^15 is small (3 symbols: 14.3 million grids).
JackpotTally jackpotExhaustive(int symbols, int part, int parts);
