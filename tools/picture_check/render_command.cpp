// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/picture_check/render_command.h"

#include "platform/picture/picture_files.h"
#include "tools/picture_check/refusal.h"

#include <QFile>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstdio>

namespace picture_check {

namespace {

constexpr int kDefaultSize = 256;
constexpr int kMaxSize = 8192;
constexpr qint64 kReadLimit = 32 * 1024 * 1024 + 1;

int usage()
{
    std::fprintf(stderr, "usage: reelmoor-picture-check render IN.emf|IN.svg|IN.png OUT.png [--size N]\n");
    return 2;
}

// The picture's frame fitted into an edge × edge square, aspect kept, centred.
QRectF fitted(QSizeF frame, int edge)
{
    const double scale = std::min(edge / frame.width(), edge / frame.height());
    const QSizeF size = frame * scale;
    return QRectF(QPointF((edge - size.width()) / 2, (edge - size.height()) / 2), size);
}

// Why the game refuses the file; a metafile's damage is told in detail.
QString reason(const QString& path, const QString& why)
{
    if (!path.endsWith(QLatin1String(".emf"), Qt::CaseInsensitive))
        return why;
    QFile file(path);
    const bool readable = file.open(QIODevice::ReadOnly);
    return whyRefused(readable ? file.read(kReadLimit) : QByteArray(), readable);
}

}  // namespace

int renderCommand(const QStringList& args)
{
    if (args.size() != 2 && args.size() != 4)
        return usage();
    int edge = kDefaultSize;
    if (args.size() == 4) {
        bool ok = false;
        edge = args[3].toInt(&ok);
        if (args[2] != QLatin1String("--size") || !ok || edge < 1 || edge > kMaxSize)
            return usage();
    }

    const pictures::Loaded loaded = pictures::loadPicture(args[0]);
    if (!loaded.picture) {
        std::fprintf(stderr, "%s: refused: %s\n", qPrintable(args[0]), qPrintable(reason(args[0], loaded.why)));
        return 2;
    }
    const Picture& picture = *loaded.picture;

    QImage image(edge, edge, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        picture.paint(painter, fitted(picture.exactSize(), edge));
    }
    if (!image.convertToFormat(QImage::Format_RGB32).save(args[1], "PNG")) {
        std::fprintf(stderr, "%s: cannot be written\n", qPrintable(args[1]));
        return 1;
    }
    return 0;
}

}  // namespace picture_check
