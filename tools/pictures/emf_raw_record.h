// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Records built byte by byte, for what libuemf's builders do not make (or
// make only from well-formed parts): chosen fields in a record's fixed part,
// any tail after it, and bitmaps of every layout, damaged ones included.
// The records are allocated with malloc, ready for EmfWriter::add.
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

// v as `bytes` little-endian bytes.
std::string littleEndian(std::uint32_t v, int bytes = 4);

// A bitmap: its header with the colour table (or bit masks), and its pixels.
struct RawDib {
    std::string info;
    std::string bits;
};
// A 40-byte header (height negative for top-down), then `table`'s entries.
RawDib rawDib(int width, int height, int depth, std::uint32_t compression,
              const std::vector<std::uint32_t>& table, const std::string& bits);

using RecordFields = std::vector<std::pair<std::size_t, std::uint32_t>>;  // offset, value
// A record of `type` whose fixed part of `fixed` bytes holds `fields`, then
// `tail`, padded to whole words.
char* rawRecord(std::uint32_t type, std::size_t fixed, const RecordFields& fields,
                const std::string& tail = {});
// The same with a bitmap after the fixed part, found through the four
// fields (offset and size of header, offset and size of pixels) at bmiAt.
char* rawRecord(std::uint32_t type, std::size_t fixed, RecordFields fields, const RawDib& dib,
                std::size_t bmiAt);
