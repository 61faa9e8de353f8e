// The spin: lock the controls, set fifteen reels rolling, each with its own
// direction and stopping time, move every running reel one frame per pass
// until all have stopped, then settle.
#include "game/reel_surface.h"
#include "game/slot.h"
#include "game/slot_machine.h"
#include "platform/caption_button.h"
#include "platform/pacing.h"
#include "platform/random.h"

#include <QAction>
#include <QMenu>
#include <QTimer>

#include <cmath>

void slot_machine::setControlsLocked(bool locked)
{
    if (locked)
        surface->setFocus();  // keys go nowhere while the reels roll
    Command1->setEnabled(!locked);
    filer->menuAction()->setVisible(!locked);
    // A hidden menu must not answer its shortcuts either.
    for (QAction* a : {times, starter, newor, exitor, displayer})
        a->setEnabled(!locked);
    if (locked)
        divides->setEnabled(false);
    else {
        times->setEnabled(creditscale < kMaxCreditScale);
        divides->setEnabled(creditscale >= 1);
    }
    Command3->setEnabled(!locked);
    Command6->setEnabled(!locked);
    for (int i = 1; i <= 5; ++i)
        Commandlines[i]->setEnabled(!locked);
    for (int i = 1; i <= 10; ++i)
        Commandcre[i]->setEnabled(!locked);
}

void slot_machine::Command1_Click()
{
    if (Command1->text() != QStringLiteral("SPIN") || spinning)
        return;
    setControlsLocked(true);
    spinning = true;

    MediaPlayer1.setPosition(0);
    play("clink.wav", 100000);

    // Each reel stops on its own, 2 to 6 seconds from now.
    for (int i = 1; i <= 15; ++i) {
        const double interval = std::nearbyint(static_cast<double>(rnd::draw()) * 4000 + 2000);
        Timera[i]->start(static_cast<int>(std::lround(interval * pacing().timerScale)));
    }
    Linem.hide(1, 29);
    surface->segmentsChanged();
    for (int i = 1; i <= 15; ++i) {
        step[i] = static_cast<int>(2 * rnd::draw());
        if (step[i] == 0)
            step[i] = -1;
    }
    for (int i = 1; i <= 15; ++i) {
        stopped[i] = false;
        winning[i] = false;
    }
    loadrand();
    passTimer_->start(pacing().passMs);
}

void slot_machine::Timera_Timer(int index)
{
    if (index < 1 || index > 15)
        return;
    stopped[index] = true;
    beep();
    Timera[index]->stop();
}

// One pass: every running reel rolls one twelfth of a cell; a stopped reel
// settles on the symbol whose frame it showed. The spin ends after a pass
// that finds all fifteen stopped.
void slot_machine::pass()
{
    bool allstopped = true;
    sndPlaySoundA("", 0);
    const int last = (slot::maxsymbol + 1) * kFrames - 1;
    for (int i = 1; i <= 15; ++i) {
        allstopped = allstopped && stopped[i];
        if (stopped[i]) {
            cell[i] = kFrames * (cell[i] / kFrames);
        } else {
            cell[i] += step[i];
            if (cell[i] > last)
                cell[i] = 0;
            if (cell[i] < 0)
                cell[i] = last;
        }
        symbol[i] = cell[i] / kFrames;
        setImage1(i, Image2[static_cast<size_t>(cell[i])]);
    }
    emit passDone();
    if (allstopped) {
        passTimer_->stop();
        finishSpin();
    }
}

void slot_machine::finishSpin()
{
    play("");
    spinning = false;
    calculatepayoff();
}
