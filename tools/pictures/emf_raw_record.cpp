// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/pictures/emf_raw_record.h"

#include <cstdlib>
#include <cstring>

std::string littleEndian(std::uint32_t v, int bytes)
{
    std::string s;
    for (int i = 0; i < bytes; ++i)
        s += char(v >> (8 * i) & 0xff);
    return s;
}

RawDib rawDib(int width, int height, int depth, std::uint32_t compression,
              const std::vector<std::uint32_t>& table, const std::string& bits)
{
    constexpr std::uint32_t kBitFields = 3;  // masks, not colours, follow the header
    auto le = [](std::uint32_t v, int n = 4) { return littleEndian(v, n); };
    std::string info = le(40) + le(std::uint32_t(width)) + le(std::uint32_t(height)) + le(1, 2) +
                       le(std::uint32_t(depth), 2) + le(compression) + le(std::uint32_t(bits.size())) +
                       le(0) + le(0) +
                       le(compression == kBitFields ? 0 : std::uint32_t(table.size())) + le(0);
    for (std::uint32_t t : table)
        info += le(t);
    return {info, bits};
}

char* rawRecord(std::uint32_t type, std::size_t fixed, const RecordFields& fields,
                const std::string& tail)
{
    std::string r(fixed, '\0');
    for (const auto& [at, v] : fields)
        if (at + 4 <= fixed)
            r.replace(at, 4, littleEndian(v));
    r += tail;
    r.resize((r.size() + 3) / 4 * 4, '\0');
    r.replace(0, 8, littleEndian(type) + littleEndian(std::uint32_t(r.size())));
    char* out = static_cast<char*>(std::malloc(r.size()));
    if (out)
        std::memcpy(out, r.data(), r.size());
    return out;
}

char* rawRecord(std::uint32_t type, std::size_t fixed, RecordFields fields, const RawDib& dib,
                std::size_t bmiAt)
{
    const std::size_t infoSize = (dib.info.size() + 3) / 4 * 4;
    fields.insert(fields.end(), {{bmiAt, std::uint32_t(fixed)},
                                 {bmiAt + 4, std::uint32_t(dib.info.size())},
                                 {bmiAt + 8, std::uint32_t(fixed + infoSize)},
                                 {bmiAt + 12, std::uint32_t(dib.bits.size())}});
    return rawRecord(type, fixed, fields,
                     dib.info + std::string(infoSize - dib.info.size(), '\0') + dib.bits);
}
