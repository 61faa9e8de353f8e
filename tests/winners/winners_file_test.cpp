// The table of winners on disk: byte layout, odd file sizes, names, credits
// and saves that fail or are cut short.
#include "winners/winners_file.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>
#include <memory>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using winners::Table;

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

// Bytes that are different at every offset, so a byte in the wrong place shows.
QByteArray pattern(int size)
{
    QByteArray bytes(size, '\0');
    for (int i = 0; i < size; ++i) bytes[i] = char((i * 7 + 3) & 0xFF);
    return bytes;
}

QByteArray record(const char* name, std::int32_t credits)
{
    QByteArray r(name);
    r = r.leftJustified(20, ' ', true);
    const auto u = std::uint32_t(credits);
    for (int b = 0; b < 4; ++b) r.append(char((u >> (8 * b)) & 0xFF));
    return r;
}

QByteArray bytesOf(const Table& table)
{
    const auto bytes = winners::encode(table);
    return QByteArray(reinterpret_cast<const char*>(bytes.data()), qsizetype(bytes.size()));
}

Table sampleTable()
{
    Table t;
    const char* names[10] = {"ALICE", "", "a name of twenty chr", "Zo\xc3\xab", "\xe2\x82\xac uro",
                             "x", "      lead", "tab\there", "END", "LAST ONE"};
    const std::int32_t credits[10] = {INT32_MAX, 1, 0, -1, -5000, 123456, 7, 65536, 256, INT32_MIN};
    for (int i = 0; i < 10; ++i) {
        t[i].name = winners::nameFromUtf8(names[i]);
        t[i].credits = credits[i];
    }
    return t;
}

std::string asString(const std::array<unsigned char, 20>& name)
{
    return std::string(name.begin(), name.end());
}

}  // namespace

class WinnersFileTest : public QObject {
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> dir_;
    QString home_;

private slots:
    void init()
    {
        home_ = QDir::currentPath();
        dir_ = std::make_unique<QTemporaryDir>();
        QVERIFY(dir_->isValid());
        QVERIFY(QDir::setCurrent(dir_->path()));
    }
    void cleanup()
    {
        QDir::setCurrent(home_);
        dir_.reset();
    }

    void layoutOfTheDefaultTable()
    {
        QByteArray expected;
        for (int i = 0; i < 10; ++i) expected += record("ANONYMOUS", 50000 - 5000 * i);
        QCOMPARE(bytesOf(winners::defaultTable()), expected);
        QCOMPARE(expected.mid(20, 4), QByteArray("\x50\xC3\x00\x00", 4));  // 50000, little-endian
    }

    void roundTripThroughBytesAndFile()
    {
        const Table t = sampleTable();
        QCOMPARE(winners::decode(winners::encode(t)), t);

        QVERIFY(winners::save(t).ok);
        QCOMPARE(readAll("name.dat").size(), 240);
        const winners::Opened back = winners::open();
        QVERIFY(back.fromFile);
        QCOMPARE(back.recordCount, 10.0);
        QCOMPARE(back.table, t);
        QVERIFY(!QFile::exists("name.dat.tmp"));
    }

    void everyByteOfANameSurvives()
    {
        // A name read from a file, shown as text and set again from that
        // text is the same 20 bytes, whatever they are.
        for (int first = 0; first < 256; first += 20) {
            winners::winner w;
            for (int i = 0; i < 20; ++i) w.name[i] = static_cast<unsigned char>((first + i) & 0xFF);
            QCOMPARE(winners::nameFromText(winners::nameText(w)), w.name);
        }
    }

