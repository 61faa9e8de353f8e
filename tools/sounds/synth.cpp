// SPDX-License-Identifier: GPL-2.0-or-later
#include "synth.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace synth {

double Noise::next()
{
    state_ ^= state_ << 13;
    state_ ^= state_ >> 17;
    state_ ^= state_ << 5;
    return double(state_) / 2147483648.0 - 1.0;
}

BandPass::BandPass(double centreHertz, double q)
{
    const double w = 2 * std::numbers::pi * centreHertz / rate;
    const double alpha = std::sin(w) / (2 * q);
    const double a0 = 1 + alpha;
    b0_ = alpha / a0;
    b2_ = -alpha / a0;
    a1_ = -2 * std::cos(w) / a0;
    a2_ = (1 - alpha) / a0;
}

double BandPass::operator()(double x)
{
    const double y = b0_ * x + b2_ * x2_ - a1_ * y1_ - a2_ * y2_;
    x2_ = x1_;
    x1_ = x;
    y2_ = y1_;
    y1_ = y;
    return y;
}

Track::Track(double seconds)
    : samples(std::size_t(std::lround(seconds * rate)), 0.0)
{
}

std::size_t Track::at(double seconds) const
{
    return std::min(samples.size(), std::size_t(std::lround(std::max(0.0, seconds) * rate)));
}

namespace {

// A smooth rise from 0 to 1 over the given length (raised cosine).
double rise(double t, double length)
{
    if (length <= 0 || t >= length)
        return 1.0;
    return std::pow(std::sin(std::numbers::pi / 2 * t / length), 2);
}

}  // namespace

void addPartial(Track& track, double start, const Partial& p)
{
    double phase = 0;
    for (std::size_t i = track.at(start); i < track.samples.size(); ++i) {
        const double t = double(i) / rate - start;
        const double level = p.amplitude * rise(t, p.attack) * std::exp(-t / p.decay);
        if (t > p.attack && level < 1e-5)
            break;
        track.samples[i] += level * std::sin(phase);
        double hertz = p.hertz;
        if (p.glideTo > 0 && p.glideTime > 0)
            hertz *= std::pow(p.glideTo / p.hertz, std::min(t / p.glideTime, 1.0));
        phase += 2 * std::numbers::pi * hertz / rate;
    }
}

void addNoiseBurst(Track& track, double start, double amplitude, double decay,
                   double centreHertz, double q, Noise& noise)
{
    BandPass filter(centreHertz, q);
    for (std::size_t i = track.at(start); i < track.samples.size(); ++i) {
        const double t = double(i) / rate - start;
        const double level = amplitude * rise(t, 0.0003) * std::exp(-t / decay);
        if (level < 1e-5)
            break;
        track.samples[i] += level * filter(noise.next());
    }
}

wav::Sound finish(const Track& track, double peakDb, double fadeIn, double fadeOut)
{
    double peak = 0;
    for (double s : track.samples)
        peak = std::max(peak, std::abs(s));
    const double gain = peak > 0 ? std::pow(10.0, -peakDb / 20) / peak : 0.0;

    wav::Sound sound;
    sound.rate = rate;
    sound.channels = 1;
    const std::size_t n = track.samples.size();
    sound.samples.resize(n);
    for (std::size_t i = 0; i < n; ++i) {
        const double fromStart = double(i) / rate;
        const double toEnd = double(n - 1 - i) / rate;
        const double value = track.samples[i] * gain * rise(fromStart, fadeIn) * rise(toEnd, fadeOut);
        sound.samples[i] = std::int16_t(std::lround(std::clamp(value, -1.0, 1.0) * 32767));
    }
    return sound;
}

}  // namespace synth
