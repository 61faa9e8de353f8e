// SPDX-License-Identifier: GPL-2.0-or-later
#include "rules/settlement.h"

#include "grids.h"

#include <QtTest>

namespace {

Currency whole(std::int64_t n) { return Currency::fromWhole(n); }

const Grid kQuiet = grid(kQuietTop, kQuietMiddle, kQuietBottom);

}  // namespace

class SettlementTest : public QObject {
    Q_OBJECT
private slots:
    void wholeSpinWithOnePayingLine()
    {
        const Settlement s = settle("2500", 3, whole(2), false, grid({0, 0, 0, 6, 6}, kQuietMiddle, kQuietBottom));
        QCOMPARE(s.bet, whole(6));
        QCOMPARE(s.leftToRight[1].text(), std::string("20.8333"));
        QCOMPARE(s.totalPaid, whole(44));  // 41.6666 -> 42, plus the stake 2
        QCOMPARE(s.bank, whole(2538));
        QCOMPARE(s.net, whole(38));
        QVERIFY(s.paid && !s.jackpot && !s.refilled && !s.netLoss);
        QCOMPARE(s.shownLines, std::vector<int>{2});
        QVERIFY(s.paysLeftToRight && !s.paysRightToLeft);
        for (std::size_t cell = 0; cell < s.winning.size(); ++cell)
            QCOMPARE(s.winning[cell], cell < 3);
    }

    void spinWithoutWinIsANetLoss()
    {
        const Settlement s = settle("2500", 1, whole(1), false, kQuiet);
        QCOMPARE(s.bank, whole(2499));
        QCOMPARE(s.totalPaid, Currency());
        QCOMPARE(s.net, whole(-1));
        QVERIFY(!s.paid && s.netLoss && s.shownLines.empty());
    }

    void betCountsLinesCreditsAndDirections()
    {
        QCOMPARE(settle("2500", 9, whole(10), true, kQuiet).bet, whole(180));
        QCOMPARE(settle("2500", 7, whole(3), false, kQuiet).bet, whole(21));
        // A number of lines the game does not offer values no line but still
        // takes its bet.
        const Grid allSame = grid({0, 0, 0, 0, 0}, {0, 0, 0, 0, 0}, {0, 0, 0, 0, 0});
        const Settlement s = settle("2500", 2, whole(1), true, allSame);
        QCOMPARE(s.bet, whole(4));
        QCOMPARE(s.totalPaid, Currency());
        QCOMPARE(s.bank, whole(2496));
    }

    void lineValuesRoundHalfToEvenPlusStake_data()
    {
        QTest::addColumn<int>("symbol");
        QTest::addColumn<qint64>("paid");
        QTest::newRow("figure 0: 1.75 -> 2") << 0 << qint64(3);
        QTest::newRow("figure 5: 10.5 -> 10") << 25 << qint64(11);
        QTest::newRow("figure 9: 17.5 -> 18") << 45 << qint64(19);
    }

    // Two identical symbols at the left end of line 1, one credit per line.
    void lineValuesRoundHalfToEvenPlusStake()
    {
        QFETCH(int, symbol);
        QFETCH(qint64, paid);
        Grid g = kQuiet;
        g[5] = g[6] = symbol;
        const Settlement s = settle("2500", 1, whole(1), false, g);
        QCOMPARE(s.totalPaid, whole(paid));
        QCOMPARE(s.bank, whole(2500 - 1 + paid));
    }

    void bothDirectionsPayAndShowEachReading()
    {
        // One line both ways reads only line 1, once each way.
        const Settlement one = settle("2500", 1, whole(1), true, grid(kQuietTop, {0, 0, 0, 0, 0}, kQuietBottom));
        QCOMPARE(one.leftToRight[0], whole(2051));
        QCOMPARE(one.rightToLeft[0], whole(2051));
        QCOMPARE(one.totalPaid, whole(2 * 2052));
        QCOMPARE(one.shownLines, (std::vector<int>{1, 1}));
        QVERIFY(one.paysLeftToRight && one.paysRightToLeft);

        // All left-to-right readings are shown before the right-to-left ones.
        const Settlement three = settle("2500", 3, whole(1), true, grid(kQuietTop, {7, 7, 1, 2, 2}, {3, 3, 9, 6, 6}));
        QCOMPARE(three.shownLines, (std::vector<int>{1, 3, 1, 3}));
        for (std::size_t k = 3; k < kPayLineCount; ++k)
            QCOMPARE(three.rightToLeft[k], Currency());
    }

