#include "rules/odds.h"
#include "rules/pay.h"
#include "rules/settlement.h"
#include "rules/simulation.h"

#include "grids.h"

#include <QtTest>

#include <cmath>
#include <map>

class OddsTest : public QObject {
    Q_OBJECT
private slots:
    void distributionMatchesEveryReading_data()
    {
        QTest::addColumn<int>("symbols");
        QTest::newRow("1") << 1;
        QTest::newRow("5") << 5;
        QTest::newRow("10") << 10;
        QTest::newRow("12") << 12;  // figures that do not fill all colours
    }

    // Every reading valued one by one, against the counted distribution and the
    // expectations drawn from it.
    void distributionMatchesEveryReading()
    {
        QFETCH(int, symbols);
        std::map<std::int64_t, std::uint64_t> counts;
        const int n = symbols;
        for (int a = 0; a < n; ++a)
            for (int b = 0; b < n; ++b)
                for (int c = 0; c < n; ++c)
                    for (int d = 0; d < n; ++d)
                        for (int e = 0; e < n; ++e)
                            ++counts[readLine(a, b, c, d, e).value.raw()];

        const LineDistribution dist = lineDistribution(symbols);
        QCOMPARE(dist.values.size(), counts.size());
        auto it = counts.begin();
        std::uint64_t total = 0;
        for (const auto& [value, count] : dist.values) {
            QCOMPARE(value.raw(), it->first);
            QCOMPARE(count, it->second);
            total += count;
            ++it;
        }
        QCOMPARE(total, dist.outcomes);

        for (int credits : {1, 3, 10}) {
            std::int64_t paid = 0;
            std::uint64_t paying = 0;
            for (const auto& [raw, count] : counts) {
                const std::int64_t x = raw * credits;  // whole credits x 10,000
                const std::int64_t rounded = (x / 10000) + ((x % 10000 > 5000 || (x % 10000 == 5000 && (x / 10000) % 2)) ? 1 : 0);
                if (x > 0) {
                    paid += static_cast<std::int64_t>(count) * (rounded + credits);
                    paying += count;
                }
            }
            const ExactOdds odds = exactOdds(dist, 5, true, credits);
            QCOMPARE(odds.bet, std::int64_t{10} * credits);
            QCOMPARE(odds.paidSum, paid);
            QCOMPARE(odds.payingCount, paying);
            const long double rtp = 100.0L * paid / (static_cast<long double>(dist.outcomes) * credits);
            QVERIFY(std::fabs(odds.rtpPercent() - rtp) < 1e-9L);
        }
    }

    // Grids from few symbols are full of runs; from fifty, mostly without.
    void fastSpinPaysWhatSettlementPays()
    {
        SpinRandom random(11);
        Grid g{};
        for (int symbols : {3, 7, 50}) {
            for (int i = 0; i < 3000; ++i) {
                random.fillGrid(g, symbols);
                for (int lines : {1, 2, 3, 5, 7, 9}) {
                    for (bool both : {false, true}) {
                        const Currency credits = Currency::fromWhole(1 + i % 10);
                        const Currency fast = spinPaid(g, playedReadings(lines, both), credits);
                        QCOMPARE(fast, settle("2500", lines, credits, both, g).totalPaid);
                    }
                }
            }
        }
    }

    // Over every grid of two symbols, the jackpot count of each bet against
    // the settlement's own jackpot test.
    void jackpotsAgreeWithSettlement()
    {
        const JackpotTally tally = jackpotExhaustive(2, 0, 1);
        QCOMPARE(tally.grids, std::uint64_t{1} << 15);
        const int lineChoices[5] = {1, 3, 5, 7, 9};
        for (int li = 0; li < 5; ++li) {
            for (int both = 0; both < 2; ++both) {
                for (int credits : {1, 7}) {
                    std::uint64_t jackpots = 0;
                    for (std::uint32_t code = 0; code < (1u << 15); ++code) {
                        Grid g{};
                        for (int cell = 0; cell < kCells; ++cell)
                            g[std::size_t(cell)] = (code >> cell) & 1;
                        jackpots += settle("2500", lineChoices[li], Currency::fromWhole(credits), both, g).jackpot;
                    }
                    QCOMPARE(tally.jackpots[li][both][credits - 1], jackpots);
                }
            }
        }
    }

    void simulationAgreesWithExactReturn()
    {
        for (int symbols : {5, 50}) {
            const SpinSetup setup{symbols, 9, true, 3};
            const SimulationTally tally = simulate(setup, 200000, 5);
            const ExactOdds exact = exactOdds(lineDistribution(symbols), 9, true, 3);
            const long double halfWidth = 2.5758L * tally.stddevPaid() / std::sqrt(200000.0L);
            QVERIFY2(std::fabs(tally.meanPaid() - exact.expectedPaidPerSpin()) <= halfWidth,
                     qPrintable(QString("simulated %1, exact %2").arg(double(tally.meanPaid())).arg(double(exact.expectedPaidPerSpin()))));
            QVERIFY(tally.largest > 0 && tally.payingSpins > 0);
        }
    }

    void randomSymbolsAreUniform()
    {
        SpinRandom random(3);
        std::array<std::array<int, 7>, kCells> seen{};
        Grid g{};
        const int draws = 70000;
        for (int i = 0; i < draws; ++i) {
            random.fillGrid(g, 7);
            for (std::size_t cell = 0; cell < g.size(); ++cell)
                ++seen[cell][std::size_t(g[cell])];
        }
        // Each count is about 10,000 with a standard deviation near 93.
        for (std::size_t cell = 0; cell < seen.size(); ++cell)
            for (int s = 0; s < 7; ++s)
                QVERIFY(std::abs(seen[cell][s] - draws / 7) < 500);
    }
};

QTEST_GUILESS_MAIN(OddsTest)
#include "odds_test.moc"
