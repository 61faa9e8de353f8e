// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// What a metafile's drawing state holds between records: the selected pen
// and brush, the fill mode, the mapping from logical units to the reference
// device's pixels, the current position and the clip.
#include <QColor>
#include <QImage>
#include <QList>
#include <QPainterPath>
#include <QPointF>
#include <QSizeF>
#include <QString>
#include <QTransform>

#include <cstdint>
#include <optional>

namespace emf {

// A font as the metafile describes it; emf_fonts resolves it to a Qt font.
struct FontObject {
    double height = 0;      // logical units: negative the character height, positive the cell's
    double width = 0;       // average character width, 0 for the face's own
    double escapement = 0;  // tenths of a degree, counterclockwise
    int weight = 400;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;
    std::uint8_t charset = 1;  // DEFAULT_CHARSET
    std::uint8_t pitchAndFamily = 0;
    QString face;
};

struct PenObject {
    bool visible = true;     // false for the null pen
    QColor color = Qt::black;
    bool cosmetic = true;    // one device pixel whatever the mapping
    double width = 0;        // logical units, for geometric pens
    Qt::PenCapStyle cap = Qt::RoundCap;
    Qt::PenJoinStyle join = Qt::RoundJoin;
    // On and off lengths in pen widths, empty for a solid line: one pattern
    // for when the pen is drawn one pixel wide, one for when it is wider.
    QList<qreal> onePixelDashes;
    QList<qreal> wideDashes;
    bool insideFrame = false;  // wide pens outline boxes within them
};

struct BrushObject {
    bool visible = true;     // false for the null brush
    QColor color = Qt::white;
    Qt::BrushStyle style = Qt::SolidPattern;
    QImage pattern;          // a bitmap brush's tile, in device pixels
};

struct DeviceContext {
    PenObject pen;
    BrushObject brush;
    bool windingFill = false;  // the default fill mode is alternate (odd-even)
    std::uint32_t mix = 13;    // how pen and brush meet the drawing: COPYPEN
    bool clockwiseArcs = false;
    double miterLimit = 10;

    FontObject font;
    std::uint32_t textAlign = 0;  // TA_LEFT | TA_TOP, no current position
    QColor textColor = Qt::black;
    QColor backgroundColor = Qt::white;
    bool opaqueBackground = true;  // OPAQUE until SetBkMode says TRANSPARENT

    std::uint32_t mapMode = 1;  // MM_TEXT
    QPointF windowOrg{0, 0};
    QSizeF windowExt{1, 1};
    QPointF viewportOrg{0, 0};
    QSizeF viewportExt{1, 1};
    QTransform world;

    QPointF position{0, 0};  // current position, reference-device pixels

    std::optional<QPainterPath> clip;  // reference-device pixels; none clips nothing
};

// Reference-device pixels per millimetre, from the metafile header.
struct ReferenceDevice {
    double pixelsPerMmX = 96 / 25.4;
    double pixelsPerMmY = 96 / 25.4;
    QSizeF pixels{96, 96};           // the device's size
    QSizeF millimetres{25.4, 25.4};
};

// Logical units to reference-device pixels under the map mode, window and
// viewport of dc (without the world transform).
QTransform pageTransform(const DeviceContext& dc, const ReferenceDevice& device);

// The window and viewport extents a mapping has when a file switches from
// it to MM_ISOTROPIC or MM_ANISOTROPIC: the same scale, as the reference
// device states it (1:1 from MM_TEXT).
void keepExtentsOnSwitch(DeviceContext& dc, const ReferenceDevice& device);

// World transform then page transform.
QTransform logicalToDevice(const DeviceContext& dc, const ReferenceDevice& device);

}  // namespace emf
