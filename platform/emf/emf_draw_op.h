// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The loaded form of a metafile: its frame and a list of ready drawing steps
// (a shape filled or outlined, or a bitmap), all in the pixels of the
// reference device the metafile was recorded for. Loading does the record
// interpretation once; painting only replays this list, step by kind.
#include <QBrush>
#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRectF>
#include <QSize>

#include <optional>
#include <variant>
#include <vector>

namespace emf {

// How an outline is drawn: the whole pen, as one unit.
struct Stroke {
    QColor color;
    // Width in reference-device pixels; 0 is the one-pixel cosmetic pen.
    double width = 0;
    Qt::PenStyle style = Qt::SolidLine;
    // Dash lengths in pen widths when drawn one device pixel wide and when
    // wider; they take the place of `style` when set.
    QList<qreal> onePixelDashes;
    QList<qreal> wideDashes;
    Qt::PenCapStyle cap = Qt::RoundCap;
    Qt::PenJoinStyle join = Qt::RoundJoin;
    double miterLimit = 10;
};

// A figure filled, outlined, or both (text comes as filled glyph outlines).
struct ShapeOp {
    QPainterPath path;  // fill rule already set from the fill mode
    std::optional<QBrush> fill;
    std::optional<Stroke> stroke;
};

// A bitmap, drawn through `placement` (its pixels to reference-device pixels).
struct ImageOp {
    QImage image;
    QTransform placement;
};

struct DrawOp {
    std::variant<ShapeOp, ImageOp> what;
    std::optional<QPainterPath> clip;  // reference-device pixels
    // How the step combines with what is drawn: raster operations and
    // inverting fills set a raster-op mode.
    QPainter::CompositionMode composition = QPainter::CompositionMode_SourceOver;
};

// Where a step reaches, in reference-device pixels.
QRectF reachOf(const DrawOp& op);

// The one way drawing leaves the players: a step that is not finite or
// reaches too far is dropped, and every step takes the clip in force.
// False when dropped.
bool emitOp(std::vector<DrawOp>& out, DrawOp op, const std::optional<QPainterPath>& clip);

// How a new clip region combines with the clip in force; nothing clipping
// counts as the whole reach around the picture's frame.
enum class ClipCombine { Replace, Intersect, Unite, Xor, Exclude, Complement };
QPainterPath combinedClip(const std::optional<QPainterPath>& current, const QRectF& frame,
                          const QPainterPath& region, ClipCombine how);

struct PictureData {
    QRectF frame;       // the header's frame in reference-device pixels
    QSize naturalSize;  // the frame at 96 dpi
    QSizeF exactSize;   // the same, unrounded
    std::vector<DrawOp> ops;
};

}  // namespace emf
