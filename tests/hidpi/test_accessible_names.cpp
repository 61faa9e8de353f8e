// What a screen reader hears of the main window: every button and result
// box has a name of its own, the names follow the captions as the player
// changes them, and no two controls share one.
#include "game/slot_machine.h"
#include "platform/caption_button.h"
#include "tests/support/asset_folder.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QSet>
#include <QTest>

#include <memory>

namespace {
QString spoken(QWidget* w)
{
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(w);
    return face ? face->text(QAccessible::Name) : QString();
}

// The names of every visible button and text box, in the window's order.
QStringList namesOfControls(slot_machine& w)
{
    QStringList names;
    for (QWidget* child : w.findChildren<QWidget*>()) {
        if (!child->isVisible())
            continue;
        if (qobject_cast<QAbstractButton*>(child) || qobject_cast<QLineEdit*>(child))
            names << spoken(child);
    }
    return names;
}
}

class TestAccessibleNames : public QObject {
    Q_OBJECT

    std::unique_ptr<slot_machine> w;

    void expectPresentAndUnique()
    {
        const QStringList names = namesOfControls(*w);
        QCOMPARE(names.size(), 1 + 1 + 1 + 5 + 10 + 4);
        for (const QString& n : names)
            QVERIFY2(!n.trimmed().isEmpty(), "a control without a name");
        const QSet<QString> unique(names.begin(), names.end());
        QCOMPARE(unique.size(), names.size());
    }

private slots:
    void initTestCase()
    {
        QVERIFY(stockFolder("all"));
        QDir::setCurrent("all");
        w = std::make_unique<slot_machine>();
        QVERIFY(w->startupError().isEmpty());
    }

    void cleanupTestCase() { w.reset(); }

    void everyControlIsNamedOnce()
    {
        expectPresentAndUnique();
        QCOMPARE(spoken(w->Command1), QString("SPIN"));
        QCOMPARE(spoken(w->Command6), QString("BET MAX"));
        QCOMPARE(spoken(w->Command3), QString("win both directions"));
        for (int i = 1; i <= 5; ++i)
            QCOMPARE(spoken(w->Commandlines[i]), QString("%1 lines").arg(2 * i - 1));
        for (int i = 1; i <= 10; ++i)
            QCOMPARE(spoken(w->Commandcre[i]), QString("%1 credits per line").arg(i));
        QCOMPARE(spoken(w->Text1), QString("credits paid"));
        QCOMPARE(spoken(w->Text3), QString("total credits"));
        QCOMPARE(spoken(w->Text2), QString("total bet"));
        QCOMPARE(spoken(w->Text5), QString("net result"));
    }

    void theDirectionButtonSaysWhatItsCaptionSays()
    {
        w->Command3_Click();
        QCOMPARE(w->Command3->text(), QString("win one direction ------->"));
        QCOMPARE(spoken(w->Command3), QString("win one direction"));
        expectPresentAndUnique();
        w->Command3_Click();
        QCOMPARE(spoken(w->Command3), QString("win both directions"));
    }

    // Up to the highest power of ten and back, the credit buttons say the
    // amounts their captions show.
    void creditButtonsFollowTheirAmounts()
    {
        int steps = 0;
        while (w->times->isEnabled()) {
            w->times_Click();
            ++steps;
            expectPresentAndUnique();
            for (int i = 1; i <= 10; ++i)
                QCOMPARE(spoken(w->Commandcre[i]), w->Commandcre[i]->text());
        }
        QCOMPARE(steps, slot_machine::kMaxCreditScale);
        QCOMPARE(spoken(w->Commandcre[10]), QString("1000000000 credits per line"));
        while (w->divides->isEnabled())
            w->divides_Click();
        QCOMPARE(spoken(w->Commandcre[3]), QString("3 credits per line"));
    }
};

QTEST_MAIN(TestAccessibleNames)
#include "test_accessible_names.moc"
