// SPDX-License-Identifier: GPL-2.0-or-later
// The game's state and the reels' motion, without a window.
#include "rules/game.h"
#include "rules/reel_motion.h"

#include <QtTest>

#include <deque>

namespace {
Currency whole(std::int64_t n) { return Currency::fromWhole(n); }
}

class GameTest : public QObject {
    Q_OBJECT
private slots:
    // Each row: operations on a fresh game, and the bet they leave.
    void betFollowsTheChoices_data()
    {
        QTest::addColumn<QString>("ops");
        QTest::addColumn<int>("lines");
        QTest::addColumn<qint64>("creditsPerLine");
        QTest::addColumn<QString>("bet");
        QTest::addColumn<QString>("lastCaption");
        QTest::newRow("fresh") << "" << 1 << qint64(1) << "1" << "10 credits per line";
        QTest::newRow("7 lines, 3 credits") << "l3 c2" << 7 << qint64(3) << "21" << "10 credits per line";
        QTest::newRow("both ways doubles") << "l3 c2 d" << 7 << qint64(3) << "42" << "10 credits per line";
        QTest::newRow("toggled back") << "l3 c2 d d" << 7 << qint64(3) << "21" << "10 credits per line";
        QTest::newRow("times ten twice") << "t t c2" << 1 << qint64(300) << "300" << "1000 credits per line";
        QTest::newRow("times scales the bet") << "c2 t" << 1 << qint64(30) << "30" << "100 credits per line";
        QTest::newRow("and back") << "t t c2 / /" << 1 << qint64(3) << "3" << "10 credits per line";
        QTest::newRow("no divide at the bottom") << "/ c4" << 1 << qint64(5) << "5" << "10 credits per line";
        QTest::newRow("bet max") << "m" << 9 << qint64(10) << "180" << "10 credits per line";
        QTest::newRow("bet max both ways") << "d m" << 9 << qint64(10) << "180" << "10 credits per line";
        QTest::newRow("bet max scaled") << "t m" << 9 << qint64(100) << "1800" << "100 credits per line";
        QTest::newRow("top of the scale") << "t t t t t t t t t t m" << 9 << qint64(1000000000) << "18000000000"
                                          << "1000000000 credits per line";
    }

    void betFollowsTheChoices()
    {
        QFETCH(QString, ops);
        QFETCH(qint64, creditsPerLine);
        QFETCH(QString, bet);
        QFETCH(QString, lastCaption);
        Game g;
        for (const QString& op : ops.split(' ', Qt::SkipEmptyParts)) {
            const int n = op.mid(1).toInt();
            switch (op[0].toLatin1()) {
            case 'l': g.chooseLines(n); QCOMPARE(g.chosenLines(), n); break;
            case 'c': g.chooseCredits(n); QCOMPARE(g.chosenCredits(), n); break;
            case 'd': g.toggleDirections(); break;
            case 't': g.timesTen(); break;
            case '/': g.dividedByTen(); break;
            case 'm': {
                const bool wasOneWay = !g.bothWays();
                QCOMPARE(g.betMax(), wasOneWay);
                QVERIFY(g.bothWays());
                QCOMPARE(g.chosenCredits(), 9);
                break;
            }
            }
        }
        QTEST(g.lines(), "lines");
        QCOMPARE(g.creditsPerLine(), whole(creditsPerLine));
        QCOMPARE(QString::fromStdString(g.betText()), bet);
        QCOMPARE(QString::fromStdString(g.creditCaption(9)), lastCaption);
    }

    void creditScaleStopsAtItsEnds()
    {
        Game g;
        QVERIFY(!g.canDivideByTen());
        QVERIFY(!g.dividedByTen());
        for (int i = 0; i < Game::kMaxCreditScale; ++i)
            QVERIFY(g.timesTen());
        QVERIFY(!g.canTimesTen());
        QVERIFY(!g.timesTen());
        QCOMPARE(g.creditScale(), Game::kMaxCreditScale);
        QVERIFY(g.canDivideByTen());
    }

    // The bank takes the bet and the wins when the spin settles and any
    // refill only once the settlement has been shown; the text of the bank
    // box, typed or not, is what is settled.
    void bankFollowsTheBankBox_data()
    {
        QTest::addColumn<QString>("bankText");
        QTest::addColumn<int>("middle");   // the symbol filling the middle row
        QTest::addColumn<qint64>("during");
        QTest::addColumn<qint64>("after");
        QTest::newRow("loss") << "2500" << -1 << qint64(2499) << qint64(2499);
        QTest::newRow("typed bank") << "100" << -1 << qint64(99) << qint64(99);
        QTest::newRow("win") << "2500" << 0 << qint64(2499 + 2052) << qint64(2499 + 2052);
        QTest::newRow("refill") << "1" << -1 << qint64(0) << qint64(2500);
        QTest::newRow("unreadable") << "lots" << -1 << qint64(-1) << qint64(2500);
        const qint64 top = Currency::kMaxWhole;  // a win there still leaves a whole number of credits
        QTest::newRow("win at the top") << QString::number(top) << 0 << top << top;
        QTest::newRow("new game") << QString::fromStdString(Game::newGameBankText()) << -1 << qint64(2499)
                                  << qint64(2499);
    }

