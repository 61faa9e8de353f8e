// SPDX-License-Identifier: GPL-2.0-or-later
// The main window as the player meets it: its designed places and pixels,
// the keyboard order, a whole keyboard spin to a jackpot with its sounds, the
// betting controls and the menu, and what it starts up with.
#include "game/game_start.h"
#include "game/reel_surface.h"
#include "platform/caption_button.h"
#include "platform/window_helpers.h"
#include "screens/splash.h"
#include "tests/support/game_fixture.h"
#include "winners/closing_screen.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSvgWidget>
#include <QTest>

using fixture::child;

namespace {
QAction* action(const MainWindow& w, const QString& caption)
{
    for (QAction* a : w.findChildren<QAction*>())
        if (a->text() == caption)
            return a;
    return nullptr;
}

QString text(const MainWindow& w, const char* box) { return child<QLineEdit>(w, box)->text(); }
CaptionButton* lineButton(const MainWindow& w, int i) { return child<CaptionButton>(w, QStringLiteral("lineButton%1").arg(i)); }
CaptionButton* creditButton(const MainWindow& w, int i) { return child<CaptionButton>(w, QStringLiteral("creditButton%1").arg(i)); }

// Cell i as a screen reader finds it on the reel surface.
QAccessibleInterface* cell(const MainWindow& w, int i)
{
    return QAccessible::queryAccessibleInterface(child<ReelSurface>(w, {}))->child(i);
}

int shownClosingScreens()
{
    int n = 0;
    for (QWidget* top : QApplication::topLevelWidgets())
        n += qobject_cast<ClosingScreen*>(top) && top->isVisible() ? 1 : 0;
    return n;
}
}

class MainWindowTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QVERIFY(stockFolder("all"));
    }
    // Windows a case left open (a closing screen, a window it let go) go
    // before the next case.
    void cleanup()
    {
        for (QWidget* top : QApplication::topLevelWidgets())
            top->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void opensAsDesigned()
    {
        fixture::Fakes fakes;
        auto w = fixture::open("all", fakes.services());
        QVERIFY(w->startupError().isEmpty());
        // Each random source is seeded afresh from the clock.
        QVERIFY(w->reels().symbols() != fixture::open("all", fakes.services())->reels().symbols());
        QVERIFY(w->isVisible());
        QCOMPARE(w->windowTitle(), QString("REELMOOR"));
        const std::pair<const char*, QRect> places[] = {
            {"spinButton", {576, 240, 209, 137}}, {"directionsButton", {672, 384, 113, 73}},
            {"betMaxButton", {672, 464, 113, 73}}, {"paidBox", {8, 400, 313, 41}},
            {"bankBox", {336, 400, 321, 41}},     {"betBox", {8, 480, 209, 41}},
            {"netBox", {232, 480, 209, 41}},      {"lineButton2", {244, 232, 61, 65}},
            {"lineButton4", {488, 232, 61, 65}},  {"creditButton0", {0, 304, 99, 31}},
            {"creditButton4", {397, 304, 99, 31}}, {"creditButton9", {397, 335, 99, 31}},
        };
        for (const auto& [name, place] : places)
            QCOMPARE(child(*w, name)->geometry(), place);
        // The result boxes only show; the bank box takes what the player types.
        for (const char* box : {"paidBox", "betBox", "netBox"})
            QVERIFY(child<QLineEdit>(*w, box)->isReadOnly() && !child<QLineEdit>(*w, "bankBox")->isReadOnly());
        QCOMPARE(child(*w, "bankBox")->font(), win::courierBold(18));
        QCOMPARE(text(*w, "paidBox"), QString("0"));
        QCOMPARE(text(*w, "bankBox"), QString("2500"));
        QCOMPARE(text(*w, "betBox"), QString("1"));
        QCOMPARE(lineButton(*w, 2)->text(), QString("5 lines"));
        QCOMPARE(creditButton(*w, 6)->text(), QString("7 credits per line"));
        QCOMPARE(lineButton(*w, 0)->face(), QColor(255, 255, 0));
        QCOMPARE(creditButton(*w, 0)->face(), QColor(255, 255, 0));
        QCOMPARE(creditButton(*w, 9)->face(), QColor(224, 224, 224));
        QCOMPARE(lineButton(*w, 0)->grab().toImage().pixelColor(2, 30).hue(), 60);  // yellow on the screen too
        QCOMPARE(w->focusWidget(), child(*w, "spinButton"));
        QVERIFY(!action(*w, "credits divided by 10")->isEnabled());
        QCOMPARE(action(*w, "NEW GAME")->shortcut(), QKeySequence("Ctrl+N"));

        // The cells on their strips, the black band, and line 1 in navy over the middle row.
        const double lefts[5] = {161.75, 260.875, 360, 459.125, 558.25};
        for (int cell = 0; cell < 15; ++cell)
            QCOMPARE(child<ReelSurface>(*w, {})->cellRect(cell), QRectF(lefts[cell % 5], 5 + 73 * (cell / 5), 73, 73));
        const QImage grab = w->centralWidget()->grab().toImage();
        QCOMPARE(grab.pixelColor(20, 228), QColor(Qt::black));
        QCOMPARE(grab.pixelColor(20, 229), QColor(224, 224, 224));
        QCOMPARE(grab.pixelColor(158, 223), QColor(Qt::white));
        QCOMPARE(grab.pixelColor(634, 223), QColor(Qt::white));  // the last column's strip
        QCOMPARE(grab.pixelColor(158, 225), QColor(Qt::black));
        QCOMPARE(grab.pixelColor(396, 114), QColor(0, 0, 128));
        QCOMPARE(grab.pixelColor(152, 114), QColor(0, 0, 128));  // from 50 pixels left of the first column
        QCOMPARE(grab.pixelColor(140, 114), QColor(Qt::black));

        // Keyboard order: the bank box, SPIN, directions, BET MAX, the ten
        // credits buttons, then the five lines buttons; result boxes take no stop.
        QStringList order;
        QWidget* at = child(*w, "bankBox");
        do {
            if (at->focusPolicy() & Qt::TabFocus)
                order << at->objectName();
            at = at->nextInFocusChain();
        } while (at != child(*w, "bankBox"));
        QStringList expected = {"bankBox", "spinButton", "directionsButton", "betMaxButton"};
        for (int i = 0; i < 10; ++i)
            expected << QStringLiteral("creditButton%1").arg(i);
        for (int i = 0; i < 5; ++i)
            expected << QStringLiteral("lineButton%1").arg(i);
        QCOMPARE(order, expected);
    }

    // Five of the top symbol across the middle row: a jackpot. The second
    // strobe runs over all fifteen cells after the first over the five.
    void aKeyboardSpinToAJackpot()
    {
        fixture::Script script;
        for (int i = 0; i < 15; ++i)
            script.addSymbol(i);  // the opening grid
        script.add(0.5f, 15);     // stopping times
        script.add(0.75f, 15);    // every reel rolls forwards
        for (int cell = 0; cell < 15; ++cell)
            script.addSymbol(cell / 5 == 1 ? 49 : 6 * (cell % 5));
        fixture::Fakes fakes;
        auto w = fixture::open("all", fakes.services(script.draw()));
        QCOMPARE(w->reels().picture(14), 12 * 14);
        auto* spin = child<CaptionButton>(*w, "spinButton");

        QTest::keyClick(spin, Qt::Key_Return);
        QVERIFY(!spin->isEnabled());
        QVERIFY(!lineButton(*w, 0)->isEnabled() && !creditButton(*w, 9)->isEnabled());
        QVERIFY(!action(*w, "EXIT")->isEnabled());
        QCOMPARE(fakes->playing, std::string("clink.wav"));
        QCOMPARE(fakes->playCount, 100000);
        QVERIFY(fixture::waitSettled(*w));

        // The resting pictures are drawn for this screen's device pixels.
        for (int cell = 0; cell < 15; ++cell)
            QCOMPARE(child<ReelSurface>(*w, {})->cellPicture(cell)->devicePixelRatio(), w->devicePixelRatioF());
        QCOMPARE(w->game().symbols()[7], 49);
        QCOMPARE(w->game().symbols()[3], 18);
        QCOMPARE(cell(*w, 7)->text(QAccessible::Name), QString("purple crown"));
        QCOMPARE(cell(*w, 3)->text(QAccessible::Name), QString("gold diamond"));
        QCOMPARE(fakes->beeps, 15 + 10 * 5 + 150);
        QCOMPARE(text(*w, "paidBox"), QString("20551"));
        QCOMPARE(text(*w, "bankBox"), QString("23050"));
        QCOMPARE(text(*w, "netBox"), QString("20550"));
        QCOMPARE(child<QLabel>(*w, "netLabel")->text(), QString("NET GAIN"));
        QCOMPARE(w->game().bank(), Currency::fromWhole(23050));
        QCOMPARE(fakes->playing, std::string());
        QCOMPARE(fakes->played, QStringList{"clink.wav"});
        QVERIFY(spin->isEnabled() && action(*w, "EXIT")->isEnabled());
        QVERIFY(!action(*w, "credits divided by 10")->isEnabled());  // still no way down from one credit
        QCOMPARE(w->focusWidget(), spin);
        QVERIFY(!child(*w, "rightArrow")->isHidden());  // blinked back as it was
        QVERIFY(child(*w, "leftArrow")->isHidden());
    }

    void theControlsSetTheBet()
    {
        fixture::Fakes fakes;
        auto w = fixture::open("all", fakes.services());
        QTest::mouseClick(lineButton(*w, 3), Qt::LeftButton);
        QCOMPARE(fakes->playing, std::string("chimes.wav"));
        QCOMPARE(lineButton(*w, 3)->face(), QColor(255, 255, 0));
        QCOMPARE(lineButton(*w, 0)->face(), QColor(224, 224, 224));
        QTest::mouseClick(creditButton(*w, 2), Qt::LeftButton);
        QCOMPARE(fakes->playing, std::string("clunk.wav"));
        QCOMPARE(fakes->playCount, 3);
        QCOMPARE(text(*w, "betBox"), QString("21"));
        auto* directions = child<CaptionButton>(*w, "directionsButton");
        QTest::mouseClick(directions, Qt::LeftButton);
        QCOMPARE(fakes->playing, std::string("jackpot.wav"));
        QCOMPARE(text(*w, "betBox"), QString("42"));
        QCOMPARE(directions->text(), QString("win one direction ------->"));
        QCOMPARE(directions->face(), QColor(255, 255, 0));
        QVERIFY(!child(*w, "leftArrow")->isHidden());
        QCOMPARE(w->focusWidget(), child(*w, "spinButton"));

        action(*w, "credits times 10")->trigger();
        QCOMPARE(text(*w, "betBox"), QString("420"));
        QCOMPARE(creditButton(*w, 0)->text(), QString("10 credits per line"));
        QCOMPARE(creditButton(*w, 0)->accessibleName(), QString("10 credits per line"));
        QVERIFY(action(*w, "credits divided by 10")->isEnabled());
        action(*w, "credits divided by 10")->trigger();
        QVERIFY(!action(*w, "credits divided by 10")->isEnabled());
        QCOMPARE(text(*w, "betBox"), QString("42"));

        // NEW GAME puts 2500 in the bank box and nothing else; the next spin settles it.
        child<QLineEdit>(*w, "bankBox")->setText("17");
        action(*w, "NEW GAME")->trigger();
        QCOMPARE(text(*w, "bankBox"), QString("2500"));
        QCOMPARE(text(*w, "betBox"), QString("42"));
        QCOMPARE(w->game().bank(), Currency());

        QTest::mouseClick(child(*w, "betMaxButton"), Qt::LeftButton);
        QCOMPARE(text(*w, "betBox"), QString("180"));
        QCOMPARE(lineButton(*w, 4)->face(), QColor(255, 255, 0));
        QCOMPARE(creditButton(*w, 9)->face(), QColor(255, 255, 0));
        // Both ways were on already: the credits' and the lines' sounds, and the spin's.
        QCOMPARE(fakes->played.mid(3), (QStringList{"clunk.wav", "chimes.wav", "clink.wav"}));
        QVERIFY(!child(*w, "spinButton")->isEnabled());
        QVERIFY(fixture::waitSettled(*w));
        QTest::mouseClick(child(*w, "spinButton"), Qt::LeftButton);  // and the next spin
        QVERIFY(!child(*w, "spinButton")->isEnabled());
        QVERIFY(fixture::waitSettled(*w));
    }

    // Keys and clicks while the reels roll change nothing; closing the
    // window then brings up the closing screen once, with the bank as settled.
    void aSpinIgnoresThePlayerAndClosingEndsIt()
    {
        fixture::Fakes fakes;
        Services services = fakes.services();
        services.pacing.timerScale = 1;  // the reels roll two seconds at least
        auto w = fixture::open("all", services);
        const QSize size = w->size();
        QTest::keyClick(child(*w, "spinButton"), Qt::Key_Space);
        QTest::keyClick(w.get(), Qt::Key_A, Qt::ControlModifier);
        QTest::mouseClick(lineButton(*w, 2), Qt::LeftButton);
        QTest::mouseClick(creditButton(*w, 4), Qt::LeftButton);
        QTest::mouseClick(child(*w, "betMaxButton"), Qt::LeftButton);
        QTest::keyClick(child(*w, "spinButton"), Qt::Key_Return);
        QTest::qWait(50);
        QCOMPARE(w->size(), size);  // the window keeps its size while the menu is hidden
        // A rolling picture fills its cell in device pixels.
        QTRY_VERIFY(w->reels().picture(0) % 12 != 0);
        QCOMPARE(child<ReelSurface>(*w, {})->cellPicture(0)->size(), (QSizeF(73, 73) * w->devicePixelRatioF()).toSize());
        QCOMPARE(w->game().lines(), 1);
        QCOMPARE(w->game().creditScale(), 0);
        QCOMPARE(w->game().creditsPerLine(), Currency::fromWhole(1));
        QCOMPARE(text(*w, "betBox"), QString("1"));

        const int before = shownClosingScreens();
        w.release()->close();
        QCOMPARE(shownClosingScreens(), before + 1);
        for (QWidget* top : QApplication::topLevelWidgets())
            if (auto* screen = qobject_cast<ClosingScreen*>(top))
                QCOMPARE(screen->printedCredits(), QString(" 0 "));
        QTest::qWait(50);
        QCOMPARE(shownClosingScreens(), before + 1);
        QVERIFY(fakes->ends.isEmpty());
    }

    // Each cell is an image a screen reader finds where the cell is, named by
    // its picture's own title, or by the symbol's number when it has none.
    void theCellsAreNamedImages()
    {
        QVERIFY(stockFolder("named"));
        QFile untitled("named/1.emf");  // its description says nothing
        QVERIFY(untitled.open(QIODevice::ReadWrite) && untitled.seek(60) && untitled.write("\0\0\0\0", 4) == 4);
        untitled.close();
        fixture::Script script;
        for (int i = 0; i < 15; ++i)
            script.addSymbol(i == 6 ? 1 : 10);
        fixture::Fakes fakes;
        auto w = fixture::open("named", fakes.services(script.draw()));
        QAccessibleInterface* untitledCell = cell(*w, 6);
        QCOMPARE(untitledCell->role(), QAccessible::Graphic);
        QCOMPARE(untitledCell->text(QAccessible::Name), QString("symbol 1"));
        QCOMPARE(cell(*w, 14)->text(QAccessible::Name), QString("red triangle"));
        QCOMPARE(untitledCell->rect().topLeft(), child<ReelSurface>(*w, {})->mapToGlobal(QPoint(261, 78)));
    }

    // Which files start-up needs: the line button pictures and "0.emf", or
    // the player is told which is missing; the symbols end at the first that
    // cannot be read, and at fifty. "+f" adds a
    // copy of a symbol as f, "!f" spoils f's bytes, anything else is removed.
    void startsWithTheFilesItFinds_data()
    {
        QTest::addColumn<QStringList>("missing");
        QTest::addColumn<QString>("error");
        QTest::addColumn<int>("symbols");
        QTest::newRow("all") << QStringList() << QString() << 50;
        QTest::newRow("a fifty-first") << QStringList{"+50.emf"} << QString() << 50;
        QTest::newRow("five") << QStringList{"5.emf"} << QString() << 5;
        QTest::newRow("one") << QStringList{"1.emf"} << QString() << 1;
        QTest::newRow("no symbols") << QStringList{"0.emf"} << QString("0.emf") << 0;
        QTest::newRow("a line picture") << QStringList{"5.jpg", "0.emf"} << QString("5.jpg") << 0;
        QTest::newRow("a damaged fifth") << QStringList{"!5.emf"} << QString() << 5;
        QTest::newRow("a damaged first") << QStringList{"!0.emf"} << QString("0.emf") << 0;
        QTest::newRow("a damaged line picture") << QStringList{"!3.jpg"} << QString("3.jpg") << 0;
    }

    void startsWithTheFilesItFinds()
    {
        QFETCH(QStringList, missing);
        QFETCH(QString, error);
        QFETCH(int, symbols);
        QVERIFY(stockFolder("some"));
        for (const QString& f : missing) {
            QFile spoilt("some/" + f.mid(1));
            QVERIFY(f.startsWith('+')   ? QFile::copy("some/49.emf", spoilt.fileName())
                    : f.startsWith('!') ? spoilt.open(QIODevice::ReadWrite) && spoilt.write("\0\0\0\0", 4) == 4
                                        : QFile::remove("some/" + f));
        }
        fixture::Fakes fakes;
        MainWindow* w = nullptr;  // the splash screen closes and goes by itself
        const bool started = fixture::inDir("some", [&] { return startGame(new SplashScreen, fakes.services(), &w); });
        QCOMPARE(started, error.isEmpty());
        const std::unique_ptr<MainWindow> window(w);
        QCOMPARE(fakes->kinds, error.isEmpty() ? QList<MessageKind>() : QList<MessageKind>{MessageKind::Note});
        QVERIFY(w ? w->reels().pictureCount() == 12 * symbols
                  : fakes->messages[0].contains('"' + error + "\" is missing"));
    }
};

QTEST_MAIN(MainWindowTest)
#include "main_window_test.moc"
