// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_records.h"

#include "platform/emf/emf_limits.h"

#include <algorithm>
#include <cmath>

namespace emf {

namespace {

// Where the records with a count and an array after it keep them; the
// 16-bit forms share the 32-bit layout up to the points.
constexpr std::size_t kPolyCount = offsetof(U_EMRPOLYLINE, cptl);
constexpr std::size_t kPolyPoints = offsetof(U_EMRPOLYLINE, aptl);
constexpr std::size_t kPolyPolyCount = offsetof(U_EMRPOLYPOLYLINE, nPolys);
constexpr std::size_t kPolyPolyPoints = offsetof(U_EMRPOLYPOLYLINE, cptl);
constexpr std::size_t kPolyPolyCounts = offsetof(U_EMRPOLYPOLYLINE, aPolyCounts);
constexpr std::size_t kRegionBytes = offsetof(U_EMRFILLRGN, cbRgnData);
constexpr std::size_t kClipBytes = offsetof(U_EMREXTSELECTCLIPRGN, cbRgnData);
constexpr std::size_t kClipMode = offsetof(U_EMREXTSELECTCLIPRGN, iMode);
constexpr std::size_t kCommentBytes = offsetof(U_EMRCOMMENT, cbData);
constexpr std::size_t kEofEntries = offsetof(U_EMREOF, cbPalEntries);
constexpr std::size_t kEofOffset = offsetof(U_EMREOF, offPalEntries);
constexpr std::size_t kPenEntries = offsetof(U_EMREXTCREATEPEN, elp) + offsetof(U_EXTLOGPEN, elpNumEntries);

std::uint64_t pointBytes(bool sixteenBit) { return sixteenBit ? sizeof(U_POINT16) : sizeof(U_POINTL); }

std::uint32_t u32(const char* rec, std::size_t at) { return fieldAt<std::uint32_t>(rec, at); }

// `count` points from byte `at`, 32-bit or 16-bit pairs.
std::vector<QPointF> pointsAt(const char* rec, std::size_t at, std::uint32_t count, bool sixteenBit)
{
    std::vector<QPointF> points;
    points.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        if (sixteenBit) {
            const auto p = fieldAt<U_POINT16>(rec, at + sizeof(U_POINT16) * i);
            points.emplace_back(p.x, p.y);
        } else {
            points.push_back(pointOf(fieldAt<U_POINTL>(rec, at + sizeof(U_POINTL) * i)));
        }
    }
    return points;
}

// The fixed part every record of a type needs, for the types we draw or
// whose fields we read; a bare record header for the rest.
std::uint64_t fixedSize(std::uint32_t type)
{
    switch (type) {
    case U_EMR_POLYBEZIER: case U_EMR_POLYGON: case U_EMR_POLYLINE:
    case U_EMR_POLYBEZIERTO: case U_EMR_POLYLINETO:
    case U_EMR_POLYBEZIER16: case U_EMR_POLYGON16: case U_EMR_POLYLINE16:
    case U_EMR_POLYBEZIERTO16: case U_EMR_POLYLINETO16:
    case U_EMR_POLYDRAW: case U_EMR_POLYDRAW16:
        return kPolyPoints;
    case U_EMR_POLYPOLYLINE: case U_EMR_POLYPOLYGON:
    case U_EMR_POLYPOLYLINE16: case U_EMR_POLYPOLYGON16:
        return kPolyPolyCounts;
    case U_EMR_SETWINDOWEXTEX: case U_EMR_SETWINDOWORGEX: case U_EMR_SETVIEWPORTEXTEX:
    case U_EMR_SETVIEWPORTORGEX: case U_EMR_MOVETOEX: case U_EMR_LINETO:
        return sizeof(U_EMRLINETO);
    case U_EMR_SETMAPMODE: case U_EMR_SETPOLYFILLMODE: case U_EMR_RESTOREDC:
    case U_EMR_SELECTOBJECT: case U_EMR_DELETEOBJECT: case U_EMR_SETARCDIRECTION:
    case U_EMR_SETMITERLIMIT: case U_EMR_SELECTCLIPPATH: case U_EMR_SETROP2:
    case U_EMR_SETTEXTALIGN: case U_EMR_SETTEXTCOLOR: case U_EMR_SETBKCOLOR: case U_EMR_SETBKMODE:
    case U_EMR_CREATEPALETTE: case U_EMR_CREATECOLORSPACE: case U_EMR_CREATECOLORSPACEW:
        return sizeof(U_EMRSETMAPMODE);
    case U_EMR_EOF:
        return sizeof(U_EMREOF) + 4;
    case U_EMR_SETWORLDTRANSFORM: return sizeof(U_EMRSETWORLDTRANSFORM);
    case U_EMR_MODIFYWORLDTRANSFORM: return sizeof(U_EMRMODIFYWORLDTRANSFORM);
    case U_EMR_CREATEPEN: return sizeof(U_EMRCREATEPEN);
    case U_EMR_CREATEBRUSHINDIRECT: return sizeof(U_EMRCREATEBRUSHINDIRECT);
    case U_EMR_EXTCREATEPEN: return U_SIZE_EMREXTCREATEPEN;
    case U_EMR_ELLIPSE: case U_EMR_RECTANGLE: case U_EMR_FILLPATH:
    case U_EMR_STROKEPATH: case U_EMR_STROKEANDFILLPATH:
    case U_EMR_INTERSECTCLIPRECT: case U_EMR_EXCLUDECLIPRECT:
    case U_EMR_SCALEVIEWPORTEXTEX: case U_EMR_SCALEWINDOWEXTEX:
        return sizeof(U_EMRRECTANGLE);
    case U_EMR_ROUNDRECT: return sizeof(U_EMRROUNDRECT);
    case U_EMR_ARC: case U_EMR_CHORD: case U_EMR_PIE: case U_EMR_ARCTO:
        return sizeof(U_EMRARC);
    case U_EMR_ANGLEARC: return sizeof(U_EMRANGLEARC);
    case U_EMR_EXTSELECTCLIPRGN: return offsetof(U_EMREXTSELECTCLIPRGN, RgnData);
    case U_EMR_BITBLT: return sizeof(U_EMRBITBLT);
    case U_EMR_STRETCHBLT: return sizeof(U_EMRSTRETCHBLT);
    case U_EMR_MASKBLT: return sizeof(U_EMRMASKBLT);
    case U_EMR_SETDIBITSTODEVICE: return sizeof(U_EMRSETDIBITSTODEVICE);
    case U_EMR_STRETCHDIBITS: return sizeof(U_EMRSTRETCHDIBITS);
    case U_EMR_ALPHABLEND: return sizeof(U_EMRALPHABLEND);
    case U_EMR_TRANSPARENTBLT: return sizeof(U_EMRTRANSPARENTBLT);
    case U_EMR_CREATEMONOBRUSH: case U_EMR_CREATEDIBPATTERNBRUSHPT: return sizeof(U_EMRCREATEMONOBRUSH);
    case U_EMR_SETPIXELV: return sizeof(U_EMRSETPIXELV);
    case U_EMR_FILLRGN: return U_SIZE_EMRFILLRGN;
    case U_EMR_FRAMERGN: return U_SIZE_EMRFRAMERGN;
    case U_EMR_INVERTRGN: case U_EMR_PAINTRGN: return U_SIZE_EMRINVERTRGN;
    case U_EMR_GRADIENTFILL: return sizeof(U_EMRGRADIENTFILL);
    default:
        return sizeof(U_EMR);
    }
}

// The variable part: every count checked against the record's own size in
// 64-bit arithmetic, before libuemf (which counts in int) looks at it.
bool countsFit(std::uint32_t type, const char* rec, std::uint64_t size)
{
    switch (type) {
    case U_EMR_POLYBEZIER: case U_EMR_POLYGON: case U_EMR_POLYLINE:
    case U_EMR_POLYBEZIERTO: case U_EMR_POLYLINETO:
    case U_EMR_POLYBEZIER16: case U_EMR_POLYGON16: case U_EMR_POLYLINE16:
    case U_EMR_POLYBEZIERTO16: case U_EMR_POLYLINETO16:
    case U_EMR_POLYDRAW: case U_EMR_POLYDRAW16: {
        const bool sixteenBit = type >= U_EMR_POLYBEZIER16;
        const std::uint64_t kind = (type == U_EMR_POLYDRAW || type == U_EMR_POLYDRAW16) ? 1 : 0;
        return kPolyPoints + (pointBytes(sixteenBit) + kind) * u32(rec, kPolyCount) <= size;
    }
    case U_EMR_POLYPOLYLINE: case U_EMR_POLYPOLYGON:
    case U_EMR_POLYPOLYLINE16: case U_EMR_POLYPOLYGON16: {
        const std::uint64_t polys = u32(rec, kPolyPolyCount);
        const std::uint64_t points = u32(rec, kPolyPolyPoints);
        const bool sixteenBit = type == U_EMR_POLYPOLYLINE16 || type == U_EMR_POLYPOLYGON16;
        if (kPolyPolyCounts + 4 * polys + pointBytes(sixteenBit) * points > size)
            return false;
        std::uint64_t sum = 0;
        for (std::uint64_t i = 0; i < polys; ++i)
            sum += u32(rec, kPolyPolyCounts + 4 * i);
        return sum == points;
    }
    case U_EMR_EXTCREATEPEN:
        return U_SIZE_EMREXTCREATEPEN + 4ull * u32(rec, kPenEntries) <= size;
    case U_EMR_EXTSELECTCLIPRGN:
        return fixedSize(type) + std::uint64_t(u32(rec, kClipBytes)) <= size;
    case U_EMR_FILLRGN: case U_EMR_FRAMERGN: case U_EMR_INVERTRGN: case U_EMR_PAINTRGN:
        return fixedSize(type) + std::uint64_t(u32(rec, kRegionBytes)) <= size;
    case U_EMR_GRADIENTFILL: {
        const auto g = recordAs<U_EMRGRADIENTFILL>(rec);
        const std::uint64_t each = g.ulMode == U_GRADIENT_FILL_TRIANGLE ? 12 : 8;
        return sizeof(U_EMRGRADIENTFILL) + sizeof(U_TRIVERTEX) * std::uint64_t(g.nTriVert) +
                   each * g.nGradObj <= size;
    }
    case U_EMR_EOF: {
        const std::uint64_t entries = u32(rec, kEofEntries);
        const std::uint64_t offset = u32(rec, kEofOffset);
        return entries == 0 || (offset >= sizeof(U_EMREOF) && offset + 4 * entries + 4 <= size);
    }
    default:
        return true;
    }
}

DibLocation dibAt(std::uint32_t headerAt, std::uint32_t headerBytes, std::uint32_t bitsAt,
                  std::uint32_t bitsBytes, std::uint32_t usage)
{
    return {headerAt, headerBytes, bitsAt, bitsBytes, usage == U_DIB_PAL_COLORS};
}

// The bit-block records that share BitBlt's layout up to the bitmap.
template <class T>
BltRecord bitBltLike(const char* rec)
{
    const T r = recordAs<T>(rec);
    BltRecord b;
    b.dest = pointOf(r.Dest);
    b.destSize = pointOf(r.cDest);
    b.src = pointOf(r.Src);
    b.bitmap = dibAt(r.offBmiSrc, r.cbBmiSrc, r.offBitsSrc, r.cbBitsSrc, r.iUsageSrc);
    return b;
}

}  // namespace

