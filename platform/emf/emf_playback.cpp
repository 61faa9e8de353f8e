#include "platform/emf/emf_playback.h"

#include "platform/emf/emf_device_context.h"
#include "platform/emf/emf_objects.h"
#include "platform/emf/emf_shapes.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace emf {

namespace {

constexpr std::size_t kMaxSavedStates = 4096;
// Shapes reaching further than this from the reference device's origin are
// damage, not drawing; dropping them keeps the rasteriser out of trouble.
constexpr double kMaxCoordinate = 1 << 24;
// Qt refuses pens from 32768 units wide; no picture of ours needs a tenth.
constexpr double kMaxPenWidth = 10000;

double linearScale(const QTransform& t)
{
    return std::sqrt(std::abs(t.m11() * t.m22() - t.m12() * t.m21()));
}

bool usableTransform(const QTransform& t)
{
    const double parts[] = {t.m11(), t.m12(), t.m21(), t.m22(), t.dx(), t.dy()};
    for (double v : parts)
        if (!std::isfinite(v) || std::abs(v) > 1e9)
            return false;
    return std::abs(t.m11() * t.m22() - t.m12() * t.m21()) > 1e-12;
}

QTransform fromXform(const U_XFORM& x)
{
    return QTransform(x.eM11, x.eM12, x.eM21, x.eM22, x.eDx, x.eDy);
}

class Player {
public:
    Player(const char* data, const CheckedMetafile& mf)
        : data_(data), objects_(mf.header.handles)
    {
        const HeaderInfo& h = mf.header;
        device_.pixelsPerMmX = double(h.device.cx) / h.millimeters.cx;
        device_.pixelsPerMmY = double(h.device.cy) / h.millimeters.cy;
        const QPointF topLeft(h.frame.left / 100.0 * device_.pixelsPerMmX,
                              h.frame.top / 100.0 * device_.pixelsPerMmY);
        const QPointF bottomRight(h.frame.right / 100.0 * device_.pixelsPerMmX,
                                  h.frame.bottom / 100.0 * device_.pixelsPerMmY);
        out_.frame = QRectF(topLeft, bottomRight);
        const double frameW = double(h.frame.right) - h.frame.left;
        const double frameH = double(h.frame.bottom) - h.frame.top;
        out_.naturalSize = QSize(int(std::lround(frameW * 96 / 2540)),
                                 int(std::lround(frameH * 96 / 2540)));
        everything_.addRect(out_.frame.adjusted(-kMaxCoordinate, -kMaxCoordinate,
                                                kMaxCoordinate, kMaxCoordinate));
    }

    PictureData run(const std::vector<RecordRef>& records)
    {
        for (const RecordRef& r : records)
            play(r.type, data_ + r.offset, r.size);
        return std::move(out_);
    }

private:
    QTransform toDevice() const { return logicalToDevice(dc_, device_); }

    // --- emitting shapes -------------------------------------------------

    // A shape in device pixels: inside a path bracket it joins the path,
    // otherwise it is drawn with the selected brush and pen.
    void shape(const QPainterPath& devicePath, bool fill, bool stroke)
    {
        if (inPath_) {
            path_.addPath(devicePath);
            figureOpen_ = false;
            return;
        }
        addOp(devicePath, fill, stroke);
    }

    void addOp(QPainterPath path, bool fill, bool stroke)
    {
        const QRectF box = path.controlPointRect();
        if (!std::isfinite(box.left()) || !std::isfinite(box.right()) ||
            !std::isfinite(box.top()) || !std::isfinite(box.bottom()) ||
            std::abs(box.left()) > kMaxCoordinate || std::abs(box.right()) > kMaxCoordinate ||
            std::abs(box.top()) > kMaxCoordinate || std::abs(box.bottom()) > kMaxCoordinate)
            return;
        DrawOp op;
        op.filled = fill && dc_.brush.visible;
        op.stroked = stroke && dc_.pen.visible;
        if (!op.filled && !op.stroked)
            return;
        path.setFillRule(dc_.windingFill ? Qt::WindingFill : Qt::OddEvenFill);
        op.path = std::move(path);
        if (op.filled)
            op.brush = QBrush(dc_.brush.color, dc_.brush.style);
        if (op.stroked) {
            op.stroke.color = dc_.pen.color;
            op.stroke.width =
                dc_.pen.cosmetic ? 0 : std::min(dc_.pen.width * linearScale(toDevice()), kMaxPenWidth);
            op.stroke.style = dc_.pen.style;
            op.stroke.cap = dc_.pen.cap;
            op.stroke.join = dc_.pen.join;
            op.stroke.miterLimit = dc_.miterLimit;
        }
        op.clipped = dc_.clipped;
        if (op.clipped)
            op.clip = dc_.clip;
        out_.ops.push_back(std::move(op));
    }

