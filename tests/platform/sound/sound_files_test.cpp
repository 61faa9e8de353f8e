// The committed sound files and the beep made in memory: their format,
// length and level, and the seam of the looping clink.
#include "platform/sound/beep_tone.h"
#include "platform/sound/wav_file.h"

#include <QDir>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

int peakOf(const std::vector<std::int16_t>& samples)
{
    int peak = 0;
    for (auto s : samples)
        peak = std::max(peak, std::abs(int(s)));
    return peak;
}

constexpr int belowFullScale = 29204;  // -1 dBFS

}  // namespace

class SoundFilesTest : public QObject {
    Q_OBJECT

private slots:
    void assetIsShortCleanPcm_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<double>("longest");
        QTest::newRow("clink") << "clink.wav" << 0.5;
        QTest::newRow("chimes") << "chimes.wav" << 1.5;
        QTest::newRow("clunk") << "clunk.wav" << 0.4;
        QTest::newRow("jackpot") << "jackpot.wav" << 1.5;
    }

    void assetIsShortCleanPcm()
    {
        QFETCH(QString, name);
        QFETCH(double, longest);
        const QString path = QDir(qEnvironmentVariable("REELMOOR_ASSETS")).filePath(name);
        const auto sound = wav::read(path.toStdString());
        QVERIFY2(sound, "16-bit PCM WAV");
        QCOMPARE(sound->rate, 44100);
        QVERIFY(sound->channels == 1 || sound->channels == 2);
        QVERIFY(sound->seconds() > 0.1 && sound->seconds() < longest);
        const int peak = peakOf(sound->samples);
        QVERIFY2(peak > 8000, "audible");
        QVERIFY2(peak <= belowFullScale, "no clipping");
        // starts and ends quietly, so neither end clicks
        QVERIFY(std::abs(sound->samples.front()) < 100 && std::abs(sound->samples.back()) < 100);
    }

    void clinkLoopsWithoutASeam()
    {
        const QString path = QDir(qEnvironmentVariable("REELMOOR_ASSETS")).filePath("clink.wav");
        const auto clink = wav::read(path.toStdString());
        QVERIFY(clink);
        const auto& s = clink->samples;
        const std::size_t ms = 44;  // about a millisecond of frames
        // Across the seam the wave runs on with no jump: both sides are near zero
        // and the last millisecond holds only the faint end of a click.
        QVERIFY(std::abs(s.back() - s.front()) < 30);
        QVERIFY(peakOf({s.end() - std::ptrdiff_t(ms), s.end()}) < 100);
        QVERIFY(peakOf({s.begin(), s.begin() + std::ptrdiff_t(ms)}) < peakOf(s));
        // The rhythm goes on across the seam: the loudest click of each quarter
        // sits at the same place within its quarter.
        const std::size_t quarter = s.size() / 4;
        std::vector<std::size_t> loudest;
        for (std::size_t q = 0; q < 4; ++q) {
            const auto begin = s.begin() + std::ptrdiff_t(q * quarter);
            const auto at = std::max_element(begin, begin + std::ptrdiff_t(quarter),
                                              [](auto a, auto b) { return std::abs(a) < std::abs(b); });
            loudest.push_back(std::size_t(at - begin));
        }
        for (std::size_t q = 1; q < 4; ++q)
            QVERIFY(std::abs(long(loudest[q]) - long(loudest[0])) < long(2 * ms));
    }

    void beepIsShortAndSoft()
    {
        const wav::Sound beep = sound::beepTone();
        QVERIFY(beep.seconds() >= 0.025 && beep.seconds() <= 0.040);
        QCOMPARE(beep.samples.front(), std::int16_t(0));
        QVERIFY(std::abs(beep.samples.back()) <= 1);
        const int peak = peakOf(beep.samples);
        QVERIFY(peak > 3000 && peak <= int(32767 * sound::beepPeak));

        // what the player loads is what was made
        const auto again = wav::decode(wav::encode(beep));
        QVERIFY(again);
        QCOMPARE(again->samples, beep.samples);
    }

    void decoderRejectsWhatItCannotPlay()
    {
        wav::Sound sound;
        sound.samples = {0, 1000, -1000, 0};
        auto bytes = wav::encode(sound);
        bytes[34] = 8;  // 8 bits per sample
        QVERIFY(!wav::decode(bytes));
        bytes = wav::encode(sound);
        bytes.resize(bytes.size() - 3);  // data cut short
        QVERIFY(!wav::decode(bytes));
        QVERIFY(!wav::decode({}));
    }
};

QTEST_GUILESS_MAIN(SoundFilesTest)
#include "sound_files_test.moc"
