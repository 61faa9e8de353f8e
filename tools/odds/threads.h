// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Runs work(part) for part 0..parts-1 on threads of their own and merges
// the tallies in part order, so a seed gives the same result every time.
#include <thread>
#include <vector>

template <class Tally, class Work>
Tally runParts(int parts, Work work)
{
    std::vector<Tally> tallies(static_cast<std::size_t>(parts));
    std::vector<std::thread> threads;
    for (int p = 0; p < parts; ++p)
        threads.emplace_back([&, p] { tallies[static_cast<std::size_t>(p)] = work(p); });
    for (auto& t : threads)
        t.join();
    Tally total;
    for (const auto& t : tallies)
        total.merge(t);
    return total;
}

// A seed of its own for each part.
inline std::uint64_t partSeed(std::uint64_t seed, int part)
{
    return seed + 0x9e3779b97f4a7c15ULL * static_cast<std::uint64_t>(part);
}
