// The main window as designed: every control at its place with its text,
// colours and font, and the part of the layout start-up works out.
#include "game/reel_surface.h"
#include "game/slot_machine.h"
#include "platform/caption_button.h"
#include "platform/window_helpers.h"

#include <QAction>
#include <QFile>
#include <QIcon>
#include <QImageReader>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QSvgWidget>
#include <QTimer>

#include <cmath>

namespace {
constexpr int kClientWidth = 793;
constexpr int kClientHeight = 550;
const QColor kFace(224, 224, 224);
const QColor kYellow(255, 255, 0);

QLabel* label(QWidget* parent, const QString& text, const QRect& place, Qt::Alignment align, double points)
{
    auto* l = new QLabel(text, parent);
    l->setGeometry(place);
    l->setAlignment(align | Qt::AlignTop);
    l->setFont(win::courierBold(points));
    return l;
}

QLineEdit* textBox(QWidget* parent, const QString& text, const QRect& place, bool readOnly)
{
    auto* t = new QLineEdit(text, parent);
    t->setGeometry(place);
    t->setFont(win::courierBold(18));
    t->setReadOnly(readOnly);
    QPalette p = t->palette();
    p.setColor(QPalette::Base, Qt::white);
    p.setColor(QPalette::Text, Qt::black);
    t->setPalette(p);
    return t;
}

QSvgWidget* arrow(QWidget* parent, const QString& file, const QRect& place)
{
    auto* a = new QSvgWidget(file, parent);
    a->setGeometry(place);
    return a;
}
}

void slot_machine::buildDesign()
{
    setWindowTitle(QStringLiteral("REELMOOR"));
    setWindowIcon(QIcon(QStringLiteral("reelmoor.svg")));
    setFont(win::courierBold(9));
    QPalette p = palette();
    p.setColor(QPalette::Window, kFace);
    p.setColor(QPalette::Button, kFace);
    setPalette(p);

    surface = new ReelSurface(Linem, this);
    surface->setFixedSize(kClientWidth, kClientHeight);
    setCentralWidget(surface);
    buildMenu();

    Label5 = label(surface, QStringLiteral("credits paid"), {72, 376, 201, 41}, Qt::AlignHCenter, 15.75);
    Label3 = label(surface, QStringLiteral("total credits"), {400, 376, 185, 41}, Qt::AlignRight, 15.75);
    Label2 = label(surface, QStringLiteral("TOTAL BET"), {56, 456, 121, 33}, Qt::AlignRight, 15.75);
    QPalette red = Label2->palette();
    red.setColor(QPalette::WindowText, QColor(255, 0, 0));
    Label2->setPalette(red);
    Label1 = label(surface, QStringLiteral("NET GAIN"), {288, 456, 113, 33}, Qt::AlignRight, 15.75);

    Text1 = textBox(surface, QString(), {8, 400, 313, 41}, true);
    Text3 = textBox(surface, QString(), {336, 400, 321, 41}, false);
    Text2 = textBox(surface, QStringLiteral("1"), {8, 480, 209, 41}, true);
    QPalette redBox = Text2->palette();
    redBox.setColor(QPalette::Base, QColor(255, 0, 0));
    Text2->setPalette(redBox);
    Text5 = textBox(surface, QStringLiteral("0"), {232, 480, 209, 41}, true);
    Text1->setAccessibleName(QStringLiteral("credits paid"));
    Text3->setAccessibleName(QStringLiteral("total credits"));
    Text2->setAccessibleName(QStringLiteral("total bet"));
    Text5->setAccessibleName(QStringLiteral("net result"));

    Picture2 = arrow(surface, QStringLiteral("arrow_right.svg"), {88, 104, 32, 32});
    Picture3 = arrow(surface, QStringLiteral("arrow_left.svg"), {680, 104, 33, 33});
    Picture3->hide();

    Command1 = new CaptionButton(QStringLiteral("SPIN"), surface);
    Command1->setGeometry(576, 240, 209, 137);
    Command1->setFont(win::courierBold(48));
    Command1->setPicture(windowIcon(), QSize(32, 32));
    Command1->setAccessibleName(QStringLiteral("SPIN"));
    connect(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });

    Command3 = new CaptionButton(QStringLiteral("win both directions <---------->"), surface);
    Command3->setGeometry(672, 384, 113, 73);
    Command3->setFont(win::courierBold(9));
    // A screen reader says the caption's words, not its drawing of arrows.
    Command3->setAccessibleName(QStringLiteral("win both directions"));
    connect(Command3, &QPushButton::clicked, this, [this] { Command3_Click(); });

    Command6 = new CaptionButton(QStringLiteral("BET MAX"), surface);
    Command6->setGeometry(672, 464, 113, 73);
    Command6->setFont(win::courierBold(20.25));
    Command6->setAccessibleName(QStringLiteral("BET MAX"));
    connect(Command6, &QPushButton::clicked, this, [this] { Command6_Click(); });

    // The first button of each set comes from the design; start-up makes the rest.
    Commandlines[1] = new CaptionButton(QStringLiteral("1 lines"), surface);
    Commandlines[1]->setGeometry(0, 232, 61, 65);
    Commandlines[1]->setFont(win::courierBold(8.25));
    Commandcre[1] = new CaptionButton(QStringLiteral("1 credits per line"), surface);
    Commandcre[1]->setGeometry(0, 304, 61, 30);
    Commandcre[1]->setFont(win::courierBold(8));

    for (int i = 1; i <= 15; ++i) {
        Timera[i] = new QTimer(this);
        Timera[i]->setTimerType(Qt::PreciseTimer);
        connect(Timera[i], &QTimer::timeout, this, [this, i] { Timera_Timer(i); });
    }
    passTimer_ = new QTimer(this);
    passTimer_->setTimerType(Qt::PreciseTimer);
    connect(passTimer_, &QTimer::timeout, this, [this] { pass(); });
    strobeTimer_ = new QTimer(this);
    strobeTimer_->setSingleShot(true);
    strobeTimer_->setTimerType(Qt::PreciseTimer);
    connect(strobeTimer_, &QTimer::timeout, this, [this] { strobeStep(); });

    audioRest_ = new QTimer(this);
    audioRest_->setSingleShot(true);
    audioRest_->setInterval(3000);
    connect(audioRest_, &QTimer::timeout, this, [this] {
        if (!restAudioWhenSilent())
            audioRest_->start(500);
    });

    Picture1 = QImage(92, 138, QImage::Format_RGB32);
    Picture1.fill(Qt::white);
    // The design has one size; the window keeps it.
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    adjustSize();
}