    // Continues the current figure from the current position: LineTo,
    // PolylineTo, PolyBezierTo, ArcTo.
    QPainterPath& figureFromPosition(QPainterPath& scratch)
    {
        QPainterPath& p = inPath_ ? path_ : scratch;
        if (!inPath_ || !figureOpen_ || p.currentPosition() != dc_.position)
            p.moveTo(dc_.position);
        figureOpen_ = inPath_;
        return p;
    }

    void finishOpenFigure(const QPainterPath& scratch)
    {
        if (!inPath_)
            addOp(scratch, false, true);
    }

    // --- drawing records -------------------------------------------------

    // type is the 32-bit record's type for both point sizes.
    void polyRecord(std::uint32_t type, const char* rec, bool sixteenBit)
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
            if (inPath_) {
                path_.addPath(path);
                figureOpen_ = true;
            } else {
                addOp(path, false, true);
            }
            return;
        }
        case U_EMR_POLYBEZIER: {
            if (pts.size() < 4 || (pts.size() - 1) % 3 != 0)
                return;
            QPainterPath path(pts[0]);
            for (std::size_t i = 1; i + 2 < pts.size(); i += 3)
                path.cubicTo(pts[i], pts[i + 1], pts[i + 2]);
            if (inPath_) {
                path_.addPath(path);
                figureOpen_ = true;
            } else {
                addOp(path, false, true);
            }
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

    void polyPolyRecord(std::uint32_t type, const char* rec, bool sixteenBit)
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

    void polyDrawRecord(const char* rec, bool sixteenBit)
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

    void boxRecord(std::uint32_t type, const char* rec)
    {
        const QRectF box = boxRect(rec, 8);
        QPainterPath logical;
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
        shape(toDevice().map(logical), true, true);
    }

    void arcRecord(std::uint32_t type, const char* rec)
    {
        const QRectF box = boxRect(rec, 8);
        const QPointF start(readI32(rec, 24), readI32(rec, 28));
        const QPointF end(readI32(rec, 32), readI32(rec, 36));
        const QTransform t = toDevice();
        const bool cw = dc_.clockwiseArcs;
        switch (type) {
        case U_EMR_ARC: {
            const QPainterPath arc = t.map(arcFigure(box, start, end, ArcKind::Open, cw));
            if (inPath_) {
                path_.addPath(arc);
                figureOpen_ = true;
            } else {
                addOp(arc, false, true);
            }
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

    void angleArcRecord(const char* rec)
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

    void lineTo(const char* rec)
    {
        const QPointF to = toDevice().map(QPointF(readI32(rec, 8), readI32(rec, 12)));
        QPainterPath scratch;
        QPainterPath& p = figureFromPosition(scratch);
        p.lineTo(to);
        dc_.position = to;
        finishOpenFigure(scratch);
    }

    // --- paths -----------------------------------------------------------

    void pathRecord(std::uint32_t type)
    {
        switch (type) {
        case U_EMR_BEGINPATH:
            inPath_ = true;
            figureOpen_ = false;
            path_ = QPainterPath();
            return;
        case U_EMR_ENDPATH:
            inPath_ = false;
            return;
        case U_EMR_ABORTPATH:
            inPath_ = false;
            path_ = QPainterPath();
            return;
        case U_EMR_CLOSEFIGURE:
            if (inPath_ && figureOpen_) {
                path_.closeSubpath();
                figureOpen_ = false;
                dc_.position = path_.currentPosition();
            }
            return;
        case U_EMR_FILLPATH: case U_EMR_STROKEPATH: case U_EMR_STROKEANDFILLPATH:
            if (inPath_)
                return;  // Windows refuses to use a path still being recorded
            addOp(path_, type != U_EMR_STROKEPATH, type != U_EMR_FILLPATH);
            path_ = QPainterPath();
            return;
        default:
            return;
        }
    }

    // --- clipping --------------------------------------------------------

    void combineClip(const QPainterPath& region, std::uint32_t mode)
    {
        const QPainterPath current = dc_.clipped ? dc_.clip : everything_;
        QPainterPath next;
        switch (mode) {
        case U_RGN_AND: next = current.intersected(region); break;
        case U_RGN_OR: next = current.united(region); break;
        case U_RGN_XOR: next = current.united(region).subtracted(current.intersected(region)); break;
        case U_RGN_DIFF: next = current.subtracted(region); break;
        case U_RGN_COPY: next = region; break;
        default: return;
        }
        dc_.clip = next;
        dc_.clipped = true;
    }

    void clipRecord(std::uint32_t type, const char* rec)
    {
        switch (type) {
        case U_EMR_INTERSECTCLIPRECT: case U_EMR_EXCLUDECLIPRECT: {
            QPainterPath box;
            box.addRect(boxRect(rec, 8));
            combineClip(toDevice().map(box),
                        type == U_EMR_INTERSECTCLIPRECT ? U_RGN_AND : U_RGN_DIFF);
            return;
        }
        case U_EMR_SELECTCLIPPATH:
            if (inPath_)
                return;
            combineClip(path_, readU32(rec, 8));
            path_ = QPainterPath();
            return;
        case U_EMR_EXTSELECTCLIPRGN: {
            const std::uint32_t bytes = readU32(rec, 8);
            const std::uint32_t mode = readU32(rec, 12);
            if (bytes == 0) {
                if (mode == U_RGN_COPY)
                    dc_.clipped = false;  // back to no clip
                return;
            }
            if (bytes < sizeof(U_RGNDATAHEADER))
                return;
            const std::uint64_t rects = readU32(rec, 16 + 8);
            if (sizeof(U_RGNDATAHEADER) + 16 * rects > bytes)
                return;
            // Region rectangles are in device pixels already.
            QPainterPath region;
            region.setFillRule(Qt::WindingFill);
            for (std::uint64_t i = 0; i < rects; ++i)
                region.addRect(boxRect(rec, 16 + sizeof(U_RGNDATAHEADER) + 16 * i));
            combineClip(region.simplified(), mode);
            return;
        }
        default:
            return;
        }
    }

    // --- mapping ---------------------------------------------------------

    bool scalableMapping() const
    {
        return dc_.mapMode == U_MM_ISOTROPIC || dc_.mapMode == U_MM_ANISOTROPIC;
    }

    void mappingRecord(std::uint32_t type, const char* rec)
    {
        const std::int32_t a = readI32(rec, 8);
        const std::int32_t b = readI32(rec, 12);
        switch (type) {
        case U_EMR_SETMAPMODE: {
            const std::uint32_t mode = std::uint32_t(a);
            if (mode < U_MM_MIN || mode > U_MM_MAX)
                return;
            if ((mode == U_MM_ISOTROPIC || mode == U_MM_ANISOTROPIC) && !scalableMapping()) {
                // Keep the scale the old mode had until extents are given.
                const QTransform page = pageTransform(dc_, device_);
                dc_.windowExt = QSizeF(1000, 1000);
                dc_.viewportExt = QSizeF(1000 * page.m11(), 1000 * page.m22());
            }
            dc_.mapMode = mode;
            return;
        }
        case U_EMR_SETWINDOWEXTEX:
            if (scalableMapping() && a != 0 && b != 0)
                dc_.windowExt = QSizeF(a, b);
            return;
        case U_EMR_SETVIEWPORTEXTEX:
            if (scalableMapping() && a != 0 && b != 0)
                dc_.viewportExt = QSizeF(a, b);
            return;
        case U_EMR_SETWINDOWORGEX:
            dc_.windowOrg = QPointF(a, b);
            return;
        case U_EMR_SETVIEWPORTORGEX:
            dc_.viewportOrg = QPointF(a, b);
            return;
        case U_EMR_SCALEWINDOWEXTEX: case U_EMR_SCALEVIEWPORTEXTEX: {
            const std::int32_t c = readI32(rec, 16);
            const std::int32_t d = readI32(rec, 20);
            if (!scalableMapping() || a == 0 || b == 0 || c == 0 || d == 0)
                return;
            QSizeF& ext = type == U_EMR_SCALEWINDOWEXTEX ? dc_.windowExt : dc_.viewportExt;
            ext = QSizeF(ext.width() * a / b, ext.height() * c / d);
            return;
        }
        default:
            return;
        }
    }

    void worldRecord(std::uint32_t type, const char* rec)
    {
        U_XFORM x;
        std::memcpy(&x, rec + 8, sizeof x);
        const QTransform m = fromXform(x);
        QTransform next;
        if (type == U_EMR_SETWORLDTRANSFORM) {
            next = m;
        } else {
            switch (readU32(rec, 8 + sizeof x)) {
            case U_MWT_IDENTITY: next = QTransform(); break;
            case U_MWT_LEFTMULTIPLY: next = m * dc_.world; break;
            case U_MWT_RIGHTMULTIPLY: next = dc_.world * m; break;
            case 4: next = m; break;  // MWT_SET
            default: return;
            }
        }
        if (usableTransform(next))
            dc_.world = next;
    }

    // --- state and objects -----------------------------------------------

    void stateRecord(std::uint32_t type, const char* rec)
    {
        switch (type) {
        case U_EMR_SAVEDC:
            if (saved_.size() < kMaxSavedStates)
                saved_.push_back(dc_);
            return;
        case U_EMR_RESTOREDC: {
            // Negative: that many levels back; positive: that saved level.
            const std::int64_t n = readI32(rec, 8);
            const std::int64_t depth = std::int64_t(saved_.size());
            const std::int64_t level = n < 0 ? depth + n + 1 : n;
            if (level < 1 || level > depth)
                return;
            dc_ = saved_[std::size_t(level - 1)];
            saved_.resize(std::size_t(level - 1));
            return;
        }
        case U_EMR_SETPOLYFILLMODE:
            dc_.windingFill = readU32(rec, 8) == U_WINDING;
            return;
        case U_EMR_SETARCDIRECTION:
            dc_.clockwiseArcs = readU32(rec, 8) == U_AD_CLOCKWISE;
            return;
        case U_EMR_SETMITERLIMIT: {
            // Written as an integer by some programs, as a float by others.
            const std::uint32_t bits = readU32(rec, 8);
            const float f = readF32(rec, 8);
            const double limit = bits < 0x10000 ? double(bits) : double(f);
            if (std::isfinite(limit) && limit >= 1 && limit < 1000)
                dc_.miterLimit = limit;
            return;
        }
        case U_EMR_MOVETOEX:
            dc_.position = toDevice().map(QPointF(readI32(rec, 8), readI32(rec, 12)));
            figureOpen_ = false;
            return;
        default:
            return;
        }
    }

    void objectRecord(std::uint32_t type, const char* rec, std::uint32_t size)
    {
        switch (type) {
        case U_EMR_CREATEPEN: {
            U_EMRCREATEPEN r;
            std::memcpy(&r, rec, sizeof r);
            objects_.create(r.ihPen, penFromLogPen(r.lopn));
            return;
        }
        case U_EMR_EXTCREATEPEN: {
            U_EXTLOGPEN lp{};
            std::memcpy(&lp, rec + offsetof(U_EMREXTCREATEPEN, elp), U_SIZE_EXTLOGPEN);
            objects_.create(readU32(rec, 8), penFromExtLogPen(lp));
            return;
        }
        case U_EMR_CREATEBRUSHINDIRECT: {
            U_EMRCREATEBRUSHINDIRECT r;
            std::memcpy(&r, rec, sizeof r);
            objects_.create(r.ihBrush, brushFromLogBrush(r.lb));
            return;
        }
        case U_EMR_CREATEMONOBRUSH: case U_EMR_CREATEDIBPATTERNBRUSHPT: {
            if (size < 12)
                return;
            BrushObject unseen;
            unseen.visible = false;
            objects_.create(readU32(rec, 8), unseen);
            return;
        }
        case U_EMR_EXTCREATEFONTINDIRECTW: case U_EMR_CREATEPALETTE:
        case U_EMR_CREATECOLORSPACE: case U_EMR_CREATECOLORSPACEW:
            if (size >= 12)
                objects_.create(readU32(rec, 8), OtherObject{});
            return;
        case U_EMR_SELECTOBJECT:
            objects_.select(readU32(rec, 8), dc_);
            return;
        case U_EMR_DELETEOBJECT:
            objects_.remove(readU32(rec, 8));
            return;
        default:
            return;
        }
    }

    void play(std::uint32_t type, const char* rec, std::uint32_t size)
    {
        switch (type) {
        case U_EMR_POLYBEZIER: case U_EMR_POLYGON: case U_EMR_POLYLINE:
        case U_EMR_POLYBEZIERTO: case U_EMR_POLYLINETO:
            polyRecord(type, rec, false);
            return;
        case U_EMR_POLYBEZIER16: case U_EMR_POLYGON16: case U_EMR_POLYLINE16:
        case U_EMR_POLYBEZIERTO16: case U_EMR_POLYLINETO16:
            polyRecord(type - (U_EMR_POLYBEZIER16 - U_EMR_POLYBEZIER), rec, true);
            return;
        case U_EMR_POLYPOLYLINE: case U_EMR_POLYPOLYGON:
            polyPolyRecord(type, rec, false);
            return;
        case U_EMR_POLYPOLYLINE16: case U_EMR_POLYPOLYGON16:
            polyPolyRecord(type, rec, true);
            return;
        case U_EMR_POLYDRAW: polyDrawRecord(rec, false); return;
        case U_EMR_POLYDRAW16: polyDrawRecord(rec, true); return;
        case U_EMR_RECTANGLE: case U_EMR_ELLIPSE: case U_EMR_ROUNDRECT:
            boxRecord(type, rec);
            return;
        case U_EMR_ARC: case U_EMR_CHORD: case U_EMR_PIE: case U_EMR_ARCTO:
            arcRecord(type, rec);
            return;
        case U_EMR_ANGLEARC: angleArcRecord(rec); return;
        case U_EMR_LINETO: lineTo(rec); return;
        case U_EMR_BEGINPATH: case U_EMR_ENDPATH: case U_EMR_ABORTPATH:
        case U_EMR_CLOSEFIGURE: case U_EMR_FILLPATH: case U_EMR_STROKEPATH:
        case U_EMR_STROKEANDFILLPATH:
            pathRecord(type);
            return;
        case U_EMR_INTERSECTCLIPRECT: case U_EMR_EXCLUDECLIPRECT:
        case U_EMR_SELECTCLIPPATH: case U_EMR_EXTSELECTCLIPRGN:
            clipRecord(type, rec);
            return;
        case U_EMR_SETMAPMODE: case U_EMR_SETWINDOWEXTEX: case U_EMR_SETVIEWPORTEXTEX:
        case U_EMR_SETWINDOWORGEX: case U_EMR_SETVIEWPORTORGEX:
        case U_EMR_SCALEWINDOWEXTEX: case U_EMR_SCALEVIEWPORTEXTEX:
            mappingRecord(type, rec);
            return;
        case U_EMR_SETWORLDTRANSFORM: case U_EMR_MODIFYWORLDTRANSFORM:
            worldRecord(type, rec);
            return;
        case U_EMR_SAVEDC: case U_EMR_RESTOREDC: case U_EMR_SETPOLYFILLMODE:
        case U_EMR_SETARCDIRECTION: case U_EMR_SETMITERLIMIT: case U_EMR_MOVETOEX:
            stateRecord(type, rec);
            return;
        default:
            objectRecord(type, rec, size);
            return;
        }
    }

    const char* data_;
    ReferenceDevice device_;
    ObjectTable objects_;
    DeviceContext dc_;
    std::vector<DeviceContext> saved_;
    bool inPath_ = false;
    bool figureOpen_ = false;
    QPainterPath path_;
    QPainterPath everything_;
    PictureData out_;
};

}  // namespace

PictureData playRecords(const char* data, const CheckedMetafile& metafile)
{
    return Player(data, metafile).run(metafile.records);
}

}  // namespace emf
