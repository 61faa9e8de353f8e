// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Painted and photographic symbols (PNG) as pictures, scaled smoothly.
#include "platform/picture/picture_files.h"

#include <QByteArray>

namespace pictures {

// A PNG from its bytes; one claiming more than the pixel cap is refused
// before its pixels are allocated.
Loaded pngFromBytes(const QByteArray& bytes);
Loaded loadPng(const QString& path);

}  // namespace pictures
