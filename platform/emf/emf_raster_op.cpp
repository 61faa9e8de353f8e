// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_raster_op.h"

#include <uemf.h>

#include <array>

namespace emf {

namespace {

constexpr std::uint32_t kRgb = 0xffffff;

// The operation on three 24-bit colours, each bit on its own.
std::uint32_t apply(std::uint8_t index, std::uint32_t p, std::uint32_t s, std::uint32_t d)
{
    std::uint32_t out = 0;
    for (int i = 0; i < 8; ++i) {
        if (!(index >> i & 1))
            continue;
        out |= ((i & 4) ? p : ~p) & ((i & 2) ? s : ~s) & ((i & 1) ? d : ~d);
    }
    return out & kRgb;
}

// For each pixel, the bits that take the drawing's value (and), that are
// set (or), and that are flipped afterwards (xor).
struct Planes {
    std::uint32_t keep;
    std::uint32_t set;
    std::uint32_t flip;
};

Planes planes(std::uint8_t index, std::uint32_t p, std::uint32_t s)
{
    const std::uint32_t r0 = apply(index, p, s, 0);
    const std::uint32_t r1 = apply(index, p, s, kRgb);
    return {r0 ^ r1, r0 & r1, r0 & ~r1 & kRgb};
}

QImage sameSize(const QImage& like, QRgb fill)
{
    QImage image(like.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(fill);
    return image;
}

}  // namespace

std::vector<RasterLayer> rasterLayers(const QImage& source, QRgb pattern, std::uint8_t index,
                                      const QImage* mask, std::uint8_t backIndex)
{
    QImage src = source.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (index == kRopSourceCopy && !mask)
        return {{src, QPainter::CompositionMode_SourceOver}};
    const QImage msk = mask ? mask->convertToFormat(QImage::Format_ARGB32_Premultiplied) : QImage();
    const std::uint32_t p = pattern & kRgb;
    const int w = src.width();
    const int h = src.height();
    auto planesAt = [&](int x, int y) -> Planes {
        const QRgb s = reinterpret_cast<const QRgb*>(src.constScanLine(y))[x];
        if (qAlpha(s) == 0)
            return {kRgb, 0, 0};
        const bool back =
            !msk.isNull() && qGray(reinterpret_cast<const QRgb*>(msk.constScanLine(y))[x]) < 128;
        return planes(back ? backIndex : index, p, s & kRgb);
    };

    // One pass to see which layers are needed.
    bool readsDrawing = false;  // some pixel depends on what is drawn
    bool plain = true;          // every pixel is either copied or left alone
    std::array<bool, 3> used{};
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const Planes pl = planesAt(x, y);
            readsDrawing |= pl.keep != 0;
            plain &= pl.flip == 0 && (pl.keep == 0 || (pl.keep == kRgb && pl.set == 0));
            used[0] |= pl.keep != kRgb;
            used[1] |= pl.set != 0;
            used[2] |= pl.flip != 0;
        }

    std::vector<RasterLayer> out;
    if (!readsDrawing || plain) {
        QImage image = sameSize(src, 0);
        for (int y = 0; y < h; ++y) {
            auto* o = reinterpret_cast<QRgb*>(image.scanLine(y));
            for (int x = 0; x < w; ++x) {
                const Planes pl = planesAt(x, y);
                if (pl.keep == 0)
                    o[x] = 0xff000000u | (pl.set ^ pl.flip);
            }
        }
        out.push_back({image, QPainter::CompositionMode_SourceOver});
        return out;
    }
    const QPainter::CompositionMode modes[] = {QPainter::RasterOp_SourceAndDestination,
                                               QPainter::RasterOp_SourceOrDestination,
                                               QPainter::RasterOp_SourceXorDestination};
    for (int layer = 0; layer < 3; ++layer) {
        if (!used[std::size_t(layer)])
            continue;
        QImage image = sameSize(src, 0xff000000u);
        for (int y = 0; y < h; ++y) {
            auto* o = reinterpret_cast<QRgb*>(image.scanLine(y));
            for (int x = 0; x < w; ++x) {
                const Planes pl = planesAt(x, y);
                o[x] = 0xff000000u | (layer == 0 ? pl.keep | pl.set : layer == 1 ? pl.set : pl.flip);
            }
        }
        out.push_back({image, modes[layer]});
    }
    return out;
}

QPainter::CompositionMode mixComposition(std::uint32_t mix)
{
    using M = QPainter::CompositionMode;
    switch (mix) {
    case U_R2_NOTMERGEPEN: return M::RasterOp_NotSourceAndNotDestination;
    case U_R2_MASKNOTPEN: return M::RasterOp_NotSourceAndDestination;
    case U_R2_NOTCOPYPEN: return M::RasterOp_NotSource;
    case U_R2_MASKPENNOT: return M::RasterOp_SourceAndNotDestination;
    case U_R2_NOT: return M::RasterOp_NotDestination;
    case U_R2_XORPEN: return M::RasterOp_SourceXorDestination;
    case U_R2_NOTMASKPEN: return M::RasterOp_NotSourceOrNotDestination;
    case U_R2_MASKPEN: return M::RasterOp_SourceAndDestination;
    case U_R2_NOTXORPEN: return M::RasterOp_NotSourceXorDestination;
    case U_R2_MERGENOTPEN: return M::RasterOp_NotSourceOrDestination;
    case U_R2_MERGEPENNOT: return M::RasterOp_SourceOrNotDestination;
    case U_R2_MERGEPEN: return M::RasterOp_SourceOrDestination;
    default: return M::CompositionMode_SourceOver;
    }
}

}  // namespace emf
