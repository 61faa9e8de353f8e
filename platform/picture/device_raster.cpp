// SPDX-License-Identifier: GPL-2.0-or-later
// Making a picture's pixels where the painter's device shows them.
#include "platform/picture/device_raster.h"

#include <QPainter>

#include <cmath>

namespace pictures {

QImage transparentImage(QSize pixels)
{
    if (pixels.isEmpty() || std::int64_t(pixels.width()) * pixels.height() > kMaxPixels)
        return {};
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    if (!image.isNull())
        image.fill(Qt::transparent);
    return image;
}

void DeviceRaster::paint(QPainter& painter, const QRectF& target, const Render& render) const
{
    const QTransform device = painter.deviceTransform();
    if (device.type() > QTransform::TxScale) {
        // Turned or sheared (the game never does this): made at the largest
        // scale and drawn through the painter.
        const double scale = std::sqrt(std::abs(device.determinant()));
        const QSize pixels = (target.size() * scale).toSize().expandedTo(QSize(1, 1));
        const QImage image = render(pixels, QRectF(QPointF(0, 0), pixels));
        painter.save();
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(target, image);
        painter.restore();
        return;
    }

    // Only the part the painter can show is made: a symbol drawn far larger
    // than its cell costs no more than the cell.
    const QRectF onDevice = device.mapRect(target);
    QRectF shown = onDevice;
    if (painter.hasClipping())
        shown &= device.mapRect(painter.clipBoundingRect());
    const QRect area = shown.toAlignedRect() & onDevice.toAlignedRect();
    if (area.isEmpty())
        return;
    // Beyond the pixel cap the picture is made coarser and scaled up.
    const double pixelsAsked = double(area.width()) * area.height();
    const double coarse = pixelsAsked > double(kMaxPixels) ? std::sqrt(double(kMaxPixels) / pixelsAsked) : 1.0;
    const QSize pixels(std::max(1, int(area.width() * coarse)), std::max(1, int(area.height() * coarse)));
    const QRectF inImage((onDevice.x() - area.x()) * coarse, (onDevice.y() - area.y()) * coarse,
                         onDevice.width() * coarse, onDevice.height() * coarse);

    QImage image;
    {
        const std::lock_guard lock(mutex_);
        if (pixels != keptPixels_ || inImage != keptTarget_ || kept_.isNull()) {
            kept_ = render(pixels, inImage);
            keptPixels_ = pixels;
            keptTarget_ = inImage;
        }
        image = kept_;
    }
    if (image.isNull())
        return;
    // Undoing the painter's whole mapping (its own, the screen's pixel ratio
    // and a widget's place in its window) leaves device pixels.
    bool invertible = false;
    const QTransform fromDevice = device.inverted(&invertible) * painter.worldTransform();
    if (!invertible)
        return;
    painter.save();
    painter.setWorldTransform(fromDevice);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(area), image);
    painter.restore();
}

}  // namespace pictures
