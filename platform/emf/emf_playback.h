// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Interprets the records of a checked metafile, in order, into the list of
// shapes that painting replays. Records it does not draw are passed over.
#include "platform/emf/emf_draw_op.h"
#include "platform/emf/emf_record_check.h"

namespace emf {

// data is the same buffer checkMetafile approved as `metafile`.
PictureData playRecords(const char* data, const CheckedMetafile& metafile);

}  // namespace emf
