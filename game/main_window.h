// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The main window: the grid of fifteen reels with the pay lines over it, the
// bet and result boxes, the betting buttons and the "&file" menu. The game
// itself (bank, bet, symbols) is a Game, the betting controls a BetPanel,
// the reels a ReelSpinner, the results a ResultPanel; this window wires them
// together.
#include "game/reel_spinner.h"
#include "platform/services.h"
#include "presentation/segment_pool.h"
#include "rules/game.h"
#include "rules/reel_motion.h"

#include <QMainWindow>
#include <QTimer>


class BetPanel;
class CaptionButton;
class QAction;
class QMenu;
class ReelSurface;
class ResultPanel;

class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    // Runs the whole start-up; the window shows itself at its end. When a
    // picture the game cannot do without is missing, start-up stops and
    // startupError() names the file. services: the world outside the game,
    // passed on to the windows this one opens.
    explicit MainWindow(Services services, QWidget* parent = nullptr);
    ~MainWindow() override;
    const QString& startupError() const { return startupError_; }

    // Read-only views for whoever checks the game.
    const Game& game() const { return game_; }
    const Reels& reels() const { return spinner_->reels(); }

signals:
    // The settlement of a spin has ended and the controls are back.
    void settled();
    // One pass of the reels has been drawn.
    void passDone();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildControls();
    void buildMenu();
    void showOpening();

    // What the player does.
    void spin();
    void chooseLines(int button);
    void chooseCredits(int button);
    void toggleDirections();
    void betMax();
    void scaleCredits(bool up);
    void newGame();
    void showPayTable();

    // What the window shows.
    void showBet();
    void drawPayLines();
    void setControlsLocked(bool locked);
    void settle();
    void flash(const CellFlags& cells, bool blank);
    void endSettlement(const Settlement& s);
    void stopEverything();

    // Plays a sound file count times on the media player ("" stops it).
    void play(const char* file, int count = 1);
    void beep();

    Services services_;
    Game game_;
    SegmentPool payLines_;
    bool spinning_ = false;

    ReelSurface* surface_ = nullptr;
    ReelSpinner* spinner_ = nullptr;
    BetPanel* betPanel_ = nullptr;
    ResultPanel* results_ = nullptr;
    CaptionButton* spinButton_ = nullptr;
    QMenu* fileMenu_ = nullptr;
    QAction* timesTenAction_ = nullptr;
    QAction* divideAction_ = nullptr;
    QList<QAction*> sessionActions_;
    QTimer audioRest_;  // lets the audio device rest once all is quiet

    QString startupError_;
    bool closingScreenShown_ = false;
    double dpr_ = 1.0;
};