void slot_machine::buildMenu()
{
    filer = menuBar()->addMenu(QStringLiteral("&file"));
    auto item = [this](const QString& caption, const char* keys, void (slot_machine::*handler)()) {
        QAction* a = filer->addAction(caption);
        a->setShortcut(QKeySequence(QString::fromLatin1(keys)));
        connect(a, &QAction::triggered, this, [this, handler] { (this->*handler)(); });
        return a;
    };
    times = item(QStringLiteral("credits times 10"), "Ctrl+A", &slot_machine::times_Click);
    divides = item(QStringLiteral("credits divided by 10"), "Ctrl+B", &slot_machine::divides_Click);
    divides->setEnabled(false);
    starter = item(QStringLiteral("start table of winners over"), "Ctrl+C", &slot_machine::starter_Click);
    newor = item(QStringLiteral("NEW GAME"), "Ctrl+N", &slot_machine::newor_Click);
    exitor = item(QStringLiteral("EXIT"), "Ctrl+X", &slot_machine::exitor_Click);
    displayer = item(QStringLiteral("DISPLAY PAY TABLE"), "Ctrl+P", &slot_machine::displayer_Click);
    // The bar keeps its height while the menu is hidden during a spin, so the
    // window does not jump.
    menuBar()->setFixedHeight(menuBar()->sizeHint().height());
}

void slot_machine::layOutButtons()
{
    const double sw = surface->width();
    const double sh = surface->height();

    // Five line buttons in every other slot of a row of thirteen.
    const int width = static_cast<int>(sw / 13);
    const int top = Commandlines[1]->y();
    for (int i = 1; i <= 5; ++i) {
        const int x = 2 * i - 1;
        const QString file = QString::number(x) + QStringLiteral(".jpg");
        QImageReader reader(file);
        const QImage picture = reader.read();
        if (picture.isNull()) {
            startupError_ = file;
            return;
        }
        if (i > 1) {
            Commandlines[i] = new CaptionButton(QString(), surface);
            Commandlines[i]->setFont(Commandlines[1]->font());
        }
        CaptionButton* b = Commandlines[i];
        b->setGeometry((x - 1) * width, top, width, Commandlines[1]->height());
        b->setFace(palette().color(QPalette::Window));
        QSizeF fit = picture.size().toSizeF().scaled(QSizeF(width - 8, b->height() - 22), Qt::KeepAspectRatio);
        b->setPicture(QIcon(QPixmap::fromImage(picture)), fit.toSize());
        b->setText(QString::number(x) + QStringLiteral(" lines"));
        b->setAccessibleName(QString::number(x) + QStringLiteral(" lines"));
        b->show();
        connect(b, &QPushButton::clicked, this, [this, i] { Commandlines_Click(i); });
    }

    // Ten credits-per-line buttons in two rows of five. Their edges fall on
    // fractional pixels; each button takes the whole pixels up to the next.
    const double left = Commandcre[1]->x();
    const double ctop = Commandcre[1]->y();
    const double cw = (sw - left) / 8;
    const double ch = (sh - ctop) / 8;
    for (int i = 1; i <= 10; ++i) {
        const int c = (i - 1) % 5;
        const int r = (i - 1) / 5;
        if (i > 1) {
            Commandcre[i] = new CaptionButton(QString(), surface);
            Commandcre[i]->setFont(Commandcre[1]->font());
        }
        CaptionButton* b = Commandcre[i];
        const int x0 = static_cast<int>(std::lround(left + c * cw));
        const int x1 = static_cast<int>(std::lround(left + (c + 1) * cw));
        const int y0 = static_cast<int>(std::lround(ctop + r * ch));
        const int y1 = static_cast<int>(std::lround(ctop + (r + 1) * ch));
        b->setGeometry(x0, y0, x1 - x0, y1 - y0);
        b->setText(QString::number(i) + QStringLiteral(" credits per line"));
        b->setAccessibleName(b->text());
        b->setFace(palette().color(QPalette::Window));
        b->show();
        connect(b, &QPushButton::clicked, this, [this, i] { Commandcre_Click(i); });
    }
}

void slot_machine::placeCells()
{
    const double sw = surface->width();
    const double size = kSymbolSize;
    for (int i = 1; i <= 15; ++i) {
        const int c = (i - 1) % 5;
        const int r = (i - 1) / 5;
        surface->placeCell(i, QRectF((c + 2) * sw / 8 - size / 2, r * size + 5, size, size));
    }
}

void slot_machine::paintReelBackground()
{
    const double cellHeight = surface->cellRect(1).height();
    surface->paintReelBackground(3 * cellHeight + 10, 3 * cellHeight + 5);
}
