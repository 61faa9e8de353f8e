// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// reelmoor-picture-check render IN.emf|IN.svg|IN.png OUT.png [--size N]
#include <QStringList>

namespace picture_check {

// Exit status: 0 drawn, 1 the PNG could not be written, 2 the picture is
// refused (one line on stderr says why) or the arguments are wrong.
int renderCommand(const QStringList& args);

}  // namespace picture_check
