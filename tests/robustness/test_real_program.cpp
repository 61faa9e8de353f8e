// The real program, started the way a player starts it, in folders where
// files are broken. On a screenless (offscreen) display nobody can click,
// so these runs show what happens up to an idle game: it comes up past its
// splash and keeps running, printing nothing new, and leaves "name.dat" as
// it was. Refusals at start-up wait for the player at their message box;
// what that message says is checked in the damaged-files test.
#include "damage.h"

#include <QProcess>
#include <QTest>

#include <memory>
#include <vector>

namespace {
struct Run {
    QString name;
    QString dir;
    QByteArray winners;  // what "name.dat" held before, when there was one
    std::unique_ptr<QProcess> process;
};

// Lines any run of the game on a screenless display may print.
bool expectedNoise(const QString& line)
{
    return line.isEmpty() || line.startsWith("QStandardPaths: XDG_RUNTIME_DIR") ||
           line == "This plugin does not support raise()" || line.startsWith("qt.svg: ") ||
           line.startsWith("qt.gui.imageio.jpeg: Corrupt JPEG data") || line.startsWith("reelmoor: playing without sound");
}

QProcessEnvironment gameEnvironment()
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("QT_QPA_PLATFORM", "offscreen");
    env.insert("SDL_AUDIODRIVER", "dummy");
    return env;
}
}

class TestRealProgram : public QObject {
    Q_OBJECT

private slots:
    void startsAndKeepsRunningAmongBrokenFiles()
    {
        using damage::Kind;
        const struct {
            const char* name;
            std::vector<std::pair<const char*, Kind>> damage;
            QByteArray winners;
        } cases[] = {
            {"everything whole", {}, {}},
            {"symbol 7 random bytes", {{"7.emf", Kind::randomBytes}}, {}},
            {"symbol 12 oversized", {{"12.emf", Kind::oversized}}, {}},
            {"symbol 20 cut short", {{"20.emf", Kind::truncated}}, {}},
            {"symbol 30 a folder", {{"30.emf", Kind::folder}}, {}},
            {"sounds broken",
             {{"clink.wav", Kind::randomBytes}, {"chimes.wav", Kind::empty}, {"clunk.wav", Kind::truncated},
              {"jackpot.wav", Kind::oversized}},
             {}},
            {"sounds missing",
             {{"clink.wav", Kind::missing}, {"chimes.wav", Kind::missing}, {"clunk.wav", Kind::missing},
              {"jackpot.wav", Kind::missing}},
             {}},
            {"splash and arrows broken",
             {{"splash.emf", Kind::randomBytes}, {"arrow_left.svg", Kind::truncated}, {"arrow_right.svg", Kind::empty}},
             {}},
            {"line picture cut short", {{"5.jpg", Kind::truncated}}, {}},
            {"name.dat random bytes", {}, damage::randomBytes(1000, 5)},
            {"name.dat of 7 bytes", {}, damage::randomBytes(7, 6)},
        };

        std::vector<Run> runs;
        for (const auto& c : cases) {
            Run run;
            run.name = c.name;
            run.dir = QDir::current().absoluteFilePath(QString(c.name).replace(' ', '_'));
            QVERIFY(stockFolder(run.dir));
            for (const auto& [file, kind] : c.damage)
                QVERIFY(damage::apply(run.dir, file, kind));
            run.winners = c.winners;
            if (!run.winners.isEmpty())
                QVERIFY(writeFile(run.dir + "/name.dat", run.winners));
            run.process = std::make_unique<QProcess>();
            run.process->setWorkingDirectory(run.dir);
            run.process->setProcessEnvironment(gameEnvironment());
            run.process->start(REELMOOR_EXE, {});
            runs.push_back(std::move(run));
        }
        for (Run& run : runs)
            QVERIFY2(run.process->waitForStarted(10000), qPrintable(run.name));
        // The splash closes after three seconds; the game then stands idle.
        QTest::qWait(5000);

        for (Run& run : runs) {
            QVERIFY2(run.process->state() == QProcess::Running,
                     qPrintable(run.name + ": ended with " + QString::number(run.process->exitCode())));
            run.process->terminate();
            QVERIFY(run.process->waitForFinished(10000));
            for (const QString& line : QString::fromLocal8Bit(run.process->readAllStandardError()).split('\n'))
                QVERIFY2(expectedNoise(line), qPrintable(run.name + ": " + line));
            if (run.winners.isEmpty())
                QVERIFY2(!QFile::exists(run.dir + "/name.dat"), qPrintable(run.name));
            else
                QCOMPARE(readFile(run.dir + "/name.dat"), run.winners);
            QDir(run.dir).removeRecursively();
        }
    }

    // Without a picture it needs, the program does not get past its message
    // box: it neither crashes nor plays on.
    void aMissingPictureHoldsAtItsMessage()
    {
        for (const char* file : {"0.emf", "3.jpg"}) {
            const QString dir = QDir::current().absoluteFilePath("refused");
            QVERIFY(stockFolder(dir));
            QVERIFY(damage::apply(dir, file, damage::Kind::randomBytes));
            QProcess game;
            game.setWorkingDirectory(dir);
            game.setProcessEnvironment(gameEnvironment());
            game.start(REELMOOR_EXE, {});
            QVERIFY(game.waitForStarted(10000));
            QVERIFY(!game.waitForFinished(4000));
            game.terminate();
            QVERIFY(game.waitForFinished(10000));
            QVERIFY(!QFile::exists(dir + "/name.dat"));
            QDir(dir).removeRecursively();
        }
    }

    void withoutADisplayItSaysSoInOneLine()
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        for (const char* v : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
            env.remove(v);
        QProcess game;
        game.setProcessEnvironment(env);
        game.start(REELMOOR_EXE, {});
        QVERIFY(game.waitForFinished(10000));
        QCOMPARE(game.exitStatus(), QProcess::NormalExit);
        QCOMPARE(game.exitCode(), 1);
        const QByteArray said = game.readAllStandardError();
        QCOMPARE(said.count('\n'), 1);
        QVERIFY(said.contains("display"));
    }
};

QTEST_GUILESS_MAIN(TestRealProgram)
#include "test_real_program.moc"
