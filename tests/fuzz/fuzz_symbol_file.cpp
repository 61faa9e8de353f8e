// SPDX-License-Identifier: GPL-2.0-or-later
// A player's symbol file on arbitrary bytes: the first byte picks the format
// (a metafile, a drawing or a PNG), the rest is the file. What loads is drawn
// as the game draws a symbol, into its cell, and stretched on a
// double-density image.
#include "platform/picture/emf_source.h"
#include "platform/picture/png_source.h"
#include "platform/picture/svg_source.h"
#include "tests/fuzz/fuzz_check.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_symbol_file";
    static char* argv[] = {name, nullptr};
    static const bool offscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication app(argc, argv);
    (void)offscreen;
    if (size == 0)
        return 0;
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data) + 1, qsizetype(size - 1));
    pictures::Loaded loaded;
    switch (data[0] % 3) {
    case 0: if (auto emf = EmfPicture::fromBytes(bytes)) loaded.picture = pictures::fromEmf(std::move(*emf)); break;
    case 1: loaded = pictures::svgFromBytes(bytes); break;
    default: loaded = pictures::pngFromBytes(bytes); break;
    }
    if (!loaded.picture)
        return 0;
    const QSizeF own = loaded.picture->exactSize();
    FUZZ_CHECK(own.width() >= 0 && own.height() >= 0);
    QImage cell(24, 24, QImage::Format_ARGB32_Premultiplied);
    cell.fill(Qt::white);
    QImage box(32, 32, QImage::Format_ARGB32_Premultiplied);
    box.setDevicePixelRatio(2);
    {
        QPainter painter(&cell);
        painter.setClipRect(QRect(0, 0, 24, 24));
        loaded.picture->paintInCell(painter, QSizeF(24, 24));
        QPainter onBox(&box);
        loaded.picture->paint(onBox, QRectF(1.5, 0, 13, 16));
    }
    (void)loaded.picture->title();
    return 0;
}
