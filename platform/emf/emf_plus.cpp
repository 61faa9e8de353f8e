// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_plus.h"

#include "platform/emf/emf_plus_objects.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QRawFont>

#include <array>
#include <cmath>
#include <cstring>
#include <map>

namespace emf {

namespace {

using namespace plus;

// Shapes reaching further than this are damage, not drawing.
constexpr double kMaxReach = 1 << 24;
constexpr std::size_t kMaxStringLength = 4096;
constexpr std::size_t kMaxSavedStates = 4096;

enum : std::uint16_t {
    kHeader = 0x4001, kObject = 0x4008, kClear = 0x4009, kFillRects, kDrawRects, kFillPolygon,
    kDrawLines, kFillEllipse, kDrawEllipse, kFillPie, kDrawPie, kDrawArc, kFillRegion, kFillPath,
    kDrawPath, kFillClosedCurve, kDrawClosedCurve, kDrawCurve, kDrawBeziers, kDrawImage,
    kDrawImagePoints, kDrawString, kSave = 0x4025, kRestore, kBeginContainer,
    kBeginContainerNoParams, kEndContainer, kSetWorldTransform, kResetWorldTransform,
    kMultiplyWorldTransform, kTranslateWorldTransform, kScaleWorldTransform, kRotateWorldTransform,
    kSetPageTransform, kResetClip, kSetClipRect, kSetClipPath, kSetClipRegion, kOffsetClip,
    kDrawDriverString,
};

struct State {
    QTransform world;
    std::uint32_t pageUnit = 2;  // pixels
    double pageScale = 1;
    bool clipped = false;
    QPainterPath clip;  // device pixels
};

double scaleOf(const QTransform& t)
{
    return std::sqrt(std::abs(t.m11() * t.m22() - t.m12() * t.m21()));
}

bool usable(const QTransform& t)
{
    const double parts[] = {t.m11(), t.m12(), t.m21(), t.m22(), t.dx(), t.dy()};
    for (double v : parts)
        if (!std::isfinite(v) || std::abs(v) > 1e9)
            return false;
    return scaleOf(t) > 1e-9;
}

// A closed or open cardinal spline through the points, as Béziers.
QPainterPath curveThrough(const std::vector<QPointF>& p, double tension, bool closed)
{
    QPainterPath path;
    const std::size_t n = p.size();
    if (n < 2)
        return path;
    const double k = tension / 3;
    auto at = [&](std::ptrdiff_t i) {
        if (closed)
            return p[std::size_t((i % std::ptrdiff_t(n) + std::ptrdiff_t(n)) % std::ptrdiff_t(n))];
        return p[std::size_t(std::clamp<std::ptrdiff_t>(i, 0, std::ptrdiff_t(n) - 1))];
    };
    path.moveTo(p[0]);
    const std::size_t segments = closed ? n : n - 1;
    for (std::size_t i = 0; i < segments; ++i) {
        const auto s = std::ptrdiff_t(i);
        const QPointF c1 = at(s) + (at(s + 1) - at(s - 1)) * k;
        const QPointF c2 = at(s + 1) - (at(s + 2) - at(s)) * k;
        path.cubicTo(c1, c2, at(s + 1));
    }
    if (closed)
        path.closeSubpath();
    return path;
}

class PlusPlayer {
public:
    PlusPlayer(const PlusDevice& device, std::vector<DrawOp>& out) : device_(device), out_(out) {}
    void play(std::uint16_t type, std::uint16_t flags, const char* data, std::size_t size);

private:
    double unitScale(std::uint32_t unit, bool vertical = false) const;
    QTransform toDevice() const;
    std::optional<QBrush> brushOf(std::uint16_t flags, std::uint32_t id) const;
    const Pen* penOf(std::uint32_t id) const;
    void fill(const QPainterPath& world, const QBrush& brush);
    void stroke(const QPainterPath& world, std::uint32_t penId);
    void place(DrawOp op);
    void image(std::uint32_t id, const QRectF& source, const QTransform& sourceToWorld);
    void text(std::uint16_t flags, Reader& r);
    void placedText(std::uint16_t flags, Reader& r);
    std::optional<QFont> fontAt(std::uint32_t id, double& scale) const;
    void clip(const QPainterPath& device, int mode);
    void object(std::uint16_t flags, const char* data, std::size_t size);
    template <class T>
    const T* find(std::uint32_t id) const
    {
        return id < objects_.size() && objects_[id] ? std::get_if<T>(&*objects_[id]) : nullptr;
    }

