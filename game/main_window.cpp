// SPDX-License-Identifier: GPL-2.0-or-later
#include "game/main_window.h"

#include "game/bet_panel.h"
#include "game/controls.h"
#include "game/reel_surface.h"
#include "game/result_panel.h"
#include "platform/caption_button.h"
#include "platform/window_helpers.h"
#include "winners/closing_screen.h"
#include "winners/start_over.h"

#include <QAction>
#include <QCloseEvent>
#include <QIcon>
#include <QLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QScreen>

namespace {
constexpr int kClientWidth = 793;
constexpr int kClientHeight = 550;
}

MainWindow::MainWindow(Services services, QWidget* parent) : QMainWindow(parent), services_(std::move(services))
{
    setAttribute(Qt::WA_DeleteOnClose);
    dpr_ = screen() ? screen()->devicePixelRatio() : 1.0;
    buildControls();
    win::centreOnScreen(this);
    startupError_ = betPanel_->layOut();
    if (!startupError_.isEmpty())
        return;
    QWidget* previous = spinButton_;
    setTabOrder(results_->bankBox(), spinButton_);
    for (QWidget* next : betPanel_->tabOrder()) {
        setTabOrder(previous, next);
        previous = next;
    }
    if (!spinner_->load(dpr_)) {
        startupError_ = QStringLiteral("0.emf");
        return;
    }
    surface_->placeCells(SymbolStrip::kSymbolSize);
    showOpening();
}

MainWindow::~MainWindow() { stopEverything(); }

void MainWindow::buildControls()
{
    setWindowTitle(QStringLiteral("REELMOOR"));
    setWindowIcon(QIcon(QStringLiteral("reelmoor.svg")));
    setFont(win::courierBold(9));
    QPalette p = palette();
    p.setColor(QPalette::Window, win::kFace);
    p.setColor(QPalette::Button, win::kFace);
    setPalette(p);

    surface_ = new ReelSurface(payLines_, this);
    surface_->setFixedSize(kClientWidth, kClientHeight);
    setCentralWidget(surface_);
    spinner_ = new ReelSpinner(surface_, services_.pacing, this);
    connect(spinner_, &ReelSpinner::reelStopped, this, &MainWindow::beep);
    connect(spinner_, &ReelSpinner::passDone, this, &MainWindow::passDone);
    connect(spinner_, &ReelSpinner::finished, this, [this] {
        play("");
        spinning_ = false;
        settle();
    });
    buildMenu();

    results_ = new ResultPanel(surface_, services_.pacing.tickMs);
    connect(results_, &ResultPanel::flashed, this, &MainWindow::flash);
    connect(results_, &ResultPanel::presented, this, &MainWindow::endSettlement);
    betPanel_ = new BetPanel(surface_);
    connect(betPanel_, &BetPanel::linesChosen, this, &MainWindow::chooseLines);
    connect(betPanel_, &BetPanel::creditsChosen, this, &MainWindow::chooseCredits);
    connect(betPanel_, &BetPanel::directionsToggled, this, &MainWindow::toggleDirections);
    connect(betPanel_, &BetPanel::betMaxPressed, this, &MainWindow::betMax);

    spinButton_ = makeButton(surface_, QStringLiteral("spinButton"), QStringLiteral("SPIN"), 48);
    spinButton_->setGeometry(576, 240, 209, 137);
    spinButton_->setPicture(windowIcon(), QSize(32, 32));
    connect(spinButton_, &QPushButton::clicked, this, &MainWindow::spin);

    audioRest_.setParent(this);
    audioRest_.setSingleShot(true);
    connect(&audioRest_, &QTimer::timeout, this, [this] {
        if (!services_.sound->restWhenSilent())
            audioRest_.start(500);
    });

    // The design has one size; the window keeps it.
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    adjustSize();
}

void MainWindow::buildMenu()
{
    fileMenu_ = menuBar()->addMenu(QStringLiteral("&file"));
    auto item = [this](const QString& caption, const char* keys, auto handler) {
        QAction* a = fileMenu_->addAction(caption);
        a->setShortcut(QKeySequence(QString::fromLatin1(keys)));
        connect(a, &QAction::triggered, this, handler);
        return a;
    };
    timesTenAction_ = item(QStringLiteral("credits times 10"), "Ctrl+A", [this] { scaleCredits(true); });
    divideAction_ = item(QStringLiteral("credits divided by 10"), "Ctrl+B", [this] { scaleCredits(false); });
    divideAction_->setEnabled(false);
    sessionActions_ = {
        timesTenAction_,
        item(QStringLiteral("start table of winners over"), "Ctrl+C",
             [this] { startTableOfWinnersOver(this, services_); }),
        item(QStringLiteral("NEW GAME"), "Ctrl+N", [this] { newGame(); }),
        item(QStringLiteral("EXIT"), "Ctrl+X", [this] { close(); }),
        item(QStringLiteral("DISPLAY PAY TABLE"), "Ctrl+P", [this] { showPayTable(); }),
    };
    // The bar keeps its height while the menu is hidden during a spin, so the
    // window does not jump.
    menuBar()->setFixedHeight(menuBar()->sizeHint().height());
}

// The first playable state: 2500 credits, one line and one credit per line
// chosen, line 1 drawn, fifteen random symbols at rest, SPIN focused.
void MainWindow::showOpening()
{
    betPanel_->show(game_);
    show();
    drawPayLines();
    spinButton_->setFocus();
    spinner_->rest(services_.draw);
}

void MainWindow::play(const char* file, int count)
{
    services_.sound->play(file, count);
    audioRest_.start(3000);
}

void MainWindow::beep()
{
    services_.sound->beep();
    audioRest_.start(3000);
}

// However the main window goes — EXIT or its close control, even in the
// middle of a spin or a flash — the closing screen comes up, once.
void MainWindow::closeEvent(QCloseEvent* event)
{
    stopEverything();
    if (!closingScreenShown_) {
        closingScreenShown_ = true;
        auto* screen = new ClosingScreen(game_.bank(), services_);
        screen->setAttribute(Qt::WA_DeleteOnClose);
        screen->show();
    }
    event->accept();
}

void MainWindow::stopEverything()
{
    if (spinner_)
        spinner_->stop();
    if (results_)
        results_->stop();
    services_.sound->play("", 1);
    audioRest_.stop();
}
