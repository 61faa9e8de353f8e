// SPDX-License-Identifier: GPL-2.0-or-later
#include "screens/pay_table.h"

#include "platform/window_helpers.h"
#include "rules/pay.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPushButton>
#include <QScreen>

#include <cmath>

namespace {

constexpr int kWidth = 799;   // client area, pixels
constexpr int kHeight = 571;
constexpr int kCell = 38;     // a symbol picture and a row of page 1

QFont courier(int pixelSize)
{
    QFont font = win::courierBold(9);
    font.setPixelSize(pixelSize);
    return font;
}

// One image box: the symbol's picture stretched over the box.
class SymbolBox : public QWidget {
public:
    SymbolBox(const Picture* picture, QWidget* parent) : QWidget(parent), picture_(picture) {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        if (!picture_) return;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        picture_->paint(painter, QRectF(rect()));
    }

private:
    const Picture* picture_;
};

}  // namespace

PayTable::PayTable(const std::vector<Picture>& symbols, Currency creditsPerLine, QWidget* parent)
    : QDialog(parent), symbols_(symbols), creditsPerLine_(creditsPerLine)
{
    setWindowTitle(QString(61, QLatin1Char(' ')) + QStringLiteral("PAY OUT TABLES AND RULES"));
    setFixedSize(kWidth, kHeight);
    setFontPoints(6.75);

    pageButton_ = new QPushButton(QStringLiteral("PAGE 2"), this);
    pageButton_->setGeometry(640, 528, 97, 33);
    pageButton_->setFont(courier(win::pointsToPixels(12)));
    QPalette white = pageButton_->palette();
    white.setColor(QPalette::Button, Qt::white);
    pageButton_->setPalette(white);
    pageButton_->setAutoFillBackground(true);
    pageButton_->setAutoDefault(false);
    connect(pageButton_, &QPushButton::clicked, this, [this] { showPageTwo(); });

    pictureBoxes_.push_back(new SymbolBox(symbols_.empty() ? nullptr : &symbols_[0], this));
    pictureBoxes_[0]->setGeometry(0, 0, kCell, kCell);

    win::centreOnScreen(this);
    placePictures();
}

// Four symbols to a row, a quarter of the width apart.
void PayTable::placePictures()
{
    const qreal w = width();
    for (std::size_t i = 0; i < symbols_.size(); ++i) {
        if (i > 0) pictureBoxes_.push_back(new SymbolBox(&symbols_[i], this));
        const int col = int(i % 4), row = int(i / 4);
        pictureBoxes_[i]->setGeometry(int(std::lround(col * w / 4)), row * kCell + 22, kCell, kCell);
        pictureBoxes_[i]->setVisible(true);
    }
}

// An amount of the schedule at the credits bet per line.
QString PayTable::amount(double valuePerCredit) const
{
    return QString::fromStdString((creditsPerLine_ * Currency::fromDouble(valuePerCredit)).printed());
}

void PayTable::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!activated_) {
        activated_ = true;
        showPageOne();
    }
}

// Page 1: every symbol with what two, three, four and five of it pay.
void PayTable::showPageOne()
{
    const qreal w = width();
    const QString heading = QStringLiteral(" 2   3     4     5");
    for (int quarter = 0; quarter < 4; ++quarter) {
        position_.setX(quarter * w / 4 + 50);
        print(heading, quarter < 3);
    }
    print(QString(153, QLatin1Char('-')));

    for (int i = 0; i < int(symbols_.size()); ++i) {
        const int col = i % 4, row = i / 4, f = figureOf(i);
        position_ = QPointF(col * w / 4 + 50, row * kCell + 32);
        print(amount(matchRunValue(f, 2)) + amount(matchRunValue(f, 3)) + amount(matchRunValue(f, 4)) +
              amount(matchRunValue(f, 5)));
    }
}

// Page 2: one picture per figure and what three, four and five of that
// figure in any colours pay, then a word on runs of one colour.
void PayTable::showPageTwo()
{
    cls();
    pageButton_->hide();
    for (QWidget* image : pictureBoxes_) {
        image->hide();
        image->move(image->x(), height());
    }
    const int symbols = int(symbols_.size());
    for (int i = 0; i < symbols; i += 5) {
        const int f = i / 5;
        pictureBoxes_[std::size_t(i)]->move(0, f * kCell + 22);
        pictureBoxes_[std::size_t(i)]->setVisible(true);
    }

    position_ = QPointF(50, 0);
    print(QStringLiteral(" 3 any color combination 4 any color combination 5 any color combination"));
    print(QString(72, QLatin1Char('-')));

    const QString gap(20, QLatin1Char(' '));
    for (int i = 0; i < symbols; i += 5) {
        const int f = figureOf(i);
        position_ = QPointF(50, f * kCell + 42);
        print(amount(double(figureRunValue(f, 3))) + gap + amount(double(figureRunValue(f, 4))) + gap +
              amount(double(figureRunValue(f, 5))));
    }

    setFontPoints(16);
    colour_ = QColor(50, 50, 50);
    print(QStringLiteral(" Paid for three (3) or more of the same color in a row!"));
    print(QStringLiteral(" Too many combinations to show them all, it depends on"));
    print(QStringLiteral(" combination of geometric figures, combo's of figures"));
    print(QStringLiteral(" near the bottom of above list pays the most!!!!"));
}

void PayTable::setFontPoints(qreal points)
{
    pixelSize_ = win::pointsToPixels(points);
}

void PayTable::print(const QString& text, bool stayOnLine)
{
    printed_.push_back({position_, text, pixelSize_, colour_});
    canvasStale_ = true;
    update();
    const QFontMetricsF metrics(courier(pixelSize_));
    if (stayOnLine)
        position_.rx() += metrics.horizontalAdvance(text);
    else
        position_ = QPointF(0, position_.y() + metrics.height());
}

void PayTable::cls()
{
    printed_.clear();
    position_ = QPointF(0, 0);
    canvasStale_ = true;
    update();
}

const QImage& PayTable::canvas()
{
    const qreal ratio = devicePixelRatioF();
    if (canvasStale_ || canvas_.isNull() || canvas_.devicePixelRatio() != ratio) {
        // Drawn at the screen's pixel density so the text stays sharp.
        canvas_ = QImage(QSize(std::lround(width() * ratio), std::lround(height() * ratio)),
                         QImage::Format_ARGB32_Premultiplied);
        canvas_.setDevicePixelRatio(ratio);
        canvas_.fill(Qt::white);
        QPainter painter(&canvas_);
        for (const Printed& item : printed_) {
            const QFont font = courier(item.pixelSize);
            painter.setFont(font);
            painter.setPen(item.colour);
            painter.drawText(item.at + QPointF(0, QFontMetricsF(font).ascent()), item.text);
        }
        canvasStale_ = false;
    }
    return canvas_;
}

void PayTable::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawImage(QPointF(0, 0), canvas());
}
