// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The fifteen reels on the window: the symbols' strip pictures, each reel's
// stopping timer, and the passes that roll the running reels one picture on
// and show every cell, until a pass finds all of them stopped.
#include "game/symbol_strip.h"
#include "platform/pacing.h"
#include "rules/reel_motion.h"

#include <QObject>
#include <QTimer>

#include <array>

class ReelSurface;

class ReelSpinner : public QObject {
    Q_OBJECT
public:
    ReelSpinner(ReelSurface* surface, const Pacing& pacing, QObject* parent);

    // Loads the symbols; false when not even the first could be read.
    bool load(double devicePixelRatio);
    const SymbolStrip& strip() const { return strip_; }
    const Reels& reels() const { return reels_; }

    // Every cell at rest on a drawn symbol.
    void rest(const Draw& draw);
    // Sets the reels rolling from the plan's pictures; each stops after its time.
    void spin(const SpinPlan& plan);
    void stop();
    // Cell i shows the strobe's blank picture or its own again.
    void showCell(int cell, bool blank);

signals:
    void reelStopped();
    void passDone();
    void finished();

private:
    void pass();
    void showCells();

    ReelSurface* surface_;
    Pacing pacing_;
    SymbolStrip strip_;
    Reels reels_{1};
    std::array<QTimer, kCells> stopTimers_;
    QTimer passTimer_;
};
