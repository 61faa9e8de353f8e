// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/random.h"

#include <chrono>
#include <memory>
#include <random>

namespace rnd {
std::function<float()> fromTimeOfDay()
{
    using namespace std::chrono;
    const auto now = system_clock::now().time_since_epoch();
    auto engine = std::make_shared<std::mt19937_64>(static_cast<std::uint64_t>(duration_cast<nanoseconds>(now).count()));
    // 24 random bits make every single-precision step of [0, 1) equally likely
    // and can never round up to 1.
    return [engine] { return static_cast<float>((*engine)() >> 40) * (1.0f / 16777216.0f); };
}
}
