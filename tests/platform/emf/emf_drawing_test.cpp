// SPDX-License-Identifier: GPL-2.0-or-later
// The decoder draws what a metafile's records describe, where they describe
// it: shapes, fill modes, mappings, sizes, clipping, pens.
#include "tests/platform/emf/emf_test_support.h"
#include "tools/pictures/emf_raw_record.h"

#include <QtTest>

#include <cmath>
#include <cstdlib>
#include <vector>

namespace {

void worldTransform(EmfWriter& emf, double sx, double sy, double dx, double dy)
{
    emf.add(U_EMRSETWORLDTRANSFORM_set(xform_set(float(sx), 0, 0, float(sy), float(dx), float(dy))));
}

struct ShapeCase {
    const char* name;
    Drawing draw;
    QRectF box;   // where the shape should land, pixels
    double area;  // its area, pixels
    double slack = 0.015;  // anti-aliased curved strokes come out a few per cent light
};

// A circle of four Béziers (the usual 0.5523 handle length).
void bezierCircle(EmfWriter& emf, int cx, int cy, int r)
{
    const int k = int(std::lround(r * 0.5523));
    emf.add(U_EMRBEGINPATH_set());
    emf.moveTo(P(cx + r, cy));
    emf.polyBezierTo({P(cx + r, cy + k), P(cx + k, cy + r), P(cx, cy + r),
                      P(cx - k, cy + r), P(cx - r, cy + k), P(cx - r, cy),
                      P(cx - r, cy - k), P(cx - k, cy - r), P(cx, cy - r),
                      P(cx + k, cy - r), P(cx + r, cy - k), P(cx + r, cy)});
    emf.add(U_EMRCLOSEFIGURE_set());
    emf.add(U_EMRENDPATH_set());
    emf.add(U_EMRFILLPATH_set(U_RECTL{cx - r, cy - r, cx + r, cy + r}));
}

// A square of `side` units from the origin in a fixed-scale map mode (y up).
Drawing fixedModeSquare(std::uint32_t mode, int side)
{
    return [=](EmfWriter& e) {
        blackFill(e);
        e.add(U_EMRSETMAPMODE_set(mode));
        e.rectangle({0, 0, side, -side});
    };
}

// A flat-ended, mitred black pen and no fill, so only strokes show.
void widePen(EmfWriter& emf, std::uint32_t width = 2)
{
    emf.select(U_NULL_BRUSH);
    emf.select(emf.geometricPen(U_PS_SOLID | U_PS_ENDCAP_FLAT | U_PS_JOIN_MITER, width, rgb(0, 0, 0)));
}

// A region record with no region: Windows reads it as "no clip" for copy.
char* emptyClipRegion(std::uint32_t mode)
{
    auto* rec = static_cast<std::uint32_t*>(std::malloc(16));
    rec[0] = U_EMR_EXTSELECTCLIPRGN;
    rec[1] = 16;
    rec[2] = 0;
    rec[3] = mode;
    return reinterpret_cast<char*>(rec);
}

const std::vector<ShapeCase>& shapeCases()
{
    static const std::vector<ShapeCase> cases = {
        {"rectangle", [](EmfWriter& e) { blackFill(e); e.rectangle({10, 20, 50, 40}); },
         {10, 20, 40, 20}, 800},
        {"ellipse", [](EmfWriter& e) { blackFill(e); e.ellipse({10, 10, 60, 40}); },
         {10, 10, 50, 30}, M_PI * 25 * 15},
        {"polygon", [](EmfWriter& e) { blackFill(e); e.polygon({P(10, 10), P(60, 10), P(10, 60)}); },
         {10, 10, 50, 50}, 1250},
        {"16-bit polygon",
         [](EmfWriter& e) {
             blackFill(e);
             e.polygon16({point16_set(10, 10), point16_set(60, 10), point16_set(10, 60)});
         },
         {10, 10, 50, 50}, 1250},
        {"round rectangle",
         [](EmfWriter& e) { blackFill(e); e.roundRect({10, 10, 60, 60}, {20, 20}); },
         {10, 10, 50, 50}, 2500 - (4 - M_PI) * 100},
        {"16-bit poly-polygon",
         [](EmfWriter& e) {
             blackFill(e);
             const std::uint32_t counts[] = {3, 3};
             const U_POINT16 pts[] = {{10, 10}, {30, 10}, {10, 30}, {40, 40}, {60, 40}, {40, 60}};
             e.add(U_EMRPOLYPOLYGON16_set({10, 10, 60, 60}, 2, counts, 6, pts));
         },
         {10, 10, 50, 50}, 400},
        {"poly-polygon",
         [](EmfWriter& e) {
             blackFill(e);
             e.polyPolygon({{P(10, 10), P(30, 10), P(30, 30), P(10, 30)},
                            {P(40, 40), P(60, 40), P(60, 60), P(40, 60)}});
         },
         {10, 10, 50, 50}, 800},
        {"path of Béziers", [](EmfWriter& e) { blackFill(e); bezierCircle(e, 36, 36, 20); },
         {16, 16, 40, 40}, M_PI * 400},
        {"pie",
         [](EmfWriter& e) {
             blackFill(e);  // counterclockwise from three to twelve o'clock
             e.add(U_EMRPIE_set({10, 10, 60, 60}, P(70, 35), P(35, 0)));
         },
         {35, 10, 25, 25}, M_PI * 625 / 4},
        {"world transform",
         [](EmfWriter& e) { blackFill(e); worldTransform(e, 2, 2, 5, 5); e.rectangle({0, 0, 20, 10}); },
         {5, 5, 40, 20}, 800},
        {"left-multiplied transform",  // scale first, then the translation already set
         [](EmfWriter& e) {
             blackFill(e);
             worldTransform(e, 1, 1, 10, 0);
             e.add(U_EMRMODIFYWORLDTRANSFORM_set(xform_set(2, 0, 0, 2, 0, 0), U_MWT_LEFTMULTIPLY));
             e.rectangle({0, 0, 10, 10});
         },
         {10, 0, 20, 20}, 400},
        {"right-multiplied transform",  // the translation first, then the scale
         [](EmfWriter& e) {
             blackFill(e);
             worldTransform(e, 1, 1, 10, 0);
             e.add(U_EMRMODIFYWORLDTRANSFORM_set(xform_set(2, 0, 0, 2, 0, 0), U_MWT_RIGHTMULTIPLY));
             e.rectangle({0, 0, 10, 10});
         },
         {20, 0, 20, 20}, 400},
        {"anisotropic mapping",
         [](EmfWriter& e) {
             blackFill(e);
             e.add(U_EMRSETMAPMODE_set(U_MM_ANISOTROPIC));
             e.add(U_EMRSETWINDOWEXTEX_set({730, 365}));
             e.add(U_EMRSETVIEWPORTEXTEX_set({73, 73}));
             e.rectangle({100, 50, 600, 150});
         },
         {10, 10, 50, 20}, 1000},
        {"isotropic mapping",  // both axes take the smaller scale, 1/4
         [](EmfWriter& e) {
             blackFill(e);
             e.add(U_EMRSETMAPMODE_set(U_MM_ISOTROPIC));
             e.add(U_EMRSETWINDOWEXTEX_set({100, 200}));
             e.add(U_EMRSETVIEWPORTEXTEX_set({50, 50}));
             e.rectangle({40, 40, 240, 200});
         },
         {10, 10, 50, 40}, 2000},
        {"anisotropic with only the window set",  // the viewport stays 1:1
         [](EmfWriter& e) {
             blackFill(e);
             e.add(U_EMRSETMAPMODE_set(U_MM_ANISOTROPIC));
             e.add(U_EMRSETWINDOWEXTEX_set({2, 2}));
             e.rectangle({20, 20, 100, 60});
         },
         {10, 10, 40, 20}, 800},
        {"isotropic keeps the metric scale it came from",
         [](EmfWriter& e) {
             blackFill(e);
             e.add(U_EMRSETMAPMODE_set(U_MM_HIMETRIC));
             e.add(U_EMRSETMAPMODE_set(U_MM_ISOTROPIC));
             e.rectangle({0, 0, 1000, -1000});
         },
         {0, 0, 37.8, 37.8}, 37.795 * 37.795},
        {"window and viewport origins",
         [](EmfWriter& e) {
             blackFill(e);
             e.add(U_EMRSETWINDOWORGEX_set(P(-10, -5)));
             e.add(U_EMRSETVIEWPORTORGEX_set(P(3, 4)));
             e.rectangle({0, 0, 20, 20});
         },
         {13, 9, 20, 20}, 400},
        {"hundredths of a millimetre, y up",  // 10 mm is 37.8 px at 96 dpi
         [](EmfWriter& e) {
             blackFill(e);
             e.add(U_EMRSETMAPMODE_set(U_MM_HIMETRIC));
             e.rectangle({0, 0, 1000, -1000});
         },
         {0, 0, 37.8, 37.8}, 37.795 * 37.795},
        {"extents kept by a second scalable mapping, then scaled",  // 400 to 100, then 200 to 100
         [](EmfWriter& e) {
             blackFill(e);
             e.add(U_EMRSETMAPMODE_set(U_MM_ANISOTROPIC));
             e.add(U_EMRSETWINDOWEXTEX_set({400, 400}));
             e.add(U_EMRSETVIEWPORTEXTEX_set({100, 100}));
             e.add(U_EMRSETMAPMODE_set(U_MM_ISOTROPIC));
             e.add(U_EMRSCALEWINDOWEXTEX_set(1, 2, 1, 2));
             e.rectangle({20, 20, 60, 60});
         },
         {10, 10, 20, 20}, 400},
        {"tenths of a millimetre", fixedModeSquare(U_MM_LOMETRIC, 100), {0, 0, 37.8, 37.8}, 37.795 * 37.795},
        {"hundredths of an inch", fixedModeSquare(U_MM_LOENGLISH, 50), {0, 0, 48, 48}, 48 * 48},
        {"thousandths of an inch", fixedModeSquare(U_MM_HIENGLISH, 500), {0, 0, 48, 48}, 48 * 48},
        {"twips", fixedModeSquare(U_MM_TWIPS, 720), {0, 0, 48, 48}, 48 * 48},
        {"arc stays open",  // a quarter from three to twelve o'clock, no chord
         [](EmfWriter& e) { widePen(e, 4); e.add(U_EMRARC_set({10, 10, 60, 60}, P(70, 35), P(35, 0))); },
         {35, 8, 27, 27}, M_PI * 50, 0.05},
        {"clockwise arc",  // the other three quarters
         [](EmfWriter& e) {
             widePen(e, 4);
             e.add(U_EMRSETARCDIRECTION_set(U_AD_CLOCKWISE));
             e.add(U_EMRARC_set({10, 10, 60, 60}, P(70, 35), P(35, 0)));
         },
         {8, 8, 54, 54}, M_PI * 150, 0.05},
        {"angle arc, a whole circle",  // from the current position, on the circle already
         [](EmfWriter& e) { widePen(e, 4); e.moveTo(P(56, 36)); e.add(U_EMRANGLEARC_set(P(36, 36), 20, 0, 360)); },
         {14, 14, 44, 44}, M_PI * 160, 0.05},
        {"chord",
         [](EmfWriter& e) { blackFill(e); e.add(U_EMRCHORD_set({10, 10, 60, 60}, P(70, 35), P(35, 0))); },
         {35, 10, 25, 25}, M_PI * 625 / 4 - 312.5},
        {"poly-polyline stays open",
         [](EmfWriter& e) {
             widePen(e);
             const std::uint32_t counts[] = {3};
             const U_POINTL pts[] = {P(10, 10), P(60, 10), P(60, 60)};
             e.add(U_EMRPOLYPOLYLINE_set({10, 10, 60, 60}, 1, counts, 3, pts));
         },
         {10, 9, 51, 51}, 200},
        {"poly-draw figure filled",  // a record exactly as long as its points and kinds
         [](EmfWriter& e) {
             blackFill(e);
             std::string tail;
             for (int v : {10, 10, 50, 10, 50, 50, 10, 50})
                 tail += littleEndian(std::uint32_t(v));
             tail += {U_PT_MOVETO, U_PT_LINETO, U_PT_LINETO, U_PT_LINETO | U_PT_CLOSEFIGURE};
             e.add(U_EMRBEGINPATH_set());
             e.add(rawRecord(U_EMR_POLYDRAW, 28, {{24, 4}}, tail));
             e.add(U_EMRENDPATH_set());
             e.add(U_EMRFILLPATH_set({10, 10, 50, 50}));
         },
         {10, 10, 40, 40}, 1600},
        {"stroked and filled path",
         [](EmfWriter& e) {
             e.select(U_BLACK_BRUSH);
             e.select(e.geometricPen(U_PS_SOLID | U_PS_JOIN_MITER, 4, rgb(0, 0, 0)));
             e.add(U_EMRBEGINPATH_set());
             e.rectangle({10, 10, 50, 50});
             e.add(U_EMRENDPATH_set());
             e.add(U_EMRSTROKEANDFILLPATH_set({10, 10, 50, 50}));
         },
         {8, 8, 44, 44}, 44 * 44},
        {"path as clip",
         [](EmfWriter& e) {
             blackFill(e);
             e.add(U_EMRBEGINPATH_set());
             e.rectangle({0, 0, 30, 30});
             e.add(U_EMRENDPATH_set());
             e.add(U_EMRSELECTCLIPPATH_set(U_RGN_COPY));
             e.rectangle({10, 10, 60, 60});
         },
         {10, 10, 20, 20}, 400},
        {"empty region lifts the clip",
         [](EmfWriter& e) {
             blackFill(e);
             e.add(U_EMRINTERSECTCLIPRECT_set({0, 0, 30, 30}));
             e.add(emptyClipRegion(U_RGN_COPY));
             e.rectangle({10, 10, 60, 60});
         },
         {10, 10, 50, 50}, 2500},
        {"clip rectangle",
         [](EmfWriter& e) {
             blackFill(e);
             e.add(U_EMRINTERSECTCLIPRECT_set({0, 0, 30, 30}));
             e.rectangle({10, 10, 60, 60});
         },
         {10, 10, 20, 20}, 400},
        {"saved and restored state",
         [](EmfWriter& e) {
             blackFill(e);
             e.add(U_EMRSAVEDC_set());
             e.select(U_NULL_BRUSH);
             worldTransform(e, 3, 3, 0, 0);
             e.add(U_EMRSAVEDC_set());
             e.add(U_EMRRESTOREDC_set(-1));
             e.add(U_EMRRESTOREDC_set(-1));  // the level saved first
             e.rectangle({10, 10, 20, 20});
         },
         {10, 10, 10, 10}, 100},
        {"wide pen with flat ends", [](EmfWriter& e) { widePen(e, 4); e.polyline({P(10, 30), P(60, 30)}); },
         {10, 28, 50, 4}, 200},
        {"null pen and brush",
         [](EmfWriter& e) { e.select(U_NULL_PEN); e.select(U_NULL_BRUSH); e.rectangle({10, 10, 60, 60}); e.ellipse({10, 10, 60, 60}); },
         {0, 0, 0, 0}, 0},
        {"deleted brush leaves the selection",
         [](EmfWriter& e) {
             e.select(U_NULL_PEN);
             const std::uint32_t b = e.brush(U_BS_SOLID, rgb(0, 0, 0));
             e.select(b);
             e.remove(b);
             e.rectangle({5, 5, 25, 15});
         },
         {5, 5, 20, 10}, 200},
    };
    return cases;
}

std::vector<U_POINTL> pentagram(double cx, double cy, double r)
{
    std::vector<U_POINTL> points;
    for (int i = 0; i < 5; ++i) {
        const double a = (-90 + 144.0 * i) * M_PI / 180;
        points.push_back(P(int(std::lround(cx + r * std::cos(a))), int(std::lround(cy + r * std::sin(a)))));
    }
    return points;
}

double columnInk(const QImage& image, int x)
{
    double sum = 0;
    for (int y = 0; y < image.height(); ++y)
        sum += darknessAt(image, x, y);
    return sum;
}

}  // namespace

