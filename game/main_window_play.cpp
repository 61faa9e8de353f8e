// SPDX-License-Identifier: GPL-2.0-or-later
// What the player does on the main window, and the spin: lock the controls,
// set the reels rolling until all have stopped, then settle — the winning
// lines, then the results panel's paid credits, flashes (twice on a jackpot),
// bank and net result — and hand the controls back.
#include "game/main_window.h"

#include "game/bet_panel.h"
#include "game/reel_surface.h"
#include "game/result_panel.h"
#include "platform/caption_button.h"
#include "screens/pay_table.h"

#include <QAction>
#include <QMenu>

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

// The credits captions move by a power of ten; each menu item is offered
// while its way is open.
void MainWindow::scaleCredits(bool up)
{
    if (!(up ? game_.timesTen() : game_.dividedByTen()))
        return;
    showBet();
    divideAction_->setEnabled(game_.canDivideByTen());
    timesTenAction_->setEnabled(game_.canTimesTen());
}

// Only the bank box goes back to 2500; the next settlement reads it.
void MainWindow::newGame() { results_->setBankText(Game::newGameBankText()); }

void MainWindow::showPayTable()
{
    PayTable table(spinner_->strip().symbols(), game_.creditsPerLine(), this);
    table.exec();
}

// The bet on the panel, and the left arrow while wins count both ways.
void MainWindow::showBet()
{
    betPanel_->show(game_);
    results_->showDirections(game_.bothWays());
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
    const SpinPlan plan = planSpin(services_.draw, spinner_->strip().symbolCount());
    payLines_.hideAll();
    surface_->segmentsChanged();
    spinner_->spin(plan);
}

// The winning lines go up at once; the results panel shows the rest in turn.
void MainWindow::settle()
{
    game_.setSymbols(spinner_->reels().symbols());
    const Settlement s = game_.settle(results_->bankText());
    payLines_.hideAll();
    for (int k : s.shownLines)
        showPayLine(payLines_, k);
    surface_->segmentsChanged();
    results_->present(s);
}

void MainWindow::flash(const CellFlags& cells, bool blank)
{
    if (!blank)
        beep();
    for (int i = 0; i < kCells; ++i)
        if (cells[static_cast<std::size_t>(i)])
            spinner_->showCell(i, blank);
}

void MainWindow::endSettlement(const Settlement& s)
{
    game_.endSettlement(s);
    setControlsLocked(false);
    spinButton_->setFocus();
    emit settled();
}
