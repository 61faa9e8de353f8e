// SPDX-License-Identifier: GPL-2.0-or-later
#include "game/reel_spinner.h"

#include "game/reel_surface.h"

#include <cmath>

ReelSpinner::ReelSpinner(ReelSurface* surface, const Pacing& pacing, QObject* parent)
    : QObject(parent), surface_(surface), pacing_(pacing)
{
    for (std::size_t i = 0; i < stopTimers_.size(); ++i) {
        QTimer& t = stopTimers_[i];
        t.setParent(this);
        t.setTimerType(Qt::PreciseTimer);
        t.setSingleShot(true);
        connect(&t, &QTimer::timeout, this, [this, i] {
            reels_.stop(static_cast<int>(i));
            emit reelStopped();
        });
    }
    passTimer_.setParent(this);
    passTimer_.setTimerType(Qt::PreciseTimer);
    connect(&passTimer_, &QTimer::timeout, this, &ReelSpinner::pass);
}

bool ReelSpinner::load(double devicePixelRatio)
{
    if (!strip_.load(devicePixelRatio))
        return false;
    reels_ = Reels(strip_.symbolCount());
    return true;
}

void ReelSpinner::rest(const Draw& draw)
{
    reels_.rest(draw);
    showCells();
}

void ReelSpinner::spin(const SpinPlan& plan)
{
    for (std::size_t i = 0; i < stopTimers_.size(); ++i)
        stopTimers_[i].start(static_cast<int>(std::lround(plan.stopAfterMs[i] * pacing_.timerScale)));
    reels_.start(plan);
    passTimer_.start(pacing_.passMs);
}

void ReelSpinner::stop()
{
    passTimer_.stop();
    for (QTimer& t : stopTimers_)
        t.stop();
}

void ReelSpinner::showCell(int cell, bool blank)
{
    const int picture = reels_.picture(cell);
    surface_->setCellPicture(cell, blank ? &strip_.blank() : &strip_.picture(picture));
    // A reel is named by its symbol once its timer has stopped it: the pass
    // that notices the stop settles it on the symbol whose picture it shows.
    const bool rolling = passTimer_.isActive() && !reels_.stopped(cell);
    surface_->setCellName(cell, rolling ? QStringLiteral("rolling") : strip_.name(picture / kFramesPerSymbol));
}

void ReelSpinner::showCells()
{
    for (int i = 0; i < kCells; ++i)
        showCell(i, false);
}

// One pass: every running reel rolls one twelfth of a cell; a stopped reel
// settles on the symbol whose picture it showed. The spin ends after a pass
// that finds all fifteen stopped.
void ReelSpinner::pass()
{
    const bool over = reels_.pass();
    showCells();
    emit passDone();
    if (over) {
        passTimer_.stop();
        emit finished();
    }
}
