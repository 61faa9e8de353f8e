// What a player can do to the running game: type anything into the bank
// box, push "credits times 10" to its end and play there, and close the
// window at any moment of a spin or a flash. Every spin settles, the boxes
// keep showing numbers the game reads back, and the table of winners in
// "name.dat" keeps every row the player did not take.
#include "damage.h"
#include "game/reel_surface.h"
#include "game/slot.h"
#include "platform/caption_button.h"
#include "platform/random.h"
#include "rules/settlement.h"
#include "tests/game/game_fixture.h"
#include "winners/creditsdeck.h"
#include "winners/winners_file.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpression>

#include <algorithm>

namespace {
// A table everyone beats, and a tail another version of the game left.
QByteArray lowTable()
{
    QByteArray bytes;
    for (int i = 0; i < 10; ++i)
        bytes += record("LOW" + QByteArray::number(i), 1000 - 100 * i);
    return bytes + "tail bytes";
}

Currency shown(QLineEdit* box) { return readBank(box->text().toStdString()); }

// The box holds the plain text of an amount as the game writes it.
bool plainAmount(QLineEdit* box)
{
    static const QRegularExpression amount(QStringLiteral("^-?[0-9]{1,15}(\\.[0-9]{1,4})?$"));
    if (amount.match(box->text()).hasMatch())
        return true;
    qWarning("not an amount: \"%s\"", qPrintable(box->text().left(40)));
    return false;
}

creditsdeck* closingScreen()
{
    creditsdeck* found = nullptr;
    int visible = 0;
    for (QWidget* top : QApplication::topLevelWidgets())
        if (auto* deck = qobject_cast<creditsdeck*>(top); deck && deck->isVisible()) {
            found = deck;
            ++visible;
        }
    return visible == 1 ? found : nullptr;
}
}

class TestPlayerInput : public QObject {
    Q_OBJECT

    std::unique_ptr<slot_machine> open() { return std::make_unique<slot_machine>(); }

    // Closes the window and answers its closing screen with a name; checks
    // that only the row the player took changed in "name.dat".
    void closeAndStore(slot_machine* w, const QByteArray& before)
    {
        QPointer<slot_machine> alive(w);
        w->close();
        QTRY_VERIFY(alive.isNull());
        creditsdeck* deck = closingScreen();
        QVERIFY(deck);
        QTest::keyClicks(deck->row(0), "ME");
        QTest::keyClick(deck->row(0), Qt::Key_Return);
        QVERIFY(deck->ended());
        deck->close();
        const QByteArray after = readFile("name.dat");
        QCOMPARE(after.size(), before.size());
        QCOMPARE(after.mid(24), before.mid(24));
        QCOMPARE(winners::decode(std::span(reinterpret_cast<const unsigned char*>(after.constData()), 24))[0].credits,
                 winners::creditsFromBank(slot::bank));
    }

private slots:
    void initTestCase()
    {
        fixture::fastPacing();
        QVERIFY(stockFolder("game"));
        QDir::setCurrent("game");  // where the game reads and writes its files
        creditsdeck::hooks().endProgram = [](bool) {};
        creditsdeck::hooks().tellPlayer = [](QWidget*, const QString& text) { QFAIL(qPrintable(text)); };
    }

