// SPDX-License-Identifier: GPL-2.0-or-later
// How many symbols the game would load from a folder, by the game's own
// loading rule and picture readers.
#include "arguments.h"

#include "platform/picture/picture_files.h"
#include "tools/odds/odds.h"

#include <QDir>
#include <QFileInfo>

int symbolsInFolder(std::string_view folder)
{
    const QString path = QString::fromUtf8(folder.data(), static_cast<qsizetype>(folder.size()));
    if (!QFileInfo(path).isDir())
        usageError("--folder: \"" + std::string(folder) + "\" is not a folder");
    const int symbols = static_cast<int>(pictures::loadSymbols(QDir(path)).size());
    if (symbols == 0)
        usageError("--folder: no symbol 0 the game can load in \"" + std::string(folder) + "\"");
    return symbols;
}
