// The closing screen from show to program end, with the bytes of "name.dat"
// checked afterwards.
#include "game/slot.h"
#include "winners/creditsdeck.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>
#include <memory>

#include <unistd.h>

namespace {

QByteArray readAll(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return {};
    return f.readAll();
}

void writeAll(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(f.write(bytes), bytes.size());
}

QByteArray record(const QByteArray& name, std::int32_t credits)
{
    QByteArray r = name.leftJustified(20, ' ', true);
    const auto u = std::uint32_t(credits);
    for (int b = 0; b < 4; ++b) r.append(char((u >> (8 * b)) & 0xFF));
    return r;
}

QByteArray defaultFile()
{
    QByteArray bytes;
    for (int i = 0; i < 10; ++i) bytes += record("ANONYMOUS", 50000 - 5000 * i);
    return bytes;
}

// A file of other players: 50000, 45000, ... with a tail of 16 bytes that
// some other version of the game may have left there.
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

}  // namespace

class ClosingScreenTest : public QObject {
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> dir_;
    QString home_;
    QList<bool> ends_;        // each call of the program's end, with "stored"
    QStringList messages_;    // what the player was told
    std::unique_ptr<creditsdeck> deck_;

    creditsdeck* open(Currency bank)
    {
        slot::bank = bank;
        deck_ = std::make_unique<creditsdeck>();
        deck_->show();
        return deck_.get();
    }

private slots:
    void init()
    {
        home_ = QDir::currentPath();
        dir_ = std::make_unique<QTemporaryDir>();
        QVERIFY(dir_->isValid());
        QVERIFY(QDir::setCurrent(dir_->path()));
        ends_.clear();
        messages_.clear();
        creditsdeck::hooks().endProgram = [this](bool stored) { ends_.append(stored); };
        creditsdeck::hooks().tellPlayer = [this](QWidget*, const QString& text) { messages_.append(text); };
        creditsdeck::hooks().writer = {};
    }
    void cleanup()
    {
        deck_.reset();
        QDir::setCurrent(home_);
        dir_.reset();
    }

    void theWindowAsDesigned()
    {
        creditsdeck* deck = open(Currency::fromWhole(2500));
        QCOMPARE(deck->windowTitle(), QStringLiteral("program by Orrin Vale"));
        QCOMPARE(deck->size(), QSize(443, 300));  // 6645 x 4500 twips
        for (int k = 0; k < 10; ++k) {
            QCOMPARE(deck->row(k)->geometry(), QRect(0, 27 * k, 441, 27));  // 6615 x 405 twips
            QVERIFY(deck->row(k)->isVisible());
        }
        QCOMPARE(QFontInfo(deck->row(0)->font()).family(), QStringLiteral("Liberation Mono"));
        QVERIFY(deck->row(0)->font().bold());
        QCOMPARE(deck->row(0)->font().pixelSize(), 19);  // 14.25 points
    }

