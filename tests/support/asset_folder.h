// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// A fresh working folder stocked with the game's files: all of them, or only
// the ones named.
#include <QDir>
#include <QFile>
#include <QStringList>

inline QString assetsDir() { return qEnvironmentVariable("REELMOOR_ASSETS"); }

inline QStringList everyAsset() { return QDir(assetsDir()).entryList(QDir::Files); }

// False when the folder cannot be made or a file cannot be copied.
inline bool stockFolder(const QString& dir, const QStringList& files = everyAsset())
{
    QDir(dir).removeRecursively();
    bool ok = QDir().mkpath(dir) && !files.isEmpty();
    for (const QString& f : files)
        ok = QFile::copy(assetsDir() + "/" + f, dir + "/" + f) && ok;
    return ok;
}
