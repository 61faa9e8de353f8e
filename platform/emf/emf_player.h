// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The plain record interpreter: walks the checked records in order, keeps
// the device context, object table and path being recorded, and collects the
// steps to draw. Its records live by family: figures in
// emf_player_shapes.cpp, clipping, mapping, saved states and objects in
// emf_player_state.cpp, text in emf_player_text.cpp, bit blocks in
// emf_player_bitmaps.cpp, pixels, regions and gradients in
// emf_player_fills.cpp.
#include "platform/emf/emf_device_context.h"
#include "platform/emf/emf_dib.h"
#include "platform/emf/emf_draw_op.h"
#include "platform/emf/emf_fonts.h"
#include "platform/emf/emf_limits.h"
#include "platform/emf/emf_objects.h"
#include "platform/emf/emf_plus.h"
#include "platform/emf/emf_record_check.h"
#include "platform/emf/emf_records.h"

#include <cstdint>
#include <cstddef>
#include <vector>

namespace emf {

class Player {
public:
    Player(const char* data, const CheckedMetafile& metafile);
    PictureData run(const std::vector<RecordRef>& records);

private:
    void play(std::uint32_t type, const char* rec, std::uint32_t size);
    QTransform toDevice() const { return logicalToDevice(dc_, device_); }

    // Figures, in device pixels: into the path being recorded, or drawn.
    void figure(const QPainterPath& devicePath, bool open);
    void addOp(QPainterPath path, bool fill, bool stroke);
    QPainterPath& figureFromPosition(QPainterPath& scratch);
    void finishOpenFigure(const QPainterPath& scratch);

    // Drawing records.
    void polyRecord(std::uint32_t type, const char* rec, bool sixteenBit);
    void polyPolyRecord(std::uint32_t type, const char* rec, bool sixteenBit);
    void polyDrawRecord(const char* rec, bool sixteenBit);
    void boxRecord(std::uint32_t type, const char* rec);
    void arcRecord(std::uint32_t type, const char* rec);
    void angleArcRecord(const char* rec);
    void lineTo(const char* rec);
    void pathRecord(std::uint32_t type);

    // Text (emf_player_text.cpp).
    void textRecord(std::uint32_t type, const char* rec, std::uint32_t size);
    void textStateRecord(std::uint32_t type, const char* rec, std::uint32_t size);
    void drawText(const struct TextRun& run);
    void addTextFill(const QPainterPath& devicePath, const QColor& colour);

    // State records.
    void combineClip(const QPainterPath& region, std::uint32_t mode);
    void clipRecord(std::uint32_t type, const char* rec);
    bool scalableMapping() const;
    void mappingRecord(std::uint32_t type, const char* rec);
    void worldRecord(std::uint32_t type, const char* rec);
    void stateRecord(std::uint32_t type, const char* rec);
    void objectRecord(std::uint32_t type, const char* rec, std::uint32_t size);

    // Bitmaps and raster operations (emf_player_bitmaps.cpp), pixels,
    // regions and gradients (emf_player_fills.cpp).
    void bitmapRecord(std::uint32_t type, const char* rec, std::uint32_t size);
    void patternBlt(const QRectF& logical, std::uint32_t rop);
    BrushObject patternBrush(const char* rec, std::uint32_t size, const DibLocation& where);
    QImage bitmap(const char* rec, std::uint32_t size, const DibLocation& where, bool keepAlpha);
    void fillRecord(std::uint32_t type, const char* rec);
    void gradientRecord(const char* rec);
    void addImage(const QImage& image, const QTransform& placement, QPainter::CompositionMode mode);
    void addFill(const QPainterPath& devicePath, const QBrush& brush,
                 QPainter::CompositionMode mode = QPainter::CompositionMode_SourceOver);

    const char* data_;
    ReferenceDevice device_;
    ObjectTable objects_;
    DeviceContext dc_;
    std::vector<DeviceContext> saved_;
    FontCache fonts_;
    std::size_t glyphsDrawn_ = 0;
    bool inPath_ = false;
    bool figureOpen_ = false;  // the recorded path has a figure to continue
    QPainterPath path_;        // the path being (or last) recorded
    PictureData out_;
    std::int64_t bitmapPixels_ = 0;  // decoded so far, against kMaxPicturePixels
    std::size_t pixelRun_ = SIZE_MAX;  // the op that single pixels of one colour join
    std::vector<PlusChunk> plusChunks_;  // EMF+ records, drawn when nothing else is
};

// The picture the records of a checked metafile draw; `data` is the buffer
// checkMetafile approved as `metafile`.
PictureData playRecords(const char* data, const CheckedMetafile& metafile);

}  // namespace emf
