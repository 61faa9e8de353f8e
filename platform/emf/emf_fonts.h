// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Fonts: the LOGFONT of a font record read into our FontObject, and the face
// we draw it with: the installed face of that name, a metric-compatible
// substitute for the common Windows faces, or a face of the same family.
#include "platform/emf/emf_device_context.h"

#include <QFont>
#include <QRawFont>

#include <cstdint>
#include <map>
#include <optional>
#include <tuple>

namespace emf {

// The font of an EXTCREATEFONTINDIRECTW record of `size` bytes, with its
// object index; nullopt when the record is too short for a LOGFONT.
std::optional<std::pair<std::uint32_t, FontObject>> fontFromRecord(const char* rec,
                                                                   std::uint32_t size);

// The installed family that stands in for a metafile's face name.
QString familyFor(const FontObject& font);

// Glyph outlines and metrics are taken at this size in pixels and scaled.
constexpr double kDesignPixels = 64;

struct ResolvedFont {
    QFont font;        // kDesignPixels high, no hinting or kerning
    QRawFont raw;      // the same face, for glyph outlines
    double ascent = 0; // at kDesignPixels
    double descent = 0;
    double averageWidth = 0;
    double underlinePos = 0;  // below the baseline
    double strikeOutPos = 0;  // above the baseline
    double lineWidth = 0;
};

// Resolves each face, weight and slant once per picture.
class FontCache {
public:
    const ResolvedFont& resolve(const FontObject& font);

private:
    std::map<std::tuple<QString, int, bool>, ResolvedFont> fonts_;
};

}  // namespace emf
