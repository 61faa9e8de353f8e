// Playing: the spin, settling constructed grids on the window, the strobe,
// and the betting controls. Closing the window mid-spin or mid-flash is
// robustness/test_player_input's.
#include "game/reel_surface.h"
#include "game/slot.h"
#include "game_fixture.h"
#include "platform/caption_button.h"
#include "platform/random.h"
#include "winners/creditsdeck.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSvgWidget>

namespace {
using Grid = std::array<int, 16>;

// A grid on which no line pays in either direction: neighbouring columns
// never share a figure, and three neighbouring columns never share a colour.
Grid deadGrid()
{
    Grid g{};
    for (int i = 1; i <= 15; ++i) {
        const int c = (i - 1) % 5;
        const int r = (i - 1) / 5;
        g[i] = 5 * (2 * c + (r == 1 ? 1 : 0)) + c;
    }
    return g;
}

// Whether every control that changes the bet or the session is as given.
bool controlsEnabled(slot_machine& w, bool on)
{
    bool all = w.Command1->isEnabled() == on && w.filer->menuAction()->isVisible() == on &&
               w.Command3->isEnabled() == on && w.Command6->isEnabled() == on && w.times->isEnabled() == on &&
               w.exitor->isEnabled() == on;
    for (int i = 1; i <= 5; ++i)
        all = all && w.Commandlines[i]->isEnabled() == on;
    for (int i = 1; i <= 10; ++i)
        all = all && w.Commandcre[i]->isEnabled() == on;
    return all;
}
}

class TestPlay : public QObject {
    Q_OBJECT

    std::unique_ptr<slot_machine> open()
    {
        return fixture::inDir("all", [] { return std::make_unique<slot_machine>(); });
    }

    // Settles grid g as the spin would once its reels have stopped.
    void settle(slot_machine& w, const Grid& g, const QString& bank = "2500")
    {
        w.symbol = g;
        for (int i = 1; i <= 15; ++i) {
            w.cell[i] = 12 * g[i];
            w.setImage1(i, w.Image2[size_t(w.cell[i])]);
        }
        w.Text3->setText(bank);
        QSignalSpy spy(&w, &slot_machine::settled);
        w.calculatepayoff();
        QVERIFY(spy.count() == 1 || spy.wait(20000));
    }

private slots:
    void initTestCase()
    {
        stockFolder("all");
        fixture::fastPacing();
        creditsdeck::hooks().endProgram = [](bool) {};
    }

    void aSpinLocksRollsSettlesAndHandsBack()
    {
        auto w = open();
        rnd::seed(2024);
        const int beepsBefore = w->beepsSounded();
        w->Command1_Click();
        QVERIFY(w->spinning);
        QVERIFY(controlsEnabled(*w, false));
        QCOMPARE(w->MediaPlayer1.fileName(), std::string("clink.wav"));
        QCOMPARE(w->MediaPlayer1.playCount(), 100000);
        QVERIFY(fixture::firstSegmentsShown(*w, 0));
        // A second click while the reels roll starts nothing.
        const std::array<int, 16> steps = w->step;
        w->Command1_Click();
        QCOMPARE(w->step, steps);

        QVERIFY(fixture::waitSettled(*w));
        QVERIFY(!w->spinning);
        QVERIFY(controlsEnabled(*w, true));
        QCOMPARE(w->MediaPlayer1.fileName(), std::string());
        for (int i = 1; i <= 15; ++i) {
            QVERIFY(w->stopped[i]);
            QCOMPARE(w->cell[i] % 12, 0);
            QCOMPARE(w->symbol[i], w->cell[i] / 12);
            QCOMPARE(w->surface->cellPicture(i), &w->Image2[size_t(w->cell[i])]);
            QVERIFY(!w->Timera[i]->isActive());
        }
        // Fifteen stopping beeps, then one per flash of any win.
        int flashes = 0;
        for (int i = 1; i <= 15; ++i)
            flashes += w->winning[i] ? 10 : 0;
        if (w->Text1->text().toLongLong() >= 8000)
            flashes += 150;
        QCOMPARE(w->beepsSounded() - beepsBefore, 15 + flashes);
        QCOMPARE(w->focusWidget(), w->Command1);
    }

    void theSameSeedDrawsTheSameSpin()
    {
        auto draws = [this] {
            auto w = open();
            rnd::seed(99);
            w->Command1_Click();
            std::vector<int> d;
            for (int i = 1; i <= 15; ++i)
                d.push_back(w->Timera[i]->interval());
            for (int i = 1; i <= 15; ++i)
                d.push_back(w->step[i]);
            for (int i = 1; i <= 15; ++i)
                d.push_back(w->cell[i]);
            fixture::waitSettled(*w);
            return d;
        };
        const std::vector<int> first = draws();
        QCOMPARE(draws(), first);
        for (int i = 15; i < 30; ++i)
            QVERIFY(first[size_t(i)] == 1 || first[size_t(i)] == -1);
    }

