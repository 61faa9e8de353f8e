// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_fonts.h"

#include "platform/emf/emf_limits.h"
#include "platform/emf/emf_records.h"

#include <QFontDatabase>
#include <QFontMetricsF>

#include <uemf.h>

#include <algorithm>
#include <cstring>

namespace emf {

namespace {

// The record's LOGFONTW; the longer forms after it are not read.
constexpr std::size_t kLogFontAt = offsetof(U_EMREXTCREATEFONTINDIRECTW, elfw);
constexpr std::size_t kLogFontEnd = kLogFontAt + sizeof(U_LOGFONT);


struct Substitute {
    const char* face;
    const char* family;
};

// Faces Windows pictures name most, to the free faces made to their metrics
// or closest in look.
const Substitute kSubstitutes[] = {
    {"arial", "Liberation Sans"},           {"helvetica", "Liberation Sans"},
    {"arial narrow", "Liberation Sans Narrow"}, {"ms sans serif", "Liberation Sans"},
    {"microsoft sans serif", "Liberation Sans"}, {"ms shell dlg", "Liberation Sans"},
    {"ms shell dlg 2", "Liberation Sans"},  {"tahoma", "DejaVu Sans"},
    {"verdana", "DejaVu Sans"},             {"segoe ui", "Liberation Sans"},
    {"calibri", "Liberation Sans"},         {"univers", "Liberation Sans"},
    {"times new roman", "Liberation Serif"}, {"times", "Liberation Serif"},
    {"ms serif", "Liberation Serif"},       {"cambria", "Liberation Serif"},
    {"georgia", "DejaVu Serif"},            {"garamond", "Liberation Serif"},
    {"book antiqua", "Liberation Serif"},   {"courier new", "Liberation Mono"},
    {"courier", "Liberation Mono"},         {"lucida console", "Liberation Mono"},
    {"consolas", "Liberation Mono"},        {"symbol", "DejaVu Sans"},
    {"wingdings", "DejaVu Sans"},           {"wingdings 2", "DejaVu Sans"},
    {"wingdings 3", "DejaVu Sans"},         {"webdings", "DejaVu Sans"},
    {"marlett", "DejaVu Sans"},
};

// A font's average character width as Windows measures it for a LOGFONT's
// width: lower-case letters and the space, weighted by their frequency in
// English text (per thousand).
double averageWidth(const QFontMetricsF& m)
{
    static const int kWeights[26] = {64, 14, 27, 35, 100, 20, 14, 42, 63, 3, 6, 35, 20,
                                     56, 56, 17, 4, 49, 56, 71, 31, 10, 18, 3, 18, 2};
    double sum = 166 * m.horizontalAdvance(QLatin1Char(' '));
    for (int i = 0; i < 26; ++i)
        sum += kWeights[i] * m.horizontalAdvance(QLatin1Char(char('a' + i)));
    return sum / 1000;
}

}  // namespace

std::optional<std::pair<std::uint32_t, FontObject>> fontFromRecord(const char* rec,
                                                                   std::uint32_t size)
{
    if (size < kLogFontEnd)
        return std::nullopt;
    const auto lf = fieldAt<U_LOGFONT>(rec, kLogFontAt);
    FontObject f;
    f.height = std::clamp(double(lf.lfHeight), -kMaxFontHeight, kMaxFontHeight);
    f.width = std::clamp(std::abs(double(lf.lfWidth)), 0.0, kMaxFontHeight);
    f.escapement = lf.lfEscapement % 3600;
    f.weight = lf.lfWeight <= 0 ? 400 : std::clamp(lf.lfWeight, 1, 1000);
    f.italic = lf.lfItalic != 0;
    f.underline = lf.lfUnderline != 0;
    f.strikeOut = lf.lfStrikeOut != 0;
    f.charset = lf.lfCharSet;
    f.pitchAndFamily = lf.lfPitchAndFamily;
    for (const std::uint16_t unit : lf.lfFaceName) {
        if (unit == 0)
            break;
        f.face.append(QChar(unit));
    }
    return std::make_pair(recordAs<U_EMREXTCREATEFONTINDIRECTW>(rec).ihFont, f);
}

QString familyFor(const FontObject& font)
{
    const QString face = font.face.trimmed();
    const QString key = face.toLower();
    for (const Substitute& s : kSubstitutes)
        if (key == QLatin1String(s.face))
            return QString::fromLatin1(s.family);
    if (!face.isEmpty() && QFontDatabase::hasFamily(face))
        return face;
    // The LOGFONT's family: roman faces are serif, modern ones or fixed
    // pitch monospaced, the rest sans.
    const int family = font.pitchAndFamily >> 4;
    if (family == 1)
        return QStringLiteral("Liberation Serif");
    if (family == 3 || (font.pitchAndFamily & 3) == 1)
        return QStringLiteral("Liberation Mono");
    return QStringLiteral("Liberation Sans");
}

const ResolvedFont& FontCache::resolve(const FontObject& font)
{
    const QString family = familyFor(font);
    const auto key = std::make_tuple(family, font.weight, font.italic);
    const auto found = fonts_.find(key);
    if (found != fonts_.end())
        return found->second;

    ResolvedFont r;
    r.font = QFont(family);
    r.font.setPixelSize(int(kDesignPixels));
    r.font.setWeight(QFont::Weight(font.weight));
    r.font.setItalic(font.italic);
    r.font.setKerning(false);
    r.font.setHintingPreference(QFont::PreferNoHinting);
    r.font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferOutline | QFont::NoSubpixelAntialias));
    r.raw = QRawFont::fromFont(r.font);
    const QFontMetricsF m(r.font);
    r.ascent = m.ascent();
    r.descent = m.descent();
    r.averageWidth = averageWidth(m);
    r.underlinePos = m.underlinePos();
    r.strikeOutPos = m.strikeOutPos();
    r.lineWidth = std::max(m.lineWidth(), kDesignPixels / 20);
    return fonts_.emplace(key, std::move(r)).first->second;
}

}  // namespace emf
