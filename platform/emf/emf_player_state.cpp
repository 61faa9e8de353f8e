// SPDX-License-Identifier: GPL-2.0-or-later
// The records that change the drawing state: clipping, mapping, the world
// transform, saved states, fill mode, current position, objects.
#include "platform/emf/emf_player.h"

#include "platform/emf/emf_shapes.h"

#include <cmath>
#include <cstring>

namespace emf {

namespace {

constexpr std::size_t kMaxSavedStates = 4096;

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

}  // namespace

void Player::combineClip(const QPainterPath& region, std::uint32_t mode)
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

void Player::clipRecord(std::uint32_t type, const char* rec)
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

bool Player::scalableMapping() const
{
    return dc_.mapMode == U_MM_ISOTROPIC || dc_.mapMode == U_MM_ANISOTROPIC;
}

void Player::mappingRecord(std::uint32_t type, const char* rec)
{
    const std::int32_t a = readI32(rec, 8);
    const std::int32_t b = readI32(rec, 12);
    switch (type) {
    case U_EMR_SETMAPMODE: {
        const std::uint32_t mode = std::uint32_t(a);
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

void Player::worldRecord(std::uint32_t type, const char* rec)
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

void Player::stateRecord(std::uint32_t type, const char* rec)
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
    case U_EMR_SETROP2: {
        const std::uint32_t mix = readU32(rec, 8);
        if (mix >= U_R2_BLACK && mix <= U_R2_WHITE)
            dc_.mix = mix;
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
        objects_.create(readU32(rec, 8),
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
        objects_.create(readU32(rec, 8), patternBrush(rec, size));
        return;
    }
    case U_EMR_CREATEPALETTE:
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

}  // namespace emf
