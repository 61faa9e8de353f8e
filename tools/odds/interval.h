// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// 99 % intervals of the odds tool.
#include <algorithm>
#include <cmath>
#include <cstdint>

inline constexpr long double kZ99 = 2.5758293035489004L;

struct Interval {
    long double low = 0, high = 1;
};

// Wilson score interval for k successes in n trials: sound even for no hit.
inline Interval wilson(std::uint64_t k, std::uint64_t n)
{
    if (n == 0)
        return {};
    const long double nn = static_cast<long double>(n), p = static_cast<long double>(k) / nn;
    const long double z2n = kZ99 * kZ99 / nn;
    const long double centre = (p + z2n / 2) / (1 + z2n);
    const long double half = kZ99 * std::sqrt(p * (1 - p) / nn + z2n / (4 * nn)) / (1 + z2n);
    return {std::max<long double>(0, centre - half), std::min<long double>(1, centre + half)};
}
