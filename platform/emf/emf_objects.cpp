// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_objects.h"

#include "platform/emf/emf_limits.h"

namespace emf {

namespace {

// The device context's own pen and brush, which libuemf does not name.
constexpr std::uint32_t kDcBrush = U_STOCK_OBJECT | 18;
constexpr std::uint32_t kDcPen = U_STOCK_OBJECT | 19;

// Dash pattern, visibility and the ends and joins of a pen style word.
void applyStyle(std::uint32_t style, PenObject& pen)
{
    switch (style & U_PS_STYLE_MASK) {
    case U_PS_DASH: pen.style = Qt::DashLine; break;
    case U_PS_DOT: case U_PS_ALTERNATE: pen.style = Qt::DotLine; break;
    case U_PS_DASHDOT: pen.style = Qt::DashDotLine; break;
    case U_PS_DASHDOTDOT: pen.style = Qt::DashDotDotLine; break;
    case U_PS_NULL: pen.visible = false; break;
    default: pen.style = Qt::SolidLine; break;  // solid, inside-frame, user styles
    }
    switch (style & U_PS_ENDCAP_MASK) {
    case U_PS_ENDCAP_SQUARE: pen.cap = Qt::SquareCap; break;
    case U_PS_ENDCAP_FLAT: pen.cap = Qt::FlatCap; break;
    default: pen.cap = Qt::RoundCap; break;
    }
    switch (style & U_PS_JOIN_MASK) {
    case U_PS_JOIN_BEVEL: pen.join = Qt::BevelJoin; break;
    case U_PS_JOIN_MITER: pen.join = Qt::MiterJoin; break;
    default: pen.join = Qt::RoundJoin; break;
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

PenObject penFromLogPen(const U_LOGPEN& lp)
{
    PenObject pen;
    pen.color = colourOf(lp.lopnColor);
    applyStyle(lp.lopnStyle, pen);
    // Width 0 is the one-pixel pen; any other width is in logical units.
    pen.cosmetic = lp.lopnWidth.x <= 0;
    pen.width = pen.cosmetic ? 0 : lp.lopnWidth.x;
    return pen;
}

PenObject penFromExtLogPen(const U_EXTLOGPEN& lp)
{
    PenObject pen;
    pen.color = colourOf(lp.elpColor);
    applyStyle(lp.elpPenStyle, pen);
    if (lp.elpBrushStyle == U_BS_NULL)
        pen.visible = false;
    pen.cosmetic = (lp.elpPenStyle & U_PS_GEOMETRIC) == 0 || lp.elpWidth == 0;
    pen.width = pen.cosmetic ? 0 : double(lp.elpWidth);
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
