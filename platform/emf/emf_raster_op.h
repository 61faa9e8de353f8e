// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Raster operations: how a bit-block transfer combines its source bitmap,
// the selected brush's colour and what is already drawn. Any operation on
// known source and brush is, bit by bit, one of "0", "1", "what is there"
// or "the inverse of what is there", so it comes out as at most three
// layers: one ANDed onto the drawing, one ORed, one XORed. The common
// operations need a single plain layer (opaque, or with holes where the
// drawing shows through).
#include <QImage>
#include <QPainter>

#include <cstdint>
#include <vector>

namespace emf {

struct RasterLayer {
    QImage image;  // ARGB32 premultiplied, the source's size
    QPainter::CompositionMode mode = QPainter::CompositionMode_SourceOver;
};

// The ternary operation's index, the third byte of a raster-operation code.
constexpr std::uint8_t ropIndex(std::uint32_t rop) { return std::uint8_t(rop >> 16); }

constexpr std::uint8_t kRopSourceCopy = 0xcc;
constexpr std::uint8_t kRopPatternCopy = 0xf0;
constexpr std::uint8_t kRopDestination = 0xaa;  // leaves the drawing as it is

// The operation's truth table says whether it reads the source.
constexpr bool ropUsesSource(std::uint8_t index) { return ((index >> 2) & 0x33) != (index & 0x33); }

// The layers for source (its transparent pixels leave the drawing alone),
// brush colour `pattern` and the operation `index`; where `mask` (the
// source's size) is given, its dark pixels take `backIndex` instead.
std::vector<RasterLayer> rasterLayers(const QImage& source, QRgb pattern, std::uint8_t index,
                                      const QImage* mask = nullptr, std::uint8_t backIndex = 0);

// How a shape's pen and brush combine with the drawing under SetROP2's
// mix: the bitwise mixes as raster composition modes, COPYPEN (and the
// constant mixes, whose colour the caller sets) as plain painting.
QPainter::CompositionMode mixComposition(std::uint32_t mix);

}  // namespace emf
