// SPDX-License-Identifier: GPL-2.0-or-later
#include "rules/reel_motion.h"

#include <cmath>

int drawRestingPicture(const Draw& draw, int symbols)
{
    const int pictures = symbols * kFramesPerSymbol;
    const float x = draw() * static_cast<float>(symbols) * static_cast<float>(kFramesPerSymbol);
    int p = static_cast<int>(x);
    p -= p % kFramesPerSymbol;
    if (p > pictures - 1)  // single precision can round up to the end of the range
        p = 0;
    return p;
}

SpinPlan planSpin(const Draw& draw, int symbols)
{
    SpinPlan plan;
    for (int& ms : plan.stopAfterMs)
        ms = static_cast<int>(std::nearbyint(static_cast<double>(draw()) * 4000 + 2000));
    for (int& step : plan.step) {
        step = static_cast<int>(2 * draw());
        if (step == 0)
            step = -1;
    }
    for (int& picture : plan.picture)
        picture = drawRestingPicture(draw, symbols);
    return plan;
}

Grid Reels::symbols() const
{
    Grid g;
    for (std::size_t i = 0; i < g.size(); ++i)
        g[i] = picture_[i] / kFramesPerSymbol;
    return g;
}

void Reels::rest(const Draw& draw)
{
    for (int& picture : picture_)
        picture = drawRestingPicture(draw, symbols_);
}

void Reels::start(const SpinPlan& plan)
{
    picture_ = plan.picture;
    step_ = plan.step;
    stopped_.fill(false);
}

bool Reels::pass()
{
    bool allStopped = true;
    const int last = pictureCount() - 1;
    for (std::size_t i = 0; i < picture_.size(); ++i) {
        int& p = picture_[i];
        allStopped = allStopped && stopped_[i];
        if (stopped_[i]) {
            p -= p % kFramesPerSymbol;
        } else {
            p += step_[i];
            if (p > last)
                p = 0;
            if (p < 0)
                p = last;
        }
    }
    return allStopped;
}
