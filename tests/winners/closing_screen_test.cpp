// SPDX-License-Identifier: GPL-2.0-or-later
// The closing screen from show to program end, with the bytes of "name.dat"
// checked afterwards.
#include "tests/support/fake_services.h"
#include "tests/winners/file_bytes.h"
#include "winners/closing_screen.h"

#include <QLineEdit>
#include <QtTest>

#include <memory>
#include <optional>

namespace {

// Other players, 50000 down to 5000, and a tail some other version of the
// game may have left behind.
QByteArray playersFile()
{
    const char* names[10] = {"ADA", "BEA", "CAL", "DOT", "EVE", "FAY", "GUS", "HAL", "IDA", "JON"};
    QByteArray bytes;
    for (int i = 0; i < 10; ++i) bytes += record(names[i], 50000 - 5000 * i);
    return bytes + QByteArray("tail of the file");
}

QString rowOf(const char* name, int credits)
{
    return QString::fromLatin1(name).leftJustified(20) + QStringLiteral("  ") + QString::number(credits);
}

const QPoint kBelowTheRows(200, 290);

}  // namespace

class ClosingScreenTest : public QObject {
    Q_OBJECT
    std::optional<ScratchDir> scratch_;
    fixture::Fakes fakes_;
    std::unique_ptr<ClosingScreen> deck_;

    ClosingScreen* open(Currency bank)
    {
        deck_ = std::make_unique<ClosingScreen>(bank, fakes_.services());
        deck_->show();
        return deck_.get();
    }

private slots:
    void init()
    {
        scratch_.emplace();
        fakes_ = {};
    }
    void cleanup()
    {
        deck_.reset();
        scratch_.reset();
    }

