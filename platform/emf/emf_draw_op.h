// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The loaded form of a metafile: its frame and a list of ready shapes, all in
// the pixels of the reference device the metafile was recorded for. Loading
// does the record interpretation once; painting only replays this list.
#include <QBrush>
#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QRectF>
#include <QSize>

#include <vector>

namespace emf {

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

struct DrawOp {
    QPainterPath path;  // fill rule already set from the fill mode
    bool filled = false;
    QBrush brush;
    bool stroked = false;
    Stroke stroke;
    bool clipped = false;
    QPainterPath clip;  // reference-device pixels, used when clipped
    // How the op combines with what is drawn: raster operations and
    // inverting fills set a raster-op mode.
    QPainter::CompositionMode composition = QPainter::CompositionMode_SourceOver;
    // A bitmap, drawn instead of the path through `placement` (its pixels to
    // reference-device pixels).
    QImage image;
    QTransform placement;
};

struct PictureData {
    QRectF frame;       // the header's frame in reference-device pixels
    QSize naturalSize;  // the frame at 96 dpi
    QSizeF exactSize;   // the same, unrounded
    std::vector<DrawOp> ops;
};

}  // namespace emf
