// SPDX-License-Identifier: GPL-2.0-or-later
// Drawings behind the common picture type, rendered by librsvg into pixels at
// the painter's device resolution.
#include "platform/picture/svg_source.h"

#include "platform/picture/device_raster.h"

// GLib names a structure member `signals`, which Qt keeps as a keyword.
#pragma push_macro("signals")
#undef signals
#include <librsvg/rsvg.h>
#pragma pop_macro("signals")

#include <QXmlStreamReader>

#include <cmath>
#include <memory>

namespace pictures {

namespace {

// Lengths in a drawing's own units become pixels at the screen's 96 dpi.
constexpr double kDpi = 96;

struct GObjectUnref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
using Handle = std::unique_ptr<RsvgHandle, GObjectUnref>;

// The root's <title>, if it comes before the root's first drawn element.
// Entities in it are expanded only up to Qt's own limit.
QString rootTitle(const QByteArray& bytes)
{
    QXmlStreamReader xml(bytes);
    int depth = 0;
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::EndElement && --depth < 1)
            break;
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (++depth == 2) {
            if (xml.name() == QLatin1String("title"))
                return xml.readElementText(QXmlStreamReader::IncludeChildElements).simplified();
            if (xml.name() != QLatin1String("desc") && xml.name() != QLatin1String("metadata"))
                break;
            xml.skipCurrentElement();
            --depth;
        }
    }
    return {};
}

// The drawing's own size: its width and height, or where they are missing or
// relative, its view box.
QSizeF ownSize(RsvgHandle* handle)
{
    double width = 0;
    double height = 0;
    if (rsvg_handle_get_intrinsic_size_in_pixels(handle, &width, &height))
        return {width, height};
    gboolean hasViewBox = FALSE;
    RsvgRectangle viewBox{};
    rsvg_handle_get_intrinsic_dimensions(handle, nullptr, nullptr, nullptr, nullptr, &hasViewBox, &viewBox);
    if (hasViewBox)
        return {viewBox.width, viewBox.height};
    return {};
}

class SvgSource final : public Picture::Source {
public:
    SvgSource(Handle handle, QSizeF size, QString title)
        : handle_(std::move(handle)), size_(size), title_(std::move(title))
    {
    }

    bool scalesIntoCell() const override { return true; }
    QSizeF exactSize() const override { return size_; }
    QString title() const override { return title_; }

    void paint(QPainter& painter, const QRectF& target) const override
    {
        raster_.paint(painter, target, [this](QSize pixels, const QRectF& at) { return render(pixels, at); });
    }

private:
    QImage render(QSize pixels, const QRectF& at) const
    {
        QImage image = transparentImage(pixels);
        if (image.isNull())
            return image;
        // Cairo's ARGB32 is Qt's premultiplied ARGB32: both native-endian words.
        cairo_surface_t* surface = cairo_image_surface_create_for_data(
            image.bits(), CAIRO_FORMAT_ARGB32, image.width(), image.height(), int(image.bytesPerLine()));
        cairo_t* cr = cairo_create(surface);
        // Stretched over the target exactly, as the other formats are.
        cairo_translate(cr, at.x(), at.y());
        cairo_scale(cr, at.width() / size_.width(), at.height() / size_.height());
        const RsvgRectangle viewport{0, 0, size_.width(), size_.height()};
        GError* error = nullptr;
        rsvg_handle_render_document(handle_.get(), cr, &viewport, &error);
        g_clear_error(&error);  // what could be drawn is drawn
        cairo_destroy(cr);
        cairo_surface_flush(surface);
        cairo_surface_destroy(surface);
        return image;
    }

    Handle handle_;
    QSizeF size_;
    QString title_;
    DeviceRaster raster_;
};

}  // namespace

Loaded svgFromBytes(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return {std::nullopt, QStringLiteral("the file is empty")};
    // No base file: librsvg then resolves no reference to another file, and
    // it never goes to the network. Without the "unlimited" flag the XML
    // parser keeps its limits on entity expansion and nesting.
    GInputStream* stream = g_memory_input_stream_new_from_data(bytes.constData(), bytes.size(), nullptr);
    GError* error = nullptr;
    Handle handle(rsvg_handle_new_from_stream_sync(stream, nullptr, RSVG_HANDLE_FLAGS_NONE, nullptr, &error));
    g_object_unref(stream);
    if (!handle) {
        const QString why = QStringLiteral("the drawing cannot be read (%1)")
                                .arg(error ? QString::fromUtf8(error->message).simplified() : QString());
        g_clear_error(&error);
        return {std::nullopt, why};
    }
    rsvg_handle_set_dpi(handle.get(), kDpi);
    const QSizeF size = ownSize(handle.get());
    if (!(size.width() > 0 && size.height() > 0) || !std::isfinite(size.width()) || !std::isfinite(size.height()))
        return {std::nullopt, QStringLiteral("the drawing gives no size of its own")};
    // A large own size costs nothing: a drawing becomes pixels only where it
    // is shown, and never more than the pixel cap.
    auto source = std::make_shared<const SvgSource>(std::move(handle), size, rootTitle(bytes));
    return {Picture(std::move(source)), {}};
}

Loaded loadSvg(const QString& path)
{
    FileBytes file = readPictureFile(path);
    if (!file.why.isEmpty())
        return {std::nullopt, file.why};
    return svgFromBytes(file.bytes);
}

}  // namespace pictures
