// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The game's four sounds, each made from scratch by the synth kit.
#include "platform/sound/wav_file.h"

namespace sounds {

// The reels rolling: a steady rattle of small metal clicks that repeats
// without a seam for as long as the reels roll.
wav::Sound clink();

// Choosing the number of lines: two bright bell strikes.
wav::Sound chimes();

// Choosing the credits per line: a low, short mechanical clunk (it plays
// three times in a row).
wav::Sound clunk();

// Switching the win directions: a quick rising arpeggio that rings out on a
// major chord.
wav::Sound jackpot();

}  // namespace sounds
