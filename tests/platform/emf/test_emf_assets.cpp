// The committed artwork: every symbol loads at 73 x 73 in its own colour,
// the splash picture leaves its text band dark, the other pictures exist in
// the sizes the windows use, and the decoder keeps its edges sharp on HiDPI.
#include "tests/platform/emf/emf_test_support.h"

#include <QElapsedTimer>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>
#include <QtTest>

#include <cmath>
#include <map>

namespace {

QString asset(const QString& name)
{
    return qEnvironmentVariable("REELMOOR_ASSETS") + '/' + name;
}

// The most common colour that is not (nearly) white: a symbol's body.
QRgb bodyColour(const QImage& image)
{
    std::map<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QRgb c = image.pixel(x, y);
            if (qRed(c) + qGreen(c) + qBlue(c) < 3 * 235)
                ++counts[c];
        }
    QRgb best = qRgb(255, 255, 255);
    int most = 0;
    for (const auto& [c, n] : counts)
        if (n > most) {
            best = c;
            most = n;
        }
    return best;
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
        QElapsedTimer clock;
        clock.start();
        QHash<QByteArray, int> seen;
        QRgb colours[5] = {};
        for (int s = 0; s < 50; ++s) {
            const auto picture = EmfPicture::load(asset(QString::number(s) + ".emf"));
            QVERIFY2(picture, qPrintable(QString::number(s)));
            QCOMPARE(picture->naturalSize(), QSize(73, 73));
            const QImage image = renderNatural(*picture, 73, 73);
            // A figure covers much of the cell and stays inside it.
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
            const QByteArray key(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
            QVERIFY2(!seen.contains(key), qPrintable(QString("%1 looks like %2").arg(s).arg(seen.value(key))));
            seen.insert(key, s);
            // Colour s mod 5 is the same body colour for every figure.
            const QRgb body = bodyColour(image);
            if (s < 5)
                colours[s] = body;
            else
                QVERIFY2(distance(body, colours[s % 5]) < 12, qPrintable(QString::number(s)));
        }
        for (int a = 0; a < 5; ++a) {
            QVERIFY(distance(colours[a], qRgb(255, 255, 255)) > 150);
            for (int b = a + 1; b < 5; ++b)
                QVERIFY(distance(colours[a], colours[b]) > 120);
        }
        qInfo("loading and drawing the 50 symbols took %lld ms", static_cast<long long>(clock.elapsed()));
    }

    void splash()
    {
        const auto picture = EmfPicture::load(asset("splash.emf"));
        QVERIFY(picture);
        QCOMPARE(picture->naturalSize(), QSize(452, 423));
        const QImage image = renderNatural(*picture, 452, 423);
        // White title text sits from y = 376 down: the band there is dark.
        double light = 0;
        for (int y = 370; y < 423; ++y)
            for (int x = 0; x < 452; ++x)
                light += qGray(image.pixel(x, y));
        QVERIFY(light / (53 * 452) < 40);
        // The scene above is not left blank anywhere near the corners.
        QVERIFY(qGray(image.pixel(2, 2)) < 100 && qGray(image.pixel(449, 2)) < 100);
    }

    void buttonsIconAndArrows()
    {
        for (int lines : {1, 3, 5, 7, 9}) {
            const QImage button(asset(QString::number(lines) + ".jpg"));
            QCOMPARE(button.size(), QSize(104, 80));  // 52 x 40 on the button, stored at 2x
        }
        for (int size : {32, 48, 64, 128, 256}) {
            const QImage icon(asset(QString("reelmoor-%1.png").arg(size)));
            QCOMPARE(icon.size(), QSize(size, size));
        }
        for (const char* svg : {"reelmoor.svg", "arrow_right.svg", "arrow_left.svg"})
            QVERIFY2(QSvgRenderer(asset(svg)).isValid(), svg);
        // The arrows point opposite ways: each is the other mirrored.
        QImage right(32, 32, QImage::Format_RGB32);
        QImage left(32, 32, QImage::Format_RGB32);
        for (auto [image, name] : {std::pair{&right, "arrow_right.svg"}, {&left, "arrow_left.svg"}}) {
            QPainter p(image);
            QSvgRenderer(asset(name)).render(&p);
        }
        QVERIFY(difference(left, right.mirrored(true, false)) < 32 * 32 * 3);
        QVERIFY(difference(left, right) > 32 * 32 * 30);
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
#include "test_emf_assets.moc"
