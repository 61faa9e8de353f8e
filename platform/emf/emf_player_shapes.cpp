// SPDX-License-Identifier: GPL-2.0-or-later
// The drawing records: polygons, lines, Béziers, boxes and arcs.
#include "platform/emf/emf_player.h"

#include "platform/emf/emf_shapes.h"

#include <algorithm>
#include <cmath>

namespace emf {

// type is the 32-bit record's type for both point sizes.
void Player::polyRecord(std::uint32_t type, const char* rec, bool sixteenBit)
{
    std::vector<QPointF> pts = readPoly(rec, sixteenBit);
    const QTransform t = toDevice();
    for (QPointF& p : pts)
        p = t.map(p);
    // The "to" forms continue from the current position; the others start
    // at their first point. Béziers take three points a curve.
    const bool bezier = type == U_EMR_POLYBEZIER || type == U_EMR_POLYBEZIERTO;
    const bool fromPosition = type == U_EMR_POLYLINETO || type == U_EMR_POLYBEZIERTO;
    const std::size_t first = fromPosition ? 0 : 1;
    if (pts.size() <= first || (bezier && (pts.size() - first) % 3 != 0))
        return;
    QPainterPath scratch;
    QPainterPath& p = fromPosition ? figureFromPosition(scratch) : scratch;
    if (!fromPosition)
        p.moveTo(pts[0]);
    for (std::size_t i = first; i < pts.size(); i += bezier ? 3 : 1) {
        if (bezier)
            p.cubicTo(pts[i], pts[i + 1], pts[i + 2]);
        else
            p.lineTo(pts[i]);
    }
    if (fromPosition) {
        dc_.position = pts.back();
        finishOpenFigure(scratch);
    } else if (type == U_EMR_POLYGON) {
        p.closeSubpath();
        figure(p, false);
    } else {
        figure(p, true);
    }
}

void Player::polyPolyRecord(std::uint32_t type, const char* rec, bool sixteenBit)
{
    const PolyPolyRecord r = readPolyPoly(rec, sixteenBit);
    const std::vector<QPointF>& pts = r.points;
    const QTransform t = toDevice();
    const bool closed = type == U_EMR_POLYPOLYGON || type == U_EMR_POLYPOLYGON16;
    QPainterPath path;
    std::size_t next = 0;
    for (const std::uint32_t n : r.counts) {
        if (n >= 2) {
            path.moveTo(t.map(pts[next]));
            for (std::uint32_t k = 1; k < n; ++k)
                path.lineTo(t.map(pts[next + k]));
            if (closed)
                path.closeSubpath();
        }
        next += n;  // the counts add up to the points: checked on load
    }
    if (closed)
        figure(path, false);
    else if (inPath_)
        path_.addPath(path);
    else
        addOp(path, false, true);
}

void Player::polyDrawRecord(const char* rec, bool sixteenBit)
{
    const PolyDrawRecord r = readPolyDraw(rec, sixteenBit);
    const std::vector<QPointF>& pts = r.points;
    const std::vector<std::uint8_t>& kinds = r.kinds;
    const std::size_t count = pts.size();
    const QTransform t = toDevice();
    QPainterPath scratch;
    QPainterPath& p = inPath_ ? path_ : scratch;
    if (!inPath_ || !figureOpen_)
        p.moveTo(dc_.position);
    for (std::size_t i = 0; i < count; ++i) {
        const QPointF q = t.map(pts[i]);
        switch (kinds[i] & ~U_PT_CLOSEFIGURE) {
        case U_PT_MOVETO: p.moveTo(q); break;
        case U_PT_LINETO: p.lineTo(q); break;
        case U_PT_BEZIERTO:
            if (i + 2 >= count)
                return;  // a broken curve: Windows draws nothing more
            p.cubicTo(q, t.map(pts[i + 1]), t.map(pts[i + 2]));
            i += 2;
            break;
        default:
            return;
        }
        dc_.position = p.currentPosition();
        if (kinds[i] & U_PT_CLOSEFIGURE)
            p.closeSubpath();
    }
    figureOpen_ = inPath_;
    finishOpenFigure(scratch);
}

void Player::boxRecord(std::uint32_t type, const char* rec)
{
    QRectF box = boxOf(recordAs<U_EMRRECTANGLE>(rec).rclBox);
    // An inside-frame pen shrinks the figure so that its outline stays
    // within the box.
    const double half = dc_.pen.width / 2;
    if (dc_.pen.insideFrame && dc_.pen.visible && !inPath_ && std::abs(box.width()) > 2 * half &&
        std::abs(box.height()) > 2 * half)
        box = box.normalized().adjusted(half, half, -half, -half);
    QPainterPath logical;
    const QTransform t = toDevice();
    switch (type) {
    case U_EMR_RECTANGLE:
        logical.addRect(box);
        break;
    case U_EMR_ELLIPSE:
        logical.addEllipse(box);
        break;
    case U_EMR_ROUNDRECT: {
        const U_SIZEL corner = recordAs<U_EMRROUNDRECT>(rec).szlCorner;
        const double rx = std::min(std::abs(double(corner.cx)) / 2, box.width() / 2);
        const double ry = std::min(std::abs(double(corner.cy)) / 2, box.height() / 2);
        logical.addRoundedRect(box, rx, ry);
        break;
    }
    default:
        return;
    }
    figure(t.map(logical), false);
}

void Player::arcRecord(std::uint32_t type, const char* rec)
{
    const U_EMRARC r = recordAs<U_EMRARC>(rec);
    const QRectF box = boxOf(r.rclBox);
    const QPointF start = pointOf(r.ptlStart);
    const QPointF end = pointOf(r.ptlEnd);
    const QTransform t = toDevice();
    const bool cw = dc_.clockwiseArcs;
    switch (type) {
    case U_EMR_ARC: {
        const QPainterPath arc = t.map(arcFigure(box, start, end, ArcKind::Open, cw));
        figure(arc, true);
        return;
    }
    case U_EMR_CHORD:
        figure(t.map(arcFigure(box, start, end, ArcKind::Chord, cw)), false);
        return;
    case U_EMR_PIE:
        figure(t.map(arcFigure(box, start, end, ArcKind::Pie, cw)), false);
        return;
    case U_EMR_ARCTO: {
        QPainterPath scratch;
        QPainterPath& p = figureFromPosition(scratch);
        const QPainterPath arc = t.map(arcFigure(box, start, end, ArcKind::Open, cw));
        p.connectPath(arc);
        dc_.position = t.map(pointOnEllipse(box, end));
        finishOpenFigure(scratch);
        return;
    }
    default:
        return;
    }
}

void Player::angleArcRecord(const char* rec)
{
    const U_EMRANGLEARC r = recordAs<U_EMRANGLEARC>(rec);
    const QPointF centre = pointOf(r.ptlCenter);
    const double radius = r.nRadius;
    const double startAngle = r.eStartAngle;
    const double sweep = r.eSweepAngle;
    if (!std::isfinite(startAngle) || !std::isfinite(sweep) || radius > kMaxReach)
        return;
    const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    QPainterPath arc;
    arc.arcMoveTo(box, startAngle);
    arc.arcTo(box, startAngle, std::clamp(sweep, -360.0, 360.0));
    const QTransform t = toDevice();
    QPainterPath scratch;
    QPainterPath& p = figureFromPosition(scratch);
    p.connectPath(t.map(arc));
    dc_.position = p.currentPosition();
    finishOpenFigure(scratch);
}

void Player::lineTo(const char* rec)
{
    const QPointF to = toDevice().map(pointOf(recordAs<U_EMRLINETO>(rec).ptl));
    QPainterPath scratch;
    QPainterPath& p = figureFromPosition(scratch);
    p.lineTo(to);
    dc_.position = to;
    finishOpenFigure(scratch);
}

}  // namespace emf
