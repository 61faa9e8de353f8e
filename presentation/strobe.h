// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The flashing of winning cells: ten flashes per winning cell, each a blank
// half and a shown half lasting one tick of the clock (tickMs). Whoever runs it draws
// the halves; the strobe only counts and keeps time.
#include <QObject>
#include <QTimer>

#include <functional>

class Strobe : public QObject {
public:
    explicit Strobe(int tickMs, QObject* parent = nullptr);

    // Runs 10 x cells flashes, calling half(true) to blank and half(false)
    // to show again, then done. With no cells, done comes at once.
    void run(int cells, std::function<void(bool blank)> half, std::function<void()> done);
    void stop();

private:
    void step();

    int tickMs_;
    QTimer timer_;
    int flashesLeft_ = 0;
    bool blank_ = false;
    std::function<void(bool)> half_;
    std::function<void()> done_;
};
