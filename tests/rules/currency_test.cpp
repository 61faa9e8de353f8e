// SPDX-License-Identifier: GPL-2.0-or-later
#include "rules/currency.h"

#include <QtTest>

#include <cmath>
#include <random>

class CurrencyTest : public QObject {
    Q_OBJECT
private slots:
    void roundsHalvesToEven_data()
    {
        QTest::addColumn<qint64>("raw");
        QTest::addColumn<qint64>("whole");
        QTest::newRow("2.5") << qint64(25000) << qint64(2);
        QTest::newRow("10.5") << qint64(105000) << qint64(10);
        QTest::newRow("17.5") << qint64(175000) << qint64(18);
        QTest::newRow("-2.5") << qint64(-25000) << qint64(-2);
        QTest::newRow("41.6666") << qint64(416666) << qint64(42);
        QTest::newRow("0.4999") << qint64(4999) << qint64(0);
        QTest::newRow("-0.5001") << qint64(-5001) << qint64(-1);
    }

    void roundsHalvesToEven()
    {
        QFETCH(qint64, raw);
        QFETCH(qint64, whole);
        QCOMPARE(Currency::fromRaw(raw).roundWhole(), whole);
        QCOMPARE(Currency::fromRaw(raw).roundedWhole(), Currency::fromWhole(whole));
    }

    void fromDoubleIsExactlyRounded()
    {
        QCOMPARE(Currency::fromDouble(17.5 + 3 + 1.0 / 3).text(), std::string("20.8333"));
        QCOMPARE(Currency::fromDouble(2.0 / 1.5 / 2).text(), std::string("0.6667"));
        // 0.03125 x 10,000 is exactly 312.5: the even neighbour. The doubles
        // either side of it are no halves.
        QCOMPARE(Currency::fromDouble(0.03125).raw(), 312);
        QCOMPARE(Currency::fromDouble(0.09375).raw(), 938);
        QCOMPARE(Currency::fromDouble(-0.03125).raw(), -312);
        QCOMPARE(Currency::fromDouble(std::nextafter(0.03125, 1.0)).raw(), 313);
        QCOMPARE(Currency::fromDouble(std::nextafter(0.09375, 0.0)).raw(), 937);
        // 0.00005 as a double lies just above the half.
        QCOMPARE(Currency::fromDouble(0.00005).raw(), 1);
        QCOMPARE(Currency::fromDouble(std::nan("")).raw(), 0);
        QVERIFY(Currency::fromDouble(1e15) == Currency::max());
        QVERIFY(Currency::fromDouble(-1e300) == Currency::min());
        QVERIFY(Currency::fromDouble(INFINITY) == Currency::max());
        QCOMPARE(Currency::fromDouble(900000000000000.0).raw(), INT64_C(9000000000000000000));
    }

    // The product of a double and 10,000 is exact in the extended type, so
    // rounding it there is the true answer to compare with, near the limits of
    // both branches of fromDouble and at ties.
    void fromDoubleMatchesExtendedReference()
    {
        std::mt19937_64 random(7);
        std::uniform_real_distribution<double> unit(-1.0, 1.0);
        const double scales[] = {1e-4, 1, 1e4, 4.5e11, 4.6e11, 1e13, 9.2e14, 9.22337e14};
        for (double scale : scales) {
            for (int i = 0; i < 20000; ++i) {
                double v = unit(random) * scale;
                if (i % 4 == 0)  // odd multiples of 1/32 are ties of ten-thousandths
                    v = (2 * std::floor(v * 16) + 1) / 32;
                const long double exact = std::nearbyint(static_cast<long double>(v) * 10000.0L);
                if (std::fabs(exact) >= 9.2233720368547758e18L)
                    continue;
                QCOMPARE(Currency::fromDouble(v).raw(), static_cast<std::int64_t>(exact));
            }
        }
    }

    void text_data()
    {
        QTest::addColumn<qint64>("raw");
        QTest::addColumn<QString>("expected");
        QTest::newRow("whole") << qint64(25000000) << "2500";
        QTest::newRow("negative") << qint64(-1800000) << "-180";
        QTest::newRow("four places") << qint64(208333) << "20.8333";
        QTest::newRow("below one") << qint64(6667) << "0.6667";
        QTest::newRow("no trailing zeros") << qint64(15000) << "1.5";
        QTest::newRow("inner zeros") << qint64(10001) << "1.0001";
        QTest::newRow("negative fraction") << qint64(-5000) << "-0.5";
        QTest::newRow("zero") << qint64(0) << "0";
        QTest::newRow("max") << qint64(INT64_MAX) << "922337203685477.5807";
        QTest::newRow("min") << qint64(INT64_MIN) << "-922337203685477.5808";
    }

