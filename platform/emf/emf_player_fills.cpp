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

// Triangles are shaded into a bitmap of at most this many pixels a side.
constexpr double kMaxShadingSide = 1024;

QColor colourOf(std::uint32_t colorref)
{
    return QColor(int(colorref & 0xff), int(colorref >> 8 & 0xff), int(colorref >> 16 & 0xff));
}

// The rectangles of region data (bytes long, checked to lie in the record)
// as one path; empty when the data is damaged.
QPainterPath regionPath(const char* data, std::uint32_t bytes)
{
    QPainterPath region;
    if (bytes < sizeof(U_RGNDATAHEADER))
        return region;
    const std::uint64_t rects = readU32(data, 8);
    if (sizeof(U_RGNDATAHEADER) + 16 * rects > bytes)
        return region;
    region.setFillRule(Qt::WindingFill);
    for (std::uint64_t i = 0; i < rects; ++i)
        region.addRect(boxRect(data, sizeof(U_RGNDATAHEADER) + 16 * i));
    return region.simplified();
}

struct Vertex {
    QPointF at;
    double rgb[3];
};

Vertex vertexAt(const char* rec, std::uint32_t index)
{
    const char* v = rec + sizeof(U_EMRGRADIENTFILL) + 16 * std::size_t(index);
    Vertex out{QPointF(readI32(v, 0), readI32(v, 4)), {}};
    for (int c = 0; c < 3; ++c)
        out.rgb[c] = std::uint16_t(std::uint8_t(v[8 + 2 * c]) | std::uint8_t(v[9 + 2 * c]) << 8) / 257.0;
    return out;
}

QColor colourOf(const Vertex& v)
{
    return QColor(int(std::lround(v.rgb[0])), int(std::lround(v.rgb[1])), int(std::lround(v.rgb[2])));
}

// A triangle shaded from its corners' colours, in device pixels, as a
// bitmap and where it goes. Pixels just outside the edges are shaded too,
// so that triangles sharing an edge leave no seam.
std::optional<std::pair<QImage, QTransform>> shadedTriangle(const Vertex (&v)[3], std::int64_t pixelsLeft)
{
    const QRectF box = QPolygonF({v[0].at, v[1].at, v[2].at}).boundingRect();
    const double area = (v[1].at.x() - v[0].at.x()) * (v[2].at.y() - v[0].at.y()) -
                        (v[2].at.x() - v[0].at.x()) * (v[1].at.y() - v[0].at.y());
    if (std::abs(area) < 1e-9 || box.width() > kMaxCoordinate || box.height() > kMaxCoordinate)
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
        const QPointF at = toDevice().map(QPointF(readI32(rec, 8), readI32(rec, 12)));
        const QColor colour = colourOf(readU32(rec, 16));
        // A one-pixel square pen around the pixel's centre: it covers the
        // pixel, and stays at least one pixel wide however small the
        // picture is drawn.
        const QRectF dot(std::floor(at.x()) + 0.4995, std::floor(at.y()) + 0.4995, 0.001, 0.001);
        // A run of pixels of one colour under one clip becomes one shape.
        if (!out_.ops.empty() && pixelRun_ == out_.ops.size() - 1 && out_.ops.back().stroke.color == colour &&
            out_.ops.back().clipped == dc_.clipped && (!dc_.clipped || out_.ops.back().clip == dc_.clip)) {
            out_.ops.back().path.addRect(dot);
            return;
        }
        DrawOp op;
        op.path.addRect(dot);
        op.stroked = true;
        op.stroke.color = colour;
        op.stroke.width = 1;
        op.stroke.join = Qt::MiterJoin;
        const std::size_t before = out_.ops.size();
        placeOp(std::move(op));
        if (out_.ops.size() > before)
            pixelRun_ = before;
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
    const std::size_t dataAt = type == U_EMR_FRAMERGN ? U_SIZE_EMRFRAMERGN
                               : type == U_EMR_FILLRGN ? U_SIZE_EMRFILLRGN
                                                       : U_SIZE_EMRINVERTRGN;
    const QPainterPath region = toDevice().map(regionPath(rec + dataAt, readU32(rec, 24)));
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
        objects_.select(readU32(rec, 28), named);
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
    const double w = std::abs(t.map(QLineF(0, 0, readI32(rec, 32), 0)).length());
    const double h = std::abs(t.map(QLineF(0, 0, 0, readI32(rec, 36))).length());
    if (w > kMaxCoordinate || h > kMaxCoordinate)
        return;
    DrawOp op;
    op.path = region;
    op.stroked = true;
    op.stroke.color = brush.color;
    op.stroke.width = std::min(2 * std::max(w, h), kMaxPenWidth);
    op.stroke.join = Qt::MiterJoin;
    op.stroke.cap = Qt::SquareCap;
    const bool wasClipped = dc_.clipped;
    const QPainterPath oldClip = dc_.clip;
    combineClip(region, U_RGN_AND);  // only the inner half of the stroke shows
    placeOp(std::move(op));
    dc_.clipped = wasClipped;
    dc_.clip = oldClip;
}

void Player::gradientRecord(const char* rec)
{
    const std::uint32_t vertices = readU32(rec, 24);
    const std::uint32_t objects = readU32(rec, 28);
    const std::uint32_t mode = readU32(rec, 32);
    const char* list = rec + sizeof(U_EMRGRADIENTFILL) + 16 * std::size_t(vertices);
    const QTransform t = toDevice();
    for (std::uint32_t i = 0; i < objects; ++i) {
        if (mode == U_GRADIENT_FILL_TRIANGLE) {
            Vertex v[3];
            bool ok = true;
            for (int k = 0; k < 3; ++k) {
                const std::uint32_t index = readU32(list, 12 * std::size_t(i) + 4 * std::size_t(k));
                ok &= index < vertices;
                if (ok) {
                    v[k] = vertexAt(rec, index);
                    v[k].at = t.map(v[k].at);
                }
            }
            if (!ok)
                continue;
            if (auto shaded = shadedTriangle(v, kMaxPicturePixels - bitmapPixels_)) {
                bitmapPixels_ += std::int64_t(shaded->first.width()) * shaded->first.height();
                addImage(shaded->first, shaded->second, QPainter::CompositionMode_SourceOver);
            }
            continue;
        }
        if (mode != U_GRADIENT_FILL_RECT_H && mode != U_GRADIENT_FILL_RECT_V)
            return;
        const std::uint32_t a = readU32(list, 8 * std::size_t(i));
        const std::uint32_t b = readU32(list, 8 * std::size_t(i) + 4);
        if (a >= vertices || b >= vertices)
            continue;
        const Vertex from = vertexAt(rec, a);
        const Vertex to = vertexAt(rec, b);
        QPainterPath box;
        box.addRect(QRectF(from.at, to.at).normalized());
        const bool across = mode == U_GRADIENT_FILL_RECT_H;
        const QPointF start = from.at;
        const QPointF end = across ? QPointF(to.at.x(), from.at.y()) : QPointF(from.at.x(), to.at.y());
        QLinearGradient gradient(t.map(start), t.map(end));
        gradient.setColorAt(0, colourOf(from));
        gradient.setColorAt(1, colourOf(to));
        addFill(t.map(box), QBrush(gradient));
    }
}

}  // namespace emf
