// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Small building blocks for the game's sounds: a track of samples in the
// range -1..1 that tones and noise bursts are added into, then shaped and
// stored as 16-bit samples. Everything is deterministic: noise comes from a
// fixed-seed generator, so every run writes the same files.
#include "platform/sound/wav_file.h"

#include <cstdint>
#include <vector>

namespace synth {

constexpr int rate = 44100;

// A repeatable noise source, -1 <= value < 1.
class Noise {
public:
    explicit Noise(std::uint32_t seed) : state_(seed ? seed : 1) {}
    double next();
    double between(double low, double high) { return low + (high - low) * (next() + 1) / 2; }

private:
    std::uint32_t state_;
};

// A second-order band-pass filter (peak gain 1 at its centre).
class BandPass {
public:
    BandPass(double centreHertz, double q);
    double operator()(double x);

private:
    double b0_, b2_, a1_, a2_;
    double x1_ = 0, x2_ = 0, y1_ = 0, y2_ = 0;
};

struct Track {
    std::vector<double> samples;

    explicit Track(double seconds);
    std::size_t at(double seconds) const;
};

// A sine partial that rises over attack seconds and then dies away with the
// time constant decay; its pitch may glide exponentially from hertz to
// glideTo over glideTime seconds.
struct Partial {
    double hertz;
    double amplitude;
    double decay;
    double attack = 0.0005;
    double glideTo = 0;
    double glideTime = 0;
};
void addPartial(Track& track, double start, const Partial& partial);

// A burst of band-passed noise that dies away with the time constant decay.
void addNoiseBurst(Track& track, double start, double amplitude, double decay,
                   double centreHertz, double q, Noise& noise);

// Scales the track so its loudest sample sits at peakDb below full scale,
// tapers the first fadeIn and the last fadeOut seconds to zero and stores it
// as 16-bit mono samples.
wav::Sound finish(const Track& track, double peakDb, double fadeIn, double fadeOut);

}  // namespace synth
