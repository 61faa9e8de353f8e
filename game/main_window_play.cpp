// SPDX-License-Identifier: GPL-2.0-or-later
// What the player does on the main window, and the spin: lock the controls,
// set the reels rolling until all have stopped, then settle — winning lines, paid credits, the flashes (twice on a
// jackpot), the refilled bank, the net result — and hand the controls back.
#include "game/main_window.h"

#include "game/bet_panel.h"
#include "game/reel_surface.h"
#include "platform/caption_button.h"
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
    play("chimes.wav");
    showBet();
    drawPayLines();
    spinButton_->setFocus();
}

void MainWindow::chooseCredits(int button)
{
    game_.chooseCredits(button);
    play("clunk.wav", 3);
    showBet();
    spinButton_->setFocus();
}

void MainWindow::toggleDirections()
{
    play("jackpot.wav");
    game_.toggleDirections();
    showBet();
    spinButton_->setFocus();
}

// The largest bet, with each choice sounding as if it were clicked, and a spin.
void MainWindow::betMax()
{
    if (game_.betMax())
        play("jackpot.wav");
    play("clunk.wav", 3);
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
    divideAction_->setEnabled(game_.canDivideByTen());
    timesTenAction_->setEnabled(game_.canTimesTen());
}

void MainWindow::divideByTen()
{
    if (!game_.dividedByTen())
        return;
    showBet();
    divideAction_->setEnabled(game_.canDivideByTen());
    timesTenAction_->setEnabled(game_.canTimesTen());
}

// Only the bank box goes back to 2500; the next settlement reads it.
void MainWindow::newGame() { bankBox_->setText(QString::fromStdString(Game::newGameBankText())); }

void MainWindow::showPayTable()
{
    PayTable table(spinner_->strip().symbols(), game_.creditsPerLine(), this);
    table.exec();
}

// The bet on the panel, and the left arrow while wins count both ways.
void MainWindow::showBet()
{
    betPanel_->show(game_);
    leftArrow_->setVisible(game_.bothWays());
}

void MainWindow::drawPayLines()
{
    layOutPayLines(payLines_, game_.lines(), surface_->gridCentres());
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
    betPanel_->setLocked(locked);
}

void MainWindow::spin()
{
    if (spinning_)
        return;
    setControlsLocked(true);
    spinning_ = true;
    play("clink.wav", 100000);

    // Each reel stops on its own, 2 to 6 seconds from now.
    const SpinPlan plan = planSpin(draw_, spinner_->strip().symbolCount());
    payLines_.hideAll();
    surface_->segmentsChanged();
    flashing_ = {};
    spinner_->spin(plan);
}

void MainWindow::settle()
{
    game_.setSymbols(spinner_->reels().symbols());
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
            spinner_->showCell(i, blank);
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
