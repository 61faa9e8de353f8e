// SPDX-License-Identifier: GPL-2.0-or-later
#include "tests/platform/emf/emf_test_support.h"

#include <QFile>
#include <QPainter>

namespace {

QByteArray readBack(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

QByteArray writeEmf(int width, int height, const Drawing& draw)
{
    QTemporaryDir dir;
    const QString path = dir.filePath("picture.emf");
    {
        EmfWriter emf(path.toStdString(), width, height);
        draw(emf);
        if (!emf.finish())
            return {};
    }
    return readBack(path);
}

QByteArray writeEmf(U_RECTL bounds, U_RECTL frame, U_SIZEL devicePixels, U_SIZEL millimetres,
                    const Drawing& draw)
{
    QTemporaryDir dir;
    const QString path = dir.filePath("picture.emf");
    {
        EmfWriter emf(path.toStdString(), bounds, frame, devicePixels, millimetres);
        draw(emf);
        if (!emf.finish())
            return {};
    }
    return readBack(path);
}

QImage renderNatural(const EmfPicture& picture, int width, int height, double ratio)
{
    QImage image(int(width * ratio), int(height * ratio), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    QPainter p(&image);
    picture.paintNatural(p);
    return image;
}

QImage renderInto(const EmfPicture& picture, QSize size, const QRectF& target)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter p(&image);
    picture.paint(p, target);
    return image;
}

double darknessAt(const QImage& image, int x, int y)
{
    const QRgb c = image.pixel(x, y);
    return 1 - (qRed(c) + qGreen(c) + qBlue(c)) / (3 * 255.0);
}

Ink inkOf(const QImage& image)
{
    Ink ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const double d = darknessAt(image, x, y);
            ink.area += d;
            if (d >= 0.5)
                ink.box |= QRect(x, y, 1, 1);
        }
    return ink;
}

void blackFill(EmfWriter& emf)
{
    emf.select(U_BLACK_BRUSH);
    emf.select(U_NULL_PEN);
}
