// SPDX-License-Identifier: GPL-2.0-or-later
// Writes the seed corpora of the fuzz targets into <corpus folder>:
// metafiles that use every kind of record the picture player draws, some of
// the game's own pictures, "name.dat" files of several sizes made by the
// table's own encoder, and texts a bank box could hold.
//   fuzz_make_seeds <corpus folder> <assets folder>
#include "tools/pictures/emf_raw_record.h"
#include "tools/pictures/emf_writer.h"
#include "winners/winners_file.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

U_POINTL P(int x, int y) { return point32_set(x, y); }

bool writeBytes(const fs::path& path, const std::string& bytes)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), std::streamsize(bytes.size()));
    return bool(out);
}

// A polydraw record, built here: libuemf's builder writes past its buffer
// when the point count is a multiple of four.
char* polyDraw(const std::vector<U_POINTL>& points, const std::vector<uint8_t>& kinds)
{
    const std::size_t fixed = 8 + sizeof(U_RECTL) + 4;
    const std::size_t size = (fixed + points.size() * sizeof(U_POINTL) + kinds.size() + 3) / 4 * 4;
    auto* record = static_cast<char*>(std::calloc(1, size));
    const uint32_t head[2] = {U_EMR_POLYDRAW, uint32_t(size)};
    const U_RECTL bounds = boundsOf(points);
    const uint32_t count = uint32_t(points.size());
    std::memcpy(record, head, 8);
    std::memcpy(record + 8, &bounds, sizeof bounds);
    std::memcpy(record + 8 + sizeof bounds, &count, 4);
    std::memcpy(record + fixed, points.data(), points.size() * sizeof(U_POINTL));
    std::memcpy(record + fixed + points.size() * sizeof(U_POINTL), kinds.data(), kinds.size());
    return record;
}

// Every shape record, with cosmetic, dashed and geometric pens and solid and
// hatched brushes.
bool shapes(const fs::path& path)
{
    EmfWriter e(path.string(), 64, 64);
    e.select(e.pen(U_PS_DASH, 1, rgb(200, 0, 0)));
    e.select(e.brush(U_BS_HATCHED, rgb(0, 0, 200), U_HS_CROSS));
    e.rectangle({2, 2, 20, 20});
    e.ellipse({22, 2, 40, 20});
    e.roundRect({42, 2, 60, 20}, {6, 6});
    e.select(e.geometricPen(U_PS_ENDCAP_SQUARE | U_PS_JOIN_MITER, 3, rgb(0, 120, 0)));
    e.select(e.brush(U_BS_SOLID, rgb(250, 200, 0)));
    e.polygon({P(2, 24), P(20, 24), P(11, 40)});
    e.polygon16({point16_set(22, 24), point16_set(40, 24), point16_set(31, 40)});
    e.polyline({P(42, 24), P(60, 40), P(42, 40)});
    e.polyPolygon({{P(2, 44), P(20, 44), P(20, 62)}, {P(4, 60), P(10, 50), P(16, 60)}});
    e.add(U_EMRPIE_set({22, 44, 40, 62}, P(40, 53), P(31, 44)));
    e.add(U_EMRCHORD_set({42, 44, 60, 62}, P(60, 53), P(51, 44)));
    e.add(U_EMRSETARCDIRECTION_set(U_AD_CLOCKWISE));
    e.add(U_EMRARC_set({2, 2, 62, 62}, P(62, 32), P(32, 2)));
    e.moveTo(P(32, 32));
    e.add(U_EMRARCTO_set({10, 10, 54, 54}, P(54, 32), P(32, 10)));
    e.add(U_EMRANGLEARC_set(P(32, 32), 12, 30.0f, 200.0f));
    e.lineTo(P(5, 5));
    const std::vector<U_POINTL> curve{P(5, 5), P(20, 60), P(40, 0), P(60, 60)};
    e.add(U_EMRPOLYBEZIER_set(boundsOf(curve), uint32_t(curve.size()), curve.data()));
    const std::vector<U_POINT16> curve16{point16_set(60, 5), point16_set(40, 60), point16_set(20, 0),
                                         point16_set(5, 60)};
    e.add(U_EMRPOLYBEZIER16_set({5, 0, 60, 60}, uint32_t(curve16.size()), curve16.data()));
    e.add(U_EMRPOLYLINETO16_set({5, 0, 60, 60}, uint32_t(curve16.size()), curve16.data()));
    const std::vector<U_POINTL> drawn{P(10, 10), P(30, 12), P(50, 50), P(12, 50)};
    const std::vector<uint8_t> kinds{U_PT_MOVETO, U_PT_LINETO, U_PT_LINETO, U_PT_LINETO | U_PT_CLOSEFIGURE};
    e.add(polyDraw(drawn, kinds));
    const std::vector<U_POINTL> lines{P(1, 1), P(63, 1), P(1, 63), P(63, 63)};
    const uint32_t counts[] = {2, 2};
    e.add(U_EMRPOLYPOLYLINE_set(boundsOf(lines), 2, counts, uint32_t(lines.size()), lines.data()));
    for (uint32_t mix : {uint32_t(U_R2_XORPEN), uint32_t(U_R2_NOT), uint32_t(U_R2_BLACK), uint32_t(U_R2_NOP), 0u}) {
        e.add(U_EMRSETROP2_set(mix));
        e.ellipse({10, 10, 54, 54});
    }
    return e.finish();
}