    void noFileAndNoRowBeaten_storesTheDefaultTableAfterTheCountdown()
    {
        ClosingScreen* deck = open(Currency::fromWhole(2500));
        QCOMPARE(QFileInfo("name.dat").size(), 0);  // opening made the file
        for (int k = 0; k < 10; ++k) {
            QCOMPARE(deck->row(k)->text(), rowOf("ANONYMOUS", 50000 - 5000 * k));
            QCOMPARE(deck->row(k)->geometry(), QRect(0, 27 * k, 441, 27));  // 6615 x 405 twips
            QVERIFY(deck->row(k)->isReadOnly());
        }
        // The player's credits are printed beside every row shown.
        QCOMPARE(deck->printedCredits(), QStringLiteral(" 2500 "));
        QCOMPARE(int(deck->printedAt().size()), 10);
        QCOMPARE(deck->printedAt()[9], QPointF(6620.0 / 15, 9 * 27));

        QTest::qWait(2000);
        QVERIFY(fakes_->ends.isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(fakes_->ends, QList<bool>{true}, 2000);
        QCOMPARE(readFile("name.dat"), defaultFile());

        // Once ended, nothing else runs.
        QTest::keyClick(deck->row(0), Qt::Key_Return);
        QTest::mouseClick(deck, Qt::LeftButton, {}, kBelowTheRows);
        QCOMPARE(fakes_->ends.size(), 1);
    }

    void noFile_thePlayerTakesRowOneAndNamesIt()
    {
        ClosingScreen* deck = open(Currency::fromWhole(47000));
        QCOMPARE(deck->row(0)->text(), rowOf("ANONYMOUS", 50000));
        QLineEdit* mine = deck->row(1);
        QCOMPARE(mine->text(), QString());
        QVERIFY(!mine->isReadOnly());
        QCOMPARE(deck->focusWidget(), mine);
        for (int k = 2; k < 10; ++k) QCOMPARE(deck->row(k)->text(), QString());
        QCOMPARE(int(deck->printedAt().size()), 2);

        QTest::qWait(2700);  // a placed player is waited for
        QVERIFY(fakes_->ends.isEmpty());

        QTest::keyClicks(mine, QStringLiteral("ABC"));
        QTest::keyClick(mine, Qt::Key_Return);
        QCOMPARE(fakes_->ends, QList<bool>{true});
        QByteArray expected = defaultFile();
        expected.replace(24, 24, record("ABC", 47000));  // the 45000 entry is gone
        QCOMPARE(readFile("name.dat"), expected);
        QCOMPARE(fakes_->written, expected);  // in writes of 100 bytes at most
    }

    void fromAFile_thePlayersRowShowsTheCreditsWithAnEmptyName()
    {
        QVERIFY(writeFile("name.dat", playersFile()));
        ClosingScreen* deck = open(Currency::fromWhole(47000));
        QCOMPARE(deck->row(0)->text(), rowOf("ADA", 50000));
        QLineEdit* mine = deck->row(1);
        QCOMPARE(mine->text(), QString(22, QLatin1Char(' ')) + QStringLiteral("47000"));
        QCOMPARE(mine->cursorPosition(), 0);
        QCOMPARE(deck->focusWidget(), mine);
        for (int k = 2; k < 10; ++k) QCOMPARE(deck->row(k)->text(), QString());

        // Typed in front of the blanks; ë is one byte of the code page.
        QTest::keyClicks(mine, QStringLiteral("Zo"));
        QTest::sendKeyEvent(QTest::Click, mine, Qt::Key_unknown, QStringLiteral("\u00EB"), Qt::NoModifier);
        QTest::keyClick(mine, Qt::Key_Enter);
        QCOMPARE(fakes_->ends, QList<bool>{true});
        QByteArray expected = playersFile();
        expected.replace(24, 24, record("Zo\xEB", 47000));
        QCOMPARE(readFile("name.dat"), expected);  // the other rows and the tail unchanged
    }

    void equalCreditsDoNotBeatARow()
    {
        ClosingScreen* deck = open(Currency::fromWhole(45000));
        QVERIFY(deck->row(1)->isReadOnly());
        QVERIFY(!deck->row(2)->isReadOnly());
        deck = open(Currency::fromWhole(5000));
        for (int k = 0; k < 10; ++k) QVERIFY(deck->row(k)->isReadOnly());
    }

    void enterInAnotherWinnersRowStoresTheTable()
    {
        ClosingScreen* deck = open(Currency::fromRaw(470005000));  // 47000.5
        QTest::keyClick(deck->row(0), Qt::Key_Return);
        QByteArray expected = defaultFile();
        expected.replace(24, 24, record("ANONYMOUS", 47000));  // the row's name left as it was
        QCOMPARE(readFile("name.dat"), expected);
    }

    void aClickOnTheSurfaceOrTheFramesCloseStoresNothing()
    {
        ClosingScreen* deck = open(Currency::fromWhole(47000));
        QTest::keyClicks(deck->row(1), QStringLiteral("ABC"));
        QTest::mouseClick(deck, Qt::LeftButton, {}, kBelowTheRows);
        QCOMPARE(fakes_->ends, QList<bool>{false});
        QCOMPARE(QFileInfo("name.dat").size(), 0);
        QTest::keyClick(deck->row(1), Qt::Key_Return);
        QCOMPARE(QFileInfo("name.dat").size(), 0);

        fakes_->ends.clear();
        deck = open(Currency::fromWhole(2500));
        deck->close();
        QCOMPARE(fakes_->ends, QList<bool>{false});
        QTest::qWait(2700);  // the countdown stopped with it
        QCOMPARE(fakes_->ends.size(), 1);
        QCOMPARE(QFileInfo("name.dat").size(), 0);
    }

    // A temporary file that cannot be made at all: test_winners_table.
    void aSaveThatFailsHalfwayTellsThePlayerOnceAndEnds()
    {
        QVERIFY(writeFile("name.dat", playersFile()));
        fakes_->chunk = fakes_->room = 120;
        ClosingScreen* deck = open(Currency::fromWhole(47000));
        QTest::keyClicks(deck->row(1), QStringLiteral("ABC"));
        QTest::keyClick(deck->row(1), Qt::Key_Return);
        QCOMPARE(fakes_->kinds, QList<MessageKind>{MessageKind::Warning});
        QVERIFY(fakes_->messages[0].contains(QStringLiteral("name.dat")));
        QCOMPARE(fakes_->ends, QList<bool>{false});
        QCOMPARE(readFile("name.dat"), playersFile());
    }
};

QTEST_MAIN(ClosingScreenTest)
#include "closing_screen_test.moc"
