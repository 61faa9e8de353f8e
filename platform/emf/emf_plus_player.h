// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The EMF+ record interpreter behind playPlus: walks the records in order,
// keeps the drawing state (transforms, clip, saved states) and the object
// table, and collects the steps to draw through the same guards as the plain
// records. Shapes, bitmaps and strings live in emf_plus_drawing.cpp; state,
// objects and the output in emf_plus_player.cpp.
#include "platform/emf/emf_draw_op.h"
#include "platform/emf/emf_limits.h"
#include "platform/emf/emf_plus.h"
#include "platform/emf/emf_plus_objects.h"

#include <QFont>

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace emf::plus {

enum RecordType : std::uint16_t {
    kHeader = 0x4001, kObject = 0x4008, kClear = 0x4009, kFillRects, kDrawRects, kFillPolygon,
    kDrawLines, kFillEllipse, kDrawEllipse, kFillPie, kDrawPie, kDrawArc, kFillRegion, kFillPath,
    kDrawPath, kFillClosedCurve, kDrawClosedCurve, kDrawCurve, kDrawBeziers, kDrawImage,
    kDrawImagePoints, kDrawString, kSave = 0x4025, kRestore, kBeginContainer,
    kBeginContainerNoParams, kEndContainer, kSetWorldTransform, kResetWorldTransform,
    kMultiplyWorldTransform, kTranslateWorldTransform, kScaleWorldTransform, kRotateWorldTransform,
    kSetPageTransform, kResetClip, kSetClipRect, kSetClipPath, kSetClipRegion, kOffsetClip,
    kDrawDriverString,
};

struct State {
    QTransform world;
    std::uint32_t pageUnit = 2;  // pixels
    double pageScale = 1;
    std::optional<QPainterPath> clip;  // device pixels; none clips nothing
};

class PlusPlayer {
public:
    PlusPlayer(const PlusDevice& device, std::vector<DrawOp>& out) : device_(device), out_(out) {}
    void play(std::uint16_t type, std::uint16_t flags, const char* data, std::size_t size);

private:
    // Records by family.
    void headerRecord(Reader& r);
    void objectRecord(std::uint16_t flags, const char* data, std::size_t size);
    void shapeRecord(std::uint16_t type, std::uint16_t flags, Reader& r);
    void curveRecord(std::uint16_t type, std::uint16_t flags, Reader& r);
    void imageRecord(std::uint16_t type, std::uint16_t flags, Reader& r);
    void stringRecord(std::uint16_t flags, Reader& r);
    void driverStringRecord(std::uint16_t flags, Reader& r);
    void stateRecord(std::uint16_t type, Reader& r);
    void transformRecord(std::uint16_t type, std::uint16_t flags, Reader& r);
    void clipRecord(std::uint16_t type, std::uint16_t flags, Reader& r);

    // Mapping and objects.
    QTransform toDevice() const;
    std::optional<QBrush> brushOf(std::uint16_t flags, std::uint32_t id) const;
    std::optional<QFont> fontAt(std::uint32_t id, double& scale) const;
    template <class T>
    const T* find(std::uint32_t id) const
    {
        return id < objects_.size() && objects_[id] ? std::get_if<T>(&*objects_[id]) : nullptr;
    }

    // Output, in world units, through the shared guards.
    void fill(const QPainterPath& world, const QBrush& brush);
    void stroke(const QPainterPath& world, std::uint32_t penId);
    void fillOrStroke(const QPainterPath& world, bool filled, std::uint16_t flags, std::uint32_t brushId);
    void image(std::uint32_t id, const QRectF& source, const QTransform& sourceToWorld);
    void clip(const QPainterPath& device, int mode);

    PlusDevice device_;
    std::vector<DrawOp>& out_;
    State state_;
    std::map<std::uint32_t, State> saved_;
    std::array<std::optional<Object>, 64> objects_;
    std::vector<char> pending_;  // an object arriving in several records
    std::size_t charactersLeft_ = kMaxGlyphs;  // the same allowance as the plain records' text
};

}  // namespace emf::plus
