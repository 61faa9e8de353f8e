// SPDX-License-Identifier: GPL-2.0-or-later
// "name.dat" as the closing screen meets it: of every size up to past its
// ten records and full of random bytes, read-only, or in a read-only
// folder. Whatever the player did not replace is still there afterwards;
// a table that cannot be stored is one message, and the old file stays.
#include "tests/support/fake_services.h"
#include "tests/winners/file_bytes.h"
#include "winners/closing_screen.h"
#include "winners/winners_file.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#include <optional>

#include <sys/stat.h>
#include <unistd.h>

namespace {
QByteArray randomBytes(int size, quint32 seed)
{
    QRandomGenerator gen(seed);
    QByteArray bytes(size, Qt::Uninitialized);
    for (char& b : bytes)
        b = char(gen.bounded(256));
    return bytes;
}

// Permissions do not stop root: as root, the case runs again in a child
// program as the unprivileged user "nobody".
bool runAsNobody(const char* testFunction)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedChannels);
    child.start("setpriv", {"--reuid=65534", "--regid=65534", "--clear-groups", "--",
                            QCoreApplication::applicationFilePath(), testFunction});
    return child.waitForFinished(60000) && child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0;
}

const Currency kRich = Currency::fromWhole(1'000'000'000'000LL);  // beats every row
}

class WinnersTableTest : public QObject {
    Q_OBJECT

    fixture::Fakes fakes;
    std::optional<ScratchDir> scratch;

    // The closing screen for a player who beats every row: "ME" and Enter.
    void takeTheFirstRow()
    {
        ClosingScreen deck(kRich, fakes.services());
        deck.show();
        QVERIFY(deck.row(0) && !deck.row(0)->isReadOnly());
        QTest::keyClicks(deck.row(0), "ME");
        QTest::keyClick(deck.row(0), Qt::Key_Return);
        QVERIFY(deck.ended());
    }

private slots:
    void init()
    {
        fakes = {};
        scratch.emplace();
    }

    void cleanup()
    {
        ::chmod(".", 0700);  // a case may have taken the folder's permission to write
        scratch.reset();
    }

    void everySizeOfRandomBytesKeepsWhatThePlayerDidNotTake()
    {
        for (int size = 0; size <= 300; ++size) {
            const QByteArray before = randomBytes(size, quint32(size));
            QVERIFY(writeFile("name.dat", before));
            takeTheFirstRow();
            const QByteArray after = readFile("name.dat");
            QCOMPARE(after.size(), qMax(size, 240));
            QVERIFY(after.startsWith("ME "));
            const winners::Table t =
                winners::decode(std::span(reinterpret_cast<const unsigned char*>(after.constData()), 240));
            QCOMPARE(t[0].credits, INT32_MAX);
            if (size > 24)
                QCOMPARE(after.mid(24, size - 24), before.mid(24));
            QVERIFY(!QFile::exists("name.dat.tmp"));
        }
        QCOMPARE(fakes->ends.size(), 301);
        QVERIFY(fakes->messages.isEmpty());
    }

    // The player keeps the file from being changed: it stays as it is, and the
    // player is told once that the table could not be stored.
    void aReadOnlyFile()
    {
        if (::geteuid() == 0)
            QVERIFY(runAsNobody("aReadOnlyFile"));
        else {
            const QByteArray before = randomBytes(260, 1);
            QVERIFY(writeFile("name.dat", before));
            QVERIFY(QFile::setPermissions("name.dat", QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
            takeTheFirstRow();
            QCOMPARE(readFile("name.dat"), before);
            QVERIFY(!QFileInfo("name.dat").isWritable());
            QVERIFY(!QFile::exists("name.dat.tmp"));
            QCOMPARE(fakes->ends, QList<bool>{false});
            QCOMPARE(fakes->messages.size(), 1);
            QVERIFY2(fakes->messages[0].contains("name.dat"), qPrintable(fakes->messages[0]));
        }
    }

    // Nothing can be written: the player is told once, naming the file, and
    // the old table is all there.
    void aReadOnlyFolder()
    {
        if (::geteuid() == 0)
            QVERIFY(runAsNobody("aReadOnlyFolder"));
        else {
            for (bool fileToo : {false, true}) {
                fakes = {};
                ::chmod(".", 0700);
                QFile::remove("name.dat");
                const QByteArray before = randomBytes(240, 2);
                QVERIFY(writeFile("name.dat", before));
                if (fileToo)
                    QVERIFY(QFile::setPermissions("name.dat", QFile::ReadOwner));
                QCOMPARE(::chmod(".", 0500), 0);
                takeTheFirstRow();
                QCOMPARE(readFile("name.dat"), before);
                QCOMPARE(fakes->ends, QList<bool>{false});
                QCOMPARE(fakes->messages.size(), 1);
                QVERIFY2(fakes->messages[0].contains("name.dat"), qPrintable(fakes->messages[0]));
                QVERIFY(!QFile::exists("name.dat.tmp"));
            }
        }
    }

    // No file and a folder where nothing can be made: the default table is
    // shown, and the player is told it could not be stored.
    void noFileInAReadOnlyFolder()
    {
        if (::geteuid() == 0)
            QVERIFY(runAsNobody("noFileInAReadOnlyFolder"));
        else {
            QCOMPARE(::chmod(".", 0500), 0);
            takeTheFirstRow();
            QVERIFY(!QFile::exists("name.dat"));
            QCOMPARE(fakes->ends, QList<bool>{false});
            QCOMPARE(fakes->messages.size(), 1);
        }
    }
};

QTEST_MAIN(WinnersTableTest)
#include "winners_table_test.moc"
