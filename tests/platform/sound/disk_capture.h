// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Records what the game plays: SDL's disk driver writes the mixed output
// (44.1 kHz, 16-bit, stereo, as the game opens the device) into a file of
// the test's working directory, a little faster than real time.
#include "platform/sound/wav_file.h"

#include <QString>

#include <cstdint>
#include <vector>

struct Capture {
    std::vector<std::int16_t> samples;  // interleaved left/right

    std::size_t frames() const { return samples.size() / 2; }
    // -1 when the whole capture is silent
    long firstSoundFrame() const;
    long lastSoundFrame() const;
    int peak() const;
    double rms() const;
    // Frames [from, to) of the capture.
    Capture part(std::size_t from, std::size_t to) const;
    // True when, from its first sound on, the capture holds the mono sound
    // played `times` times in a row on both channels, and silence after.
    bool holdsExactly(const wav::Sound& sound, int times) const;
};

// Sends the sounds from now on into a fresh capture file.
void startCapture(const QString& name);
// Waits until the device has written at least `frames` more frames.
void waitForMoreAudio(std::size_t frames = 8192);
std::size_t capturedFrames();
// What the device has written so far; it plays on.
Capture readCapture();
// Closes the device and returns what it wrote.
Capture finishCapture();
