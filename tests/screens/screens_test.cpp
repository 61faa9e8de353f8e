// SPDX-License-Identifier: GPL-2.0-or-later
// The side screens: the splash with its title and version, and the pay
// table's two pages — what is printed where, at the credits per line in
// force, and which pictures stand where.
#include "platform/picture/picture_files.h"
#include "screens/pay_table.h"
#include "screens/splash.h"
#include "tests/support/asset_folder.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QtTest>

#include <memory>

namespace {

constexpr qreal kQuarter = 799.0 / 4;

// The line height of the small print, taken from the first line break.
qreal smallLine(const PayTable& p) { return p.printed()[4].at.y(); }

// True when the drawing has dark pixels in the rectangle.
bool inked(const QImage& image, const QRect& r)
{
    const qreal ratio = image.devicePixelRatio();
    for (int y = int(r.top() * ratio); y < int((r.bottom() + 1) * ratio); ++y)
        for (int x = int(r.left() * ratio); x < int((r.right() + 1) * ratio); ++x)
            if (qGray(image.pixel(x, y)) < 128) return true;
    return false;
}

}  // namespace

class ScreensTest : public QObject {
    Q_OBJECT
    std::vector<Picture> symbols_;
    std::unique_ptr<PayTable> screen_;

    PayTable& open(Currency perLine)
    {
        screen_ = std::make_unique<PayTable>(symbols_, perLine);
        screen_->show();
        return *screen_;
    }

private slots:
    void initTestCase()
    {
        for (int i = 0; i < 15; ++i)
            symbols_.push_back(*pictures::loadSymbol(QDir(assetsDir()), i).picture);
    }
    void cleanup() { screen_.reset(); }

    void splashShowsTitleAndVersionThenCloses()
    {
        QDir::setCurrent(assetsDir());
        QPointer<SplashScreen> splash(new SplashScreen);
        splash->showWithVersion();
        QCOMPARE(splash->findChild<QLabel*>("titleLabel")->text(), QString("reelmoor"));
        QCOMPARE(splash->findChild<QLabel*>("versionLabel")->text(), QString("Version 1.0.1"));
        QCOMPARE(splash->size(), QSize(452, 423));
        QCOMPARE(splash->grab().toImage().pixelColor(130, 145), QColor(Qt::white));  // a card of its picture
        QTRY_VERIFY_WITH_TIMEOUT(splash.isNull(), 5000);
    }

    void pageOne_data()
    {
        QTest::addColumn<int>("perLine");
        QTest::addColumn<QStringList>("figures");  // the amounts of figures 0, 1, 2
        QTest::newRow("1 credit") << 1
            << QStringList{" 1.75  17.5  175  1750 ", " 3.5  35  350  3500 ", " 5.25  52.5  525  5250 "};
        QTest::newRow("10 credits") << 10
            << QStringList{" 17.5  175  1750  17500 ", " 35  350  3500  35000 ", " 52.5  525  5250  52500 "};
    }
    void pageOne()
    {
        QFETCH(int, perLine);
        QFETCH(QStringList, figures);
        PayTable& p = open(Currency::fromWhole(perLine));
        const auto& items = p.printed();
        QCOMPARE(int(items.size()), 4 + 1 + 15);

        for (int q = 0; q < 4; ++q) {
            QCOMPARE(items[q].text, QStringLiteral(" 2   3     4     5"));
            QCOMPARE(items[q].at, QPointF(q * kQuarter + 50, 0));
        }
        QCOMPARE(items[4].text, QString(153, QLatin1Char('-')));
        QCOMPARE(items[4].at.x(), 0.0);
        QVERIFY(smallLine(p) > 8 && smallLine(p) < 14);

        for (int i = 0; i <= 14; ++i) {
            const int col = i % 4, row = i / 4;
            QCOMPARE(items[5 + i].text, figures[i / 5]);
            QCOMPARE(items[5 + i].at, QPointF(col * kQuarter + 50, row * 38 + 32));
            QWidget* image = p.pictureBoxes()[std::size_t(i)];
            QVERIFY(image->isVisible());
            QCOMPARE(image->geometry(), QRect(qRound(col * kQuarter), row * 38 + 22, 38, 38));
        }
        QCOMPARE(int(p.pictureBoxes().size()), 15);

        // The window shows its drawing, made at the screen's pixel density.
        QCOMPARE(p.canvas().devicePixelRatio(), p.devicePixelRatioF());
        QVERIFY(inked(p.grab().toImage(), QRect(50, 0, 90, 8)));
        QVERIFY(inked(p.canvas(), QRect(qRound(2 * kQuarter) + 50, 2 * 38 + 32, 90, 8)));
    }

    void pageTwo()
    {
        PayTable& p = open(Currency::fromWhole(10));
        const qreal line = smallLine(p);
        QVERIFY(inked(p.canvas(), QRect(qRound(2 * kQuarter) + 50, 2 * 38 + 32, 90, 8)));  // page one, drawn
        QTest::mouseClick(p.pageButton(), Qt::LeftButton);
        QVERIFY(!p.pageButton()->isVisible());

        const auto& items = p.printed();
        QCOMPARE(int(items.size()), 2 + 3 + 4);
        QCOMPARE(items[0].text, QStringLiteral(" 3 any color combination 4 any color combination 5 any color combination"));
        QCOMPARE(items[0].at, QPointF(50, 0));
        QCOMPARE(items[1].text, QString(72, QLatin1Char('-')));
        QCOMPARE(items[1].at, QPointF(0, line));

        const QString gap(20, QLatin1Char(' '));
        const QStringList amounts{" 30 " + gap + " 300 " + gap + " 3000 ",
                                  " 60 " + gap + " 600 " + gap + " 6000 ",
                                  " 90 " + gap + " 900 " + gap + " 9000 "};
        for (int f = 0; f < 3; ++f) {
            QCOMPARE(items[2 + f].text, amounts[f]);
            QCOMPARE(items[2 + f].at, QPointF(50, f * 38 + 42));
            QCOMPARE(items[2 + f].pixelSize, 9);
        }

        // Four lines on colour runs in 16 points, dark grey, from the left edge.
        for (int k = 5; k < 9; ++k) {
            QCOMPARE(items[std::size_t(k)].pixelSize, 21);
            QCOMPARE(items[std::size_t(k)].colour, QColor(50, 50, 50));
            QCOMPARE(items[std::size_t(k)].at.x(), 0.0);
        }
        QCOMPARE(items[5].at.y(), 2 * 38 + 42 + line);  // right below the last amounts
        QVERIFY(items[6].at.y() - items[5].at.y() > 20);

        // One picture per figure at the left edge; the rest out of sight.
        for (int i = 0; i <= 14; ++i) {
            QWidget* image = p.pictureBoxes()[std::size_t(i)];
            if (i % 5 == 0) {
                QVERIFY(image->isVisible());
                QCOMPARE(image->geometry(), QRect(0, i / 5 * 38 + 22, 38, 38));
            } else {
                QVERIFY(!image->isVisible());
                QCOMPARE(image->y(), 571);
            }
        }

        // Page one's amounts are gone from the drawing.
        QVERIFY(!inked(p.canvas(), QRect(qRound(2 * kQuarter) + 50, 2 * 38 + 32, 90, 8)));
        QVERIFY(inked(p.canvas(), QRect(0, qRound(items[5].at.y()), 200, 20)));
    }
};

QTEST_MAIN(ScreensTest)
#include "screens_test.moc"