    void text()
    {
        QFETCH(qint64, raw);
        QFETCH(QString, expected);
        QCOMPARE(QString::fromStdString(Currency::fromRaw(raw).text()), expected);
    }

    void printedHasSignPositionAndTrailingBlank()
    {
        QCOMPARE(Currency::fromWhole(2500).printed(), std::string(" 2500 "));
        QCOMPARE(Currency::fromWhole(-180).printed(), std::string("-180 "));
        QCOMPARE(Currency().printed(), std::string(" 0 "));
    }

    void productsRoundHalfToEven()
    {
        QCOMPARE((Currency::fromRaw(208333) * Currency::fromWhole(2)).raw(), 416666);
        QCOMPARE((Currency::fromRaw(6667) * Currency::fromRaw(5000)).raw(), 3334);  // 3333.5
        QCOMPARE((Currency::fromRaw(1) * Currency::fromRaw(5000)).raw(), 0);        // 0.5
        QCOMPARE((Currency::fromRaw(3) * Currency::fromRaw(5000)).raw(), 2);        // 1.5
        QCOMPARE((Currency::fromRaw(-3) * Currency::fromRaw(5000)).raw(), -2);
        // Beyond 64 bits in between, back in range at the end.
        QCOMPARE((Currency::fromWhole(400000000000000) * Currency::fromRaw(5000)).raw(),
                 INT64_C(2000000000000000000));
    }

    void tenfold()
    {
        QCOMPARE(Currency::fromRaw(1).times10().raw(), 10);
        QCOMPARE(Currency::fromWhole(7).times10(), Currency::fromWhole(70));
        QCOMPARE(Currency::fromWhole(3).dividedBy10().raw(), 3000);
        QCOMPARE(Currency::fromWhole(1000).dividedBy10().dividedBy10(), Currency::fromWhole(10));
        QCOMPARE(Currency::fromRaw(1).dividedBy10().raw(), 0);
    }

    void comparesWithWholeNumbersExactly()
    {
        QVERIFY(Currency::fromRaw(20001).compareWhole(2) > 0);
        QVERIFY(Currency::fromRaw(20000).compareWhole(2) == 0);
        QVERIFY(Currency::fromRaw(-20001).compareWhole(-2) < 0);
        QVERIFY(Currency::max().compareWhole(INT64_MAX) < 0);
        QVERIFY(Currency::min().compareWhole(INT64_MIN) > 0);
        QVERIFY(Currency::max().compareWhole(Currency::kMaxWhole) > 0);
    }

    void saturatesInsteadOfOverflowing()
    {
        const Currency one = Currency::fromWhole(1);
        QVERIFY((Currency::max() + one).saturated());
        QCOMPARE(Currency::max() + one, Currency::max());
        QCOMPARE(Currency::min() - one, Currency::min());
        QCOMPARE(Currency::min() + Currency::fromRaw(-1), Currency::min());
        QCOMPARE(Currency::max() - Currency::fromRaw(-1), Currency::max());
        QCOMPARE(Currency::max() * Currency::max(), Currency::max());
        QCOMPARE(Currency::min() * Currency::fromWhole(-1), Currency::max());
        QCOMPARE(Currency::max().times10(), Currency::max());
        QCOMPARE(Currency::min().times10(), Currency::min());
        QCOMPARE(Currency::fromWhole(INT64_MAX), Currency::max());
        QCOMPARE(Currency::fromWhole(INT64_MIN), Currency::min());
        QVERIFY(!Currency::fromWhole(Currency::kMaxWhole).saturated());
        QCOMPARE(Currency::fromWhole(Currency::kMaxWhole + 1), Currency::max());
        // A clamp, not a sticky state.
        QVERIFY(!(Currency::max() - one).saturated());
        QCOMPARE(Currency::max().roundWhole(), INT64_C(922337203685478));
        QCOMPARE(Currency::min().roundWhole(), INT64_C(-922337203685478));
    }
};

QTEST_GUILESS_MAIN(CurrencyTest)
#include "currency_test.moc"
