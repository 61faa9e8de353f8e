// The main window on a screen of HIDPI_SCALE device pixels per logical
// pixel. The program first runs itself at scale 1 to grab the same scene,
// then checks that at its own scale the layout is the same in logical
// pixels, cells show their pictures pixel for pixel, symbols, arrows, icon
// and text carry the finer detail of the screen instead of being blown up,
// the rolling frames compose whole, and the pay lines land where they do at 1.
#include "game/reel_surface.h"
#include "game/slot_machine.h"
#include "grab_measures.h"
#include "platform/caption_button.h"
#include "platform/pacing.h"
#include "tests/support/asset_folder.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QSvgWidget>
#include <QTest>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {
const char* kReferenceVariable = "HIDPI_REFERENCE_DIR";
constexpr int kFramedSymbol = 17;

// Every cell a known symbol; the bottom row stands part-way through a roll.
void stage(slot_machine& w, int lines)
{
    static constexpr int symbolOf[16] = {0, 0, 3, 8, 14, 21, 27, 30, 36, 41, 47, 2, 19, 33, 44, 49};
    static constexpr int frameOf[16] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3, 6, 9, 11, 1};
    for (int i = 1; i <= 15; ++i) {
        w.cell[i] = 12 * symbolOf[i] + frameOf[i];
        w.setImage1(i, w.Image2[size_t(w.cell[i])]);
    }
    w.drawlines(lines);
}

QImage grabSurface(slot_machine& w)
{
    QApplication::processEvents();
    return w.surface->grab().toImage();
}

// Every widget of the window with where it stands, in logical pixels.
QStringList geometryOf(slot_machine& w)
{
    QStringList lines;
    for (QWidget* child : w.findChildren<QWidget*>()) {
        if (!child->isVisible())
            continue;
        const QPoint at = child->mapTo(&w, QPoint(0, 0));
        lines << QStringLiteral("%1 \"%2\" %3,%4 %5x%6")
                     .arg(QLatin1String(child->metaObject()->className()), child->accessibleName())
                     .arg(at.x())
                     .arg(at.y())
                     .arg(child->width())
                     .arg(child->height());
    }
    return lines;
}

std::unique_ptr<slot_machine> openWindow()
{
    auto w = std::make_unique<slot_machine>();
    if (!QTest::qWaitForWindowExposed(w.get()))
        qWarning("the main window was not exposed");
    return w;
}

// Scale 1: writes the grabs, the frames of one symbol and the layout.
int writeReference(const QString& dir)
{
    auto w = openWindow();
    if (!w->startupError().isEmpty())
        return 2;
    stage(*w, 0);
    grabSurface(*w).save(dir + "/cells.png");
    stage(*w, 9);
    grabSurface(*w).save(dir + "/lines.png");
    for (int m = 0; m < slot_machine::kFrames; ++m)
        w->Image2[size_t(12 * kFramedSymbol + m)].save(dir + QStringLiteral("/frame%1.png").arg(m));
    QFile layout(dir + "/layout.txt");
    if (!layout.open(QIODevice::WriteOnly))
        return 3;
    layout.write(geometryOf(*w).join('\n').toUtf8());
    return 0;
}

double distanceToSegment(QPointF p, const Segment& s)
{
    const QPointF d = s.p2 - s.p1;
    const double length2 = QPointF::dotProduct(d, d);
    const double t = length2 > 0 ? std::clamp(QPointF::dotProduct(p - s.p1, d) / length2, 0.0, 1.0) : 0;
    const QPointF nearest = s.p1 + d * t;
    return std::hypot(p.x() - nearest.x(), p.y() - nearest.y());
}

// Rows white from edge to edge at the bottom of the image.
int blankRowsAtTheBottom(const QImage& image)
{
    const QImage f = image.convertToFormat(QImage::Format_RGB32);
    int blank = 0;
    for (int y = f.height() - 1; y >= 0; --y) {
        for (int x = 0; x < f.width(); ++x)
            if (f.pixel(x, y) != qRgb(255, 255, 255))
                return blank;
        ++blank;
    }
    return blank;
}

QImage loaded(const QString& file)
{
    QImage image(file);
    image.setDevicePixelRatio(1);
    return image;
}
}

class TestHiDpi : public QObject {
    Q_OBJECT

    double scale = 1;
    QString ref;
    std::unique_ptr<slot_machine> w;

