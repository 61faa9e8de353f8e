// SPDX-License-Identifier: GPL-2.0-or-later
// The bit-block records: bitmaps stretched onto the page and combined with
// what is drawn by their raster operation, brush fills of a rectangle, and
// the bitmap brushes.
#include "platform/emf/emf_player.h"

#include "platform/emf/emf_raster_op.h"
#include "platform/emf/emf_shapes.h"

#include <cmath>

namespace emf {

namespace {

// Where each kind of record keeps its fields.
struct BltLayout {
    std::size_t dest = 24;       // x, y
    std::size_t destSize = 32;   // cx, cy; 0 when the source's size is used
    std::size_t rop = 40;        // 0 for records that only copy
    std::size_t src = 44;        // x, y
    std::size_t srcSize = 0;     // cx, cy; 0 when the destination's size is used
    std::size_t xform = 52;      // the source's transform; 0 when there is none
    std::size_t usage = 80;
    std::size_t bitmap = 84;     // offBmi, cbBmi, offBits, cbBits
};

BltLayout layoutOf(std::uint32_t type)
{
    BltLayout l;
    switch (type) {
    case U_EMR_STRETCHBLT: case U_EMR_ALPHABLEND: case U_EMR_TRANSPARENTBLT:
        l.srcSize = 100;
        break;
    case U_EMR_SETDIBITSTODEVICE:
        l = {24, 0, 0, 32, 40, 0, 64, 48};
        break;
    case U_EMR_STRETCHDIBITS:
        l = {24, 72, 68, 32, 40, 0, 64, 48};
        break;
    default:  // BitBlt, MaskBlt
        break;
    }
    return l;
}

DibLocation locate(const char* rec, std::size_t at, std::uint32_t usage)
{
    DibLocation where;
    where.headerAt = readU32(rec, at);
    where.headerBytes = readU32(rec, at + 4);
    where.bitsAt = readU32(rec, at + 8);
    where.bitsBytes = readU32(rec, at + 12);
    where.paletteIndexes = usage == U_DIB_PAL_COLORS;
    return where;
}

QRgb rgbOf(std::uint32_t colorref)
{
    return qRgb(int(colorref & 0xff), int(colorref >> 8 & 0xff), int(colorref >> 16 & 0xff));
}

// Every pixel's colour and alpha scaled by alpha/255.
void fade(QImage& image, int alpha)
{
    if (alpha >= 255)
        return;
    for (int y = 0; y < image.height(); ++y) {
        auto* px = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            px[x] = qRgba(qRed(px[x]) * alpha / 255, qGreen(px[x]) * alpha / 255,
                          qBlue(px[x]) * alpha / 255, qAlpha(px[x]) * alpha / 255);
    }
}

void clearColour(QImage& image, QRgb colour)
{
    for (int y = 0; y < image.height(); ++y) {
        auto* px = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            if ((px[x] & 0xffffff) == (colour & 0xffffff) && qAlpha(px[x]) == 255)
                px[x] = 0;
    }
}

}  // namespace

QImage Player::bitmap(const char* rec, std::uint32_t size, const DibLocation& where, bool keepAlpha)
{
    const QSize dims = dibSize(rec, size, where);
    const std::int64_t pixels = std::int64_t(dims.width()) * dims.height();
    if (dims.isEmpty() || bitmapPixels_ + pixels > kMaxPicturePixels)
        return {};
    QImage image = decodeDib(rec, size, where, keepAlpha);
    // Embedded pictures may be larger than the header says.
    const std::int64_t decoded = std::int64_t(image.width()) * image.height();
    if (image.isNull() || bitmapPixels_ + decoded > kMaxPicturePixels)
        return {};
    bitmapPixels_ += decoded;
    return image;
}

void Player::bitmapRecord(std::uint32_t type, const char* rec, std::uint32_t size)
{
    const BltLayout l = layoutOf(type);
    const QPointF dest(readI32(rec, l.dest), readI32(rec, l.dest + 4));
    const std::uint32_t rop = l.rop ? readU32(rec, l.rop) : U_SRCCOPY;
    const std::uint32_t usage = readU32(rec, l.usage);
    const DibLocation where = locate(rec, l.bitmap, usage);
    QPointF srcSize = l.srcSize ? QPointF(readI32(rec, l.srcSize), readI32(rec, l.srcSize + 4))
                                : QPointF();
    QPointF destSize = l.destSize ? QPointF(readI32(rec, l.destSize), readI32(rec, l.destSize + 4))
                                  : srcSize;
    if (!l.srcSize) {
        // BitBlt and MaskBlt: the source spans the destination, scaled by
        // the source's own transform.
        srcSize = destSize;
        if (l.xform) {
            const double sx = std::abs(double(readF32(rec, l.xform)));
            const double sy = std::abs(double(readF32(rec, l.xform + 12)));
            if (std::isfinite(sx) && std::isfinite(sy) && sx > 1e-6 && sy > 1e-6 && sx < 1e6 && sy < 1e6)
                srcSize = QPointF(srcSize.x() * sx, srcSize.y() * sy);
        }
    }
    if (where.headerBytes == 0) {  // no bitmap: the brush fills the rectangle
        if (type == U_EMR_BITBLT || type == U_EMR_STRETCHBLT || type == U_EMR_MASKBLT)
            patternBlt(QRectF(dest, QSizeF(destSize.x(), destSize.y())), rop);
        return;
    }
    const bool alpha = type == U_EMR_ALPHABLEND && (readU32(rec, 40) >> 24 & U_AC_SRC_ALPHA);
    QImage image = bitmap(rec, size, where, alpha);
    if (image.isNull() || srcSize.x() == 0 || srcSize.y() == 0)
        return;

    // The part of the bitmap the record copies, and how it lands.
    const QPointF src(readI32(rec, l.src), readI32(rec, l.src + 4));
    const QRectF wanted = QRectF(src, QSizeF(srcSize.x(), srcSize.y())).normalized();
    // Cut to the bitmap in floating point first: the wanted part may lie
    // beyond what integers hold.
    const QRect part = (wanted & QRectF(image.rect())).toAlignedRect() & image.rect();
    if (part.isEmpty())
        return;
    QTransform placement = QTransform::fromTranslate(part.x() - src.x(), part.y() - src.y());
    placement *= QTransform::fromScale(destSize.x() / srcSize.x(), destSize.y() / srcSize.y());
    placement *= QTransform::fromTranslate(dest.x(), dest.y());
    placement *= toDevice();
    if (part != image.rect())
        image = image.copy(part);

    switch (type) {
    case U_EMR_ALPHABLEND:
        fade(image, int(readU32(rec, 40) >> 16 & 0xff));
        addImage(image, placement, QPainter::CompositionMode_SourceOver);
        return;
    case U_EMR_TRANSPARENTBLT:
        clearColour(image, rgbOf(readU32(rec, 40)));
        addImage(image, placement, QPainter::CompositionMode_SourceOver);
        return;
    case U_EMR_MASKBLT: {
        const DibLocation maskAt = locate(rec, 112, readU32(rec, 108));
        QImage mask = maskAt.headerBytes ? bitmap(rec, size, maskAt, false) : QImage();
        if (!mask.isNull()) {
            // Where the part starts in the mask, in 64 bits: the fields may be anything.
            const std::int64_t x = std::int64_t(readI32(rec, 100)) + part.x() - readI32(rec, l.src);
            const std::int64_t y = std::int64_t(readI32(rec, 104)) + part.y() - readI32(rec, l.src + 4);
            const bool reachable = std::abs(x) < (1 << 30) && std::abs(y) < (1 << 30);
            mask = reachable ? mask.copy(QRect(int(x), int(y), part.width(), part.height())) : QImage();
        }
        const QImage* maskPtr = mask.isNull() ? nullptr : &mask;
        for (RasterLayer& layer : rasterLayers(image, dc_.brush.color.rgb(), ropIndex(rop), maskPtr,
                                               std::uint8_t(rop >> 24)))
            addImage(layer.image, placement, layer.mode);
        return;
    }
    default: {
        const std::vector<RasterLayer> layers = rasterLayers(image, dc_.brush.color.rgb(), ropIndex(rop));
        // Layers beyond the first are bitmaps of their own.
        const std::int64_t extra = std::int64_t(layers.size() - 1) * image.width() * image.height();
        if (bitmapPixels_ + extra > kMaxPicturePixels)
            return;
        bitmapPixels_ += extra;
        for (const RasterLayer& layer : layers)
            addImage(layer.image, placement, layer.mode);
        return;
    }
    }
}

// A rectangle filled by the brush alone, or inverted, blackened, whitened.
void Player::patternBlt(const QRectF& logical, std::uint32_t rop)
{
    const std::uint8_t index = ropIndex(rop);
    if (index == kRopDestination || ropUsesSource(index))
        return;
    QPainterPath box;
    box.addRect(logical);
    const QPainterPath path = toDevice().map(box);
    if (index == kRopPatternCopy) {
        if (dc_.brush.visible)
            addFill(path, qtBrush(dc_.brush));
        return;
    }
    QImage one(1, 1, QImage::Format_ARGB32_Premultiplied);
    one.fill(Qt::black);
    const QRgb pattern = dc_.brush.visible ? dc_.brush.color.rgb() : qRgb(255, 255, 255);
    for (const RasterLayer& layer : rasterLayers(one, pattern, index)) {
        const QRgb c = layer.image.pixel(0, 0);
        if (qAlpha(c) != 0)
            addFill(path, QBrush(QColor::fromRgb(c)), layer.mode);
    }
}

BrushObject Player::patternBrush(const char* rec, std::uint32_t size)
{
    BrushObject brush;
    brush.pattern = bitmap(rec, size, locate(rec, 16, readU32(rec, 12)), false);
    if (brush.pattern.isNull())
        brush.visible = false;
    return brush;
}

void Player::addImage(const QImage& image, const QTransform& placement, QPainter::CompositionMode mode)
{
    const double det = placement.determinant();
    if (!std::isfinite(det) || std::abs(det) < 1e-12)
        return;  // squashed flat: nothing to see
    DrawOp op;
    op.image = image;
    op.placement = placement;
    op.composition = mode;
    op.path.addRect(placement.mapRect(QRectF(image.rect())));
    placeOp(std::move(op));
}

void Player::addFill(const QPainterPath& devicePath, const QBrush& brush, QPainter::CompositionMode mode)
{
    DrawOp op;
    op.path = devicePath;
    op.filled = true;
    op.brush = brush;
    op.composition = mode;
    placeOp(std::move(op));
}

void Player::placeOp(DrawOp op)
{
    const QRectF box = op.path.controlPointRect();
    const double edges[] = {box.left(), box.right(), box.top(), box.bottom()};
    for (double v : edges)
        if (!std::isfinite(v) || std::abs(v) > kMaxCoordinate)
            return;
    op.clipped = dc_.clipped;
    if (op.clipped)
        op.clip = dc_.clip;
    out_.ops.push_back(std::move(op));
}

}  // namespace emf