class EmfDrawingTest : public QObject {
    Q_OBJECT

private slots:
    void shapesLandWhereDrawn_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(shapeCases().size()); ++i)
            QTest::newRow(shapeCases()[std::size_t(i)].name) << i;
    }

    void shapesLandWhereDrawn()
    {
        QFETCH(int, index);
        const ShapeCase& c = shapeCases()[std::size_t(index)];
        const auto picture = EmfPicture::fromBytes(writeEmf(73, 73, c.draw));
        QVERIFY(picture);
        const Ink ink = inkOf(renderNatural(*picture, 73, 73));
        QVERIFY2(std::abs(ink.area - c.area) <= std::max(3.0, c.area * c.slack),
                 qPrintable(QString("area %1, expected %2").arg(ink.area).arg(c.area)));
        QVERIFY2(std::abs(ink.box.left() - c.box.left()) <= 1 &&
                     std::abs(ink.box.top() - c.box.top()) <= 1 &&
                     std::abs(ink.box.right() + 1 - c.box.right()) <= 1 &&
                     std::abs(ink.box.bottom() + 1 - c.box.bottom()) <= 1,
                 qPrintable("box " + QDebug::toString(ink.box)));
    }

    void fillModes()
    {
        // A five-pointed star drawn in one stroke: alternate (the default)
        // leaves its middle open, winding fills it.
        const auto star = [](bool winding) {
            return EmfPicture::fromBytes(writeEmf(73, 73, [&](EmfWriter& e) {
                blackFill(e);
                if (winding)
                    e.add(U_EMRSETPOLYFILLMODE_set(U_WINDING));
                e.polygon(pentagram(36, 38, 32));
            }));
        };
        const auto alternate = star(false);
        const auto winding = star(true);
        QVERIFY(alternate && winding);
        const QImage a = renderNatural(*alternate, 73, 73);
        const QImage w = renderNatural(*winding, 73, 73);
        QVERIFY(darknessAt(a, 36, 38) < 0.1);
        QVERIFY(darknessAt(w, 36, 38) > 0.9);
        QVERIFY(darknessAt(a, 36, 14) > 0.9);  // the top point is filled either way
        QVERIFY(darknessAt(w, 36, 14) > 0.9);
    }

    void naturalSizeAndClipping()
    {
        const auto square = EmfPicture::fromBytes(writeEmf(73, 73, [](EmfWriter&) {}));
        QVERIFY(square);
        QCOMPARE(square->naturalSize(), QSize(73, 73));
        QVERIFY(std::abs(square->exactSize().width() - 73) + std::abs(square->exactSize().height() - 73) < 0.1);

        // Larger than the buffer: drawn at its own size and cut off, not shrunk.
        const auto large = EmfPicture::fromBytes(writeEmf(100, 100, [](EmfWriter& e) {
            blackFill(e);
            e.rectangle({50, 50, 100, 100});
        }));
        QVERIFY(large);
        QCOMPARE(large->naturalSize(), QSize(100, 100));
        QVERIFY(std::abs(inkOf(renderNatural(*large, 73, 73)).area - 23 * 23) < 5);

        // Smaller: stays small in the corner, not stretched.
        const auto small = EmfPicture::fromBytes(writeEmf(40, 40, [](EmfWriter& e) {
            blackFill(e);
            e.rectangle({20, 20, 40, 40});
        }));
        QVERIFY(small);
        QCOMPARE(small->naturalSize(), QSize(40, 40));
        const Ink ink = inkOf(renderNatural(*small, 73, 73));
        QVERIFY(std::abs(ink.area - 400) < 4);
        QCOMPARE(ink.box, QRect(20, 20, 20, 20));
    }

    void frameAndReferenceDevice()
    {
        // A 1024 x 768 device on 320 x 240 mm, the frame its whole screen:
        // a 64 x 48 pixel rectangle is a sixteenth of it each way.
        const auto screen = EmfPicture::fromBytes(
            writeEmf({0, 0, 1023, 767}, {0, 0, 32000, 24000}, {1024, 768}, {320, 240},
                     [](EmfWriter& e) {
                         blackFill(e);
                         e.rectangle({0, 0, 64, 48});
                     }));
        QVERIFY(screen);
        QCOMPARE(screen->naturalSize(), QSize(1209, 907));
        const Ink scaled = inkOf(renderInto(*screen, {160, 120}, QRectF(0, 0, 160, 120)));
        QVERIFY2(std::abs(scaled.area - 75) < 2, qPrintable(QString::number(scaled.area)));

        // The frame, not the drawing, is what lands on the target: a frame
        // starting 10 mm in puts what is drawn 10 mm in at the corner.
        const auto offset = EmfPicture::fromBytes(
            writeEmf({38, 38, 110, 110}, {1000, 1000, 2931, 2931}, EmfWriter::kDevicePixels,
                     EmfWriter::kDeviceMillimetres, [](EmfWriter& e) {
                         blackFill(e);
                         e.rectangle({38, 38, 58, 58});
                     }));
        QVERIFY(offset);
        QCOMPARE(offset->naturalSize(), QSize(73, 73));
        const Ink ink = inkOf(renderNatural(*offset, 73, 73));
        QVERIFY(std::abs(ink.area - 400) < 5);
        QVERIFY(ink.box.left() <= 1 && ink.box.top() <= 1);

        // 14 pixels on 3.65 mm, 3 in whole millimetres: the micrometres hold.
        QByteArray own = writeEmf({0, 0, 13, 13}, {0, 0, 365, 365}, {14, 14}, {3, 3}, [](EmfWriter& e) {
            blackFill(e);
            e.rectangle({0, 0, 14, 14});
        });
        const qint32 micrometres[] = {3650, 3650};
        own.replace(offsetof(U_EMRHEADER, szlMicrometers), 8, reinterpret_cast<const char*>(micrometres), 8);
        QCOMPARE(inkOf(renderInto(*EmfPicture::fromBytes(own), {73, 73}, QRectF(0, 0, 73, 73))).box,
                 QRect(0, 0, 73, 73));

        // What a file draws beyond its frame stays off the buffer around
        // the target, even where the painter itself could show it.
        const auto spill = EmfPicture::fromBytes(writeEmf(73, 73, [](EmfWriter& e) {
            blackFill(e);
            e.rectangle({-30, -30, 20, 20});
        }));
        QVERIFY(spill);
        QCOMPARE(inkOf(renderInto(*spill, {120, 120}, QRectF(40, 40, 73, 73))).box,
                 QRect(40, 40, 20, 20));
    }

    void pens()
    {
        // A one-pixel pen and a geometric pen scaled down to a twentieth of
        // a pixel both show as at least one device pixel, also on HiDPI.
        const auto hairlines = EmfPicture::fromBytes(writeEmf(73, 73, [](EmfWriter& e) {
            e.select(U_NULL_BRUSH);
            e.select(e.pen(U_PS_SOLID, 0, rgb(0, 0, 0)));
            e.polyline({P(10, 20), P(10, 60)});
            worldTransform(e, 0.05, 0.05, 0, 0);
            e.select(e.geometricPen(U_PS_SOLID, 1, rgb(0, 0, 0)));
            e.polyline({P(800, 400), P(800, 1200)});  // x = 40 px
        }));
        QVERIFY(hairlines);
        // One device pixel: about a line's length of ink, not twice that.
        const auto oneDevicePixel = [](double ink, double length) {
            return ink > 0.9 * length && ink < 1.3 * length;
        };
        const QImage one = renderNatural(*hairlines, 73, 73);
        QVERIFY(oneDevicePixel(columnInk(one, 9) + columnInk(one, 10), 40));
        QVERIFY(oneDevicePixel(columnInk(one, 39) + columnInk(one, 40), 40));
        // The one-pixel pen lights whole pixels in its own colour, not a
        // pale pair of columns either side of its place.
        QCOMPARE(one.pixel(10, 40), qRgb(0, 0, 0));
        QCOMPARE(one.pixel(9, 40), qRgb(255, 255, 255));
        const QImage two = renderNatural(*hairlines, 73, 73, 2);
        QVERIFY(oneDevicePixel(columnInk(two, 19) + columnInk(two, 20) + columnInk(two, 21), 80));
        QVERIFY(oneDevicePixel(columnInk(two, 79) + columnInk(two, 80) + columnInk(two, 81), 80));
        // Drawn at a quarter of its size, the zero-width pen stays one device
        // pixel while the scaled pen keeps one picture pixel and turns faint.
        const QImage quarter = renderInto(*hairlines, QSize(19, 19), QRectF(0, 0, 18.25, 18.25));
        const double zeroWidth = columnInk(quarter, 1) + columnInk(quarter, 2) + columnInk(quarter, 3);
        const double scaled = columnInk(quarter, 9) + columnInk(quarter, 10) + columnInk(quarter, 11);
        QVERIFY(oneDevicePixel(zeroWidth, 10));
        QVERIFY(scaled > 1 && scaled < 0.5 * zeroWidth);


        // The default pen outlines in black around the default white fill.
        const auto outlined = EmfPicture::fromBytes(
            writeEmf(73, 73, [](EmfWriter& e) { e.rectangle({10, 10, 60, 60}); }));
        QVERIFY(outlined);
        const QImage o = renderNatural(*outlined, 73, 73);
        QVERIFY(darknessAt(o, 35, 35) < 0.01);
        QVERIFY(columnInk(o, 9) + columnInk(o, 10) > 0.9 * 50);
    }
};

QTEST_MAIN(EmfDrawingTest)
#include "emf_drawing_test.moc"
