// SPDX-License-Identifier: GPL-2.0-or-later
#include "game/bet_panel.h"

#include "game/controls.h"

#include "platform/caption_button.h"
#include "platform/window_helpers.h"
#include "rules/game.h"

#include <QImageReader>
#include <QLabel>
#include <QLineEdit>

#include <cmath>

BetPanel::BetPanel(QWidget* surface) : QObject(surface), surface_(surface)
{
    QLabel* betLabel = makeLabel(surface, QStringLiteral("TOTAL BET"), {56, 456, 121, 33}, Qt::AlignRight);
    QPalette red = betLabel->palette();
    red.setColor(QPalette::WindowText, win::kRed);
    betLabel->setPalette(red);
    betBox_ = makeTextBox(surface, QStringLiteral("betBox"), QStringLiteral("1"), {8, 480, 209, 41}, true);
    red = betBox_->palette();
    red.setColor(QPalette::Base, win::kRed);
    betBox_->setPalette(red);
    betLabel->setBuddy(betBox_);  // a screen reader reads the box with its label
    betBox_->setAccessibleName(QStringLiteral("total bet"));
}

// Called after the window's other controls are made, so the panel's buttons
// stack as designed.
QString BetPanel::layOut()
{
    directionsButton_ = makeButton(surface_, QStringLiteral("directionsButton"),
                                   QStringLiteral("win both directions <---------->"), 9);
    directionsButton_->setGeometry(672, 384, 113, 73);
    connect(directionsButton_, &QPushButton::clicked, this, &BetPanel::directionsToggled);
    betMaxButton_ = makeButton(surface_, QStringLiteral("betMaxButton"), QStringLiteral("BET MAX"), 20.25);
    betMaxButton_->setGeometry(672, 464, 113, 73);
    connect(betMaxButton_, &QPushButton::clicked, this, &BetPanel::betMaxPressed);

    // Five lines buttons in every other slot of a row of thirteen.
    const double sw = surface_->width();
    const double sh = surface_->height();
    const int width = static_cast<int>(sw / 13);
    for (int i = 0; i < static_cast<int>(kLineChoices.size()); ++i) {
        const int lines = 2 * i + 1;
        const QString file = QString::number(lines) + QStringLiteral(".jpg");
        const QImage picture = QImageReader(file).read();
        if (picture.isNull())
            return file;
        CaptionButton* b = lineButtons_[static_cast<std::size_t>(i)] = makeButton(
            surface_, QStringLiteral("lineButton%1").arg(i), QString::number(lines) + QStringLiteral(" lines"), 8.25);
        b->setGeometry(2 * i * width, 232, width, 65);
        QSizeF fit = picture.size().toSizeF().scaled(QSizeF(width - 8, b->height() - 22), Qt::KeepAspectRatio);
        b->setPicture(QIcon(QPixmap::fromImage(picture)), fit.toSize());
        b->show();
        connect(b, &QPushButton::clicked, this, [this, i] { emit linesChosen(i); });
    }

    // Ten credits buttons in two rows of five. Their edges fall on fractional
    // pixels; each button takes the whole pixels up to the next.
    const double top = 304;
    const double cw = sw / 8;
    const double ch = (sh - top) / 8;
    for (int i = 0; i < kCreditChoices; ++i) {
        const int c = i % 5, r = i / 5;
        CaptionButton* b = creditButtons_[static_cast<std::size_t>(i)] =
            makeButton(surface_, QStringLiteral("creditButton%1").arg(i), QString(), 8);
        const int x0 = static_cast<int>(std::lround(c * cw));
        const int x1 = static_cast<int>(std::lround((c + 1) * cw));
        const int y0 = static_cast<int>(std::lround(top + r * ch));
        const int y1 = static_cast<int>(std::lround(top + (r + 1) * ch));
        b->setGeometry(x0, y0, x1 - x0, y1 - y0);
        b->show();
        connect(b, &QPushButton::clicked, this, [this, i] { emit creditsChosen(i); });
    }
    return {};
}

// The chosen lines and credits buttons in yellow, the credits captions at
// the power of ten in force, the directions, and the bet.
void BetPanel::show(const Game& game)
{
    for (int i = 0; i < static_cast<int>(kLineChoices.size()); ++i)
        lineButtons_[static_cast<std::size_t>(i)]->setFace(i == game.chosenLines() ? win::kChosen : win::kFace);
    for (int i = 0; i < kCreditChoices; ++i) {
        CaptionButton* b = creditButtons_[static_cast<std::size_t>(i)];
        b->setFace(i == game.chosenCredits() ? win::kChosen : win::kFace);
        const QString caption = QString::fromStdString(game.creditCaption(i));
        b->setText(caption);
        b->setAccessibleName(caption);
    }
    const bool both = game.bothWays();
    directionsButton_->setFace(both ? win::kChosen : win::kFace);
    directionsButton_->setText(both ? QStringLiteral("win one direction ------->")
                                    : QStringLiteral("win both directions <---------->"));
    directionsButton_->setAccessibleName(both ? QStringLiteral("win one direction")
                                              : QStringLiteral("win both directions"));
    betBox_->setText(QString::fromStdString(game.betText()));
}

void BetPanel::setLocked(bool locked)
{
    for (QWidget* w : tabOrder())
        w->setEnabled(!locked);
}

QList<QWidget*> BetPanel::tabOrder() const
{
    QList<QWidget*> order{directionsButton_, betMaxButton_};
    order.append(QList<QWidget*>(creditButtons_.begin(), creditButtons_.end()));
    order.append(QList<QWidget*>(lineButtons_.begin(), lineButtons_.end()));
    return order;
}
