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
    const BltRecord b = readBlt(type, rec);
    if (b.bitmap.headerBytes == 0) {  // no bitmap: the brush fills the rectangle
        if (b.fillsWithBrush)
            patternBlt(QRectF(b.dest, QSizeF(b.destSize.x(), b.destSize.y())), b.rop);
        return;
    }
    const bool alpha = type == U_EMR_ALPHABLEND && (b.blend >> 24 & U_AC_SRC_ALPHA);
    QImage image = bitmap(rec, size, b.bitmap, alpha);
    if (image.isNull() || b.srcSize.x() == 0 || b.srcSize.y() == 0)
        return;

    // The part of the bitmap the record copies, and how it lands.
    const QPointF src = b.src;
    const QRectF wanted = QRectF(src, QSizeF(b.srcSize.x(), b.srcSize.y())).normalized();
    // Cut to the bitmap in floating point first: the wanted part may lie
    // beyond what integers hold.
    const QRect part = (wanted & QRectF(image.rect())).toAlignedRect() & image.rect();
    if (part.isEmpty())
        return;
    QTransform placement = QTransform::fromTranslate(part.x() - src.x(), part.y() - src.y());
    placement *= QTransform::fromScale(b.destSize.x() / b.srcSize.x(), b.destSize.y() / b.srcSize.y());
    placement *= QTransform::fromTranslate(b.dest.x(), b.dest.y());
    placement *= toDevice();
    if (part != image.rect())
        image = image.copy(part);

    switch (type) {
    case U_EMR_ALPHABLEND:
        fade(image, int(b.blend >> 16 & 0xff));
        addImage(image, placement, QPainter::CompositionMode_SourceOver);
        return;
    case U_EMR_TRANSPARENTBLT:
        clearColour(image, colourOf(b.transparent).rgb());
        addImage(image, placement, QPainter::CompositionMode_SourceOver);
        return;
    case U_EMR_MASKBLT: {
        QImage mask = b.mask.headerBytes ? bitmap(rec, size, b.mask, false) : QImage();
        if (!mask.isNull()) {
            // Where the part starts in the mask, in 64 bits: the fields may be anything.
            const std::int64_t x = std::int64_t(b.maskAt.x()) + part.x() - std::int64_t(src.x());
            const std::int64_t y = std::int64_t(b.maskAt.y()) + part.y() - std::int64_t(src.y());
            const bool reachable = std::abs(x) < (1 << 30) && std::abs(y) < (1 << 30);
            mask = reachable ? mask.copy(QRect(int(x), int(y), part.width(), part.height())) : QImage();
        }
        const QImage* maskPtr = mask.isNull() ? nullptr : &mask;
        for (RasterLayer& layer : rasterLayers(image, dc_.brush.color.rgb(), ropIndex(b.rop), maskPtr,
                                               std::uint8_t(b.rop >> 24)))
            addImage(layer.image, placement, layer.mode);
        return;
    }
    default: {
        const std::vector<RasterLayer> layers = rasterLayers(image, dc_.brush.color.rgb(), ropIndex(b.rop));
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

BrushObject Player::patternBrush(const char* rec, std::uint32_t size, const DibLocation& where)
{
    BrushObject brush;
    brush.pattern = bitmap(rec, size, where, false);
    if (brush.pattern.isNull())
        brush.visible = false;
    return brush;
}

void Player::addImage(const QImage& image, const QTransform& placement, QPainter::CompositionMode mode)
{
    if (!std::isfinite(placement.determinant()) || linearScale(placement) <= kMinScale)
        return;  // squashed flat: nothing to see
    emitOp(out_.ops, {ImageOp{image, placement}, {}, mode}, dc_.clip);
}

void Player::addFill(const QPainterPath& devicePath, const QBrush& brush, QPainter::CompositionMode mode)
{
    emitOp(out_.ops, {ShapeOp{devicePath, brush, std::nullopt}, {}, mode}, dc_.clip);
}

}  // namespace emf
