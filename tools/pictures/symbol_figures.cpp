// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/pictures/symbol_figures.h"

#include <cmath>
#include <vector>

namespace pictures {

namespace {

// Figures are drawn in sixteenths of a design pixel, so their edges can sit
// between pixels; the world transform brings them back to pixels.
constexpr double kUnits = 16;
constexpr double kCentre = kBox / 2;
constexpr double kOutline = 2.5;  // outline pen, design pixels

U_POINTL pt(double x, double y)
{
    return point32_set(std::int32_t(std::lround(x * kUnits)), std::int32_t(std::lround(y * kUnits)));
}

U_POINT16 pt16(double x, double y)
{
    return point16_set(std::int16_t(std::lround(x * kUnits)), std::int16_t(std::lround(y * kUnits)));
}

U_RECTL box(double left, double top, double right, double bottom)
{
    return rectl_set(pt(left, top), pt(right, bottom));
}

U_SIZEL corner(double w, double h)
{
    return sizel_set(std::int32_t(std::lround(w * kUnits)), std::int32_t(std::lround(h * kUnits)));
}

std::vector<U_POINTL> regularPolygon(int corners, double radius, double cx, double cy,
                                     double startDegrees)
{
    std::vector<U_POINTL> points;
    for (int i = 0; i < corners; ++i) {
        const double a = (startDegrees + 360.0 * i / corners) * M_PI / 180;
        points.push_back(pt(cx + radius * std::cos(a), cy + radius * std::sin(a)));
    }
    return points;
}

std::vector<U_POINTL> star(double outer, double inner, double cx, double cy)
{
    std::vector<U_POINTL> points;
    for (int i = 0; i < 10; ++i) {
        const double r = i % 2 == 0 ? outer : inner;
        const double a = (-90 + 36.0 * i) * M_PI / 180;
        points.push_back(pt(cx + r * std::cos(a), cy + r * std::sin(a)));
    }
    return points;
}

// The tools one figure draws with: its body brush and outline pen, and the
// highlight brush, selected as needed.
class Inks {
public:
    Inks(EmfWriter& emf, const Colours& c) : emf_(emf)
    {
        body_ = emf.brush(U_BS_SOLID, c.fill);
        light_ = emf.brush(U_BS_SOLID, c.light);
        outline_ = emf.geometricPen(U_PS_SOLID | U_PS_JOIN_ROUND | U_PS_ENDCAP_ROUND,
                                    std::uint32_t(kOutline * kUnits), c.outline);
        thinLight_ = emf.geometricPen(U_PS_SOLID | U_PS_JOIN_ROUND | U_PS_ENDCAP_ROUND,
                                      std::uint32_t(1.5 * kUnits), c.light);
    }
    ~Inks()
    {
        emf_.select(U_WHITE_BRUSH);
        emf_.select(U_BLACK_PEN);
        for (std::uint32_t h : {body_, light_, outline_, thinLight_})
            emf_.remove(h);
    }
    Inks(const Inks&) = delete;
    Inks& operator=(const Inks&) = delete;

