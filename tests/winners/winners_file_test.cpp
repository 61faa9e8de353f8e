// SPDX-License-Identifier: GPL-2.0-or-later
// The table of winners on disk: byte layout, an empty file, names, credits
// and saves that fail or are cut short.
#include "tests/winners/file_bytes.h"
#include "winners/winners_file.h"

#include <QtTest>

#include <cerrno>
#include <optional>

#include <sys/wait.h>
#include <unistd.h>

namespace {

// Bytes that differ at every offset, so a byte in the wrong place shows.
QByteArray pattern(int size)
{
    QByteArray bytes(size, '\0');
    for (int i = 0; i < size; ++i) bytes[i] = char((i * 7 + 3) & 0xFF);
    return bytes;
}

QByteArray bytesOf(const winners::Table& table)
{
    const auto bytes = winners::encode(table);
    return QByteArray(reinterpret_cast<const char*>(bytes.data()), qsizetype(bytes.size()));
}

winners::Table sampleTable()
{
    winners::Table t;
    const char* names[10] = {"ALICE", "", "a name of twenty chr", "Zo\xc3\xab", "\xe2\x82\xac uro",
                             "x", "      lead", "tab\there", "END", "LAST ONE"};
    const std::int32_t credits[10] = {INT32_MAX, 1, 0, -1, -5000, 123456, 7, 65536, 256, INT32_MIN};
    for (int i = 0; i < 10; ++i) t[i] = {winners::nameFromUtf8(names[i]), credits[i]};
    return t;
}

std::string asString(const std::array<unsigned char, 20>& name) { return {name.begin(), name.end()}; }

}  // namespace

class WinnersFileTest : public QObject {
    Q_OBJECT
    std::optional<ScratchDir> scratch_;

private slots:
    void init() { scratch_.emplace(); }
    void cleanup() { scratch_.reset(); }

    void roundTrips()
    {
        QCOMPARE(bytesOf(winners::defaultTable()), defaultFile());
        const winners::Table t = sampleTable();
        QVERIFY(winners::save(t).ok);
        QCOMPARE(readFile("name.dat").size(), 240);
        const winners::Opened back = winners::open();
        QVERIFY(back.fromFile);
        QCOMPARE(back.table, t);
        QVERIFY(!QFile::exists("name.dat.tmp"));

        // Names of any bytes shown as text and set again, files of odd sizes
        // read and saved: fuzz_winners, replaying its corpus.
    }

    void anEmptyFileReadsAsTheDefaultTable()
    {
        QVERIFY(writeFile("name.dat", {}));
        const winners::Opened opened = winners::open();
        QCOMPARE(opened.table, winners::defaultTable());
        QCOMPARE(opened.recordCount, 0.0);
        QCOMPARE(readFile("name.dat"), QByteArray());  // opening leaves it as it is
    }

    void namesAndCredits()
    {
        QCOMPARE(asString(winners::nameFromUtf8("ABCDEFGHIJKLMNOPQRSTUVWXY")), std::string("ABCDEFGHIJKLMNOPQRST"));
        QCOMPARE(asString(winners::nameFromUtf8("ABC")), "ABC" + std::string(17, ' '));
        // é and € are in the code page, a CJK character and an emoji are not;
        // malformed UTF-8 is no character either.
        QCOMPARE(asString(winners::nameFromUtf8("\xc3\xa9\xe2\x82\xac\xe6\xbc\xa2\xf0\x9f\x98\x80Z\x80\xe2\x82\x7f")),
                 "\xe9\x80??Z??\x7f" + std::string(12, ' '));

        QCOMPARE(winners::creditsFromBank(Currency::fromRaw(470005000)), 47000);  // 47000.5
        QCOMPARE(winners::creditsFromBank(Currency::fromRaw(470015000)), 47002);  // 47001.5
        QCOMPARE(winners::creditsFromBank(Currency::fromWhole(-3'000'000'000LL)), INT32_MIN);
        QCOMPARE(winners::creditsFromBank(Currency::max()), INT32_MAX);
        QVERIFY(!winners::beats(Currency::fromWhole(45000), 45000));
        QVERIFY(winners::beats(Currency::fromRaw(450000001), 45000));  // 45000.0001
    }

    void aSaveThatFailsLeavesTheOldFileWhole()
    {
        const QByteArray old = defaultFile() + pattern(60);
        QVERIFY(writeFile("name.dat", old));
        // The disk fills up after 100 bytes, taken 7 at a time.
        std::size_t written = 0;
        const winners::Writer diskFull = [&](int fd, const unsigned char* data, std::size_t size) -> long {
            if (written >= 100) { errno = ENOSPC; return -1; }
            const long done = long(::write(fd, data, std::min<std::size_t>(size, 7)));
            written += std::size_t(std::max(done, 0L));
            return done;
        };
        const winners::Saved saved = winners::save(sampleTable(), winners::kFileName, diskFull);
        QVERIFY(!saved.ok);
        QVERIFY(saved.error.find("No space left") != std::string::npos);
        QCOMPARE(readFile("name.dat"), old);
        QVERIFY(!QFile::exists("name.dat.tmp"));
    }

    void aSaveKilledHalfwayLeavesTheOldFile()
    {
        QVERIFY(writeFile("name.dat", defaultFile()));
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
        QCOMPARE(readFile("name.dat"), defaultFile());

        // The leftover of the dead save does not stand in the way of the next.
        QVERIFY(winners::save(sampleTable()).ok);
        QCOMPARE(readFile("name.dat"), bytesOf(sampleTable()));
    }
};

QTEST_APPLESS_MAIN(WinnersFileTest)
#include "winners_file_test.moc"
