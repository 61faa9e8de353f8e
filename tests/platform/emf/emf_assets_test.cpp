// SPDX-License-Identifier: GPL-2.0-or-later
// The committed symbols: every one loads at 73 x 73 and fills its cell, and
// the decoder keeps their edges sharp on HiDPI.
#include "tests/platform/emf/emf_test_support.h"

#include <QtTest>

#include <cmath>

namespace {

QString asset(const QString& name)
{
    return qEnvironmentVariable("REELMOOR_ASSETS") + '/' + name;
}

int distance(QRgb a, QRgb b)
{
    return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
}

double difference(const QImage& a, const QImage& b)
{
    double sum = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            sum += distance(a.pixel(x, y), b.pixel(x, y));
    return sum;
}

}  // namespace

class EmfAssetsTest : public QObject {
    Q_OBJECT

private slots:
    void symbols()
    {
        for (int s = 0; s < 50; ++s) {
            const auto picture = EmfPicture::load(asset(QString::number(s) + ".emf"));
            QVERIFY2(picture, qPrintable(QString::number(s)));
            QCOMPARE(picture->naturalSize(), QSize(73, 73));
            // A figure covers much of the cell and stays inside it.
            const QImage image = renderNatural(*picture, 73, 73);
            int painted = 0;
            QRect box;
            for (int y = 0; y < 73; ++y)
                for (int x = 0; x < 73; ++x)
                    if (darknessAt(image, x, y) > 0.05) {
                        ++painted;
                        box |= QRect(x, y, 1, 1);
                    }
            QVERIFY2(painted > 73 * 73 / 4, qPrintable(QString::number(s)));
            QVERIFY2(QRect(1, 1, 71, 71).contains(box), qPrintable(QString::number(s)));
        }
    }

    void hiDpiKeepsEdgesSharp()
    {
        // Drawn on a 2x image the symbol matches a drawing at twice the size
        // far better than the 1x drawing blown up does.
        const auto picture = EmfPicture::load(asset("48.emf"));
        QVERIFY(picture);
        const QImage sharp = renderNatural(*picture, 73, 73, 2);
        const QImage reference = renderInto(*picture, {146, 146}, QRectF(0, 0, 146, 146));
        const QImage blownUp = renderNatural(*picture, 73, 73)
                                   .scaled(146, 146, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        QImage sharpPlain = sharp;
        sharpPlain.setDevicePixelRatio(1);
        const double sharpError = difference(sharpPlain, reference);
        const double blurError = difference(blownUp, reference);
        QVERIFY2(sharpError * 4 < blurError, qPrintable(QString("%1 vs %2").arg(sharpError).arg(blurError)));
    }
};

QTEST_MAIN(EmfAssetsTest)
#include "emf_assets_test.moc"
