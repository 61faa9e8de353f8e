// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_objects.h"

#include "platform/emf/emf_limits.h"

#include <algorithm>
#include <cstring>

namespace emf {

namespace {

// The device context's own pen and brush, which libuemf does not name.
constexpr std::uint32_t kDcBrush = U_STOCK_OBJECT | 18;
constexpr std::uint32_t kDcPen = U_STOCK_OBJECT | 19;

// The ends and joins of a pen style word; a mitre past the limit is cut
// square across (bevelled), not clipped at the limit.
void applyEnds(std::uint32_t style, PenObject& pen)
{
    switch (style & U_PS_ENDCAP_MASK) {
    case U_PS_ENDCAP_SQUARE: pen.cap = Qt::SquareCap; break;
    case U_PS_ENDCAP_FLAT: pen.cap = Qt::FlatCap; break;
    default: pen.cap = Qt::RoundCap; break;
    }
    switch (style & U_PS_JOIN_MASK) {
    case U_PS_JOIN_BEVEL: pen.join = Qt::BevelJoin; break;
    case U_PS_JOIN_MITER: pen.join = Qt::SvgMiterJoin; break;
    default: pen.join = Qt::RoundJoin; break;
    }
}

// The built-in dashes, on and off: a one-pixel pen counts them in pixels,
// a wide pen in its own widths.
QList<qreal> onePixelDashes(std::uint32_t style)
{
    switch (style & U_PS_STYLE_MASK) {
    case U_PS_DASH: return {18, 6};
    case U_PS_DOT: return {3, 3};
    case U_PS_DASHDOT: return {9, 6, 3, 6};
    case U_PS_DASHDOTDOT: return {9, 3, 3, 3, 3, 3};
    case U_PS_ALTERNATE: return {1, 1};
    default: return {};
    }
}

QList<qreal> wideDashes(std::uint32_t style)
{
    switch (style & U_PS_STYLE_MASK) {
    case U_PS_DASH: return {3, 1};
    case U_PS_DOT: return {1, 1};
    case U_PS_DASHDOT: return {3, 1, 1, 1};
    case U_PS_DASHDOTDOT: return {3, 1, 1, 1, 1, 1};
    default: return {};
    }
}

Qt::BrushStyle hatchStyle(std::uint32_t hatch)
{
    switch (hatch) {
    case U_HS_HORIZONTAL: return Qt::HorPattern;
    case U_HS_VERTICAL: return Qt::VerPattern;
    case U_HS_FDIAGONAL: return Qt::FDiagPattern;
    case U_HS_BDIAGONAL: return Qt::BDiagPattern;
    case U_HS_CROSS: return Qt::CrossPattern;
    case U_HS_DIAGCROSS: return Qt::DiagCrossPattern;
    default: return Qt::SolidPattern;
    }
}

PenObject stockPen(QColor c, bool visible = true)
{
    PenObject p;
    p.color = c;
    p.visible = visible;
    return p;
}

BrushObject stockBrush(QColor c, bool visible = true)
{
    BrushObject b;
    b.color = c;
    b.visible = visible;
    return b;
}

}  // namespace

QList<qreal> endsWithinDashes(QList<qreal> dashes, Qt::PenCapStyle cap)
{
    if (cap == Qt::FlatCap)
        return dashes;
    // A dot keeps a sliver of length, so that its ends are drawn.
    constexpr qreal kSliver = 1.0 / 64;
    for (qsizetype i = 0; i + 1 < dashes.size(); i += 2) {
        const qreal given = std::clamp(dashes[i] - kSliver, qreal(0), qreal(1));
        dashes[i] -= given;
        dashes[i + 1] += given;
    }
    return dashes;
}

PenObject penFromLogPen(const U_LOGPEN& lp)
{
    PenObject pen;
    pen.color = colourOf(lp.lopnColor);
    applyEnds(lp.lopnStyle, pen);
    pen.visible = (lp.lopnStyle & U_PS_STYLE_MASK) != U_PS_NULL;
    // Width 0 is the one-pixel pen; any other width is in logical units.
    pen.cosmetic = lp.lopnWidth.x <= 0;
    pen.width = pen.cosmetic ? 0 : lp.lopnWidth.x;
    pen.insideFrame = (lp.lopnStyle & U_PS_STYLE_MASK) == U_PS_INSIDEFRAME;
    // These pens are dashed only while a pixel wide; wider, they are solid.
    if ((lp.lopnStyle & U_PS_STYLE_MASK) != U_PS_ALTERNATE)
        pen.onePixelDashes = onePixelDashes(lp.lopnStyle);
    return pen;
}

GraphicsObject penFromExtLogPen(const U_EXTLOGPEN& lp, const char* styleEntries)
{
    PenObject pen;
    const std::uint32_t style = lp.elpPenStyle & U_PS_STYLE_MASK;
    pen.color = colourOf(lp.elpColor);
    applyEnds(lp.elpPenStyle, pen);
    pen.visible = style != U_PS_NULL && lp.elpBrushStyle != U_BS_NULL;
    const bool geometric = lp.elpPenStyle & U_PS_GEOMETRIC;
    // Alternate pixels are for one-pixel pens, inside-frame for wide ones,
    // and a pattern has at most 16 lengths: other pens are never created,
    // so selecting them keeps the pen before.
    if ((geometric && style == U_PS_ALTERNATE) || (!geometric && style == U_PS_INSIDEFRAME) ||
        (style == U_PS_USERSTYLE && (lp.elpNumEntries == 0 || lp.elpNumEntries > kMaxDashes)))
        return OtherObject{};
    pen.cosmetic = !geometric || lp.elpWidth == 0;
    pen.width = pen.cosmetic ? 0 : double(lp.elpWidth);
    pen.insideFrame = style == U_PS_INSIDEFRAME;
    if (style == U_PS_USERSTYLE) {
        // Lengths in steps of three pixels (a dot's length) for a one-pixel
        // pen, in logical units for a wide one; an odd count repeats with on
        // and off swapped.
        const double unit = pen.cosmetic ? 1.0 / 3 : pen.width;
        for (std::uint32_t i = 0; i < lp.elpNumEntries; ++i) {
            std::uint32_t length = 0;
            std::memcpy(&length, styleEntries + 4 * i, 4);
            pen.wideDashes.push_back(length / unit);
        }
        if (pen.wideDashes.size() % 2)
            pen.wideDashes += pen.wideDashes;
        if (std::all_of(pen.wideDashes.begin(), pen.wideDashes.end(), [](qreal d) { return d == 0; }))
            pen.wideDashes.clear();
        pen.onePixelDashes = pen.wideDashes;
    } else {
        pen.onePixelDashes = pen.cosmetic ? onePixelDashes(style) : wideDashes(style);
        pen.wideDashes = wideDashes(style);
    }
    pen.wideDashes = endsWithinDashes(pen.wideDashes, pen.cap);
    return pen;
}

BrushObject brushFromLogBrush(const U_LOGBRUSH& lb)
{
    BrushObject brush;
    brush.color = colourOf(lb.lbColor);
    switch (lb.lbStyle) {
    case U_BS_SOLID: brush.style = Qt::SolidPattern; break;
    case U_BS_HATCHED: brush.style = hatchStyle(std::uint32_t(lb.lbHatch)); break;
    default: brush.visible = false; break;  // null, and patterns we cannot show
    }
    return brush;
}

QBrush qtBrush(const BrushObject& brush)
{
    if (!brush.pattern.isNull())
        return QBrush(brush.pattern);
    return QBrush(brush.color, brush.style);
}

ObjectTable::ObjectTable(std::uint32_t handles) : slots_(handles) {}

void ObjectTable::create(std::uint32_t index, GraphicsObject object)
{
    if (index == 0 || index >= slots_.size())
        return;
    slots_[index] = std::move(object);
}

void ObjectTable::remove(std::uint32_t index)
{
    if (index < slots_.size())
        slots_[index].reset();
}

void ObjectTable::select(std::uint32_t index, DeviceContext& dc) const
{
    if (index & U_STOCK_OBJECT) {
        switch (index) {
        case U_WHITE_BRUSH: dc.brush = stockBrush(Qt::white); break;
        case U_LTGRAY_BRUSH: dc.brush = stockBrush(QColor(192, 192, 192)); break;
        case U_GRAY_BRUSH: dc.brush = stockBrush(QColor(128, 128, 128)); break;
        case U_DKGRAY_BRUSH: dc.brush = stockBrush(QColor(64, 64, 64)); break;
        case U_BLACK_BRUSH: dc.brush = stockBrush(Qt::black); break;
        case U_NULL_BRUSH: dc.brush = stockBrush(Qt::black, false); break;
        case kDcBrush: dc.brush = stockBrush(Qt::white); break;
        case U_WHITE_PEN: dc.pen = stockPen(Qt::white); break;
        case U_BLACK_PEN: case kDcPen: dc.pen = stockPen(Qt::black); break;
        case U_NULL_PEN: dc.pen = stockPen(Qt::black, false); break;
        case U_OEM_FIXED_FONT: case U_ANSI_FIXED_FONT: case U_ANSI_VAR_FONT:
        case U_SYSTEM_FONT: case U_DEVICE_DEFAULT_FONT: case U_SYSTEM_FIXED_FONT:
        case U_DEFAULT_GUI_FONT:
            dc.font = FontObject{};
            break;
        default: break;  // palettes
        }
        return;
    }
    if (index >= slots_.size() || !slots_[index])
        return;
    if (const auto* pen = std::get_if<PenObject>(&*slots_[index]))
        dc.pen = *pen;
    else if (const auto* brush = std::get_if<BrushObject>(&*slots_[index]))
        dc.brush = *brush;
    else if (const auto* font = std::get_if<FontObject>(&*slots_[index]))
        dc.font = *font;
}

}  // namespace emf
