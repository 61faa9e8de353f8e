// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The metafile header: 88 bytes of base fields in the oldest files, more
// (pixel format, micrometres, description) in newer ones.
#include "platform/emf/emf_record_check.h"

#include <cstdint>
#include <optional>

namespace emf {

// rec points at `size` readable bytes of the header record.
std::optional<HeaderInfo> checkHeader(const char* rec, std::uint64_t size);

}  // namespace emf