bool recordFits(std::uint32_t type, const char* rec, std::uint64_t size)
{
    return size >= fixedSize(type) && countsFit(type, rec, size);
}

std::vector<QPointF> readPoly(const char* rec, bool sixteenBit)
{
    return pointsAt(rec, kPolyPoints, u32(rec, kPolyCount), sixteenBit);
}

PolyPolyRecord readPolyPoly(const char* rec, bool sixteenBit)
{
    PolyPolyRecord out;
    const std::uint32_t polys = u32(rec, kPolyPolyCount);
    out.counts.resize(polys);
    for (std::size_t i = 0; i < polys; ++i)
        out.counts[i] = u32(rec, kPolyPolyCounts + 4 * i);
    out.points = pointsAt(rec, kPolyPolyCounts + 4 * std::size_t(polys), u32(rec, kPolyPolyPoints), sixteenBit);
    return out;
}

PolyDrawRecord readPolyDraw(const char* rec, bool sixteenBit)
{
    PolyDrawRecord out;
    const std::uint32_t count = u32(rec, kPolyCount);
    out.points = pointsAt(rec, kPolyPoints, count, sixteenBit);
    const char* kinds = rec + kPolyPoints + count * pointBytes(sixteenBit);
    out.kinds.assign(kinds, kinds + count);
    return out;
}

