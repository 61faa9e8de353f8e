// SPDX-License-Identifier: GPL-2.0-or-later
// The EMF+ records that draw: rectangles, polygons, ellipses, pies, arcs,
// paths and curves filled or outlined, bitmaps placed, and strings laid out
// in a box or glyph by glyph.
#include "platform/emf/emf_plus_player.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QRawFont>

#include <cmath>
#include <cstring>

namespace emf::plus {

namespace {

// A closed or open cardinal spline through the points, as Béziers.
QPainterPath curveThrough(const std::vector<QPointF>& p, double tension, bool closed)
{
    QPainterPath path;
    const std::size_t n = p.size();
    if (n < 2)
        return path;
    const double k = tension / 3;
    auto at = [&](std::ptrdiff_t i) {
        if (closed)
            return p[std::size_t((i % std::ptrdiff_t(n) + std::ptrdiff_t(n)) % std::ptrdiff_t(n))];
        return p[std::size_t(std::clamp<std::ptrdiff_t>(i, 0, std::ptrdiff_t(n) - 1))];
    };
    path.moveTo(p[0]);
    const std::size_t segments = closed ? n : n - 1;
    for (std::size_t i = 0; i < segments; ++i) {
        const auto s = std::ptrdiff_t(i);
        const QPointF c1 = at(s) + (at(s + 1) - at(s - 1)) * k;
        const QPointF c2 = at(s + 1) - (at(s + 2) - at(s)) * k;
        path.cubicTo(c1, c2, at(s + 1));
    }
    if (closed)
        path.closeSubpath();
    return path;
}

bool isFill(std::uint16_t type)
{
    switch (type) {
    case kFillRects: case kFillPolygon: case kFillEllipse: case kFillPie: case kFillPath:
    case kFillClosedCurve:
        return true;
    default:
        return false;
    }
}

std::optional<std::vector<QPointF>> pointsOf(Reader& r, std::uint16_t flags)
{
    return readPoints(r, r.u32(), flags & flag::kCompressed, flags & flag::kRelative);
}

}  // namespace

void PlusPlayer::shapeRecord(std::uint16_t type, std::uint16_t flags, Reader& r)
{
    const bool filled = isFill(type);
    // Fill records start with their brush, the path records with the brush
    // or the pen (the path is the object in their flags).
    const std::uint32_t brushId = filled || type == kDrawPath ? r.u32() : 0;
    const bool compressed = flags & flag::kCompressed;
    QPainterPath path;
    switch (type) {
    case kFillRects: case kDrawRects: {
        const std::uint32_t count = r.u32();
        if (std::uint64_t(count) * (compressed ? 8 : 16) > r.left())
            return;
        for (std::uint32_t i = 0; i < count; ++i)
            if (const auto rect = readRect(r, compressed))
                path.addRect(*rect);
        break;
    }
    case kFillPolygon: case kDrawLines: case kDrawBeziers: {
        const auto points = pointsOf(r, flags);
        if (!points || points->size() < 2)
            return;
        if (type == kDrawBeziers) {
            path.moveTo((*points)[0]);
            for (std::size_t i = 1; i + 2 < points->size(); i += 3)
                path.cubicTo((*points)[i], (*points)[i + 1], (*points)[i + 2]);
        } else {
            path.addPolygon(QPolygonF(QList<QPointF>(points->begin(), points->end())));
            if (type == kFillPolygon || (flags & flag::kClosed))
                path.closeSubpath();
        }
        break;
    }
    case kFillEllipse: case kDrawEllipse: case kFillPie: case kDrawPie: case kDrawArc: {
        const bool arc = type == kFillPie || type == kDrawPie || type == kDrawArc;
        const double start = arc ? sane(r.f32()) : 0;
        const double sweep = arc ? std::clamp(sane(r.f32()), -360.0, 360.0) : 0;
        const auto rect = readRect(r, compressed);
        if (!rect)
            return;
        if (!arc) {
            path.addEllipse(*rect);
            break;
        }
        // Angles run clockwise from the x axis, as y points down.
        if (type != kDrawArc)
            path.moveTo(rect->center());
        else
            path.arcMoveTo(*rect, -start);
        path.arcTo(*rect, -start, -sweep);
        if (type != kDrawArc)
            path.closeSubpath();
        break;
    }
    case kFillPath: case kDrawPath: {
        const auto* object = find<Path>(flags & flag::kObjectId);
        if (!r.ok() || !object)
            return;
        if (type == kDrawPath)
            stroke(object->path, brushId);  // the pen, for this record
        else
            fillOrStroke(object->path, true, flags, brushId);
        return;
    }
    default:
        return;
    }
    fillOrStroke(path, filled, flags, brushId);
}

void PlusPlayer::curveRecord(std::uint16_t type, std::uint16_t flags, Reader& r)
{
    const bool filled = type == kFillClosedCurve;
    const std::uint32_t brushId = filled ? r.u32() : 0;
    const double tension = sane(r.f32());
    if (type == kDrawCurve)
        r.skip(8);  // offset and segment count: the whole curve is drawn
    const auto points = pointsOf(r, flags);
    if (!points)
        return;
    QPainterPath path = curveThrough(*points, tension, type != kDrawCurve);
    if (filled)
        path.setFillRule(flags & flag::kWinding ? Qt::WindingFill : Qt::OddEvenFill);
    fillOrStroke(path, filled, flags, brushId);
}

void PlusPlayer::imageRecord(std::uint16_t type, std::uint16_t flags, Reader& r)
{
    r.u32();  // image attributes
    r.u32();  // the source's unit: pixels, in practice
    const auto source = readRect(r, false);
    if (!source || source->width() <= 0 || source->height() <= 0)
        return;
    QTransform t;
    if (type == kDrawImage) {
        const auto dest = readRect(r, flags & flag::kCompressed);
        if (!dest)
            return;
        t = QTransform::fromTranslate(-source->x(), -source->y());
        t *= QTransform::fromScale(dest->width() / source->width(), dest->height() / source->height());
        t *= QTransform::fromTranslate(dest->x(), dest->y());
    } else {
        // The source's top-left, top-right and bottom-left corners land on
        // three points.
        const auto p = pointsOf(r, flags);
        if (!p || p->size() != 3)
            return;
        const QPointF u = ((*p)[1] - (*p)[0]) / source->width();
        const QPointF v = ((*p)[2] - (*p)[0]) / source->height();
        t = QTransform(u.x(), u.y(), v.x(), v.y(), (*p)[0].x() - u.x() * source->x() - v.x() * source->y(),
                       (*p)[0].y() - u.y() * source->x() - v.y() * source->y());
    }
    if (usableTransform(t))
        image(flags & flag::kObjectId, *source, t);
}

// The font object `id` laid out 1000 pixels large, and `scale`, the world
// units one of its pixels makes.
std::optional<QFont> PlusPlayer::fontAt(std::uint32_t id, double& scale) const
{
    const auto* font = find<Font>(id);
    // Fonts need the application's font database.
    if (!font || !qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return std::nullopt;
    // The em size in world units.
    const double devicePerWorld = linearScale(toDevice());
    double em = font->emSize;
    if (font->unit != 0 && devicePerWorld > 0)
        em = font->emSize * unitScale(font->unit, device_.dpiX) / devicePerWorld;
    if (!(em > 0) || em > kMaxReach)
        return std::nullopt;
    QFont qfont(font->family);
    qfont.setPixelSize(1000);  // laid out large, then scaled to the em size
    qfont.setBold(font->style & Font::kBold);
    qfont.setItalic(font->style & Font::kItalic);
    qfont.setUnderline(font->style & Font::kUnderline);
    qfont.setStrikeOut(font->style & Font::kStrikeOut);
    scale = em / 1000;
    return qfont;
}

// A string in its layout box, line by line, aligned by its string format.
void PlusPlayer::stringRecord(std::uint16_t flags, Reader& r)
{
    const std::uint32_t brushId = r.u32();
    const std::uint32_t formatId = r.u32();
    const std::uint32_t length = r.u32();
    const auto layout = readRect(r, false);
    if (!layout || length > r.left() / 2 || length > kMaxTextChars || length > charactersLeft_)
        return;
    charactersLeft_ -= length;
    double scale = 0;
    const auto qfont = fontAt(flags & flag::kObjectId, scale);
    const auto brush = brushOf(flags, brushId);
    if (!qfont || !brush)
        return;
    std::u16string chars(length, u'\0');
    std::memcpy(chars.data(), r.here(), 2 * std::size_t(length));
    const QFontMetricsF metrics(*qfont);
    StringFormat format;
    if (const auto* f = find<StringFormat>(formatId))
        format = *f;
    // Near, centre or far, along the line and across the lines.
    auto offset = [](double room, int align) { return room * (align == 1 ? 0.5 : align == 2 ? 1 : 0); };
    const QStringList lines = QString::fromStdU16String(chars).split(QChar('\n'));
    const double lineHeight = metrics.lineSpacing() * scale;
    double y = layout->y();
    if (layout->height() > 0)
        y += offset(layout->height() - lineHeight * double(lines.size()), format.lineAlign);
    QPainterPath glyphs;
    for (const QString& line : lines) {
        double x = layout->x();
        if (layout->width() > 0)
            x += offset(layout->width() - metrics.horizontalAdvance(line) * scale, format.align);
        QPainterPath one;
        one.addText(0, metrics.ascent(), *qfont, line);
        glyphs.addPath(QTransform(scale, 0, 0, scale, x, y).map(one));
        y += lineHeight;
    }
    glyphs.setFillRule(Qt::WindingFill);
    fill(glyphs, *brush);
}

// Glyphs each at its own point of the baseline: characters where the record
// says so, otherwise the font's own glyph numbers; with "realized advance"
// only the first point is given and the font's advances place the rest.
void PlusPlayer::driverStringRecord(std::uint16_t flags, Reader& r)
{
    constexpr std::uint32_t kCharacters = 1;       // codes are characters, not glyph numbers
    constexpr std::uint32_t kRealizedAdvance = 4;  // one point, then the font's advances
    const std::uint32_t brushId = r.u32();
    const std::uint32_t options = r.u32();
    const std::uint32_t matrixPresent = r.u32();
    const std::uint32_t count = r.u32();
    // Each glyph takes a code and a point: ten bytes.
    if (!r.ok() || count > kMaxTextChars || count > charactersLeft_ || std::uint64_t(count) * 10 > r.left())
        return;
    charactersLeft_ -= count;
    double scale = 0;
    const auto qfont = fontAt(flags & flag::kObjectId, scale);
    const auto brush = brushOf(flags, brushId);
    if (!qfont || !brush)
        return;
    std::vector<std::uint16_t> codes(count);
    for (std::uint16_t& c : codes)
        c = r.u16();
    std::vector<QPointF> at(count);
    for (QPointF& p : at) {
        const double x = r.f32();
        p = QPointF(x, r.f32());
    }
    QTransform turn;
    if (matrixPresent) {
        float m[6];
        for (float& v : m)
            v = r.f32();
        turn = QTransform(m[0], m[1], m[2], m[3], m[4], m[5]);
    }
    if (!r.ok() || !usableTransform(turn))
        return;
    const QRawFont raw = QRawFont::fromFont(*qfont);
    QPainterPath glyphs;
    QPointF pen = count ? at[0] : QPointF();
    for (std::size_t i = 0; i < count; ++i) {
        quint32 glyph = codes[i];
        if (options & kCharacters)
            glyph = raw.glyphIndexesForString(QString(QChar(codes[i]))).value(0);
        if (!(options & kRealizedAdvance))
            pen = at[i];
        const QPainterPath one = raw.pathForGlyph(glyph);
        glyphs.addPath(QTransform(scale, 0, 0, scale, 0, 0).map(one).translated(pen));
        if (options & kRealizedAdvance)
            pen.rx() += raw.advancesForGlyphIndexes(QList<quint32>{glyph}).value(0).x() * scale;
    }
    glyphs.setFillRule(Qt::WindingFill);
    fill(turn.map(glyphs), *brush);
}

}  // namespace emf::plus
