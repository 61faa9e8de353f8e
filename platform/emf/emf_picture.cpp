// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_picture.h"

#include "platform/emf/emf_draw_op.h"
#include "platform/emf/emf_limits.h"
#include "platform/emf/emf_player.h"
#include "platform/emf/emf_record_check.h"

#include <QFile>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace {

// Zeroed bytes after the data, so that a check peeking a field past the last
// record reads zeros instead of foreign memory.
constexpr std::size_t kSlackBytes = 256;

// Bitmaps are drawn through their own placement, smoothed when scaled.
void paintImage(QPainter& painter, const emf::ImageOp& op, QPainter::CompositionMode composition)
{
    painter.save();
    painter.setTransform(op.placement, true);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
    painter.setCompositionMode(composition);
    painter.drawImage(QPointF(0, 0), op.image);
    painter.restore();
}

// The pen of a stroke; no pen comes out thinner than `thinnest` units, or
// than `thinnestWide` when it has a width of its own. `devicePerUnit`:
// device pixels per unit.
QPen qtPen(const emf::Stroke& stroke, double thinnest, double thinnestWide, double devicePerUnit)
{
    QPen pen(stroke.color);
    const double width = std::max(stroke.width, stroke.width > 0 ? thinnestWide : thinnest);
    pen.setWidthF(width);
    pen.setStyle(stroke.style);
    pen.setCapStyle(stroke.cap);
    pen.setJoinStyle(stroke.join);
    pen.setMiterLimit(stroke.miterLimit);
    // A pen that comes out one device pixel wide (or less) takes its
    // one-pixel dashes, counted in device pixels.
    const double pixels = stroke.width == 0 ? 1 : width * devicePerUnit;
    QList<qreal> dashes = pixels < 1.5 ? stroke.onePixelDashes : stroke.wideDashes;
    if (pixels < 1 && pixels > 0)
        for (qreal& d : dashes)
            d /= pixels;
    if (!dashes.isEmpty())
        pen.setDashPattern(dashes);
    return pen;
}

// A one-pixel pen lights whole pixels of the device it draws on: each point
// lands on the pixel its place rounds to, so a hairline is one crisp pixel
// wide in its own colour instead of a pale smear across two.
void paintHairline(QPainter& painter, const QPainterPath& path, QPen pen)
{
    bool invertible = false;
    const QTransform toDevice = painter.deviceTransform();
    // What is left of the painter's own mapping once the picture's part is
    // undone (the screen's pixel ratio), so device pixels can be drawn.
    const QTransform fromDevice = toDevice.inverted(&invertible) * painter.worldTransform();
    if (!invertible) {
        painter.setPen(pen);
        painter.drawPath(path);
        return;
    }
    QPainterPath snapped = toDevice.map(path);
    for (int i = 0; i < snapped.elementCount(); ++i) {
        const QPainterPath::Element e = snapped.elementAt(i);
        snapped.setElementPositionAt(i, std::round(e.x) + 0.5, std::round(e.y) + 0.5);
    }
    pen.setWidthF(1);
    painter.save();
    painter.setWorldTransform(fromDevice);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(pen);
    painter.drawPath(snapped);
    painter.restore();
}

}  // namespace

struct EmfPicture::Data : emf::PictureData {
    Data(emf::PictureData d, QString name) : emf::PictureData(std::move(d)), title(std::move(name)) {}
    QString title;
};

EmfPicture::EmfPicture(std::shared_ptr<const Data> d) : d_(std::move(d)) {}
EmfPicture::EmfPicture(const EmfPicture&) = default;
EmfPicture& EmfPicture::operator=(const EmfPicture&) = default;
EmfPicture::EmfPicture(EmfPicture&&) noexcept = default;
EmfPicture& EmfPicture::operator=(EmfPicture&&) noexcept = default;
EmfPicture::~EmfPicture() = default;

