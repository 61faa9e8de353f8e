// SPDX-License-Identifier: GPL-2.0-or-later
// "start table of winners over": the question as the player sees it, and
// what Yes and No do to "name.dat".
#include "tests/support/fake_services.h"
#include "tests/winners/file_bytes.h"
#include "winners/start_over.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <QtTest>

#include <optional>

class StartOverTest : public QObject {
    Q_OBJECT
    std::optional<ScratchDir> scratch_;

private slots:
    void init()
    {
        scratch_.emplace();
        QVERIFY(writeFile("name.dat", defaultFile()));
    }
    void cleanup() { scratch_.reset(); }

    void noIsAnsweredInAPlainYesNoBox()
    {
        QMessageBox* seen = nullptr;
        QString caption, text;
        QTimer::singleShot(0, [&] {
            seen = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            QVERIFY(seen);
            caption = seen->windowTitle();
            text = seen->text();
            QCOMPARE(seen->icon(), QMessageBox::NoIcon);
            QCOMPARE(seen->standardButtons(), QMessageBox::Yes | QMessageBox::No);
            seen->button(QMessageBox::No)->click();
        });
        startTableOfWinnersOver(nullptr, desktopServices());
        QVERIFY(seen);
        QCOMPARE(caption, QStringLiteral("reelmoor"));
        QCOMPARE(text, QStringLiteral(
            "This will permenately delete table of winners and start a new table of winners"));
        QCOMPARE(readFile("name.dat"), defaultFile());
    }

    void yesDeletesTheFile()
    {
        fixture::Fakes fakes;
        startTableOfWinnersOver(nullptr, fakes.services());
        QCOMPARE(fakes->kinds, QList<MessageKind>{MessageKind::Question});
        QVERIFY(!QFile::exists("name.dat"));
        startTableOfWinnersOver(nullptr, fakes.services());  // no file: nothing happens
        QVERIFY(!QFile::exists("name.dat"));
    }
};

QTEST_MAIN(StartOverTest)
#include "start_over_test.moc"
