#include "game/main_window.h"

#include "game/reel_surface.h"
#include "platform/caption_button.h"
#include "platform/random.h"
#include "platform/window_helpers.h"
#include "winners/closing_screen.h"
#include "winners/start_over.h"

#include <QAction>
#include <QCloseEvent>
#include <QIcon>
#include <QImageReader>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QScreen>
#include <QSvgWidget>

#include <cmath>

namespace {
constexpr int kClientWidth = 793;
constexpr int kClientHeight = 550;

QLabel* label(QWidget* parent, const QString& text, const QRect& place, Qt::Alignment align)
{
    auto* l = new QLabel(text, parent);
    l->setGeometry(place);
    l->setAlignment(align | Qt::AlignTop);
    l->setFont(win::courierBold(15.75));
    return l;
}

// A box of the design; the read-only ones only show results and take no Tab stop.
QLineEdit* textBox(QWidget* parent, const QString& name, const QString& text, const QRect& place, bool readOnly)
{
    auto* t = new QLineEdit(text, parent);
    t->setObjectName(name);
    t->setGeometry(place);
    t->setFont(win::courierBold(18));
    t->setReadOnly(readOnly);
    if (readOnly)
        t->setFocusPolicy(Qt::ClickFocus);
    QPalette p = t->palette();
    p.setColor(QPalette::Base, Qt::white);
    p.setColor(QPalette::Text, Qt::black);
    t->setPalette(p);
    return t;
}

CaptionButton* button(QWidget* parent, const QString& name, const QString& caption, double points)
{
    auto* b = new CaptionButton(caption, parent);
    b->setObjectName(name);
    b->setFont(win::courierBold(points));
    b->setAccessibleName(caption);
    return b;
}
}

MainWindow::MainWindow(Draw draw, QWidget* parent) : QMainWindow(parent), draw_(std::move(draw)), strobe_(this)
{
    setAttribute(Qt::WA_DeleteOnClose);
    dpr_ = screen() ? screen()->devicePixelRatio() : 1.0;
    if (!draw_) {
        rnd::seedFromTimeOfDay();
        draw_ = rnd::draw;
    }
    buildControls();
    win::centreOnScreen(this);
    if (!layOutButtons())
        return;
    if (!strip_.load(dpr_)) {
        startupError_ = QStringLiteral("0.emf");
        return;
    }
    reels_ = Reels(strip_.symbolCount());
    placeCells();
    showOpening();
}

MainWindow::~MainWindow() { stopEverything(); }

