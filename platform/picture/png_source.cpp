// SPDX-License-Identifier: GPL-2.0-or-later
// PNG pictures behind the common picture type.
#include "platform/picture/png_source.h"

#include "platform/picture/device_raster.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QtEndian>

namespace pictures {

namespace {

class PngSource final : public Picture::Source {
public:
    explicit PngSource(QImage image) : image_(std::move(image)) {}

    bool scalesIntoCell() const override { return true; }
    QSizeF exactSize() const override { return QSizeF(image_.size()); }

    void paint(QPainter& painter, const QRectF& target) const override
    {
        raster_.paint(painter, target, [this](QSize pixels, const QRectF& at) { return render(pixels, at); });
    }

private:
    // Scaled in one smooth step to the size it is shown at: a large photo
    // shrunk into a cell averages its pixels instead of skipping them.
    QImage render(QSize pixels, const QRectF& at) const
    {
        QImage image = transparentImage(pixels);
        if (image.isNull())
            return image;
        const QSize scaled = at.size().toSize().expandedTo(QSize(1, 1));
        if (std::int64_t(scaled.width()) * scaled.height() > kMaxPixels)
            return {};
        QPainter painter(&image);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(at, image_.scaled(scaled, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        return image;
    }

    QImage image_;
    DeviceRaster raster_;
};

// Whether the chunks run whole from the signature to the end chunk. A cut
// file is told apart here, before libpng, which would complain on stderr.
bool wholeChunks(const QByteArray& bytes)
{
    static const QByteArray signature("\x89PNG\r\n\x1a\n", 8);
    if (!bytes.startsWith(signature))
        return false;
    for (qsizetype at = signature.size(); at + 12 <= bytes.size();) {
        const quint32 length = qFromBigEndian<quint32>(bytes.constData() + at);
        if (length > quint32(bytes.size() - at - 12))
            return false;
        if (bytes.mid(at + 4, 4) == "IEND")
            return true;
        at += 12 + qsizetype(length);
    }
    return false;
}

}  // namespace

Loaded pngFromBytes(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return {std::nullopt, QStringLiteral("the file is empty")};
    if (!wholeChunks(bytes))
        return {std::nullopt, QStringLiteral("the file is no PNG picture, or is cut short")};
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    // Only PNG: a file named .png is not read as whatever else it might be.
    QImageReader reader(&buffer, "png");
    reader.setDecideFormatFromContent(false);
    const QSize size = reader.size();
    if (!size.isValid() || size.isEmpty())
        return {std::nullopt, QStringLiteral("the file is no PNG picture the game can read")};
    if (std::int64_t(size.width()) * size.height() > kMaxPixels)
        return {std::nullopt, QStringLiteral("the picture is larger than 64 megapixels")};
    QImage image;
    if (!reader.read(&image))
        return {std::nullopt, QStringLiteral("the PNG picture is damaged (%1)").arg(reader.errorString())};
    return {Picture(std::make_shared<const PngSource>(
                image.convertToFormat(QImage::Format_ARGB32_Premultiplied))),
            {}};
}

Loaded loadPng(const QString& path)
{
    FileBytes file = readPictureFile(path);
    if (!file.why.isEmpty())
        return {std::nullopt, file.why};
    return pngFromBytes(file.bytes);
}

}  // namespace pictures
