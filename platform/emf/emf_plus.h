// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The richer drawing records some programs put in a metafile's comments
// (behind the signature "EMF+"), for pictures whose plain records draw
// nothing: shapes, paths, bitmaps and strings with their brushes, pens and
// fonts, under world and page transforms and clipping.
#include "platform/emf/emf_draw_op.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace emf {

struct PlusChunk {
    const char* data;  // the comment's bytes after the signature
    std::size_t size;
};

struct PlusDevice {
    double dpiX = 96;  // the reference device, until the records' header says
    double dpiY = 96;
    QRectF frame;      // what clearing paints, reference-device pixels
    std::int64_t* bitmapPixels = nullptr;  // decoded so far, shared with the plain records
};

// True when the chunk starts an EMF+ record stream.
bool isPlusComment(const char* commentData, std::size_t size);

// Appends the ops the chunks' records draw, in reference-device pixels.
void playPlus(const std::vector<PlusChunk>& chunks, const PlusDevice& device, std::vector<DrawOp>& out);

}  // namespace emf
