// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_record_check.h"

#include "platform/emf/emf_header.h"
#include "platform/emf/emf_records.h"

#include <uemf_safe.h>

#include <cstring>

namespace emf {

namespace {

constexpr std::uint32_t kLastRecordType = U_EMR_CREATECOLORSPACEW;  // 122

// Record types libuemf knows by number only; its checker prints a warning
// for them, so they get our own size checks alone.
bool libraryLeavesUnchecked(std::uint32_t type)
{
    switch (type) {
    case U_EMR_UNDEF69: case U_EMR_POLYTEXTOUTA: case U_EMR_POLYTEXTOUTW:
    case U_EMR_GLSRECORD: case U_EMR_GLSBOUNDEDRECORD: case U_EMR_DRAWESCAPE:
    case U_EMR_EXTESCAPE: case U_EMR_UNDEF107: case U_EMR_FORCEUFIMAPPING:
    case U_EMR_NAMEDESCAPE: case U_EMR_COLORCORRECTPALETTE: case U_EMR_SETICMPROFILEA:
    case U_EMR_SETICMPROFILEW: case U_EMR_UNDEF117: case U_EMR_SETLINKEDUFIS:
    case U_EMR_SETTEXTJUSTIFICATION: case U_EMR_COLORMATCHTOTARGETW:
        return true;
    default:
        return false;
    }
}

bool soundRecord(std::uint32_t type, const char* rec, std::uint64_t size)
{
    if (type == 0 || type == U_EMR_HEADER || type > kLastRecordType)
        return false;
    if (!recordFits(type, rec, size))
        return false;
    return libraryLeavesUnchecked(type) || U_emf_record_safe(rec) != 0;
}

}  // namespace

std::optional<CheckedMetafile> checkMetafile(const char* data, std::size_t size)
{
    if (data == nullptr || size < U_SIZE_EMRHEADER_MIN + sizeof(U_EMREOF) + 4)
        return std::nullopt;
    if (fieldAt<std::uint32_t>(data, offsetof(U_EMR, iType)) != U_EMR_HEADER)
        return std::nullopt;
    const std::uint64_t headerSize = fieldAt<std::uint32_t>(data, offsetof(U_EMR, nSize));
    if (headerSize % 4 != 0 || headerSize > size)
        return std::nullopt;
    auto header = checkHeader(data, headerSize);
    if (!header)
        return std::nullopt;
    // The header states the metafile's length, in whole words; bytes after
    // it are ignored, and a length beyond the data means the file was cut
    // short: such a file cannot be loaded at all.
    const std::uint64_t total = fieldAt<std::uint32_t>(data, offsetof(U_EMRHEADER, nBytes));
    if (total % 4 != 0 || total > size || total < headerSize)
        return std::nullopt;

    // Past the header the records are played as Windows plays them: one
    // it does not know, or whose fields do not fit it, is passed over; one
    // whose size breaks the chain of records ends the picture there.
    CheckedMetafile out;
    out.header = *header;
    out.records.push_back({U_EMR_HEADER, 0, std::uint32_t(headerSize)});
    std::uint64_t at = headerSize;
    while (total - at >= 8) {  // every pass moves on by at least 8 bytes
        const char* rec = data + at;
        const U_EMR head = recordAs<U_EMR>(rec);
        const std::uint32_t type = head.iType;
        const std::uint64_t recSize = head.nSize;
        if (recSize < 8 || recSize % 4 != 0 || recSize > total - at)
            break;
        if (soundRecord(type, rec, recSize))
            out.records.push_back({type, std::size_t(at), std::uint32_t(recSize)});
        at += recSize;
        if (type == U_EMR_EOF)
            break;
    }
    return out;
}

}  // namespace emf
