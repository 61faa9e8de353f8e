// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Says in a few words why the game refuses a picture file.
#include <QByteArray>
#include <QString>

namespace picture_check {

// The file's bytes as read; `readable` false when it could not be opened.
QString whyRefused(const QByteArray& bytes, bool readable);

}  // namespace picture_check
