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
    const std::uint32_t count = readU32(rec, 24);
    std::vector<QPointF> pts = readPoints(rec, 28, count, sixteenBit);
    const QTransform t = toDevice();
    for (QPointF& p : pts)
        p = t.map(p);

    switch (type) {
    case U_EMR_POLYGON: {
        if (pts.size() < 2)
            return;
        QPainterPath path;
        path.addPolygon(QPolygonF(QList<QPointF>(pts.begin(), pts.end())));
        path.closeSubpath();
        shape(path, true, true);
        return;
    }
    case U_EMR_POLYLINE: {
        if (pts.size() < 2)
            return;
        QPainterPath path;
        path.addPolygon(QPolygonF(QList<QPointF>(pts.begin(), pts.end())));
        openShape(path);
        return;
    }
    case U_EMR_POLYBEZIER: {
        if (pts.size() < 4 || (pts.size() - 1) % 3 != 0)
            return;
        QPainterPath path(pts[0]);
        for (std::size_t i = 1; i + 2 < pts.size(); i += 3)
            path.cubicTo(pts[i], pts[i + 1], pts[i + 2]);
        openShape(path);
        return;
    }
    case U_EMR_POLYLINETO: {
        if (pts.empty())
            return;
        QPainterPath scratch;
        QPainterPath& p = figureFromPosition(scratch);
        for (const QPointF& q : pts)
            p.lineTo(q);
        dc_.position = pts.back();
        finishOpenFigure(scratch);
        return;
    }
    case U_EMR_POLYBEZIERTO: {
        if (pts.empty() || pts.size() % 3 != 0)
            return;
        QPainterPath scratch;
        QPainterPath& p = figureFromPosition(scratch);
        for (std::size_t i = 0; i + 2 < pts.size(); i += 3)
            p.cubicTo(pts[i], pts[i + 1], pts[i + 2]);
        dc_.position = pts.back();
        finishOpenFigure(scratch);
        return;
    }
    default:
        return;
    }
}

void Player::polyPolyRecord(std::uint32_t type, const char* rec, bool sixteenBit)
{
    const std::uint32_t polys = readU32(rec, 24);
    const std::uint32_t count = readU32(rec, 28);
    const std::size_t pointsAt = 32 + 4 * std::size_t(polys);
    std::vector<QPointF> pts = readPoints(rec, pointsAt, count, sixteenBit);
    const QTransform t = toDevice();
    const bool closed = type == U_EMR_POLYPOLYGON || type == U_EMR_POLYPOLYGON16;
    QPainterPath path;
    std::size_t next = 0;
    for (std::uint32_t i = 0; i < polys; ++i) {
        const std::uint32_t n = readU32(rec, 32 + 4 * std::size_t(i));
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
        shape(path, true, true);
    else if (inPath_)
        path_.addPath(path);
    else
        addOp(path, false, true);
}

void Player::polyDrawRecord(const char* rec, bool sixteenBit)
{
    const std::uint32_t count = readU32(rec, 24);
    std::vector<QPointF> pts = readPoints(rec, 28, count, sixteenBit);
    const char* kinds = rec + 28 + std::size_t(count) * (sixteenBit ? 4 : 8);
    const QTransform t = toDevice();
    QPainterPath scratch;
    QPainterPath& p = inPath_ ? path_ : scratch;
    if (!inPath_ || !figureOpen_)
        p.moveTo(dc_.position);
    for (std::uint32_t i = 0; i < count; ++i) {
        const QPointF q = t.map(pts[i]);
        const std::uint8_t kind = std::uint8_t(kinds[i]);
        switch (kind & ~U_PT_CLOSEFIGURE) {
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
    QRectF box = boxRect(rec, 8);
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
        const double rx = std::min(std::abs(double(readI32(rec, 24))) / 2, box.width() / 2);
        const double ry = std::min(std::abs(double(readI32(rec, 28))) / 2, box.height() / 2);
        logical.addRoundedRect(box, rx, ry);
        break;
    }
    default:
        return;
    }
    shape(t.map(logical), true, true);
}

void Player::arcRecord(std::uint32_t type, const char* rec)
{
    const QRectF box = boxRect(rec, 8);
    const QPointF start(readI32(rec, 24), readI32(rec, 28));
    const QPointF end(readI32(rec, 32), readI32(rec, 36));
    const QTransform t = toDevice();
    const bool cw = dc_.clockwiseArcs;
    switch (type) {
    case U_EMR_ARC: {
        const QPainterPath arc = t.map(arcFigure(box, start, end, ArcKind::Open, cw));
        openShape(arc);
        return;
    }
    case U_EMR_CHORD:
        shape(t.map(arcFigure(box, start, end, ArcKind::Chord, cw)), true, true);
        return;
    case U_EMR_PIE:
        shape(t.map(arcFigure(box, start, end, ArcKind::Pie, cw)), true, true);
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
    const QPointF centre(readI32(rec, 8), readI32(rec, 12));
    const double radius = readU32(rec, 16);
    const double startAngle = readF32(rec, 20);
    const double sweep = readF32(rec, 24);
    if (!std::isfinite(startAngle) || !std::isfinite(sweep) || radius > kMaxCoordinate)
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
    const QPointF to = toDevice().map(QPointF(readI32(rec, 8), readI32(rec, 12)));
    QPainterPath scratch;
    QPainterPath& p = figureFromPosition(scratch);
    p.lineTo(to);
    dc_.position = to;
    finishOpenFigure(scratch);
}

}  // namespace emf
