// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_plus_objects.h"

#include "platform/emf/emf_dib.h"
#include "platform/emf/emf_limits.h"

#include <QLinearGradient>

#include <cmath>
#include <cstring>

namespace emf::plus {

namespace {

enum ObjectType { kBrush = 1, kPen, kPath, kRegion, kImage, kFont, kStringFormat };

QColor argb(std::uint32_t v)
{
    return QColor::fromRgba(v);
}

Qt::PenCapStyle capOf(std::int32_t cap)
{
    switch (cap) {
    case 1: return Qt::SquareCap;
    case 2: return Qt::RoundCap;
    default: return Qt::FlatCap;
    }
}

std::optional<Object> readPen(Reader& r)
{
    Pen pen;
    r.u32();  // type
    const std::uint32_t flags = r.u32();
    const std::uint32_t unit = r.u32();
    pen.width = sane(r.f32());
    pen.width *= unitScale(unit, 96);  // roughly: the pen does not know the device
    if (flags & 0x01)
        r.skip(24);  // the pen's own transform
    if (flags & 0x02)
        pen.cap = capOf(r.i32());
    if (flags & 0x04)
        r.i32();  // end cap: the start cap stands for both
    if (flags & 0x08) {
        switch (r.u32()) {
        case 1: pen.join = Qt::BevelJoin; break;
        case 2: pen.join = Qt::RoundJoin; break;
        default: pen.join = Qt::MiterJoin; break;
        }
    }
    if (flags & 0x10) {
        const double limit = sane(r.f32());
        pen.miterLimit = limit >= 1 && limit < 1000 ? limit : 10;
    }
    if (flags & 0x20) {
        switch (r.i32()) {
        case 1: pen.style = Qt::DashLine; break;
        case 2: pen.style = Qt::DotLine; break;
        case 3: pen.style = Qt::DashDotLine; break;
        case 4: pen.style = Qt::DashDotDotLine; break;
        default: break;
        }
    }
    if (flags & 0x40)
        r.skip(4);
    if (flags & 0x80)
        r.skip(4);
    if (flags & 0x100) {
        const std::uint32_t n = r.u32();
        r.skip(4ull * n > r.left() ? r.left() + 1 : 4 * std::size_t(n));
        if (pen.style == Qt::SolidLine)
            pen.style = Qt::DashLine;
    }
    if (flags & 0x200)
        r.skip(4);
    for (std::uint32_t bit : {0x400u, 0x800u, 0x1000u}) {
        if (!(flags & bit))
            continue;
        const std::uint32_t n = r.u32();
        const std::uint64_t bytes = bit == 0x400 ? 4ull * n : n;
        if (!r.skip(bytes > r.left() ? r.left() + 1 : std::size_t(bytes)))
            return std::nullopt;
    }
    const auto brush = readBrush(r);
    if (!brush || !r.ok())
        return std::nullopt;
    pen.brush = *brush;
    return pen;
}

std::optional<Object> readPath(Reader& r)
{
    const std::uint32_t count = r.u32();
    const std::uint32_t flags = r.u32();
    if (count > kMaxPlusPoints)
        return std::nullopt;
    constexpr std::uint32_t kRunLengthTypes = 0x1000;  // not read
    const auto points = readPoints(r, count, flags & flag::kCompressed, flags & flag::kRelative);
    if (!points || r.left() < count || (flags & kRunLengthTypes))
        return std::nullopt;
    const auto* types = reinterpret_cast<const std::uint8_t*>(r.here());
    Path out;
    for (std::uint32_t i = 0; i < count; ++i) {
        const QPointF& p = (*points)[i];
        switch (types[i] & 0x07) {
        case 0: out.path.moveTo(p); break;
        case 1: out.path.lineTo(p); break;
        case 3:
            if (i + 2 >= count)
                return out;
            out.path.cubicTo(p, (*points)[i + 1], (*points)[i + 2]);
            i += 2;
            break;
        default: return std::nullopt;
        }
        if (types[i] & 0x80)
            out.path.closeSubpath();
    }
    return out;
}

std::optional<Object> readImage(Reader& r, std::int64_t* pixelsUsed)
{
    if (r.u32() != 1)  // bitmaps only; pictures inside pictures are not drawn
        return std::nullopt;
    const std::int64_t w = r.i32();
    const std::int64_t h = r.i32();
    const std::int64_t stride = r.i32();
    const std::uint32_t format = r.u32();
    const std::uint32_t kind = r.u32();
    if (!r.ok())
        return std::nullopt;
    QImage image;
    if (kind == 1) {  // a compressed file: PNG, JPEG, GIF...
        image = decodeEncoded(r.here(), r.left(), kMaxPicturePixels - *pixelsUsed);
    } else {
        // The pixel formats drawn: 32-bit with alpha, premultiplied or not,
        // or without, and 24-bit.
        enum : std::uint32_t { kArgb = 0x26200a, kPremultiplied = 0xe200b, kRgb32 = 0x22009, kRgb24 = 0x21808 };
        const int bytesPerPixel = format == kArgb || format == kPremultiplied || format == kRgb32 ? 4
                                  : format == kRgb24                                              ? 3
                                                                                                  : 0;
        if (bytesPerPixel == 0 || w <= 0 || h <= 0 || w * h + *pixelsUsed > kMaxPicturePixels ||
            stride < w * bytesPerPixel || std::uint64_t(stride) * std::uint64_t(h) > r.left())
            return std::nullopt;
        image = QImage(int(w), int(h), QImage::Format_ARGB32_Premultiplied);
        if (image.isNull())
            return std::nullopt;
        const auto* px = reinterpret_cast<const std::uint8_t*>(r.here());
        for (std::int64_t y = 0; y < h; ++y) {
            auto* out = reinterpret_cast<QRgb*>(image.scanLine(int(y)));
            const std::uint8_t* row = px + y * stride;
            for (std::int64_t x = 0; x < w; ++x) {
                const std::uint8_t* p = row + x * bytesPerPixel;
                QRgb c = qRgba(p[2], p[1], p[0], bytesPerPixel == 4 && format != kRgb32 ? p[3] : 255);
                if (format == kArgb)
                    c = qPremultiply(c);
                else if (format == kPremultiplied)  // premultiplied already: keep it consistent
                    c = qRgba(std::min(qRed(c), qAlpha(c)), std::min(qGreen(c), qAlpha(c)),
                              std::min(qBlue(c), qAlpha(c)), qAlpha(c));
                out[x] = c;
            }
        }
    }
    if (image.isNull())
        return std::nullopt;
    *pixelsUsed += std::int64_t(image.width()) * image.height();
    return Image{image};
}

}  // namespace

double unitScale(std::uint32_t unit, double dpi)
{
    switch (unit) {
    case 3: return dpi / 72;   // points
    case 4: return dpi;        // inches
    case 5: return dpi / 300;  // document units
    case 6: return dpi / 25.4; // millimetres
    default: return 1;
    }
}

std::optional<QBrush> readBrush(Reader& r)
{
    r.u32();  // version
    const std::uint32_t type = r.u32();
    switch (type) {
    case 0:  // solid
        return QBrush(argb(r.u32()));
    case 1: {  // hatched: drawn in its foreground colour's hatch
        r.u32();
        const QColor fore = argb(r.u32());
        return QBrush(fore, Qt::DiagCrossPattern);
    }
    case 3: {  // path gradient: its centre colour
        r.u32();
        r.i32();
        return QBrush(argb(r.u32()));
    }
    case 4: {  // linear gradient across its rectangle
        r.u32();
        r.i32();
        const double x = sane(r.f32()), y = sane(r.f32()), w = sane(r.f32()), h = sane(r.f32());
        Q_UNUSED(h);
        const QColor start = argb(r.u32());
        const QColor end = argb(r.u32());
        QLinearGradient g(x, y, x + w, y);
        g.setColorAt(0, start);
        g.setColorAt(1, end);
        return QBrush(g);
    }
    default:  // textures: a neutral grey
        return QBrush(QColor(128, 128, 128));
    }
}

std::optional<std::vector<QPointF>> readPoints(Reader& r, std::uint32_t count, bool compressed, bool relative)
{
    if (relative || count > kMaxPlusPoints || std::uint64_t(count) * (compressed ? 4 : 8) > r.left())
        return std::nullopt;
    std::vector<QPointF> points(count);
    for (QPointF& p : points) {
        const double x = compressed ? r.i16() : sane(r.f32());
        const double y = compressed ? r.i16() : sane(r.f32());
        p = QPointF(x, y);
    }
    return points;
}

std::optional<QRectF> readRect(Reader& r, bool compressed)
{
    const auto corner = readPoints(r, 2, compressed, false);
    if (!corner)
        return std::nullopt;
    return QRectF((*corner)[0], QSizeF((*corner)[1].x(), (*corner)[1].y()));
}

std::optional<Object> readObject(int type, const char* data, std::size_t size, std::int64_t* pixelsUsed)
{
    Reader r(data, size);
    switch (type) {
    case kBrush:
        if (auto b = readBrush(r))
            return Brush{*b};
        return std::nullopt;
    case kPen:
        r.u32();
        return readPen(r);
    case kPath:
        r.u32();
        return readPath(r);
    case kImage:
        r.u32();
        return readImage(r, pixelsUsed);
    case kFont: {
        r.u32();
        Font f;
        f.emSize = sane(r.f32());
        f.unit = r.u32();
        f.style = r.i32();
        r.u32();
        const std::uint32_t length = r.u32();
        if (!r.ok() || length > r.left() / 2 || length > 256)
            return std::nullopt;
        std::u16string name(length, u'\0');
        std::memcpy(name.data(), r.here(), 2 * std::size_t(length));
        f.family = QString::fromStdU16String(name);
        return f;
    }
    case kStringFormat: {
        r.u32();
        r.u32();
        r.u32();
        StringFormat f;
        f.align = int(r.u32() % 3);
        f.lineAlign = int(r.u32() % 3);
        return f;
    }
    default:
        return std::nullopt;
    }
}

}  // namespace emf::plus
