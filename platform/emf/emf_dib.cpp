// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_dib.h"

#include "platform/emf/emf_limits.h"
#include "platform/emf/emf_records.h"

#include <QBuffer>
#include <QImageReader>

#include <uemf.h>

#include <algorithm>
#include <array>
#include <optional>
#include <bit>
#include <vector>

namespace emf {

namespace {

// The old core header: 16-bit sizes, 3-byte colours in its table.
struct CoreHeader {
    std::uint32_t size;
    std::uint16_t width;
    std::uint16_t height;
    std::uint16_t planes;
    std::uint16_t bitCount;
};
constexpr std::size_t kInfoHeader = sizeof(U_BITMAPINFOHEADER);

// One colour channel's place in a pixel word.
struct Channel {
    std::uint32_t mask = 0;
    int shift = 0;
    std::uint32_t max = 0;  // the largest value the channel holds

    static Channel of(std::uint32_t mask)
    {
        Channel c;
        c.mask = mask;
        if (mask == 0)
            return c;
        c.shift = std::countr_zero(mask);
        const std::uint32_t bits = mask >> c.shift;
        c.max = bits;
        return c;
    }
    int value(std::uint32_t px) const
    {
        return max == 0 ? 0 : int(std::uint64_t((px & mask) >> shift) * 255 / max);
    }
};

struct Header {
    std::int64_t width = 0;
    std::int64_t height = 0;  // positive
    bool topDown = false;
    int bitCount = 0;
    std::uint32_t compression = U_BI_RGB;
    std::array<Channel, 4> masks;  // red, green, blue, alpha
    std::vector<QRgb> palette;
};

bool supportedDepth(int bits, std::uint32_t compression)
{
    switch (compression) {
    case U_BI_RGB: return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
    case U_BI_RLE8: return bits == 8;
    case U_BI_RLE4: return bits == 4;
    case U_BI_BITFIELDS: return bits == 16 || bits == 32;
    case U_BI_JPEG: case U_BI_PNG: return true;
    default: return false;
    }
}

std::optional<Header> readHeader(const char* record, std::uint32_t recordSize, const DibLocation& where)
{
    const std::uint64_t headerEnd = std::uint64_t(where.headerAt) + where.headerBytes;
    if (where.headerBytes < 12 || where.headerAt < 8 || headerEnd > recordSize)
        return std::nullopt;
    const char* h = record + where.headerAt;
    const std::uint32_t headerSize = fieldAt<std::uint32_t>(h, 0);
    Header out;
    std::uint64_t tableAt = headerSize;
    std::uint32_t tableEntry = 4;
    std::uint64_t colours = 0;
    if (headerSize == sizeof(CoreHeader)) {
        const auto core = fieldAt<CoreHeader>(h, 0);
        out.width = core.width;
        out.height = core.height;
        out.bitCount = core.bitCount;
        tableEntry = 3;
    } else {
        if (headerSize < kInfoHeader || headerSize > where.headerBytes)
            return std::nullopt;
        const auto info = fieldAt<U_BITMAPINFOHEADER>(h, 0);
        out.width = info.biWidth;
        const std::int64_t height = info.biHeight;
        out.topDown = height < 0;
        out.height = height < 0 ? -height : height;
        out.bitCount = info.biBitCount;
        out.compression = info.biCompression;
        colours = info.biClrUsed;
        if (out.compression == U_BI_BITFIELDS) {
            // Red, green and blue masks follow the short header; longer
            // headers hold them, and from the fourth version an alpha mask.
            using Masks = std::array<std::uint32_t, 3>;
            const std::uint64_t masksAt = headerSize >= kInfoHeader + sizeof(Masks) ? kInfoHeader : headerSize;
            if (masksAt + sizeof(Masks) > where.headerBytes)
                return std::nullopt;
            const auto masks = fieldAt<Masks>(h, std::size_t(masksAt));
            for (std::size_t i = 0; i < 3; ++i)
                out.masks[i] = Channel::of(masks[i]);
            if (headerSize >= kInfoHeader + sizeof(Masks) + 4)
                out.masks[3] = Channel::of(fieldAt<std::uint32_t>(h, kInfoHeader + sizeof(Masks)));
            if (headerSize < kInfoHeader + sizeof(Masks))
                tableAt += sizeof(Masks);
        }
    }
    if (out.width <= 0 || out.height <= 0 || out.width * out.height > kMaxBitmapPixels)
        return std::nullopt;
    if (!supportedDepth(out.bitCount, out.compression))
        return std::nullopt;
    if (out.topDown && (out.compression == U_BI_RLE4 || out.compression == U_BI_RLE8))
        return std::nullopt;
    if (out.compression == U_BI_RGB && out.bitCount == 16) {
        out.masks = {Channel::of(0x7c00), Channel::of(0x3e0), Channel::of(0x1f), Channel{}};
    } else if (out.compression == U_BI_RGB && out.bitCount == 32) {
        out.masks = {Channel::of(0xff0000), Channel::of(0xff00), Channel::of(0xff),
                     Channel::of(0xff000000)};
    }

    if (out.bitCount >= 1 && out.bitCount <= 8) {
        const std::uint64_t full = 1ull << out.bitCount;
        colours = colours == 0 ? full : std::min<std::uint64_t>(colours, full);
        out.palette.assign(std::size_t(full), qRgb(0, 0, 0));
        if (where.paletteIndexes) {
            for (std::size_t i = 0; i < full; ++i) {
                const int grey = int(i * 255 / (full - 1));
                out.palette[i] = qRgb(grey, grey, grey);
            }
            return out;
        }
        // A table cut short by the header's size leaves the rest black.
        const std::uint64_t fit =
            tableAt < where.headerBytes ? (where.headerBytes - tableAt) / tableEntry : 0;
        colours = std::min(colours, fit);
        for (std::uint64_t i = 0; i < colours; ++i) {
            const char* c = h + tableAt + i * tableEntry;  // blue, green, red
            out.palette[std::size_t(i)] =
                qRgb(std::uint8_t(c[2]), std::uint8_t(c[1]), std::uint8_t(c[0]));
        }
    }
    return out;
}

QImage blankImage(const Header& h)
{
    QImage image(int(h.width), int(h.height), QImage::Format_ARGB32_Premultiplied);
    if (!image.isNull())
        image.fill(Qt::transparent);
    return image;
}

QRgb fromMasks(const Header& h, std::uint32_t px, bool keepAlpha)
{
    const int r = h.masks[0].value(px);
    const int g = h.masks[1].value(px);
    const int b = h.masks[2].value(px);
    if (!keepAlpha || h.masks[3].mask == 0)
        return qRgb(r, g, b);
    // Premultiplied colour: no channel may exceed its alpha.
    const int a = h.masks[3].value(px);
    return qRgba(std::min(r, a), std::min(g, a), std::min(b, a), a);
}

QImage decodePlain(const Header& h, const char* bits, std::uint64_t bytes, bool keepAlpha)
{
    const std::uint64_t stride = (std::uint64_t(h.width) * h.bitCount + 31) / 32 * 4;
    // A last row the data does not reach stays transparent; a bitmap short
    // of more rows is damaged.
    const std::int64_t rows = std::min<std::int64_t>(h.height, std::int64_t(bytes / stride));
    if (rows < h.height - 1)
        return {};
    QImage image = blankImage(h);
    if (image.isNull())
        return image;
    for (std::int64_t r = 0; r < rows; ++r) {
        const auto* row = reinterpret_cast<const std::uint8_t*>(bits + r * stride);
        auto* out = reinterpret_cast<QRgb*>(image.scanLine(int(h.topDown ? r : h.height - 1 - r)));
        for (std::int64_t x = 0; x < h.width; ++x) {
            switch (h.bitCount) {
            case 1: out[x] = h.palette[(row[x / 8] >> (7 - x % 8)) & 1]; break;
            case 4: out[x] = h.palette[(row[x / 2] >> (x % 2 ? 0 : 4)) & 0xf]; break;
            case 8: out[x] = h.palette[row[x]]; break;
            case 16: out[x] = fromMasks(h, std::uint32_t(row[2 * x] | row[2 * x + 1] << 8), false); break;
            case 24: out[x] = qRgb(row[3 * x + 2], row[3 * x + 1], row[3 * x]); break;
            default: {
                const std::uint32_t px = std::uint32_t(row[4 * x]) | std::uint32_t(row[4 * x + 1]) << 8 |
                                         std::uint32_t(row[4 * x + 2]) << 16 | std::uint32_t(row[4 * x + 3]) << 24;
                out[x] = fromMasks(h, px, keepAlpha);
            }
            }
        }
    }
    return image;
}

// Run-length encoded 4- and 8-bit bitmaps, bottom row first; pixels the runs
// skip stay transparent.
QImage decodeRle(const Header& h, const char* data, std::uint64_t bytes)
{
    QImage image = blankImage(h);
    if (image.isNull())
        return image;
    const auto* b = reinterpret_cast<const std::uint8_t*>(data);
    const bool four = h.bitCount == 4;
    std::int64_t x = 0;
    std::int64_t row = 0;
    auto put = [&](int index) {
        if (x < h.width && row < h.height)
            reinterpret_cast<QRgb*>(image.scanLine(int(h.height - 1 - row)))[x] = h.palette[std::size_t(index)];
        ++x;
    };
    std::uint64_t at = 0;
    while (at + 2 <= bytes && row < h.height) {
        const std::uint8_t count = b[at];
        const std::uint8_t value = b[at + 1];
        at += 2;
        if (count > 0) {  // a run of one index, or of two alternating nibbles
            const std::int64_t n = std::min<std::int64_t>(count, std::max<std::int64_t>(h.width - x, 0));
            for (std::int64_t i = 0; i < n; ++i)
                put(four ? (i % 2 ? value & 0xf : value >> 4) : value);
            x += count - n;
            continue;
        }
        if (value == 0) {  // end of line
            x = 0;
            ++row;
        } else if (value == 1) {  // end of bitmap
            break;
        } else if (value == 2) {  // move right and up
            if (at + 2 > bytes)
                break;
            x += b[at];
            row += b[at + 1];
            at += 2;
        } else {  // literal indexes, padded to a 16-bit boundary
            const std::uint64_t used = four ? (value + 1u) / 2 : value;
            const std::uint64_t padded = (used + 1) / 2 * 2;
            if (at + used > bytes)
                break;
            for (int i = 0; i < value; ++i)
                put(four ? (i % 2 ? b[at + std::size_t(i) / 2] & 0xf : b[at + std::size_t(i) / 2] >> 4)
                         : b[at + std::size_t(i)]);
            at += padded;
        }
    }
    return image;
}

}  // namespace

QImage decodeEncoded(const char* data, std::uint64_t bytes, std::int64_t pixelsAllowed)
{
    QByteArray encoded = QByteArray::fromRawData(data, qsizetype(bytes));
    QBuffer buffer(&encoded);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    if (!size.isValid() || std::int64_t(size.width()) * size.height() > pixelsAllowed)
        return {};
    QImage image = reader.read();
    if (image.isNull())
        return image;
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QSize dibSize(const char* record, std::uint32_t recordSize, const DibLocation& where)
{
    const auto h = readHeader(record, recordSize, where);
    return h ? QSize(int(h->width), int(h->height)) : QSize();
}

QImage decodeDib(const char* record, std::uint32_t recordSize, const DibLocation& where, bool keepAlpha)
{
    const auto h = readHeader(record, recordSize, where);
    if (!h)
        return {};
    const std::uint64_t bitsEnd = std::uint64_t(where.bitsAt) + where.bitsBytes;
    if (where.bitsAt < 8 || bitsEnd > recordSize || where.bitsBytes == 0)
        return {};
    const char* bits = record + where.bitsAt;
    switch (h->compression) {
    case U_BI_RLE4: case U_BI_RLE8:
        // Runs of a picture's pixels take bytes: a few bytes claiming
        // megapixels are a bomb, not a picture.
        if (h->width * h->height > 1024 * std::int64_t(where.bitsBytes) + (1 << 20))
            return {};
        return decodeRle(*h, bits, where.bitsBytes);
    case U_BI_JPEG: case U_BI_PNG: return decodeEncoded(bits, where.bitsBytes, kMaxBitmapPixels);
    default: return decodePlain(*h, bits, where.bitsBytes, keepAlpha);
    }
}

}  // namespace emf
