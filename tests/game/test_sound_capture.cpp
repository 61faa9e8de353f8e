// What a player hears, captured: SDL's disk audio driver writes the game's
// mix to a file, and the file must hold sound where sound is due.
#include "game_fixture.h"
#include "tests/sound/disk_capture.h"

#include <QFile>

namespace {
constexpr double kFull = 32768;  // a sample's full scale
}

class TestSoundCapture : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        stockFolder("all");
        pacing().timerScale = 0.25;  // the reels stop 0.5 to 1.5 s after the click
    }

    void aSpinRollsAndBeepsThenTheBetButtonsSound()
    {
        auto w = fixture::inDir("all", [] { return std::make_unique<slot_machine>(); });
        QDir::setCurrent("all");
        startCapture("capture.raw");
        w->Command1_Click();
        QVERIFY(fixture::waitSettled(*w));
        QTest::qWait(300);
        const std::size_t spin = capturedFrames();
        QVERIFY2(spin > 44100 / 2, "at least half a second of the spin captured");
        // No reel stops in the first half second: what sounds there is the rolling clink.
        const Capture rolling = readCapture().part(0, 44100 * 45 / 100);
        QVERIFY2(rolling.peak() > 0.2 * kFull && rolling.rms() > 0.02 * kFull,
                 qPrintable(QString("peak %1 rms %2").arg(rolling.peak()).arg(rolling.rms())));
        // Then the reels stop with a beep each, over the clink.
        QVERIFY(readCapture().part(44100 / 2, spin).rms() > rolling.rms());

        // Quiet again: the device rests and the capture stops growing.
        QTest::qWait(3800);
        const std::size_t rested = capturedFrames();
        QTest::qWait(500);
        QCOMPARE(capturedFrames(), rested);

        // A line button chimes; the device opens anew and captures it.
        w->Commandlines_Click(3);
        QTest::qWait(900);
        const int chimes = readCapture().peak();
        QVERIFY2(chimes > 0.2 * kFull, qPrintable(QString("peak %1").arg(chimes)));

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
    QApplication app(argc, argv);
    TestSoundCapture test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_sound_capture.moc"
