// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Device-independent bitmaps as metafile records carry them: a bitmap
// header (core, info or one of its longer versions), a colour table or bit
// masks, then the pixels, each part somewhere inside the record. Every size,
// count, offset and run is checked against the record before it is read.
#include <QImage>

#include <cstdint>

namespace emf {

// Where a record keeps its bitmap: header and pixels, offsets from the
// record's start.
struct DibLocation {
    std::uint32_t headerAt = 0;
    std::uint32_t headerBytes = 0;
    std::uint32_t bitsAt = 0;
    std::uint32_t bitsBytes = 0;
    // DIB_PAL_COLORS: the colour table indexes a logical palette we do not
    // keep, so its entries come out as shades of grey.
    bool paletteIndexes = false;
};

// The bitmap's width and height (positive) from its header, or an empty
// size when the header is missing, damaged or the bitmap too large.
QSize dibSize(const char* record, std::uint32_t recordSize, const DibLocation& where);

// The bitmap as ARGB32. Pixels are opaque, except where run-length encoded
// bitmaps skip them (transparent) and, when keepAlpha is set, for 32-bit
// bitmaps (their fourth byte is the alpha of premultiplied colour).
// A null image for anything that does not fit or cannot be decoded.
QImage decodeDib(const char* record, std::uint32_t recordSize, const DibLocation& where,
                 bool keepAlpha = false);

// A PNG, JPEG or other file's picture as ARGB32 premultiplied; null when it
// cannot be read or holds more than pixelsAllowed pixels.
QImage decodeEncoded(const char* data, std::uint64_t bytes, std::int64_t pixelsAllowed);

}  // namespace emf