    void bankFollowsTheBankBox()
    {
        QFETCH(QString, bankText);
        QFETCH(int, middle);
        QFETCH(qint64, during);
        QFETCH(qint64, after);
        Game g;
        Grid grid{};
        for (int cell = 0; cell < kCells; ++cell)  // no line pays: columns differ in figure and colour
            grid[std::size_t(cell)] = 6 * placeOf(cell).column + 25 * (placeOf(cell).row % 2);
        if (middle >= 0)
            for (int c = 0; c < kColumns; ++c)
                grid[std::size_t(cellAt(1, c))] = middle;
        g.setSymbols(grid);
        QCOMPARE(g.bank(), Currency());
        const Settlement s = g.settle(bankText.toStdString());
        QCOMPARE(g.bank(), whole(during));
        g.endSettlement(s);
        QCOMPARE(g.bank(), whole(after));
    }

    // A spin draws fifteen stopping times, fifteen directions, then fifteen
    // starting pictures, in that order.
    void aSpinDrawsInOrder()
    {
        std::deque<float> numbers;
        const float stops[] = {0.0f, 0.5f, 1.0f / 64, 3.0f / 64, 0.999f};
        for (int i = 0; i < kCells; ++i)
            numbers.push_back(stops[i % 5]);
        for (int i = 0; i < kCells; ++i)
            numbers.push_back(i % 2 ? 0.5f : 0.4999f);
        for (int i = 0; i < kCells; ++i)
            numbers.push_back((12.0f * float(i) + 11.9f) / 600.0f);
        std::size_t drawn = 0;
        const SpinPlan plan = planSpin([&] { return numbers.at(drawn++); }, 50);
        const int ms[] = {2000, 4000, 2062, 2188, 5996};  // halves to even: 62.5 -> 62, 187.5 -> 188
        for (int i = 0; i < kCells; ++i) {
            QCOMPARE(plan.stopAfterMs[std::size_t(i)], ms[i % 5]);
            QCOMPARE(plan.step[std::size_t(i)], i % 2 ? 1 : -1);
            QCOMPARE(plan.picture[std::size_t(i)], 12 * i);
        }
    }

    void restingPicturesCoverEverySymbolAndNoMore_data()
    {
        QTest::addColumn<float>("r");
        QTest::addColumn<int>("symbols");
        QTest::addColumn<int>("picture");
        QTest::newRow("first") << 0.0f << 50 << 0;
        QTest::newRow("inside a symbol") << 0.5f << 50 << 300;
        QTest::newRow("last") << 0.99999994f << 50 << 588;
        QTest::newRow("one symbol") << 0.9f << 1 << 0;
        QTest::newRow("five symbols") << 0.7f << 5 << 36;
    }

    void restingPicturesCoverEverySymbolAndNoMore()
    {
        QFETCH(float, r);
        QFETCH(int, symbols);
        QTEST(drawRestingPicture([r] { return r; }, symbols), "picture");
    }

    // Reels roll one picture a pass, wrap at both ends of the strip, and a
    // stopped reel snaps back to the resting picture of what it shows.
    void reelsRollWrapAndSnap()
    {
        Reels reels(4);  // pictures 0..47
        SpinPlan plan;
        plan.picture.fill(0);
        plan.step.fill(1);
        plan.picture[0] = 0;
        plan.step[0] = -1;
        plan.picture[1] = 47;
        plan.picture[2] = 36;
        reels.start(plan);
        reels.stop(3);
        QVERIFY(!reels.pass());
        QCOMPARE(reels.picture(0), 47);  // down past the first picture to the last
        QCOMPARE(reels.picture(1), 0);   // up past the last to the first
        QCOMPARE(reels.picture(2), 37);
        for (int i = 0; i < 6; ++i)
            reels.pass();
        QCOMPARE(reels.picture(2), 43);
        for (int cell = 0; cell < kCells; ++cell)
            reels.stop(cell);
        QVERIFY(reels.pass());  // the first pass that finds all stopped ends the spin
        QCOMPARE(reels.picture(2), 36);  // 43 rests on 36
        QCOMPARE(reels.picture(0), 36);  // 41 rests on 36
        QCOMPARE(reels.picture(1), 0);
        QCOMPARE(reels.symbols()[2], 3);
        reels.start(plan);
        QVERIFY(!reels.pass());  // the next spin sets every reel rolling again
    }
};

QTEST_APPLESS_MAIN(GameTest)
#include "game_test.moc"
