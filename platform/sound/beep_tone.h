// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The alert beep, made in memory: a short, soft "bip" that several times a
// second may sound over itself and over the other sounds without clipping.
#include "platform/sound/wav_file.h"

namespace sound {

constexpr double beepSeconds = 0.030;
constexpr double beepHertz = 880.0;
constexpr double beepPeak = 0.4;  // at most this much of full scale: room for overlaps

wav::Sound beepTone(int rate = 44100);

}  // namespace sound
