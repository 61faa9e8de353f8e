#pragma once
// The ways a file of the game can come to its folder broken.
#include "tests/support/asset_folder.h"
#include "tests/winners/file_bytes.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QString>
#include <QStringList>

namespace damage {

enum class Kind { missing, empty, truncated, randomBytes, oversized, folder };

inline const char* nameOf(Kind k)
{
    switch (k) {
    case Kind::missing: return "missing";
    case Kind::empty: return "empty";
    case Kind::truncated: return "truncated";
    case Kind::randomBytes: return "random bytes";
    case Kind::oversized: return "oversized";
    case Kind::folder: return "a folder";
    }
    return "?";
}

inline QByteArray randomBytes(int size, quint32 seed)
{
    QRandomGenerator gen(seed);
    QByteArray bytes(size, Qt::Uninitialized);
    for (char& b : bytes)
        b = char(gen.bounded(256));
    return bytes;
}

// Breaks dir/file the given way. An oversized file is the whole file
// followed by 48 MB of nothing (a sparse file, cheap to make).
inline bool apply(const QString& dir, const QString& file, Kind kind)
{
    const QString path = dir + "/" + file;
    const QByteArray whole = readFile(path);
    QFile::remove(path);
    switch (kind) {
    case Kind::missing: return true;
    case Kind::empty: return writeFile(path, {});
    case Kind::truncated: return writeFile(path, whole.left(whole.size() / 2));
    case Kind::randomBytes: return writeFile(path, randomBytes(qMax(64, int(whole.size())), qHash(file)));
    case Kind::oversized: {
        if (!writeFile(path, whole))
            return false;
        QFile f(path);
        return f.open(QIODevice::ReadWrite) && f.resize(whole.size() + 48LL * 1024 * 1024);
    }
    case Kind::folder: return QDir().mkpath(path);
    }
    return false;
}

inline QList<Kind> everyKind()
{
    return {Kind::missing, Kind::empty, Kind::truncated, Kind::randomBytes, Kind::oversized, Kind::folder};
}
}
