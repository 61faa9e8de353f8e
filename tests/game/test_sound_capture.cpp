// What a player hears, captured: SDL's disk audio driver writes the game's
// mix to a file, and the file must hold sound where sound is due.
#include "game_fixture.h"

#include <QFile>
#include <QFileInfo>

#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace {
const char* kCapture = "capture.raw";

// Peak and RMS of the 16-bit samples in bytes [from, to) of the capture.
struct Level {
    double peak = 0;
    double rms = 0;
};
Level level(qint64 from, qint64 to)
{
    QFile f(kCapture);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    f.seek(from);
    const QByteArray bytes = f.read(std::max<qint64>(0, to - from));
    const auto* samples = reinterpret_cast<const std::int16_t*>(bytes.constData());
    const qsizetype n = bytes.size() / 2;
    Level l;
    double sum = 0;
    for (qsizetype i = 0; i < n; ++i) {
        const double v = samples[i] / 32768.0;
        l.peak = std::max(l.peak, std::abs(v));
        sum += v * v;
    }
    l.rms = n ? std::sqrt(sum / double(n)) : 0;
    return l;
}

qint64 captured() { return QFileInfo(kCapture).size(); }
}

class TestSoundCapture : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        fixture::stock("all", fixture::everything());
        pacing().timerScale = 0.25;  // the reels stop 0.5 to 1.5 s after the click
    }

    void aSpinRollsAndBeepsThenTheBetButtonsSound()
    {
        auto w = fixture::inDir("all", [] { return std::make_unique<slot_machine>(); });
        QDir::setCurrent("all");
        QFile::remove(kCapture);
        w->Command1_Click();
        QVERIFY(fixture::waitSettled(*w));
        QTest::qWait(300);
        const qint64 spin = captured();
        QVERIFY2(spin > 44100 * 4 / 2, "at least half a second of the spin captured");
        // No reel stops in the first half second: what sounds there is the rolling clink.
        const Level rolling = level(0, 44100 * 4 * 45 / 100);
        QVERIFY2(rolling.peak > 0.2 && rolling.rms > 0.02,
                 qPrintable(QString("peak %1 rms %2").arg(rolling.peak).arg(rolling.rms)));
        // Then the reels stop with a beep each, over the clink.
        const Level stopping = level(44100 * 4 / 2, spin);
        QVERIFY(stopping.rms > rolling.rms);

        // Quiet again: the device rests and the capture stops growing.
        QTest::qWait(3800);
        const qint64 rested = captured();
        QTest::qWait(500);
        QCOMPARE(captured(), rested);

        // A line button chimes; the device opens anew and captures it.
        w->Commandlines_Click(3);
        QTest::qWait(900);
        const Level chimes = level(0, captured());
        QVERIFY2(chimes.peak > 0.2, qPrintable(QString("peak %1").arg(chimes.peak)));

        // Without its sound files the game plays on in silence.
        for (const char* f : {"clink.wav", "chimes.wav", "clunk.wav", "jackpot.wav"})
            QFile::remove(f);
        w->Commandcre_Click(4);
        w->Command1_Click();
        QVERIFY(fixture::waitSettled(*w));
        QDir::setCurrent("..");
    }
};

int main(int argc, char** argv)
{
    qputenv("SDL_AUDIODRIVER", "disk");
    qputenv("SDL_DISKAUDIOFILE", kCapture);
    QApplication app(argc, argv);
    TestSoundCapture test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_sound_capture.moc"
