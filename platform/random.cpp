// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/random.h"

#include <chrono>
#include <random>

namespace rnd {
namespace {
std::mt19937_64& engine()
{
    static std::mt19937_64 e{0x5eedULL};
    return e;
}
}

void seed(std::uint64_t value) { engine().seed(value); }

void seedFromTimeOfDay()
{
    using namespace std::chrono;
    const auto now = system_clock::now().time_since_epoch();
    seed(static_cast<std::uint64_t>(duration_cast<nanoseconds>(now).count()));
}

float draw()
{
    // 24 random bits make every single-precision step of [0, 1) equally likely
    // and can never round up to 1.
    return static_cast<float>(engine()() >> 40) * (1.0f / 16777216.0f);
}
}