std::optional<QPainterPath> regionPath(const char* data, std::uint32_t bytes)
{
    if (bytes < sizeof(U_RGNDATAHEADER))
        return std::nullopt;
    const std::uint64_t rects = fieldAt<U_RGNDATAHEADER>(data, 0).nCount;
    if (sizeof(U_RGNDATAHEADER) + sizeof(U_RECTL) * rects > bytes)
        return std::nullopt;
    QPainterPath region;
    region.setFillRule(Qt::WindingFill);
    for (std::uint64_t i = 0; i < rects; ++i)
        region.addRect(boxOf(fieldAt<U_RECTL>(data, sizeof(U_RGNDATAHEADER) + sizeof(U_RECTL) * i)));
    return region.simplified();
}

RegionRecord readRegion(std::uint32_t type, const char* rec)
{
    RegionRecord out;
    out.region = regionPath(rec + fixedSize(type), u32(rec, kRegionBytes)).value_or(QPainterPath());
    if (type == U_EMR_FILLRGN || type == U_EMR_FRAMERGN)
        out.brush = u32(rec, offsetof(U_EMRFILLRGN, ihBrush));
    if (type == U_EMR_FRAMERGN)
        out.frame = sizeOf(fieldAt<U_SIZEL>(rec, offsetof(U_EMRFRAMERGN, szlStroke)));
    return out;
}

