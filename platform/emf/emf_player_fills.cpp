// SPDX-License-Identifier: GPL-2.0-or-later
// Single pixels, regions filled, framed, painted and inverted, and colour
// gradients over rectangles and triangles.
#include "platform/emf/emf_player.h"

#include "platform/emf/emf_shapes.h"

#include <QLinearGradient>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace emf {

namespace {


QColor colourOf(const GradientVertex& v)
{
    return QColor(int(std::lround(v.rgb[0])), int(std::lround(v.rgb[1])), int(std::lround(v.rgb[2])));
}

// A triangle shaded from its corners' colours, in device pixels, as a
// bitmap and where it goes. Pixels just outside the edges are shaded too,
// so that triangles sharing an edge leave no seam.
std::optional<std::pair<QImage, QTransform>> shadedTriangle(const GradientVertex (&v)[3], std::int64_t pixelsLeft)
{
    const QRectF box = QPolygonF({v[0].at, v[1].at, v[2].at}).boundingRect();
    const double area = (v[1].at.x() - v[0].at.x()) * (v[2].at.y() - v[0].at.y()) -
                        (v[2].at.x() - v[0].at.x()) * (v[1].at.y() - v[0].at.y());
    if (std::abs(area) < 1e-9 || box.width() > kMaxReach || box.height() > kMaxReach)
        return std::nullopt;
    const double scale = std::min(1.0, kMaxShadingSide / std::max(box.width(), box.height()));
    const int w = int(std::ceil(box.width() * scale)) + 1;
    const int h = int(std::ceil(box.height() * scale)) + 1;
    if (std::int64_t(w) * h > pixelsLeft)
        return std::nullopt;
    QImage image(w, h, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const double slack = 0.75 / scale;  // device pixels
    for (int y = 0; y < h; ++y) {
        auto* px = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < w; ++x) {
            const QPointF p(box.left() + (x + 0.5) / scale, box.top() + (y + 0.5) / scale);
            double b[3];
            for (int i = 0; i < 3; ++i) {
                const QPointF& a = v[(i + 1) % 3].at;
                const QPointF& c = v[(i + 2) % 3].at;
                b[i] = ((c.x() - a.x()) * (p.y() - a.y()) - (p.x() - a.x()) * (c.y() - a.y())) / area;
            }
            // Distance outside an edge, in device pixels, from each weight.
            bool inside = true;
            for (int i = 0; i < 3; ++i) {
                const QPointF edge = v[(i + 2) % 3].at - v[(i + 1) % 3].at;
                const double len = std::hypot(edge.x(), edge.y());
                inside &= b[i] * std::abs(area) / std::max(len, 1e-9) >= -slack;
            }
            if (!inside)
                continue;
            double rgb[3];
            for (int c = 0; c < 3; ++c)
                rgb[c] = std::clamp(b[0] * v[0].rgb[c] + b[1] * v[1].rgb[c] + b[2] * v[2].rgb[c], 0.0, 255.0);
            px[x] = qRgb(int(rgb[0]), int(rgb[1]), int(rgb[2]));
        }
    }
    QTransform placement = QTransform::fromScale(1 / scale, 1 / scale);
    placement *= QTransform::fromTranslate(box.left(), box.top());
    return std::make_pair(image, placement);
}

}  // namespace