void MainWindow::buildControls()
{
    setWindowTitle(QStringLiteral("REELMOOR"));
    setWindowIcon(QIcon(QStringLiteral("reelmoor.svg")));
    setFont(win::courierBold(9));
    QPalette p = palette();
    p.setColor(QPalette::Window, win::kFace);
    p.setColor(QPalette::Button, win::kFace);
    setPalette(p);

    surface_ = new ReelSurface(payLines_, this);
    surface_->setFixedSize(kClientWidth, kClientHeight);
    setCentralWidget(surface_);
    buildMenu();

    label(surface_, QStringLiteral("credits paid"), {72, 376, 201, 41}, Qt::AlignHCenter);
    label(surface_, QStringLiteral("total credits"), {400, 376, 185, 41}, Qt::AlignRight);
    QLabel* betLabel = label(surface_, QStringLiteral("TOTAL BET"), {56, 456, 121, 33}, Qt::AlignRight);
    QPalette red = betLabel->palette();
    red.setColor(QPalette::WindowText, win::kRed);
    betLabel->setPalette(red);
    netLabel_ = label(surface_, QStringLiteral("NET GAIN"), {288, 456, 113, 33}, Qt::AlignRight);
    netLabel_->setObjectName(QStringLiteral("netLabel"));

    paidBox_ = textBox(surface_, QStringLiteral("paidBox"), QStringLiteral("0"), {8, 400, 313, 41}, true);
    bankBox_ = textBox(surface_, QStringLiteral("bankBox"), QString::fromStdString(Game::newGameBankText()),
                       {336, 400, 321, 41}, false);
    betBox_ = textBox(surface_, QStringLiteral("betBox"), QStringLiteral("1"), {8, 480, 209, 41}, true);
    QPalette redBox = betBox_->palette();
    redBox.setColor(QPalette::Base, win::kRed);
    betBox_->setPalette(redBox);
    netBox_ = textBox(surface_, QStringLiteral("netBox"), QStringLiteral("0"), {232, 480, 209, 41}, true);
    paidBox_->setAccessibleName(QStringLiteral("credits paid"));
    bankBox_->setAccessibleName(QStringLiteral("total credits"));
    betBox_->setAccessibleName(QStringLiteral("total bet"));
    netBox_->setAccessibleName(QStringLiteral("net result"));

    rightArrow_ = new QSvgWidget(QStringLiteral("arrow_right.svg"), surface_);
    rightArrow_->setObjectName(QStringLiteral("rightArrow"));
    rightArrow_->setGeometry(88, 104, 32, 32);
    leftArrow_ = new QSvgWidget(QStringLiteral("arrow_left.svg"), surface_);
    leftArrow_->setObjectName(QStringLiteral("leftArrow"));
    leftArrow_->setGeometry(680, 104, 33, 33);
    leftArrow_->hide();

    spinButton_ = button(surface_, QStringLiteral("spinButton"), QStringLiteral("SPIN"), 48);
    spinButton_->setGeometry(576, 240, 209, 137);
    spinButton_->setPicture(windowIcon(), QSize(32, 32));
    connect(spinButton_, &QPushButton::clicked, this, [this] { spin(); });
    directionsButton_ = button(surface_, QStringLiteral("directionsButton"),
                               QStringLiteral("win both directions <---------->"), 9);
    directionsButton_->setGeometry(672, 384, 113, 73);
    showDirections();
    connect(directionsButton_, &QPushButton::clicked, this, [this] { toggleDirections(); });
    betMaxButton_ = button(surface_, QStringLiteral("betMaxButton"), QStringLiteral("BET MAX"), 20.25);
    betMaxButton_->setGeometry(672, 464, 113, 73);
    connect(betMaxButton_, &QPushButton::clicked, this, [this] { betMax(); });

    for (std::size_t i = 0; i < reelStopTimers_.size(); ++i) {
        QTimer* t = reelStopTimers_[i] = new QTimer(this);
        t->setTimerType(Qt::PreciseTimer);
        t->setSingleShot(true);
        connect(t, &QTimer::timeout, this, [this, i] {
            reels_.stop(static_cast<int>(i));
            beep();
        });
    }
    passTimer_.setParent(this);
    audioRest_.setParent(this);
    passTimer_.setTimerType(Qt::PreciseTimer);
    connect(&passTimer_, &QTimer::timeout, this, [this] { pass(); });
    audioRest_.setSingleShot(true);
    connect(&audioRest_, &QTimer::timeout, this, [this] {
        if (!restAudioWhenSilent())
            audioRest_.start(500);
    });

    // The design has one size; the window keeps it.
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    adjustSize();
}

void MainWindow::buildMenu()
{
    fileMenu_ = menuBar()->addMenu(QStringLiteral("&file"));
    auto item = [this](const QString& caption, const char* keys, auto handler) {
        QAction* a = fileMenu_->addAction(caption);
        a->setShortcut(QKeySequence(QString::fromLatin1(keys)));
        connect(a, &QAction::triggered, this, handler);
        return a;
    };
    timesTenAction_ = item(QStringLiteral("credits times 10"), "Ctrl+A", [this] { timesTen(); });
    divideAction_ = item(QStringLiteral("credits divided by 10"), "Ctrl+B", [this] { divideByTen(); });
    divideAction_->setEnabled(false);
    sessionActions_ = {
        timesTenAction_,
        item(QStringLiteral("start table of winners over"), "Ctrl+C", [this] { startTableOfWinnersOver(this); }),
        item(QStringLiteral("NEW GAME"), "Ctrl+N", [this] { newGame(); }),
        item(QStringLiteral("EXIT"), "Ctrl+X", [this] { close(); }),
        item(QStringLiteral("DISPLAY PAY TABLE"), "Ctrl+P", [this] { showPayTable(); }),
    };
    // The bar keeps its height while the menu is hidden during a spin, so the
    // window does not jump.
    menuBar()->setFixedHeight(menuBar()->sizeHint().height());
}