ClipRegionRecord readClipRegion(const char* rec)
{
    const std::uint32_t bytes = u32(rec, kClipBytes);
    ClipRegionRecord out;
    out.mode = u32(rec, kClipMode);
    out.empty = bytes == 0;
    out.region = regionPath(rec + fixedSize(U_EMR_EXTSELECTCLIPRGN), bytes);
    return out;
}

BltRecord readBlt(std::uint32_t type, const char* rec)
{
    BltRecord b;
    switch (type) {
    case U_EMR_SETDIBITSTODEVICE: case U_EMR_STRETCHDIBITS: {
        // The same layout up to the bitmap; StretchDIBits adds a raster
        // operation and a destination size.
        const auto r = recordAs<U_EMRSETDIBITSTODEVICE>(rec);
        b.dest = pointOf(r.Dest);
        b.src = pointOf(r.Src);
        b.srcSize = pointOf(r.cSrc);
        b.destSize = b.srcSize;
        b.bitmap = dibAt(r.offBmiSrc, r.cbBmiSrc, r.offBitsSrc, r.cbBitsSrc, r.iUsageSrc);
        if (type == U_EMR_STRETCHDIBITS) {
            const auto s = recordAs<U_EMRSTRETCHDIBITS>(rec);
            b.rop = s.dwRop;
            b.destSize = pointOf(s.cDest);
        }
        return b;
    }
    case U_EMR_STRETCHBLT: case U_EMR_ALPHABLEND: case U_EMR_TRANSPARENTBLT: {
        // Their own source size; the word after the destination is the
        // raster operation, the blend or the transparent colour.
        b = bitBltLike<U_EMRSTRETCHBLT>(rec);
        b.srcSize = pointOf(recordAs<U_EMRSTRETCHBLT>(rec).cSrc);
        const std::uint32_t word = recordAs<U_EMRSTRETCHBLT>(rec).dwRop;
        b.rop = type == U_EMR_STRETCHBLT ? word : U_SRCCOPY;
        b.blend = type == U_EMR_ALPHABLEND ? word : 0;
        b.transparent = type == U_EMR_TRANSPARENTBLT ? word : 0;
        b.fillsWithBrush = type == U_EMR_STRETCHBLT;
        break;
    }
    default: {  // BitBlt and MaskBlt: the source spans the destination,
                // scaled by the source's own transform
        b = bitBltLike<U_EMRBITBLT>(rec);
        const auto r = recordAs<U_EMRBITBLT>(rec);
        b.rop = r.dwRop;
        b.fillsWithBrush = true;
        b.srcSize = b.destSize;
        const double sx = std::abs(double(r.xformSrc.eM11));
        const double sy = std::abs(double(r.xformSrc.eM22));
        if (saneFactor(sx) && saneFactor(sy))
            b.srcSize = QPointF(b.srcSize.x() * sx, b.srcSize.y() * sy);
        if (type == U_EMR_MASKBLT) {
            const auto m = recordAs<U_EMRMASKBLT>(rec);
            b.mask = dibAt(m.offBmiMask, m.cbBmiMask, m.offBitsMask, m.cbBitsMask, m.iUsageMask);
            b.maskAt = pointOf(m.Mask);
        }
        break;
    }
    }
    return b;
}

