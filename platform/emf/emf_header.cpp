// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_header.h"

#include <cstddef>
#include <cstring>

namespace emf {

namespace {

constexpr std::uint64_t kBaseHeader = U_SIZE_EMRHEADER_MIN;               // 88
constexpr std::uint64_t kWithPixelFormat = kBaseHeader + 12;               // 100
constexpr std::uint64_t kWithMicrometres = kWithPixelFormat + 8;           // 108

// A block of `count` bytes at `offset` lies after the fixed fields and
// inside the header record.
bool blockInside(std::uint64_t offset, std::uint64_t count, std::uint64_t fixedEnd,
                 std::uint64_t size)
{
    return count == 0 || (offset >= fixedEnd && offset + count <= size);
}

}  // namespace

std::optional<HeaderInfo> checkHeader(const char* rec, std::uint64_t size)
{
    if (size < kBaseHeader)
        return std::nullopt;
    U_EMRHEADER h{};
    std::memcpy(&h, rec, kBaseHeader);
    if (h.dSignature != U_ENHMETA_SIGNATURE)
        return std::nullopt;

    // The fixed fields end where the record ends or the description begins,
    // whichever comes first; the optional fields exist only below that.
    std::uint64_t fixedEnd = size;
    if (h.nDescription != 0 && h.offDescription < fixedEnd)
        fixedEnd = h.offDescription;
    if (fixedEnd >= kWithMicrometres)
        fixedEnd = kWithMicrometres;
    else if (fixedEnd >= kWithPixelFormat)
        fixedEnd = kWithPixelFormat;
    else
        fixedEnd = kBaseHeader;

    if (!blockInside(h.offDescription, 2ull * h.nDescription, kBaseHeader, size))
        return std::nullopt;
    if (fixedEnd >= kWithPixelFormat) {
        const std::uint64_t cb = readU32(rec, offsetof(U_EMRHEADER, cbPixelFormat));
        const std::uint64_t off = readU32(rec, offsetof(U_EMRHEADER, offPixelFormat));
        if (!blockInside(off, cb, fixedEnd, size))
            return std::nullopt;
    }

    // A picture needs a frame with an area and a reference device with a
    // size; the frame is at most about ten metres wide.
    const std::int64_t frameW = std::int64_t(h.rclFrame.right) - h.rclFrame.left;
    const std::int64_t frameH = std::int64_t(h.rclFrame.bottom) - h.rclFrame.top;
    constexpr std::int64_t kMaxFrame = 1'000'000;
    if (frameW <= 0 || frameH <= 0 || frameW > kMaxFrame || frameH > kMaxFrame)
        return std::nullopt;
    if (h.szlDevice.cx <= 0 || h.szlDevice.cy <= 0 || h.szlMillimeters.cx <= 0 ||
        h.szlMillimeters.cy <= 0)
        return std::nullopt;

    HeaderInfo info;
    info.bounds = h.rclBounds;
    info.frame = h.rclFrame;
    info.device = h.szlDevice;
    info.millimeters = h.szlMillimeters;
    info.handles = h.nHandles == 0 ? 1 : h.nHandles;
    return info;
}

}  // namespace emf
