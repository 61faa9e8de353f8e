// SPDX-License-Identifier: GPL-2.0-or-later
// Bitmaps in every layout a metafile may carry them, raster operations,
// bitmap brushes, single pixels, regions, gradients, pens and EMF+ records,
// each drawn into a 40 x 40 picture and checked at a few points.
#include "tests/platform/emf/emf_test_support.h"
#include "tools/pictures/emf_raw_record.h"

#include <QBuffer>
#include <QPainter>
#include <QtTest>

#include <bit>
#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace {

using Draw = std::function<void(EmfWriter&)>;
using Table = std::vector<std::uint32_t>;  // colours, or bit masks
constexpr QRgb R = 0xffff0000, G = 0xff00ff00, B = 0xff0000ff, W = 0xffffffff, K = 0xff000000,
               C = 0xff00ffff;

std::string le(std::uint32_t v, int bytes = 4) { return littleEndian(v, bytes); }
// BitBlt-like records: StretchBlt, AlphaBlend, TransparentBlt over 40 x 40.
char* blt(std::uint32_t type, const RawDib* d, int srcW, int srcH, std::uint32_t ropOrBlend)
{
    if (!d)  // no bitmap: the brush alone
        return rawRecord(type, 100, {{32, 40}, {36, 40}, {40, ropOrBlend}});
    return rawRecord(type, type == U_EMR_BITBLT ? 100 : 108,
                  {{32, 40}, {36, 40}, {40, ropOrBlend}, {52, 0x3f800000}, {64, 0x3f800000},
                   {100, std::uint32_t(srcW)}, {104, std::uint32_t(srcH)}},
                  *d, 84);
}

QImage render(const Draw& draw)
{
    const QByteArray bytes = writeEmf(40, 40, draw);
    if (const auto picture = EmfPicture::fromBytes(bytes))
        return renderNatural(*picture, 40, 40);
    QImage white(40, 40, QImage::Format_RGB32);  // refused: nothing drawn
    white.fill(Qt::white);
    return bytes.isEmpty() ? QImage() : white;
}

bool near(QRgb a, QRgb b)
{
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))}) <= 40;
}

struct Expect { QPoint at; QRgb colour; };

// A rectangle filled with brush under mix, with no outline.
void box(EmfWriter& e, std::uint32_t brush, std::uint32_t mix, U_RECTL r = {0, 0, 41, 41})
{
    e.select(brush);
    e.select(U_NULL_PEN);
    e.add(U_EMRSETROP2_set(mix));
    e.rectangle(r);
}

void checkPoints(const QImage& image, const std::vector<Expect>& expected)
{
    QVERIFY(!image.isNull());
    for (const Expect& e : expected)
        QVERIFY2(near(image.pixel(e.at), e.colour),
                 qPrintable(QString("(%1,%2) is %3, not %4").arg(e.at.x()).arg(e.at.y())
                                .arg(image.pixel(e.at), 0, 16).arg(e.colour, 0, 16)));
}

// The four quadrants' centres: the 2 x 2 bitmaps' pixels.
std::vector<Expect> quadrants(QRgb tl, QRgb tr, QRgb bl, QRgb br)
{
    return {{{10, 10}, tl}, {{30, 10}, tr}, {{10, 30}, bl}, {{30, 30}, br}};
}

// An EMF+ record.
std::string plus(std::uint16_t type, std::uint16_t flags, const std::string& data)
{
    return littleEndian(type, 2) + littleEndian(flags, 2) + littleEndian(std::uint32_t(12 + data.size())) +
           littleEndian(std::uint32_t(data.size())) + data;
}

const Table kFour{0xff0000, 0x00ff00, 0x0000ff, 0xffffff};

QByteArray png()
{
    const QRgb pixels[] = {R, G, B, W};
    const QImage image(reinterpret_cast<const uchar*>(pixels), 2, 2, QImage::Format_RGB32);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

}  // namespace

Q_DECLARE_METATYPE(Draw)
Q_DECLARE_METATYPE(Table)
Q_DECLARE_METATYPE(std::vector<Expect>)

