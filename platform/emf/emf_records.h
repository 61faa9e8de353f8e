// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Where each plain record keeps its fields, in one place: the size a record
// of a type needs, the counts that must fit inside it, and the typed values
// the player reads from a record once it has passed that check. The layouts
// are libuemf's U_EMR* structs; nothing else reads a record by offset.
#include "platform/emf/emf_dib.h"

#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <uemf.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <vector>

namespace emf {

// A little-endian field at byte `at` of a record; the caller has checked
// that it lies inside.
template <class T>
T fieldAt(const char* rec, std::size_t at)
{
    T v;
    std::memcpy(&v, rec + at, sizeof v);
    return v;
}

// The fixed part of a record as its libuemf struct; the check made sure
// every record of the type holds it.
template <class T>
T recordAs(const char* rec)
{
    return fieldAt<T>(rec, 0);
}

// The one 32-bit argument of the many records that carry just that (modes,
// object indexes, colours, levels).
inline std::uint32_t argumentOf(const char* rec)
{
    return fieldAt<std::uint32_t>(rec, sizeof(U_EMR));
}

// True when a record of `type` and `size` bytes holds its fixed part and
// every count it states; records failing it are passed over.
bool recordFits(std::uint32_t type, const char* rec, std::uint64_t size);

inline QPointF pointOf(const U_POINTL& p) { return QPointF(p.x, p.y); }
inline QPointF sizeOf(const U_SIZEL& s) { return QPointF(s.cx, s.cy); }
// A rectangle from its corners in any order.
inline QRectF boxOf(const U_RECTL& r)
{
    return QRectF(QPointF(r.left, r.top), QPointF(r.right, r.bottom)).normalized();
}

// The points of polygons, polylines and Béziers, 32-bit or 16-bit.
std::vector<QPointF> readPoly(const char* rec, bool sixteenBit);

struct PolyPolyRecord {
    std::vector<std::uint32_t> counts;  // adding up to the points: checked
    std::vector<QPointF> points;
};
PolyPolyRecord readPolyPoly(const char* rec, bool sixteenBit);

struct PolyDrawRecord {
    std::vector<QPointF> points;
    std::vector<std::uint8_t> kinds;  // PT_* for each point
};
PolyDrawRecord readPolyDraw(const char* rec, bool sixteenBit);

// FillRgn, FrameRgn, PaintRgn and InvertRgn.
struct RegionRecord {
    QPainterPath region;         // logical units; empty when damaged
    std::uint32_t brush = 0;     // FillRgn and FrameRgn
    QPointF frame;               // FrameRgn: the band's width and height, logical
};
RegionRecord readRegion(std::uint32_t type, const char* rec);

// The rectangles of region data `bytes` long (checked to lie in the
// record) as one path; nullopt when the data is damaged.
std::optional<QPainterPath> regionPath(const char* data, std::uint32_t bytes);

struct ClipRegionRecord {
    std::uint32_t mode = 0;
    bool empty = true;           // no region: RGN_COPY then clears the clip
    std::optional<QPainterPath> region;  // device pixels; nullopt when damaged
};
ClipRegionRecord readClipRegion(const char* rec);

// The bit-block records, read into one shape: where the bitmap lands, what
// part of it is copied, how it mixes, and where its bytes are.
struct BltRecord {
    QPointF dest;
    QPointF destSize;
    QPointF src;
    // The destination's size, scaled by the source's transform, for
    // records that give none.
    QPointF srcSize;
    std::uint32_t rop = U_SRCCOPY;
    std::uint32_t blend = 0;     // AlphaBlend's BLENDFUNCTION, as a word
    std::uint32_t transparent = 0;  // TransparentBlt's colour
    DibLocation bitmap;
    bool fillsWithBrush = false; // without a bitmap the brush fills the destination
    DibLocation mask;            // MaskBlt
    QPointF maskAt;
};
BltRecord readBlt(std::uint32_t type, const char* rec);

// CreateMonoBrush and CreateDIBPatternBrushPt: the index and the bitmap.
struct PatternBrushRecord {
    std::uint32_t index = 0;
    DibLocation bitmap;
};
PatternBrushRecord readPatternBrush(const char* rec);

struct GradientVertex {
    QPointF at;                  // logical units
    std::array<double, 3> rgb{}; // 0 to 255
};
// GradientFill: its vertices and, per rectangle or triangle, its corners'
// indexes (not yet checked against the vertices).
struct GradientRecord {
    std::uint32_t mode = 0;
    std::vector<GradientVertex> vertices;
    std::vector<std::array<std::uint32_t, 3>> pieces;  // rectangles use two
};
GradientRecord readGradient(const char* rec);

// A comment's data, when it lies inside the record.
struct CommentRecord {
    const char* data = nullptr;
    std::uint32_t size = 0;
};
CommentRecord readComment(const char* rec, std::uint32_t size);

}  // namespace emf