void Player::fillRecord(std::uint32_t type, const char* rec)
{
    switch (type) {
    case U_EMR_SETPIXELV: {
        const auto r = recordAs<U_EMRSETPIXELV>(rec);
        const QPointF at = toDevice().map(pointOf(r.ptlPixel));
        const QColor colour = colourOf(r.crColor);
        // A one-pixel square pen around the pixel's centre: it covers the
        // pixel, and stays at least one pixel wide however small the
        // picture is drawn.
        const QRectF dot(std::floor(at.x()) + 0.4995, std::floor(at.y()) + 0.4995, 0.001, 0.001);
        // A run of pixels of one colour under one clip becomes one shape.
        if (!out_.ops.empty() && pixelRun_ == out_.ops.size() - 1 && out_.ops.back().clip == dc_.clip) {
            ShapeOp& run = std::get<ShapeOp>(out_.ops.back().what);
            if (run.stroke->color == colour) {
                run.path.addRect(dot);
                return;
            }
        }
        ShapeOp pixel;
        pixel.path.addRect(dot);
        Stroke& pen = pixel.stroke.emplace();
        pen.color = colour;
        pen.width = 1;
        pen.join = Qt::MiterJoin;
        if (emitOp(out_.ops, {std::move(pixel), {}, QPainter::CompositionMode_SourceOver}, dc_.clip))
            pixelRun_ = out_.ops.size() - 1;
        return;
    }
    case U_EMR_GRADIENTFILL:
        gradientRecord(rec);
        return;
    default:
        break;
    }
    // Regions: FillRgn and FrameRgn name a brush, PaintRgn uses the
    // selected one, InvertRgn inverts.
    const RegionRecord r = readRegion(type, rec);
    const QPainterPath region = toDevice().map(r.region);
    if (region.isEmpty())
        return;
    if (type == U_EMR_INVERTRGN) {
        addFill(region, QBrush(Qt::white), QPainter::RasterOp_SourceXorDestination);
        return;
    }
    BrushObject brush = dc_.brush;
    if (type != U_EMR_PAINTRGN) {
        DeviceContext named;
        named.brush.visible = false;
        objects_.select(r.brush, named);
        brush = named.brush;
    }
    if (!brush.visible)
        return;
    if (type != U_EMR_FRAMERGN) {
        addFill(region, qtBrush(brush));
        return;
    }
    // The frame: the region's edge band, as wide and high as the record says.
    const QTransform t = toDevice();
    const double w = std::abs(t.map(QLineF(0, 0, r.frame.x(), 0)).length());
    const double h = std::abs(t.map(QLineF(0, 0, 0, r.frame.y())).length());
    if (w > kMaxReach || h > kMaxReach)
        return;
    Stroke band;
    band.color = brush.color;
    band.width = std::min(2 * std::max(w, h), kMaxPenWidth);
    band.join = Qt::MiterJoin;
    band.cap = Qt::SquareCap;
    // Only the inner half of the stroke shows.
    const QPainterPath inside = combinedClip(dc_.clip, out_.frame, region, ClipCombine::Intersect);
    emitOp(out_.ops, {ShapeOp{region, std::nullopt, band}, {}, QPainter::CompositionMode_SourceOver}, inside);
}

void Player::gradientRecord(const char* rec)
{
    const GradientRecord g = readGradient(rec);
    const std::size_t vertices = g.vertices.size();
    const QTransform t = toDevice();
    for (const auto& piece : g.pieces) {
        if (g.mode == U_GRADIENT_FILL_TRIANGLE) {
            if (piece[0] >= vertices || piece[1] >= vertices || piece[2] >= vertices)
                continue;
            GradientVertex v[3];
            for (int k = 0; k < 3; ++k) {
                v[k] = g.vertices[piece[std::size_t(k)]];
                v[k].at = t.map(v[k].at);
            }
            if (auto shaded = shadedTriangle(v, kMaxPicturePixels - bitmapPixels_)) {
                bitmapPixels_ += std::int64_t(shaded->first.width()) * shaded->first.height();
                addImage(shaded->first, shaded->second, QPainter::CompositionMode_SourceOver);
            }
            continue;
        }
        if (g.mode != U_GRADIENT_FILL_RECT_H && g.mode != U_GRADIENT_FILL_RECT_V)
            return;
        if (piece[0] >= vertices || piece[1] >= vertices)
            continue;
        const GradientVertex& from = g.vertices[piece[0]];
        const GradientVertex& to = g.vertices[piece[1]];
        QPainterPath box;
        box.addRect(QRectF(from.at, to.at).normalized());
        const bool across = g.mode == U_GRADIENT_FILL_RECT_H;
        const QPointF end = across ? QPointF(to.at.x(), from.at.y()) : QPointF(from.at.x(), to.at.y());
        QLinearGradient gradient(t.map(from.at), t.map(end));
        gradient.setColorAt(0, colourOf(from));
        gradient.setColorAt(1, colourOf(to));
        addFill(t.map(box), QBrush(gradient));
    }
}

}  // namespace emf
