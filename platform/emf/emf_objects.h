// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The metafile's object table: pens and brushes created by records and
// addressed by index, and the stock objects every device context has.
#include "platform/emf/emf_device_context.h"

#include <QBrush>
#include <uemf.h>

#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

namespace emf {

// Palettes and other objects we keep only so that selecting them is
// harmless.
struct OtherObject {};

using GraphicsObject = std::variant<PenObject, BrushObject, FontObject, OtherObject>;

class ObjectTable {
public:
    explicit ObjectTable(std::uint32_t handles);

    // Out-of-range indexes are ignored, as Windows refuses them.
    void create(std::uint32_t index, GraphicsObject object);
    void remove(std::uint32_t index);
    // Selects the object (created or stock) into dc; unknown ones change nothing.
    void select(std::uint32_t index, DeviceContext& dc) const;

private:
    std::vector<std::optional<GraphicsObject>> slots_;
};

// Records' pen and brush descriptions into our objects.
PenObject penFromLogPen(const U_LOGPEN& pen);
// styleEntries: the record's elpNumEntries dash lengths, as they lie. A pen
// Windows would refuse to create comes back as an object that selects nothing.
GraphicsObject penFromExtLogPen(const U_EXTLOGPEN& pen, const char* styleEntries);
// Round and square ends are drawn within a dash's length: each dash gives
// a pen width (at most) to its two half-ends, the gap after it takes it back.
QList<qreal> endsWithinDashes(QList<qreal> dashes, Qt::PenCapStyle cap);
BrushObject brushFromLogBrush(const U_LOGBRUSH& brush);
// What Qt fills with for a brush: its colour, hatch or bitmap tile.
QBrush qtBrush(const BrushObject& brush);

}  // namespace emf
