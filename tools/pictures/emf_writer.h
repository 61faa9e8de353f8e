// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Writes a Windows Enhanced Metafile with libuemf's record builders: the
// header for a picture of a given size on a 96-dpi reference device, objects
// created and selected by handle, then any records, and the end-of-file
// record when finished.
#include <uemf.h>

#include <cstdint>
#include <string>
#include <vector>

class EmfWriter {
public:
    // Reference device of exactly 96 dpi: 1920 x 1440 pixels on 508 x 381 mm,
    // so that one MM_TEXT logical unit is one pixel at 96 dpi.
    static constexpr U_SIZEL kDevicePixels{1920, 1440};
    static constexpr U_SIZEL kDeviceMillimetres{508, 381};

    // A picture of widthPx x heightPx pixels at 96 dpi: its frame is that
    // size in 0.01 mm (73 px -> 1931), its bounds the pixels it covers. A
    // picture name goes into the header's description after the program's
    // own, which is where a metafile names itself.
    EmfWriter(const std::string& path, int widthPx, int heightPx, const std::u16string& pictureName = {});
    // Full control over the header, for pictures of other devices.
    EmfWriter(const std::string& path, U_RECTL bounds, U_RECTL frame, U_SIZEL devicePixels,
              U_SIZEL deviceMillimetres);
    ~EmfWriter();
    EmfWriter(const EmfWriter&) = delete;
    EmfWriter& operator=(const EmfWriter&) = delete;

    bool ok() const { return ok_; }

    // Creating objects returns their handle; it stays valid until removed.
    std::uint32_t pen(std::uint32_t style, std::int32_t width, U_COLORREF colour);
    std::uint32_t geometricPen(std::uint32_t style, std::uint32_t width, U_COLORREF colour);
    // Any extended pen: `style` says cosmetic or geometric; `dashes` are the
    // on and off lengths of a user-styled pen.
    std::uint32_t extPen(std::uint32_t style, std::uint32_t width, U_COLORREF colour,
                         std::vector<std::uint32_t> dashes = {});
    std::uint32_t brush(std::uint32_t style, U_COLORREF colour, std::int32_t hatch = 0);
    // A font `height` logical units high (negative: the characters' height,
    // positive: the cell's), turned by `escapement` tenths of a degree.
    std::uint32_t font(std::int32_t height, std::int32_t escapement = 0, std::int32_t weight = 400,
                       const std::u16string& face = u"Arial");
    void select(std::uint32_t handle);  // a created handle or a U_* stock object
    void remove(std::uint32_t handle);

    // Appends a record made by one of libuemf's U_EMR*_set builders and
    // frees it. A null record (a builder that failed) marks the writer bad.
    void add(char* record);

    // Shorthands for the common shapes; points in logical units.
    void polygon(const std::vector<U_POINTL>& points);
    void polyline(const std::vector<U_POINTL>& points);
    void polygon16(const std::vector<U_POINT16>& points);
    void polyBezierTo(const std::vector<U_POINTL>& points);
    void polyPolygon(const std::vector<std::vector<U_POINTL>>& polygons);
    void ellipse(U_RECTL box);
    void rectangle(U_RECTL box);
    void roundRect(U_RECTL box, U_SIZEL corner);
    void moveTo(U_POINTL p);
    void lineTo(U_POINTL p);
    // Wide text at `at` with the selected font; advances per character in
    // logical units, or none to leave them to the font.
    void text(U_POINTL at, const std::u16string& text, std::uint32_t options = 0,
              U_RECTL rect = {0, 0, -1, -1}, const std::vector<std::uint32_t>& advances = {});

    // Writes the end-of-file record and the file; true when all went well.
    bool finish();

private:
    void start(const std::string& path, U_RECTL bounds, U_RECTL frame, U_SIZEL devicePixels,
               U_SIZEL deviceMillimetres, const std::u16string& pictureName = {});

    EMFTRACK* track_ = nullptr;
    EMFHANDLES* handles_ = nullptr;
    bool ok_ = false;
    bool finished_ = false;
};

// Smallest rectangle holding the points, for the records' bounds fields.
U_RECTL boundsOf(const std::vector<U_POINTL>& points);
U_COLORREF rgb(int r, int g, int b);
