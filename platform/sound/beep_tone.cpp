// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/sound/beep_tone.h"

#include <cmath>
#include <numbers>

namespace sound {

wav::Sound beepTone(int rate)
{
    constexpr double attack = 0.0025;   // seconds of rise, soft enough not to click
    constexpr double decay = 0.009;     // time constant of the fall
    constexpr double release = 0.006;   // last stretch tapered to exactly zero
    constexpr double twoPi = 2 * std::numbers::pi;

    wav::Sound tone;
    tone.rate = rate;
    tone.channels = 1;
    const auto frames = std::size_t(std::lround(beepSeconds * rate));
    tone.samples.resize(frames);
    for (std::size_t i = 0; i < frames; ++i) {
        const double t = double(i) / rate;
        const double left = double(frames - 1 - i) / rate;
        double envelope = std::exp(-t / decay);
        if (t < attack)
            envelope *= std::pow(std::sin(std::numbers::pi / 2 * t / attack), 2);
        if (left < release)
            envelope *= std::pow(std::sin(std::numbers::pi / 2 * left / release), 2);
        const double wave = std::sin(twoPi * beepHertz * t)
                          + 0.12 * std::sin(twoPi * 2 * beepHertz * t)
                          + 0.05 * std::sin(twoPi * 3 * beepHertz * t);
        tone.samples[i] = std::int16_t(std::lround(32767 * beepPeak / 1.17 * envelope * wave));
    }
    return tone;
}

}  // namespace sound