std::optional<EmfPicture> EmfPicture::load(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > emf::kMaxFileBytes)
        return std::nullopt;
    // Read what the file holds (a file that grows meanwhile is cut at the
    // limit); asking for the limit itself would allocate it all up front.
    const QByteArray bytes = file.read(std::min<qint64>(file.size(), emf::kMaxFileBytes) + 1);
    if (bytes.size() > emf::kMaxFileBytes)
        return std::nullopt;
    return fromBytes(bytes);
}

std::optional<EmfPicture> EmfPicture::fromBytes(const QByteArray& bytes)
{
    if (bytes.size() > emf::kMaxFileBytes)
        return std::nullopt;
    // Word-aligned, zero-padded copy: records are read where they lie.
    const std::size_t size = std::size_t(bytes.size());
    std::vector<std::uint32_t> words((size + kSlackBytes) / 4 + 1, 0);
    char* data = reinterpret_cast<char*>(words.data());
    if (size != 0)
        std::memcpy(data, bytes.constData(), size);

    const auto checked = emf::checkMetafile(data, size);
    if (!checked)
        return std::nullopt;
    const std::u16string& title = checked->header.title;
    return EmfPicture(std::make_shared<const Data>(
        emf::playRecords(data, *checked),
        QString::fromUtf16(title.data(), static_cast<qsizetype>(title.size()))));
}

QSize EmfPicture::naturalSize() const
{
    return d_ ? d_->naturalSize : QSize();
}

QSizeF EmfPicture::exactSize() const
{
    return d_ ? d_->exactSize : QSizeF();
}

QString EmfPicture::title() const
{
    return d_ ? d_->title : QString();
}

void EmfPicture::paint(QPainter& painter, const QRectF& target) const
{
    if (!d_)
        return;  // moved from
    const QRectF& frame = d_->frame;
    if (frame.width() <= 0 || frame.height() <= 0 || target.isEmpty())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    // The picture is its frame: whatever a file draws beyond it stays unseen,
    // as it would on the screen the file was made for.
    painter.setClipRect(target, Qt::IntersectClip);
    QTransform placement;
    placement.translate(target.x(), target.y());
    placement.scale(target.width() / frame.width(), target.height() / frame.height());
    placement.translate(-frame.x(), -frame.y());
    painter.setTransform(placement, true);

    // How many pixels of the painter's device one reference pixel covers,
    // so that a zero-width pen comes out one device pixel wide.
    const QTransform toDevice = painter.deviceTransform();
    const double devicePerUnit = emf::linearScale(toDevice);
    const double thinnest = devicePerUnit > 0 ? std::min(1 / devicePerUnit, emf::kMaxPenWidth) : 1;
    // A pen with a width of its own keeps at least one reference pixel when
    // the picture is drawn smaller than its own size, so its lines come out
    // faint, as on a screen that draws the picture whole and then shrinks it.
    const double thinnestWide = std::min(thinnest, 1.0);

    for (const emf::DrawOp& op : d_->ops) {
        if (op.clip) {
            painter.save();
            painter.setClipPath(*op.clip, Qt::IntersectClip);
        }
        if (const auto* image = std::get_if<emf::ImageOp>(&op.what)) {
            paintImage(painter, *image, op.composition);
        } else {
            const auto& shape = std::get<emf::ShapeOp>(op.what);
            painter.setCompositionMode(op.composition);
            // Bitwise mixes work on whole pixels, as on the screen the file
            // was made for: a smoothed edge would be mixed in full, and two
            // shapes sharing an edge would both mix it.
            painter.setRenderHint(QPainter::Antialiasing, op.composition < QPainter::RasterOp_SourceOrDestination);
            painter.setBrush(shape.fill ? *shape.fill : QBrush(Qt::NoBrush));
            painter.setPen(shape.stroke ? qtPen(*shape.stroke, thinnest, thinnestWide, devicePerUnit) : QPen(Qt::NoPen));
            if (shape.stroke && shape.stroke->width == 0) {
                const QPen pen = painter.pen();
                painter.setPen(Qt::NoPen);
                if (shape.fill)
                    painter.drawPath(shape.path);
                paintHairline(painter, shape.path, pen);
            } else {
                painter.drawPath(shape.path);
            }
        }
        if (op.clip)
            painter.restore();
    }
    painter.restore();
}