class EmfBitmapsTest : public QObject {
    Q_OBJECT
private slots:
    // Each layout holds red, green over blue, white (one bit: black, white
    // over white, black); damaged ones draw what they hold, or nothing.
    void bitmaps_data()
    {
        QTest::addColumn<Draw>("draw");
        QTest::addColumn<std::vector<Expect>>("expected");
        auto row = [](const char* name, int depth, int compression, Table table, const std::string& bits,
                      std::vector<Expect> expected = quadrants(R, G, B, W), int width = 2) {
            // Negative depth: top-down. The bitmap is stretched over the whole picture.
            const int height = (width == 2 ? 2 : width) * (depth < 0 ? -1 : 1);
            const RawDib d = rawDib(width, height, std::abs(depth), std::uint32_t(compression), table, bits);
            QTest::newRow(name) << Draw([=](EmfWriter& e) {
                e.add(rawRecord(U_EMR_STRETCHDIBITS, 80, {{40, 2}, {44, 2}, {68, U_SRCCOPY}, {72, 40}, {76, 40}}, d, 48));
            }) << expected;
        };
        using namespace std::string_literals;
        const Table none;
        const Table masks{0xf800, 0x07e0, 0x001f};
        row("1 bit", 1, U_BI_RGB, {0, 0xffffff}, "\x80\0\0\0\x40\0\0\0"s, quadrants(K, W, W, K));
        row("4 bit", 4, U_BI_RGB, kFour, "\x23\0\0\0\x01\0\0\0"s);
        row("8 bit", 8, U_BI_RGB, kFour, "\x02\x03\0\0\0\x01\0\0"s);
        row("16 bit", 16, U_BI_RGB, none, le(0x001f, 2) + le(0x7fff, 2) + le(0x7c00, 2) + le(0x03e0, 2));
        row("16 bit fields", 16, U_BI_BITFIELDS, masks, le(0x001f, 2) + le(0xffff, 2) + le(0xf800, 2) + le(0x07e0, 2));
        row("24 bit", 24, U_BI_RGB, none, "\xff\0\0\xff\xff\xff\0\0\0\0\xff\0\xff\0\0\0"s);
        row("24 bit top-down", -24, U_BI_RGB, none, "\0\0\xff\0\xff\0\0\0\xff\0\0\xff\xff\xff\0\0"s);
        row("32 bit", 32, U_BI_RGB, none, le(0xff) + le(0xffffff) + le(0xff0000) + le(0xff00));
        row("8 bit run-length", 8, U_BI_RLE8, kFour, "\x01\x02\x01\x03\0\0\x01\0\x01\x01\0\x01"s);
        row("4 bit run-length", 4, U_BI_RLE4, kFour, "\x02\x23\0\0\x02\x01\0\x01"s);
        row("run-length data that stops", 8, U_BI_RLE8, kFour, "\x01\x02"s, quadrants(W, W, B, W));
        row("run-length move up", 8, U_BI_RLE8, kFour, "\x01\x02\0\x02\0\x01\x01\x01\0\x01"s, quadrants(W, G, B, W));
        row("embedded PNG", 0, U_BI_PNG, none, png().toStdString());
        const std::vector<Expect> blank = quadrants(W, W, W, W);
        row("over 64 megapixels", 1, U_BI_RGB, {0, 0xffffff}, std::string(64, '\xff'), blank, 70000);
        row("last row cut short", 24, U_BI_RGB, none, "\xff\0\0\xff\xff\xff\0\0"s, quadrants(W, W, B, W));
        row("rows cut short", 24, U_BI_RGB, none, "\xff\0\0\xff\xff\xff\0\0"s, blank, 3);
        row("index past the colour table", 8, U_BI_RGB, kFour, "\x02\x05\0\0\0\x01\0\0"s, quadrants(R, G, B, K));
        row("run past the edge", 8, U_BI_RLE8, kFour, "\xff\x02\0\x02\x05\xff"s, quadrants(W, W, B, B));
        row("literal past the data", 8, U_BI_RLE8, kFour, "\x01\x02\0\x40\x01"s, quadrants(W, W, B, W));
        row("unknown depth", 7, U_BI_RGB, none, std::string(16, '\0'), blank);
    }
    void bitmaps() { fills(); }

