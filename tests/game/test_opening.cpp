// The main window as it opens: the design and run-time layout, the symbol
// frames, the random draws and the pay lines. Start-up among missing or broken
// pictures is robustness/test_damaged_files'.
#include "game/reel_surface.h"
#include "game/slot.h"
#include "game_fixture.h"
#include "platform/caption_button.h"
#include "platform/random.h"
#include "screens/splash.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QSvgWidget>

class TestOpening : public QObject {
    Q_OBJECT

    std::unique_ptr<slot_machine> open(const QString& dir)
    {
        return fixture::inDir(dir, [] { return std::make_unique<slot_machine>(); });
    }

private slots:
    void initTestCase() { stockFolder("all"); }

    void opensInItsFirstPlayableState()
    {
        auto w = open("all");
        QVERIFY(w->startupError().isEmpty());
        QVERIFY(w->isVisible());
        QCOMPARE(w->windowTitle(), QString("REELMOOR"));
        QCOMPARE(w->surface->size(), QSize(793, 550));
        QCOMPARE(w->Text3->text(), QString("2500"));
        QCOMPARE(w->Text1->text(), QString("0"));
        QCOMPARE(w->Text2->text(), QString("1"));
        QCOMPARE(w->Text5->text(), QString("0"));
        QCOMPARE(w->Label1->text(), QString("NET GAIN"));
        QCOMPARE(w->lines, 1);
        QCOMPARE(slot::creditsperline, Currency::fromWhole(1));
        QCOMPARE(slot::maxsymbol, 49);
        QCOMPARE(int(w->Image2.size()), 600);
        QCOMPARE(w->Commandlines[1]->face(), QColor(255, 255, 0));
        QCOMPARE(w->Commandcre[1]->face(), QColor(255, 255, 0));
        QCOMPARE(w->Commandlines[2]->face(), QColor(224, 224, 224));
        QCOMPARE(w->Commandcre[10]->face(), QColor(224, 224, 224));
        QVERIFY(!w->Picture2->isHidden());
        QVERIFY(w->Picture3->isHidden());
        QCOMPARE(w->focusWidget(), w->Command1);
        for (int i = 1; i <= 15; ++i) {
            QCOMPARE(w->cell[i] % 12, 0);
            QCOMPARE(w->surface->cellPicture(i), &w->Image2[size_t(w->cell[i])]);
        }

        const QList<QAction*> items = w->filer->actions();
        QCOMPARE(w->filer->title(), QString("&file"));
        QCOMPARE(items.size(), 6);
        const QStringList captions = {"credits times 10", "credits divided by 10", "start table of winners over",
                                      "NEW GAME", "EXIT", "DISPLAY PAY TABLE"};
        const QStringList keys = {"Ctrl+A", "Ctrl+B", "Ctrl+C", "Ctrl+N", "Ctrl+X", "Ctrl+P"};
        for (int i = 0; i < 6; ++i) {
            QCOMPARE(items[i]->text(), captions[i]);
            QCOMPARE(items[i]->shortcut(), QKeySequence(keys[i]));
            QCOMPARE(items[i]->isEnabled(), i != 1);
        }
    }

    void laysOutButtonsCellsAndReelBackground()
    {
        auto w = open("all");
        for (int i = 1; i <= 5; ++i)
            QCOMPARE(w->Commandlines[i]->geometry(), QRect(122 * (i - 1), 232, 61, 65));
        QCOMPARE(w->Commandlines[3]->text(), QString("5 lines"));
        QCOMPARE(w->Commandcre[1]->geometry().topLeft(), QPoint(0, 304));
        QCOMPARE(w->Commandcre[10]->geometry().bottom() + 1, 366);  // 365.5 on whole pixels
        QCOMPARE(w->Commandcre[5]->geometry().right() + 1, 496);    // 5 x 99.125
        QCOMPARE(w->Commandcre[7]->text(), QString("7 credits per line"));
        const double lefts[5] = {161.75, 260.875, 360, 459.125, 558.25};
        for (int i = 1; i <= 15; ++i) {
            const QRectF c = w->surface->cellRect(i);
            QCOMPARE(c.left(), lefts[(i - 1) % 5]);
            QCOMPARE(c.top(), 5.0 + 73 * ((i - 1) / 5));
            QCOMPARE(c.size(), QSizeF(73, 73));
        }

        // The black band reaches to y = 229, the white strips to y = 224.
        w->drawlines(0);
        const QImage grab = w->surface->grab().toImage();
        QCOMPARE(grab.pixelColor(20, 100), QColor(Qt::black));
        QCOMPARE(grab.pixelColor(20, 228), QColor(Qt::black));
        QCOMPARE(grab.pixelColor(20, 229), QColor(224, 224, 224));
        QCOMPARE(grab.pixelColor(158, 2), QColor(Qt::white));       // strip edge left of cell 1
        QCOMPARE(grab.pixelColor(158, 223), QColor(Qt::white));
        QCOMPARE(grab.pixelColor(158, 225), QColor(Qt::black));
        QCOMPARE(grab.pixelColor(155, 100), QColor(Qt::black));     // between strips
    }

