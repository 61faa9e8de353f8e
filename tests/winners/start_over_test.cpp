// "start table of winners over": the question as the player sees it, and
// what Yes and No do to "name.dat".
#include "winners/start_over.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <memory>

class StartOverTest : public QObject {
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> dir_;
    QString home_;
    StartOverAsker defaultAsker_;
    QStringList asked_;

    void answer(bool yes)
    {
        startOverAsker() = [this, yes](QWidget*, const QString& caption, const QString& text) {
            asked_ << caption << text;
            return yes;
        };
    }
    static void makeFile()
    {
        QFile f("name.dat");
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(QByteArray(240, 'x'));
    }

private slots:
    void initTestCase() { defaultAsker_ = startOverAsker(); }
    void init()
    {
        home_ = QDir::currentPath();
        dir_ = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir::setCurrent(dir_->path()));
        asked_.clear();
        startOverAsker() = defaultAsker_;
    }
    void cleanup()
    {
        QDir::setCurrent(home_);
        dir_.reset();
    }

    void theQuestionIsAPlainYesNoBox()
    {
        makeFile();
        QString caption, text;
        QMessageBox::Icon icon = QMessageBox::Warning;
        QMessageBox::StandardButtons buttons;
        bool modal = false;
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            QVERIFY(box);
            caption = box->windowTitle();
            text = box->text();
            icon = box->icon();
            buttons = box->standardButtons();
            modal = box->isModal();
            box->button(QMessageBox::No)->click();
        });
        startTableOfWinnersOver(nullptr);
        QCOMPARE(caption, QStringLiteral("reelmoor"));
        QCOMPARE(text, QStringLiteral(
            "This will permenately delete table of winners and start a new table of winners"));
        QCOMPARE(icon, QMessageBox::NoIcon);
        QCOMPARE(buttons, QMessageBox::Yes | QMessageBox::No);
        QVERIFY(modal);
        QVERIFY(QFile::exists("name.dat"));  // No leaves the file
    }

    void yesDeletesTheFile()
    {
        makeFile();
        answer(true);
        startTableOfWinnersOver(nullptr);
        QCOMPARE(asked_.size(), 2);
        QVERIFY(!QFile::exists("name.dat"));

        // Without a file, Yes does nothing at all.
        startTableOfWinnersOver(nullptr);
        QVERIFY(!QFile::exists("name.dat"));
    }

    void noKeepsTheFile()
    {
        makeFile();
        answer(false);
        startTableOfWinnersOver(nullptr);
        QCOMPARE(asked_.size(), 2);
        QCOMPARE(QFileInfo("name.dat").size(), 240);
    }
};

QTEST_MAIN(StartOverTest)
#include "start_over_test.moc"
