// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// 16-bit PCM WAV files: the game's sound files, the beep built in memory, and
// the generator that makes the sounds all use this one reader and writer.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace wav {

struct Sound {
    int rate = 44100;
    int channels = 1;
    std::vector<std::int16_t> samples;  // interleaved when channels > 1

    std::size_t frames() const { return channels > 0 ? samples.size() / std::size_t(channels) : 0; }
    double seconds() const { return rate > 0 ? double(frames()) / rate : 0.0; }
};

std::vector<unsigned char> encode(const Sound& sound);
bool write(const std::string& path, const Sound& sound);

// nullopt unless the bytes hold a well-formed WAV of 16-bit PCM samples.
std::optional<Sound> decode(const std::vector<unsigned char>& bytes);
std::optional<Sound> read(const std::string& path);

}  // namespace wav
