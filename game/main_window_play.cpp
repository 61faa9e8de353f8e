// What the player does on the main window, and the spin: lock the controls,
// set fifteen reels rolling, move them one picture per pass until all have
// stopped, then settle — winning lines, paid credits, the flashes (twice on a
// jackpot), the refilled bank, the net result — and hand the controls back.
#include "game/main_window.h"

#include "game/reel_surface.h"
#include "platform/caption_button.h"
#include "platform/pacing.h"
#include "platform/window_helpers.h"
#include "screens/pay_table.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSvgWidget>

#include <algorithm>
#include <cmath>

namespace {
QString amountText(Currency c) { return QString::fromStdString(c.text()); }
}

void MainWindow::chooseLines(int button)
{
    game_.chooseLines(button);
    showLineChoice();
    play("chimes.wav");
    showBet();
    drawPayLines();
    spinButton_->setFocus();
}

void MainWindow::chooseCredits(int button)
{
    game_.chooseCredits(button);
    showCreditChoice();
    play("clunk.wav", 3);
    showBet();
    spinButton_->setFocus();
}

void MainWindow::toggleDirections()
{
    play("jackpot.wav");
    game_.toggleDirections();
    showDirections();
    showBet();
    spinButton_->setFocus();
}

// The largest bet, with each choice sounding as if it were clicked, and a spin.
void MainWindow::betMax()
{
    if (game_.betMax()) {
        play("jackpot.wav");
        showDirections();
    }
    showCreditChoice();
    play("clunk.wav", 3);
    showLineChoice();
    play("chimes.wav");
    showBet();
    drawPayLines();
    spin();
    spinButton_->setFocus();
}

void MainWindow::timesTen()
{
    if (!game_.timesTen())
        return;
    showBet();
    showCreditCaptions();
    divideAction_->setEnabled(game_.canDivideByTen());
    timesTenAction_->setEnabled(game_.canTimesTen());
}

void MainWindow::divideByTen()
{
    if (!game_.dividedByTen())
        return;
    showBet();
    showCreditCaptions();
    divideAction_->setEnabled(game_.canDivideByTen());
    timesTenAction_->setEnabled(game_.canTimesTen());
}

// Only the bank box goes back to 2500; the next settlement reads it.
void MainWindow::newGame() { bankBox_->setText(QString::fromStdString(Game::newGameBankText())); }

void MainWindow::showPayTable()
{
    PayTable table(strip_.symbols(), game_.creditsPerLine(), this);
    table.exec();
}

void MainWindow::showLineChoice()
{
    for (int i = 0; i < Game::kLineChoices; ++i)
        lineButtons_[static_cast<std::size_t>(i)]->setFace(i == game_.chosenLines() ? win::kChosen : win::kFace);
}

void MainWindow::showCreditChoice()
{
    for (int i = 0; i < Game::kCreditChoices; ++i)
        creditButtons_[static_cast<std::size_t>(i)]->setFace(i == game_.chosenCredits() ? win::kChosen : win::kFace);
}

void MainWindow::showCreditCaptions()
{
    for (int i = 0; i < Game::kCreditChoices; ++i) {
        const QString caption = QString::fromStdString(game_.creditCaption(i));
        creditButtons_[static_cast<std::size_t>(i)]->setText(caption);
        creditButtons_[static_cast<std::size_t>(i)]->setAccessibleName(caption);
    }
}

void MainWindow::showDirections()
{
    const bool both = game_.bothWays();
    leftArrow_->setVisible(both);
    directionsButton_->setFace(both ? win::kChosen : win::kFace);
    directionsButton_->setText(both ? QStringLiteral("win one direction ------->")
                                    : QStringLiteral("win both directions <---------->"));
    directionsButton_->setAccessibleName(both ? QStringLiteral("win one direction")
                                              : QStringLiteral("win both directions"));
}

void MainWindow::showBet() { betBox_->setText(QString::fromStdString(game_.betText())); }

// Column centres divide the width into eighths; row centres are the middles
// of the rows' first cells. Worked out in single precision.
void MainWindow::drawPayLines()
{
    GridCentres centres;
    const float w = static_cast<float>(surface_->width());
    for (int c = 0; c < kColumns; ++c)
        centres.x[c] = w * static_cast<float>(c + 2) / 8.0f;
    for (int r = 0; r < kRows; ++r)
        centres.y[r] = static_cast<float>(surface_->cellRect(cellAt(r, 0)).top()) +
                       static_cast<float>(surface_->cellRect(0).height()) / 2.0f;
    layOutPayLines(payLines_, game_.lines(), centres);
    surface_->segmentsChanged();
}