    // A black-over-white drawing, a black | white bitmap and a red brush;
    // quadrants: source black or white over drawing black or white.
    void rasterOperations_data()
    {
        QTest::addColumn<uint>("rop");
        QTest::addColumn<bool>("source");
        QTest::addColumn<std::vector<Expect>>("expected");
        QTest::newRow("copy") << uint(U_SRCCOPY) << true << quadrants(K, W, K, W);
        QTest::newRow("or") << uint(U_SRCPAINT) << true << quadrants(K, W, W, W);
        QTest::newRow("and") << uint(U_SRCAND) << true << quadrants(K, K, K, W);
        QTest::newRow("xor") << uint(U_SRCINVERT) << true << quadrants(K, W, W, K);
        QTest::newRow("inverted copy") << uint(U_NOTSRCCOPY) << true << quadrants(W, K, W, K);
        QTest::newRow("brush where white") << 0xe20746u << true << quadrants(K, R, W, R);
        QTest::newRow("brush and source") << uint(U_MERGECOPY) << true << quadrants(K, R, K, R);
        QTest::newRow("brush") << uint(U_PATCOPY) << false << quadrants(R, R, R, R);
        QTest::newRow("brush xor") << uint(U_PATINVERT) << false << quadrants(R, R, C, C);
        QTest::newRow("invert") << uint(U_DSTINVERT) << false << quadrants(W, W, K, K);
        QTest::newRow("black") << uint(U_BLACKNESS) << false << quadrants(K, K, K, K);
        QTest::newRow("white") << uint(U_WHITENESS) << false << quadrants(W, W, W, W);
    }
    void rasterOperations()
    {
        QFETCH(uint, rop);
        QFETCH(bool, source);
        QFETCH(std::vector<Expect>, expected);
        const RawDib d = rawDib(2, 1, 1, U_BI_RGB, {0, 0xffffff}, std::string("\x40\0\0\0", 4));
        checkPoints(render([&](EmfWriter& e) {
                        e.select(U_BLACK_BRUSH);
                        e.select(U_NULL_PEN);
                        e.rectangle({0, 0, 41, 20});
                        e.select(e.brush(U_BS_SOLID, rgb(255, 0, 0)));
                        e.add(blt(source ? U_EMR_STRETCHBLT : U_EMR_BITBLT, source ? &d : nullptr, 2, 1, rop));
                    }),
                    expected);
    }

