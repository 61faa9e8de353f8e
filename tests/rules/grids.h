#pragma once
// Grids for settlement tests: three rows of five symbols, top to bottom.
#include <array>

using Grid = std::array<int, 16>;
using Row = std::array<int, 5>;

// Rows that pay in neither direction.
inline constexpr Row kQuietTop{1, 7, 13, 19, 20};
inline constexpr Row kQuietMiddle{2, 8, 14, 15, 21};
inline constexpr Row kQuietBottom{3, 9, 10, 16, 22};

inline Grid grid(const Row& top, const Row& middle, const Row& bottom)
{
    Grid g{};
    for (int i = 0; i < 5; ++i) {
        g[1 + i] = top[i];
        g[6 + i] = middle[i];
        g[11 + i] = bottom[i];
    }
    return g;
}