void MainWindow::setControlsLocked(bool locked)
{
    if (locked)
        surface_->setFocus();  // keys go nowhere while the reels roll
    spinButton_->setEnabled(!locked);
    fileMenu_->menuAction()->setVisible(!locked);
    // A hidden menu must not answer its shortcuts either.
    for (QAction* a : sessionActions_)
        a->setEnabled(!locked);
    divideAction_->setEnabled(!locked && game_.canDivideByTen());
    if (!locked)
        timesTenAction_->setEnabled(game_.canTimesTen());
    directionsButton_->setEnabled(!locked);
    betMaxButton_->setEnabled(!locked);
    for (CaptionButton* b : lineButtons_)
        b->setEnabled(!locked);
    for (CaptionButton* b : creditButtons_)
        b->setEnabled(!locked);
}

void MainWindow::spin()
{
    if (spinning_)
        return;
    setControlsLocked(true);
    spinning_ = true;
    play("clink.wav", 100000);

    // Each reel stops on its own, 2 to 6 seconds from now.
    const SpinPlan plan = planSpin(draw_, strip_.symbolCount());
    for (int i = 0; i < kCells; ++i)
        reelStopTimers_[static_cast<std::size_t>(i)]->start(static_cast<int>(
            std::lround(plan.stopAfterMs[static_cast<std::size_t>(i)] * pacing().timerScale)));
    payLines_.hideAll();
    surface_->segmentsChanged();
    flashing_ = {};
    reels_.start(plan);
    passTimer_.start(pacing().passMs);
}

void MainWindow::showCells()
{
    for (int i = 0; i < kCells; ++i)
        surface_->setCellPicture(i, &strip_.picture(reels_.picture(i)));
}

// One pass: every running reel rolls one twelfth of a cell; a stopped reel
// settles on the symbol whose picture it showed. The spin ends after a pass
// that finds all fifteen stopped.
void MainWindow::pass()
{
    const bool over = reels_.pass();
    showCells();
    emit passDone();
    if (over) {
        passTimer_.stop();
        play("");
        spinning_ = false;
        settle();
    }
}

void MainWindow::settle()
{
    game_.setSymbols(reels_.symbols());
    const Settlement s = game_.settle(bankBox_->text().toStdString());
    flashing_ = s.runCells;
    payLines_.hideAll();
    winsLeftToRight_ = s.paysLeftToRight;
    winsRightToLeft_ = s.paysRightToLeft;
    for (int k : s.shownLines)
        showPayLine(payLines_, k);
    surface_->segmentsChanged();

    paidBox_->setText(s.paid ? amountText(s.totalPaid) : QStringLiteral("0"));
    if (s.paid)
        strobe_.run(static_cast<int>(std::count(flashing_.begin(), flashing_.end(), true)),
                    [this](bool blank) { flashHalf(blank); }, [this, s] { flash(s); });
    else
        flash(s);
}

// After the winning runs have flashed, a jackpot flashes every cell.
void MainWindow::flash(const Settlement& s)
{
    if (!s.jackpot) {
        endSettlement(s);
        return;
    }
    flashing_.fill(true);
    strobe_.run(kCells, [this](bool blank) { flashHalf(blank); }, [this, s] { endSettlement(s); });
}

// The direction arrows of the win blink in step with the cells.
void MainWindow::flashHalf(bool blank)
{
    if (winsLeftToRight_)
        rightArrow_->setHidden(!rightArrow_->isHidden());
    if (winsRightToLeft_)
        leftArrow_->setHidden(!leftArrow_->isHidden());
    if (!blank)
        beep();
    for (int i = 0; i < kCells; ++i)
        if (flashing_[static_cast<std::size_t>(i)])
            surface_->setCellPicture(i, blank ? &strip_.blank() : &strip_.picture(reels_.picture(i)));
}

void MainWindow::endSettlement(const Settlement& s)
{
    game_.endSettlement(s);
    bankBox_->setText(amountText(s.bank));
    netBox_->setText(amountText(s.net));
    QPalette p = netBox_->palette();
    p.setColor(QPalette::Text, s.netLoss ? win::kRed : QColor(Qt::black));
    netBox_->setPalette(p);
    netLabel_->setText(s.netLoss ? QStringLiteral("NET LOSS") : QStringLiteral("NET GAIN"));
    setControlsLocked(false);
    spinButton_->setFocus();
    emit settled();
}