    void fills_data()
    {
        QTest::addColumn<Draw>("draw");
        QTest::addColumn<std::vector<Expect>>("expected");
        using namespace std::string_literals;
        // An 8 x 8 tile, black in its top-left and bottom-right quarters.
        std::string checker;
        for (int y = 0; y < 8; ++y)
            checker += (y < 4 ? "\xf0"s : "\x0f"s) + std::string(3, '\0');  // bottom row first
        const RawDib tile = rawDib(8, 8, 1, U_BI_RGB, {0, 0xffffff}, checker);
        for (std::uint32_t type : {U_EMR_CREATEDIBPATTERNBRUSHPT, U_EMR_CREATEMONOBRUSH})
            QTest::newRow(type == U_EMR_CREATEMONOBRUSH ? "mono brush" : "bitmap brush")
                << Draw([=](EmfWriter& e) {
                       const std::uint32_t h = e.brush(U_BS_SOLID, rgb(0, 0, 255));
                       e.add(rawRecord(type, 32, {{8, h}}, tile, 16));
                       e.select(h);
                       e.select(U_NULL_PEN);
                       e.rectangle({0, 0, 41, 41});
                   })
                << std::vector<Expect>{{{2, 2}, K}, {{6, 2}, W}, {{2, 6}, W}, {{14, 14}, K}};
        const std::string twoBoxes = le(32) + le(1) + le(2) + le(32) + le(0) + le(0) + le(40) + le(40) +
                                     le(0) + le(0) + le(20) + le(20) + le(20) + le(20) + le(40) + le(40);
        auto region = [twoBoxes](std::uint32_t type, std::size_t fixed, bool named = true) {
            return Draw([=](EmfWriter& e) {
                e.select(U_BLACK_BRUSH);
                const std::uint32_t red = named ? e.brush(U_BS_SOLID, rgb(255, 0, 0)) : 9;
                e.add(rawRecord(type, fixed, {{24, std::uint32_t(twoBoxes.size())}, {28, red}, {32, 4}, {36, 4}},
                             twoBoxes));
            });
        };
        QTest::newRow("fill region") << region(U_EMR_FILLRGN, 32) << quadrants(R, W, W, R);
        QTest::newRow("region filled by no brush") << Draw([=](EmfWriter& e) {
            box(e, U_BLACK_BRUSH, U_R2_COPYPEN, {-1, -1, 41, 41});
            region(U_EMR_FILLRGN, 32, false)(e);
        }) << quadrants(K, K, K, K);
        QTest::newRow("paint region") << region(U_EMR_PAINTRGN, 28) << quadrants(K, W, W, K);
        QTest::newRow("frame region") << region(U_EMR_FRAMERGN, 40)
                                      << std::vector<Expect>{{{1, 10}, R}, {{10, 10}, W}, {{30, 10}, W}};
        QTest::newRow("invert region") << Draw([=](EmfWriter& e) {
            e.select(U_BLACK_BRUSH);
            e.select(U_NULL_PEN);
            e.rectangle({-1, -1, 41, 20});
            region(U_EMR_INVERTRGN, 28)(e);
        }) << quadrants(W, K, W, K);
        auto vertex = [](int x, int y, QRgb c) {
            return le(std::uint32_t(x)) + le(std::uint32_t(y)) + le(qRed(c) * 257u, 2) + le(qGreen(c) * 257u, 2) +
                   le(qBlue(c) * 257u, 2) + le(0, 2);
        };
        auto gradient = [](std::uint32_t mode, std::uint32_t vertices, const std::string& tail) {
            return Draw([=](EmfWriter& e) {
                e.add(rawRecord(U_EMR_GRADIENTFILL, 36, {{24, vertices}, {28, 1}, {32, mode}}, tail));
            });
        };
        QTest::newRow("gradient across")
            << gradient(U_GRADIENT_FILL_RECT_H, 2, vertex(0, 0, R) + vertex(40, 40, B) + le(0) + le(1))
            << std::vector<Expect>{{{1, 20}, R}, {{20, 20}, 0xff800080}, {{39, 20}, B}};
        QTest::newRow("gradient down")
            << gradient(U_GRADIENT_FILL_RECT_V, 2, vertex(0, 0, R) + vertex(40, 40, B) + le(0) + le(1))
            << std::vector<Expect>{{{20, 1}, R}, {{20, 20}, 0xff800080}, {{20, 39}, B}};
        QTest::newRow("shaded triangle")
            << gradient(U_GRADIENT_FILL_TRIANGLE, 3,
                        vertex(0, 0, R) + vertex(40, 0, G) + vertex(0, 40, B) + le(0) + le(1) + le(2))
            << std::vector<Expect>{{{1, 1}, R}, {{37, 1}, G}, {{1, 37}, B}, {{10, 10}, 0xff804040}, {{30, 30}, W}};
        QTest::newRow("pixels") << Draw([](EmfWriter& e) {
            e.add(U_EMRSETPIXELV_set({5, 5}, rgb(255, 0, 0)));
            e.add(U_EMRSETPIXELV_set({6, 5}, rgb(255, 0, 0)));
        }) << std::vector<Expect>{{{5, 5}, R}, {{6, 5}, R}, {{7, 5}, W}, {{5, 6}, W}};
        const RawDib redOnly = rawDib(1, 1, 32, U_BI_RGB, {}, le(0xff0000));
        QTest::newRow("half blended")
            << Draw([=](EmfWriter& e) { e.add(blt(U_EMR_ALPHABLEND, &redOnly, 1, 1, 128 << 16)); })
            << quadrants(0xffff8080, 0xffff8080, 0xffff8080, 0xffff8080);
        const RawDib redGreen = rawDib(2, 1, 24, U_BI_RGB, {}, std::string("\0\0\xff\0\xff\0\0\0", 8));
        QTest::newRow("green transparent")
            << Draw([=](EmfWriter& e) { e.add(blt(U_EMR_TRANSPARENTBLT, &redGreen, 2, 1, 0x00ff00)); })
            << quadrants(R, W, R, W);
        // Mixes: red XORed in, a black mask over the left half, red XORed
        // again leaves red under the mask only.
        QTest::newRow("masked between two XORs") << Draw([=](EmfWriter& e) {
            const std::uint32_t red = e.brush(U_BS_SOLID, rgb(255, 0, 0));
            box(e, red, U_R2_XORPEN);
            box(e, U_BLACK_BRUSH, U_R2_COPYPEN, {0, 0, 21, 41});
            box(e, red, U_R2_XORPEN);
        }) << quadrants(R, W, R, W);
        for (std::uint32_t mode : {U_OPAQUE, U_TRANSPARENT})
            QTest::newRow(mode == U_OPAQUE ? "hatch on the background" : "hatch alone") << Draw([=](EmfWriter& e) {
                e.add(U_EMRSETBKMODE_set(mode));
                e.add(U_EMRSETBKCOLOR_set(rgb(0, 0, 255)));
                box(e, e.brush(U_BS_HATCHED, rgb(255, 0, 0), U_HS_HORIZONTAL), U_R2_COPYPEN);
            }) << std::vector<Expect>{{{20, 1}, mode == U_OPAQUE ? B : W}, {{20, 3}, R}};
    }
    void fills()
    {
        QFETCH(Draw, draw);
        QFETCH(std::vector<Expect>, expected);
        checkPoints(render(draw), expected);
    }

