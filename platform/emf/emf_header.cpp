// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_header.h"

#include "platform/emf/emf_limits.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>

namespace emf {

namespace {

// The longest picture name read; a name is a few words.

// The second of the description's two strings (the first names the program
// that made the picture), when it lies wholly inside the header record.
std::u16string pictureName(const char* rec, std::uint64_t size, std::uint32_t count, std::uint32_t offset)
{
    if (count == 0 || offset < U_SIZE_EMRHEADER_MIN || offset % 2 != 0 || offset > size ||
        std::uint64_t(count) * 2 > size - offset)
        return {};
    std::u16string text(std::min(count, 2 * kMaxTitle), u'\0');
    std::memcpy(text.data(), rec + offset, text.size() * 2);
    const std::size_t programEnd = text.find(u'\0');
    if (programEnd == std::u16string::npos)
        return {};
    std::u16string name = text.substr(programEnd + 1);
    name = name.substr(0, name.find(u'\0'));
    return name.substr(0, kMaxTitle);
}

}  // namespace

std::optional<HeaderInfo> checkHeader(const char* rec, std::uint64_t size)
{
    // Only the base fields every header has are checked. The description and
    // the pixel format (after the base fields, where the header's offsets
    // say) play no part in drawing, so damage there does not stop a picture
    // from loading, as it does not on Windows.
    if (size < U_SIZE_EMRHEADER_MIN)
        return std::nullopt;
    U_EMRHEADER h{};
    std::memcpy(&h, rec, U_SIZE_EMRHEADER_MIN);
    if (h.dSignature != U_ENHMETA_SIGNATURE)
        return std::nullopt;

    // A picture needs a frame with an area and a reference device with a
    // size; the frame is at most about ten metres wide.
    const std::int64_t frameW = std::int64_t(h.rclFrame.right) - h.rclFrame.left;
    const std::int64_t frameH = std::int64_t(h.rclFrame.bottom) - h.rclFrame.top;
    if (frameW <= 0 || frameH <= 0 || frameW > kMaxFrame || frameH > kMaxFrame)
        return std::nullopt;
    if (h.szlDevice.cx <= 0 || h.szlDevice.cy <= 0 || h.szlMillimeters.cx <= 0 ||
        h.szlMillimeters.cy <= 0)
        return std::nullopt;

    HeaderInfo info;
    info.bounds = h.rclBounds;
    info.frame = h.rclFrame;
    info.device = h.szlDevice;
    info.millimetresX = h.szlMillimeters.cx;
    info.millimetresY = h.szlMillimeters.cy;
    // Headers of 108 bytes and more give the device's size in micrometres
    // too, unless the description starts sooner. Windows maps frames through
    // the whole millimetres, so they stay the measure; but for a small device
    // (a program that makes the picture its own device writes 3 for 3.65 mm)
    // they are far off, and there the micrometres, within the millimetre
    // the header gives, are taken.
    const std::uint64_t fields = h.nDescription > 0 ? std::min<std::uint64_t>(size, h.offDescription) : size;
    if (fields >= U_SIZE_EMRHEADER_MIN + 20) {
        U_SIZEL micrometres{};
        std::memcpy(&micrometres, rec + offsetof(U_EMRHEADER, szlMicrometers), sizeof micrometres);
        const auto finer = [](std::int32_t um, std::int32_t mm) {
            const double off = um / 1000.0 - mm;
            return std::abs(off) < 1 && std::abs(off) > mm * 0.01;
        };
        if (finer(micrometres.cx, h.szlMillimeters.cx) && finer(micrometres.cy, h.szlMillimeters.cy)) {
            info.millimetresX = micrometres.cx / 1000.0;
            info.millimetresY = micrometres.cy / 1000.0;
        }
    }
    info.handles = h.nHandles == 0 ? 1 : h.nHandles;
    info.title = pictureName(rec, size, h.nDescription, h.offDescription);
    return info;
}

}  // namespace emf
