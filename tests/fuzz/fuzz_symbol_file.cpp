// SPDX-License-Identifier: GPL-2.0-or-later
// A player's symbol file on arbitrary bytes: the first byte picks the format
// (a metafile, a drawing or a PNG), the rest is the file. What loads is drawn
// into a clipped cell and stretched over a double-density box.
#include "platform/picture/emf_source.h"
#include "platform/picture/png_source.h"
#include "platform/picture/svg_source.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_symbol_file";
    static char* argv[] = {name, nullptr};
    [[maybe_unused]] static const bool offscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication app(argc, argv);
    if (size == 0)
        return 0;
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data) + 1, qsizetype(size) - 1);
    pictures::Loaded loaded;
    if (auto emf = data[0] % 3 == 0 ? EmfPicture::fromBytes(bytes) : std::nullopt)
        loaded.picture = pictures::fromEmf(std::move(*emf));
    else if (data[0] % 3 != 0)
        loaded = data[0] % 3 == 1 ? pictures::svgFromBytes(bytes) : pictures::pngFromBytes(bytes);
    if (!loaded.picture)
        return 0;
    QImage cell(24, 24, QImage::Format_ARGB32_Premultiplied), box(32, 32, QImage::Format_ARGB32_Premultiplied);
    box.setDevicePixelRatio(2);
    QPainter onCell(&cell), onBox(&box);
    onCell.setClipRect(QRect(0, 0, 24, 24));
    loaded.picture->paintInCell(onCell, QSizeF(24, 24));
    loaded.picture->paint(onBox, QRectF(1.5, 0, 13, 16));
    return 0;
}
