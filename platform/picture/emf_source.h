// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Enhanced Metafiles as pictures: our own record interpreter behind the
// common picture type.
#include "platform/emf/emf_picture.h"
#include "platform/picture/picture_files.h"

namespace pictures {

Picture fromEmf(EmfPicture emf);
Loaded loadEmf(const QString& path);

}  // namespace pictures
