// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/pictures/emf_writer.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

U_COLORREF rgb(int r, int g, int b)
{
    return colorref3_set(std::uint8_t(r), std::uint8_t(g), std::uint8_t(b));
}

void EmfWriter::text(U_POINTL at, const std::u16string& text, std::uint32_t options, U_RECTL rect,
                     const std::vector<std::uint32_t>& advances)
{
    std::u16string chars = text;
    std::vector<std::uint32_t> dx = advances;
    dx.resize(std::max<std::size_t>(chars.size(), 1), 0);  // libuemf wants an array
    char* run = emrtext_set(at, std::uint32_t(chars.size()), 2, chars.data(), options, rect, dx.data());
    if (!run) {
        ok_ = false;
        return;
    }
    char* record = U_EMREXTTEXTOUTW_set(rect, U_GM_COMPATIBLE, 1, 1, reinterpret_cast<PU_EMRTEXT>(run));
    std::free(run);
    // Without advances the record says so: no offset to them (after the
    // record's bounds, mode, scales, the text's core fields and rectangle).
    constexpr std::size_t kOffDx = sizeof(U_EMREXTTEXTOUTW) + sizeof(U_RECTL);
    if (record && advances.empty() && !(options & U_ETO_NO_RECT))
        std::memset(record + kOffDx, 0, 4);
    add(record);
}

U_RECTL boundsOf(const std::vector<U_POINTL>& points)
{
    if (points.empty())
        return U_RECTL{0, 0, 0, 0};
    U_RECTL r{points[0].x, points[0].y, points[0].x, points[0].y};
    for (const U_POINTL& p : points) {
        r.left = std::min(r.left, p.x);
        r.top = std::min(r.top, p.y);
        r.right = std::max(r.right, p.x);
        r.bottom = std::max(r.bottom, p.y);
    }
    return r;
}

EmfWriter::EmfWriter(const std::string& path, int widthPx, int heightPx, const std::u16string& pictureName)
{
    // 2540 hundredths of a millimetre per inch, 96 pixels per inch.
    const U_RECTL frame{0, 0, std::int32_t(std::lround(widthPx * 2540.0 / 96)),
                        std::int32_t(std::lround(heightPx * 2540.0 / 96))};
    const U_RECTL bounds{0, 0, widthPx - 1, heightPx - 1};
    start(path, bounds, frame, kDevicePixels, kDeviceMillimetres, pictureName);
}

EmfWriter::EmfWriter(const std::string& path, U_RECTL bounds, U_RECTL frame,
                     U_SIZEL devicePixels, U_SIZEL deviceMillimetres)
{
    start(path, bounds, frame, devicePixels, deviceMillimetres);
}

void EmfWriter::start(const std::string& path, U_RECTL bounds, U_RECTL frame,
                      U_SIZEL devicePixels, U_SIZEL deviceMillimetres, const std::u16string& pictureName)
{
    if (emf_start(path.c_str(), 1 << 16, 1 << 16, &track_) != 0) {
        track_ = nullptr;
        return;
    }
    if (emf_htable_create(128, 128, &handles_) != 0) {
        handles_ = nullptr;
        return;
    }
    ok_ = true;
    // "program\0picture\0\0", or no description at all.
    std::u16string description;
    if (!pictureName.empty())
        description = u"reelmoor" + std::u16string(1, u'\0') + pictureName + std::u16string(2, u'\0');
    auto* text = description.empty() ? nullptr : reinterpret_cast<std::uint16_t*>(description.data());
    add(U_EMRHEADER_set(bounds, frame, nullptr, U_CBSTR(description.size()), text, devicePixels,
                        deviceMillimetres, 0));
}

EmfWriter::~EmfWriter()
{
    if (track_ && !finished_)
        finish();
    if (track_ && track_->fp) {  // a failed writer never got to close its file
        std::fclose(track_->fp);
        track_->fp = nullptr;
    }
    if (track_)
        emf_free(&track_);
    if (handles_)
        emf_htable_free(&handles_);
}

void EmfWriter::add(char* record)
{
    if (!record) {
        ok_ = false;
        return;
    }
    if (!ok_ || emf_append(reinterpret_cast<U_ENHMETARECORD*>(record), track_, 1) != 0) {
        ok_ = false;
        std::free(record);
    }
}

std::uint32_t EmfWriter::pen(std::uint32_t style, std::int32_t width, U_COLORREF colour)
{
    std::uint32_t handle = 0;
    const U_LOGPEN lp = logpen_set(style, point_set(width, 0), colour);
    add(createpen_set(&handle, handles_, lp));
    return handle;
}

