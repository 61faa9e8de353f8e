// SPDX-License-Identifier: GPL-2.0-or-later
// What is drawn over the grid: the pay lines join the cells the settlement
// reads, and the strobe's flashes.
#include "presentation/segment_pool.h"
#include "presentation/strobe.h"
#include "rules/paylines.h"

#include <QtTest>

class PresentationTest : public QObject {
    Q_OBJECT

    static GridCentres centres() { return {{100, 200, 300, 400, 500}, {10, 110, 210}}; }

private slots:
    void payLinesJoinTheCellsTheyPay()
    {
        const GridCentres at = centres();
        for (int lines : {1, 3, 5, 7, 9}) {
            SegmentPool pool;
            layOutPayLines(pool, lines, at);
            const int shown = segmentsOfLine(lines).last + 1;
            for (int i = 0; i < SegmentPool::kSize; ++i)
                QCOMPARE(pool[i].visible, i < shown);
        }
        SegmentPool pool;
        layOutPayLines(pool, 9, at);
        for (int k = 1; k <= kPayLineCount; ++k) {
            const SegmentRange range = segmentsOfLine(k);
            const auto cells = kPayLines[std::size_t(k - 1)];
            QVERIFY(pool[range.first].p1.x() < at.x[0]);  // the ends reach past the outer columns
            QVERIFY(pool[range.last].p2.x() > at.x[4]);
            for (int i = range.first; i <= range.last; ++i) {
                QCOMPARE(pool[i].color, lineColour(k));
                QCOMPARE(pool[i].width, 6);
                if (i > range.first)
                    QCOMPARE(pool[i].p1, pool[i - 1].p2);
                if (i == range.last)
                    continue;
                // An inner corner: the centre of the line's cell in that column
                // (lines 8 and 9 run 20 pixels off it).
                const QPointF corner = pool[i].p2;
                const int column = int(std::find(at.x.begin(), at.x.end(), float(corner.x())) - at.x.begin());
                QVERIFY2(column < 5, qPrintable(QString("line %1 corner %2").arg(k).arg(i)));
                const float y = at.y[placeOf(cells[std::size_t(column)]).row];
                QVERIFY(std::abs(corner.y() - y) <= (k >= 8 ? 20 : 0));
            }
        }
        QCOMPARE(lineColour(1), QColor(0, 0, 128));
        QCOMPARE(lineColour(9), QColor(0, 0, 255));

        pool.hideAll();
        showPayLine(pool, 4);
        showPayLine(pool, 0);
        showPayLine(pool, 10);
        for (int i = 0; i < SegmentPool::kSize; ++i)
            QCOMPARE(pool[i].visible, i >= segmentsOfLine(4).first && i <= segmentsOfLine(4).last);
    }

    void strobeFlashesTenTimesPerCell()
    {
        Strobe strobe(1);
        QString halves;
        int done = 0;
        strobe.run(3, [&](bool blank) { halves += blank ? 'b' : 's'; }, [&] { ++done; });
        QTRY_COMPARE_WITH_TIMEOUT(done, 1, 10000);
        QCOMPARE(halves, QString("bs").repeated(30));

        strobe.run(0, [&](bool) { halves += 'x'; }, [&] { ++done; });
        QCOMPARE(done, 2);
        strobe.run(1, [&](bool) { halves += 'x'; }, [&] { ++done; });
        strobe.stop();
        QTest::qWait(50);
        QCOMPARE(done, 2);
        QCOMPARE(halves.right(1), QString("x"));
    }
};

QTEST_MAIN(PresentationTest)
#include "presentation_test.moc"
