// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The one audio device of the game, opened the first time a sound is wanted
// and closed by itself at exit. Without a device every sound is silent: the
// device is tried once, one line says so, and nothing else complains.
#include <string>

struct Mix_Chunk;

namespace sound {

// True when sounds can play; opens the device on the first call.
bool audioReady();

// True when the device is open, without trying to open it.
bool audioOpen();

// Stops every sound, forgets the decoded sounds and closes the device. The
// next sound opens it again (and tries again after a failure).
void closeAudio();

// Closes the device when no channel plays, so an idle game costs no
// processor time; the next sound opens it again. True when quiet.
bool closeIfSilent();

// The decoded sound of a file in the working directory, read from disk once
// and kept while the device is open; nullptr when it cannot be read.
Mix_Chunk* cachedChunk(const std::string& name);

// The alert beep, made in memory.
Mix_Chunk* beepChunk();

// Mixer channels owned by one player each, kept free of the beeps, which
// take any other channel.
int claimChannel();
void releaseChannel(int channel);

}  // namespace sound
