// SPDX-License-Identifier: GPL-2.0-or-later
#include "rules/pay.h"

#include "grids.h"

#include <QtTest>

class PayTest : public QObject {
    Q_OBJECT
private slots:
    // Symbols of c1..c5, the line value, and the cells (in reading order) that
    // belong to paying runs.
    void schedule_data()
    {
        QTest::addColumn<QList<int>>("symbols");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("marked");
        // The worked values of the pay schedule.
        QTest::newRow("identical 2, figure 1") << QList<int>{7, 7, 3, 1, 1} << "3.5" << "11000";
        QTest::newRow("identical 3, figure 3, colour 3") << QList<int>{0, 0, 0, 6, 6} << "20.8333" << "11100";
        QTest::newRow("figure 4, fifth not identical") << QList<int>{5, 6, 7, 8, 9} << "60" << "11110";
        QTest::newRow("figure 5") << QList<int>{5, 6, 7, 8, 8} << "600" << "11111";
        QTest::newRow("colour 4, fifth not identical") << QList<int>{2, 7, 12, 17, 22} << "5.3333" << "11110";
        QTest::newRow("identical 5 of symbol 24") << QList<int>{24, 24, 24, 24, 24} << "10275" << "11111";
        // Runs start at the first cell and need three cells for figure or colour.
        QTest::newRow("two identical, then nothing") << QList<int>{12, 12, 4, 12, 12} << "5.25" << "11000";
        QTest::newRow("two of one figure") << QList<int>{5, 6, 0, 0, 0} << "0" << "00000";
        QTest::newRow("two of one colour") << QList<int>{1, 6, 0, 0, 0} << "0" << "00000";
        QTest::newRow("cells 2..5 identical") << QList<int>{3, 9, 9, 9, 9} << "0" << "00000";
        QTest::newRow("figure 3 in three colours") << QList<int>{35, 36, 37, 0, 0} << "24" << "11100";
        QTest::newRow("fifth of same figure only") << QList<int>{10, 11, 12, 13, 14} << "90" << "11110";
        QTest::newRow("fifth of same colour only") << QList<int>{2, 7, 12, 17, 27} << "5.3333" << "11110";
        QTest::newRow("identical 5 of symbol 0") << QList<int>{0, 0, 0, 0, 0} << "2051" << "11111";
        QTest::newRow("colour run below one credit") << QList<int>{5, 0, 0, 1, 2} << "0.6667" << "11100";
        // Colour steps replace one another: (S5 / 5 + 1) alone, not times the
        // four-cell value.
        QTest::newRow("colour 5") << QList<int>{4, 9, 14, 49, 49} << "26" << "11111";
        // Identical 4 also makes figure 4 and colour 4; the fifth breaks all.
        QTest::newRow("identical 4") << QList<int>{49, 49, 49, 49, 44} << "2076.6667" << "11110";
    }

    void schedule()
    {
        QFETCH(QList<int>, symbols);
        QFETCH(QString, value);
        QFETCH(QString, marked);
        const LineReading r = readLine(symbols[0], symbols[1], symbols[2], symbols[3], symbols[4]);
        QCOMPARE(QString::fromStdString(r.value.text()), value);
        QString bits;
        for (int i = 0; i < 5; ++i)
            bits += (r.marked & (1u << i)) ? '1' : '0';
        QCOMPARE(bits, marked);
    }

    void marksCellsInReadingOrderAndNeverClears()
    {
        Grid symbol = grid(kQuietTop, kQuietMiddle, kQuietBottom);
        symbol[9] = symbol[8] = 7;  // the middle row read right to left: 7, 7, 14, ...
        CellFlags winning{};
        winning[0] = true;

        QCOMPARE(pay(symbol, winning, {9, 8, 7, 6, 5}).text(), std::string("3.5"));
        QCOMPARE(pay(symbol, winning, {5, 6, 7, 8, 9}), Currency());
        for (std::size_t cell = 0; cell < winning.size(); ++cell)
            QCOMPARE(winning[cell], cell == 0 || cell == 8 || cell == 9);
    }
};

QTEST_GUILESS_MAIN(PayTest)
#include "pay_test.moc"