// Five lines buttons in every other slot of a row of thirteen, ten credits
// buttons in two rows of five below them. The credits buttons' edges fall on
// fractional pixels; each takes the whole pixels up to the next. Keyboard
// order: the bank box, SPIN, the directions, BET MAX, the credits buttons,
// then the lines buttons.
bool MainWindow::layOutButtons()
{
    const double sw = surface_->width();
    const double sh = surface_->height();
    const int width = static_cast<int>(sw / 13);
    for (int i = 0; i < Game::kLineChoices; ++i) {
        const int lines = 2 * i + 1;
        const QString file = QString::number(lines) + QStringLiteral(".jpg");
        const QImage picture = QImageReader(file).read();
        if (picture.isNull()) {
            startupError_ = file;
            return false;
        }
        const QString caption = QString::number(lines) + QStringLiteral(" lines");
        CaptionButton* b = lineButtons_[static_cast<std::size_t>(i)] =
            button(surface_, QStringLiteral("lineButton%1").arg(i), caption, 8.25);
        b->setGeometry(2 * i * width, 232, width, 65);
        b->setFace(win::kFace);
        QSizeF fit = picture.size().toSizeF().scaled(QSizeF(width - 8, b->height() - 22), Qt::KeepAspectRatio);
        b->setPicture(QIcon(QPixmap::fromImage(picture)), fit.toSize());
        b->show();
        connect(b, &QPushButton::clicked, this, [this, i] { chooseLines(i); });
    }

    const double left = 0, top = 304;
    const double cw = (sw - left) / 8;
    const double ch = (sh - top) / 8;
    for (int i = 0; i < Game::kCreditChoices; ++i) {
        const int c = i % 5, r = i / 5;
        CaptionButton* b = creditButtons_[static_cast<std::size_t>(i)] =
            button(surface_, QStringLiteral("creditButton%1").arg(i), QString(), 8);
        const int x0 = static_cast<int>(std::lround(left + c * cw));
        const int x1 = static_cast<int>(std::lround(left + (c + 1) * cw));
        const int y0 = static_cast<int>(std::lround(top + r * ch));
        const int y1 = static_cast<int>(std::lround(top + (r + 1) * ch));
        b->setGeometry(x0, y0, x1 - x0, y1 - y0);
        b->setFace(win::kFace);
        b->show();
        connect(b, &QPushButton::clicked, this, [this, i] { chooseCredits(i); });
    }
    showCreditCaptions();

    QWidget* previous = bankBox_;
    for (QWidget* next : std::initializer_list<QWidget*>{spinButton_, directionsButton_, betMaxButton_}) {
        setTabOrder(previous, next);
        previous = next;
    }
    for (QWidget* next : creditButtons_) {
        setTabOrder(previous, next);
        previous = next;
    }
    for (QWidget* next : lineButtons_) {
        setTabOrder(previous, next);
        previous = next;
    }
    return true;
}

// The five columns centred on 2/8 .. 6/8 of the width; the rows touch.
void MainWindow::placeCells()
{
    const double sw = surface_->width();
    const double size = SymbolStrip::kSymbolSize;
    for (int i = 0; i < kCells; ++i) {
        const CellPlace at = placeOf(i);
        surface_->placeCell(i, QRectF((at.column + 2) * sw / 8 - size / 2, at.row * size + 5, size, size));
    }
    surface_->paintReelBackground(3 * size + 10, 3 * size + 5);
}

// The first playable state: 2500 credits, one line and one credit per line
// chosen, line 1 drawn, fifteen random symbols at rest, SPIN focused.
void MainWindow::showOpening()
{
    showLineChoice();
    showCreditChoice();
    show();
    drawPayLines();
    spinButton_->setFocus();
    reels_.rest(draw_);
    showCells();
}

void MainWindow::play(const char* file, int count)
{
    player_.setPlayCount(count);
    player_.setFileName(file);
    audioRest_.start(3000);
}

void MainWindow::beep()
{
    ++beeps_;
    systemBeep();
    audioRest_.start(3000);
}

// However the main window goes — EXIT or its close control, even in the
// middle of a spin or a flash — the closing screen comes up, once.
void MainWindow::closeEvent(QCloseEvent* event)
{
    stopEverything();
    if (!closingScreenShown_) {
        closingScreenShown_ = true;
        auto* screen = new ClosingScreen(game_.bank());
        screen->setAttribute(Qt::WA_DeleteOnClose);
        screen->show();
    }
    event->accept();
}

void MainWindow::stopEverything()
{
    passTimer_.stop();
    strobe_.stop();
    for (QTimer* t : reelStopTimers_)
        if (t)
            t->stop();
    player_.setFileName("");
    audioRest_.stop();
}
