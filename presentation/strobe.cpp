// SPDX-License-Identifier: GPL-2.0-or-later
#include "presentation/strobe.h"

Strobe::Strobe(int tickMs, QObject* parent) : QObject(parent), tickMs_(tickMs)
{
    timer_.setParent(this);
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, [this] { step(); });
}

void Strobe::run(int cells, std::function<void(bool)> half, std::function<void()> done)
{
    if (cells == 0) {
        done();
        return;
    }
    flashesLeft_ = 10 * cells;
    blank_ = false;
    half_ = std::move(half);
    done_ = std::move(done);
    step();
}

void Strobe::stop()
{
    timer_.stop();
    flashesLeft_ = 0;
    blank_ = false;
    half_ = {};
    done_ = {};
}

void Strobe::step()
{
    if (!blank_ && flashesLeft_ == 0) {
        auto done = std::move(done_);
        stop();
        if (done)
            done();
        return;
    }
    blank_ = !blank_;
    if (!blank_)
        --flashesLeft_;
    half_(blank_);
    timer_.start(tickMs_);
}