    void framesRollTheStripDownWithTheNextSymbolFromAbove()
    {
        auto w = open("all");
        const QImage& s0 = w->Pic1arr[0];
        const QImage& s1 = w->Pic1arr[1];
        const QImage& s49 = w->Pic1arr[49];
        auto rowsEqual = [](const QImage& a, int rowA, const QImage& b, int rowB) {
            for (int x = 0; x < 73; ++x)
                if (a.pixel(x, rowA) != b.pixel(x, rowB))
                    return false;
            return true;
        };
        // Rows [0, split) of the frame are the next symbol's from `from` on,
        // rows [split, end) the current symbol's from its top.
        auto rolled = [&](const QImage& frame, const QImage& next, int split, int from, const QImage& cur, int end) {
            for (int r = 0; r < split; ++r)
                QVERIFY2(rowsEqual(frame, r, next, from + r), qPrintable(QString::number(r)));
            for (int r = split; r < end; ++r)
                QVERIFY2(rowsEqual(frame, r, cur, r - split), qPrintable(QString::number(r)));
        };
        rolled(w->Image2[1], s1, 6, 67, s0, 73);
        rolled(w->Image2[6], s1, 36, 36, s0, 72);
        for (int x = 0; x < 73; ++x)
            QCOMPARE(w->Image2[6].pixelColor(x, 72), QColor(Qt::white));
        rolled(w->Image2[11], s1, 67, 6, s0, 73);
        rolled(w->Image2[12 * 49 + 1], s0, 6, 67, s49, 73);  // symbol 0 follows the last one
        QVERIFY(!rowsEqual(s0, 36, s1, 36) || !rowsEqual(s0, 20, s1, 20));
    }

    void symbolsInPlayEndAtTheFirstMissingPicture()
    {
        QStringList files = fixture::lineButtonPictures() + fixture::symbols(5);
        stockFolder("five", files);
        {
            auto w = open("five");
            QCOMPARE(slot::maxsymbol, 4);
            QCOMPARE(int(w->Image2.size()), 60);
            rnd::seed(7);
            for (int n = 0; n < 200; ++n) {
                w->loadrand();
                for (int i = 1; i <= 15; ++i) {
                    QVERIFY(w->cell[i] >= 0 && w->cell[i] <= 48);
                    QCOMPARE(w->cell[i] % 12, 0);
                }
            }
        }
        // Damaged later symbols, in every way: robustness/test_damaged_files.
        // A single symbol: every cell shows it, and every frame is it rolling into itself.
        stockFolder("one", fixture::lineButtonPictures() + fixture::symbols(1));
        auto w = open("one");
        QCOMPARE(slot::maxsymbol, 0);
        QCOMPARE(int(w->Image2.size()), 12);
        for (int i = 1; i <= 15; ++i)
            QCOMPARE(w->cell[i], 0);
    }

    void drawlinesShowsTheLinesInPlay()
    {
        auto w = open("all");
        QVERIFY(fixture::firstSegmentsShown(*w, 1));
        const Segment& s1 = w->Linem(1);
        QCOMPARE(s1.width, 6);
        QCOMPARE(s1.color, QColor(0, 0, 128));
        QCOMPARE(s1.p1, QPointF(148.25, 114.5));
        QCOMPARE(s1.p2, QPointF(644.75, 114.5));

        w->drawlines(9);
        QVERIFY(fixture::firstSegmentsShown(*w, 25));
        for (int i = 1; i <= 25; ++i)
            QCOMPARE(w->Linem(i).width, 6);
        QCOMPARE(w->Linem(4).p1, QPointF(158.25, 1.5));
        QCOMPARE(w->Linem(4).p2, QPointF(297.375, 114.5));
        QCOMPARE(w->Linem(21).p1, QPointF(297.375, 21.5));   // line 8 runs 20 px above the top row
        QCOMPARE(w->Linem(21).p2, QPointF(495.625, 207.5));
        QCOMPARE(w->Linem(12).p1, QPointF(148.25, 64.5));   // line 6 starts 50 px up
        QCOMPARE(w->Linem(25).color, QColor(0, 0, 255));
        QCOMPARE(w->Linem(16).color, QColor(192, 192, 192));

        w->drawlines(3);
        QVERIFY(fixture::firstSegmentsShown(*w, 3));

        // Drawn over the cells: the middle of line 1 crosses cell 8 in navy.
        w->drawlines(1);
        const QImage grab = w->surface->grab().toImage();
        QCOMPARE(grab.pixelColor(396, 114), QColor(0, 0, 128));
    }

    void displaylineShowsOnlyThatLine()
    {
        auto w = open("all");
        w->drawlines(9);
        w->Linem.hide(1, 29);
        w->displayline(1);
        w->displayline(4);
        w->displayline(4);
        w->displayline(0);
        w->displayline(10);
        for (int i = 1; i <= 29; ++i)
            QCOMPARE(w->Linem(i).visible, i == 1 || (i >= 4 && i <= 7));
    }

    void splashShowsTitleAndVersionThenCloses()
    {
        auto* splash = fixture::inDir("all", [] {
            auto* s = new frmSplash;
            s->Form_Load();
            return s;
        });
        QPointer<frmSplash> alive(splash);
        QCOMPARE(splash->lblProductname->text(), QString("reelmoor"));
        QCOMPARE(splash->lblVersion->text(), QString("Version 1.0.1"));
        QCOMPARE(splash->size(), QSize(452, 423));
        QVERIFY(splash->mainWindow()->isVisible());
        QPointer<slot_machine> main(splash->mainWindow());
        QTRY_VERIFY_WITH_TIMEOUT(alive.isNull(), 5000);
        QVERIFY(!main.isNull() && main->isVisible());
        main->setAttribute(Qt::WA_DeleteOnClose, false);
        delete main.data();
    }
};

QTEST_MAIN(TestOpening)
#include "test_opening.moc"
