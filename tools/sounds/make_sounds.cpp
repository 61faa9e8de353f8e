// SPDX-License-Identifier: GPL-2.0-or-later
// Writes the game's sound files into the folder given (the repository's
// assets/ folder when run by the regenerate-sounds target).
#include "game_sounds.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

double peakDb(const wav::Sound& sound)
{
    int peak = 0;
    for (auto s : sound.samples)
        peak = std::max(peak, std::abs(int(s)));
    return peak > 0 ? 20 * std::log10(peak / 32768.0) : -200.0;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <folder>\n", argv[0]);
        return 2;
    }
    const std::string folder = argv[1];
    const struct {
        const char* name;
        wav::Sound (*make)();
    } files[] = {
        {"clink.wav", sounds::clink},
        {"chimes.wav", sounds::chimes},
        {"clunk.wav", sounds::clunk},
        {"jackpot.wav", sounds::jackpot},
    };
    for (const auto& file : files) {
        const wav::Sound sound = file.make();
        const std::string path = folder + "/" + file.name;
        if (!wav::write(path, sound)) {
            std::fprintf(stderr, "cannot write %s\n", path.c_str());
            return 1;
        }
        std::printf("%-12s %.3f s  peak %.1f dBFS\n", file.name, sound.seconds(), peakDb(sound));
    }
    return 0;
}