// Every dash style of old-style, cosmetic and geometric pens with each end
// and join, pens' own dashes (odd, all zero, huge, one too many), and
// inside-frame pens around boxes, at full size and shrunk below a pixel.
bool dashes(const fs::path& path)
{
    EmfWriter e(path.string(), 64, 64);
    e.select(U_NULL_BRUSH);
    const std::vector<std::vector<uint32_t>> own{{3}, {4, 2, 1, 2}, {0, 0}, {0xffffffffu, 1},
                                                 std::vector<uint32_t>(17, 1)};
    int y = 2;
    for (uint32_t style = U_PS_SOLID; style <= U_PS_ALTERNATE; ++style) {
        const uint32_t ends[] = {U_PS_ENDCAP_ROUND | U_PS_JOIN_ROUND, U_PS_ENDCAP_SQUARE | U_PS_JOIN_BEVEL,
                                 U_PS_ENDCAP_FLAT | U_PS_JOIN_MITER, U_PS_ENDCAP_ROUND | U_PS_JOIN_MITER};
        for (int k = 0; k < 4; ++k) {
            const std::vector<uint32_t> lengths = style == U_PS_USERSTYLE ? own[k] : std::vector<uint32_t>{};
            e.select(e.pen(style | ends[k], k, rgb(0, 0, 200)));
            e.polyline({P(2, y), P(30, y), P(20, y + 2)});
            e.select(e.extPen(U_PS_COSMETIC | style, 1, rgb(200, 0, 0), lengths));
            e.polyline({P(32, y), P(62, y)});
            e.select(e.extPen(U_PS_GEOMETRIC | style | ends[k], 2, rgb(0, 150, 0), lengths));
            e.polyline({P(2, y + 1), P(62, y + 1), P(40, y + 3)});
        }
        y += 7;
    }
    e.select(e.extPen(U_PS_GEOMETRIC | U_PS_USERSTYLE, 3, rgb(0, 0, 0), own.back()));
    e.rectangle({4, 4, 60, 60});
    e.select(e.pen(U_PS_INSIDEFRAME, 6, rgb(90, 0, 90)));
    e.rectangle({10, 10, 30, 30});
    e.ellipse({34, 34, 38, 60});
    e.add(U_EMRSETWORLDTRANSFORM_set(xform_set(0.01f, 0, 0, 0.01f, 0, 0)));
    e.select(e.extPen(U_PS_GEOMETRIC | U_PS_DASHDOT, 30, rgb(0, 0, 0)));
    e.ellipse({100, 100, 6000, 6000});
    return e.finish();
}

