// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_record_check.h"

#include "platform/emf/emf_header.h"

#include <uemf_safe.h>

#include <cstring>

namespace emf {

std::uint32_t readU32(const char* record, std::size_t at)
{
    std::uint32_t v;
    std::memcpy(&v, record + at, sizeof v);
    return v;
}

std::int32_t readI32(const char* record, std::size_t at)
{
    std::int32_t v;
    std::memcpy(&v, record + at, sizeof v);
    return v;
}

std::int16_t readI16(const char* record, std::size_t at)
{
    std::int16_t v;
    std::memcpy(&v, record + at, sizeof v);
    return v;
}

float readF32(const char* record, std::size_t at)
{
    float v;
    std::memcpy(&v, record + at, sizeof v);
    return v;
}

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

// The fixed part every record of a type needs, for the types we draw or
// whose fields we read; 8 for the rest.
std::uint64_t fixedSize(std::uint32_t type)
{
    switch (type) {
    case U_EMR_POLYBEZIER: case U_EMR_POLYGON: case U_EMR_POLYLINE:
    case U_EMR_POLYBEZIERTO: case U_EMR_POLYLINETO:
    case U_EMR_POLYBEZIER16: case U_EMR_POLYGON16: case U_EMR_POLYLINE16:
    case U_EMR_POLYBEZIERTO16: case U_EMR_POLYLINETO16:
    case U_EMR_POLYDRAW: case U_EMR_POLYDRAW16:
        return 28;
    case U_EMR_POLYPOLYLINE: case U_EMR_POLYPOLYGON:
    case U_EMR_POLYPOLYLINE16: case U_EMR_POLYPOLYGON16:
        return 32;
    case U_EMR_SETWINDOWEXTEX: case U_EMR_SETWINDOWORGEX: case U_EMR_SETVIEWPORTEXTEX:
    case U_EMR_SETVIEWPORTORGEX: case U_EMR_MOVETOEX: case U_EMR_LINETO:
        return 16;
    case U_EMR_SETMAPMODE: case U_EMR_SETPOLYFILLMODE: case U_EMR_RESTOREDC:
    case U_EMR_SELECTOBJECT: case U_EMR_DELETEOBJECT: case U_EMR_SETARCDIRECTION:
    case U_EMR_SETMITERLIMIT: case U_EMR_SELECTCLIPPATH:
        return 12;
    case U_EMR_EOF:
        return sizeof(U_EMREOF) + 4;
    case U_EMR_SETWORLDTRANSFORM: return sizeof(U_EMRSETWORLDTRANSFORM);
    case U_EMR_MODIFYWORLDTRANSFORM: return sizeof(U_EMRMODIFYWORLDTRANSFORM);
    case U_EMR_CREATEPEN: return sizeof(U_EMRCREATEPEN);
    case U_EMR_CREATEBRUSHINDIRECT: return sizeof(U_EMRCREATEBRUSHINDIRECT);
    case U_EMR_EXTCREATEPEN: return U_SIZE_EMREXTCREATEPEN;
    case U_EMR_ELLIPSE: case U_EMR_RECTANGLE: case U_EMR_FILLPATH:
    case U_EMR_STROKEPATH: case U_EMR_STROKEANDFILLPATH:
    case U_EMR_INTERSECTCLIPRECT: case U_EMR_EXCLUDECLIPRECT:
    case U_EMR_SCALEVIEWPORTEXTEX: case U_EMR_SCALEWINDOWEXTEX:
        return 24;
    case U_EMR_ROUNDRECT: return sizeof(U_EMRROUNDRECT);
    case U_EMR_ARC: case U_EMR_CHORD: case U_EMR_PIE: case U_EMR_ARCTO:
        return 40;
    case U_EMR_ANGLEARC: return sizeof(U_EMRANGLEARC);
    case U_EMR_EXTSELECTCLIPRGN: return 16;
    case U_EMR_BITBLT: return sizeof(U_EMRBITBLT);
    case U_EMR_STRETCHBLT: return sizeof(U_EMRSTRETCHBLT);
    case U_EMR_MASKBLT: return sizeof(U_EMRMASKBLT);
    case U_EMR_SETDIBITSTODEVICE: return sizeof(U_EMRSETDIBITSTODEVICE);
    case U_EMR_STRETCHDIBITS: return sizeof(U_EMRSTRETCHDIBITS);
    case U_EMR_ALPHABLEND: return sizeof(U_EMRALPHABLEND);
    case U_EMR_TRANSPARENTBLT: return sizeof(U_EMRTRANSPARENTBLT);
    case U_EMR_CREATEMONOBRUSH: case U_EMR_CREATEDIBPATTERNBRUSHPT: return 32;
    case U_EMR_SETPIXELV: return sizeof(U_EMRSETPIXELV);
    case U_EMR_FILLRGN: return U_SIZE_EMRFILLRGN;
    case U_EMR_FRAMERGN: return U_SIZE_EMRFRAMERGN;
    case U_EMR_INVERTRGN: case U_EMR_PAINTRGN: return U_SIZE_EMRINVERTRGN;
    case U_EMR_GRADIENTFILL: return sizeof(U_EMRGRADIENTFILL);
    default:
        return 8;
    }
}

// The variable part: every count checked against the record's own size in
// 64-bit arithmetic, before libuemf (which counts in int) looks at it.
bool countsFit(std::uint32_t type, const char* rec, std::uint64_t size)
{
    switch (type) {
    case U_EMR_POLYBEZIER: case U_EMR_POLYGON: case U_EMR_POLYLINE:
    case U_EMR_POLYBEZIERTO: case U_EMR_POLYLINETO:
        return 28 + 8ull * readU32(rec, 24) <= size;
    case U_EMR_POLYBEZIER16: case U_EMR_POLYGON16: case U_EMR_POLYLINE16:
    case U_EMR_POLYBEZIERTO16: case U_EMR_POLYLINETO16:
        return 28 + 4ull * readU32(rec, 24) <= size;
    case U_EMR_POLYDRAW:
        return 28 + 9ull * readU32(rec, 24) <= size;
    case U_EMR_POLYDRAW16:
        return 28 + 5ull * readU32(rec, 24) <= size;
    case U_EMR_POLYPOLYLINE: case U_EMR_POLYPOLYGON:
    case U_EMR_POLYPOLYLINE16: case U_EMR_POLYPOLYGON16: {
        const std::uint64_t polys = readU32(rec, 24);
        const std::uint64_t points = readU32(rec, 28);
        const std::uint64_t pointSize =
            (type == U_EMR_POLYPOLYLINE || type == U_EMR_POLYPOLYGON) ? 8 : 4;
        if (32 + 4 * polys + pointSize * points > size)
            return false;
        std::uint64_t sum = 0;
        for (std::uint64_t i = 0; i < polys; ++i)
            sum += readU32(rec, 32 + 4 * i);
        return sum == points;
    }
    case U_EMR_EXTCREATEPEN: {
        const std::uint64_t entries = readU32(rec, offsetof(U_EMREXTCREATEPEN, elp) +
                                                       offsetof(U_EXTLOGPEN, elpNumEntries));
        return U_SIZE_EMREXTCREATEPEN + 4 * entries <= size;
    }
    case U_EMR_EXTSELECTCLIPRGN:
        return 16ull + readU32(rec, 8) <= size;
    case U_EMR_FILLRGN: case U_EMR_FRAMERGN: case U_EMR_INVERTRGN: case U_EMR_PAINTRGN:
        return fixedSize(type) + std::uint64_t(readU32(rec, 24)) <= size;
    case U_EMR_GRADIENTFILL: {
        const std::uint64_t vertices = readU32(rec, 24);
        const std::uint64_t objects = readU32(rec, 28);
        const std::uint64_t each = readU32(rec, 32) == U_GRADIENT_FILL_TRIANGLE ? 12 : 8;
        return sizeof(U_EMRGRADIENTFILL) + 16 * vertices + each * objects <= size;
    }
    case U_EMR_EOF: {
        const std::uint64_t entries = readU32(rec, 8);
        const std::uint64_t offset = readU32(rec, 12);
        if (entries == 0)
            return true;
        return offset >= sizeof(U_EMREOF) && offset + 4 * entries + 4 <= size;
    }
    default:
        return true;
    }
}

bool soundRecord(std::uint32_t type, const char* rec, std::uint64_t size)
{
    if (type == 0 || type == U_EMR_HEADER || type > kLastRecordType)
        return false;
    if (size < fixedSize(type) || !countsFit(type, rec, size))
        return false;
    return libraryLeavesUnchecked(type) || U_emf_record_safe(rec) != 0;
}

}  // namespace

std::optional<CheckedMetafile> checkMetafile(const char* data, std::size_t size)
{
    if (data == nullptr || size < U_SIZE_EMRHEADER_MIN + sizeof(U_EMREOF) + 4)
        return std::nullopt;
    if (readU32(data, 0) != U_EMR_HEADER)
        return std::nullopt;
    const std::uint64_t headerSize = readU32(data, 4);
    if (headerSize % 4 != 0 || headerSize > size)
        return std::nullopt;
    auto header = checkHeader(data, headerSize);
    if (!header)
        return std::nullopt;
    // The header states the metafile's length, in whole words; bytes after
    // it are ignored, and a length beyond the data means the file was cut
    // short: such a file cannot be loaded at all.
    const std::uint64_t total = readU32(data, offsetof(U_EMRHEADER, nBytes));
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
        const std::uint32_t type = readU32(rec, 0);
        const std::uint64_t recSize = readU32(rec, 4);
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
