// SPDX-License-Identifier: GPL-2.0-or-later
// The loading rule: which file of a folder is which symbol, and which format
// reads it.
#include "platform/picture/picture_files.h"

#include "platform/picture/emf_source.h"
#include "platform/picture/png_source.h"
#include "platform/picture/svg_source.h"

#include <QFile>
#include <QFileInfo>

#include <array>

namespace pictures {

namespace {

// A symbol's file is looked for with these suffixes, in this order. EMF comes
// first so that our own folder, which holds only EMF files, plays as it always
// has.
constexpr std::array<const char*, 3> kSymbolSuffixes = {"emf", "svg", "png"};

// Larger files are no symbols; refusing them bounds memory use.
constexpr qint64 kMaxFileBytes = 32 * 1024 * 1024;

}  // namespace

FileBytes readPictureFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, QStringLiteral("the file cannot be read")};
    QByteArray bytes = file.read(kMaxFileBytes + 1);
    if (bytes.size() > kMaxFileBytes)
        return {{}, QStringLiteral("the file is larger than 32 MiB")};
    if (bytes.isEmpty())
        return {{}, QStringLiteral("the file is empty")};
    return {std::move(bytes), {}};
}

Loaded loadPicture(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("emf"))
        return loadEmf(path);
    if (suffix == QLatin1String("svg"))
        return loadSvg(path);
    if (suffix == QLatin1String("png"))
        return loadPng(path);
    return {std::nullopt, QStringLiteral("the file is no picture the game reads (.emf, .svg or .png)")};
}

Loaded loadSymbol(const QDir& folder, int n)
{
    QStringList tried;
    for (const char* suffix : kSymbolSuffixes) {
        const QString name = QString::number(n) + '.' + QLatin1String(suffix);
        if (!folder.exists(name))
            continue;
        Loaded loaded = loadPicture(folder.filePath(name));
        if (loaded.picture)
            return loaded;
        tried << name + ": " + loaded.why;
    }
    if (tried.isEmpty())
        return {std::nullopt, QStringLiteral("no %1.emf, %1.svg or %1.png").arg(n)};
    return {std::nullopt, tried.join(QStringLiteral("; "))};
}

std::vector<Picture> loadSymbols(const QDir& folder)
{
    std::vector<Picture> symbols;
    for (int n = 0; n < kMaxSymbols; ++n) {
        Loaded loaded = loadSymbol(folder, n);
        if (!loaded.picture)
            break;
        symbols.push_back(std::move(*loaded.picture));
    }
    return symbols;
}

}  // namespace pictures
