// SPDX-License-Identifier: GPL-2.0-or-later
// The picture loader on arbitrary bytes: a file it accepts is drawn the two
// ways the game draws its pictures, at its own size into a clipped symbol
// buffer and stretched over a box, the latter on a double-density image.
#include "platform/emf/emf_picture.h"
#include "tests/fuzz/fuzz_check.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <cstdint>

namespace {

QImage whiteImage(int side, double ratio)
{
    QImage image(int(side * ratio), int(side * ratio), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    return image;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // Text needs the application's fonts.
    static int argc = 1;
    static char name[] = "fuzz_picture";
    static char* argv[] = {name, nullptr};
    static const bool offscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication app(argc, argv);  // closed at exit, fonts and all
    (void)offscreen;
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    const std::optional<EmfPicture> picture = EmfPicture::fromBytes(bytes);
    if (!picture)
        return 0;
    const QSize natural = picture->naturalSize();
    FUZZ_CHECK(natural.width() >= 0 && natural.height() >= 0);

    QImage symbol = whiteImage(24, 1);
    {
        QPainter painter(&symbol);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setClipRect(QRect(0, 0, 24, 24));
        picture->paintNatural(painter);
    }

    QImage box = whiteImage(16, 2);
    {
        QPainter painter(&box);
        picture->paint(painter, QRectF(1.5, 0, 13, 16));
    }

    // A copy draws the same as the original.
    const EmfPicture copy = *picture;
    FUZZ_CHECK(copy.naturalSize() == natural);
    return 0;
}