    PlusDevice device_;
    std::vector<DrawOp>& out_;
    State state_;
    std::map<std::uint32_t, State> saved_;
    std::array<std::optional<Object>, 64> objects_;
    std::vector<char> pending_;  // an object arriving in several records
    std::size_t charactersLeft_ = 16 * kMaxStringLength;  // laying out text is slow
};

double PlusPlayer::unitScale(std::uint32_t unit, bool vertical) const
{
    const double dpi = vertical ? device_.dpiY : device_.dpiX;
    switch (unit) {
    case 3: return dpi / 72;   // points
    case 4: return dpi;        // inches
    case 5: return dpi / 300;  // document units
    case 6: return dpi / 25.4; // millimetres
    default: return 1;         // world, display and pixels
    }
}

QTransform PlusPlayer::toDevice() const
{
    const double sx = unitScale(state_.pageUnit) * state_.pageScale;
    const double sy = unitScale(state_.pageUnit, true) * state_.pageScale;
    return state_.world * QTransform::fromScale(sx, sy);
}

std::optional<QBrush> PlusPlayer::brushOf(std::uint16_t flags, std::uint32_t id) const
{
    if (flags & 0x8000)
        return QBrush(QColor::fromRgba(id));
    if (const auto* b = find<Brush>(id))
        return b->brush;
    return std::nullopt;
}

const Pen* PlusPlayer::penOf(std::uint32_t id) const
{
    return find<Pen>(id);
}

void PlusPlayer::place(DrawOp op)
{
    const QRectF box = op.path.controlPointRect();
    const double edges[] = {box.left(), box.right(), box.top(), box.bottom()};
    for (double v : edges)
        if (!std::isfinite(v) || std::abs(v) > kMaxReach)
            return;
    op.clipped = state_.clipped;
    if (op.clipped)
        op.clip = state_.clip;
    out_.push_back(std::move(op));
}

void PlusPlayer::fill(const QPainterPath& world, const QBrush& brush)
{
    DrawOp op;
    op.path = toDevice().map(world);
    op.filled = true;
    op.brush = brush;
    // Gradients were given in world units.
    if (brush.gradient())
        op.brush.setTransform(toDevice());
    place(std::move(op));
}

void PlusPlayer::stroke(const QPainterPath& world, std::uint32_t penId)
{
    const Pen* pen = penOf(penId);
    if (!pen)
        return;
    DrawOp op;
    op.path = toDevice().map(world);
    op.stroked = true;
    op.stroke.color = pen->brush.color();
    if (pen->brush.gradient() && !pen->brush.gradient()->stops().isEmpty())
        op.stroke.color = pen->brush.gradient()->stops().front().second;
    op.stroke.width = std::min(pen->width * scaleOf(toDevice()), 10000.0);
    op.stroke.cap = pen->cap;
    op.stroke.join = pen->join;
    op.stroke.miterLimit = pen->miterLimit;
    op.stroke.style = pen->style;
    place(std::move(op));
}

void PlusPlayer::image(std::uint32_t id, const QRectF& source, const QTransform& sourceToWorld)
{
    const auto* img = find<Image>(id);
    if (!img)
        return;
    const QRect part = (source & QRectF(img->image.rect())).toAlignedRect() & img->image.rect();
    if (part.isEmpty())
        return;
    DrawOp op;
    op.image = img->image.copy(part);
    op.placement = QTransform::fromTranslate(part.x(), part.y()) * sourceToWorld * toDevice();
    op.path.addRect(op.placement.mapRect(QRectF(op.image.rect())));
    place(std::move(op));
}

void PlusPlayer::text(std::uint16_t flags, Reader& r)
{
    const std::uint32_t brushId = r.u32();
    const std::uint32_t formatId = r.u32();
    const std::uint32_t length = r.u32();
    const auto layout = readRect(r, false);
    const std::uint32_t fontId = flags & 0xff;
    if (!layout || length > r.left() / 2 || length > kMaxStringLength || length > charactersLeft_)
        return;
    charactersLeft_ -= length;
    double scale = 0;
    const auto qfont = fontAt(fontId, scale);
    const auto brush = brushOf(flags, brushId);
    if (!qfont || !brush)
        return;
    std::u16string chars(length, u'\0');
    std::memcpy(chars.data(), r.here(), 2 * std::size_t(length));
    const QString string = QString::fromStdU16String(chars);
    const QFontMetricsF metrics(*qfont);
    int align = 0;
    int lineAlign = 0;
    if (const auto* f = find<StringFormat>(formatId)) {
        align = f->align;
        lineAlign = f->lineAlign;
    }
    QPainterPath glyphs;
    const QStringList lines = string.split(QChar('\n'));
    const double lineHeight = metrics.lineSpacing() * scale;
    const double blockHeight = lineHeight * double(lines.size());
    double y = layout->y();
    if (layout->height() > 0 && lineAlign == 1)
        y += (layout->height() - blockHeight) / 2;
    else if (layout->height() > 0 && lineAlign == 2)
        y += layout->height() - blockHeight;
    for (const QString& line : lines) {
        const double width = metrics.horizontalAdvance(line) * scale;
        double x = layout->x();
        if (layout->width() > 0 && align == 1)
            x += (layout->width() - width) / 2;
        else if (layout->width() > 0 && align == 2)
            x += layout->width() - width;
        QPainterPath one;
        one.addText(0, metrics.ascent(), *qfont, line);
        glyphs.addPath(QTransform(scale, 0, 0, scale, x, y).map(one));
        y += lineHeight;
    }
    glyphs.setFillRule(Qt::WindingFill);
    fill(glyphs, *brush);
}

// The font object `id` laid out 1000 pixels large, and `scale`, the world
// units one of its pixels makes.
std::optional<QFont> PlusPlayer::fontAt(std::uint32_t id, double& scale) const
{
    const auto* font = find<Font>(id);
    // Fonts need the application's font database.
    if (!font || !qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return std::nullopt;
    // The em size in world units.
    const double devicePerWorld = scaleOf(toDevice());
    double em = font->emSize;
    if (font->unit != 0 && devicePerWorld > 0)
        em = font->emSize * unitScale(font->unit) / devicePerWorld;
    if (!(em > 0) || em > kMaxReach)
        return std::nullopt;
    QFont qfont(font->family);
    qfont.setPixelSize(1000);  // laid out large, then scaled to the em size
    qfont.setBold(font->style & 1);
    qfont.setItalic(font->style & 2);
    qfont.setUnderline(font->style & 4);
    qfont.setStrikeOut(font->style & 8);
    scale = em / 1000;
    return qfont;
}

// Glyphs each at its own point of the baseline: characters where the record
// says so, otherwise the font's own glyph numbers; with "realized advance"
// only the first point is given and the font's advances place the rest.
void PlusPlayer::placedText(std::uint16_t flags, Reader& r)
{
    const std::uint32_t brushId = r.u32();
    const std::uint32_t options = r.u32();
    const std::uint32_t matrixPresent = r.u32();
    const std::uint32_t count = r.u32();
    if (!r.ok() || count > kMaxStringLength || count > charactersLeft_ || std::uint64_t(count) * 10 > r.left())
        return;
    charactersLeft_ -= count;
    double scale = 0;
    const auto qfont = fontAt(flags & 0xff, scale);
    const auto brush = brushOf(flags, brushId);
    if (!qfont || !brush)
        return;
    std::vector<std::uint16_t> codes(count);
    for (std::uint16_t& c : codes)
        c = r.u16();
    std::vector<QPointF> at(count);
    for (QPointF& p : at) {
        const double x = r.f32();
        p = QPointF(x, r.f32());
    }
    QTransform turn;
    if (matrixPresent) {
        float m[6];
        for (float& v : m)
            v = r.f32();
        turn = QTransform(m[0], m[1], m[2], m[3], m[4], m[5]);
    }
    if (!r.ok() || !usable(turn))
        return;
    const bool characters = options & 1;
    const bool realizedAdvance = options & 4;
    const QRawFont raw = QRawFont::fromFont(*qfont);
    QPainterPath glyphs;
    QPointF pen = count ? at[0] : QPointF();
    for (std::size_t i = 0; i < count; ++i) {
        quint32 glyph = codes[i];
        if (characters) {
            const QList<quint32> found = raw.glyphIndexesForString(QString(QChar(codes[i])));
            glyph = found.value(0);
        }
        if (!realizedAdvance)
            pen = at[i];
        const QPainterPath one = raw.pathForGlyph(glyph);
        glyphs.addPath(QTransform(scale, 0, 0, scale, 0, 0).map(one).translated(pen));
        if (realizedAdvance)
            pen.rx() += raw.advancesForGlyphIndexes(QList<quint32>{glyph}).value(0).x() * scale;
    }
    glyphs.setFillRule(Qt::WindingFill);
    fill(turn.map(glyphs), *brush);
}

void PlusPlayer::clip(const QPainterPath& device, int mode)
{
    QPainterPath everything;
    everything.addRect(device_.frame.adjusted(-kMaxReach, -kMaxReach, kMaxReach, kMaxReach));
    const QPainterPath current = state_.clipped ? state_.clip : everything;
    switch (mode) {
    case 0: state_.clip = device; break;
    case 1: state_.clip = current.intersected(device); break;
    case 2: state_.clip = current.united(device); break;
    case 3: state_.clip = current.united(device).subtracted(current.intersected(device)); break;
    case 4: state_.clip = current.subtracted(device); break;
    case 5: state_.clip = device.subtracted(current); break;
    default: return;
    }
    state_.clipped = true;
}

void PlusPlayer::object(std::uint16_t flags, const char* data, std::size_t size)
{
    const std::uint32_t id = flags & 0xff;
    const int type = (flags >> 8) & 0x7f;
    const char* bytes = data;
    std::size_t length = size;
    if (flags & 0x8000) {  // continued: the total size, then this part
        if (size < 4)
            return;
        std::uint32_t total;
        std::memcpy(&total, data, 4);
        if (pending_.size() + size - 4 > total || total > 64u * 1024 * 1024)
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
        objects_[id] = readObject(type, bytes, length, device_.bitmapPixels);
    pending_.clear();
}

void PlusPlayer::play(std::uint16_t type, std::uint16_t flags, const char* data, std::size_t size)
{
    Reader r(data, size);
    const bool compressed = flags & 0x4000;
    switch (type) {
    case kHeader: {
        r.u32();
        r.u32();
        const double dx = r.u32();
        const double dy = r.u32();
        if (r.ok() && dx >= 10 && dx <= 10000 && dy >= 10 && dy <= 10000) {
            device_.dpiX = dx;
            device_.dpiY = dy;
        }
        return;
    }
    case kObject:
        object(flags, data, size);
        return;
    case kClear: {
        QPainterPath all;
        all.addRect(device_.frame);
        DrawOp op;
        op.path = all;
        op.filled = true;
        op.brush = QBrush(QColor::fromRgba(r.u32()));
        place(std::move(op));
        return;
    }
    case kFillRects: case kDrawRects: {
        const std::uint32_t brushId = type == kFillRects ? r.u32() : 0;
        const std::uint32_t count = r.u32();
        if (std::uint64_t(count) * (compressed ? 8 : 16) > r.left())
            return;
        QPainterPath rects;
        for (std::uint32_t i = 0; i < count; ++i)
            if (const auto rect = readRect(r, compressed))
                rects.addRect(*rect);
        if (type == kDrawRects)
            stroke(rects, flags & 0xff);
        else if (const auto brush = brushOf(flags, brushId))
            fill(rects, *brush);
        return;
    }
    case kFillPolygon: case kDrawLines: case kDrawBeziers: {
        const std::uint32_t brushId = type == kFillPolygon ? r.u32() : 0;
        const auto points = readPoints(r, r.u32(), compressed, flags & 0x0800);
        if (!points || points->size() < 2)
            return;
        QPainterPath path;
        if (type == kDrawBeziers) {
            path.moveTo((*points)[0]);
            for (std::size_t i = 1; i + 2 < points->size(); i += 3)
                path.cubicTo((*points)[i], (*points)[i + 1], (*points)[i + 2]);
        } else {
            path.addPolygon(QPolygonF(QList<QPointF>(points->begin(), points->end())));
            if (type == kFillPolygon || (flags & 0x2000))
                path.closeSubpath();
        }
        if (type != kFillPolygon)
            stroke(path, flags & 0xff);
        else if (const auto brush = brushOf(flags, brushId))
            fill(path, *brush);
        return;
    }
    case kFillEllipse: case kDrawEllipse: case kFillPie: case kDrawPie: case kDrawArc: {
        const bool filled = type == kFillEllipse || type == kFillPie;
        const std::uint32_t brushId = filled ? r.u32() : 0;
        const bool arc = type == kFillPie || type == kDrawPie || type == kDrawArc;
        const double start = arc ? sane(r.f32()) : 0;
        const double sweep = arc ? std::clamp(sane(r.f32()), -360.0, 360.0) : 0;
        const auto rect = readRect(r, compressed);
        if (!rect)
            return;
        QPainterPath path;
        if (!arc) {
            path.addEllipse(*rect);
        } else {
            // Angles run clockwise from the x axis, as y points down.
            if (type != kDrawArc)
                path.moveTo(rect->center());
            else
                path.arcMoveTo(*rect, -start);
            path.arcTo(*rect, -start, -sweep);
            if (type != kDrawArc)
                path.closeSubpath();
        }
        if (!filled)
            stroke(path, flags & 0xff);
        else if (const auto brush = brushOf(flags, brushId))
            fill(path, *brush);
        return;
    }
    case kFillPath: case kDrawPath: {
        const std::uint32_t other = r.u32();  // brush or pen
        const std::uint32_t pathId = flags & 0xff;
        const auto* path = find<Path>(pathId);
        if (!r.ok() || !path)
            return;
        if (type == kDrawPath)
            stroke(path->path, other);
        else if (const auto brush = brushOf(flags, other))
            fill(path->path, *brush);
        return;
    }
    case kFillClosedCurve: case kDrawClosedCurve: case kDrawCurve: {
        const std::uint32_t brushId = type == kFillClosedCurve ? r.u32() : 0;
        const double tension = sane(r.f32());
        if (type == kDrawCurve)
            r.skip(8);  // offset and segment count: the whole curve is drawn
        const auto points = readPoints(r, r.u32(), compressed, flags & 0x0800);
        if (!points)
            return;
        QPainterPath path = curveThrough(*points, tension, type != kDrawCurve);
        if (type == kFillClosedCurve) {
            path.setFillRule(flags & 0x2000 ? Qt::WindingFill : Qt::OddEvenFill);
            if (const auto brush = brushOf(flags, brushId))
                fill(path, *brush);
        } else {
            stroke(path, flags & 0xff);
        }
        return;
    }
    case kDrawImage: case kDrawImagePoints: {
        r.u32();  // image attributes
        r.u32();  // the source's unit: pixels, in practice
        const auto source = readRect(r, false);
        if (!source || source->width() <= 0 || source->height() <= 0)
            return;
        if (type == kDrawImage) {
            const auto dest = readRect(r, compressed);
            if (!dest)
                return;
            QTransform t = QTransform::fromTranslate(-source->x(), -source->y());
            t *= QTransform::fromScale(dest->width() / source->width(), dest->height() / source->height());
            t *= QTransform::fromTranslate(dest->x(), dest->y());
            if (usable(t))
                image(flags & 0xff, *source, t);
            return;
        }
        const auto p = readPoints(r, r.u32(), compressed, flags & 0x0800);
        if (!p || p->size() != 3)
            return;
        const QPointF u = ((*p)[1] - (*p)[0]) / source->width();
        const QPointF v = ((*p)[2] - (*p)[0]) / source->height();
        const QTransform t(u.x(), u.y(), v.x(), v.y(), (*p)[0].x() - u.x() * source->x() - v.x() * source->y(),
                           (*p)[0].y() - u.y() * source->x() - v.y() * source->y());
        if (usable(t))
            image(flags & 0xff, *source, t);
        return;
    }
    case kDrawString:
        text(flags, r);
        return;
    case kDrawDriverString:
        placedText(flags, r);
        return;
    case kSave: case kBeginContainer: case kBeginContainerNoParams: {
        if (type == kBeginContainer)
            r.skip(32);  // the container's rectangles: its drawing keeps our transform
        const std::uint32_t index = r.u32();
        if (r.ok() && saved_.size() < kMaxSavedStates)
            saved_[index] = state_;
        return;
    }
    case kRestore: case kEndContainer: {
        const auto it = saved_.find(r.u32());
        if (it != saved_.end()) {
            state_ = it->second;
            saved_.erase(it, saved_.end());
        }
        return;
    }
    case kSetWorldTransform: case kMultiplyWorldTransform: case kTranslateWorldTransform:
    case kScaleWorldTransform: case kRotateWorldTransform: case kResetWorldTransform: {
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
            next = (flags & 0x2000) ? state_.world * m : m * state_.world;
        if (usable(next))
            state_.world = next;
        return;
    }
    case kSetPageTransform: {
        const double scale = sane(r.f32());
        if (r.ok() && scale > 1e-6 && scale < 1e6) {
            state_.pageUnit = flags & 0xff;
            state_.pageScale = scale;
        }
        return;
    }
    case kResetClip:
        state_.clipped = false;
        return;
    case kSetClipRect: {
        if (const auto rect = readRect(r, false)) {
            QPainterPath box;
            box.addRect(*rect);
            clip(toDevice().map(box), flags >> 8 & 0xf);
        }
        return;
    }
    case kSetClipPath: {
        if (const auto* path = find<Path>(flags & 0xff))
            clip(toDevice().map(path->path), flags >> 8 & 0xf);
        return;
    }
    case kOffsetClip: {
        const double dx = sane(r.f32());
        const double dy = sane(r.f32());
        if (r.ok() && state_.clipped)
            state_.clip = toDevice().map(QTransform::fromTranslate(dx, dy).map(toDevice().inverted().map(state_.clip)));
        return;
    }
    default:
        return;
    }
}

}  // namespace

bool isPlusComment(const char* data, std::size_t size)
{
    return size >= 4 && std::memcmp(data, "EMF+", 4) == 0;
}

void playPlus(const std::vector<PlusChunk>& chunks, const PlusDevice& device, std::vector<DrawOp>& out)
{
    PlusPlayer player(device, out);
    for (const PlusChunk& chunk : chunks) {
        std::size_t at = 4;  // after the signature
        while (chunk.size - at >= 12 && at < chunk.size) {
            std::uint16_t type, flags;
            std::uint32_t size, dataSize;
            std::memcpy(&type, chunk.data + at, 2);
            std::memcpy(&flags, chunk.data + at + 2, 2);
            std::memcpy(&size, chunk.data + at + 4, 4);
            std::memcpy(&dataSize, chunk.data + at + 8, 4);
            if (size < 12 || size > chunk.size - at || dataSize > size - 12)
                break;
            player.play(type, flags, chunk.data + at + 12, dataSize);
            at += size;
        }
    }
}

}  // namespace emf
