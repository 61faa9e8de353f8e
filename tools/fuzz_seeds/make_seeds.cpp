// Writes the seed corpora of the fuzz targets into <corpus folder>:
// metafiles that use every kind of record the picture player draws, some of
// the game's own pictures, "name.dat" files of several sizes made by the
// table's own encoder, and texts a bank box could hold.
//   fuzz_make_seeds <corpus folder> <assets folder>
#include "tools/pictures/emf_writer.h"
#include "winners/winners_file.h"

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

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s <corpus folder> <assets folder>\n", argv[0]);
        return 2;
    }
    const fs::path corpus(argv[1]);
    const fs::path assets(argv[2]);
    for (const char* target : {"fuzz_picture", "fuzz_winners", "fuzz_bank"})
        fs::create_directories(corpus / target);

    const fs::path pictures = corpus / "fuzz_picture";
    bool ok = shapes(pictures / "shapes.emf") && mappings(pictures / "mappings.emf")
        && paths(pictures / "paths.emf");
    ok = ok && text(pictures / "text.emf") && oldHeader(pictures / "text.emf", pictures / "old_header.emf");
    for (const char* asset : {"0.emf", "25.emf", "48.emf", "splash.emf"})
        ok = ok && fs::copy_file(assets / asset, pictures / asset, fs::copy_options::overwrite_existing);
    ok = ok && winnersSeeds(corpus / "fuzz_winners") && bankSeeds(corpus / "fuzz_bank");
    if (!ok)
        std::fprintf(stderr, "could not write every seed\n");
    return ok ? 0 : 1;
}