    void jackpotFromExactly8000PerCredit()
    {
        // 6161 + 1200 + 636.3333 pay 6162 + 1201 + 637 = 8000 with their stakes.
        const Row top{10, 10, 10, 10, 10}, middle{15, 16, 15, 15, 15}, bottom{5, 5, 5, 6, 6};
        const Settlement s = settle("2500", 3, whole(1), false, grid(top, middle, bottom));
        QCOMPARE(s.totalPaid, whole(8000));
        QVERIFY(s.jackpot);
        for (bool flashes : s.winning)
            QVERIFY(flashes);

        // One line alone can reach it; the first flash keeps to its own cells.
        const Settlement single = settle("2500", 1, whole(1), false, grid(kQuietTop, {15, 15, 15, 15, 15}, kQuietBottom));
        QCOMPARE(single.totalPaid, whole(8217));
        QVERIFY(single.jackpot);
        for (int cell = 0; cell < kCells; ++cell) {
            QCOMPARE(single.runCells[std::size_t(cell)], placeOf(cell).row == 1);
            QVERIFY(single.winning[std::size_t(cell)]);
        }

        // A fifth cell that breaks the bottom row's figure run: 97 instead of 637.
        const Settlement below = settle("2500", 3, whole(1), false, grid(top, middle, {5, 5, 5, 6, 7}));
        QCOMPARE(below.totalPaid, whole(7460));
        QVERIFY(!below.jackpot);
        QVERIFY(!below.winning[14]);
        QCOMPARE(below.winning, below.runCells);
    }

    void emptyBankIsRefilled()
    {
        const Settlement s = settle("1", 9, whole(10), true, kQuiet);  // 1 - 180 = -179
        QVERIFY(s.refilled);
        QCOMPARE(s.bank, whole(2500));
        QCOMPARE(s.net, Currency());
        QVERIFY(!s.netLoss);

        const Settlement exactlyZero = settle("3", 3, whole(1), false, kQuiet);
        QVERIFY(exactlyZero.refilled);
        QCOMPARE(exactlyZero.bank, whole(2500));

        const Settlement one = settle("4", 3, whole(1), false, kQuiet);
        QVERIFY(!one.refilled);
        QCOMPARE(one.net, whole(-2499));
    }

    void readsBankText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<qint64>("bank");
        const qint64 top = Currency::kMaxWhole;
        QTest::newRow("as written") << "2538" << qint64(2538);
        QTest::newRow("blanks around") << " \t2500 \n" << qint64(2500);
        QTest::newRow("half to even down") << "12.5" << qint64(12);
        QTest::newRow("half to even up") << "13.5" << qint64(14);
        QTest::newRow("half with zeros") << "12.5000" << qint64(12);
        QTest::newRow("just above half") << "12.50001" << qint64(13);
        QTest::newRow("below half") << "12.4999999" << qint64(12);
        QTest::newRow("no whole part") << ".5" << qint64(0);
        QTest::newRow("no fraction") << "4." << qint64(4);
        QTest::newRow("signed") << "+7" << qint64(7);
        QTest::newRow("negative") << "-3" << qint64(-3);
        QTest::newRow("negative half") << "-1.5" << qint64(-2);
        QTest::newRow("empty") << "" << qint64(0);
        QTest::newRow("only blanks") << "   " << qint64(0);
        QTest::newRow("letters") << "abc" << qint64(0);
        QTest::newRow("trailing letters") << "12abc" << qint64(0);
        QTest::newRow("inner blank") << "25 00" << qint64(0);
        QTest::newRow("separator") << "2,500" << qint64(0);
        QTest::newRow("exponent") << "1e5" << qint64(0);
        QTest::newRow("lone sign") << "-" << qint64(0);
        QTest::newRow("lone point") << "." << qint64(0);
        QTest::newRow("two points") << "1.2.3" << qint64(0);
        QTest::newRow("largest") << "922337203685477" << top;
        QTest::newRow("rounds past largest") << "922337203685477.5" << top;
        QTest::newRow("huge") << "99999999999999999999999999" << top;
        QTest::newRow("huge negative") << "-99999999999999999999999999" << -top;
    }

    void readsBankText()
    {
        QFETCH(QString, text);
        QFETCH(qint64, bank);
        QCOMPARE(readBank(text.toStdString()), whole(bank));
    }

    void hugeAmountsSaturate()
    {
        // Repeated "times 10" can push credits per line towards the end of the
        // range: the bet and the wins clamp instead of wrapping.
        const Currency credits = whole(100000000000000);
        const Settlement s = settle("99999999999999999999", 9, credits, true, grid({0, 0, 0, 0, 0}, {0, 0, 0, 0, 0}, {0, 0, 0, 0, 0}));
        QVERIFY(s.bet.saturated());
        QVERIFY(s.totalPaid.saturated());
        QVERIFY(s.bank > Currency());
        QVERIFY(!s.netLoss);
        // A bank at the top of the range stays a whole number of credits.
        QCOMPARE(s.bank.text(), std::to_string(Currency::kMaxWhole));
    }
};

QTEST_GUILESS_MAIN(SettlementTest)
#include "settlement_test.moc"