    // Pens as Windows draws them: dashes counted in pixels for one-pixel
    // pens (a user's in steps of three) and in widths or logical units for
    // wide ones, with round ends drawn within each dash; pens Windows would
    // not create; inside-frame pens; outlines on a rectangle's edges; mixes.
    void strokes_data()
    {
        QTest::addColumn<Draw>("draw");
        QTest::addColumn<std::vector<Expect>>("expected");
        using Pen = std::function<std::uint32_t(EmfWriter&)>;
        auto line = [](const char* name, Pen pen, std::vector<std::pair<int, QRgb>> along) {
            std::vector<Expect> expected;
            for (const auto& [x, colour] : along)
                expected.push_back({{x, 10}, colour});
            QTest::newRow(name) << Draw([=](EmfWriter& e) {
                e.select(pen(e));
                e.polyline({point32_set(2, 10), point32_set(38, 10)});
            }) << expected;
        };
        auto ext = [](std::uint32_t style, std::uint32_t width, std::vector<std::uint32_t> dashes = {}) {
            return Pen([=](EmfWriter& e) { return e.extPen(style, width, rgb(0, 0, 0), dashes); });
        };
        const std::uint32_t geometric = U_PS_GEOMETRIC | U_PS_ENDCAP_FLAT;
        line("dash", [](EmfWriter& e) { return e.pen(U_PS_DASH, 0, rgb(0, 0, 0)); },
             {{2, K}, {19, K}, {20, W}, {25, W}, {26, K}});
        line("dash dot dot", ext(U_PS_DASHDOTDOT | U_PS_ENDCAP_FLAT, 1), {{10, K}, {11, W}, {15, K}, {18, W}, {21, K}, {24, W}, {26, K}});
        line("alternate", ext(U_PS_ALTERNATE, 1), {{2, K}, {3, W}, {4, K}, {5, W}});
        line("user steps", ext(U_PS_USERSTYLE, 1, {2, 1}), {{7, K}, {8, W}, {10, W}, {11, K}});
        line("wide dash", ext(geometric | U_PS_DASH, 2), {{7, K}, {8, W}, {9, W}, {10, K}});
        line("round ends within", ext(U_PS_GEOMETRIC | U_PS_DASH, 4), {{6, K}, {13, W}, {15, W}, {20, K}});
        line("round dots", ext(U_PS_GEOMETRIC | U_PS_DOT, 4), {{6, W}, {10, K}, {14, W}, {18, K}});
        line("wide user dashes", ext(geometric | U_PS_USERSTYLE, 2, {4, 2}), {{5, K}, {6, W}, {7, W}, {8, K}});
        line("odd user count", ext(geometric | U_PS_USERSTYLE, 2, {3}), {{4, K}, {5, W}, {7, W}, {8, K}, {11, W}});
        line("old wide dash is solid", [](EmfWriter& e) { return e.pen(U_PS_DASH, 2, rgb(0, 0, 0)); },
             {{8, K}, {9, K}, {20, K}, {22, K}});
        line("refused pen", [](EmfWriter& e) {
            e.select(e.pen(U_PS_SOLID, 0, rgb(255, 0, 0)));
            return e.extPen(U_PS_GEOMETRIC | U_PS_ALTERNATE, 4, rgb(0, 0, 0));
        }, {{20, R}, {30, R}});
        QTest::newRow("mitre past the limit bevelled") << Draw([](EmfWriter& e) {
            e.select(e.extPen(U_PS_GEOMETRIC | U_PS_ENDCAP_FLAT | U_PS_JOIN_MITER, 4, rgb(0, 0, 0)));
            e.polyline({point32_set(2, 9), point32_set(20, 10), point32_set(2, 11)});
        }) << std::vector<Expect>{{{18, 10}, K}, {{26, 10}, W}};
        QTest::newRow("inside frame") << Draw([](EmfWriter& e) {
            e.select(U_NULL_BRUSH);
            e.select(e.pen(U_PS_INSIDEFRAME, 6, rgb(0, 0, 0)));
            e.ellipse({4, 4, 36, 36});
        }) << std::vector<Expect>{{{2, 20}, W}, {{5, 20}, K}, {{20, 34}, K}, {{20, 37}, W}};
        QTest::newRow("outline on the edges") << Draw([](EmfWriter& e) {
            e.select(U_NULL_BRUSH);
            e.rectangle({10, 10, 30, 30});
        }) << std::vector<Expect>{{{10, 20}, K}, {{29, 20}, W}, {{30, 20}, K}, {{31, 20}, W}, {{20, 30}, K}};
        QTest::newRow("fill short of the edges") << Draw([](EmfWriter& e) { box(e, U_BLACK_BRUSH, U_R2_COPYPEN, {10, 10, 30, 30}); })
                                                 << std::vector<Expect>{{{29, 20}, K}, {{30, 20}, W}, {{20, 29}, K}, {{20, 30}, W}};
        // Each mix's truth table: bit (2 x pen + drawing) of (mix - 1).
        const QRgb under = 0xff3366cc, pen = 0xffffa040;
        for (std::uint32_t mix = U_R2_BLACK; mix <= U_R2_WHITE; ++mix) {
            QRgb mixed = 0xff000000;
            for (int bit = 0; bit < 24; ++bit)
                mixed |= QRgb((mix - 1) >> (2 * (pen >> bit & 1) + (under >> bit & 1)) & 1) << bit;
            QTest::addRow("mix %u", mix) << Draw([=](EmfWriter& e) {
                box(e, e.brush(U_BS_SOLID, rgb(qRed(under), qGreen(under), qBlue(under))), U_R2_COPYPEN);
                box(e, e.brush(U_BS_SOLID, rgb(qRed(pen), qGreen(pen), qBlue(pen))), mix, {10, 10, 30, 30});
            }) << std::vector<Expect>{{{5, 5}, under}, {{20, 20}, mixed}};
        }
    }
    void strokes() { fills(); }

