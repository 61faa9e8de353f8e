// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The betting controls of the main window: five lines buttons, ten credits
// buttons, the directions button, BET MAX and the total-bet box. They show
// the game's bet and tell which was pressed; the window does the rest.
#include <QObject>
#include <QString>

#include <array>

class CaptionButton;
class Game;
class QLineEdit;
class QWidget;

class BetPanel : public QObject {
    Q_OBJECT
public:
    explicit BetPanel(QWidget* surface);

    // The lines and credits buttons, laid out from the surface's size; the
    // name of a line picture that could not be read, if any.
    QString layOut();
    void show(const Game& game);
    void setLocked(bool locked);
    // The panel's controls in keyboard order.
    QList<QWidget*> tabOrder() const;

signals:
    void linesChosen(int button);
    void creditsChosen(int button);
    void directionsToggled();
    void betMaxPressed();

private:
    QWidget* surface_;
    QLineEdit* betBox_ = nullptr;
    CaptionButton* directionsButton_ = nullptr;
    CaptionButton* betMaxButton_ = nullptr;
    std::array<CaptionButton*, 5> lineButtons_{};
    std::array<CaptionButton*, 10> creditButtons_{};
};
