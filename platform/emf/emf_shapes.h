// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Geometry the records describe, built in logical units: point arrays, the
// elliptic arcs of Arc, ArcTo, Chord and Pie, and AngleArc's circle arc.
#include <QPainterPath>
#include <QPointF>
#include <QRectF>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace emf {

// `count` points starting at byte `at` of the record, 32-bit or 16-bit pairs.
std::vector<QPointF> readPoints(const char* record, std::size_t at, std::uint32_t count,
                                bool sixteenBit);

// The rectangle of a box record, corners in any order.
QRectF boxRect(const char* record, std::size_t at);

enum class ArcKind { Open, Chord, Pie };

// The part of the ellipse in box from the radial through `start` to the
// radial through `end`, counterclockwise on screen unless clockwise; the
// same two radials give the whole ellipse. Open arcs start a new figure.
QPainterPath arcFigure(const QRectF& box, QPointF start, QPointF end, ArcKind kind,
                       bool clockwise);

// Where the radial through p meets the ellipse in box: an arc's ends.
QPointF pointOnEllipse(const QRectF& box, QPointF p);

}  // namespace emf