    void body()
    {
        emf_.select(body_);
        emf_.select(outline_);
    }
    void highlight()
    {
        emf_.select(light_);
        emf_.select(U_NULL_PEN);
    }
    void lightLine()
    {
        emf_.select(U_NULL_BRUSH);
        emf_.select(thinLight_);
    }

private:
    EmfWriter& emf_;
    std::uint32_t body_ = 0;
    std::uint32_t light_ = 0;
    std::uint32_t outline_ = 0;
    std::uint32_t thinLight_ = 0;
};

void circle(EmfWriter& emf, Inks& ink)
{
    ink.body();
    emf.ellipse(box(9, 9, 64, 64));
    ink.highlight();
    emf.ellipse(box(19, 17, 35, 28));
}

void square(EmfWriter& emf, Inks& ink)
{
    ink.body();
    emf.roundRect(box(10, 10, 63, 63), corner(12, 12));
    ink.highlight();
    emf.roundRect(box(17, 16, 40, 25), corner(8, 8));
}

void triangle(EmfWriter& emf, Inks& ink)
{
    ink.body();
    emf.polygon16({pt16(36.5, 7), pt16(67, 63), pt16(6, 63)});
    ink.highlight();
    emf.polygon16({pt16(36.5, 19), pt16(42, 30), pt16(31, 30)});
}

void diamond(EmfWriter& emf, Inks& ink)
{
    ink.body();
    emf.polygon({pt(36.5, 5), pt(68, 36.5), pt(36.5, 68), pt(5, 36.5)});
    ink.highlight();  // the upper-left facet catches the light
    emf.polygon({pt(36.5, 13), pt(36.5, 36.5), pt(13, 36.5)});
}

void hexagon(EmfWriter& emf, Inks& ink)
{
    const std::vector<U_POINTL> outer = regularPolygon(6, 31, kCentre, kCentre, -90);
    ink.body();
    emf.add(U_EMRBEGINPATH_set());
    emf.moveTo(outer[0]);
    for (std::size_t i = 1; i < outer.size(); ++i)
        emf.lineTo(outer[i]);
    emf.add(U_EMRCLOSEFIGURE_set());
    emf.add(U_EMRENDPATH_set());
    emf.add(U_EMRSTROKEANDFILLPATH_set(box(5, 5, 68, 68)));
    ink.lightLine();
    std::vector<U_POINTL> inner = regularPolygon(6, 19, kCentre, kCentre, -90);
    inner.push_back(inner.front());
    emf.polyline(inner);
}

void ring(EmfWriter& emf, Inks& ink)
{
    // Two circles in one path: the alternate fill leaves the middle open.
    ink.body();
    emf.add(U_EMRSETPOLYFILLMODE_set(U_ALTERNATE));
    emf.add(U_EMRBEGINPATH_set());
    emf.ellipse(box(6, 6, 67, 67));
    emf.ellipse(box(22, 22, 51, 51));
    emf.add(U_EMRENDPATH_set());
    emf.add(U_EMRSTROKEANDFILLPATH_set(box(6, 6, 67, 67)));
    ink.highlight();
    emf.ellipse(box(13, 17, 22, 27));
}

void cross(EmfWriter& emf, Inks& ink)
{
    ink.body();
    emf.polygon({pt(26, 6), pt(47, 6), pt(47, 26), pt(67, 26), pt(67, 47), pt(47, 47),
                 pt(47, 67), pt(26, 67), pt(26, 47), pt(6, 47), pt(6, 26), pt(26, 26)});
    ink.highlight();
    emf.roundRect(box(30, 10, 37, 30), corner(6, 6));
    emf.roundRect(box(10, 30, 30, 36), corner(6, 6));
}

void heart(EmfWriter& emf, Inks& ink)
{
    ink.body();
    emf.add(U_EMRBEGINPATH_set());
    emf.moveTo(pt(36.5, 65));
    emf.polyBezierTo({pt(20, 52), pt(5, 40), pt(6, 25),       // up the left side
                      pt(7, 9), pt(30, 5), pt(36.5, 20),       // over the left lobe
                      pt(43, 5), pt(66, 9), pt(67, 25),        // over the right lobe
                      pt(68, 40), pt(53, 52), pt(36.5, 65)});  // down to the tip
    emf.add(U_EMRCLOSEFIGURE_set());
    emf.add(U_EMRENDPATH_set());
    emf.add(U_EMRSTROKEANDFILLPATH_set(box(5, 5, 68, 66)));
    ink.highlight();
    emf.ellipse(box(14, 15, 27, 25));
}

void starFigure(EmfWriter& emf, Inks& ink)
{
    ink.body();
    emf.polygon(star(34, 14, kCentre, 39));
    ink.highlight();  // a small bright star in the middle
    emf.polygon(star(12, 5, kCentre, 39));
}

void crown(EmfWriter& emf, Inks& ink)
{
    ink.body();
    emf.polygon({pt(13, 52), pt(9, 20), pt(23, 34), pt(36.5, 11), pt(50, 34), pt(64, 20),
                 pt(60, 52)});
    emf.roundRect(box(10, 50, 63, 64), corner(5, 5));
    // Jewels on the three points and on the band.
    for (const auto& [x, y] : {std::pair{9.0, 19.0}, {36.5, 9.5}, {64.0, 19.0}})
        emf.ellipse(box(x - 4.5, y - 4.5, x + 4.5, y + 4.5));
    ink.highlight();
    for (double x : {20.0, 36.5, 53.0})
        emf.ellipse(box(x - 4, 53, x + 4, 61));
    emf.polygon({pt(36.5, 22), pt(41.5, 36.5), pt(36.5, 46), pt(31.5, 36.5)});
}

}  // namespace

Colours symbolColours(int colour)
{
    switch (colour) {
    case 0: return {rgb(220, 36, 48), rgb(120, 10, 20), rgb(255, 160, 160)};    // red
    case 1: return {rgb(34, 160, 70), rgb(10, 80, 30), rgb(160, 235, 170)};     // green
    case 2: return {rgb(40, 90, 220), rgb(15, 35, 120), rgb(160, 190, 255)};    // blue
    case 3: return {rgb(245, 170, 20), rgb(150, 88, 0), rgb(255, 228, 140)};    // gold
    default: return {rgb(150, 60, 200), rgb(75, 20, 110), rgb(220, 175, 245)};  // purple
    }
}

std::u16string symbolName(int symbol)
{
    static const char16_t* const colours[kColours] = {u"red", u"green", u"blue", u"gold", u"purple"};
    static const char16_t* const figures[kFigures] = {u"circle",  u"square", u"triangle", u"diamond",
                                                      u"hexagon", u"ring",   u"cross",    u"heart",
                                                      u"star",    u"crown"};
    return std::u16string(colours[symbol % kColours]) + u' ' + figures[symbol / kColours];
}

void drawFigure(EmfWriter& emf, int figure, const Colours& colours, const Placement& at)
{
    emf.add(U_EMRSAVEDC_set());
    // Design units -> page pixels: to the box centre, turn, scale, place.
    const double a = at.degrees * M_PI / 180;
    const double s = at.scale;
    const double c = std::cos(a);
    const double n = std::sin(a);
    const U_XFORM place =
        xform_set(float(s * c / kUnits), float(s * n / kUnits), float(-s * n / kUnits),
                  float(s * c / kUnits), float(at.x + kCentre * s - s * (kCentre * c - kCentre * n)),
                  float(at.y + kCentre * s - s * (kCentre * n + kCentre * c)));
    emf.add(U_EMRMODIFYWORLDTRANSFORM_set(place, U_MWT_LEFTMULTIPLY));
    {
        Inks ink(emf, colours);
        switch (figure) {
        case 0: circle(emf, ink); break;
        case 1: square(emf, ink); break;
        case 2: triangle(emf, ink); break;
        case 3: diamond(emf, ink); break;
        case 4: hexagon(emf, ink); break;
        case 5: ring(emf, ink); break;
        case 6: cross(emf, ink); break;
        case 7: heart(emf, ink); break;
        case 8: starFigure(emf, ink); break;
        default: crown(emf, ink); break;
        }
    }
    emf.add(U_EMRRESTOREDC_set(-1));
}

}  // namespace pictures
