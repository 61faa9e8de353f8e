// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_shapes.h"

#include "platform/emf/emf_record_check.h"

#include <cmath>

namespace emf {

namespace {

// Qt's angle (degrees, counterclockwise on screen from 3 o'clock) of the
// ellipse point that lies on the radial from the centre through p.
double radialAngle(const QRectF& box, QPointF p)
{
    const QPointF c = box.center();
    const double rx = box.width() / 2;
    const double ry = box.height() / 2;
    if (rx <= 0 || ry <= 0)
        return 0;
    return std::atan2(-(p.y() - c.y()) * rx, (p.x() - c.x()) * ry) * 180 / M_PI;
}

}  // namespace

QPointF pointOnEllipse(const QRectF& box, QPointF p)
{
    const double a = radialAngle(box, p) * M_PI / 180;
    return {box.center().x() + box.width() / 2 * std::cos(a),
            box.center().y() - box.height() / 2 * std::sin(a)};
}

QPainterPath arcFigure(const QRectF& box, QPointF start, QPointF end, ArcKind kind,
                       bool clockwise)
{
    const double a0 = radialAngle(box, start);
    double sweep = radialAngle(box, end) - a0;
    if (clockwise) {
        while (sweep >= 0) sweep -= 360;
        while (sweep < -360) sweep += 360;
    } else {
        while (sweep <= 0) sweep += 360;
        while (sweep > 360) sweep -= 360;
    }
    QPainterPath path;
    if (kind == ArcKind::Pie) {
        path.moveTo(box.center());
        path.arcTo(box, a0, sweep);
        path.closeSubpath();
    } else {
        path.arcMoveTo(box, a0);
        path.arcTo(box, a0, sweep);
        if (kind == ArcKind::Chord)
            path.closeSubpath();
    }
    return path;
}

}  // namespace emf
