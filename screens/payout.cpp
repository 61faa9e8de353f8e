#include "screens/payout.h"

#include "platform/window_helpers.h"

#include "game/slot.h"
#include "platform/emf/emf_picture.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPushButton>
#include <QScreen>

#include <cmath>

namespace {

constexpr int kWidth = 799;   // client area, pixels
constexpr int kHeight = 571;
constexpr int kCell = 38;     // a symbol picture and a row of page 1

// Points to pixels at the designed 96 dots per inch, rounded as the window
// system rounds font heights: 6.75 -> 9, 12 -> 16, 16 -> 21.
int pointsToPixels(qreal points)
{
    return int(std::lround(points * 96.0 / 72.0));
}

QFont courier(int pixelSize)
{
    QFont font = win::courierBold(9);
    font.setPixelSize(pixelSize);
    return font;
}

// An amount of the schedule at the credits bet per line: creditsperline x m
// x factor, factor given in ten-thousandths.
QString amount(int m, std::int64_t factor)
{
    const Currency value = slot::creditsperline * Currency::fromWhole(m) * Currency::fromRaw(factor);
    return QString::fromStdString(value.printed());
}

// One image box: the symbol's picture stretched over the box.
class SymbolBox : public QWidget {
public:
    SymbolBox(int symbol, QWidget* parent) : QWidget(parent), symbol_(symbol) {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        if (symbol_ < 0 || std::size_t(symbol_) >= slot::symbolPictures.size()) return;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        slot::symbolPictures[std::size_t(symbol_)].paint(painter, QRectF(rect()));
    }

private:
    int symbol_;
};

}  // namespace

payout::payout(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(QString(61, QLatin1Char(' ')) + QStringLiteral("PAY OUT TABLES AND RULES"));
    setFixedSize(kWidth, kHeight);
    setFontPoints(6.75);

    Command1 = new QPushButton(QStringLiteral("PAGE 2"), this);
    Command1->setGeometry(640, 528, 97, 33);
    Command1->setFont(courier(pointsToPixels(12)));
    QPalette white = Command1->palette();
    white.setColor(QPalette::Button, Qt::white);
    Command1->setPalette(white);
    Command1->setAutoFillBackground(true);
    Command1->setAutoDefault(false);
    connect(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });

    Imagear.push_back(new SymbolBox(slot::maxsymbol >= 0 ? 0 : -1, this));
    Imagear[0]->setGeometry(0, 0, kCell, kCell);

    Form_Load();
}

void payout::Form_Load()
{
    if (QScreen* s = screen()) {
        const QRect area = s->geometry();
        move(area.x() + (area.width() - width()) / 2, area.y() + (area.height() - height()) / 2);
    }
    const qreal w = width();
    for (int i = 0; i <= slot::maxsymbol; ++i) {
        if (i > 0) Imagear.push_back(new SymbolBox(i, this));
        const int col = i % 4, row = i / 4;
        Imagear[std::size_t(i)]->setGeometry(int(std::lround(col * w / 4)), row * kCell + 22, kCell, kCell);
        Imagear[std::size_t(i)]->setVisible(true);
    }
}

void payout::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!activated_) {
        activated_ = true;
        Form_Activate();
    }
}

// Page 1: every symbol with what two, three, four and five of it pay.
void payout::Form_Activate()
{
    const qreal w = width();
    const QString heading = QStringLiteral(" 2   3     4     5");
    for (int quarter = 0; quarter < 4; ++quarter) {
        position_.setX(quarter * w / 4 + 50);
        print(heading, quarter < 3);
    }
    print(QString(153, QLatin1Char('-')));

    for (int i = 0; i <= slot::maxsymbol; ++i) {
        const int col = i % 4, row = i / 4, m = i / 5 + 1;
        position_ = QPointF(col * w / 4 + 50, row * kCell + 32);
        print(amount(m, 17500) + amount(m, 175000) + amount(m, 1750000) + amount(m, 17500000));
    }
}

// Page 2: one picture per figure and what three, four and five of that
// figure in any colours pay, then a word on runs of one colour.
void payout::Command1_Click()
{
    cls();
    Command1->hide();
    for (QWidget* image : Imagear) {
        image->hide();
        image->move(image->x(), height());
    }
    for (int i = 0; i <= slot::maxsymbol; i += 5) {
        const int f = i / 5;
        Imagear[std::size_t(i)]->move(0, f * kCell + 22);
        Imagear[std::size_t(i)]->setVisible(true);
    }

    position_ = QPointF(50, 0);
    print(QStringLiteral(" 3 any color combination 4 any color combination 5 any color combination"));
    print(QString(72, QLatin1Char('-')));

    const QString gap(20, QLatin1Char(' '));
    for (int i = 0; i <= slot::maxsymbol; i += 5) {
        const int f = i / 5, m = f + 1;
        position_ = QPointF(50, f * kCell + 42);
        print(amount(m, 30000) + gap + amount(m, 300000) + gap + amount(m, 3000000));
    }

    setFontPoints(16);
    colour_ = QColor(50, 50, 50);
    print(QStringLiteral(" Paid for three (3) or more of the same color in a row!"));
    print(QStringLiteral(" Too many combinations to show them all, it depends on"));
    print(QStringLiteral(" combination of geometric figures, combo's of figures"));
    print(QStringLiteral(" near the bottom of above list pays the most!!!!"));
}

void payout::setFontPoints(qreal points)
{
    pixelSize_ = pointsToPixels(points);
}

void payout::print(const QString& text, bool stayOnLine)
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

void payout::cls()
{
    printed_.clear();
    position_ = QPointF(0, 0);
    canvasStale_ = true;
    update();
}

const QImage& payout::canvas()
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

void payout::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawImage(QPointF(0, 0), canvas());
}
