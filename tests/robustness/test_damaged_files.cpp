// The game started the way the program starts it (splash first) in folders
// where its files are missing or broken: empty, cut short, random bytes,
// oversized, or a folder in a file's place. A picture it cannot do without
// stops it with one message naming the file; a broken later symbol ends the
// symbols in play there; broken sounds leave the game silent. Nothing
// crashes or hangs.
#include "damage.h"
#include "game/slot.h"
#include "platform/caption_button.h"
#include "platform/window_helpers.h"
#include "screens/splash.h"
#include "tests/game/game_fixture.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>

Q_DECLARE_METATYPE(damage::Kind)

class TestDamagedFiles : public QObject {
    Q_OBJECT

    QStringList messages;
    frmSplash* splash = nullptr;

    // Starts the game in dir; the main window when it started.
    slot_machine* start(const QString& dir)
    {
        splash = new frmSplash;
        QElapsedTimer clock;
        clock.start();
        const bool started = fixture::inDir(dir, [this] { return splash->Form_Load(); });
        if (clock.elapsed() > 10000)
            qWarning("start-up took %lld ms", clock.elapsed());
        return started ? splash->mainWindow() : nullptr;
    }

    static int visibleMainWindows()
    {
        int n = 0;
        for (QWidget* top : QApplication::topLevelWidgets())
            n += qobject_cast<slot_machine*>(top) && top->isVisible() ? 1 : 0;
        return n;
    }

    // One spin to its settlement, with the bet buttons' sounds before it.
    static void playOnce(slot_machine& w, const QString& dir)
    {
        fixture::inDir(dir, [&] {
            w.Commandlines_Click(3);
            w.Commandcre_Click(2);
            w.Command3_Click();
            w.Command1_Click();
            QVERIFY(w.spinning);
            QVERIFY(fixture::waitSettled(w));
        });
        QVERIFY(!w.spinning);
        QVERIFY(w.Command1->isEnabled());
        bool whole = false;
        const long long bank = w.Text3->text().toLongLong(&whole);
        QVERIFY(whole && bank > 0);
    }

private slots:
    void initTestCase()
    {
        fixture::fastPacing();
        win::messageHook = [this](const QString&, const QString& text) { messages << text; };
    }

    void init() { messages.clear(); }

    void cleanup()
    {
        if (splash) {
            delete splash->mainWindow();
            delete splash;
            splash = nullptr;
        }
        QVERIFY(QDir("game").removeRecursively());
    }

    void aPictureTheGameNeedsStopsItWithOneMessage_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<damage::Kind>("kind");
        for (const char* file : {"0.emf", "1.jpg", "9.jpg"})
            for (damage::Kind kind : damage::everyKind())
                QTest::newRow(qPrintable(QString("%1 %2").arg(file, damage::nameOf(kind)))) << QString(file) << kind;
    }
    void aPictureTheGameNeedsStopsItWithOneMessage()
    {
        QFETCH(QString, file);
        QFETCH(damage::Kind, kind);
        QVERIFY(stockFolder("game"));
        QVERIFY(damage::apply("game", file, kind));
        slot_machine* w = start("game");
        const bool decodable = kind == damage::Kind::oversized || kind == damage::Kind::truncated;
        if (decodable && file.endsWith(".jpg")) {
            // The decoder shows what there is of the picture (a cut-off one
            // greyed from where it ends); what follows its end is not read.
            QVERIFY(w);
            QVERIFY(messages.isEmpty());
            return;
        }
        QVERIFY(!w);
        QCOMPARE(messages.size(), 1);
        QVERIFY2(messages[0].contains('"' + file + '"'), qPrintable(messages[0]));
        QCOMPARE(visibleMainWindows(), 0);
        QVERIFY(!splash->isVisible());
    }

    void aBrokenLaterSymbolEndsTheSymbolsInPlay_data()
    {
        QTest::addColumn<damage::Kind>("kind");
        for (damage::Kind kind : damage::everyKind())
            QTest::newRow(damage::nameOf(kind)) << kind;
    }
    void aBrokenLaterSymbolEndsTheSymbolsInPlay()
    {
        QFETCH(damage::Kind, kind);
        QVERIFY(stockFolder("game"));
        QVERIFY(damage::apply("game", "7.emf", kind));
        slot_machine* w = start("game");
        QVERIFY(w);
        QVERIFY(messages.isEmpty());
        QCOMPARE(slot::maxsymbol, 6);
        QCOMPARE(int(w->Image2.size()), 7 * 12);
        playOnce(*w, "game");
        for (int i = 1; i <= 15; ++i)
            QVERIFY(w->symbol[i] >= 0 && w->symbol[i] <= 6);
    }

    // Pictures the game shows but can do without: the splash, the arrows,
    // the icon. And the sounds: the game plays on in silence.
    void brokenDecorationsAndSoundsLeaveTheGamePlaying_data()
    {
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<damage::Kind>("kind");
        const QStringList decorations{"splash.emf", "arrow_left.svg", "arrow_right.svg", "reelmoor.svg"};
        const QStringList sounds{"clink.wav", "chimes.wav", "clunk.wav", "jackpot.wav"};
        for (damage::Kind kind : damage::everyKind()) {
            QTest::newRow(qPrintable(QString("pictures %1").arg(damage::nameOf(kind)))) << decorations << kind;
            QTest::newRow(qPrintable(QString("sounds %1").arg(damage::nameOf(kind)))) << sounds << kind;
        }
    }
    void brokenDecorationsAndSoundsLeaveTheGamePlaying()
    {
        QFETCH(QStringList, files);
        QFETCH(damage::Kind, kind);
        QVERIFY(stockFolder("game"));
        for (const QString& f : files)
            QVERIFY(damage::apply("game", f, kind));
        slot_machine* w = start("game");
        QVERIFY(w);
        QVERIFY(messages.isEmpty());
        QCOMPARE(slot::maxsymbol, 49);
        const int beeps = w->beepsSounded();
        playOnce(*w, "game");
        QVERIFY(w->beepsSounded() - beeps >= 15);  // one per reel, heard or not
        splash->repaint();
        w->repaint();
    }
};

QTEST_MAIN(TestDamagedFiles)
#include "test_damaged_files.moc"
