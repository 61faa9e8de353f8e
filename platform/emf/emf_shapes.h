// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The elliptic arcs of Arc, ArcTo, Chord and Pie, built in logical units.
#include <QPainterPath>
#include <QPointF>
#include <QRectF>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace emf {

enum class ArcKind { Open, Chord, Pie };

// The part of the ellipse in box from the radial through `start` to the
// radial through `end`, counterclockwise on screen unless clockwise; the
// same two radials give the whole ellipse. Open arcs start a new figure.
QPainterPath arcFigure(const QRectF& box, QPointF start, QPointF end, ArcKind kind,
                       bool clockwise);

// Where the radial through p meets the ellipse in box: an arc's ends.
QPointF pointOnEllipse(const QRectF& box, QPointF p);

}  // namespace emf
