// SPDX-License-Identifier: GPL-2.0-or-later
// The drawing steps' shared guards: reach, clip capture and clip combining.
#include "platform/emf/emf_draw_op.h"

#include "platform/emf/emf_limits.h"

namespace emf {

QRectF reachOf(const DrawOp& op)
{
    if (const auto* image = std::get_if<ImageOp>(&op.what))
        return image->placement.mapRect(QRectF(image->image.rect()));
    return std::get<ShapeOp>(op.what).path.controlPointRect();
}

bool emitOp(std::vector<DrawOp>& out, DrawOp op, const std::optional<QPainterPath>& clip)
{
    if (!withinReach(reachOf(op)))
        return false;
    op.clip = clip;
    out.push_back(std::move(op));
    return true;
}

QPainterPath combinedClip(const std::optional<QPainterPath>& current, const QRectF& frame,
                          const QPainterPath& region, ClipCombine how)
{
    QPainterPath now;
    if (current)
        now = *current;
    else
        now.addRect(frame.adjusted(-kMaxReach, -kMaxReach, kMaxReach, kMaxReach));
    switch (how) {
    case ClipCombine::Replace: return region;
    case ClipCombine::Intersect: return now.intersected(region);
    case ClipCombine::Unite: return now.united(region);
    case ClipCombine::Xor: return now.united(region).subtracted(now.intersected(region));
    case ClipCombine::Exclude: return now.subtracted(region);
    case ClipCombine::Complement: return region.subtracted(now);
    }
    return region;
}

}  // namespace emf