    void settlesTheWorkedSpin()
    {
        auto w = open();
        w->Commandlines_Click(2);
        w->Commandcre_Click(2);
        QCOMPARE(w->Text2->text(), QString("6"));
        Grid g = deadGrid();
        const int line2[5] = {0, 0, 0, 6, 6};
        for (int c = 0; c < 5; ++c)
            g[1 + c] = line2[c];
        const int beeps = w->beepsSounded();
        settle(*w, g);
        QCOMPARE(w->Text1->text(), QString("44"));
        QCOMPARE(w->Text3->text(), QString("2538"));
        QCOMPARE(w->Text5->text(), QString("38"));
        QCOMPARE(w->Label1->text(), QString("NET GAIN"));
        QCOMPARE(w->Text5->palette().color(QPalette::Text), QColor(0, 0, 0));
        QCOMPARE(slot::bank, Currency::fromWhole(2538));
        for (int i = 1; i <= 29; ++i)
            QCOMPARE(w->Linem(i).visible, i == 2);
        QCOMPARE(w->beepsSounded() - beeps, 30);  // cells 1 to 3 flash ten times each
        for (int i = 1; i <= 15; ++i)
            QCOMPARE(w->surface->cellPicture(i), &w->Image2[size_t(w->cell[i])]);
        QVERIFY(!w->Picture2->isHidden());
        QVERIFY(w->Picture3->isHidden());
        QVERIFY(controlsEnabled(*w, true));
    }

    void aLossIsRedAndAnEmptyBankRefills()
    {
        auto w = open();
        settle(*w, deadGrid());
        QCOMPARE(w->Text3->text(), QString("2499"));
        QCOMPARE(w->Text1->text(), QString("0"));
        QCOMPARE(w->Text5->text(), QString("-1"));
        QCOMPARE(w->Label1->text(), QString("NET LOSS"));
        QCOMPARE(w->Text5->palette().color(QPalette::Text), QColor(255, 0, 0));

        // A bank of 1 against the largest bet: -179, then refilled.
        w->lines = 9;
        w->bothways = true;
        slot::creditsperline = Currency::fromWhole(10);
        settle(*w, deadGrid(), "1");
        QCOMPARE(w->Text3->text(), QString("2500"));
        QCOMPARE(w->Text5->text(), QString("0"));
        QCOMPARE(w->Label1->text(), QString("NET GAIN"));
        QCOMPARE(w->Text5->palette().color(QPalette::Text), QColor(0, 0, 0));
    }

    void aJackpotFlashesTwiceAndBothDirectionsPayTwice()
    {
        auto w = open();
        Grid g = deadGrid();
        for (int i = 6; i <= 10; ++i)
            g[i] = 24;
        int beeps = w->beepsSounded();
        settle(*w, g);
        QCOMPARE(w->Text1->text(), QString("10276"));
        QCOMPARE(w->beepsSounded() - beeps, 50 + 150);

        w->Command3_Click();
        QVERIFY(w->bothways);
        beeps = w->beepsSounded();
        settle(*w, g);
        QCOMPARE(w->Text1->text(), QString("20552"));
        QVERIFY(w->winright && w->winleft);
        QCOMPARE(w->beepsSounded() - beeps, 50 + 150);
        QVERIFY(!w->Picture2->isHidden());  // both arrows back as they were
        QVERIFY(!w->Picture3->isHidden());
    }

    void strobeFlashesOnlyWinningCellsAndRestoresEverything()
    {
        auto w = open();
        w->winning = {};
        w->winning[2] = w->winning[8] = w->winning[14] = true;
        w->winright = true;
        w->winleft = false;
        const int beeps = w->beepsSounded();
        int blackSeen = 0;
        bool othersUntouched = true;
        bool arrowsInStep = true;
        bool finished = false;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, [&] {
            if (w->surface->cellPicture(8) == &w->Picture1) {
                ++blackSeen;
                arrowsInStep = arrowsInStep && w->Picture2->isHidden();
            }
            for (int i : {1, 3, 7, 9, 15})
                othersUntouched = othersUntouched && w->surface->cellPicture(i) == &w->Image2[size_t(w->cell[i])];
        });
        watch.start(0);
        w->strobe([&] { finished = true; });
        QTRY_VERIFY_WITH_TIMEOUT(finished, 20000);
        watch.stop();
        QCOMPARE(w->beepsSounded() - beeps, 30);
        QVERIFY(blackSeen > 0);
        QVERIFY(othersUntouched);
        QVERIFY(arrowsInStep);
        QCOMPARE(w->Picture1.pixelColor(50, 100), QColor(Qt::black));
        for (int i = 1; i <= 15; ++i)
            QCOMPARE(w->surface->cellPicture(i), &w->Image2[size_t(w->cell[i])]);
        QVERIFY(!w->Picture2->isHidden());
        QVERIFY(w->Picture3->isHidden());

