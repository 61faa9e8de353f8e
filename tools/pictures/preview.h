// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
#include <QString>

namespace pictures {

// Draws the symbols (at 73 and 38 px, and at twice the pixels) and the
// splash picture from `folder` with the game's own metafile decoder, into
// one PNG sheet for looking them over.
bool writePreview(const QString& folder, const QString& pngPath);

}  // namespace pictures
