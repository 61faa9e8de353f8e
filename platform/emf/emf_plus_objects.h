// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The objects EMF+ records define and later draw with, and a reader that
// never steps past the bytes it was given.
#include <QBrush>
#include <QFont>
#include <QImage>
#include <QPainterPath>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <variant>
#include <vector>

namespace emf::plus {

// Little-endian fields in order; reading past the end yields zeros and
// marks the reader failed.
class Reader {
public:
    Reader(const char* data, std::size_t size) : data_(data), size_(size) {}
    bool ok() const { return ok_; }
    std::size_t left() const { return ok_ ? size_ - at_ : 0; }
    const char* here() const { return data_ + at_; }
    template <class T>
    T next()
    {
        T v{};
        if (skip(sizeof v))
            std::memcpy(&v, data_ + at_ - sizeof v, sizeof v);
        return v;
    }
    std::uint32_t u32() { return next<std::uint32_t>(); }
    std::int32_t i32() { return next<std::int32_t>(); }
    std::int16_t i16() { return next<std::int16_t>(); }
    std::uint16_t u16() { return next<std::uint16_t>(); }
    float f32() { return next<float>(); }
    bool skip(std::size_t bytes)
    {
        ok_ = ok_ && bytes <= size_ - at_;
        at_ += ok_ ? bytes : 0;
        return ok_;
    }

private:
    const char* data_;
    std::size_t size_;
    std::size_t at_ = 0;
    bool ok_ = true;
};

// The bits of a record's flags word.
namespace flag {
constexpr std::uint16_t kObjectId = 0x00ff;      // the object (pen, path, font, image) drawn with
constexpr std::uint16_t kColourBrush = 0x8000;   // the brush field is an ARGB colour, not an object
constexpr std::uint16_t kContinued = 0x8000;     // Object: more parts of this object follow
constexpr std::uint16_t kCompressed = 0x4000;    // points are 16-bit integers
constexpr std::uint16_t kClosed = 0x2000;        // DrawLines: the figure is closed
constexpr std::uint16_t kWinding = 0x2000;       // FillClosedCurve: the winding fill rule
constexpr std::uint16_t kPostMultiply = 0x2000;  // transforms: applied after the world's
constexpr std::uint16_t kRelative = 0x0800;      // points are offsets from the one before
}  // namespace flag

// The second byte of the flags: an Object record's type, a clip's mode.
inline int highByte(std::uint16_t flags, int mask) { return flags >> 8 & mask; }

// Device pixels per unit of measure (points, inches, millimetres...) at
// `dpi`; world, display and pixel units are taken as one pixel.
double unitScale(std::uint32_t unit, double dpi);

struct Brush {
    QBrush brush;
};

struct Pen {
    QBrush brush;
    double width = 0;  // world units (or the pen's own unit, scaled on load)
    Qt::PenCapStyle cap = Qt::FlatCap;
    Qt::PenJoinStyle join = Qt::MiterJoin;
    double miterLimit = 10;
    Qt::PenStyle style = Qt::SolidLine;
};

struct Path {
    QPainterPath path;
};

struct Image {
    QImage image;
};

struct Font {
    enum Style { kBold = 1, kItalic = 2, kUnderline = 4, kStrikeOut = 8 };
    double emSize = 0;
    std::uint32_t unit = 0;
    int style = 0;  // Style bits
    QString family;
};

struct StringFormat {
    int align = 0;      // near, centre, far
    int lineAlign = 0;
};

using Object = std::variant<Brush, Pen, Path, Image, Font, StringFormat>;

// Reads an object of `type` (the record's object type) from its bytes.
// Images count against *pixelsUsed and are refused over the picture's cap.
std::optional<Object> readObject(int type, const char* data, std::size_t size,
                                 std::int64_t* pixelsUsed);

// A brush as stored inside a pen or an object record.
std::optional<QBrush> readBrush(Reader& r);

// Points in the record forms: 16-bit integers when compressed, floats
// otherwise. Relative forms are not read (nullopt).
std::optional<std::vector<QPointF>> readPoints(Reader& r, std::uint32_t count, bool compressed,
                                               bool relative);
std::optional<QRectF> readRect(Reader& r, bool compressed);

}  // namespace emf::plus
