// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The game's one random generator: uniform single-precision numbers in
// [0, 1), seeded once from the time of day. Tests seed it themselves.
#include <cstdint>

namespace rnd {
void seedFromTimeOfDay();
void seed(std::uint64_t value);
float draw();  // 0 <= r < 1
}