    QImage upscaled(const QImage& reference) const
    {
        return reference.scaled(QSize(int(std::lround(reference.width() * scale)),
                                      int(std::lround(reference.height() * scale))),
                                Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }

    QRect device(const QRectF& logical) const
    {
        return QRectF(logical.topLeft() * scale, logical.size() * scale).toAlignedRect();
    }

    // How much finer the grab is than the reference blown up to its size,
    // over the given parts.
    double detailGain(const QImage& grab, const QImage& reference, const QList<QRectF>& logical) const
    {
        const QImage blown = upscaled(reference);
        double sharp = 0;
        double blurred = 0;
        for (const QRectF& part : logical) {
            sharp += measure::gradientEnergy(grab, device(part));
            blurred += measure::gradientEnergy(blown, device(part));
        }
        return sharp / blurred;
    }

private slots:
    void initTestCase()
    {
        scale = QString(HIDPI_SCALE).toDouble();
        QVERIFY(stockFolder("all"));
        ref = QDir("reference").absolutePath();
        QDir(ref).removeRecursively();
        QDir().mkpath(ref);
        QDir::setCurrent("all");

        QProcess one;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(kReferenceVariable, ref);
        one.setProcessEnvironment(env);
        one.start(QCoreApplication::applicationFilePath(), {});
        QVERIFY(one.waitForFinished(120000));
        QCOMPARE(one.exitCode(), 0);

        w = openWindow();
        QVERIFY(w->startupError().isEmpty());
        QCOMPARE(w->devicePixelRatioF(), scale);
    }

    void cleanupTestCase() { w.reset(); }

    void keepsItsLogicalLayout()
    {
        const QImage grab = grabSurface(*w);
        QCOMPARE(grab.devicePixelRatio(), scale);
        QCOMPARE(grab.size(), QSize(int(std::ceil(793 * scale)), int(std::ceil(550 * scale))));

        QFile layout(ref + "/layout.txt");
        QVERIFY(layout.open(QIODevice::ReadOnly));
        const QStringList atOne = QString::fromUtf8(layout.readAll()).split('\n');
        const QStringList here = geometryOf(*w);
        QCOMPARE(here.size(), atOne.size());
        for (int i = 0; i < here.size(); ++i)
            QCOMPARE(here[i], atOne[i]);
    }

    // The cell copies its picture, which holds one pixel per device pixel.
    void cellsShowTheirPicturesPixelForPixel()
    {
        stage(*w, 0);
        const QImage grab = grabSurface(*w).convertToFormat(QImage::Format_RGB32);
        const int side = int(std::lround(slot_machine::kSymbolSize * scale));
        for (int i = 1; i <= 15; ++i) {
            const QImage picture = w->Image2[size_t(w->cell[i])].convertToFormat(QImage::Format_RGB32);
            QCOMPARE(picture.size(), QSize(side, side));
            const QRectF c = w->surface->cellRect(i);
            const QPoint corner(int(std::lround(c.left() * scale)), int(std::lround(c.top() * scale)));
            int off = 0;
            for (int y = 0; y < side; ++y)
                for (int x = 0; x < side; ++x)
                    if (!measure::near(grab.pixelColor(corner + QPoint(x, y)), picture.pixelColor(x, y), 2))
                        ++off;
            if (off > 0)
                qWarning("cell %d: %d of %d pixels differ from its picture", i, off, side * side);
            QCOMPARE(off, 0);
        }
    }

    void symbolsArrowsIconAndTextCarryTheScreensDetail()
    {
        stage(*w, 0);
        const QImage grab = grabSurface(*w);
        const QImage one = loaded(ref + "/cells.png");
        // A picture drawn for the screen beats its 1x grab blown up by about
        // the scale; anything blown up from 1x pixels stays near 1.
        const double enough = 1 + (scale - 1) * 0.5;
        QList<QRectF> cells;  // inside the cells only: the strips' edges are sharp anyway
        for (int i = 1; i <= 15; ++i)
            cells << w->surface->cellRect(i).adjusted(1, 1, -1, -1);
        const struct {
            const char* what;
            QList<QRectF> where;
        } parts[] = {
            {"symbols", cells},
            {"right arrow", {QRectF(w->Picture2->geometry())}},
            {"SPIN with its icon", {QRectF(w->Command1->geometry())}},
            {"label text", {QRectF(w->Label3->geometry())}},
            {"credit button text", {QRectF(w->Commandcre[7]->geometry())}},
            {"bank box text", {QRectF(w->Text3->geometry())}},
        };
        for (const auto& part : parts) {
            const double gain = detailGain(grab, one, part.where);
            qInfo("%s: %.2f times the detail of the 1x grab blown up", part.what, gain);
            QVERIFY2(gain > enough, part.what);
        }

        const QIcon icon = w->windowIcon();
        const QImage sharp = icon.pixmap(QSize(32, 32), scale).toImage();
        QCOMPARE(sharp.size(), QSize(int(std::lround(32 * scale)), int(std::lround(32 * scale))));
        const QImage blown = upscaled(icon.pixmap(QSize(32, 32), 1.0).toImage());
        const double gain = measure::gradientEnergy(sharp, sharp.rect()) / measure::gradientEnergy(blown, sharp.rect());
        qInfo("window icon: %.2f", gain);
        QVERIFY(gain > enough);
    }

    // Composed in device pixels, every frame still shows the strip as at
    // scale 1: no seam, no blank row beyond the one the middle frame has.
    void framesComposeWholeAtTheSamePlaces()
    {
        const QSize logical(slot_machine::kSymbolSize, slot_machine::kSymbolSize);
        for (int m = 0; m < slot_machine::kFrames; ++m) {
            QImage frame = w->Image2[size_t(12 * kFramedSymbol + m)];
            QCOMPARE(frame.devicePixelRatio(), scale);
            frame.setDevicePixelRatio(1);
            const QImage down = frame.scaled(logical, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            const auto rows = measure::rowDifferences(down, loaded(ref + QStringLiteral("/frame%1.png").arg(m)));
            qInfo("frame %d: rows differ from scale 1 by %.1f grey levels on average, %.1f at most", m,
                  measure::mean(rows), measure::worst(rows));
            QVERIFY2(measure::worst(rows) < 48, qPrintable(QStringLiteral("frame %1").arg(m)));
            QVERIFY(measure::mean(rows) < 8);

            const int blank = blankRowsAtTheBottom(frame);
            const int blankAtOne = blankRowsAtTheBottom(loaded(ref + QStringLiteral("/frame%1.png").arg(m)));
            // A fractional scale may leave half a device row more.
            QVERIFY2(std::abs(blank - blankAtOne * scale) <= 1.5,
                     qPrintable(QStringLiteral("frame %1: %2 blank device rows at the bottom, %3 at scale 1")
                                    .arg(m)
                                    .arg(blank)
                                    .arg(blankAtOne)));
        }
    }

    // Wherever the centre of a pay line shows its colour at scale 1, the same
    // logical point shows it here.
    void payLinesLandWhereTheyDoAtScaleOne()
    {
        stage(*w, 9);
        const QImage grab = grabSurface(*w).convertToFormat(QImage::Format_RGB32);
        grab.save("../lines.png");  // for a look when it fails
        const QImage one = loaded(ref + "/lines.png").convertToFormat(QImage::Format_RGB32);
        for (int s = 1; s <= 25; ++s) {
            const Segment& seg = w->Linem(s);
            QVERIFY(seg.visible);
            int compared = 0;
            for (int k = 1; k < 40; ++k) {
                const QPointF p = seg.p1 + (seg.p2 - seg.p1) * (k / 40.0);
                bool crossed = false;  // where lines cross, the later one covers
                for (int o = 1; o <= 25; ++o)
                    crossed = crossed || (w->Linem(o).color != seg.color &&
                                          distanceToSegment(p, w->Linem(o)) < w->Linem(o).width + 2);
                if (crossed)
                    continue;
                QCOMPARE(one.pixelColor(p.toPoint()), seg.color);
                ++compared;
                const QPoint here = (p * scale).toPoint();
                if (!measure::near(grab.pixelColor(here), seg.color))
                    QFAIL(qPrintable(QStringLiteral("segment %1 is missing at (%2, %3)").arg(s).arg(p.x()).arg(p.y())));
            }
            QVERIFY2(compared > 10, qPrintable(QStringLiteral("segment %1").arg(s)));
        }
    }
};

int main(int argc, char** argv)
{
    const bool reference = qEnvironmentVariableIsSet(kReferenceVariable);
    qputenv("QT_SCALE_FACTOR", reference ? "1" : HIDPI_SCALE);
    QApplication app(argc, argv);
    pacing().passMs = 1;
    if (reference)
        return writeReference(qEnvironmentVariable(kReferenceVariable));
    TestHiDpi test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_hidpi.moc"
