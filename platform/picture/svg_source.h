// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Drawings (SVG) as pictures, drawn by librsvg, the desktop's own renderer:
// gradients, masks, filters and CSS come out as the drawing program shows
// them.
#include "platform/picture/picture_files.h"

#include <QByteArray>

namespace pictures {

// A drawing from its bytes alone: with no file behind it, it can reach no
// other file and nothing on the network.
Loaded svgFromBytes(const QByteArray& bytes);
Loaded loadSvg(const QString& path);

}  // namespace pictures