std::uint32_t EmfWriter::geometricPen(std::uint32_t style, std::uint32_t width, U_COLORREF colour)
{
    return extPen(U_PS_GEOMETRIC | style, width, colour);
}

std::uint32_t EmfWriter::extPen(std::uint32_t style, std::uint32_t width, U_COLORREF colour,
                                std::vector<std::uint32_t> dashes)
{
    std::uint32_t handle = 0;
    PU_EXTLOGPEN elp = extlogpen_set(style, width, U_BS_SOLID, colour, 0, U_NUM_STYLEENTRY(dashes.size()),
                                     dashes.empty() ? nullptr : dashes.data());
    if (!elp) {
        ok_ = false;
        return 0;
    }
    add(extcreatepen_set(&handle, handles_, nullptr, 0, nullptr, elp));
    std::free(elp);
    return handle;
}

std::uint32_t EmfWriter::brush(std::uint32_t style, U_COLORREF colour, std::int32_t hatch)
{
    std::uint32_t handle = 0;
    add(createbrushindirect_set(&handle, handles_, logbrush_set(style, colour, hatch)));
    return handle;
}

std::uint32_t EmfWriter::font(std::int32_t height, std::int32_t escapement, std::int32_t weight,
                              const std::u16string& face)
{
    std::u16string name = face.substr(0, U_LF_FACESIZE - 1);
    name.resize(U_LF_FACESIZE, u'\0');
    U_LOGFONT lf = logfont_set(height, 0, escapement, escapement, weight, 0, 0, 0, U_DEFAULT_CHARSET,
                               U_OUT_DEFAULT_PRECIS, U_CLIP_DEFAULT_PRECIS, U_DEFAULT_QUALITY,
                               U_DEFAULT_PITCH, reinterpret_cast<std::uint16_t*>(name.data()));
    std::uint32_t handle = 0;
    add(extcreatefontindirectw_set(&handle, handles_, reinterpret_cast<const char*>(&lf), nullptr));
    return handle;
}

void EmfWriter::select(std::uint32_t handle)
{
    add(selectobject_set(handle, handles_));
}

void EmfWriter::remove(std::uint32_t handle)
{
    add(deleteobject_set(&handle, handles_));
}

void EmfWriter::polygon(const std::vector<U_POINTL>& points)
{
    add(U_EMRPOLYGON_set(boundsOf(points), std::uint32_t(points.size()), points.data()));
}

void EmfWriter::polyline(const std::vector<U_POINTL>& points)
{
    add(U_EMRPOLYLINE_set(boundsOf(points), std::uint32_t(points.size()), points.data()));
}

void EmfWriter::polygon16(const std::vector<U_POINT16>& points)
{
    std::vector<U_POINTL> wide;
    for (const U_POINT16& p : points)
        wide.push_back(point32_set(p.x, p.y));
    add(U_EMRPOLYGON16_set(boundsOf(wide), std::uint32_t(points.size()), points.data()));
}

void EmfWriter::polyBezierTo(const std::vector<U_POINTL>& points)
{
    add(U_EMRPOLYBEZIERTO_set(boundsOf(points), std::uint32_t(points.size()), points.data()));
}

void EmfWriter::polyPolygon(const std::vector<std::vector<U_POINTL>>& polygons)
{
    std::vector<std::uint32_t> counts;
    std::vector<U_POINTL> all;
    for (const auto& poly : polygons) {
        counts.push_back(std::uint32_t(poly.size()));
        all.insert(all.end(), poly.begin(), poly.end());
    }
    add(U_EMRPOLYPOLYGON_set(boundsOf(all), std::uint32_t(counts.size()), counts.data(),
                             std::uint32_t(all.size()), all.data()));
}

void EmfWriter::ellipse(U_RECTL box)
{
    add(U_EMRELLIPSE_set(box));
}

void EmfWriter::rectangle(U_RECTL box)
{
    add(U_EMRRECTANGLE_set(box));
}

void EmfWriter::roundRect(U_RECTL box, U_SIZEL corner)
{
    add(U_EMRROUNDRECT_set(box, corner));
}

void EmfWriter::moveTo(U_POINTL p)
{
    add(U_EMRMOVETOEX_set(p));
}

void EmfWriter::lineTo(U_POINTL p)
{
    add(U_EMRLINETO_set(p));
}

bool EmfWriter::finish()
{
    if (!track_ || finished_)
        return false;
    finished_ = true;
    add(U_EMREOF_set(0, nullptr, track_));
    if (!ok_)
        return false;
    return emf_finish(track_, handles_) == 0;
}
