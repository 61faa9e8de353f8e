// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The results under the reels: the credits paid, the total credits (the
// bank, which the player may type into), the net result and the arrows of
// the directions that win. It shows a settlement in its order: the credits
// paid; the paying cells flashing, with the arrows of the winning directions
// blinking in step (every cell once more on a jackpot); then the bank and
// the net result.
#include "presentation/strobe.h"
#include "rules/settlement.h"

#include <QObject>

class QLabel;
class QLineEdit;
class QSvgWidget;
class QWidget;

class ResultPanel : public QObject {
    Q_OBJECT
public:
    // tickMs: one tick of the strobe's clock.
    ResultPanel(QWidget* surface, int tickMs);

    QLineEdit* bankBox() const { return bankBox_; }
    std::string bankText() const;
    void setBankText(const std::string& text);
    // The left arrow shows while wins count both ways.
    void showDirections(bool bothWays);

    void present(const Settlement& s);
    void stop();

signals:
    // Half a flash: these cells blank, or show their pictures again.
    void flashed(const CellFlags& cells, bool blank);
    // The bank and net result of the settlement are shown.
    void presented(const Settlement& s);

private:
    void flashJackpot(const Settlement& s);
    void flashHalf(bool blank);
    void showBank(const Settlement& s);
    void nameNetBox();

    Strobe strobe_;
    CellFlags flashing_{};
    bool winsLeftToRight_ = false;
    bool winsRightToLeft_ = false;
    QLineEdit* paidBox_ = nullptr;
    QLineEdit* bankBox_ = nullptr;
    QLineEdit* netBox_ = nullptr;
    QLabel* netLabel_ = nullptr;
    QSvgWidget* rightArrow_ = nullptr;
    QSvgWidget* leftArrow_ = nullptr;
};
