// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/picture_check/render_command.h"

#include "platform/emf/emf_picture.h"
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
    std::fprintf(stderr, "usage: reelmoor-picture-check render IN.emf OUT.png [--size N]\n");
    return 2;
}

// The picture's frame fitted into an edge × edge square, aspect kept, centred.
QRectF fitted(QSizeF frame, int edge)
{
    const double scale = std::min(edge / frame.width(), edge / frame.height());
    const QSizeF size = frame * scale;
    return QRectF(QPointF((edge - size.width()) / 2, (edge - size.height()) / 2), size);
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

    QFile file(args[0]);
    const bool readable = file.open(QIODevice::ReadOnly);
    const QByteArray bytes = readable ? file.read(kReadLimit) : QByteArray();
    const auto picture = EmfPicture::fromBytes(bytes);
    if (!picture) {
        std::fprintf(stderr, "%s: refused: %s\n", qPrintable(args[0]),
                     qPrintable(whyRefused(bytes, readable)));
        return 2;
    }

    QImage image(edge, edge, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        picture->paint(painter, fitted(picture->exactSize(), edge));
    }
    if (!image.convertToFormat(QImage::Format_RGB32).save(args[1], "PNG")) {
        std::fprintf(stderr, "%s: cannot be written\n", qPrintable(args[1]));
        return 1;
    }
    return 0;
}

}  // namespace picture_check
