// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_header.h"

#include <cstddef>
#include <cstring>

namespace emf {

std::optional<HeaderInfo> checkHeader(const char* rec, std::uint64_t size)
{
    // Only the base fields every header has are read. The description and
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
