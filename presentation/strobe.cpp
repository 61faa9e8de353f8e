// Flashes every winning cell between black and its symbol, ten times per
// winning cell, blinking the direction arrows in step and beeping once per
// flash. Each half of a flash lasts one tick of the clock.
#include "game/slot_machine.h"
#include "platform/pacing.h"

#include <QSvgWidget>
#include <QTimer>

void slot_machine::strobe(std::function<void()> done)
{
    Picture1.fill(Qt::black);
    int n = 0;
    for (int i = 1; i <= 15; ++i)
        n += winning[i] ? 1 : 0;
    if (n == 0) {
        done();
        return;
    }
    strobeRun_ = {10 * n, false, std::move(done)};
    strobeStep();
}

void slot_machine::strobeStep()
{
    auto invertArrows = [this] {
        if (winright)
            Picture2->setHidden(!Picture2->isHidden());
        if (winleft)
            Picture3->setHidden(!Picture3->isHidden());
    };
    if (!strobeRun_.blank) {
        if (strobeRun_.cyclesLeft == 0) {
            auto done = std::move(strobeRun_.done);
            strobeRun_ = {};
            if (done)
                done();
            return;
        }
        invertArrows();
        for (int i = 1; i <= 15; ++i)
            if (winning[i])
                setImage1(i, Picture1);
        strobeRun_.blank = true;
    } else {
        invertArrows();
        beep();
        for (int i = 1; i <= 15; ++i)
            if (winning[i])
                setImage1(i, Image2[static_cast<size_t>(cell[i])]);
        strobeRun_.blank = false;
        --strobeRun_.cyclesLeft;
    }
    strobeTimer_->start(pacing().tickMs);
}