    void oddFileSizes_data()
    {
        QTest::addColumn<int>("size");
        for (int size : {0, 1, 24, 239, 240, 241, 300}) QTest::newRow(qPrintable(QString::number(size))) << size;
    }
    void oddFileSizes()
    {
        QFETCH(int, size);
        const QByteArray old = pattern(size);
        writeAll("name.dat", old);

        const winners::Opened opened = winners::open();
        QCOMPARE(opened.fromFile, size > 0);
        QCOMPARE(opened.recordCount, size / 24.0);
        if (size == 0) {
            QCOMPARE(opened.table, winners::defaultTable());
        } else {
            // The first 240 bytes as they are; what a short file lacks is a
            // blank name and 0 credits.
            QByteArray blank;
            for (int i = 0; i < 10; ++i) blank += record("", 0);
            const QByteArray seen = old.left(240) + blank.mid(qMin(size, 240));
            QCOMPARE(bytesOf(opened.table), seen);
        }
        QCOMPARE(readAll("name.dat"), old);  // reading changes nothing

        const Table t = sampleTable();
        QVERIFY(winners::save(t).ok);
        const QByteArray now = readAll("name.dat");
        QCOMPARE(now.size(), qMax(size, 240));
        QCOMPARE(now.left(240), bytesOf(t));
        QCOMPARE(now.mid(240), old.mid(240));  // the tail beyond the table is kept
    }

    void openingCreatesAnEmptyFile()
    {
        QVERIFY(!QFile::exists("name.dat"));
        const winners::Opened opened = winners::open();
        QVERIFY(!opened.fromFile);
        QCOMPARE(opened.recordCount, 0.0);
        QCOMPARE(opened.table, winners::defaultTable());
        QVERIFY(QFile::exists("name.dat"));
        QCOMPARE(QFileInfo("name.dat").size(), 0);
    }

    void namesAreCutPaddedAndKeptInTheCodePage()
    {
        QCOMPARE(asString(winners::nameFromUtf8("ABCDEFGHIJKLMNOPQRSTUVWXY")), std::string("ABCDEFGHIJKLMNOPQRST"));
        QCOMPARE(asString(winners::nameFromUtf8("ABC")), std::string("ABC") + std::string(17, ' '));
        QCOMPARE(asString(winners::nameFromUtf8("")), std::string(20, ' '));
        // é and € exist in the code page, a CJK character and an emoji do not,
        // and every character counts once however many bytes UTF-8 needs.
        QCOMPARE(asString(winners::nameFromUtf8("\xc3\xa9\xe2\x82\xac\xe6\xbc\xa2\xf0\x9f\x98\x80Z")),
                 std::string("\xe9\x80??Z") + std::string(15, ' '));
        QCOMPARE(asString(winners::nameFromText(U"\u0160\u2122\u00FF\u0100")),
                 std::string("\x8a\x99\xff?") + std::string(16, ' '));
        // Malformed UTF-8 turns into '?': a lone continuation byte, a cut-off
        // sequence (one for the whole piece), an encoded surrogate (one a byte).
        QCOMPARE(asString(winners::nameFromUtf8("a\x80" "b\xe2\x82" "c\xed\xa0\x80" "d")),
                 std::string("a?b?c???d") + std::string(11, ' '));
    }

    void rowText()
    {
        winners::winner w{winners::nameFromUtf8("ANONYMOUS"), 50000};
        QCOMPARE(winners::rowText(w), std::u32string(U"ANONYMOUS") + std::u32string(11 + 2, U' ') + U"50000");
        w.credits = -180;
        QCOMPARE(winners::rowText(w).substr(20), std::u32string(U"  -180"));
    }

