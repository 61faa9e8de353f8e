// SPDX-License-Identifier: GPL-2.0-or-later
// The records that change the drawing state: clipping, mapping, the world
// transform, saved states, fill mode, current position, objects.
#include "platform/emf/emf_player.h"

#include "platform/emf/emf_shapes.h"

#include <cmath>
#include <cstring>

namespace emf {

namespace {

QTransform fromXform(const U_XFORM& x)
{
    return QTransform(x.eM11, x.eM12, x.eM21, x.eM22, x.eDx, x.eDy);
}

}  // namespace

void Player::combineClip(const QPainterPath& region, std::uint32_t mode)
{
    ClipCombine how;
    switch (mode) {
    case U_RGN_AND: how = ClipCombine::Intersect; break;
    case U_RGN_OR: how = ClipCombine::Unite; break;
    case U_RGN_XOR: how = ClipCombine::Xor; break;
    case U_RGN_DIFF: how = ClipCombine::Exclude; break;
    case U_RGN_COPY: how = ClipCombine::Replace; break;
    default: return;
    }
    dc_.clip = combinedClip(dc_.clip, out_.frame, region, how);
}

void Player::clipRecord(std::uint32_t type, const char* rec)
{
    switch (type) {
    case U_EMR_INTERSECTCLIPRECT: case U_EMR_EXCLUDECLIPRECT: {
        QPainterPath box;
        box.addRect(boxOf(recordAs<U_EMRINTERSECTCLIPRECT>(rec).rclClip));
        combineClip(toDevice().map(box),
                    type == U_EMR_INTERSECTCLIPRECT ? U_RGN_AND : U_RGN_DIFF);
        return;
    }
    case U_EMR_SELECTCLIPPATH:
        if (inPath_)
            return;
        combineClip(path_, argumentOf(rec));
        path_ = QPainterPath();
        return;
    case U_EMR_EXTSELECTCLIPRGN: {
        const ClipRegionRecord r = readClipRegion(rec);
        if (r.empty) {
            if (r.mode == U_RGN_COPY)
                dc_.clip.reset();  // back to no clip
            return;
        }
        // Region rectangles are in device pixels already; damaged data
        // changes nothing.
        if (r.region)
            combineClip(*r.region, r.mode);
        return;
    }
    default:
        return;
    }
}

bool Player::scalableMapping() const
{
    return dc_.mapMode == U_MM_ISOTROPIC || dc_.mapMode == U_MM_ANISOTROPIC;
}

void Player::mappingRecord(std::uint32_t type, const char* rec)
{
    // Extents, origins and scale factors are all pairs after the record's
    // header; SetMapMode has its one mode there.
    const U_POINTL pair = fieldAt<U_POINTL>(rec, sizeof(U_EMR));
    const std::int32_t a = pair.x;
    const std::int32_t b = pair.y;
    switch (type) {
    case U_EMR_SETMAPMODE: {
        const std::uint32_t mode = argumentOf(rec);
        if (mode < U_MM_MIN || mode > U_MM_MAX)
            return;
        if (mode == U_MM_ISOTROPIC || mode == U_MM_ANISOTROPIC)
            keepExtentsOnSwitch(dc_, device_);  // until the file sets them
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
        const auto r = recordAs<U_EMRSCALEWINDOWEXTEX>(rec);
        if (!scalableMapping() || r.xNum == 0 || r.xDenom == 0 || r.yNum == 0 || r.yDenom == 0)
            return;
        QSizeF& ext = type == U_EMR_SCALEWINDOWEXTEX ? dc_.windowExt : dc_.viewportExt;
        ext = QSizeF(ext.width() * r.xNum / r.xDenom, ext.height() * r.yNum / r.yDenom);
        return;
    }
    default:
        return;
    }
}

void Player::worldRecord(std::uint32_t type, const char* rec)
{
    const QTransform m = fromXform(recordAs<U_EMRSETWORLDTRANSFORM>(rec).xform);
    QTransform next;
    if (type == U_EMR_SETWORLDTRANSFORM) {
        next = m;
    } else {
        switch (recordAs<U_EMRMODIFYWORLDTRANSFORM>(rec).iMode) {
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

void Player::stateRecord(std::uint32_t type, const char* rec)
{
    switch (type) {
    case U_EMR_SAVEDC:
        if (saved_.size() < kMaxSavedStates)
            saved_.push_back(dc_);
        return;
    case U_EMR_RESTOREDC: {
        // Negative: that many levels back; positive: that saved level.
        const std::int64_t n = recordAs<U_EMRRESTOREDC>(rec).iRelative;
        const std::int64_t depth = std::int64_t(saved_.size());
        const std::int64_t level = n < 0 ? depth + n + 1 : n;
        if (level < 1 || level > depth)
            return;
        dc_ = saved_[std::size_t(level - 1)];
        saved_.resize(std::size_t(level - 1));
        return;
    }
    case U_EMR_SETPOLYFILLMODE:
        dc_.windingFill = argumentOf(rec) == U_WINDING;
        return;
    case U_EMR_SETARCDIRECTION:
        dc_.clockwiseArcs = argumentOf(rec) == U_AD_CLOCKWISE;
        return;
    case U_EMR_SETMITERLIMIT: {
        // Written as an integer by some programs, as a float by others.
        const std::uint32_t bits = argumentOf(rec);
        const float f = fieldAt<float>(rec, offsetof(U_EMRSETMITERLIMIT, eMiterLimit));
        const double limit = bits < 0x10000 ? double(bits) : double(f);
        if (std::isfinite(limit) && limit >= 1 && limit < 1000)
            dc_.miterLimit = limit;
        return;
    }
    case U_EMR_SETROP2: {
        const std::uint32_t mix = argumentOf(rec);
        if (mix >= U_R2_BLACK && mix <= U_R2_WHITE)
            dc_.mix = mix;
        return;
    }
    case U_EMR_MOVETOEX:
        dc_.position = toDevice().map(pointOf(recordAs<U_EMRMOVETOEX>(rec).ptl));
        figureOpen_ = false;
        return;
    default:
        return;
    }
}

void Player::objectRecord(std::uint32_t type, const char* rec, std::uint32_t size)
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
        objects_.create(recordAs<U_EMREXTCREATEPEN>(rec).ihPen,
                        penFromExtLogPen(lp, rec + offsetof(U_EMREXTCREATEPEN, elp) +
                                                 offsetof(U_EXTLOGPEN, elpStyleEntry)));
        return;
    }
    case U_EMR_CREATEBRUSHINDIRECT: {
        U_EMRCREATEBRUSHINDIRECT r;
        std::memcpy(&r, rec, sizeof r);
        objects_.create(r.ihBrush, brushFromLogBrush(r.lb));
        return;
    }
    case U_EMR_CREATEMONOBRUSH: case U_EMR_CREATEDIBPATTERNBRUSHPT: {
        const PatternBrushRecord r = readPatternBrush(rec);
        objects_.create(r.index, patternBrush(rec, size, r.bitmap));
        return;
    }
    case U_EMR_CREATEPALETTE:
    case U_EMR_CREATECOLORSPACE: case U_EMR_CREATECOLORSPACEW:
        objects_.create(argumentOf(rec), OtherObject{});
        return;
    case U_EMR_SELECTOBJECT:
        objects_.select(argumentOf(rec), dc_);
        return;
    case U_EMR_DELETEOBJECT:
        objects_.remove(argumentOf(rec));
        return;
    default:
        return;
    }
}

}  // namespace emf
