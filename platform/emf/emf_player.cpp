// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_player.h"

#include "platform/emf/emf_raster_op.h"

#include <algorithm>
#include <cmath>

namespace emf {

PictureData playRecords(const char* data, const CheckedMetafile& metafile)
{
    return Player(data, metafile).run(metafile.records);
}

Player::Player(const char* data, const CheckedMetafile& mf)
    : data_(data), objects_(mf.header.handles)
{
    const HeaderInfo& h = mf.header;
    device_.pixelsPerMmX = h.device.cx / h.millimetresX;
    device_.pixelsPerMmY = h.device.cy / h.millimetresY;
    device_.pixels = QSizeF(h.device.cx, h.device.cy);
    device_.millimetres = QSizeF(h.millimetresX, h.millimetresY);
    const QPointF topLeft(h.frame.left / 100.0 * device_.pixelsPerMmX,
                          h.frame.top / 100.0 * device_.pixelsPerMmY);
    const QPointF bottomRight(h.frame.right / 100.0 * device_.pixelsPerMmX,
                              h.frame.bottom / 100.0 * device_.pixelsPerMmY);
    out_.frame = QRectF(topLeft, bottomRight);
    const double frameW = double(h.frame.right) - h.frame.left;
    const double frameH = double(h.frame.bottom) - h.frame.top;
    out_.exactSize = QSizeF(frameW * 96 / 2540, frameH * 96 / 2540);
    out_.naturalSize = QSize(int(std::lround(out_.exactSize.width())),
                             int(std::lround(out_.exactSize.height())));
}

PictureData Player::run(const std::vector<RecordRef>& records)
{
    for (const RecordRef& r : records)
        play(r.type, data_ + r.offset, r.size);
    if (out_.ops.empty() && !plusChunks_.empty()) {
        const PlusDevice device{device_.pixelsPerMmX * 25.4, device_.pixelsPerMmY * 25.4, out_.frame,
                                &bitmapPixels_};
        playPlus(plusChunks_, device, out_.ops);
    }
    return std::move(out_);
}

void Player::play(std::uint32_t type, const char* rec, std::uint32_t size)
{
    switch (type) {
    case U_EMR_POLYBEZIER: case U_EMR_POLYGON: case U_EMR_POLYLINE:
    case U_EMR_POLYBEZIERTO: case U_EMR_POLYLINETO: polyRecord(type, rec, false); return;
    case U_EMR_POLYBEZIER16: case U_EMR_POLYGON16: case U_EMR_POLYLINE16:
    case U_EMR_POLYBEZIERTO16: case U_EMR_POLYLINETO16:
        polyRecord(type - (U_EMR_POLYBEZIER16 - U_EMR_POLYBEZIER), rec, true);
        return;
    case U_EMR_POLYPOLYLINE: case U_EMR_POLYPOLYGON: polyPolyRecord(type, rec, false); return;
    case U_EMR_POLYPOLYLINE16: case U_EMR_POLYPOLYGON16: polyPolyRecord(type, rec, true); return;
    case U_EMR_POLYDRAW: polyDrawRecord(rec, false); return;
    case U_EMR_POLYDRAW16: polyDrawRecord(rec, true); return;
    case U_EMR_RECTANGLE: case U_EMR_ELLIPSE: case U_EMR_ROUNDRECT: boxRecord(type, rec); return;
    case U_EMR_ARC: case U_EMR_CHORD: case U_EMR_PIE: case U_EMR_ARCTO: arcRecord(type, rec); return;
    case U_EMR_ANGLEARC: angleArcRecord(rec); return;
    case U_EMR_LINETO: lineTo(rec); return;
    case U_EMR_EXTTEXTOUTA: case U_EMR_EXTTEXTOUTW: case U_EMR_POLYTEXTOUTA:
    case U_EMR_POLYTEXTOUTW: case U_EMR_SMALLTEXTOUT: textRecord(type, rec, size); return;
    case U_EMR_EXTCREATEFONTINDIRECTW: case U_EMR_SETTEXTALIGN: case U_EMR_SETTEXTCOLOR:
    case U_EMR_SETBKCOLOR: case U_EMR_SETBKMODE: textStateRecord(type, rec, size); return;
    case U_EMR_BEGINPATH: case U_EMR_ENDPATH: case U_EMR_ABORTPATH:
    case U_EMR_CLOSEFIGURE: case U_EMR_FILLPATH: case U_EMR_STROKEPATH:
    case U_EMR_STROKEANDFILLPATH: pathRecord(type); return;
    case U_EMR_INTERSECTCLIPRECT: case U_EMR_EXCLUDECLIPRECT:
    case U_EMR_SELECTCLIPPATH: case U_EMR_EXTSELECTCLIPRGN: clipRecord(type, rec); return;
    case U_EMR_SETMAPMODE: case U_EMR_SETWINDOWEXTEX: case U_EMR_SETVIEWPORTEXTEX:
    case U_EMR_SETWINDOWORGEX: case U_EMR_SETVIEWPORTORGEX:
    case U_EMR_SCALEWINDOWEXTEX: case U_EMR_SCALEVIEWPORTEXTEX: mappingRecord(type, rec); return;
    case U_EMR_SETWORLDTRANSFORM: case U_EMR_MODIFYWORLDTRANSFORM: worldRecord(type, rec); return;
    case U_EMR_SAVEDC: case U_EMR_RESTOREDC: case U_EMR_SETPOLYFILLMODE:
    case U_EMR_SETARCDIRECTION: case U_EMR_SETMITERLIMIT: case U_EMR_MOVETOEX: case U_EMR_SETROP2:
        stateRecord(type, rec);
        return;
    case U_EMR_BITBLT: case U_EMR_STRETCHBLT: case U_EMR_MASKBLT: case U_EMR_SETDIBITSTODEVICE:
    case U_EMR_STRETCHDIBITS: case U_EMR_ALPHABLEND: case U_EMR_TRANSPARENTBLT:
        bitmapRecord(type, rec, size);
        return;
    case U_EMR_COMMENT: {
        const CommentRecord comment = readComment(rec, size);
        if (comment.data && isPlusComment(comment.data, comment.size))
            plusChunks_.push_back({comment.data, comment.size});
        return;
    }
    case U_EMR_SETPIXELV: case U_EMR_FILLRGN: case U_EMR_FRAMERGN: case U_EMR_INVERTRGN:
    case U_EMR_PAINTRGN: case U_EMR_GRADIENTFILL: fillRecord(type, rec); return;
    default:
        objectRecord(type, rec, size);
        return;
    }
}

// A figure in device pixels: inside a path bracket it joins the path (an
// open one stays open for what follows), otherwise a closed figure is
// filled and outlined, an open one (polyline, Bézier, arc) outlined.
void Player::figure(const QPainterPath& devicePath, bool open)
{
    if (inPath_) {
        path_.addPath(devicePath);
        figureOpen_ = open;
        return;
    }
    addOp(devicePath, !open, true);
}

void Player::addOp(QPainterPath path, bool fill, bool stroke)
{
    fill = fill && dc_.brush.visible;
    stroke = stroke && dc_.pen.visible;
    if ((!fill && !stroke) || dc_.mix == U_R2_NOP)
        return;
    ShapeOp shape;
    path.setFillRule(dc_.windingFill ? Qt::WindingFill : Qt::OddEvenFill);
    shape.path = std::move(path);
    if (fill)
        shape.fill = qtBrush(dc_.brush);
    if (stroke) {
        Stroke& s = shape.stroke.emplace();
        s.color = dc_.pen.color;
        s.width = dc_.pen.cosmetic ? 0 : std::min(dc_.pen.width * linearScale(toDevice()), kMaxPenWidth);
        s.onePixelDashes = dc_.pen.onePixelDashes;
        s.wideDashes = dc_.pen.wideDashes;
        s.cap = dc_.pen.cap;
        s.join = dc_.pen.join;
        s.miterLimit = dc_.miterLimit;
    }
    // The mix: black or white whatever the colours, or a bitwise
    // combination with what is drawn (XOR draws, and a second XOR undoes).
    if (dc_.mix == U_R2_BLACK || dc_.mix == U_R2_WHITE) {
        const QColor constant = dc_.mix == U_R2_BLACK ? Qt::black : Qt::white;
        if (shape.fill)
            shape.fill = QBrush(constant);
        if (shape.stroke)
            shape.stroke->color = constant;
    }
    // A hatched brush on an opaque background fills the gaps between its
    // lines with the background colour.
    const Qt::BrushStyle style = shape.fill ? shape.fill->style() : Qt::NoBrush;
    if (dc_.opaqueBackground && style >= Qt::HorPattern && style <= Qt::DiagCrossPattern)
        emitOp(out_.ops, {ShapeOp{shape.path, QBrush(dc_.backgroundColor), std::nullopt}, {}, mixComposition(dc_.mix)},
               dc_.clip);
    emitOp(out_.ops, {std::move(shape), {}, mixComposition(dc_.mix)}, dc_.clip);
}

// Continues the current figure from the current position: LineTo,
// PolylineTo, PolyBezierTo, ArcTo.
QPainterPath& Player::figureFromPosition(QPainterPath& scratch)
{
    QPainterPath& p = inPath_ ? path_ : scratch;
    if (!inPath_ || !figureOpen_ || p.currentPosition() != dc_.position)
        p.moveTo(dc_.position);
    figureOpen_ = inPath_;
    return p;
}

void Player::finishOpenFigure(const QPainterPath& scratch)
{
    if (!inPath_)
        addOp(scratch, false, true);
}

void Player::pathRecord(std::uint32_t type)
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

}  // namespace emf
