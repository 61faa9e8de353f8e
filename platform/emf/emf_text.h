// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The strings a text record carries, read with every offset and count
// checked against the record: ExtTextOut (wide and 8-bit), PolyTextOut and
// SmallTextOut all come out as the same runs.
#include <QPointF>
#include <QRectF>
#include <QString>

#include <cstdint>
#include <vector>

namespace emf {

struct TextRun {
    QPointF reference;  // logical units
    QString text;       // characters, or glyph indexes with ETO_GLYPH_INDEX
    // Per-character advances in logical units (x, and y with ETO_PDY);
    // empty when the record leaves them to the font.
    std::vector<QPointF> advances;
    std::uint32_t options = 0;  // ETO_* flags
    bool hasRect = false;
    QRectF rect;  // logical units, for ETO_OPAQUE and ETO_CLIPPED
};

// The runs of a text record of `size` bytes; none when a field does not fit.
std::vector<TextRun> textRuns(std::uint32_t type, const char* rec, std::uint32_t size);

// A font's word or 8-bit characters as Unicode, where the font is one of the
// symbol faces that put pictures and Greek letters on Latin codes.
QString symbolText(const QString& text, const QString& face);

}  // namespace emf
