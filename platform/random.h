// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The game's random source: uniform single-precision numbers in [0, 1) from
// a generator of its own, seeded from the time of day when it is made.
#include <functional>

namespace rnd {
std::function<float()> fromTimeOfDay();
}
