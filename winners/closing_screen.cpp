// SPDX-License-Identifier: GPL-2.0-or-later
#include "winners/closing_screen.h"

#include "platform/window_helpers.h"

#include <QCloseEvent>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr qreal px(int twips) { return win::twips(twips); }

constexpr int kClientWidth = 6645;
constexpr int kClientHeight = 4500;
constexpr int kRowWidth = 6615;
constexpr int kRowHeight = 405;
constexpr int kPrintGap = 5;  // between a row's right edge and the printed credits
constexpr int kCountdownMs = 2500;

QFont deckFont() { return win::courierBold(14.25); }

QString toQString(const std::u32string& text)
{
    return QString::fromUcs4(text.data(), qsizetype(text.size()));
}

}  // namespace

ClosingScreen::ClosingScreen(Currency bank, Services services, QWidget* parent)
    : QWidget(parent), bank_(bank), services_(std::move(services))
{
    setWindowTitle(QStringLiteral("program by Orrin Vale"));
    setFont(deckFont());
    setFixedSize(qRound(px(kClientWidth)), qRound(px(kClientHeight)));

    rows_[0] = new QLineEdit(this);
    rows_[0]->setGeometry(0, 0, qRound(px(kRowWidth)), qRound(px(kRowHeight)));
    rows_[0]->installEventFilter(this);

    countdown_.setInterval(0);  // idle until activation sets it
    countdown_.setSingleShot(true);
    connect(&countdown_, &QTimer::timeout, this, [this] { finish(true); });
}

void ClosingScreen::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // The only window left: it is activated once.
    if (!activated_) {
        activated_ = true;
        fillTable();
    }
}

void ClosingScreen::fillTable()
{
    win::centreOnScreen(this);

    const winners::Opened file = winners::open();

    const QRect design = rows_[0]->geometry();
    for (int k = 0; k < winners::kRecords; ++k) {
        if (k > 0) {
            rows_[std::size_t(k)] = new QLineEdit(this);
            rows_[std::size_t(k)]->installEventFilter(this);
        }
        rows_[std::size_t(k)]->setGeometry(0, k * design.height(), design.width(), design.height());
        rows_[std::size_t(k)]->setReadOnly(true);
        rows_[std::size_t(k)]->setVisible(true);
    }

    const Currency bank = bank_;
    winners_ = file.recordCount == 0 ? winners::defaultTable() : file.table;
    bool autoclose = true;
    for (int k = 0; k < winners::kRecords; ++k) {
        QLineEdit* row = rows_[std::size_t(k)];
        if (winners::beats(bank, winners_[k].credits)) {
            // The player's row: the beaten entry leaves the table.
            winners_[k].credits = winners::creditsFromBank(bank);
            row->setReadOnly(false);
            row->setFocus();
            if (file.recordCount != 0) {
                // An empty name column over the player's credits.
                row->setText(QString(22, QLatin1Char(' ')) + QString::number(winners_[k].credits));
                row->setCursorPosition(0);
            }
            printCredits(k);
            autoclose = false;
            break;
        }
        row->setText(toQString(winners::rowText(winners_[k])));
        row->setCursorPosition(0);
        printCredits(k);
    }

    if (autoclose) {
        countdown_.setInterval(kCountdownMs);
        countdown_.start();
    }
}

void ClosingScreen::printCredits(int k)
{
    printed_ = QString::fromStdString(bank_.printed());
    printedAt_.push_back(QPointF(px(kRowWidth + kPrintGap), rows_[std::size_t(k)]->y()));
    update();
}

void ClosingScreen::paintEvent(QPaintEvent*)
{
    if (printedAt_.empty()) return;
    QPainter painter(this);
    painter.setFont(font());
    painter.setPen(Qt::black);
    const qreal ascent = QFontMetricsF(font()).ascent();
    for (const QPointF& at : printedAt_) painter.drawText(at + QPointF(0, ascent), printed_);
}

bool ClosingScreen::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            for (int k = 0; k < winners::kRecords; ++k) {
                if (rows_[std::size_t(k)] == watched) {
                    storeName(k);
                    return true;  // the key is consumed
                }
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

void ClosingScreen::storeName(int k)
{
    if (ended_) return;
    // Composed characters count as one, as the player sees them.
    const QString text = rows_[std::size_t(k)]->text().normalized(QString::NormalizationForm_C);
    const QList<uint> chars = text.toUcs4();
    winners_[k].name = winners::nameFromText(std::u32string(chars.begin(), chars.end()));
    finish(true);
}

void ClosingScreen::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        finish(false);
    QWidget::mouseReleaseEvent(event);
}

void ClosingScreen::closeEvent(QCloseEvent* event)
{
    // Closing the window by its frame ends the program without storing.
    finish(false);
    event->accept();
}

void ClosingScreen::finish(bool write)
{
    if (ended_) return;
    ended_ = true;
    countdown_.stop();
    bool stored = false;
    if (write) {
        const winners::Saved saved = winners::save(winners_, winners::kFileName, services_.write);
        stored = saved.ok;
        if (!saved.ok) {
            const QString text = tr("The table of winners could not be stored in %1.\n\n%2")
                                     .arg(QLatin1String(winners::kFileName), QString::fromLocal8Bit(saved.error.c_str()));
            services_.message(this, MessageKind::Warning, QStringLiteral("reelmoor"), text);
        }
    }
    emit programEnded(stored);
    services_.endProgram(stored);
}
