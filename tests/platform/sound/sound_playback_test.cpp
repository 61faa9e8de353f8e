// SPDX-License-Identifier: GPL-2.0-or-later
// What the game's sounds put out, captured through SDL's disk driver.
#include "disk_capture.h"

#include "platform/sound/audio_device.h"
#include "platform/sound/beep_tone.h"
#include "platform/sound/media_player.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryFile>
#include <QTest>

#include <algorithm>
#include <array>
#include <csignal>
#include <unistd.h>

namespace {

wav::Sound asset(const char* name)
{
    auto sound = wav::read(name);
    return sound ? *sound : wav::Sound{};
}

bool waitUntilQuiet(const MediaPlayer& player)
{
    QElapsedTimer clock;
    clock.start();
    while (player.playing() && clock.elapsed() < 5000)
        QTest::qWait(2);
    return !player.playing();
}

}  // namespace

class SoundPlaybackTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // The player made before the device opens lives until after the device
        // has been closed at exit; it must not trip over that.
        static MediaPlayer madeBeforeTheDevice;
        Q_UNUSED(madeBeforeTheDevice);

        const QDir assets(qEnvironmentVariable("REELMOOR_ASSETS"));
        for (const char* name : {"clink.wav", "chimes.wav", "clunk.wav", "jackpot.wav"}) {
            QFile::remove(name);
            QVERIFY2(QFile::copy(assets.filePath(name), name), name);
        }
        qputenv("SDL_AUDIODRIVER", "disk");
        qputenv("SDL_DISKAUDIODELAY", "1");  // milliseconds per 1024 frames: ~20 times real time
    }

    void fileIsPlayedItsCount_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("count");
        QTest::newRow("once") << "chimes.wav" << 1;
        QTest::newRow("three times") << "clunk.wav" << 3;
    }
    void fileIsPlayedItsCount()
    {
        QFETCH(QString, file);
        QFETCH(int, count);
        startCapture(file + ".raw");
        MediaPlayer player;
        player.setPlayCount(count);
        player.setFileName(file.toStdString());
        QVERIFY(player.playing());
        QVERIFY(waitUntilQuiet(player));
        const Capture capture = finishCapture();
        QVERIFY(capture.peak() > 10000);
        const wav::Sound sound = asset(qPrintable(file));
        QVERIFY(capture.holdsExactly(sound, count));
    }

    void emptyNameStopsTheLoop()
    {
        startCapture("clink.raw");
        MediaPlayer player;
        player.setPlayCount(100000);
        player.setFileName("clink.wav");
        waitForMoreAudio(3 * 44100);  // a few seconds of rolling
        QVERIFY(player.playing());
        player.setFileName("");
        QVERIFY(!player.playing());
        QCOMPARE(player.fileName(), std::string());
        const Capture capture = finishCapture();

        const long rolled = capture.lastSoundFrame() - capture.firstSoundFrame();
        QVERIFY2(rolled > 2 * 44100, "the clink kept repeating");
        QVERIFY2(capture.frames() - std::size_t(capture.lastSoundFrame()) > 4096, "silence after the stop");
    }

    void newFileReplacesTheOld()
    {
        startCapture("replace.raw");
        MediaPlayer player;
        player.setPlayCount(100000);
        player.setFileName("clink.wav");
        waitForMoreAudio();
        player.setPlayCount(1);
        player.setFileName("jackpot.wav");
        QVERIFY(waitUntilQuiet(player));
        waitForMoreAudio();
        QVERIFY2(!player.playing(), "the clink does not come back");

        player.setPlayCount(100000);
        player.setFileName("clink.wav");
        player.setFileName("no such sound.wav");  // stops the old one and plays nothing
        QVERIFY(!player.playing());
        QCOMPARE(player.fileName(), std::string("no such sound.wav"));
        const Capture capture = finishCapture();
        QVERIFY(capture.frames() - std::size_t(capture.lastSoundFrame()) > 4096);
    }

    void beepsOverlap()
    {
        const wav::Sound beep = sound::beepTone();
        const int beepPeak = Capture{beep.samples}.peak();

        startCapture("beeps.raw");
        sound::audioReady();
        for (int i = 0; i < 3; ++i)  // in the same few microseconds: heard together
            systemBeep();
        const Capture capture = finishCapture();
        QVERIFY2(capture.peak() > beepPeak * 18 / 10, "beeps sound together, none cuts off another");
        const long heard = capture.lastSoundFrame() - capture.firstSoundFrame();
        QVERIFY(heard > long(beep.frames()) / 2 && heard < 3 * long(beep.frames()));
    }

    // However many players there are, each keeps a channel of its own.
    void beepsLeaveThePlayersAlone()
    {
        startCapture("clink-and-beeps.raw");
        std::array<MediaPlayer, 12> others;
        for (MediaPlayer& other : others)
            other.setFileName("chimes.wav");
        MediaPlayer player;
        player.setPlayCount(100000);
        player.setFileName("clink.wav");
        for (int i = 0; i < 40; ++i) {  // a long flashing win: beeps more than the channels
            systemBeep();
            QVERIFY(player.playing());
        }
        QVERIFY(std::all_of(others.begin(), others.end(), [](const MediaPlayer& p) { return p.playing(); }));
        waitForMoreAudio();
        QVERIFY(player.playing());
        player.setFileName("");
        const Capture capture = finishCapture();
        QVERIFY(capture.peak() > 0);
    }

    // The device is closed once nothing plays, and opened by the next sound.
    void theDeviceRestsOnlyWhenQuiet()
    {
        startCapture("rest.raw");
        MediaPlayer player;
        player.setFileName("clunk.wav");
        QVERIFY(!restAudioWhenSilent() && sound::audioOpen());
        player.setFileName("");
        QVERIFY(restAudioWhenSilent() && !sound::audioOpen() && restAudioWhenSilent());
        player.setFileName("chimes.wav");
        QVERIFY(player.playing());
    }

    void noDeviceIsSilentAndSaysSoOnce()
    {
        sound::closeAudio();
        qputenv("SDL_AUDIODRIVER", "no-such-driver");

        QTemporaryFile log;
        QVERIFY(log.open());
        std::fflush(stderr);
        const int savedStderr = dup(STDERR_FILENO);
        dup2(log.handle(), STDERR_FILENO);
        {
            MediaPlayer player;
            for (int round = 0; round < 2; ++round) {
                player.setPlayCount(3);
                player.setFileName("clunk.wav");
                QVERIFY(!player.playing());
                systemBeep();
                player.setFileName("");
                sound::closeAudio();  // tried again: still no device, no second message
            }
            QCOMPARE(player.fileName(), std::string());
        }
        std::fflush(stderr);
        dup2(savedStderr, STDERR_FILENO);
        close(savedStderr);

        QVERIFY(!sound::audioReady());
        const QByteArray said = log.readAll();
        QVERIFY2(said.count('\n') <= 1, said.constData());
        qputenv("SDL_AUDIODRIVER", "disk");
        sound::closeAudio();
    }

    void ctrlCStillEndsTheProgram()
    {
        // As in the game, the signals have their default actions (the test
        // library puts in handlers of its own, which are set aside meanwhile).
        struct sigaction defaults {}, testInterrupt {}, testTerminate {};
        defaults.sa_handler = SIG_DFL;
        sound::closeAudio();
        sigaction(SIGINT, &defaults, &testInterrupt);
        sigaction(SIGTERM, &defaults, &testTerminate);
        const bool opened = sound::audioReady();
        struct sigaction onInterrupt {}, onTerminate {};
        sigaction(SIGINT, &testInterrupt, &onInterrupt);
        sigaction(SIGTERM, &testTerminate, &onTerminate);
        QVERIFY(opened);
        QVERIFY2(onInterrupt.sa_handler == SIG_DFL && onTerminate.sa_handler == SIG_DFL,
                 "opening the device leaves Ctrl+C and SIGTERM alone");
    }

    void quittingWhileASoundPlays()
    {
        // Left playing: the program ends with the device busy.
        static MediaPlayer stillRolling;
        startCapture("at-exit.raw");
        stillRolling.setPlayCount(100000);
        stillRolling.setFileName("clink.wav");
        systemBeep();
        QVERIFY(stillRolling.playing());
    }
};

QTEST_GUILESS_MAIN(SoundPlaybackTest)
#include "sound_playback_test.moc"