// Mapping modes, extents and origins, world transforms, saved states and
// fill modes.
bool mappings(const fs::path& path)
{
    EmfWriter e(path.string(), 48, 48);
    e.select(U_BLACK_BRUSH);
    e.add(U_EMRSAVEDC_set());
    e.add(U_EMRSETMAPMODE_set(U_MM_ANISOTROPIC));
    e.add(U_EMRSETWINDOWEXTEX_set({100, 100}));
    e.add(U_EMRSETVIEWPORTEXTEX_set({48, 48}));
    e.add(U_EMRSETWINDOWORGEX_set(P(-10, -10)));
    e.add(U_EMRSETVIEWPORTORGEX_set(P(2, 2)));
    e.add(U_EMRSCALEWINDOWEXTEX_set(3, 2, 3, 2));
    e.add(U_EMRSCALEVIEWPORTEXTEX_set(2, 3, 2, 3));
    e.rectangle({0, 0, 40, 40});
    e.add(U_EMRRESTOREDC_set(-1));
    e.add(U_EMRSETMAPMODE_set(U_MM_ISOTROPIC));
    e.add(U_EMRSETWINDOWEXTEX_set({10, 20}));
    e.add(U_EMRSETVIEWPORTEXTEX_set({48, 48}));
    e.add(U_EMRSETWORLDTRANSFORM_set(xform_set(0.5f, 0.2f, -0.2f, 0.5f, 3.0f, 4.0f)));
    e.add(U_EMRMODIFYWORLDTRANSFORM_set(xform_set(2, 0, 0, 2, 0, 0), U_MWT_LEFTMULTIPLY));
    e.add(U_EMRSETPOLYFILLMODE_set(U_WINDING));
    e.add(U_EMRSETMITERLIMIT_set(4));
    e.polyPolygon({{P(0, 0), P(10, 0), P(10, 10), P(0, 10)}, {P(2, 2), P(8, 2), P(8, 8), P(2, 8)}});
    e.add(U_EMRMODIFYWORLDTRANSFORM_set(xform_set(1, 0, 0, 1, 0, 0), U_MWT_IDENTITY));
    e.add(U_EMRSETMAPMODE_set(U_MM_LOMETRIC));
    e.rectangle({0, 0, 50, -50});
    return e.finish();
}

// A PolyTextOutW record of two strings, built here (libuemf has no builder):
// bounds, graphics mode, scales, the count, two EMRTEXTs, strings, advances.
char* polyTextOut()
{
    const uint32_t size = 40 + 2 * 40 + 2 * 4 + 2 * 8;
    auto* record = static_cast<char*>(std::calloc(1, size));
    auto put = [record](std::size_t at, uint32_t v) { std::memcpy(record + at, &v, 4); };
    put(0, U_EMR_POLYTEXTOUTW);
    put(4, size);
    put(24, U_GM_COMPATIBLE);
    put(36, 2);
    for (uint32_t i = 0; i < 2; ++i) {
        const std::size_t at = 40 + 40 * i;
        const uint32_t stringAt = 120 + 4 * i;
        const uint32_t dxAt = 128 + 8 * i;
        put(at, 5 + 30 * i);    // reference point
        put(at + 4, 12 + 20 * i);
        put(at + 8, 2);         // characters
        put(at + 12, stringAt);
        put(at + 32, 40);       // rectangle right and bottom
        put(at + 36, 40);
        put(at + 36 + 4, dxAt);
        put(stringAt, 0x00790078);  // "xy"
        put(dxAt, 8);
        put(dxAt + 4, 8);
    }
    return record;
}

// Fonts turned, underlined and struck out, text of every record kind with
// every alignment, advances, opaque and clipping rectangles, background
// modes; a header of the oldest size with its description right after it.
bool text(const fs::path& path)
{
    EmfWriter e(path.string(), 64, 64);
    e.select(e.font(-12, 300, 700, u"Times New Roman"));
    e.add(U_EMRSETTEXTCOLOR_set(rgb(0, 0, 160)));
    e.add(U_EMRSETBKCOLOR_set(rgb(250, 250, 0)));
    e.add(U_EMRSETTEXTALIGN_set(U_TA_BASELINE | U_TA_CENTER));
    e.text(P(32, 20), u"Reel", U_ETO_OPAQUE | U_ETO_CLIPPED, {4, 4, 60, 24}, {7, 7, 7, 7});
    e.add(U_EMRSETBKMODE_set(U_TRANSPARENT));
    e.add(U_EMRSETTEXTALIGN_set(U_TA_BOTTOM | U_TA_RIGHT | U_TA_UPDATECP));
    e.moveTo(P(60, 60));
    e.select(e.font(14, 0, 400, u"Symbol"));
    e.text(P(0, 0), u"ab\uF061");
    e.select(e.font(-9, 0, 400, u"Wingdings"));
    e.text(P(0, 0), u"\uF06C\uF0FC", U_ETO_NO_RECT);
    e.add(U_EMRSETTEXTALIGN_set(U_TA_TOP));
    e.text(P(2, 40), u"\x22\x33", U_ETO_GLYPH_INDEX | U_ETO_PDY, {0, 0, -1, -1}, {5, 1, 5, 1});
    e.text(P(2, 50), u"\u09AC\u09BE");  // a script few machines have a face for
    e.add(U_EMRBEGINPATH_set());
    e.text(P(2, 2), u"path");
    e.add(U_EMRENDPATH_set());
    e.add(U_EMRSTROKEPATH_set({0, 0, 64, 64}));
    e.add(U_EMRSETMAPMODE_set(U_MM_TWIPS));
    e.text(P(100, -200), u"twips");
    const char narrow[] = "abc";
    e.add(U_EMRSMALLTEXTOUT_set(P(10, 50), 3, U_ETO_SMALL_CHARS, U_GM_COMPATIBLE, 1, 1, {0, 0, 64, 64}, narrow));
    uint32_t advances[] = {6, 6, 6};
    char* run = emrtext_set(P(20, 30), 3, 1, const_cast<char*>(narrow), 0, {0, 0, 64, 64}, advances);
    if (run) {
        e.add(U_EMREXTTEXTOUTA_set({0, 0, 64, 64}, U_GM_ADVANCED, 1, 1, reinterpret_cast<PU_EMRTEXT>(run)));
        std::free(run);
    }
    e.add(polyTextOut());
    return e.finish();
}

