// SPDX-License-Identifier: GPL-2.0-or-later
// The beep made in memory: its length and level, and the decoder's refusals.
#include "platform/sound/beep_tone.h"
#include "platform/sound/wav_file.h"

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

}  // namespace

class SoundFilesTest : public QObject {
    Q_OBJECT

private slots:
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
        bytes[22] = 0;  // no channels
        QVERIFY(!wav::decode(bytes));
        bytes = wav::encode(sound);
        bytes.resize(bytes.size() - 3);  // data cut short
        QVERIFY(!wav::decode(bytes));
        QVERIFY(!wav::decode({}));
    }
};

QTEST_GUILESS_MAIN(SoundFilesTest)
#include "sound_files_test.moc"
