// SPDX-License-Identifier: GPL-2.0-or-later
// Text records: each string's glyph outlines laid out along its baseline with
// the selected font, aligned on the reference point, and filled with the text
// colour over an optional background.
#include "platform/emf/emf_player.h"

#include "platform/emf/emf_text.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QLineF>

#include <cmath>

namespace emf {

namespace {

// A font this many device pixels high when the record leaves the height to
// the device.
constexpr double kDefaultFontPixels = 12;

// When no installed face has a character of its script, Qt stands in solid
// squares, one per shaped glyph, each a font's height less three pixels and
// topped at the font's height; drawn, a line of such text is one black bar.
// The face's own missing-glyph box, hollow, is what other programs show.
bool isStandInSquare(const QPainterPath& glyph)
{
    const QRectF box = glyph.boundingRect();
    return glyph.elementCount() > 0 && glyph.elementCount() % 5 == 0 &&
           std::abs(box.top() + kDesignPixels) < 0.01 &&
           std::abs(box.height() - (kDesignPixels - 3)) < 0.01;
}

}  // namespace

void Player::textStateRecord(std::uint32_t type, const char* rec, std::uint32_t size)
{
    if (type == U_EMR_EXTCREATEFONTINDIRECTW) {
        if (const auto font = fontFromRecord(rec, size))
            objects_.create(font->first, font->second);
        return;
    }
    switch (type) {
    case U_EMR_SETTEXTALIGN: dc_.textAlign = argumentOf(rec); return;
    case U_EMR_SETTEXTCOLOR: dc_.textColor = colourOf(argumentOf(rec)); return;
    case U_EMR_SETBKCOLOR: dc_.backgroundColor = colourOf(argumentOf(rec)); return;
    case U_EMR_SETBKMODE: {
        const std::uint32_t mode = argumentOf(rec);
        if (mode == U_TRANSPARENT || mode == U_OPAQUE)
            dc_.opaqueBackground = mode == U_OPAQUE;
        return;
    }
    default:
        return;
    }
}

void Player::textRecord(std::uint32_t type, const char* rec, std::uint32_t size)
{
    for (const TextRun& run : textRuns(type, rec, size))
        drawText(run);
}

void Player::addTextFill(const QPainterPath& devicePath, const QColor& colour)
{
    if (devicePath.isEmpty())
        return;
    ShapeOp fill{devicePath, QBrush(colour), std::nullopt};
    fill.path.setFillRule(Qt::WindingFill);
    emitOp(out_.ops, {std::move(fill), {}, QPainter::CompositionMode_SourceOver}, dc_.clip);
}

void Player::drawText(const TextRun& run)
{
    const QTransform t = toDevice();
    QPainterPath rect;
    if (run.hasRect && !run.rect.isEmpty())
        rect = t.map([&] { QPainterPath p; p.addRect(run.rect); return p; }());
    // An opaque rectangle is painted even when there is no text: some
    // programs paint their backgrounds this way.
    if (!inPath_ && (run.options & U_ETO_OPAQUE) && !rect.isEmpty())
        addTextFill(rect, dc_.backgroundColor);
    // Fonts need the application's font database; without one (a tool that
    // made no QGuiApplication) the text is left out.
    if (run.text.isEmpty() || glyphsDrawn_ >= kMaxGlyphs ||
        !qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return;

    // Device pixels per logical unit along x and y; the font's height
    // follows y, its width too unless the font sets one.
    const double sx = t.map(QLineF(0, 0, 1, 0)).length();
    const double sy = t.map(QLineF(0, 0, 0, 1)).length();
    if (!(sx > 1e-9 && sy > 1e-9) || !std::isfinite(sx) || !std::isfinite(sy))
        return;
    const FontObject& f = dc_.font;
    const ResolvedFont& font = fonts_.resolve(f);
    double scale;  // device pixels per design pixel
    if (f.height < 0)
        scale = -f.height * sy / kDesignPixels;  // the character height
    else if (f.height > 0)
        scale = f.height * sy / (font.ascent + font.descent);  // the cell height
    else
        scale = kDefaultFontPixels / kDesignPixels;
    double stretch = 1;
    if (f.width > 0 && font.averageWidth > 0)
        stretch = std::clamp(f.width * sx / (font.averageWidth * scale), 0.05, 20.0);
    if (!std::isfinite(scale) || scale <= 0 || scale * kDesignPixels > kMaxReach)
        return;

    // The escapement turns the baseline counterclockwise in logical units
    // as if y grew downward (a mapping with y up turns it the other way);
    // the advances are logical units along it.
    const double turn = f.escapement / 10 * M_PI / 180;
    const QLineF axis = t.map(QLineF(0, 0, std::cos(turn), -std::sin(turn)));
    const double along = axis.length();

    // Glyphs along the baseline from 0, x right and y down, device pixels.
    const bool indexes = run.options & U_ETO_GLYPH_INDEX;
    const QString text = indexes ? run.text : symbolText(run.text, f.face);
    QList<quint32> glyphs;
    if (indexes) {
        for (QChar c : text)
            glyphs.append(c.unicode());
    } else if (font.raw.isValid()) {
        glyphs = font.raw.glyphIndexesForString(text);
    }
    const QList<QPointF> natural =
        font.raw.isValid() ? font.raw.advancesForGlyphIndexes(glyphs) : QList<QPointF>();
    const QTransform glyphScale = QTransform::fromScale(scale * stretch, scale);
    QPainterPath outline;
    outline.setFillRule(Qt::WindingFill);
    QPointF pen(0, 0);
    for (qsizetype i = 0; i < text.size() && glyphsDrawn_ < kMaxGlyphs; ++i, ++glyphsDrawn_) {
        QPainterPath glyph;
        double advance = 0;
        if (i < glyphs.size() && i < natural.size() && (indexes || glyphs[i] != 0)) {
            glyph = font.raw.pathForGlyph(glyphs[i]);
            advance = natural[i].x();
        } else {  // a character the face lacks: Qt finds another face
            glyph.addText(0, 0, font.font, QString(text[i]));
            advance = QFontMetricsF(font.font).horizontalAdvance(text[i]);
            if (isStandInSquare(glyph) && font.raw.isValid()) {
                glyph = font.raw.pathForGlyph(0);
                advance = font.raw.advancesForGlyphIndexes(QList<quint32>{0}).value(0).x();
            }
        }
        outline.addPath(glyphScale.map(glyph).translated(pen));
        if (std::size_t(i) < run.advances.size())
            pen += QPointF(run.advances[std::size_t(i)].x() * along, -run.advances[std::size_t(i)].y() * sy);
        else
            pen.rx() += advance * scale * stretch;
    }
    const double width = pen.x();
    const double ascent = font.ascent * scale;
    const double descent = font.descent * scale;

    const std::uint32_t align = dc_.textAlign;
    double left = 0;
    if ((align & U_TA_CENTER) == U_TA_CENTER)
        left = -width / 2;
    else if (align & U_TA_RIGHT)
        left = -width;
    double baseline = ascent;  // TA_TOP
    if ((align & U_TA_BASELINE) == U_TA_BASELINE)
        baseline = 0;
    else if (align & U_TA_BOTTOM)
        baseline = -descent;
    if (f.underline)
        outline.addRect(QRectF(0, font.underlinePos * scale, width, font.lineWidth * scale));
    if (f.strikeOut)
        outline.addRect(QRectF(0, -font.strikeOutPos * scale, width, font.lineWidth * scale));

    // Upright on the baseline whatever the mapping.
    const QPointF origin = (align & U_TA_UPDATECP) ? dc_.position : t.map(run.reference);
    const double angle = std::atan2(axis.dy(), axis.dx());
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const QTransform place = QTransform::fromTranslate(left, baseline) *
                             QTransform(c, s, -s, c, origin.x(), origin.y());
    if (align & U_TA_UPDATECP) {
        const double move = (align & U_TA_CENTER) == U_TA_CENTER ? 0
                            : (align & U_TA_RIGHT)              ? -width
                                                                : width;
        dc_.position = origin + QPointF(c * move, s * move);
    }

    const QPainterPath glyphsOnPage = place.map(outline);
    if (inPath_) {
        path_.addPath(glyphsOnPage);
        figureOpen_ = false;
        return;
    }
    if (dc_.opaqueBackground && !(run.options & U_ETO_OPAQUE)) {
        QPainterPath cell;
        cell.addRect(QRectF(0, -ascent, width, ascent + descent));
        addTextFill(place.map(cell), dc_.backgroundColor);
    }
    const std::optional<QPainterPath> clip = dc_.clip;
    if ((run.options & U_ETO_CLIPPED) && !rect.isEmpty())
        combineClip(rect, U_RGN_AND);
    addTextFill(glyphsOnPage, dc_.textColor);
    dc_.clip = clip;
}

}  // namespace emf
