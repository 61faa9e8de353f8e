// SPDX-License-Identifier: GPL-2.0-or-later
// EMF+ records in order: the dispatch by record family, the records that
// change the drawing state or define objects, and the one output path.
#include "platform/emf/emf_plus_player.h"

#include <cstring>

namespace emf {

namespace plus {

QTransform PlusPlayer::toDevice() const
{
    const double sx = unitScale(state_.pageUnit, device_.dpiX) * state_.pageScale;
    const double sy = unitScale(state_.pageUnit, device_.dpiY) * state_.pageScale;
    return state_.world * QTransform::fromScale(sx, sy);
}

std::optional<QBrush> PlusPlayer::brushOf(std::uint16_t flags, std::uint32_t id) const
{
    if (flags & flag::kColourBrush)
        return QBrush(QColor::fromRgba(id));
    if (const auto* b = find<Brush>(id))
        return b->brush;
    return std::nullopt;
}

void PlusPlayer::fill(const QPainterPath& world, const QBrush& brush)
{
    ShapeOp shape{toDevice().map(world), brush, std::nullopt};
    // Gradients were given in world units.
    if (brush.gradient())
        shape.fill->setTransform(toDevice());
    emitOp(out_, {std::move(shape), {}, QPainter::CompositionMode_SourceOver}, state_.clip);
}

void PlusPlayer::stroke(const QPainterPath& world, std::uint32_t penId)
{
    const Pen* pen = find<Pen>(penId);
    if (!pen)
        return;
    Stroke s;
    s.color = pen->brush.color();
    if (pen->brush.gradient() && !pen->brush.gradient()->stops().isEmpty())
        s.color = pen->brush.gradient()->stops().front().second;
    s.width = std::min(pen->width * linearScale(toDevice()), kMaxPenWidth);
    s.cap = pen->cap;
    s.join = pen->join;
    s.miterLimit = pen->miterLimit;
    s.style = pen->style;
    emitOp(out_, {ShapeOp{toDevice().map(world), std::nullopt, s}, {}, QPainter::CompositionMode_SourceOver},
           state_.clip);
}

// Fill records name a brush (or colour) in their data, draw records a pen
// in their flags.
void PlusPlayer::fillOrStroke(const QPainterPath& world, bool filled, std::uint16_t flags, std::uint32_t brushId)
{
    if (!filled)
        stroke(world, flags & flag::kObjectId);
    else if (const auto brush = brushOf(flags, brushId))
        fill(world, *brush);
}

void PlusPlayer::image(std::uint32_t id, const QRectF& source, const QTransform& sourceToWorld)
{
    const auto* img = find<Image>(id);
    if (!img)
        return;
    const QRect part = (source & QRectF(img->image.rect())).toAlignedRect() & img->image.rect();
    if (part.isEmpty())
        return;
    const QTransform placement = QTransform::fromTranslate(part.x(), part.y()) * sourceToWorld * toDevice();
    emitOp(out_, {ImageOp{img->image.copy(part), placement}, {}, QPainter::CompositionMode_SourceOver},
           state_.clip);
}

void PlusPlayer::clip(const QPainterPath& device, int mode)
{
    if (mode < 0 || mode > int(ClipCombine::Complement))
        return;
    state_.clip = combinedClip(state_.clip, device_.frame, device, ClipCombine(mode));
}

void PlusPlayer::headerRecord(Reader& r)
{
    r.u32();  // version
    r.u32();  // whether the picture was made for a video display
    const double dx = r.u32();
    const double dy = r.u32();
    if (r.ok() && dx >= 10 && dx <= 10000 && dy >= 10 && dy <= 10000) {
        device_.dpiX = dx;
        device_.dpiY = dy;
    }
}

void PlusPlayer::objectRecord(std::uint16_t flags, const char* data, std::size_t size)
{
    const std::uint32_t id = flags & flag::kObjectId;
    const char* bytes = data;
    std::size_t length = size;
    if (flags & flag::kContinued) {  // the total size, then this part
        if (size < 4)
            return;
        std::uint32_t total;
        std::memcpy(&total, data, 4);
        if (pending_.size() + size - 4 > total || total > kMaxPlusObjectBytes)
            return;
        pending_.insert(pending_.end(), data + 4, data + size);
        if (pending_.size() < total)
            return;
        bytes = pending_.data();
        length = pending_.size();
    } else if (!pending_.empty()) {  // the last part of a continued object
        pending_.insert(pending_.end(), data, data + size);
        bytes = pending_.data();
        length = pending_.size();
    }
    if (id < objects_.size())
        objects_[id] = readObject(highByte(flags, 0x7f), bytes, length, device_.bitmapPixels);
    pending_.clear();
}

void PlusPlayer::stateRecord(std::uint16_t type, Reader& r)
{
    if (type == kRestore || type == kEndContainer) {
        const auto it = saved_.find(r.u32());
        if (it != saved_.end()) {
            state_ = it->second;
            saved_.erase(it, saved_.end());
        }
        return;
    }
    if (type == kBeginContainer)
        r.skip(32);  // the container's rectangles: its drawing keeps our transform
    const std::uint32_t index = r.u32();
    if (r.ok() && saved_.size() < kMaxSavedStates)
        saved_[index] = state_;
}

void PlusPlayer::transformRecord(std::uint16_t type, std::uint16_t flags, Reader& r)
{
    if (type == kSetPageTransform) {
        const double scale = sane(r.f32());
        if (r.ok() && saneFactor(scale)) {
            state_.pageUnit = flags & 0xff;
            state_.pageScale = scale;
        }
        return;
    }
    QTransform m;
    if (type == kSetWorldTransform || type == kMultiplyWorldTransform) {
        const double a = sane(r.f32()), b = sane(r.f32()), c = sane(r.f32()), d = sane(r.f32());
        const double e = sane(r.f32()), f = sane(r.f32());
        m = QTransform(a, b, c, d, e, f);
    } else if (type == kTranslateWorldTransform) {
        const double dx = sane(r.f32());
        m = QTransform::fromTranslate(dx, sane(r.f32()));
    } else if (type == kScaleWorldTransform) {
        const double sx = sane(r.f32());
        m = QTransform::fromScale(sx, sane(r.f32()));
    } else if (type == kRotateWorldTransform) {
        m.rotate(sane(r.f32()));
    }
    if (!r.ok())
        return;
    QTransform next = m;
    if (type != kSetWorldTransform && type != kResetWorldTransform)
        next = (flags & flag::kPostMultiply) ? state_.world * m : m * state_.world;
    if (usableTransform(next))
        state_.world = next;
}

void PlusPlayer::clipRecord(std::uint16_t type, std::uint16_t flags, Reader& r)
{
    const int mode = highByte(flags, 0xf);
    switch (type) {
    case kResetClip:
        state_.clip.reset();
        return;
    case kSetClipRect:
        if (const auto rect = readRect(r, false)) {
            QPainterPath box;
            box.addRect(*rect);
            clip(toDevice().map(box), mode);
        }
        return;
    case kSetClipPath:
        if (const auto* path = find<Path>(flags & flag::kObjectId))
            clip(toDevice().map(path->path), mode);
        return;
    case kOffsetClip: {
        const double dx = sane(r.f32());
        const double dy = sane(r.f32());
        if (r.ok() && state_.clip)
            state_.clip = toDevice().map(QTransform::fromTranslate(dx, dy).map(toDevice().inverted().map(*state_.clip)));
        return;
    }
    default:
        return;
    }
}

void PlusPlayer::play(std::uint16_t type, std::uint16_t flags, const char* data, std::size_t size)
{
    Reader r(data, size);
    switch (type) {
    case kHeader: headerRecord(r); return;
    case kObject: objectRecord(flags, data, size); return;
    case kClear: {
        QPainterPath all;
        all.addRect(device_.frame);
        emitOp(out_, {ShapeOp{all, QBrush(QColor::fromRgba(r.u32())), std::nullopt}, {},
                      QPainter::CompositionMode_SourceOver}, state_.clip);
        return;
    }
    case kFillRects: case kDrawRects: case kFillPolygon: case kDrawLines: case kDrawBeziers:
    case kFillEllipse: case kDrawEllipse: case kFillPie: case kDrawPie: case kDrawArc:
    case kFillPath: case kDrawPath:
        shapeRecord(type, flags, r);
        return;
    case kFillClosedCurve: case kDrawClosedCurve: case kDrawCurve: curveRecord(type, flags, r); return;
    case kDrawImage: case kDrawImagePoints: imageRecord(type, flags, r); return;
    case kDrawString: stringRecord(flags, r); return;
    case kDrawDriverString: driverStringRecord(flags, r); return;
    case kSave: case kBeginContainer: case kBeginContainerNoParams: case kRestore: case kEndContainer:
        stateRecord(type, r);
        return;
    case kSetWorldTransform: case kMultiplyWorldTransform: case kTranslateWorldTransform:
    case kScaleWorldTransform: case kRotateWorldTransform: case kResetWorldTransform: case kSetPageTransform:
        transformRecord(type, flags, r);
        return;
    case kResetClip: case kSetClipRect: case kSetClipPath: case kOffsetClip: clipRecord(type, flags, r); return;
    default:
        return;
    }
}

}  // namespace plus

bool isPlusComment(const char* data, std::size_t size)
{
    return size >= 4 && std::memcmp(data, "EMF+", 4) == 0;
}

void playPlus(const std::vector<PlusChunk>& chunks, const PlusDevice& device, std::vector<DrawOp>& out)
{
    plus::PlusPlayer player(device, out);
    for (const PlusChunk& chunk : chunks) {
        std::size_t at = 4;  // after the signature
        while (chunk.size - at >= 12 && at < chunk.size) {
            // Type, flags, the record's size and its data's size.
            plus::Reader head(chunk.data + at, 12);
            const std::uint16_t type = head.u16();
            const std::uint16_t flags = head.u16();
            const std::uint32_t size = head.u32();
            const std::uint32_t dataSize = head.u32();
            if (size < 12 || size > chunk.size - at || dataSize > size - 12)
                break;
            player.play(type, flags, chunk.data + at + 12, dataSize);
            at += size;
        }
    }
}

}  // namespace emf
