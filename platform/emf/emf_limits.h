// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Every bound the renderer puts on what a file may ask of it, and the number
// rules the plain and the EMF+ records share: when a transform is usable, how
// much it scales lengths, how a stored colour becomes a Qt one.
#include <QColor>
#include <QPainterPath>
#include <QTransform>
#include <uemf.h>

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace emf {

// Shapes reaching further than this from the reference device's origin are
// damage, not drawing; dropping them keeps the rasteriser out of trouble.
constexpr double kMaxReach = 1 << 24;
// Qt refuses pens from 32768 units wide; no picture of ours needs a tenth.
constexpr double kMaxPenWidth = 10000;
// Saved drawing states: real files nest a few dozen; a loop of saves in a
// damaged file must not grow memory without end.
constexpr std::size_t kMaxSavedStates = 4096;
// Longer strings are cut: no label of a picture needs more.
constexpr std::size_t kMaxTextChars = 4096;
// Outlines a picture may draw in all; laying out text is the slow part of
// loading, so the rest of a picture's text is left out.
constexpr std::size_t kMaxGlyphs = 200000;
// A bitmap larger than this is skipped, and a picture's bitmaps together may
// not hold more: 256 MiB of pixels.
constexpr std::int64_t kMaxBitmapPixels = 64ll * 1024 * 1024;
constexpr std::int64_t kMaxPicturePixels = kMaxBitmapPixels;
// The most on and off lengths a pen's own pattern may have: Windows
// refuses to create a pen with more.
constexpr std::uint32_t kMaxDashes = 16;
// Larger files are not pictures of ours; refusing them bounds memory use.
constexpr std::int64_t kMaxFileBytes = 32 * 1024 * 1024;
// A frame wider or higher than ten metres (in 0.01 mm) is damage.
constexpr std::int64_t kMaxFrame = 1'000'000;
// A picture's name is a label, not a text: longer ones are cut.
constexpr std::uint32_t kMaxTitle = 256;
// Fonts beyond this many logical units are damage; drawn, they would only
// overflow the glyph arithmetic.
constexpr double kMaxFontHeight = 1e7;
// Triangles are shaded into a bitmap of at most this many pixels a side.
constexpr double kMaxShadingSide = 1024;
// An EMF+ object sent in several records may not add up to more.
constexpr std::uint32_t kMaxPlusObjectBytes = 64u * 1024 * 1024;
// Points in one EMF+ record or path; longer counts are damage.
constexpr std::uint32_t kMaxPlusPoints = 1u << 20;
// A stored number beyond this is damage rather than a coordinate or a factor.
constexpr double kMaxMagnitude = 1e9;
// A transform scaling lengths by less than this flattens everything drawn
// through it to nothing, and could not be undone.
constexpr double kMinScale = 1e-6;

// A scale factor a file may set (of a page, of a bitmap's source).
inline bool saneFactor(double f)
{
    return std::isfinite(f) && f > kMinScale && f < 1 / kMinScale;
}

// How much a transform scales lengths: the square root of its area factor,
// the width a pen keeps when its figure is mapped.
inline double linearScale(const QTransform& t)
{
    return std::sqrt(std::abs(t.m11() * t.m22() - t.m12() * t.m21()));
}

// A transform a file may set: every part finite and of sane size, and not
// flattening the plane.
inline bool usableTransform(const QTransform& t)
{
    const double parts[] = {t.m11(), t.m12(), t.m21(), t.m22(), t.dx(), t.dy()};
    for (double v : parts)
        if (!std::isfinite(v) || std::abs(v) > kMaxMagnitude)
            return false;
    return linearScale(t) > kMinScale;
}

// A box whose every edge is finite and within reach.
inline bool withinReach(const QRectF& box)
{
    const double edges[] = {box.left(), box.right(), box.top(), box.bottom()};
    for (double v : edges)
        if (!std::isfinite(v) || std::abs(v) > kMaxReach)
            return false;
    return true;
}

// A float that is finite and of sane size, or 0.
inline double sane(float v)
{
    return std::isfinite(v) && std::abs(v) < kMaxMagnitude ? double(v) : 0.0;
}

// A COLORREF (red in the low byte, then green, then blue) as an opaque colour.
inline QColor colourOf(std::uint32_t colorref)
{
    return QColor(int(colorref & 0xff), int(colorref >> 8 & 0xff), int(colorref >> 16 & 0xff));
}
inline QColor colourOf(const U_COLORREF& c)
{
    return QColor(c.Red, c.Green, c.Blue);
}

}  // namespace emf
