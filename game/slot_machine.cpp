#include "game/slot_machine.h"

#include "game/reel_surface.h"
#include "game/slot.h"
#include "platform/random.h"
#include "platform/window_helpers.h"
#include "screens/payout.h"
#include "winners/creditsdeck.h"
#include "winners/start_over.h"

#include <QAction>
#include <QCloseEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QTimer>

slot_machine::slot_machine(QWidget* parent)
    : QMainWindow(parent)
{
    setAttribute(Qt::WA_DeleteOnClose);
    dpr_ = screen() ? screen()->devicePixelRatio() : 1.0;
    buildDesign();

    // Start-up, in its fixed order; the window shows itself at the end.
    win::centreOnScreen(this);
    rnd::seedFromTimeOfDay();
    bothways = false;
    for (int i = 1; i <= SegmentPool::kSize; ++i) {
        Linem(i).visible = false;
        Linem(i).width = 10;
    }
    layOutButtons();
    if (!startupError_.isEmpty())
        return;
    slot::creditsperline = Currency::fromWhole(1);
    lines = 1;
    if (!loadSymbolPictures())
        return;
    placeCells();
    paintReelBackground();
    buildFramePictures();
    display();
}

slot_machine::~slot_machine() { stopEverything(); }

void slot_machine::setImage1(int i, const QImage& p) { surface->setCellPicture(i, &p); }

void slot_machine::play(const char* file, int count)
{
    MediaPlayer1.setPlayCount(count);
    MediaPlayer1.setFileName(file);
    audioRest_->start(3000);
}

void slot_machine::beep()
{
    ++beeps_;
    systemBeep();
    audioRest_->start(3000);
}

// "NEW GAME": only the bank box goes back to 2500; the next settlement reads it.
void slot_machine::newor_Click() { Text3->setText(QString::number(kStartingBank)); }

void slot_machine::exitor_Click() { close(); }

void slot_machine::starter_Click() { startTableOfWinnersOver(this); }

void slot_machine::displayer_Click()
{
    payout table(this);
    table.exec();
}

// However the main window goes — EXIT or its close control, even in the
// middle of a spin or a flash — the closing screen comes up, once.
void slot_machine::closeEvent(QCloseEvent* event)
{
    stopEverything();
    if (!closingScreenShown_) {
        closingScreenShown_ = true;
        auto* deck = new creditsdeck;
        deck->setAttribute(Qt::WA_DeleteOnClose);
        deck->show();
    }
    event->accept();
}

void slot_machine::stopEverything()
{
    if (passTimer_)
        passTimer_->stop();
    if (strobeTimer_)
        strobeTimer_->stop();
    strobeRun_ = {};
    for (QTimer* t : Timera)
        if (t)
            t->stop();
    MediaPlayer1.setFileName("");
    if (audioRest_)
        audioRest_->stop();
}