// A picture that is its own small device: 3 whole millimetres, 3.65 to the
// micrometre.
bool smallDevice(const fs::path& path)
{
    {
        EmfWriter e(path.string(), {0, 0, 13, 13}, {0, 0, 365, 365}, {14, 14}, {3, 3});
        e.rectangle({0, 0, 14, 14});
        if (!e.finish())
            return false;
    }
    std::fstream f(path, std::ios::binary | std::ios::in | std::ios::out);
    const int32_t micrometres[] = {3650, 3650};
    f.seekp(offsetof(U_EMRHEADER, szlMicrometers));
    f.write(reinterpret_cast<const char*>(micrometres), sizeof micrometres);
    return bool(f);
}

// A copy of `from` whose header has only the 88 bytes of the oldest files,
// followed by its description.
bool oldHeader(const fs::path& from, const fs::path& to)
{
    std::ifstream in(from, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (bytes.size() < 108)
        return false;
    auto put = [](std::string& b, std::size_t at, uint32_t v) { std::memcpy(b.data() + at, &v, 4); };
    uint32_t headerSize = 0;
    std::memcpy(&headerSize, bytes.data() + 4, 4);
    const std::string description("R\0e\0e\0l\0\0\0\0\0", 12);
    std::string out = bytes.substr(0, 88) + description + bytes.substr(headerSize);
    put(out, 4, 88 + uint32_t(description.size()));
    put(out, offsetof(U_EMRHEADER, nBytes), uint32_t(out.size()));
    put(out, offsetof(U_EMRHEADER, nDescription), 6);
    put(out, offsetof(U_EMRHEADER, offDescription), 88);
    return writeBytes(to, out);
}

// Paths filled, stroked and made into clipping, clip rectangles.
bool paths(const fs::path& path)
{
    EmfWriter e(path.string(), 40, 40);
    e.select(e.pen(U_PS_SOLID, 2, rgb(0, 0, 0)));
    e.select(e.brush(U_BS_SOLID, rgb(0, 160, 160)));
    e.add(U_EMRINTERSECTCLIPRECT_set({0, 0, 36, 36}));
    e.add(U_EMREXCLUDECLIPRECT_set({16, 16, 20, 20}));
    e.add(U_EMRBEGINPATH_set());
    e.moveTo(P(20, 2));
    e.polyBezierTo({P(38, 2), P(38, 38), P(20, 38)});
    e.lineTo(P(2, 20));
    e.add(U_EMRCLOSEFIGURE_set());
    e.add(U_EMRENDPATH_set());
    e.add(U_EMRSTROKEANDFILLPATH_set({2, 2, 38, 38}));
    e.add(U_EMRBEGINPATH_set());
    e.ellipse({4, 4, 30, 30});
    e.add(U_EMRENDPATH_set());
    e.add(U_EMRSELECTCLIPPATH_set(U_RGN_AND));
    e.rectangle({0, 0, 40, 40});
    e.add(U_EMRBEGINPATH_set());
    e.rectangle({10, 10, 30, 30});
    e.add(U_EMRENDPATH_set());
    e.add(U_EMRSTROKEPATH_set({10, 10, 30, 30}));
    e.add(U_EMRBEGINPATH_set());
    e.rectangle({1, 1, 3, 3});
    e.add(U_EMRABORTPATH_set());
    e.add(U_EMRBEGINPATH_set());
    e.polygon({P(5, 35), P(15, 25), P(25, 35)});
    e.add(U_EMRENDPATH_set());
    e.add(U_EMRFILLPATH_set({5, 25, 25, 35}));
    return e.finish();
}

// Bitmaps of every layout through every bit-block record, raster
// operations, bitmap brushes, pixels, regions and gradients.
bool bitmaps(const fs::path& path)
{
    EmfWriter e(path.string(), 48, 48);
    const std::vector<uint32_t> four{0xff0000, 0x00ff00, 0x0000ff, 0xffffff};
    const std::vector<uint32_t> none;
    auto le = [](uint32_t v, int n = 4) { return littleEndian(v, n); };
    const std::vector<RawDib> dibs{
        rawDib(2, 2, 1, U_BI_RGB, {0, 0xffffff}, std::string("\x80\0\0\0\x40\0\0\0", 8)),
        rawDib(2, 2, 4, U_BI_RGB, four, std::string("\x23\0\0\0\x01\0\0\0", 8)),
        rawDib(2, 2, 8, U_BI_RGB, four, std::string("\x02\x03\0\0\0\x01\0\0", 8)),
        rawDib(2, 2, 16, U_BI_RGB, none, le(0x001f, 2) + le(0x7fff, 2) + le(0x7c00, 2) + le(0x03e0, 2)),
        rawDib(2, 2, 16, U_BI_BITFIELDS, {0xf800, 0x07e0, 0x001f}, le(0x1f) + le(0xf800)),
        rawDib(2, -2, 24, U_BI_RGB, none, std::string(16, '\x7f')),
        rawDib(2, 2, 32, U_BI_RGB, none, le(0x800000ff) + le(0xffffffff) + le(0x40ff0000) + le(0)),
        rawDib(3, 3, 8, U_BI_RLE8, four, std::string("\x03\x02\0\0\0\x02\x01\x01\0\x03\x01\x02\x03\0\0\x01", 16)),
        rawDib(3, 3, 4, U_BI_RLE4, four, std::string("\x03\x23\0\0\0\x03\x12\x30\0\x01", 10)),
    };
    e.select(e.brush(U_BS_SOLID, rgb(200, 40, 40)));
    int x = 0;
    for (const RawDib& d : dibs) {
        e.add(rawRecord(U_EMR_STRETCHDIBITS, 80, {{24, uint32_t(x)}, {40, 2}, {44, 2}, {68, U_SRCCOPY}, {72, 5}, {76, 5}},
                        d, 48));
        x += 5;
    }
    const RawDib& mono = dibs[0];
    const uint32_t rops[] = {U_SRCPAINT, U_SRCAND, U_SRCINVERT, U_NOTSRCCOPY, 0xe20746, U_MERGECOPY};
    for (uint32_t rop : rops)
        e.add(rawRecord(U_EMR_STRETCHBLT, 108, {{24, 4}, {28, 10}, {32, 20}, {36, 9}, {40, rop}, {52, 0x3f800000},
                                                {64, 0x3f800000}, {100, 2}, {104, 2}}, mono, 84));
    for (uint32_t rop : {U_PATCOPY, U_PATINVERT, U_DSTINVERT, U_BLACKNESS, U_WHITENESS})
        e.add(rawRecord(U_EMR_BITBLT, 100, {{24, 30}, {28, 10}, {32, 8}, {36, 8}, {40, rop}}));
    e.add(rawRecord(U_EMR_BITBLT, 100, {{24, 1}, {28, 20}, {32, 2}, {36, 2}, {40, U_SRCCOPY}, {52, 0x40000000},
                                        {64, 0x40000000}}, dibs[2], 84));
    e.add(rawRecord(U_EMR_SETDIBITSTODEVICE, 76, {{24, 6}, {28, 20}, {40, 2}, {44, 2}, {72, 2}}, dibs[3], 48));
    e.add(rawRecord(U_EMR_ALPHABLEND, 108, {{24, 10}, {28, 20}, {32, 8}, {36, 8}, {40, 0x01800000}, {100, 2}, {104, 2}},
                    dibs[6], 84));
    e.add(rawRecord(U_EMR_TRANSPARENTBLT, 108, {{24, 20}, {28, 20}, {32, 8}, {36, 8}, {40, 0xffffff}, {100, 2},
                                                {104, 2}}, dibs[1], 84));
    // A masked copy: source and mask bitmaps one after the other.
    const RawDib& src = dibs[2];
    const uint32_t srcAt = 128;
    const uint32_t maskAt = srcAt + uint32_t(src.info.size() + src.bits.size());
    e.add(rawRecord(U_EMR_MASKBLT, 128,
                    {{24, 30}, {28, 20}, {32, 2}, {36, 2}, {40, 0xaacc0020}, {52, 0x3f800000}, {64, 0x3f800000},
                     {84, srcAt}, {88, uint32_t(src.info.size())}, {92, srcAt + uint32_t(src.info.size())},
                     {96, uint32_t(src.bits.size())}, {112, maskAt}, {116, uint32_t(mono.info.size())},
                     {120, maskAt + uint32_t(mono.info.size())}, {124, uint32_t(mono.bits.size())}},
                    src.info + src.bits + mono.info + mono.bits));
    const uint32_t pattern = e.brush(U_BS_SOLID, rgb(0, 0, 0));
    e.add(rawRecord(U_EMR_CREATEDIBPATTERNBRUSHPT, 32, {{8, pattern}}, dibs[2], 16));
    e.select(pattern);
    e.ellipse({0, 30, 16, 46});
    const uint32_t monoBrush = e.brush(U_BS_SOLID, rgb(0, 0, 0));
    e.add(rawRecord(U_EMR_CREATEMONOBRUSH, 32, {{8, monoBrush}}, mono, 16));
    e.select(monoBrush);
    e.rectangle({16, 30, 32, 46});
    for (int i = 0; i < 6; ++i)
        e.add(U_EMRSETPIXELV_set(P(40 + i, 40), rgb(255 * (i % 2), 0, 0)));
    const std::string region = le(32) + le(1) + le(2) + le(32) + le(0) + le(0) + le(48) + le(48) + le(30) + le(30) +
                               le(40) + le(40) + le(35) + le(35) + le(48) + le(48);
    const uint32_t cb = uint32_t(region.size());
    e.add(rawRecord(U_EMR_FILLRGN, 32, {{24, cb}, {28, pattern}}, region));
    e.add(rawRecord(U_EMR_FRAMERGN, 40, {{24, cb}, {28, U_BLACK_BRUSH}, {32, 2}, {36, 2}}, region));
    e.add(rawRecord(U_EMR_PAINTRGN, 28, {{24, cb}}, region));
    e.add(rawRecord(U_EMR_INVERTRGN, 28, {{24, cb}}, region));
    auto vertex = [&](int vx, int vy, uint32_t r, uint32_t g, uint32_t b) {
        return le(uint32_t(vx)) + le(uint32_t(vy)) + le(r, 2) + le(g, 2) + le(b, 2) + le(0, 2);
    };
    const std::string corners = vertex(0, 0, 0xffff, 0, 0) + vertex(48, 10, 0, 0xffff, 0) + vertex(10, 48, 0, 0, 0xffff);
    e.add(rawRecord(U_EMR_GRADIENTFILL, 36, {{24, 3}, {28, 2}, {32, U_GRADIENT_FILL_RECT_H}}, corners + le(0) + le(1) + le(1) + le(2)));
    e.add(rawRecord(U_EMR_GRADIENTFILL, 36, {{24, 3}, {28, 2}, {32, U_GRADIENT_FILL_RECT_V}}, corners + le(0) + le(2) + le(2) + le(5)));
    e.add(rawRecord(U_EMR_GRADIENTFILL, 36, {{24, 3}, {28, 1}, {32, U_GRADIENT_FILL_TRIANGLE}}, corners + le(0) + le(1) + le(2)));
    return e.finish();
}

// A picture drawn by EMF+ records alone: every object kind and the drawing,
// transform, state and clipping records.
bool plusRecords(const fs::path& path)
{
    EmfWriter e(path.string(), 48, 48);
    auto le = [](uint32_t v, int n = 4) { return littleEndian(v, n); };
    auto f = [&](std::initializer_list<float> values) {
        std::string out;
        for (float v : values) {
            uint32_t bits;
            std::memcpy(&bits, &v, 4);
            out += le(bits);
        }
        return out;
    };
    auto rec = [&](uint16_t type, uint16_t flags, const std::string& data) {
        return le(type, 2) + le(flags, 2) + le(uint32_t(12 + data.size())) + le(uint32_t(data.size())) + data;
    };
    const std::string v = le(0xdbc01002);
    const std::string name = std::string("A\0r\0i\0a\0l\0", 10);
    const std::string hi = std::string("H\0i\0\n\0!\0", 8);
    const std::string records =
        rec(0x4001, 1, v + le(0) + le(96) + le(96)) + rec(0x4030, 2, f({1})) +
        rec(0x4008, 0x100, v + le(0) + le(0xff20a020)) +
        rec(0x4008, 0x101, v + le(4) + le(0) + le(0) + f({0, 0, 20, 0}) + le(0xffff0000) + le(0xff0000ff) + le(0) + le(0)) +
        rec(0x4008, 0x202, v + le(0) + le(0x13f) + le(0) + f({2}) + le(2) + le(2) + le(1) + f({4}) + le(1) + le(1) +
                               f({3}) + v + le(0) + le(0xff000000)) +
        rec(0x4008, 0x303, v + le(4) + le(0x4000) + le(0) + le(0x00100010) + le(0x00200030) + le(0x00300000) +
                               std::string("\0\x01\x03\x83", 4)) +
        rec(0x4008, 0x504, v + le(1) + le(2) + le(2) + le(8) + le(0x26200a) + le(0) + le(0xffff0000) +
                               le(0x8000ff00) + le(0xff0000ff) + le(0)) +
        rec(0x4008, 0x605, v + f({12}) + le(2) + le(1) + le(0) + le(5) + name) +
        rec(0x4008, 0x706, v + le(0) + le(0) + le(1) + le(1) + std::string(40, '\0')) +
        rec(0x4025, 0, le(1)) + rec(0x402a, 0, f({1, 0, 0, 1, 2, 2})) + rec(0x402f, 0x2000, f({15})) +
        rec(0x402e, 0, f({1.5f, 1})) + rec(0x402d, 0x2000, f({-2, 1})) + rec(0x402c, 0, f({1, 0.1f, 0, 1, 0, 0})) +
        rec(0x4032, 0x100, f({0, 0, 46, 46})) + rec(0x4033, 0x403, "") + rec(0x4035, 0, f({1, 1})) +
        rec(0x400a, 0, le(0) + le(2) + f({0, 0, 10, 10, 12, 0, 10, 10})) +
        rec(0x400b, 0x4002, le(1) + le(0x00020002) + le(0x00080008)) +
        rec(0x400c, 0x8000, le(0xff808080) + le(3) + f({0, 20, 10, 30, 0, 30})) +
        rec(0x400d, 0x2002, le(3) + f({20, 20, 30, 25, 20, 30})) + rec(0x400e, 1, le(1) + f({30, 0, 10, 8})) +
        rec(0x400f, 2, f({30, 10, 10, 8})) + rec(0x4010, 0x8000, le(0xff00ffff) + f({0, 90}) + f({0, 36, 10, 10})) +
        rec(0x4011, 2, f({45, 270}) + f({12, 36, 10, 10})) + rec(0x4012, 2, f({0, 180}) + f({24, 36, 10, 10})) +
        rec(0x4014, 0x8003, le(0xffffff00)) + rec(0x4015, 3, le(2)) +
        rec(0x4016, 0x8000, le(0xff0000ff) + f({0.5f}) + le(3) + f({36, 36, 46, 40, 40, 46})) +
        rec(0x4017, 2, f({0.5f}) + le(3) + f({36, 20, 46, 24, 40, 30})) +
        rec(0x4018, 2, f({0.5f}) + le(0) + le(2) + le(3) + f({2, 44, 10, 40, 20, 46})) +
        rec(0x4019, 2, le(4) + f({0, 0, 10, 40, 30, 0, 46, 46})) +
        rec(0x401a, 4, le(0) + le(2) + f({0, 0, 2, 2}) + f({20, 10, 8, 8})) +
        rec(0x401b, 4, le(0) + le(2) + f({0, 0, 2, 2}) + le(3) + f({30, 30, 40, 32, 28, 40})) +
        rec(0x401c, 0x8005, le(0xff000000) + le(6) + le(4) + f({2, 2, 40, 20}) + hi) +
        rec(0x4036, 0x8005, le(0xff000000) + le(5) + le(1) + le(2) + hi.substr(0, 4) + f({2, 40, 9, 40}) +
                                f({1, 0, 0.2f, 1, 0, 0})) +
        rec(0x4036, 0x8005, le(0xff000000) + le(0) + le(0) + le(2) + le(0x00480043) + f({20, 40, 30, 40})) +
        rec(0x4031, 0, "") + rec(0x4026, 0, le(1)) + rec(0x4009, 0, le(0x40ffffff)) + rec(0x4002, 1, "");
    const std::string comment = "EMF+" + records;
    e.add(rawRecord(U_EMR_COMMENT, 12, {{8, uint32_t(comment.size())}}, comment));
    return e.finish();
}

std::string tableBytes(const winners::Table& table)
{
    const auto bytes = winners::encode(table);
    return std::string(bytes.begin(), bytes.end());
}

bool winnersSeeds(const fs::path& folder)
{
    const std::string standard = tableBytes(winners::defaultTable());
    winners::Table odd = winners::defaultTable();
    odd[0].name = winners::nameFromUtf8("Zoë “Ace” Ørsted €");
    odd[0].credits = 2147483647;
    odd[4].credits = -180;
    odd[9].name.fill(0x81);
    odd[9].credits = -2147483647 - 1;
    const std::string oddBytes = tableBytes(odd);
    return writeBytes(folder / "name.dat", standard)
        && writeBytes(folder / "odd_names.dat", oddBytes)
        && writeBytes(folder / "short.dat", standard.substr(0, 23))
        && writeBytes(folder / "one_record.dat", standard.substr(0, 24))
        && writeBytes(folder / "with_tail.dat", oddBytes + "kept after the table")
        && writeBytes(folder / "twice.dat", standard + oddBytes);
}

bool bankSeeds(const fs::path& folder)
{
    const std::vector<std::string> texts{
        "2500", " 12.5 ", "-3", "abc", "99999999999999999999", "+7", ".5", "4.", "2.5000",
        "-922337203685477.5808", "\t-0.5\n", "1e5", "1,000", "20.8333", "0.6667"};
    for (std::size_t i = 0; i < texts.size(); ++i)
        if (!writeBytes(folder / ("bank" + std::to_string(i) + ".txt"), texts[i]))
            return false;
    return true;
}

// The symbol-file target's seeds: a file of each format, behind the byte
// that tells the target its format ('0' a metafile, '1' a drawing, '2' a PNG).
bool symbolFileSeeds(const fs::path& folder, const fs::path& assets)
{
    const std::string effects =
        "<svg xmlns='http://www.w3.org/2000/svg' width='73' height='73'><title>Seed</title>"
        "<style>.a { fill: url(#g) }</style><linearGradient id='g'><stop stop-color='gold'/>"
        "<stop offset='1' stop-color='red'/></linearGradient><filter id='b'><feGaussianBlur stdDeviation='3'/>"
        "</filter><mask id='m'><circle cx='36' cy='36' r='30' fill='white'/></mask><rect class='a' width='73'"
        " height='73' mask='url(#m)'/><rect x='20' y='20' width='30' height='30' filter='url(#b)' opacity='.5'/>"
        "<text x='10' y='60' font-size='12'>7</text></svg>";
    bool ok = writeBytes(folder / "effects.svg", "1" + effects);
    for (const auto& [name, format] : {std::pair{"0.emf", '0'}, {"reelmoor.svg", '1'}, {"reelmoor-32.png", '2'}}) {
        std::ifstream in(assets / name, std::ios::binary);
        ok = ok && in && writeBytes(folder / name, format + std::string(std::istreambuf_iterator<char>(in), {}));
    }
    return ok;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s <corpus folder> <assets folder>\n", argv[0]);
        return 2;
    }
    const fs::path corpus(argv[1]);
    const fs::path assets(argv[2]);
    for (const char* target : {"fuzz_picture", "fuzz_symbol_file", "fuzz_winners", "fuzz_bank"})
        fs::create_directories(corpus / target);

    const fs::path pictures = corpus / "fuzz_picture";
    bool ok = shapes(pictures / "shapes.emf") && dashes(pictures / "dashes.emf")
        && mappings(pictures / "mappings.emf")
        && paths(pictures / "paths.emf") && bitmaps(pictures / "bitmaps.emf")
        && plusRecords(pictures / "plus_records.emf");
    ok = ok && text(pictures / "text.emf") && oldHeader(pictures / "text.emf", pictures / "old_header.emf")
        && smallDevice(pictures / "small_device.emf");
    for (const char* asset : {"0.emf", "25.emf", "48.emf", "splash.emf"})
        ok = ok && fs::copy_file(assets / asset, pictures / asset, fs::copy_options::overwrite_existing);
    ok = ok && winnersSeeds(corpus / "fuzz_winners") && bankSeeds(corpus / "fuzz_bank")
        && symbolFileSeeds(corpus / "fuzz_symbol_file", assets);
    if (!ok)
        std::fprintf(stderr, "could not write every seed\n");
    return ok ? 0 : 1;
}
