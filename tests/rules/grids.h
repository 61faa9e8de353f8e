// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Grids for settlement tests: three rows of five symbols, top to bottom.
#include "rules/grid.h"

using Row = std::array<int, kColumns>;

// Rows that pay in neither direction.
inline constexpr Row kQuietTop{1, 7, 13, 19, 20};
inline constexpr Row kQuietMiddle{2, 8, 14, 15, 21};
inline constexpr Row kQuietBottom{3, 9, 10, 16, 22};

inline Grid grid(const Row& top, const Row& middle, const Row& bottom)
{
    Grid g{};
    for (std::size_t i = 0; i < top.size(); ++i) {
        g[cellAt(0, i)] = top[i];
        g[cellAt(1, i)] = middle[i];
        g[cellAt(2, i)] = bottom[i];
    }
    return g;
}
