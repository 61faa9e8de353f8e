// SPDX-License-Identifier: GPL-2.0-or-later
// Writes small metafiles that each pin down one way of stroking: every dash
// style of old-style, cosmetic and geometric pens, the ends and joins of
// wide pens, a rectangle's edges, pens thinner than a pixel and the raster
// mixes. Drawn by our decoder and by another renderer, they show where the
// two part.
#include "tools/pictures/artwork.h"
#include "tools/pictures/emf_writer.h"

#include <QDir>

#include <vector>

namespace pictures {

namespace {

U_POINTL P(int x, int y) { return point32_set(x, y); }

// One style in seven rows of a 64 x 64 picture, drawn at four times its
// size: old-style pens of width 0, 1 and 3, an extended cosmetic pen, and
// geometric pens 3 wide with flat, round and square ends.
bool styleSheet(const QString& path, std::uint32_t style)
{
    EmfWriter e(path.toStdString(), 64, 64);
    const std::vector<std::uint32_t> dashes =
        style == U_PS_USERSTYLE ? std::vector<std::uint32_t>{5, 2, 1, 2} : std::vector<std::uint32_t>{};
    const std::uint32_t pens[] = {
        e.pen(style, 0, rgb(0, 0, 0)),
        e.pen(style, 1, rgb(0, 0, 0)),
        e.pen(style, 3, rgb(0, 0, 0)),
        e.extPen(U_PS_COSMETIC | style, 1, rgb(0, 0, 0), dashes),
        e.extPen(U_PS_GEOMETRIC | style | U_PS_ENDCAP_FLAT, 3, rgb(0, 0, 0), dashes),
        e.extPen(U_PS_GEOMETRIC | style | U_PS_ENDCAP_ROUND, 3, rgb(0, 0, 0), dashes),
        e.extPen(U_PS_GEOMETRIC | style | U_PS_ENDCAP_SQUARE, 3, rgb(0, 0, 0), dashes),
    };
    int y = 6;
    for (const std::uint32_t pen : pens) {
        e.select(pen);
        e.polyline({P(6, y), P(58, y)});
        y += 8;
    }
    return e.finish();
}

// Three wide strokes with the same ends (or the same joins): flat, round,
// square (or round, bevel, mitre).
bool endsAndJoins(const QString& folder)
{
    EmfWriter caps((folder + "/pen-caps.emf").toStdString(), 64, 64);
    const std::uint32_t capStyles[] = {U_PS_ENDCAP_FLAT, U_PS_ENDCAP_ROUND, U_PS_ENDCAP_SQUARE};
    int x = 12;
    for (const std::uint32_t cap : capStyles) {
        caps.select(caps.geometricPen(U_PS_SOLID | cap, 8, rgb(0, 0, 0)));
        caps.polyline({P(x, 14), P(x, 50)});
        x += 20;
    }
    EmfWriter joins((folder + "/pen-joins.emf").toStdString(), 64, 64);
    const std::uint32_t joinStyles[] = {U_PS_JOIN_ROUND, U_PS_JOIN_BEVEL, U_PS_JOIN_MITER};
    int y = 18;
    for (const std::uint32_t join : joinStyles) {
        joins.select(joins.geometricPen(U_PS_SOLID | U_PS_ENDCAP_FLAT | join, 6, rgb(0, 0, 0)));
        joins.polyline({P(6, y), P(22, y - 12), P(38, y)});
        joins.polyline({P(44, y - 12), P(60, y - 6), P(44, y - 8)});  // past the mitre limit
        y += 20;
    }
    return caps.finish() && joins.finish();
}

// Pixel-exact behaviours at the picture's own size (256 x 256): outlined,
// unoutlined and wide-outlined rectangles, inside-frame pens, and pens
// thinner than a pixel (a width of one scaled to a tenth, and a width of
// one in a picture four times the size).
bool pixelSheets(const QString& folder)
{
    EmfWriter r((folder + "/pen-rectangles.emf").toStdString(), 256, 256);
    r.select(U_NULL_BRUSH);
    r.select(r.pen(U_PS_SOLID, 0, rgb(0, 0, 0)));
    r.rectangle({10, 10, 50, 50});
    r.select(U_BLACK_BRUSH);
    r.select(U_NULL_PEN);
    r.rectangle({60, 10, 100, 50});
    r.select(r.pen(U_PS_SOLID, 0, rgb(255, 0, 0)));
    r.rectangle({110, 10, 150, 50});
    r.select(U_NULL_BRUSH);
    r.select(r.pen(U_PS_SOLID, 9, rgb(0, 0, 0)));
    r.rectangle({20, 80, 100, 160});
    r.select(r.pen(U_PS_INSIDEFRAME, 9, rgb(0, 0, 0)));
    r.rectangle({140, 80, 220, 160});
    r.ellipse({140, 180, 220, 240});
    r.select(r.pen(U_PS_SOLID, 9, rgb(0, 0, 0)));
    r.ellipse({20, 180, 100, 240});

    EmfWriter t((folder + "/pen-thin.emf").toStdString(), 256, 256);
    t.select(t.pen(U_PS_SOLID, 1, rgb(0, 0, 0)));
    t.polyline({P(20, 20), P(20, 230)});
    t.add(U_EMRSETWORLDTRANSFORM_set(xform_set(0.1f, 0, 0, 0.1f, 0, 0)));
    t.polyline({P(600, 200), P(600, 2300)});
    t.select(t.geometricPen(U_PS_SOLID, 1, rgb(0, 0, 0)));
    t.polyline({P(1000, 200), P(1000, 2300)});

    EmfWriter big((folder + "/pen-thin-shrunk.emf").toStdString(), 1024, 1024);
    big.select(big.pen(U_PS_SOLID, 1, rgb(0, 0, 0)));
    big.polyline({P(100, 100), P(100, 900)});
    big.select(big.pen(U_PS_SOLID, 2, rgb(0, 0, 0)));
    big.polyline({P(400, 100), P(400, 900)});
    big.select(big.pen(U_PS_SOLID, 0, rgb(0, 0, 0)));
    big.polyline({P(700, 100), P(700, 900)});
    return r.finish() && t.finish() && big.finish();
}

// Every mix, one band each, over stripes of black, white, red, green, blue
// and grey: the band's brush is orange and its pen is off.
bool mixes(const QString& folder)
{
    EmfWriter m((folder + "/pen-mixes.emf").toStdString(), 256, 256);
    const U_COLORREF stripes[] = {rgb(0, 0, 0), rgb(255, 255, 255), rgb(255, 0, 0),
                                  rgb(0, 255, 0), rgb(0, 0, 255), rgb(128, 128, 128)};
    m.select(U_NULL_PEN);
    int x = 16;
    for (const U_COLORREF c : stripes) {
        m.select(m.brush(U_BS_SOLID, c));
        m.rectangle({x, 0, x + 40, 257});
        x += 40;
    }
    m.select(m.brush(U_BS_SOLID, rgb(255, 160, 64)));
    for (std::uint32_t mix = U_R2_BLACK; mix <= U_R2_WHITE; ++mix) {
        m.add(U_EMRSETROP2_set(mix));
        const int y = int(mix - 1) * 16;
        m.rectangle({8, y + 3, 256, y + 14});
    }
    return m.finish();
}

}  // namespace

bool makePenSamples(const QString& folder)
{
    struct Style {
        const char* name;
        std::uint32_t style;
    };
    const Style styles[] = {
        {"solid", U_PS_SOLID}, {"dash", U_PS_DASH}, {"dot", U_PS_DOT},
        {"dashdot", U_PS_DASHDOT}, {"dashdotdot", U_PS_DASHDOTDOT}, {"alternate", U_PS_ALTERNATE},
        {"userstyle", U_PS_USERSTYLE}, {"null", U_PS_NULL}, {"insideframe", U_PS_INSIDEFRAME},
    };
    bool ok = QDir().mkpath(folder);
    for (const Style& s : styles)
        ok = styleSheet(folder + "/pen-style-" + s.name + ".emf", s.style) && ok;
    return endsAndJoins(folder) && pixelSheets(folder) && mixes(folder) && ok;
}

}  // namespace pictures
