// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/emf/emf_text.h"

#include "platform/emf/emf_limits.h"
#include "platform/emf/emf_records.h"

#include <uemf.h>

#include <algorithm>
#include <array>

namespace emf {

namespace {

// EMRTEXT: reference point, count, string offset, options, rectangle (left
// out by some writers under ETO_NO_RECT), offset of the advances.
constexpr std::size_t kEmrTextWithoutRect = sizeof(U_EMRTEXT) + 4;
constexpr std::size_t kEmrTextWithRect = kEmrTextWithoutRect + sizeof(U_RECTL);
// ExtTextOut: bounds, graphics mode and scales, then one EMRTEXT;
// PolyTextOut: the same, a count where the EMRTEXT starts, then the EMRTEXTs.
constexpr std::size_t kExtTextAt = offsetof(U_EMREXTTEXTOUTW, emrtext);
constexpr std::size_t kPolyTextsAt = kExtTextAt + 4;

bool fits(std::uint64_t offset, std::uint64_t bytes, std::uint64_t size)
{
    return offset <= size && bytes <= size - offset;
}

// The characters of `count` units at `offset`, wide or 8-bit.
bool readString(const char* rec, std::uint64_t size, std::uint64_t offset, std::uint64_t count,
                bool wide, QString& out)
{
    if (!fits(offset, count * (wide ? 2 : 1), size))
        return false;
    count = std::min<std::uint64_t>(count, kMaxTextChars);
    if (wide) {
        out.resize(qsizetype(count));
        for (std::uint64_t i = 0; i < count; ++i) {
            std::uint16_t unit;
            std::memcpy(&unit, rec + offset + 2 * i, 2);
            out[qsizetype(i)] = QChar(unit);
        }
    } else {
        out = QString::fromLatin1(rec + offset, qsizetype(count));
    }
    return true;
}

// One EMRTEXT at `at`; false when it or what it points to lies outside.
bool readEmrText(const char* rec, std::uint64_t size, std::uint64_t at, bool wide, TextRun& run)
{
    if (!fits(at, kEmrTextWithoutRect, size))
        return false;
    const auto text = fieldAt<U_EMRTEXT>(rec, std::size_t(at));
    run.reference = pointOf(text.ptlReference);
    const std::uint64_t count = text.nChars;
    const std::uint64_t stringAt = text.offString;
    run.options = text.fOptions;
    std::uint64_t dxField = at + sizeof(U_EMRTEXT);
    if (!(run.options & U_ETO_NO_RECT)) {
        if (!fits(at, kEmrTextWithRect, size))
            return false;
        run.hasRect = true;
        run.rect = boxOf(fieldAt<U_RECTL>(rec, std::size_t(dxField)));
        dxField += sizeof(U_RECTL);
    }
    if (!readString(rec, size, stringAt, count, wide, run.text))
        return false;
    // Advances that do not fit are left to the font rather than refused.
    const std::uint64_t dxAt = fieldAt<std::uint32_t>(rec, std::size_t(dxField));
    const std::uint64_t perChar = (run.options & U_ETO_PDY) ? 2 : 1;
    if (count != 0 && dxAt != 0 && fits(dxAt, 4 * perChar * count, size)) {
        run.advances.reserve(std::size_t(run.text.size()));
        for (qsizetype i = 0; i < run.text.size(); ++i) {
            const std::size_t at = std::size_t(dxAt + 4 * perChar * std::uint64_t(i));
            const auto dx = fieldAt<std::array<std::int32_t, 2>>(rec, at);
            run.advances.emplace_back(dx[0], perChar == 2 ? dx[1] : 0);
        }
    }
    return true;
}

}  // namespace

std::vector<TextRun> textRuns(std::uint32_t type, const char* rec, std::uint32_t size)
{
    std::vector<TextRun> runs;
    switch (type) {
    case U_EMR_EXTTEXTOUTA: case U_EMR_EXTTEXTOUTW: {
        TextRun run;
        if (readEmrText(rec, size, kExtTextAt, type == U_EMR_EXTTEXTOUTW, run))
            runs.push_back(std::move(run));
        return runs;
    }
    case U_EMR_POLYTEXTOUTA: case U_EMR_POLYTEXTOUTW: {
        if (size < kPolyTextsAt)
            return runs;
        const std::uint64_t count = fieldAt<std::uint32_t>(rec, kExtTextAt);
        if (!fits(kPolyTextsAt, kEmrTextWithRect * count, size))
            return runs;
        for (std::uint64_t i = 0; i < count; ++i) {
            TextRun run;
            // Each EMRTEXT of a PolyTextOut has its rectangle.
            if (readEmrText(rec, size, kPolyTextsAt + kEmrTextWithRect * i, type == U_EMR_POLYTEXTOUTW, run))
                runs.push_back(std::move(run));
        }
        return runs;
    }
    case U_EMR_SMALLTEXTOUT: {
        if (size < U_SIZE_EMRSMALLTEXTOUT)
            return runs;
        TextRun run;
        const auto small = recordAs<U_EMRSMALLTEXTOUT>(rec);
        run.reference = pointOf(small.Dest);
        const std::uint64_t count = small.cChars;
        run.options = small.fuOptions;
        std::uint64_t stringAt = U_SIZE_EMRSMALLTEXTOUT;
        if (!(run.options & U_ETO_NO_RECT)) {
            if (!fits(stringAt, sizeof(U_RECTL), size))
                return runs;
            run.hasRect = true;
            run.rect = boxOf(fieldAt<U_RECTL>(rec, std::size_t(stringAt)));
            stringAt += sizeof(U_RECTL);
        }
        if (readString(rec, size, stringAt, count, !(run.options & U_ETO_SMALL_CHARS), run.text))
            runs.push_back(std::move(run));
        return runs;
    }
    default:
        return runs;
    }
}

namespace {

// The symbol face's Latin letters are Greek ones, A to Z and a to z.
const char16_t kSymbolUpper[] = u"ΑΒΧΔΕΦΓΗΙϑΚΛΜΝΟΠΘΡΣΤΥςΩΞΨΖ";
const char16_t kSymbolLower[] = u"αβχδεφγηιϕκλμνοπθρστυϖωξψζ";

struct CodePair {
    char16_t from;
    char16_t to;
};

const CodePair kSymbolOthers[] = {
    {0x22, u'∀'}, {0x24, u'∃'}, {0x27, u'∋'}, {0x2A, u'∗'}, {0x2D, u'−'}, {0x40, u'≅'},
    {0x5C, u'∴'}, {0x5E, u'⊥'}, {0xA3, u'≤'}, {0xA5, u'∞'}, {0xAC, u'←'}, {0xAD, u'↑'},
    {0xAE, u'→'}, {0xAF, u'↓'}, {0xB0, u'°'}, {0xB1, u'±'}, {0xB3, u'≥'}, {0xB4, u'×'},
    {0xB6, u'∂'}, {0xB7, u'•'}, {0xB8, u'÷'}, {0xB9, u'≠'}, {0xBB, u'≈'}, {0xD6, u'√'},
    {0xE5, u'∑'}, {0xF2, u'∫'},
};

// The most used pictures of the dingbat faces; the rest become a box.
const CodePair kDingbats[] = {
    {0x6C, u'●'}, {0x6E, u'■'}, {0x6F, u'□'}, {0x71, u'❑'}, {0x75, u'◆'}, {0x76, u'❖'},
    {0x9F, u'•'}, {0xA1, u'○'}, {0xA7, u'▪'}, {0xA8, u'◻'}, {0xD8, u'➢'}, {0xE0, u'➔'},
    {0xE8, u'➔'}, {0xF0, u'⇨'}, {0xFB, u'✗'}, {0xFC, u'✓'}, {0xFE, u'☑'},
};

char16_t lookUp(const CodePair* begin, const CodePair* end, char16_t code, char16_t otherwise)
{
    const auto it = std::find_if(begin, end, [code](const CodePair& p) { return p.from == code; });
    return it != end ? it->to : otherwise;
}

}  // namespace

QString symbolText(const QString& text, const QString& face)
{
    const QString f = face.trimmed().toLower();
    const bool symbol = f == QLatin1String("symbol");
    const bool dingbats = f.startsWith(QLatin1String("wingdings")) ||
                          f == QLatin1String("webdings") || f == QLatin1String("marlett");
    if (!symbol && !dingbats)
        return text;
    QString out = text;
    for (QChar& c : out) {
        // Symbol faces' characters live at U+F020..U+F0FF in wide strings.
        char16_t code = c.unicode();
        if (code >= 0xF020 && code <= 0xF0FF)
            code = char16_t(code - 0xF000);
        if (code < 0x20 || code > 0xFF)
            continue;
        if (dingbats)
            code = code == 0x20 ? code : lookUp(std::begin(kDingbats), std::end(kDingbats), code, u'□');
        else if (code >= 'A' && code <= 'Z')
            code = kSymbolUpper[code - 'A'];
        else if (code >= 'a' && code <= 'z')
            code = kSymbolLower[code - 'a'];
        else
            code = lookUp(std::begin(kSymbolOthers), std::end(kSymbolOthers), code, code);
        c = QChar(code);
    }
    return out;
}

}  // namespace emf
