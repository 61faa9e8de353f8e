// SPDX-License-Identifier: GPL-2.0-or-later
// How many symbols the game would load from a folder: it reads "0.emf",
// "1.emf"... with its own picture reader and stops at the first it cannot
// load.
#include "arguments.h"

#include "platform/emf/emf_picture.h"
#include "tools/odds/odds.h"

#include <QDir>
#include <QFileInfo>

int symbolsInFolder(std::string_view folder)
{
    const QString path = QString::fromUtf8(folder.data(), static_cast<qsizetype>(folder.size()));
    if (!QFileInfo(path).isDir())
        usageError("--folder: \"" + std::string(folder) + "\" is not a folder");
    const QDir dir(path);
    int symbols = 0;
    while (symbols < kMaxSymbols && EmfPicture::load(dir.filePath(QString::number(symbols) + ".emf")))
        ++symbols;
    if (symbols == 0)
        usageError("--folder: no 0.emf the game can load in \"" + std::string(folder) + "\"");
    return symbols;
}
