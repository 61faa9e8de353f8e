// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Pictures that become pixels (a drawing, a photo) are made at the painter's
// device pixels and put down untransformed, so they stay crisp on a
// double-density screen; the last one made is kept for the next paint.
#include <QImage>
#include <QRectF>

#include <cstdint>
#include <functional>
#include <mutex>

class QPainter;

namespace pictures {

// The most pixels any one picture may have or be drawn into, as for metafiles.
inline constexpr std::int64_t kMaxPixels = 64ll * 1024 * 1024;

class DeviceRaster {
public:
    // Makes a transparent image of `pixels` with the picture stretched over
    // `target`, given in that image's pixels.
    using Render = std::function<QImage(QSize pixels, const QRectF& target)>;

    void paint(QPainter& painter, const QRectF& target, const Render& render) const;

private:
    mutable std::mutex mutex_;
    mutable QSize keptPixels_;
    mutable QRectF keptTarget_;
    mutable QImage kept_;
};

// A transparent premultiplied image, or a null one when the size is empty or
// too big.
QImage transparentImage(QSize pixels);

}  // namespace pictures
