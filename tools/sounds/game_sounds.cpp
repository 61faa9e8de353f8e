// SPDX-License-Identifier: GPL-2.0-or-later
#include "game_sounds.h"

#include "synth.h"

#include <array>
#include <cmath>

namespace sounds {
namespace {

using synth::Partial;

double noteHertz(int midiNote)
{
    return 440.0 * std::pow(2.0, (midiNote - 69) / 12.0);
}

// One small tuned-bar strike: inharmonic partials, the high ones short.
void addBell(synth::Track& track, double start, double hertz, double amplitude, double ring)
{
    constexpr std::array<double, 5> ratio{1.0, 2.01, 2.76, 4.07, 5.40};
    constexpr std::array<double, 5> level{1.0, 0.40, 0.28, 0.14, 0.08};
    constexpr std::array<double, 5> length{1.0, 0.62, 0.38, 0.22, 0.12};
    for (std::size_t k = 0; k < ratio.size(); ++k)
        addPartial(track, start, {hertz * ratio[k], amplitude * level[k], ring * length[k], 0.0008});
    // a slightly detuned twin of the fundamental makes it shimmer gently
    addPartial(track, start, {hertz + 1.3, amplitude * 0.25, ring, 0.0008});
}

// One plucked note with harmonic overtones that die away faster than the
// fundamental, so the note starts bright and mellows as it rings.
void addPluck(synth::Track& track, double start, double hertz, double amplitude, double ring)
{
    constexpr std::array<double, 6> level{1.0, 0.45, 0.25, 0.14, 0.08, 0.04};
    for (std::size_t k = 0; k < level.size(); ++k) {
        const double harmonic = double(k + 1);
        addPartial(track, start, {hertz * harmonic, amplitude * level[k], ring / std::pow(harmonic, 0.8), 0.003});
    }
}

}  // namespace

wav::Sound clink()
{
    constexpr double loop = 0.32;   // seconds; the loop's length
    constexpr int ticks = 4;        // evenly spaced, so the rhythm runs on across the seam
    constexpr double offset = 0.004;
    constexpr std::array<double, ticks> accent{1.0, 0.72, 0.88, 0.68};

    synth::Track track(loop);
    synth::Noise noise(0x5eed1);
    for (int i = 0; i < ticks; ++i) {
        const double start = offset + i * loop / ticks;
        const double a = accent[std::size_t(i)];
        const double pitch = 1850.0 * noise.between(0.97, 1.03);  // no two clicks quite alike
        addNoiseBurst(track, start, 0.9 * a, 0.0012, 4200, 1.2, noise);
        addPartial(track, start, {pitch, 0.45 * a, 0.012});
        addPartial(track, start, {pitch * 2.32, 0.28 * a, 0.008});
        addPartial(track, start, {pitch * 3.87, 0.15 * a, 0.005});
        addPartial(track, start, {430.0 * noise.between(0.98, 1.02), 0.22 * a, 0.010, 0.001});
    }
    // Silence before the first click and a tail faded to zero: the end runs
    // into the start without a jump.
    return synth::finish(track, 6.0, 0.0, 0.010);
}

wav::Sound chimes()
{
    synth::Track track(1.2);
    synth::Noise noise(0xc41e5);
    addNoiseBurst(track, 0.0, 0.15, 0.002, 6000, 0.8, noise);
    addBell(track, 0.0, noteHertz(81), 0.8, 0.40);   // A5
    addBell(track, 0.055, noteHertz(88), 0.7, 0.45); // E6
    return synth::finish(track, 3.0, 0.0005, 0.25);
}

wav::Sound clunk()
{
    synth::Track track(0.30);
    synth::Noise noise(0xc1a4c);
    // the weight landing: a low thump that drops in pitch
    addPartial(track, 0.0, {150.0, 1.0, 0.045, 0.001, 62.0, 0.04});
    // the wooden-metal body of the mechanism
    addPartial(track, 0.0, {240.0, 0.45, 0.025, 0.001});
    addPartial(track, 0.0, {410.0, 0.30, 0.018, 0.001});
    addPartial(track, 0.0, {690.0, 0.16, 0.010, 0.001});
    addNoiseBurst(track, 0.0, 0.9, 0.0015, 1500, 0.7, noise);
    // the latch catching just after
    addNoiseBurst(track, 0.028, 0.35, 0.002, 1800, 1.5, noise);
    addPartial(track, 0.028, {900.0, 0.12, 0.006});
    return synth::finish(track, 3.0, 0.0005, 0.03);
}

wav::Sound jackpot()
{
    synth::Track track(1.4);
    constexpr std::array<int, 5> run{72, 76, 79, 84, 88};  // C5 E5 G5 C6 E6
    constexpr double spacing = 0.07;
    for (std::size_t i = 0; i < run.size(); ++i)
        addPluck(track, spacing * double(i), noteHertz(run[i]), 0.55, 0.22);
    const double chord = spacing * double(run.size());
    for (int note : {84, 88, 91})  // C6 E6 G6, ringing out
        addPluck(track, chord, noteHertz(note), 0.45, 0.45);
    addBell(track, chord, noteHertz(96), 0.18, 0.35);  // a sparkle on top, C7
    return synth::finish(track, 3.0, 0.0005, 0.3);
}

}  // namespace sounds
