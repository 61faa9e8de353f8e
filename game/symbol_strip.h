// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The symbols' pictures: each symbol file drawn into a cell-sized buffer,
// the twelve pictures per symbol of the rolling strip made from them, and
// the black picture a flashing cell shows.
#include "platform/picture/picture.h"

#include <QImage>
#include <QString>

#include <vector>

class SymbolStrip {
public:
    // Symbol buffers and strip pictures are this many pixels square.
    static constexpr int kSymbolSize = 73;

    // Reads the symbols of the working directory ("0.emf" or "0.svg" or
    // "0.png", then 1, …) up to the first number with no picture that loads,
    // at the latest after fifty. False when not even symbol 0 loads.
    bool load(double devicePixelRatio);
    int symbolCount() const { return static_cast<int>(symbols_.size()); }
    const std::vector<Picture>& symbols() const { return symbols_; }
    // What a player hears for symbol s: the picture's own title, else "symbol s".
    QString name(int s) const;

    // Strip picture p: symbol p / 12 rolled on by p % 12 twelfths.
    const QImage& picture(int p) const { return pictures_[static_cast<std::size_t>(p)]; }
    const QImage& blank() const { return blank_; }

private:
    void buildStrip();

    double dpr_ = 1.0;
    std::vector<Picture> symbols_;
    std::vector<QImage> resting_;
    std::vector<QImage> pictures_;
    QImage blank_;
};
