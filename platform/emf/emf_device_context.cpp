// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_device_context.h"

#include <uemf.h>

#include <cmath>

namespace emf {

namespace {

// Millimetres per logical unit of the fixed-scale map modes (y grows upward).
double millimetresPerUnit(std::uint32_t mapMode)
{
    switch (mapMode) {
    case U_MM_LOMETRIC: return 0.1;
    case U_MM_HIMETRIC: return 0.01;
    case U_MM_LOENGLISH: return 0.254;
    case U_MM_HIENGLISH: return 0.0254;
    case U_MM_TWIPS: return 25.4 / 1440;
    default: return 0;
    }
}

}  // namespace

QTransform pageTransform(const DeviceContext& dc, const ReferenceDevice& device)
{
    double sx = 1;
    double sy = 1;
    switch (dc.mapMode) {
    case U_MM_LOMETRIC: case U_MM_HIMETRIC: case U_MM_LOENGLISH:
    case U_MM_HIENGLISH: case U_MM_TWIPS: {
        const double mm = millimetresPerUnit(dc.mapMode);
        sx = mm * device.pixelsPerMmX;
        sy = -mm * device.pixelsPerMmY;
        break;
    }
    case U_MM_ISOTROPIC: case U_MM_ANISOTROPIC:
        sx = dc.viewportExt.width() / dc.windowExt.width();
        sy = dc.viewportExt.height() / dc.windowExt.height();
        if (dc.mapMode == U_MM_ISOTROPIC) {
            // Both axes take the smaller scale, each keeping its direction.
            const double m = std::min(std::abs(sx), std::abs(sy));
            sx = std::copysign(m, sx);
            sy = std::copysign(m, sy);
        }
        break;
    default:  // MM_TEXT: one logical unit per device pixel
        break;
    }
    return QTransform(sx, 0, 0, sy, dc.viewportOrg.x() - dc.windowOrg.x() * sx,
                      dc.viewportOrg.y() - dc.windowOrg.y() * sy);
}

void keepExtentsOnSwitch(DeviceContext& dc, const ReferenceDevice& device)
{
    const double mm = millimetresPerUnit(dc.mapMode);
    if (dc.mapMode == U_MM_ISOTROPIC || dc.mapMode == U_MM_ANISOTROPIC)
        return;
    if (mm == 0) {
        dc.windowExt = QSizeF(1, 1);
        dc.viewportExt = QSizeF(1, 1);
        return;
    }
    dc.windowExt = device.millimetres / mm;
    dc.viewportExt = QSizeF(device.pixels.width(), -device.pixels.height());
}

QTransform logicalToDevice(const DeviceContext& dc, const ReferenceDevice& device)
{
    return dc.world * pageTransform(dc, device);
}

}  // namespace emf
