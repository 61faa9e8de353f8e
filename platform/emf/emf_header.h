// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The metafile header: its size tells which optional fields it has (88 bytes
// for the oldest files, 100 with the pixel format, 108 with micrometres), and
// the description and pixel format lie where the header's own offsets say.
#include "platform/emf/emf_record_check.h"

#include <cstdint>
#include <optional>

namespace emf {

// rec points at `size` readable bytes of the header record.
std::optional<HeaderInfo> checkHeader(const char* rec, std::uint64_t size);

}  // namespace emf