PatternBrushRecord readPatternBrush(const char* rec)
{
    const auto r = recordAs<U_EMRCREATEMONOBRUSH>(rec);
    return {r.ihBrush, dibAt(r.offBmi, r.cbBmi, r.offBits, r.cbBits, r.iUsage)};
}

GradientRecord readGradient(const char* rec)
{
    const auto g = recordAs<U_EMRGRADIENTFILL>(rec);
    GradientRecord out;
    out.mode = g.ulMode;
    out.vertices.reserve(g.nTriVert);
    for (std::size_t i = 0; i < g.nTriVert; ++i) {
        const auto v = fieldAt<U_TRIVERTEX>(rec, sizeof(U_EMRGRADIENTFILL) + sizeof(U_TRIVERTEX) * i);
        out.vertices.push_back({QPointF(v.x, v.y), {v.Red / 257.0, v.Green / 257.0, v.Blue / 257.0}});
    }
    const bool triangles = g.ulMode == U_GRADIENT_FILL_TRIANGLE;
    const std::size_t each = triangles ? 3 : 2;
    const std::size_t listAt = sizeof(U_EMRGRADIENTFILL) + sizeof(U_TRIVERTEX) * std::size_t(g.nTriVert);
    out.pieces.resize(g.nGradObj);
    for (std::size_t i = 0; i < g.nGradObj; ++i)
        for (std::size_t k = 0; k < each; ++k)
            out.pieces[i][k] = u32(rec, listAt + 4 * (each * i + k));
    return out;
}

CommentRecord readComment(const char* rec, std::uint32_t size)
{
    constexpr std::size_t dataAt = offsetof(U_EMRCOMMENT, Data);
    if (size < dataAt || u32(rec, kCommentBytes) > size - dataAt)
        return {};
    const std::uint32_t bytes = u32(rec, kCommentBytes);
    return {rec + dataAt, bytes};
}

}  // namespace emf
