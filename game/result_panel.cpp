// SPDX-License-Identifier: GPL-2.0-or-later
#include "game/result_panel.h"

#include "game/controls.h"
#include "platform/window_helpers.h"
#include "rules/game.h"

#include <QLabel>
#include <QLineEdit>
#include <QSvgWidget>

#include <algorithm>

namespace {
QString amountText(Currency c) { return QString::fromStdString(c.text()); }
}

ResultPanel::ResultPanel(QWidget* surface, int tickMs) : QObject(surface), strobe_(tickMs, this)
{
    // The labels first: the boxes overlap them and stack above.
    QLabel* paidLabel = makeLabel(surface, QStringLiteral("credits paid"), {72, 376, 201, 41}, Qt::AlignHCenter);
    QLabel* bankLabel = makeLabel(surface, QStringLiteral("total credits"), {400, 376, 185, 41}, Qt::AlignRight);
    netLabel_ = makeLabel(surface, QStringLiteral("NET GAIN"), {288, 456, 113, 33}, Qt::AlignRight);
    netLabel_->setObjectName(QStringLiteral("netLabel"));

    paidBox_ = makeTextBox(surface, QStringLiteral("paidBox"), QStringLiteral("0"), {8, 400, 313, 41}, true);
    bankBox_ = makeTextBox(surface, QStringLiteral("bankBox"), QString::fromStdString(Game::newGameBankText()),
                           {336, 400, 321, 41}, false);
    netBox_ = makeTextBox(surface, QStringLiteral("netBox"), QStringLiteral("0"), {232, 480, 209, 41}, true);
    // A screen reader reads each box by its label, the net result by what
    // its label says now.
    paidLabel->setBuddy(paidBox_);
    bankLabel->setBuddy(bankBox_);
    netLabel_->setBuddy(netBox_);
    paidBox_->setAccessibleName(QStringLiteral("credits paid"));
    bankBox_->setAccessibleName(QStringLiteral("total credits"));
    nameNetBox();

    rightArrow_ = new QSvgWidget(QStringLiteral("arrow_right.svg"), surface);
    rightArrow_->setObjectName(QStringLiteral("rightArrow"));
    rightArrow_->setGeometry(88, 104, 32, 32);
    leftArrow_ = new QSvgWidget(QStringLiteral("arrow_left.svg"), surface);
    leftArrow_->setObjectName(QStringLiteral("leftArrow"));
    leftArrow_->setGeometry(680, 104, 33, 33);
    leftArrow_->hide();
}

std::string ResultPanel::bankText() const { return bankBox_->text().toStdString(); }

void ResultPanel::setBankText(const std::string& text) { bankBox_->setText(QString::fromStdString(text)); }

void ResultPanel::showDirections(bool bothWays) { leftArrow_->setVisible(bothWays); }

void ResultPanel::present(const Settlement& s)
{
    flashing_ = s.runCells;
    winsLeftToRight_ = s.paysLeftToRight;
    winsRightToLeft_ = s.paysRightToLeft;
    paidBox_->setText(s.paid ? amountText(s.totalPaid) : QStringLiteral("0"));
    if (s.paid)
        strobe_.run(static_cast<int>(std::count(flashing_.begin(), flashing_.end(), true)),
                    [this](bool blank) { flashHalf(blank); }, [this, s] { flashJackpot(s); });
    else
        showBank(s);
}

void ResultPanel::stop() { strobe_.stop(); }

// After the paying runs have flashed, a jackpot flashes every cell.
void ResultPanel::flashJackpot(const Settlement& s)
{
    if (!s.jackpot) {
        showBank(s);
        return;
    }
    flashing_.fill(true);
    strobe_.run(kCells, [this](bool blank) { flashHalf(blank); }, [this, s] { showBank(s); });
}

void ResultPanel::flashHalf(bool blank)
{
    if (winsLeftToRight_)
        rightArrow_->setHidden(!rightArrow_->isHidden());
    if (winsRightToLeft_)
        leftArrow_->setHidden(!leftArrow_->isHidden());
    emit flashed(flashing_, blank);
}

void ResultPanel::nameNetBox() { netBox_->setAccessibleName(netLabel_->text().toLower()); }

void ResultPanel::showBank(const Settlement& s)
{
    bankBox_->setText(amountText(s.bank));
    netBox_->setText(amountText(s.net));
    QPalette p = netBox_->palette();
    p.setColor(QPalette::Text, s.netLoss ? win::kRed : QColor(Qt::black));
    netBox_->setPalette(p);
    netLabel_->setText(s.netLoss ? QStringLiteral("NET LOSS") : QStringLiteral("NET GAIN"));
    nameNetBox();
    emit presented(s);
}