    // How each kind of text reads: rules_settlement_test; here, that the window
    // reads its box that way and writes back what it plays with.
    void aBankTextIsReadAsANumberOrAsNothing_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<qint64>("readAs");
        QTest::newRow("letters") << "lots" << qint64(0);
        QTest::newRow("negative") << "-500" << qint64(-500);
        QTest::newRow("huge") << QString(40, '9') << qint64(Currency::kMaxWhole);
        QTest::newRow("as long as the box takes") << QString(32767, '7') << qint64(Currency::kMaxWhole);
        QTest::newRow("huge negative") << "-" + QString(30, '9') << qint64(-Currency::kMaxWhole);
    }
    void aBankTextIsReadAsANumberOrAsNothing()
    {
        QFETCH(QString, text);
        QFETCH(qint64, readAs);
        auto w = open();
        rnd::seed(7);
        w->Text3->setText(text);
        w->Command1_Click();
        QVERIFY(fixture::waitSettled(*w));
        QVERIFY(plainAmount(w->Text3));
        QVERIFY(plainAmount(w->Text1));
        QVERIFY(plainAmount(w->Text5));
        Currency bank = std::min(Currency::fromWhole(readAs) - Currency::fromWhole(1) + shown(w->Text1),
                                 Currency::fromWhole(Currency::kMaxWhole));  // the bank stays whole at the top
        if (bank <= Currency())
            bank = Currency::fromWhole(kStartingBank);
        QCOMPARE(w->Text3->text().toStdString(), bank.text());
        QCOMPARE(w->Text5->text().toStdString(), (bank - Currency::fromWhole(kStartingBank)).text());
        QCOMPARE(slot::bank, bank);
        QVERIFY(w->Command1->isEnabled());
    }

    // Pushed to its end from the menu's shortcut, the credits scale stops
    // there; the largest bet spins and settles, and even a jackpot on the
    // largest bank still fits the boxes and the table of winners.
    void creditsTimesTenToItsEnd()
    {
        QVERIFY(writeFile("name.dat", lowTable()));
        auto w = open();
        QVERIFY(QTest::qWaitForWindowActive(w.get()));
        for (int i = 0; i < 12; ++i)
            QTest::keyClick(w.get(), Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(w->creditscale, slot_machine::kMaxCreditScale);
        QVERIFY(!w->times->isEnabled());
        QCOMPARE(w->Commandcre[1]->text(), QString("100000000 credits per line"));
        QCOMPARE(w->Commandcre[10]->text(), QString("1000000000 credits per line"));

        rnd::seed(11);
        w->Command6_Click();
        QCOMPARE(w->Text2->text(), QString("18000000000"));
        QVERIFY(fixture::waitSettled(*w));
        QVERIFY(plainAmount(w->Text3));
        QVERIFY(!w->times->isEnabled());
        QVERIFY(w->divides->isEnabled());

        std::array<int, 16> jackpot{};
        jackpot.fill(49);
        w->symbol = jackpot;
        w->Text3->setText(QString(20, '9'));
        QSignalSpy settled(w.get(), &slot_machine::settled);
        w->calculatepayoff();
        QVERIFY(settled.count() == 1 || settled.wait(60000));
        QVERIFY(plainAmount(w->Text3));
        QVERIFY(plainAmount(w->Text5));
        QVERIFY(shown(w->Text3) > Currency::fromWhole(INT32_MAX));

        closeAndStore(w.release(), lowTable());
        QCOMPARE(winners::creditsFromBank(slot::bank), INT32_MAX);
    }

    // The window closed after every few milliseconds of a spin with its
    // settlement and flashes: one closing screen each time, and the table
    // keeps the rows the player did not take.
    void closedAtAnyMomentOfASpinOrAFlash()
    {
        int rolling = 0;
        int flashing = 0;
        for (int delay = 0; delay <= 600; delay += 40) {
            QVERIFY(writeFile("name.dat", lowTable()));
            auto* w = new slot_machine;
            rnd::seed(quint32(delay));
            // Two figures a reel: wins, flashes and jackpots come often.
            slot::maxsymbol = 1;
            w->Commandlines_Click(5);
            w->Command1_Click();
            QTest::qWait(delay);
            rolling += w->spinning ? 1 : 0;
            flashing += !w->spinning && !w->Command1->isEnabled() ? 1 : 0;
            closeAndStore(w, lowTable());
            QTest::qWait(30);  // any timer left behind would fire now
        }
        qInfo("closed %d times while the reels rolled, %d times while settling or flashing", rolling, flashing);
        QVERIFY(rolling > 0 && flashing > 0);
    }
};

QTEST_MAIN(TestPlayerInput)
#include "test_player_input.moc"