        w->winning = {};
        bool none = false;
        w->strobe([&] { none = true; });
        QVERIFY(none);
        QCOMPARE(w->beepsSounded() - beeps, 30);
    }

    void bettingControlsSetTheBet()
    {
        auto w = open();
        w->Commandlines_Click(4);
        QCOMPARE(w->lines, 7);
        QCOMPARE(w->MediaPlayer1.fileName(), std::string("chimes.wav"));
        QCOMPARE(w->MediaPlayer1.playCount(), 1);
        QCOMPARE(w->Commandlines[4]->face(), QColor(255, 255, 0));
        QCOMPARE(w->Commandlines[1]->face(), QColor(224, 224, 224));
        QVERIFY(fixture::firstSegmentsShown(*w, 19));
        w->Commandcre_Click(3);
        QCOMPARE(w->MediaPlayer1.fileName(), std::string("clunk.wav"));
        QCOMPARE(w->MediaPlayer1.playCount(), 3);
        QCOMPARE(w->Text2->text(), QString("21"));
        w->Command3_Click();
        QCOMPARE(w->MediaPlayer1.fileName(), std::string("jackpot.wav"));
        QCOMPARE(w->Text2->text(), QString("42"));
        QCOMPARE(w->Command3->text(), QString("win one direction ------->"));
        QCOMPARE(w->Command3->face(), QColor(255, 255, 0));
        QVERIFY(!w->Picture3->isHidden());
        w->Command3_Click();
        QCOMPARE(w->Text2->text(), QString("21"));
        QCOMPARE(w->Command3->text(), QString("win both directions <---------->"));
        QVERIFY(w->Picture3->isHidden());

        // Powers of ten from the menu.
        QVERIFY(!w->divides->isEnabled());
        w->times_Click();
        w->times_Click();
        w->Commandcre_Click(3);
        QCOMPARE(slot::creditsperline, Currency::fromWhole(300));
        QCOMPARE(w->Commandcre[1]->text(), QString("100 credits per line"));
        QCOMPARE(w->Commandcre[10]->text(), QString("1000 credits per line"));
        QVERIFY(w->divides->isEnabled());
        w->divides_Click();
        w->divides_Click();
        QCOMPARE(slot::creditsperline, Currency::fromWhole(3));
        QCOMPARE(w->Commandcre[10]->text(), QString("10 credits per line"));
        QVERIFY(!w->divides->isEnabled());

        // At the top scale the largest win still fits the currency.
        for (int i = 0; i < 20; ++i)
            if (w->times->isEnabled())
                w->times_Click();
        QCOMPARE(w->creditscale, slot_machine::kMaxCreditScale);
        w->Commandcre_Click(10);
        w->Commandlines_Click(5);
        w->Command3_Click();
        QCOMPARE(w->Text2->text(), QString("18000000000"));
        Grid g{};
        for (int i = 1; i <= 15; ++i)
            g[i] = 49;
        settle(*w, g);
        QVERIFY(!slot::bank.saturated());
        QVERIFY(w->Text3->text().toLongLong() > 3'000'000'000'000LL);
    }

    void betMaxSetsTheLargestBetAndSpins()
    {
        auto w = open();
        w->Command6_Click();
        QCOMPARE(w->lines, 9);
        QVERIFY(w->bothways);
        QCOMPARE(slot::creditsperline, Currency::fromWhole(10));
        QCOMPARE(w->Text2->text(), QString("180"));
        QVERIFY(w->spinning);
        QVERIFY(fixture::waitSettled(*w));
        const long long bank = w->Text3->text().toLongLong();
        QVERIFY(bank == 2500 - 180 + w->Text1->text().toLongLong() || bank == 2500);
    }

    void keysAndClicksDuringASpinLeaveTheBetAlone()
    {
        auto w = open();
        w->Command1_Click();
        QTest::keyClick(w.get(), Qt::Key_A, Qt::ControlModifier);
        QTest::mouseClick(w->Commandlines[3], Qt::LeftButton);
        QTest::mouseClick(w->Commandcre[5], Qt::LeftButton);
        QTest::mouseClick(w->Command6, Qt::LeftButton);
        QTest::keyClick(w->Command1, Qt::Key_Space);
        QCOMPARE(w->lines, 1);
        QCOMPARE(w->creditscale, 0);
        QCOMPARE(slot::creditsperline, Currency::fromWhole(1));
        QVERIFY(fixture::waitSettled(*w));
        // Afterwards Enter on the focused SPIN spins again.
        QTest::keyClick(w->Command1, Qt::Key_Return);
        QVERIFY(w->spinning);
        QVERIFY(fixture::waitSettled(*w));
    }
};

QTEST_MAIN(TestPlay)
#include "test_play.moc"
