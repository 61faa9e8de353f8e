// Three hundred spins in a row at the largest bet, with the reels, flashes
// and sounds on short timers: every spin settles and hands the controls
// back, and the resident memory after the last spin stays within 2 MB of
// what it was after the thirtieth.
#include "game/slot.h"
#include "platform/caption_button.h"
#include "platform/random.h"
#include "tests/game/game_fixture.h"
#include "winners/creditsdeck.h"

#include <QElapsedTimer>
#include <QLineEdit>

namespace {
// Resident memory of this process in kB, from /proc/self/status.
long residentKb()
{
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').first().toLong();
    return -1;
}
}

class TestSoak : public QObject {
    Q_OBJECT

private slots:
    void threeHundredSpins()
    {
        stockFolder("all");
        pacing().passMs = 1;
        pacing().tickMs = 1;
        pacing().timerScale = 0.01;  // reels stop 20 to 60 ms after the click
        auto w = fixture::inDir("all", [] { return std::make_unique<slot_machine>(); });
        QVERIFY(w->startupError().isEmpty());
        QDir::setCurrent("all");  // the sounds are read from here as they play
        rnd::seed(300);

        QElapsedTimer clock;
        clock.start();
        long after30 = 0;
        long wins = 0;
        for (int spin = 1; spin <= 300; ++spin) {
            // The largest bet: all nine lines both ways, so wins and flashes are many.
            w->Command6_Click();
            QVERIFY2(w->spinning, qPrintable(QString("spin %1").arg(spin)));
            QVERIFY2(fixture::waitSettled(*w), qPrintable(QString("spin %1").arg(spin)));
            QVERIFY(w->Command1->isEnabled());
            wins += w->Text1->text() != "0" ? 1 : 0;
            if (spin == 30)
                after30 = residentKb();
            if (spin % 50 == 0)
                qInfo("spin %d: %ld kB resident, %lld ms", spin, residentKb(), clock.elapsed());
        }
        const long after300 = residentKb();
        qInfo("resident after spin 30: %ld kB, after spin 300: %ld kB (%+ld kB); %ld winning spins; %lld ms",
              after30, after300, after300 - after30, wins, clock.elapsed());
        QVERIFY(after30 > 0);
#ifndef __SANITIZE_ADDRESS__  // the sanitizer holds freed blocks back; leaks are its own business
        QVERIFY2(after300 - after30 <= 2048, "the game grows as it plays");
#endif
    }
};

QTEST_MAIN(TestSoak)
#include "test_soak.moc"
