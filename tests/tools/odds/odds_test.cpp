// SPDX-License-Identifier: GPL-2.0-or-later
#include "rules/pay.h"
#include "rules/paylines.h"
#include "tools/odds/odds.h"
#include "tools/odds/simulation.h"
#include "tools/odds/spin_odds.h"

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
                        QCOMPARE(fast, settled(g, lines, credits, both).paid);
                    }
                }
            }
        }
    }

    // Over every grid of two symbols, the settlement's own figures of each
    // bet: the exhaustive jackpot count gives them exactly, the spin odds
    // within their intervals (a third wider, so that thirty of them all hold).
    void spinFiguresAgreeWithEveryGrid()
    {
        const JackpotTally tally = jackpotExhaustive(2, 0, 1);
        QCOMPARE(tally.grids, std::uint64_t{1} << kCells);
        const LineDistribution dist = lineDistribution(2);
        const int lineChoices[5] = {1, 3, 5, 7, 9};
        auto near = [](const Figure& f, long double exact) {
            return f.exact ? std::fabs(f.value - exact) < 1e-12L
                           : exact >= f.low - (f.value - f.low) / 3 && exact <= f.high + (f.high - f.value) / 3;
        };
        for (int li = 0; li < 5; ++li) {
            for (int both = 0; both < 2; ++both) {
                const BetRow row = spinOdds(dist, lineChoices[li], both, SamplingPlan{}, 7);
                for (int credits : {1, 7}) {
                    std::uint64_t jackpots = 0, paying = 0;
                    long double sum = 0, squares = 0;
                    for (std::uint32_t code = 0; code < (1u << kCells); ++code) {
                        Grid g{};
                        for (int cell = 0; cell < kCells; ++cell)
                            g[cell] = (code >> cell) & 1;
                        const Settled s = settled(g, lineChoices[li], Currency::fromWhole(credits), both);
                        const auto paid = static_cast<long double>(s.paid.roundWhole());
                        jackpots += s.jackpot;
                        paying += paid > 0;
                        sum += paid;
                        squares += paid * paid;
                    }
                    QCOMPARE(tally.jackpots[li][both][credits - 1], jackpots);
                    const long double grids = 1 << kCells, bet = lineChoices[li] * (both + 1) * credits;
                    const BetFigures& f = row[static_cast<std::size_t>(credits - 1)];
                    const QString where = QString("lines %1 both %2 credits %3").arg(lineChoices[li]).arg(both).arg(credits);
                    QVERIFY2(near(f.jackpot, jackpots / grids), qPrintable(where));
                    QVERIFY2(near(f.paying, paying / grids), qPrintable(where));
                    QVERIFY2(near(f.spread, std::sqrt(squares / grids - sum * sum / grids / grids) / bet), qPrintable(where));
                }
            }
        }
    }

    // With six symbols a line of five 5s is a sure jackpot both ways and the
    // rest comes from several lines together: against plain random grids.
    void jackpotAgreesWithPlainSampling()
    {
        const int symbols = 6, grids = 2'000'000;
        const JackpotTally plain = jackpotSample(symbols, grids, 3);
        const LineDistribution dist = lineDistribution(symbols);
        for (int li : {1, 4}) {
            for (int both = 0; both < 2; ++both) {
                const BetRow row = spinOdds(dist, 2 * li + 1, both, SamplingPlan{}, 9);
                for (int credits : {1, 10}) {
                    const auto k = static_cast<long double>(plain.jackpots[li][both][credits - 1]);
                    // (a hit's worth of slack, for rows that rarely or never hit)
                    const long double p = k / grids, plainHalf = 2.5758L * std::sqrt((p + 1.0L / grids) / grids);
                    const Figure& f = row[static_cast<std::size_t>(credits - 1)].jackpot;
                    QVERIFY2(std::fabs(f.value - p) <= std::hypot(plainHalf, f.high - f.low),
                             qPrintable(QString("lines %1 both %2: %3 against %4").arg(2 * li + 1).arg(both)
                                            .arg(double(f.value)).arg(double(p))));
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
        std::array<std::array<int, 7>, std::tuple_size_v<Grid>> seen{};
        Grid g{};
        const int draws = 70000;
        for (int i = 0; i < draws; ++i) {
            random.fillGrid(g, 7);
            for (int cell = 0; cell < kCells; ++cell)
                ++seen[cell][g[cell]];
        }
        // Each count is about 10,000 with a standard deviation near 93.
        for (int cell = 0; cell < kCells; ++cell)
            for (int s = 0; s < 7; ++s)
                QVERIFY(std::abs(seen[cell][s] - draws / 7) < 500);
    }
};

QTEST_GUILESS_MAIN(OddsTest)
#include "odds_test.moc"