    // EMF+ records in comments draw when the plain records draw nothing.
    void plusRecords_data()
    {
        QTest::addColumn<Draw>("draw");
        QTest::addColumn<std::vector<Expect>>("expected");
        using namespace std::string_literals;
        auto f = [](std::initializer_list<float> values) {
            std::string out;
            for (float v : values)
                out += le(std::bit_cast<std::uint32_t>(v));
            return out;
        };
        const std::string header = plus(0x4001, 1, le(0xdbc01002) + le(0) + le(96) + le(96));
        const std::string redBrush = plus(0x4008, 0x100, le(0xdbc01002) + le(0) + le(0xffff0000));
        const std::string blackPen =
            plus(0x4008, 0x201, le(0xdbc01002) + le(0) + le(0) + le(0) + f({4}) + le(0xdbc01002) + le(0) + le(K));
        const std::string square = plus(0x4008, 0x302, le(0xdbc01002) + le(4) + le(0) + f({0, 0, 40, 0, 40, 40, 0, 40}) +
                                                       std::string("\0\x01\x01\x81", 4));
        auto picture = [=](const std::string& records, bool plainToo = false) {
            return Draw([=](EmfWriter& e) {
                if (plainToo) {
                    e.select(U_BLACK_BRUSH);
                    e.rectangle({0, 0, 20, 20});
                }
                e.add(rawRecord(U_EMR_COMMENT, 12, {{8, std::uint32_t(4 + header.size() + records.size())}},
                                "EMF+" + header + records));
            });
        };
        QTest::newRow("object brush") << picture(redBrush + plus(0x400a, 0, le(0) + le(1) + f({0, 0, 20, 40})))
                                      << quadrants(R, W, R, W);
        QTest::newRow("moved ellipse") << picture(plus(0x402d, 0, f({20, 0})) +
                                                  plus(0x400e, 0x8000, le(B) + f({0, 0, 20, 20})))
                                       << quadrants(W, B, W, W);
        QTest::newRow("clipped path") << picture(square + plus(0x4032, 0, f({0, 0, 20, 40})) +
                                                 plus(0x4014, 0x8002, le(G)))
                                      << quadrants(G, W, G, W);
        QTest::newRow("page in points") << picture(plus(0x4030, 3, f({1})) +
                                                   plus(0x400a, 0x8000, le(R) + le(1) + f({15, 0, 15, 15})))
                                        << quadrants(W, R, W, W);
        const std::vector<Expect> line{{{10, 20}, K}, {{30, 19}, K}, {{20, 10}, W}, {{20, 30}, W}};
        QTest::newRow("pen") << picture(blackPen + plus(0x400d, 1, le(2) + f({0, 20, 40, 20}))) << line;
        QTest::newRow("curve through two points")
            << picture(blackPen + plus(0x4018, 1, f({0.5f}) + le(0) + le(1) + le(2) + f({0, 20, 40, 20}))) << line;
        QTest::newRow("clear") << picture(plus(0x4009, 0, le(G))) << quadrants(G, G, G, G);
        QTest::newRow("plain records win") << picture(redBrush + plus(0x400a, 0, le(0) + le(1) + f({0, 0, 40, 40})), true)
                                           << quadrants(K, W, W, W);
        // Two characters of a 40-pixel font, each at its own point of the baseline.
        const std::string font = plus(0x4008, 0x603, le(0xdbc01002) + f({40}) + le(2) + le(0) + le(0) + le(5) +
                                                         std::string("A\0r\0i\0a\0l\0\0\0", 12));
        QTest::newRow("placed characters")
            << picture(font + plus(0x4036, 0x8003, le(K) + le(1) + le(0) + le(2) + std::string("H\0H\0", 4) + f({0, 36, 30, 36})))
            << std::vector<Expect>{{{5, 30}, K}, {{35, 30}, K}, {{14, 30}, W}, {{5, 4}, W}};
        QTest::newRow("characters at the font's advances")  // the second H some 29 pixels on
            << picture(font + plus(0x4036, 0x8003, le(K) + le(5) + le(0) + le(2) + std::string("H\0H\0", 4) + f({0, 36, 0, 0})))
            << std::vector<Expect>{{{5, 30}, K}, {{34, 30}, K}, {{38, 30}, W}, {{14, 30}, W}};
        // An I in a 40 x 40 box: at its left edge, or centred both ways.
        auto string = [=](const std::string& format) {
            return picture(font + format + plus(0x401c, 0x8003, le(K) + le(4) + le(1) + f({0, 0, 40, 40}) + "I\0\0\0"s));
        };
        QTest::newRow("string at its box's corner") << string("") << std::vector<Expect>{{{6, 20}, K}, {{20, 20}, W}, {{6, 34}, K}};
        QTest::newRow("centred string") << string(plus(0x4008, 0x704, le(0xdbc01002) + le(0) + le(0) + le(1) + le(1)))
                                        << std::vector<Expect>{{{6, 20}, W}, {{20, 20}, K}, {{20, 34}, W}};
        // Figures closed by their flags, by their points' kinds, or not at all.
        const std::vector<Expect> closing{{{20, 20}, K}, {{38, 20}, K}};
        QTest::newRow("closed lines") << picture(blackPen + plus(0x400d, 0x2001, le(3) + f({0, 10, 38, 10, 38, 30})))
                                      << closing;
        QTest::newRow("path's closed figure") << picture(blackPen + square + plus(0x4015, 2, le(1)))
                                              << std::vector<Expect>{{{1, 20}, K}, {{20, 39}, K}, {{20, 20}, W}};
        QTest::newRow("open arc") << picture(blackPen + plus(0x4012, 1, f({0, 90, 0, 0, 40, 40})))
                                  << std::vector<Expect>{{{34, 34}, K}, {{23, 23}, W}, {{30, 20}, W}};
        QTest::newRow("pie") << picture(plus(0x4010, 0x8000, le(R) + f({0, 90, 0, 0, 40, 40})))
                             << std::vector<Expect>{{{23, 23}, R}, {{30, 10}, W}, {{10, 30}, W}};
        QTest::newRow("triangle") << picture(plus(0x400c, 0x8000, le(R) + le(3) + f({0, 0, 40, 0, 0, 40})))
                                  << std::vector<Expect>{{{5, 5}, R}, {{35, 35}, W}};
        QTest::newRow("Béziers") << picture(blackPen + plus(0x4019, 1, le(4) + f({0, 20, 13, 20, 27, 20, 40, 20}))) << line;
        QTest::newRow("rectangle outline") << picture(blackPen + plus(0x400b, 1, le(1) + f({4, 4, 32, 32})))
                                           << std::vector<Expect>{{{4, 20}, K}, {{36, 20}, K}, {{20, 20}, W}};
        QTest::newRow("ellipse outline") << picture(blackPen + plus(0x400f, 1, f({0, 0, 40, 40})))
                                         << std::vector<Expect>{{{20, 1}, K}, {{20, 20}, W}};
        QTest::newRow("closed curve") << picture(plus(0x4016, 0x8000, le(R) + f({0.5}) + le(4) + f({20, 0, 40, 20, 20, 40, 0, 20})))
                                      << std::vector<Expect>{{{20, 20}, R}, {{31, 31}, R}, {{2, 2}, W}};
        QTest::newRow("16-bit rectangle") << picture(plus(0x400a, 0xc000, le(R) + le(1) + le(0, 2) + le(0, 2) + le(20, 2) + le(40, 2)))
                                          << quadrants(R, W, R, W);
        // A pen with every optional field but dashes, none of them changing a solid line.
        QTest::newRow("pen with a round start")
            << picture(plus(0x4008, 0x201, le(0xdbc01002) + le(0) + le(2) + le(0) + f({4}) + le(2) + le(0xdbc01002) + le(0) + le(K)) +
                       plus(0x400d, 1, le(2) + f({4, 20, 36, 20})))
            << std::vector<Expect>{{{3, 20}, K}, {{20, 20}, K}, {{20, 24}, W}};
        QTest::newRow("pen's optional fields")
            << picture(plus(0x4008, 0x201, le(0xdbc01002) + le(0) + le(0x1eff) + le(0) + f({4, 1, 0, 0, 1, 0, 0}) +
                                               le(0) + le(0) + le(0) + f({10}) + le(0) + le(0) + f({0}) + le(0) + le(1) +
                                               f({1}) + le(4) + le(0) + le(4) + le(0) + le(0xdbc01002) + le(0) + le(K)) +
                       plus(0x400d, 1, le(2) + f({0, 20, 40, 20})))
            << line;
        // Brushes: a gradient across, a path gradient's centre colour, an object sent in two parts.
        QTest::newRow("gradient brush")
            << picture(plus(0x4008, 0x100, le(0xdbc01002) + le(4) + le(0) + le(0) + f({0, 0, 40, 40}) + le(R) + le(B)) +
                       plus(0x400a, 0, le(0) + le(1) + f({0, 0, 40, 40})))
            << std::vector<Expect>{{{1, 20}, R}, {{39, 20}, B}};
        QTest::newRow("path gradient's centre")
            << picture(plus(0x4008, 0x100, le(0xdbc01002) + le(3) + le(0) + le(0) + le(G)) + plus(0x400a, 0, le(0) + le(1) + f({0, 0, 40, 40})))
            << quadrants(G, G, G, G);
        QTest::newRow("object in two parts")
            << picture(plus(0x4008, 0x8100, le(12) + le(0xdbc01002) + le(0)) + plus(0x4008, 0x100, le(0xffff0000)) +
                       plus(0x400a, 0, le(0) + le(1) + f({0, 0, 20, 40})))
            << quadrants(R, W, R, W);
        // Bitmaps: a PNG over the picture, its right column by three points
        // onto a band,
        // and raw pixels with alpha.
        const std::string image = plus(0x4008, 0x505, le(0xdbc01002) + le(1) + le(2) + le(2) + le(0) + le(0) + le(1) + png().toStdString());
        QTest::newRow("image") << picture(image + plus(0x401a, 5, le(0) + le(2) + f({0, 0, 2, 2, 0, 0, 40, 40})))
                               << quadrants(R, G, B, W);
        QTest::newRow("image part on three points")
            << picture(image + plus(0x401b, 5, le(0) + le(2) + f({1, 0, 1, 2}) + le(3) + f({20, 0, 30, 0, 20, 40})))
            << std::vector<Expect>{{{25, 10}, G}, {{35, 10}, W}, {{10, 10}, W}, {{25, 30}, W}};
        QTest::newRow("raw pixels") << picture(plus(0x4008, 0x505, le(0xdbc01002) + le(1) + le(2) + le(1) + le(8) + le(0x26200a) +
                                                                   le(0) + le(0xffff0000) + le(0x800000ff)) +
                                               plus(0x401a, 5, le(0) + le(2) + f({0, 0, 2, 1, 0, 0, 40, 40})))
                                    << quadrants(R, 0xff7f7fff, R, 0xff7f7fff);
        // State: transforms set, post-multiplied, saved and restored; clips
        // excluded, moved and lifted.
        const std::string fillAll = plus(0x400a, 0x8000, le(R) + le(1) + f({0, 0, 40, 40}));
        QTest::newRow("transform set") << picture(plus(0x402a, 0, f({0.5, 0, 0, 0.5, 0, 0})) + fillAll) << quadrants(R, W, W, W);
        QTest::newRow("transform after the world's")
            << picture(plus(0x402d, 0, f({20, 0})) + plus(0x402c, 0x2000, f({0.5, 0, 0, 0.5, 0, 0})) + fillAll)
            << std::vector<Expect>{{{12, 10}, R}, {{35, 10}, W}, {{12, 30}, W}};
        QTest::newRow("saved and restored") << picture(plus(0x4025, 0, le(7)) + plus(0x402d, 0, f({20, 0})) +
                                                       plus(0x4026, 0, le(7)) + plus(0x400a, 0x8000, le(R) + le(1) + f({0, 0, 20, 40})))
                                            << quadrants(R, W, R, W);
        QTest::newRow("clip excluded") << picture(plus(0x4032, 0x400, f({0, 0, 20, 40})) + fillAll) << quadrants(W, R, W, R);
        QTest::newRow("clip moved") << picture(plus(0x4032, 0, f({0, 0, 20, 40})) + plus(0x4035, 0, f({20, 0})) + fillAll)
                                    << quadrants(W, R, W, R);
        QTest::newRow("clip path") << picture(plus(0x4008, 0x303, le(0xdbc01002) + le(4) + le(0) + f({0, 0, 20, 0, 20, 40, 0, 40}) +
                                                              std::string("\0\x01\x01\x81", 4)) + plus(0x4033, 3, "") + fillAll)
                                   << quadrants(R, W, R, W);
        QTest::newRow("clip lifted") << picture(plus(0x4032, 0, f({0, 0, 20, 20})) + plus(0x4031, 0, "") + fillAll)
                                     << quadrants(R, R, R, R);
    }
    void plusRecords() { fills(); }
};

QTEST_MAIN(EmfBitmapsTest)
#include "emf_bitmaps_test.moc"