    void noFileAndNoRowBeaten_storesTheDefaultTableAfterTheCountdown()
    {
        creditsdeck* deck = open(Currency::fromWhole(2500));
        QSignalSpy ended(deck, &creditsdeck::programEnded);
        QVERIFY(QFile::exists("name.dat"));
        QCOMPARE(QFileInfo("name.dat").size(), 0);
        for (int k = 0; k < 10; ++k) {
            QCOMPARE(deck->row(k)->text(), rowOf("ANONYMOUS", 50000 - 5000 * k));
            QVERIFY(deck->row(k)->isReadOnly());
        }
        // The player's credits stand beside every row shown.
        QCOMPARE(deck->printedCredits(), QStringLiteral(" 2500 "));
        QCOMPARE(int(deck->printedAt().size()), 10);
        QCOMPARE(deck->printedAt()[9], QPointF(6620.0 / 15, 9 * 27));

        QTest::qWait(2000);
        QVERIFY(ends_.isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(ends_.size(), 1, 2000);
        QCOMPARE(ends_[0], true);
        QCOMPARE(ended.size(), 1);
        QCOMPARE(readAll("name.dat"), defaultFile());

        // Once ended, nothing else runs.
        QTest::keyClick(deck->row(0), Qt::Key_Return);
        QTest::mouseClick(deck, Qt::LeftButton, {}, QPoint(200, 290));
        QTest::qWait(100);
        QCOMPARE(ends_.size(), 1);
    }

    void noFile_thePlayerTakesRowOneAndNamesIt()
    {
        creditsdeck* deck = open(Currency::fromWhole(47000));
        QCOMPARE(deck->row(0)->text(), rowOf("ANONYMOUS", 50000));
        QLineEdit* mine = deck->row(1);
        QCOMPARE(mine->text(), QString());
        QVERIFY(!mine->isReadOnly());
        QCOMPARE(deck->focusWidget(), mine);
        for (int k = 2; k < 10; ++k) {
            QCOMPARE(deck->row(k)->text(), QString());
            QVERIFY(deck->row(k)->isReadOnly());
        }
        QCOMPARE(int(deck->printedAt().size()), 2);
        QCOMPARE(deck->printedAt()[1].y(), 27.0);

        // A placed player is waited for: no countdown.
        QTest::qWait(2700);
        QVERIFY(ends_.isEmpty());

        QTest::keyClicks(mine, QStringLiteral("ABC"));
        QTest::keyClick(mine, Qt::Key_Return);
        QCOMPARE(ends_, QList<bool>{true});
        QByteArray expected = defaultFile();
        expected.replace(24, 24, record("ABC", 47000));  // the 45000 entry is gone
        QCOMPARE(readAll("name.dat"), expected);
    }

    void fromAFile_thePlayersRowShowsTheCreditsWithAnEmptyName()
    {
        writeAll("name.dat", playersFile());
        creditsdeck* deck = open(Currency::fromWhole(47000));
        QCOMPARE(deck->row(0)->text(), rowOf("ADA", 50000));
        QLineEdit* mine = deck->row(1);
        QCOMPARE(mine->text(), QString(22, QLatin1Char(' ')) + QStringLiteral("47000"));
        QCOMPARE(mine->cursorPosition(), 0);
        QVERIFY(!mine->isReadOnly());
        QCOMPARE(deck->focusWidget(), mine);
        for (int k = 2; k < 10; ++k) QCOMPARE(deck->row(k)->text(), QString());

        // Typed in front of the blanks: the first 20 characters are the name,
        // and ë is one byte of the code page.
        QTest::keyClicks(mine, QStringLiteral("Zo"));
        QTest::sendKeyEvent(QTest::Click, mine, Qt::Key_unknown, QStringLiteral("\u00EB"), Qt::NoModifier);
        QTest::keyClick(mine, Qt::Key_Enter);
        QCOMPARE(ends_, QList<bool>{true});
        QByteArray expected = playersFile();
        expected.replace(24, 24, record("Zo\xEB", 47000));
        QCOMPARE(readAll("name.dat"), expected);  // the other rows and the tail unchanged
    }

    void equalCreditsDoNotBeatARow_data()
    {
        QTest::addColumn<bool>("fromFile");
        QTest::newRow("default table") << false;
        QTest::newRow("file") << true;
    }
    void equalCreditsDoNotBeatARow()
    {
        QFETCH(bool, fromFile);
        if (fromFile) writeAll("name.dat", playersFile());
        creditsdeck* deck = open(Currency::fromWhole(45000));
        QVERIFY(deck->row(1)->isReadOnly());
        QVERIFY(!deck->row(2)->isReadOnly());
        QCOMPARE(deck->table()[1].credits, 45000);
        QCOMPARE(deck->table()[2].credits, 45000);  // the player's, in place of 40000
        deck_.reset();

        // Exactly the lowest row: nobody is placed.
        deck = open(Currency::fromWhole(5000));
        for (int k = 0; k < 10; ++k) QVERIFY(deck->row(k)->isReadOnly());
        QCOMPARE(int(deck->printedAt().size()), 10);
    }

    void enterInAnotherWinnersRowStoresTheTable()
    {
        creditsdeck* deck = open(Currency::fromRaw(470005000));  // 47000.5
        QTest::keyClick(deck->row(0), Qt::Key_Return);
        QCOMPARE(ends_, QList<bool>{true});
        QByteArray expected = defaultFile();
        expected.replace(24, 24, record("ANONYMOUS", 47000));  // the name of the row left as it was
        QCOMPARE(readAll("name.dat"), expected);
    }

    void aClickOnTheSurfaceEndsWithoutStoring()
    {
        creditsdeck* deck = open(Currency::fromWhole(47000));
        QTest::keyClicks(deck->row(1), QStringLiteral("ABC"));
        QTest::mouseClick(deck, Qt::LeftButton, {}, QPoint(200, 290));  // below the rows
        QCOMPARE(ends_, QList<bool>{false});
        QVERIFY(QFile::exists("name.dat"));
        QCOMPARE(QFileInfo("name.dat").size(), 0);

        // Once ended, Enter stores nothing any more.
        QTest::keyClick(deck->row(1), Qt::Key_Return);
        QCOMPARE(ends_.size(), 1);
        QCOMPARE(QFileInfo("name.dat").size(), 0);
    }

    void closingTheWindowEndsWithoutStoring()
    {
        writeAll("name.dat", playersFile());
        creditsdeck* deck = open(Currency::fromWhole(2500));
        deck->close();
        QCOMPARE(ends_, QList<bool>{false});
        QTest::qWait(2700);  // the countdown was stopped with it
        QCOMPARE(ends_.size(), 1);
        QCOMPARE(readAll("name.dat"), playersFile());
    }

    void aSaveThatFailsTellsThePlayerOnceAndEnds_data()
    {
        QTest::addColumn<bool>("diskFull");
        QTest::newRow("new file cannot be made") << false;
        QTest::newRow("disk full half-way") << true;
    }
    void aSaveThatFailsTellsThePlayerOnceAndEnds()
    {
        QFETCH(bool, diskFull);
        writeAll("name.dat", playersFile());
        if (diskFull) {
            creditsdeck::hooks().writer = [](int fd, const unsigned char* data, std::size_t size) -> long {
                if (size < 200) { errno = ENOSPC; return -1; }
                return long(::write(fd, data, 120));
            };
        } else {
            QVERIFY(QDir().mkdir("name.dat.tmp"));
        }
        creditsdeck* deck = open(Currency::fromWhole(47000));
        QTest::keyClicks(deck->row(1), QStringLiteral("ABC"));
        QTest::keyClick(deck->row(1), Qt::Key_Return);
        QCOMPARE(messages_.size(), 1);
        QVERIFY(messages_[0].contains(QStringLiteral("name.dat")));
        QCOMPARE(ends_, QList<bool>{false});
        QCOMPARE(readAll("name.dat"), playersFile());
    }
};

QTEST_MAIN(ClosingScreenTest)
#include "closing_screen_test.moc"