    void creditsRoundHalvesToEvenAndClamp()
    {
        QCOMPARE(winners::creditsFromBank(Currency::fromRaw(470005000)), 47000);  // 47000.5
        QCOMPARE(winners::creditsFromBank(Currency::fromRaw(470015000)), 47002);  // 47001.5
        QCOMPARE(winners::creditsFromBank(Currency::fromRaw(470004999)), 47000);
        QCOMPARE(winners::creditsFromBank(Currency::fromRaw(-25000)), -2);
        QCOMPARE(winners::creditsFromBank(Currency::fromWhole(3'000'000'000LL)), INT32_MAX);
        QCOMPARE(winners::creditsFromBank(Currency::fromWhole(-3'000'000'000LL)), INT32_MIN);
        QCOMPARE(winners::creditsFromBank(Currency::max()), INT32_MAX);
    }

    void onlyMoreCreditsBeatARow()
    {
        QVERIFY(!winners::beats(Currency::fromWhole(45000), 45000));
        QVERIFY(winners::beats(Currency::fromRaw(450000001), 45000));  // 45000.0001
        QVERIFY(!winners::beats(Currency::fromRaw(449999999), 45000));
        QVERIFY(winners::beats(Currency::fromWhole(0), -1));
        QVERIFY(winners::beats(Currency::fromWhole(3'000'000'000LL), INT32_MAX));
    }

    void aFailedSaveLeavesTheOldFileWhole()
    {
        const QByteArray old = bytesOf(winners::defaultTable()) + pattern(60);
        writeAll("name.dat", old);

        // The disk fills up after 100 bytes.
        std::size_t written = 0;
        const winners::Writer diskFull = [&](int fd, const unsigned char* data, std::size_t size) -> long {
            if (written >= 100) { errno = ENOSPC; return -1; }
            const std::size_t n = std::min<std::size_t>(size, 100 - written);
            const long done = long(::write(fd, data, n));
            if (done > 0) written += std::size_t(done);
            return done;
        };
        const winners::Saved saved = winners::save(sampleTable(), winners::kFileName, diskFull);
        QVERIFY(!saved.ok);
        QVERIFY(saved.error.find("No space left") != std::string::npos);
        QCOMPARE(readAll("name.dat"), old);
        QVERIFY(!QFile::exists("name.dat.tmp"));
    }

    void shortWritesAreCompleted()
    {
        // The system may take fewer bytes than offered; the save goes on.
        const winners::Writer trickle = [](int fd, const unsigned char* data, std::size_t size) -> long {
            return long(::write(fd, data, std::min<std::size_t>(size, 7)));
        };
        writeAll("name.dat", pattern(250));
        QVERIFY(winners::save(sampleTable(), winners::kFileName, trickle).ok);
        QCOMPARE(readAll("name.dat"), bytesOf(sampleTable()) + pattern(250).mid(240));
    }

    void aSaveKilledHalfwayLeavesTheOldFile()
    {
        const QByteArray old = bytesOf(winners::defaultTable());
        writeAll("name.dat", old);
        const pid_t child = ::fork();
        QVERIFY(child >= 0);
        if (child == 0) {
            // The program dies in the middle of writing.
            const winners::Writer dies = [](int fd, const unsigned char* data, std::size_t) -> long {
                [[maybe_unused]] const auto n = ::write(fd, data, 50);
                ::_exit(9);
            };
            winners::save(sampleTable(), winners::kFileName, dies);
            ::_exit(0);
        }
        int status = 0;
        QCOMPARE(::waitpid(child, &status, 0), child);
        QCOMPARE(WEXITSTATUS(status), 9);
        QCOMPARE(readAll("name.dat"), old);
        QCOMPARE(winners::open().table, winners::defaultTable());

        // The leftover of the dead save does not stand in the way of the next.
        QVERIFY(winners::save(sampleTable()).ok);
        QCOMPARE(readAll("name.dat"), bytesOf(sampleTable()));
        QVERIFY(!QFile::exists("name.dat.tmp"));
    }

    void aSaveThatCannotStartChangesNothing()
    {
        const QByteArray old = bytesOf(winners::defaultTable());
        writeAll("name.dat", old);
        QVERIFY(QDir().mkdir("name.dat.tmp"));  // the new file cannot be created
        const winners::Saved saved = winners::save(sampleTable());
        QVERIFY(!saved.ok);
        QVERIFY(!saved.error.empty());
        QCOMPARE(readAll("name.dat"), old);
    }

    void aSaveKeepsTheFilesModeAndALink()
    {
        writeAll("real.dat", pattern(260));
        QVERIFY(::chmod("real.dat", 0640) == 0);
        QVERIFY(QFile::link("real.dat", "name.dat"));
        QVERIFY(winners::save(sampleTable()).ok);
        QVERIFY(QFileInfo("name.dat").isSymLink());
        QCOMPARE(readAll("real.dat"), bytesOf(sampleTable()) + pattern(260).mid(240));
        struct stat st {};
        QCOMPARE(::stat("real.dat", &st), 0);
        QCOMPARE(int(st.st_mode & 0777), 0640);
    }

    void removeDeletesAndToleratesNoFile()
    {
        writeAll("name.dat", pattern(240));
        QVERIFY(winners::remove());
        QVERIFY(!QFile::exists("name.dat"));
        QVERIFY(winners::remove());
    }
};

QTEST_APPLESS_MAIN(WinnersFileTest)
#include "winners_file_test.moc"
