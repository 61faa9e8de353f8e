// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The reels' motion. Each cell shows one picture of a strip: symbol s at rest
// is picture 12 s, and pictures 12 s + 1 .. 12 s + 11 show the strip rolled
// on by one twelfth of a cell each. A running reel rolls one picture per
// pass, up or down, wrapping at the ends of the strip; a stopped reel snaps
// back to the resting picture of the symbol it shows.
#include "rules/grid.h"

#include <functional>

inline constexpr int kFramesPerSymbol = 12;

// Uniform numbers in [0, 1), drawn one at a time.
using Draw = std::function<float()>;

// How a spin starts, drawn in this order: fifteen stopping times, fifteen
// directions, fifteen starting pictures.
struct SpinPlan {
    std::array<int, kCells> stopAfterMs{};  // 2000..6000, halves to even
    std::array<int, kCells> step{};         // +1 or -1
    std::array<int, kCells> picture{};      // resting pictures
};
SpinPlan planSpin(const Draw& draw, int symbols);

// A resting picture drawn with equal chances for every symbol.
int drawRestingPicture(const Draw& draw, int symbols);

class Reels {
public:
    explicit Reels(int symbols) : symbols_(symbols) {}

    int pictureCount() const { return symbols_ * kFramesPerSymbol; }
    int picture(int cell) const { return picture_[static_cast<std::size_t>(cell)]; }
    bool stopped(int cell) const { return stopped_[static_cast<std::size_t>(cell)]; }
    Grid symbols() const;

    // Every cell at rest on a drawn symbol (the grid before the first spin).
    void rest(const Draw& draw);
    void start(const SpinPlan& plan);
    void stop(int cell) { stopped_[static_cast<std::size_t>(cell)] = true; }
    // Moves every running reel one picture and snaps every stopped one to
    // rest. True when all fifteen had stopped: the spin is over.
    bool pass();

private:
    int symbols_;
    std::array<int, kCells> picture_{};
    std::array<int, kCells> step_{};
    CellFlags stopped_{};
};
