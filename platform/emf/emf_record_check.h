// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Checks the structure of a whole metafile before anything of it is drawn:
// a valid header first, every record inside the data with a sane size and
// counts that fit the record, an end-of-file record last.
#include <uemf.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace emf {

struct RecordRef {
    std::uint32_t type = 0;
    std::size_t offset = 0;  // from the start of the data
    std::uint32_t size = 0;
};

struct HeaderInfo {
    U_RECTL bounds{};
    U_RECTL frame{};        // 0.01 mm
    U_SIZEL device{};       // reference device, pixels
    double millimetresX = 0;  // reference device, to the micrometre where the
    double millimetresY = 0;  // header says
    std::uint32_t handles = 1;
    // The picture's name from the description ("program\0picture\0\0"),
    // empty when the header gives none.
    std::u16string title;
};

struct CheckedMetafile {
    HeaderInfo header;
    std::vector<RecordRef> records;  // header and end-of-file record included
};

// data must stay readable for at least `size` bytes plus a little slack
// (the caller pads it), because libuemf's checks may peek a field past a
// record's end before they reject it.
std::optional<CheckedMetafile> checkMetafile(const char* data, std::size_t size);

}  // namespace emf
