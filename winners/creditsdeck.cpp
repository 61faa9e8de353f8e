#include "winners/creditsdeck.h"

#include "platform/window_helpers.h"

#include "game/slot.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

namespace {

// The window is designed in twips, 15 of them to a pixel.
constexpr int kTwipsPerPixel = 15;
constexpr qreal px(int twips) { return qreal(twips) / kTwipsPerPixel; }

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

creditsdeck::Hooks& creditsdeck::hooks()
{
    static Hooks h{
        [](bool) { QCoreApplication::quit(); },
        [](QWidget* parent, const QString& text) {
            QMessageBox::warning(parent, QStringLiteral("reelmoor"), text);
        },
        {},
    };
    return h;
}

creditsdeck::creditsdeck(QWidget* parent) : QWidget(parent)
{
    setWindowTitle(QStringLiteral("program by Orrin Vale"));
    setFont(deckFont());
    setFixedSize(qRound(px(kClientWidth)), qRound(px(kClientHeight)));

    Textdata[0] = new QLineEdit(this);
    Textdata[0]->setGeometry(0, 0, qRound(px(kRowWidth)), qRound(px(kRowHeight)));
    Textdata[0]->installEventFilter(this);

    Timer1.setInterval(0);  // idle until activation sets it
    Timer1.setSingleShot(true);
    connect(&Timer1, &QTimer::timeout, this, [this] { Timer1_Timer(); });
}

void creditsdeck::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // The only window left: it is activated once.
    if (!activated_) {
        activated_ = true;
        Form_Activate();
    }
}

void creditsdeck::Form_Activate()
{
    if (QScreen* s = screen()) {
        const QRect area = s->geometry();
        const QSize outer = frameGeometry().size();
        move(area.x() + (area.width() - outer.width()) / 2,
             area.y() + (area.height() - outer.height()) / 2);
    }

    const winners::Opened file = winners::open();

    const QRect design = Textdata[0]->geometry();
    for (int k = 0; k < winners::kRecords; ++k) {
        if (k > 0) {
            Textdata[k] = new QLineEdit(this);
            Textdata[k]->installEventFilter(this);
        }
        Textdata[k]->setGeometry(0, k * design.height(), design.width(), design.height());
        Textdata[k]->setReadOnly(true);
        Textdata[k]->setVisible(true);
    }

    const Currency bank = slot::bank;
    winners_ = file.recordCount == 0 ? winners::defaultTable() : file.table;
    bool autoclose = true;
    for (int k = 0; k < winners::kRecords; ++k) {
        QLineEdit* row = Textdata[k];
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
        Timer1.setInterval(kCountdownMs);
        Timer1.start();
    }
}

void creditsdeck::printCredits(int k)
{
    printed_ = QString::fromStdString(slot::bank.printed());
    printedAt_.push_back(QPointF(px(kRowWidth + kPrintGap), Textdata[k]->y()));
    update();
}

void creditsdeck::paintEvent(QPaintEvent*)
{
    if (printedAt_.empty()) return;
    QPainter painter(this);
    painter.setFont(font());
    painter.setPen(Qt::black);
    const qreal ascent = QFontMetricsF(font()).ascent();
    for (const QPointF& at : printedAt_) painter.drawText(at + QPointF(0, ascent), printed_);
}

bool creditsdeck::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            for (int k = 0; k < winners::kRecords; ++k) {
                if (Textdata[k] == watched) {
                    Textdata_KeyPress(k);
                    return true;  // the key is consumed
                }
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

void creditsdeck::Textdata_KeyPress(int k)
{
    if (ended_) return;
    // Composed characters count as one, as the player sees them.
    const QString text = Textdata[k]->text().normalized(QString::NormalizationForm_C);
    const QList<uint> chars = text.toUcs4();
    winners_[k].name = winners::nameFromText(std::u32string(chars.begin(), chars.end()));
    finish(true);
}

void creditsdeck::Timer1_Timer()
{
    finish(true);
}

void creditsdeck::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Form_Click();
    QWidget::mouseReleaseEvent(event);
}

void creditsdeck::Form_Click()
{
    finish(false);
}

void creditsdeck::closeEvent(QCloseEvent* event)
{
    // Closing the window by its frame ends the program without storing.
    finish(false);
    event->accept();
}

void creditsdeck::finish(bool write)
{
    if (ended_) return;
    ended_ = true;
    Timer1.stop();
    bool stored = false;
    if (write) {
        const winners::Saved saved = winners::save(winners_, winners::kFileName, hooks().writer);
        stored = saved.ok;
        if (!saved.ok && hooks().tellPlayer) {
            hooks().tellPlayer(this, tr("The table of winners could not be stored in %1.\n\n%2")
                                         .arg(QLatin1String(winners::kFileName),
                                              QString::fromLocal8Bit(saved.error.c_str())));
        }
    }
    emit programEnded(stored);
    if (hooks().endProgram) hooks().endProgram(stored);
}
